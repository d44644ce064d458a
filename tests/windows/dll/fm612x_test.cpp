// The FM612x pages opened through regvane.dll and driven like an operator does, against a simulated
// chip: register bytes, labels and the calls the host sees. Each colour's copy of a register sits at
// a parallel place: bytes W, X, Y, Z are 2, 3, 8, 9 for red, 4, 5, 10, 11 for green, 6, 7, 12, 13
// for blue.
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
constexpr int kFM6128ExType = 65536 + 41, kFM6129ExType = 65536 + 48;

constexpr ColourIds kGainSliders = Ids(21001), kGainPercent = Ids(21004), kGainReference = Ids(21007);
constexpr ColourIds kGainFraction = Ids(21010), kGainCurrent = Ids(21013);
constexpr int kGainLink = 21016, kGainShowCurrent = 21017, kGainDefault = 21018;

// A page of the DLL in a host window tree of its own; the host has not shown it yet.
class Page {
public:
    Page(int type, SimulatedChip& chip) {
        InstallHostCallback();
        m_window = RegvaneLibrary::Get().CreateRegvaneHwnd(type, &chip, nullptr, m_host.View());
    }
    ~Page() {
        if (IsWindow(m_window))
            DestroyWindow(m_window);
    }
    operator HWND() const { return m_window; }

private:
    HostFrame m_host;
    HWND m_window = nullptr;
};

std::wstring ComboItem(HWND page, int id, int index) {
    wchar_t text[128] = {};
    SendMessageW(Item(page, id), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}
int EditValue(HWND page, int id) {
    return std::stoi(ItemText(page, id));
}
const Calls kChangedCycle{"SetRegData", "MarkModified", "UpdateHostState"};

// G5..G3 in W bits 2..0, G2 in X bit 7, G1..G0 in X bits 3..2, which the FM6126 stores inverted.
TEST(Fm612xPages, Fm6126SlidersWriteTheInvertedGainIntoEachColourAlone) {
    SimulatedChip chip(kFM6126Type);
    chip.regData.fill(0xFF);
    chip.regData[2] = 0xF8 | 7;
    chip.regData[3] = 0x80 | 0x73; // bits 3..2 clear: FM6126 reads 63
    Page page(kFM6126Type, chip);
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
}

TEST(Fm612xPages, Fm6126LinkedSlidersAndDefaultAndTheSwitchesOutliveThePage) {
    SimulatedChip chip(kFM6126Type);
    {
        Page page(kFM6126Type, chip);
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
            EXPECT_EQ(chip.regData[2 + 2 * colour] & 7, 7);
            EXPECT_EQ(chip.regData[3 + 2 * colour], 0x80 | 0x0C);
            EXPECT_EQ(ItemText(page, kGainPercent[colour]), L"95%");
        }
        EXPECT_EQ(chip.CallNames(false), kChangedCycle);

        chip.ClearLog();
        SetCheck(page, kGainShowCurrent, true);
        EXPECT_EQ(ItemText(page, kGainFraction[kRed]), L"1.0"); // 0.953 shown to one place
        EXPECT_EQ(ItemText(page, kGainCurrent[kRed]), L"0.95 mA");
        Enter(page, kGainReference[kGreen], L"500");
        EXPECT_EQ(ItemText(page, kGainCurrent[kGreen]), L"1.91 mA");
        EXPECT_EQ(ItemText(page, kGainCurrent[kRed]), L"0.95 mA");
        EXPECT_TRUE(IsWindowEnabled(Item(page, kGainCurrent[kRed])));
        EXPECT_EQ(chip.CallNames(false), Calls{}) << "the read-out is the operator's arithmetic";
    }
    // A new page of the same class starts with the operator's last choices.
    Page again(kFM6126Type, chip);
    EXPECT_TRUE(Checked(again, kGainLink));
    EXPECT_TRUE(Checked(again, kGainShowCurrent));
    EXPECT_EQ(EditValue(again, kGainReference[kGreen]), 500);
    EXPECT_EQ(ItemText(again, kGainCurrent[kGreen]), L"1.91 mA");

    // The switches are the FM6126's own: the FM6127 page keeps its own.
    SimulatedChip other(kFM6127Type);
    {
        Page fm6127(kFM6127Type, other);
        EXPECT_FALSE(Checked(fm6127, kGainShowCurrent));
        EXPECT_EQ(EditValue(fm6127, kGainReference[kGreen]), 1000);
    }

    Enter(again, kGainReference[kGreen], L"1000");
    SetCheck(again, kGainShowCurrent, false);
    EXPECT_FALSE(IsWindowEnabled(Item(again, kGainCurrent[kRed])));
    SetCheck(again, kGainLink, false);
}

TEST(Fm612xPages, Fm6127StoresItsGainAsItIsAndNamesTheModel) {
    SimulatedChip chip(kFM6127Type);
    chip.modelName = "FM6127";
    chip.regData[2] = 7;
    chip.regData[3] = 0x80;
    Page page(kFM6127Type, chip);
    EXPECT_EQ(SliderPos(page, kGainSliders[kRed]), 60);
    EXPECT_EQ(Title(page), L"FM6127 Chip Parameter Settings");

    SetCheck(page, kGainLink, true);
    MoveSlider(page, kGainSliders[kBlue], 30); // 011 1 10, the low bits stored as they are
    for (int colour = kRed; colour <= kBlue; ++colour) {
        EXPECT_EQ(chip.regData[2 + 2 * colour] & 0x07, 3) << colour;
        EXPECT_EQ(chip.regData[3 + 2 * colour] & 0x8C, 0x88) << colour;
    }
    SetCheck(page, kGainLink, false);
    Click(page, kGainDefault);
    EXPECT_EQ(chip.regData[5], 0x80); // the low bits of 60 are 0
    EXPECT_EQ(chip.regData[4], 7);
}

constexpr ColourIds kExSliders = Ids(21101), kExGainLabels = Ids(21104), kExModeCombos = Ids(21107);
constexpr ColourIds kExGhostCombos = Ids(21110), kExLowGreyEdits = Ids(21113), kExDelayEdits = Ids(21116);
constexpr int kExLink = 21119;

TEST(Fm612xPages, Fm6126ExEditsAndCombosChangeOnlyTheirBits) {
    SimulatedChip chip;
    chip.regData.fill(0x00);
    Page page(kFM6126EXType, chip);
    SetCheck(page, kExLink, false);
    EXPECT_EQ(ComboItem(page, kExModeCombos[kRed], 0), L"Normal mode");
    EXPECT_EQ(ComboItem(page, kExModeCombos[kRed], 1), L"Enhanced mode");
    EXPECT_EQ(ComboItem(page, kExGhostCombos[kBlue], 3), L"3");
    EXPECT_EQ(EditValue(page, kExLowGreyEdits[kGreen]), 2); // register 0 is step 2
    EXPECT_EQ(ItemText(page, kExGainLabels[kRed]), L"1");

    auto expected = chip.regData;
    chip.ClearLog();
    Enter(page, kExLowGreyEdits[kGreen], L"0");
    expected[5] = 0x20;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(chip.CallNames(false), kChangedCycle);

    Enter(page, kExDelayEdits[kBlue], L"5"); // high two bits in Z, the low bit in X
    expected[13] = 0x02;
    expected[7] = 0x01;
    EXPECT_EQ(chip.regData, expected);

    chip.ClearLog();
    Select(page, kExModeCombos[kGreen], 1);
    Select(page, kExGhostCombos[kGreen], 3);
    expected[10] = 0x01 | 0x18;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(SendMessageW(Item(page, kExGhostCombos[kGreen]), CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(chip.CountCalls("SetRegData"), 2);

    MoveSlider(page, kExSliders[kRed], 4);
    EXPECT_EQ(chip.regData[2], 0x80 | (4 << 3)); // the high range bit comes with every gain
    EXPECT_EQ(chip.regData[4] & 0x80, 0x80);
    EXPECT_EQ(ItemText(page, kExGainLabels[kRed]), L"5");

    SetCheck(page, kExLink, true);
    MoveSlider(page, kExSliders[kGreen], 9);
    for (int colour = kRed; colour <= kBlue; ++colour) {
        EXPECT_EQ(SliderPos(page, kExSliders[colour]), 9);
        EXPECT_EQ(chip.regData[2 + 2 * colour], 0x80 | (9 << 3)) << colour;
        EXPECT_EQ(ItemText(page, kExGainLabels[colour]), L"10");
    }
    SetCheck(page, kExLink, false);
}

int Fm6127ExEdit(int setting, Colour colour) {
    return 21201 + setting * 3 + colour;
}
constexpr int kFm6127ExGhostLevel = 5, kFm6127ExLowGrey = 2, kFm6127ExPreCharge = 3;

TEST(Fm612xPages, Fm6127ExWritesBothBuffersAndHasItsOwnChangeTest) {
    SimulatedChip chip;
    chip.modelName = "FM6127";
    chip.regData.fill(0x00);
    chip.regData[14] = 0x40;
    chip.regDataEx[0] = 0x5A;
    chip.sliderValue = 17;
    Page page(kFM6127EXType, chip);
    EXPECT_EQ(Title(page), L"FM6127 Chip Parameter Settings");
    EXPECT_EQ(SliderPos(page, 21226), 17);
    EXPECT_EQ(EditValue(page, Fm6127ExEdit(kFm6127ExLowGrey, kRed)), 1);
    EXPECT_TRUE(Shown(page, 21221));
    EXPECT_EQ(ComboItem(page, 21220, 1), L"High refresh");

    auto expected = chip.regData;
    chip.ClearLog();
    Enter(page, Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"5");
    expected[12] = 0x08; // only two bits: 5 is kept as 1
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(EditValue(page, Fm6127ExEdit(kFm6127ExGhostLevel, kBlue)), 1);
    EXPECT_EQ(chip.regDataEx[0], 0x5A);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegDataEx", "MarkModified"}));

    Enter(page, Fm6127ExEdit(kFm6127ExPreCharge, kGreen), L"11");
    expected[4] = 0x80;
    expected[10] = 0x02;
    expected[11] = 0x10;
    EXPECT_EQ(chip.regData, expected);

    // A global combo; bit 6 of byte 14 going away hides the extended group on the next fill.
    Select(page, 21222, 1);
    EXPECT_EQ(chip.regData[9], 0x04);
    chip.regData[14] = 0;
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_FALSE(Shown(page, 21221));
    EXPECT_FALSE(Shown(page, 21224));
    EXPECT_TRUE(Shown(page, 21220));

    // Everything back as it was when the page opened: "unchanged" only.
    chip.regData[14] = 0x40;
    Select(page, 21222, 0);
    Enter(page, Fm6127ExEdit(kFm6127ExPreCharge, kGreen), L"0");
    chip.ClearLog();
    Enter(page, Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"0");
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegDataEx", "UpdateHostState"}));
    // The host's own value counts as part of the chip.
    chip.sliderValue = 18;
    chip.ClearLog();
    Enter(page, Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"2");
    Enter(page, Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"0");
    EXPECT_EQ(chip.CountCalls("MarkModified"), 2);
    EXPECT_EQ(chip.CountCalls("UpdateHostState"), 0);
}

// The FM6128 gain in the large block: its six high bits in three copies (red 79, 85, 91; green 81,
// 87, 93; blue 83, 89, 95), its low bit thrice in bits 2..0 of red 73, green 75, blue 77.
TEST(Fm612xPages, Fm6128WritesItsGainCopiesIntoTheLargeBlock) {
    constexpr ColourIds kSliders = Ids(21301), kLabels = Ids(21304);
    constexpr int kLink = 21307;
    SimulatedChip chip(kFM6128Type);
    chip.regData2.fill(0xC0);
    Page page(kFM6128Type, chip);
    SetCheck(page, kLink, false);
    auto expected = chip.regData2;
    chip.ClearLog();
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
        EXPECT_EQ(ItemText(page, kLabels[colour]), L"49.92%");
    }
    SetCheck(page, kLink, false);
}

TEST(Fm612xPages, Fm6128ExStoresTheHostCountAndRealignsTheGainCopies) {
    SimulatedChip chip;
    chip.count = 32;
    chip.regData2[79] = 10; // red's copies disagree; the first one counts
    chip.regData2[85] = 3;
    chip.regData2[31] = 0xC0;
    Page page(kFM6128ExType, chip);
    EXPECT_EQ(chip.regData2[31], 0xC0 | 31);
    EXPECT_EQ(chip.regData2[85], 10);
    EXPECT_EQ(chip.regData2[91], 10);
    EXPECT_EQ(ItemText(page, 21310), L"32");
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData2", "MarkModified", "UpdateHostState"}));

    auto expected = chip.regData2;
    Enter(page, 21311, L"3");
    expected[33] = static_cast<std::uint8_t>((expected[33] & 0xF0) | 3);
    EXPECT_EQ(chip.regData2, expected);
    EXPECT_EQ(ItemText(page, 21312), L"160ns");
}

TEST(Fm612xPages, Fm6129TakesItsSliderRangeFromTheHostAndKeepsItsSwitchesToItself) {
    constexpr ColourIds kSliders = Ids(21401), kPercent = Ids(21404), kLowGrey = Ids(21407),
                        kGain = Ids(21413);
    constexpr int kLink = 21419, kShowCurrent = 21420;
    SimulatedChip chip(kFM6129Type);
    chip.gainMin = 256;
    chip.gainMax = 512 + 63;
    chip.regData.fill(0xC0);
    chip.regData[3] = 0xC0 | 63;
    Page page(kFM6129Type, chip);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kGreen]), TBM_GETRANGEMIN, 0, 0), 0);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kGreen]), TBM_GETRANGEMAX, 0, 0), 63);
    EXPECT_EQ(ItemText(page, kPercent[kRed]), L"100%");

    Click(page, kShowCurrent);
    EXPECT_EQ(ItemText(page, kGain[kRed]), L"100.0");
    EXPECT_EQ(ItemText(page, 21416), L"18.00 mA"); // red's current

    auto expected = chip.regData;
    MoveSlider(page, kSliders[kBlue], 32);
    expected[7] = 0xC0 | 32;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(ItemText(page, kPercent[kBlue]), L"52%");

    Click(page, kLink);
    MoveSlider(page, kSliders[kGreen], 10);
    for (int byte : {3, 5, 7})
        EXPECT_EQ(chip.regData[byte], 0xC0 | 10) << byte;
    EXPECT_EQ(ItemText(page, kGain[kBlue]), L"17.2");

    Enter(page, kLowGrey[kGreen], L"3");
    EXPECT_EQ(chip.regData[11], 0xC3);

    // The host's range is asked again whenever the page is shown.
    chip.gainMax = 256 + 40;
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kGreen]), TBM_GETRANGEMAX, 0, 0), 40);

    Page second(kFM6129Type, chip);
    EXPECT_FALSE(Checked(second, kLink));
    EXPECT_FALSE(Checked(second, kShowCurrent));
    EXPECT_EQ(EditValue(second, kLowGrey[kGreen]), 3);
}

TEST(Fm612xPages, Fm6129ExEditsTouchOneFieldAndTheSecondBufferCountsAsChange) {
    SimulatedChip chip;
    chip.modelName = "FM6129";
    chip.regData.fill(0x00);
    Page page(kFM6129ExType, chip);
    EXPECT_EQ(Title(page), L"FM6129 Chip Extended Parameter Settings");

    // Ghost level of green: 21501 + 3 x 3 + 1.
    auto expected = chip.regData;
    chip.ClearLog();
    Enter(page, 21511, L"12");
    expected[10] = 0xC0;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(chip.CallNames(false), kChangedCycle);
    Enter(page, 21511, L"99"); // the edit keeps to the field's range
    EXPECT_EQ(chip.regData[10], 0xF0);

    Enter(page, 21511, L"0");
    chip.ClearLog();
    Enter(page, 21501, L"0"); // unchanged value: the edit sends nothing
    Enter(page, 21501, L"1");
    Enter(page, 21501, L"0");
    EXPECT_EQ(chip.CallNames(false),
              (Calls{"SetRegData", "MarkModified", "UpdateHostState", "SetRegData", "UpdateHostState"}));
    chip.regDataEx[3] = 1;
    chip.ClearLog();
    Enter(page, 21501, L"1");
    Enter(page, 21501, L"0");
    EXPECT_EQ(chip.CountCalls("MarkModified"), 2);
}

// What the chip holds, not what a control can show: read-outs and the colours a change does not move
// keep the chip's value, the references take decimals, host ranges and values come as the host gives.
class Fm612xChipValues : public PageTest {};

TEST_F(Fm612xChipValues, Fm6126ReadsOutTheChipsGainBelowItsSliderWithDecimalReferences) {
    SimulatedChip chip(kFM6126Type); // all zero: G = 3 in every colour (the low bits stored inverted)
    HWND page = Open(kFM6126Type, &chip);
    SetCheck(page, kGainLink, false);
    SetCheck(page, kGainShowCurrent, true);
    EXPECT_EQ(SliderPos(page, kGainSliders[kRed]), 15);
    EXPECT_EQ(ItemText(page, kGainPercent[kRed]), L"6%");      // 4 x 1.5625 = 6.25
    EXPECT_EQ(ItemText(page, kGainFraction[kRed]), L"0.1");    // round(62.5) / 1000 = 0.063
    EXPECT_EQ(ItemText(page, kGainCurrent[kRed]), L"0.06 mA"); // 0.063 / 1000 x 1000

    // Red to 61 (111 1 01, low bits stored 10), green to 31 (011 1 11, stored 00); blue keeps 3.
    MoveSlider(page, kGainSliders[kRed], 61);
    MoveSlider(page, kGainSliders[kGreen], 31);
    std::array<std::uint8_t, 16> expected{};
    expected[2] = 0x07;
    expected[3] = 0x88;
    expected[4] = 0x03;
    expected[5] = 0x80;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(ItemText(page, kGainCurrent[kBlue]), L"0.06 mA");

    // 61: round(968.75) / 1000 = 0.969, / 1234.5 x 1000 = 0.7849 (0.7853 against 1234);
    // 31: 0.5 / 1234.5 x 1000 = 0.40502 (0.40486 against 1235).
    Enter(page, kGainReference[kRed], L"1234.5");
    Enter(page, kGainReference[kGreen], L"1234.5");
    EXPECT_EQ(ItemText(page, kGainReference[kRed]), L"1234.5");
    EXPECT_EQ(ItemText(page, kGainFraction[kRed]), L"1.0");
    EXPECT_EQ(ItemText(page, kGainCurrent[kRed]), L"0.78 mA");
    EXPECT_EQ(ItemText(page, kGainFraction[kGreen]), L"0.5");
    EXPECT_EQ(ItemText(page, kGainCurrent[kGreen]), L"0.41 mA");

    // The class keeps whole numbers, and every fill puts them back: a re-read, or a page opened anew,
    // starts from 1234.
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(ItemText(page, kGainReference[kRed]), L"1234.0");
    HWND again = Open(kFM6126Type, &chip);
    EXPECT_EQ(ItemText(again, kGainReference[kRed]), L"1234.0");
    EXPECT_EQ(ItemText(again, kGainCurrent[kRed]), L"0.79 mA");
    for (const int colour : {kRed, kGreen})
        Enter(again, kGainReference[colour], L"1000");
    SetCheck(again, kGainShowCurrent, false);
}

TEST_F(Fm612xChipValues, Fm6129TakesTheHostRangeAsGivenAndFm6127ExRefillsTheHostValue) {
    SimulatedChip fm6129(kFM6129Type);
    fm6129.gainMin = 0x100; // 0 and 100 as bytes
    fm6129.gainMax = 0x164;
    HWND page = Open(kFM6129Type, &fm6129);
    for (const int slider : Ids(21401)) {
        EXPECT_EQ(SendMessageW(Item(page, slider), TBM_GETRANGEMIN, 0, 0), 0);
        EXPECT_EQ(SendMessageW(Item(page, slider), TBM_GETRANGEMAX, 0, 0), 100);
    }
    MoveSlider(page, 21401, 100); // six bits of 100 stored: 36, read out 36 x 98.44 / 63 + 1.56
    EXPECT_EQ(fm6129.regData[3], 36);
    EXPECT_EQ(SliderPos(page, 21401), 100);
    EXPECT_EQ(ItemText(page, 21404), L"58%");

    SimulatedChip fm6127ex;
    fm6127ex.sliderValue = 17;
    page = Open(kFM6127EXType, &fm6127ex);
    EXPECT_EQ(SliderPos(page, 21226), 17);
    fm6127ex.sliderValue = 42;
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(SliderPos(page, 21226), 42);
    EXPECT_EQ(ItemText(page, 21227), L"42");
    fm6127ex.sliderValue = 70; // beyond the slider: read out as it is
    Enter(page, Fm6127ExEdit(kFm6127ExLowGrey, kRed), L"3");
    EXPECT_EQ(SliderPos(page, 21226), 63);
    EXPECT_EQ(ItemText(page, 21227), L"70");
}

} // namespace
