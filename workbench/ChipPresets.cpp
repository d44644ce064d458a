#include "workbench/ChipPresets.h"

#include "paramfiles/ParamChipTable.h"

#include "dialogs/chips/ParamTablePageList.h"
#include "workbench/ChipCatalog.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

using Block = std::array<std::uint8_t, kRegDataBytes>;

// Per-colour chips keep red, green and blue copies of each 16-bit register two bytes apart
// (bytes 2-3, 4-5, 6-7 and 8-9, 10-11, 12-13).
void SetColourBytes(Block& block, int firstByte, std::uint8_t value) {
    for (int colour = 0; colour < 3; ++colour)
        block[firstByte + 2 * colour] = value;
}

void PutWord(std::uint8_t* at, std::uint32_t word) {
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<std::uint8_t>(word >> (8 * i));
}

// The MBI5153 as its own "Default" leaves it: gain 43 in every colour, the second register 0x0042
// for red and 0x0062 for green and blue, both record flags clear.
void Mbi5153(SimulatedChip& chip) {
    const std::uint8_t defaults[] = {0xDF, 0x2B, 0xDF, 0x2B, 0xDF, 0x2B, 0x42,
                                     0x00, 0x62, 0x00, 0x62, 0x00, 0x00, 0x21};
    std::memcpy(chip.regData.data() + 2, defaults, sizeof defaults);
    PutWord(chip.regDataEx.data(), 0x21002100);
    PutWord(chip.regData4.data() + 10, 0x01020102);
}

// FM6126/FM6127 gain 60 in every colour: bits 5..3 in byte W bits 2..0, bit 2 in byte X bit 7,
// bits 1..0 in byte X bits 3..2, which the FM6126 stores inverted.
void Fm612xGain60(SimulatedChip& chip, bool invertLowBits) {
    SetColourBytes(chip.regData, 2, 0x07);
    SetColourBytes(chip.regData, 3, invertLowBits ? 0x8C : 0x80);
}

// FM6126EX gain field 15 (shown as 16); the chip wants bit 7 of byte W set.
void Fm6126Ex(SimulatedChip& chip) {
    SetColourBytes(chip.regData, 2, 0xF8);
}

// FM6128 keeps each colour's 7-bit gain three times in the large block: 100 in every colour.
void Fm6128(SimulatedChip& chip) {
    constexpr int kHighBytes[3][3] = {{79, 85, 91}, {81, 87, 93}, {83, 89, 95}};
    constexpr int kLowBitByte[3] = {73, 75, 77};
    constexpr int kGain = 100;
    for (int colour = 0; colour < 3; ++colour) {
        for (const int byte : kHighBytes[colour])
            chip.regData2[byte] = kGain >> 1;
        chip.regData2[kLowBitByte[colour]] = (kGain & 1) ? 0x07 : 0x00;
    }
}

// Gain 43 in bits 5..0 of bytes 3, 5, 7.
void Fm6129(SimulatedChip& chip) {
    SetColourBytes(chip.regData, 3, 0x2B);
}

// The raw register editor's preset: 0x3FA6 in the first register of every colour.
void RawRegisters(SimulatedChip& chip) {
    SetColourBytes(chip.regData, 2, 0xA6);
    SetColourBytes(chip.regData, 3, 0x3F);
}

// Chips whose layout the workbench does not know: a middle gain (43 of 63) in the low byte of the
// first per-colour register, everything else clear.
void Neutral(SimulatedChip& chip) {
    SetColourBytes(chip.regData, 3, 0x2B);
}

// The ICND3065 and ICND3069 keep their parameter table on the host: rows of address, red, green,
// blue. Their lengths differ per chip; these are plausible tables with distinct values per row.
void ParameterRows(std::vector<std::array<std::uint8_t, kParamRowBytes>>& rows, int count,
                   std::uint8_t base) {
    rows.clear();
    for (int i = 0; i < count; ++i) {
        const auto value = static_cast<std::uint8_t>(base + i);
        rows.push_back({static_cast<std::uint8_t>(i), value, value, value});
    }
}

// The pages with a register parameter table show the large record (GetRegData2) and the start of
// record A (GetRegDataEx) as rows. The workbench fills both with bytes that count up from 0x20,
// never 0: an export, an import and the list then show distinct values in every cell. This is a
// test pattern, not a chip's default.
void CountingTable(SimulatedChip& chip) {
    int next = 0;
    auto fill = [&next](auto& image) {
        for (std::uint8_t& byte : image)
            byte = static_cast<std::uint8_t>(0x20 + next++ % 0xC0);
    };
    fill(chip.regData2);
    fill(chip.regDataEx);
}

bool ShowsParameterTable(const std::string& className) {
#define REGVANE_PARAM_TABLE_PAGE_NAME(ClassName, templateId, table, chipName) #ClassName,
    static constexpr std::string_view kPages[] = {REGVANE_PARAM_TABLE_PAGES(REGVANE_PARAM_TABLE_PAGE_NAME)};
#undef REGVANE_PARAM_TABLE_PAGE_NAME
    return std::find(std::begin(kPages), std::end(kPages), className) != std::end(kPages);
}

struct ClassPreset {
    const char* className;
    void (*apply)(SimulatedChip&);
};

const ClassPreset kClassPresets[] = {
    {"CRegvaneMbi5153", Mbi5153},
    {"CRegvaneFM6126", [](SimulatedChip& c) { Fm612xGain60(c, true); }},
    {"CRegvaneFM6127", [](SimulatedChip& c) { Fm612xGain60(c, false); }},
    {"CRegvaneFM6126EX", Fm6126Ex},
    {"CRegvaneFM6127EX", Fm6126Ex},
    {"CRegvaneFM6128", Fm6128},
    {"CRegvaneFM6128Ex", Fm6128},
    {"CRegvane_FM6129", Fm6129},
    {"CRegvaneFM6129Ex", Fm6129},
    {"CchipRegModify", RawRegisters},
    {"CChipRegModifyICN2053", RawRegisters},
};

} // namespace

namespace {

// The chip type whose parameter files carry this page's chip in their tag line
// ("CHIP_ICND2165_PARAMETER_FILE" is chip type 292), or 0.
int ParamFileChipType(const std::string& className, int chipType) {
    const std::string model = ModelNameFromClassName(className, chipType);
    const std::wstring tag = L"CHIP_" + std::wstring(model.begin(), model.end()) + L"_PARAMETER_FILE";
    for (const ParamChipInfo& info : ParamChipTable())
        if (tag == info.tagLine)
            return info.id;
    return 0;
}

} // namespace

void SetUpSimulatedChip(SimulatedChip& chip, int chipType, int subType) {
    const std::string className = PageClassFor(chipType, subType);
    if (chipType <= 0xFFFF) {
        chip.chipType = static_cast<std::uint16_t>(chipType);
        chip.chipSubType = static_cast<std::uint16_t>(subType);
    } else {
        // The host numbers a page of the extended range, but reports the chip it extends: the chip of
        // the numbered page that names it, else the chip type its parameter files go by, else 0.
        const CatalogEntry* base = ExtendedPageBase(chipType);
        chip.chipType =
            static_cast<std::uint16_t>(base ? base->chipType : ParamFileChipType(className, chipType));
        chip.chipSubType = static_cast<std::uint16_t>(subType ? subType : base ? base->subType : 0);
    }
    chip.modelName = ModelNameFromClassName(className, chipType);
    chip.gainMin = 0;
    chip.gainMax = 63;
    chip.registerKind = 4; // the raw editor's full layout
    chip.count = 8;
    chip.chipParam = 0;
    chip.sliderValue = 32;
    chip.regData.fill(0);
    chip.regDataEx.fill(0);
    chip.regData2.fill(0);
    chip.regData3.fill(0);
    chip.regData4.fill(0);
    chip.icnd3065Rows.clear();
    chip.icnd3069Rows.clear();

    const auto preset = std::find_if(std::begin(kClassPresets), std::end(kClassPresets),
                                     [&](const ClassPreset& p) { return className == p.className; });
    if (preset != std::end(kClassPresets))
        preset->apply(chip);
    else
        Neutral(chip);
    if (ShowsParameterTable(className))
        CountingTable(chip);

    if (className == "CRegvaneICND3065" || className == "CRegvaneICND3065Ex")
        ParameterRows(chip.icnd3065Rows, 48, 0x20);
    if (className == "CRegvaneICND3069" || className == "CRegvaneICND3069Ex")
        ParameterRows(chip.icnd3069Rows, 64, 0x30);
}
