// The FM612x pages opened through regvane.dll and driven like an operator does, against a simulated
// chip: register bytes, labels and the calls the host sees. Each colour's copy of a register sits at
// a parallel place: bytes W, X, Y, Z are 2, 3, 8, 9 for red, 4, 5, 10, 11 for green, 6, 7, 12, 13
// for blue. What every field of the FM6127Ex, FM6128Ex and FM6129Ex pages writes is held by their
// traces (page_traces_test).
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

enum Colour { kRed, kGreen, kBlue };
using ColourIds = std::array<int, 3>;
// Red's control id and green's and blue's after it.
constexpr ColourIds Ids(int red) {
    return {red, red + 1, red + 2};
}

constexpr int kFM6126Type = 179, kFM6127Type = 184, kFM6128Type = 120, kFM6129Type = 259;
constexpr int kFM6126EXType = 65536 + 15, kFM6127EXType = 65536 + 25;

constexpr ColourIds kGainSliders = Ids(21001), kGainPercent = Ids(21004), kGainReference = Ids(21007);
constexpr ColourIds kGainFraction = Ids(21010), kGainCurrent = Ids(21013);
constexpr int kGainLink = 21016, kGainShowCurrent = 21017, kGainDefault = 21018;
const Calls kChangedCycle{"SetRegData", "MarkModified", "UpdateHostState"};

std::wstring ComboItem(HWND page, int id, int index) {
    wchar_t text[128] = {};
    SendMessageW(Item(page, id), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}
int RangeMax(HWND page, int id) {
    return static_cast<int>(SendMessageW(Item(page, id), TBM_GETRANGEMAX, 0, 0));
}

class Fm612xPages : public PageTest {};

// G5..G3 in W bits 2..0, G2 in X bit 7, G1..G0 in X bits 3..2, which the FM6126 stores inverted.
TEST_F(Fm612xPages, Fm6126SlidersWriteTheInvertedGainIntoEachColourOrAllAndDefault) {
    SimulatedChip chip(kFM6126Type);
    chip.regData.fill(0xFF);
    chip.regData[2] = 0xF8 | 7;
    chip.regData[3] = 0x80 | 0x73; // bits 3..2 clear: FM6126 reads 63
    HWND page = Open(kFM6126Type, &chip);
    SetCheck(page, kGainLink, false);
    EXPECT_EQ(SliderPos(page, kGainSliders[kRed]), 63);
    EXPECT_EQ(ItemText(page, kGainPercent[kRed]), L"100%");
    EXPECT_EQ(SliderPos(page, kGainSliders[kGreen]), 60); // 0xFF bytes: the inverted low bits read 0

    auto expected = chip.regData;
    chip.ClearLog();
    MoveSlider(page, kGainSliders[kGreen], 20); // 010 1 00: W gets 2, X keeps bit 7 and stores 11
    expected[4] = 0xFA;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(ItemText(page, kGainPercent[kGreen]), L"33%");
    EXPECT_EQ(chip.CallNames(false), kChangedCycle);

    SetCheck(page, kGainLink, true);
    MoveSlider(page, kGainSliders[kBlue], 30); // 011 1 10: the low bits stored as 01
    for (int colour = kRed; colour <= kBlue; ++colour) {
        EXPECT_EQ(SliderPos(page, kGainSliders[colour]), 30);
        EXPECT_EQ(chip.regData[2 + 2 * colour] & 0x07, 3) << colour;
        EXPECT_EQ(chip.regData[3 + 2 * colour] & 0x8C, 0x84) << colour;
    }
    // A scroll from something that is no gain slider writes no gain.
    const auto before = chip.regData;
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 50), 0);
    EXPECT_EQ(chip.regData, before);

    chip.ClearLog();
    Click(page, kGainDefault);
    for (int colour = kRed; colour <= kBlue; ++colour) {
        EXPECT_EQ(SliderPos(page, kGainSliders[colour]), 60);
        EXPECT_EQ(chip.regData[3 + 2 * colour] & 0x8C, 0x80 | 0x0C);
        EXPECT_EQ(ItemText(page, kGainPercent[colour]), L"95%");
    }
    EXPECT_EQ(chip.CallNames(false), kChangedCycle);
    SetCheck(page, kGainLink, false);
}

// The read-outs are the operator's arithmetic: they write nothing, take decimal references, and the
// switches and whole references outlive the page for its class alone.
TEST_F(Fm612xPages, Fm6126ReadsOutTheChipsGainAndKeepsItsSwitchesToItsClass) {
    SimulatedChip chip(kFM6126Type); // all zero: G = 3 in every colour (the low bits stored inverted)
    HWND page = Open(kFM6126Type, &chip);
    SetCheck(page, kGainShowCurrent, true);
    EXPECT_EQ(ItemText(page, kGainFraction[kRed]), L"0.1");    // round(62.5) / 1000 = 0.063
    EXPECT_EQ(ItemText(page, kGainCurrent[kRed]), L"0.06 mA"); // 0.063 / 1000 x 1000
    // 31 (011 1 11, stored 00): 0.5 / 1234.5 x 1000 = 0.40502 (0.40486 against 1235).
    MoveSlider(page, kGainSliders[kGreen], 31);
    Enter(page, kGainReference[kGreen], L"1234.5");
    EXPECT_EQ(ItemText(page, kGainReference[kGreen]), L"1234.5");
    EXPECT_EQ(ItemText(page, kGainCurrent[kGreen]), L"0.41 mA");
    EXPECT_EQ(ItemText(page, kGainCurrent[kBlue]), L"0.06 mA");
    chip.ClearLog();
    Enter(page, kGainReference[kRed], L"500");
    EXPECT_EQ(chip.CallNames(false), Calls{});

    // A new page of the class starts from the operator's last choices, the reference made whole.
    HWND again = Open(kFM6126Type, &chip);
    EXPECT_TRUE(Checked(again, kGainShowCurrent));
    EXPECT_EQ(ItemText(again, kGainReference[kGreen]), L"1234.0");
    EXPECT_EQ(ItemText(again, kGainCurrent[kRed]), L"0.13 mA");
    SimulatedChip other(kFM6127Type);
    HWND fm6127 = Open(kFM6127Type, &other);
    EXPECT_FALSE(Checked(fm6127, kGainShowCurrent));
    EXPECT_EQ(ItemText(fm6127, kGainReference[kGreen]), L"1000.0");

    for (const int colour : {kRed, kGreen})
        Enter(again, kGainReference[colour], L"1000");
    SetCheck(again, kGainShowCurrent, false);
    EXPECT_FALSE(IsWindowEnabled(Item(again, kGainCurrent[kRed])));
}

TEST_F(Fm612xPages, Fm6127StoresItsGainAsItIsAndNamesTheModel) {
    SimulatedChip chip(kFM6127Type);
    chip.modelName = "FM6127";
    chip.regData[2] = 7;
    chip.regData[3] = 0x80;
    HWND page = Open(kFM6127Type, &chip);
    EXPECT_EQ(SliderPos(page, kGainSliders[kRed]), 60);
    EXPECT_EQ(Title(page), L"FM6127 Chip Parameter Settings");
    MoveSlider(page, kGainSliders[kBlue], 30); // 011 1 10, the low bits stored as they are
    EXPECT_EQ(chip.regData[6] & 0x07, 3);
    EXPECT_EQ(chip.regData[7] & 0x8C, 0x88);
}

constexpr ColourIds kExSliders = Ids(21101), kExGainLabels = Ids(21104), kExModeCombos = Ids(21107);
constexpr ColourIds kExGhostCombos = Ids(21110), kExLowGreyEdits = Ids(21113), kExDelayEdits = Ids(21116);
constexpr int kExLink = 21119;

TEST_F(Fm612xPages, Fm6126ExEditsAndCombosChangeOnlyTheirBits) {
    SimulatedChip chip;
    HWND page = Open(kFM6126EXType, &chip);
    SetCheck(page, kExLink, false);
    EXPECT_EQ(ComboItem(page, kExModeCombos[kRed], 1), L"Enhanced mode");
    EXPECT_EQ(ComboItem(page, kExGhostCombos[kBlue], 3), L"3");
    EXPECT_EQ(ItemText(page, kExLowGreyEdits[kGreen]), L"2"); // register 0 is step 2

    auto expected = chip.regData;
    Enter(page, kExLowGreyEdits[kGreen], L"0");
    Enter(page, kExDelayEdits[kBlue], L"5"); // high two bits in Z, the low bit in X
    Select(page, kExModeCombos[kGreen], 1);
    Select(page, kExGhostCombos[kGreen], 3);
    expected[5] = 0x20;
    expected[13] = 0x02;
    expected[7] = 0x01;
    expected[10] = 0x01 | 0x18;
    EXPECT_EQ(chip.regData, expected);

    MoveSlider(page, kExSliders[kRed], 4);
    EXPECT_EQ(chip.regData[2], 0x80 | (4 << 3)); // the high range bit comes with every gain
    EXPECT_EQ(ItemText(page, kExGainLabels[kRed]), L"5");
    SetCheck(page, kExLink, true);
    MoveSlider(page, kExSliders[kGreen], 9);
    for (int colour = kRed; colour <= kBlue; ++colour)
        EXPECT_EQ(chip.regData[2 + 2 * colour], 0x80 | (9 << 3)) << colour;
    SetCheck(page, kExLink, false);
}

// Bit 6 of byte 14 shows the extended group; the host's own value fills the slider and its label
// as the host gives it.
TEST_F(Fm612xPages, Fm6127ExShowsItsExtendedGroupByTheChipAndTheHostsValue) {
    SimulatedChip chip;
    chip.regData[14] = 0x40;
    chip.sliderValue = 17;
    HWND page = Open(kFM6127EXType, &chip);
    EXPECT_TRUE(Shown(page, 21221));
    EXPECT_EQ(ComboItem(page, 21220, 1), L"High refresh");
    EXPECT_EQ(SliderPos(page, 21226), 17);
    chip.regData[14] = 0;
    chip.sliderValue = 70; // beyond the slider: read out as it is
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_FALSE(Shown(page, 21221));
    EXPECT_FALSE(Shown(page, 21224));
    EXPECT_TRUE(Shown(page, 21220));
    EXPECT_EQ(SliderPos(page, 21226), 63);
    EXPECT_EQ(ItemText(page, 21227), L"70");
}

// The FM6128 gain in the large block: its six high bits in three copies (red 79, 85, 91; green 81,
// 87, 93; blue 83, 89, 95), its low bit thrice in bits 2..0 of red 73, green 75, blue 77.
TEST_F(Fm612xPages, Fm6128WritesItsGainCopiesIntoTheLargeBlock) {
    constexpr ColourIds kSliders = Ids(21301), kLabels = Ids(21304);
    constexpr int kLink = 21307;
    SimulatedChip chip(kFM6128Type);
    chip.regData2.fill(0xC0);
    HWND page = Open(kFM6128Type, &chip);
    SetCheck(page, kLink, false);
    auto expected = chip.regData2;
    MoveSlider(page, kSliders[kRed], 127);
    expected[79] = expected[85] = expected[91] = 0xC0 | 63;
    expected[73] = 0xC7;
    EXPECT_EQ(chip.regData2, expected);
    EXPECT_EQ(ItemText(page, kLabels[kRed]), L"99.06%");
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData2", "MarkModified", "UpdateHostState"}));

    SetCheck(page, kLink, true);
    MoveSlider(page, kSliders[kBlue], 64);
    for (int colour = kRed; colour <= kBlue; ++colour) {
        for (int copy : {79, 85, 91})
            EXPECT_EQ(chip.regData2[copy + 2 * colour], 0xC0 | 32) << copy + 2 * colour;
        EXPECT_EQ(chip.regData2[73 + 2 * colour], 0xC0);
    }
    SetCheck(page, kLink, false);
}

// The slider's range is the host's, given as two bytes, asked again whenever the page is shown.
TEST_F(Fm612xPages, Fm6129TakesItsSliderRangeFromTheHostAndKeepsItsSwitchesToItself) {
    constexpr ColourIds kSliders = Ids(21401), kPercent = Ids(21404), kLowGrey = Ids(21407),
                        kGain = Ids(21413);
    constexpr int kLink = 21419, kShowCurrent = 21420;
    SimulatedChip chip(kFM6129Type);
    chip.gainMin = 0x100; // 0 and 100 as bytes
    chip.gainMax = 0x164;
    chip.regData.fill(0xC0);
    chip.regData[3] = 0xC0 | 63;
    HWND page = Open(kFM6129Type, &chip);
    EXPECT_EQ(RangeMax(page, kSliders[kBlue]), 100);
    EXPECT_EQ(ItemText(page, kPercent[kRed]), L"100%");
    Click(page, kShowCurrent);
    EXPECT_EQ(ItemText(page, kGain[kRed]), L"100.0");
    EXPECT_EQ(ItemText(page, 21416), L"18.00 mA"); // red's current

    MoveSlider(page, kSliders[kBlue], 100); // six bits of 100 stored: 36, read out 36 x 98.44 / 63 + 1.56
    EXPECT_EQ(chip.regData[7], 0xC0 | 36);
    EXPECT_EQ(SliderPos(page, kSliders[kBlue]), 100);
    EXPECT_EQ(ItemText(page, kPercent[kBlue]), L"58%");
    Click(page, kLink);
    MoveSlider(page, kSliders[kGreen], 10);
    for (int byte : {3, 5, 7})
        EXPECT_EQ(chip.regData[byte], 0xC0 | 10) << byte;
    EXPECT_EQ(ItemText(page, kGain[kBlue]), L"17.2");
    Enter(page, kLowGrey[kGreen], L"3");
    EXPECT_EQ(chip.regData[11], 0xC3);

    chip.gainMax = 256 + 40;
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(RangeMax(page, kSliders[kGreen]), 40);
    HWND second = Open(kFM6129Type, &chip);
    EXPECT_FALSE(Checked(second, kLink));
    EXPECT_FALSE(Checked(second, kShowCurrent));
    EXPECT_EQ(ItemText(second, kLowGrey[kGreen]), L"3");
}

} // namespace
