// The MBI5153 page through regvane.dll, driven with the window messages an operator's actions
// produce, against a simulated chip that logs every host call.
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

using Block = std::array<std::uint8_t, 16>;
using Record = std::array<std::uint8_t, 20>;

enum Colour { kRed, kGreen, kBlue };
constexpr int kSliders[] = {8123, 8124, 8125}, kPercents[] = {1054, 1055, 1056};
constexpr int kResistances[] = {8050, 8051, 8049}, kFactors[] = {8261, 8262, 8263},
              kCurrents[] = {8267, 8268, 8269};
constexpr int kFlagBit7 = 8296, kFlagBit6 = 8026, kFlagBit2 = 9000;
constexpr int kLinkGains = 8021, kShowCurrent = 8022, kDelayCombo = 8572;
constexpr int kOk = 8570, kCancel = 8571, kDefault = 8025, kPageButton = 8055;
constexpr int kRecordByte9 = 1040, kRecordByte7 = 1042;
const Calls kChanged{"SetRegData", "MarkModified", "UpdateHostState"};

// Red gain 32, green 63 (with bit 6), blue 43; bit 7 set in every first byte; bit 2 set and delay
// step 3 in the second register; bytes 0, 1, 14, 15 are the host's and must never change.
constexpr Block kTypicalBlock{0x11, 0x22, 0x80, 0x20, 0x80, 0x7F, 0x80, 0x2B,
                              0x04, 0x06, 0x04, 0x06, 0x04, 0x06, 0x33, 0x44};

std::wstring DelayText(HWND page) {
    const LRESULT index = SendMessageW(Item(page, kDelayCombo), CB_GETCURSEL, 0, 0);
    wchar_t text[32] = {};
    if (index >= 0)
        SendMessageW(Item(page, kDelayCombo), CB_GETLBTEXT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(text));
    return text;
}

void Type(HWND page, int id, const wchar_t* text) {
    TypeAndLeave(page, id, text, kSliders[kRed]);
}

void ExpectGains(HWND page, std::array<int, 3> positions, std::array<const wchar_t*, 3> percents) {
    for (int colour : {kRed, kGreen, kBlue}) {
        EXPECT_EQ(SliderPos(page, kSliders[colour]), positions[colour]) << colour;
        EXPECT_EQ(ItemText(page, kPercents[colour]), percents[colour]) << colour;
    }
}

// A scroll bar of the page that is no gain slider, scrolled.
void ScrollOtherBar(HWND page) {
    HWND bar = CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | SBS_HORZ, 0, 0, 50, 10, page, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), reinterpret_cast<LPARAM>(bar));
}

class Mbi5153Page : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        chip.regData = kTypicalBlock;
        chip.regData4[7] = 17;
        chip.regData4[9] = 200;
        // The link, show-current and resistance values outlive pages: start from a fresh session's.
        SimulatedChip scratch;
        HWND page = Open(scratch);
        SetCheck(page, kLinkGains, false);
        SetCheck(page, kShowCurrent, true);
        for (int id : kResistances)
            Type(page, id, L"1000");
        SetCheck(page, kShowCurrent, false);
        CloseAll();
    }
    HWND Open(SimulatedChip& target, const wchar_t* caption = L"", int chipType = 47) {
        return PageTest::Open(chipType, &target, caption);
    }

    SimulatedChip chip;
};

// That opening writes nothing, and the class, are held by the factory test for every page.
TEST_F(Mbi5153Page, OpensShowingTheChip) {
    HWND page = Open(chip);
    EXPECT_EQ(Title(page), L"MBI5153");
    ExpectGains(page, {32, 63, 43}, {L"51%", L"194%", L"102%"});
    EXPECT_TRUE(Checked(page, kFlagBit7));
    EXPECT_FALSE(Checked(page, kFlagBit6)) << "flags show the red copy (byte 3), not green's";
    EXPECT_TRUE(Checked(page, kFlagBit2));
    EXPECT_EQ(SendMessageW(Item(page, kDelayCombo), CB_GETCOUNT, 0, 0), 8);
    EXPECT_EQ(DelayText(page), L"15ns");
    EXPECT_EQ(ItemText(page, kRecordByte9), L"200");
    EXPECT_EQ(ItemText(page, kRecordByte7), L"17");
    EXPECT_EQ(ItemText(page, kResistances[kRed]), L"1000");
    EXPECT_FALSE(IsWindowVisible(Item(page, kResistances[kRed]))) << "the current group starts hidden";
}

// A gain moved alone, and a write back at the snapshot, are driven by the C host.
TEST_F(Mbi5153Page, SlidersWriteOnlyTheirOwnSixGainBitsOrAllThreeWhenLinked) {
    chip.gainMax = 200; // a host with a wider range than the chip has
    HWND page = Open(chip);
    MoveSlider(page, kSliders[kRed], 70);
    EXPECT_EQ(chip.regData[3], 70 & 0x3F);
    EXPECT_EQ(chip.regData[2], 0x80);
    EXPECT_EQ(SliderPos(page, kSliders[kGreen]), 63);
    // A scroll bar that is no gain slider writes the sliders' places, moved or not.
    SendMessageW(Item(page, kSliders[kBlue]), TBM_SETPOS, TRUE, 10); // moved without telling the page
    ScrollOtherBar(page);
    EXPECT_EQ(chip.regData[7], 10);
    EXPECT_EQ(chip.regData[5], 0x40 | 63);

    chip.ClearLog();
    Click(page, kLinkGains);
    EXPECT_EQ(chip.CallNames(true), Calls{}) << "linking is the operator's view, not the chip's";
    MoveSlider(page, kSliders[kGreen], 50);
    EXPECT_EQ(chip.regData[3], 50);
    EXPECT_EQ(chip.regData[5], 0x40 | 50);
    EXPECT_EQ(chip.regData[7], 50);
    ExpectGains(page, {50, 50, 50}, {L"134%", L"134%", L"134%"});
    EXPECT_EQ(chip.CallNames(false), kChanged);
    // Linked, a scroll bar that is no gain slider gives no gain: the block goes back as it is.
    const Block before = chip.regData;
    ScrollOtherBar(page);
    EXPECT_EQ(chip.regData, before);
    ExpectGains(page, {0, 0, 0}, {L"11%", L"11%", L"11%"});
}

// Each flag click writes its bit into all three colour copies, and record bytes 10..13 the word of the
// clicked flag and the other as the chip holds it (which word that is, is held natively).
TEST_F(Mbi5153Page, FlagsWriteAllColoursAndTheRecordWordOfBothFlags) {
    const auto recordWord = [&] { return std::vector<std::uint8_t>(&chip.regData4[10], &chip.regData4[14]); };
    HWND page = Open(chip);
    Click(page, kFlagBit6); // flag 9000 is set in the chip
    for (const int byte : {3, 5, 7})
        EXPECT_EQ(chip.regData[byte] & 0x40, 0x40) << byte;
    EXPECT_EQ(recordWord(), (std::vector<std::uint8_t>{0x00, 0x81, 0x00, 0x81}));
    EXPECT_EQ(chip.regData4[9], 200);
    EXPECT_EQ(chip.CallNames(true), (Calls{"GetRegData", "GetRegData4", "SetRegData4", "SetRegData",
                                           "GetRegData", "GetRegData4", "MarkModified", "UpdateHostState"}));
    Click(page, kFlagBit2);
    for (const int byte : {8, 10, 12})
        EXPECT_EQ(chip.regData[byte] & 0x04, 0) << byte;
    EXPECT_EQ(recordWord(), (std::vector<std::uint8_t>{0x01, 0x01, 0x01, 0x01}));
}

TEST_F(Mbi5153Page, DelayComboWritesTheStepAndNoSelectionMeansTheLongest) {
    chip.regData[9] = chip.regData[11] = chip.regData[13] = 0xF1; // neighbours of the field are set
    HWND page = Open(chip);
    EXPECT_EQ(DelayText(page), L"0ns");
    Select(page, kDelayCombo, 3);
    for (int byte : {9, 11, 13})
        EXPECT_EQ(chip.regData[byte], 0xF7) << byte;
    EXPECT_EQ(chip.CallNames(false), kChanged);

    Select(page, kDelayCombo, -1);
    EXPECT_EQ(chip.regData[9], 0xFF);
    EXPECT_EQ(chip.regData[13], 0xFF);

    // The host changes the delay itself and asks the page to read the chip again.
    chip.regData[9] = 0x0E;
    chip.ClearLog();
    EXPECT_EQ(SendMessageW(page, 0x0903, 0, 0), 0);
    EXPECT_EQ(DelayText(page), L"35ns");
    EXPECT_EQ(chip.CallNames(false), Calls{});
}

TEST_F(Mbi5153Page, DefaultWritesTheChipMakersValuesInOrder) {
    HWND page = Open(chip);
    Click(page, kShowCurrent);
    Type(page, kResistances[kRed], L"470");
    chip.ClearLog();
    Click(page, kDefault); // the bytes it writes are held natively
    EXPECT_EQ(chip.CallNames(false),
              (Calls{"SetRegData", "SetRegDataEx", "MarkModified", "UpdateHostState"}));
    ExpectGains(page, {43, 43, 43}, {L"102%", L"102%", L"102%"});
    EXPECT_FALSE(Checked(page, kFlagBit2));
    EXPECT_EQ(DelayText(page), L"0ns");
    EXPECT_EQ(ItemText(page, kResistances[kRed]), L"1000");
    EXPECT_EQ(ItemText(page, kCurrents[kRed]), L"14.25 mA") << "the current follows the reset resistance";
}

// OK and Cancel are the chip-page skeleton's (the described page's test drives Cancel after changes);
// here the page's snapshot covers block and record.
TEST_F(Mbi5153Page, OkRunsTheChangeTestAndCancelPutsTheSnapshotBack) {
    HWND page = Open(chip);
    chip.regData4[9] = 1; // the chip now differs from this page's snapshot
    Click(page, kOk);
    EXPECT_EQ(chip.CallNames(false), (Calls{"MarkModified", "UpdateHostState"}));
    EXPECT_FALSE(IsWindow(page));

    const Record record = chip.regData4;
    page = Open(chip);
    MoveSlider(page, kSliders[kRed], 5);
    Type(page, kRecordByte9, L"3");
    chip.ClearLog();
    Click(page, kCancel);
    EXPECT_EQ(chip.regData, kTypicalBlock);
    EXPECT_EQ(chip.regData4, record);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegData4"}));
    EXPECT_FALSE(IsWindow(page));
}

// The read-outs' arithmetic is held natively; here which colour's read-out follows what.
TEST_F(Mbi5153Page, CurrentReadoutsFollowGainAndResistanceAndTheirSwitchesOutliveThePage) {
    HWND page = Open(chip);
    Click(page, kShowCurrent);
    EXPECT_TRUE(IsWindowVisible(Item(page, kCurrents[kBlue])));
    EXPECT_EQ(ItemText(page, kFactors[kRed]), L"0.5");
    EXPECT_EQ(ItemText(page, kCurrents[kGreen]), L"27.20 mA");
    MoveSlider(page, kSliders[kRed], 63);
    Type(page, kResistances[kRed], L"500");
    EXPECT_EQ(ItemText(page, kCurrents[kRed]), L"54.39 mA");
    EXPECT_EQ(ItemText(page, kCurrents[kGreen]), L"27.20 mA");
    EXPECT_EQ(chip.CallNames(false), kChanged)
        << "resistances are the operator's arithmetic, never the chip's";

    Click(page, kLinkGains);
    MoveSlider(page, kSliders[kBlue], 32);
    EXPECT_EQ(ItemText(page, kCurrents[kGreen]), L"7.12 mA");
    EXPECT_EQ(ItemText(page, kFactors[kBlue]), L"0.5");

    // Link, show-current and the resistances outlive the page.
    DestroyWindow(page);
    SimulatedChip other(47, 5);
    page = Open(other);
    EXPECT_TRUE(Checked(page, kLinkGains));
    EXPECT_TRUE(IsWindowVisible(Item(page, kCurrents[kGreen])));
    EXPECT_EQ(ItemText(page, kResistances[kRed]), L"500");
    MoveSlider(page, kSliders[kRed], 20);
    EXPECT_EQ(other.regData[7], 20) << "the reopened page moves the gains together";
    Click(page, kShowCurrent);
    EXPECT_FALSE(IsWindowVisible(Item(page, kFactors[kGreen])));
    CloseAll();
}

TEST_F(Mbi5153Page, RecordEditsWriteTheirBytesClampedToRange) {
    const Calls changed{"SetRegData4", "MarkModified", "UpdateHostState"};
    HWND page = Open(chip);
    Type(page, kRecordByte7, L"300");
    EXPECT_EQ(chip.regData4[7], 63);
    EXPECT_EQ(ItemText(page, kRecordByte7), L"63");
    EXPECT_EQ(chip.CallNames(false), changed);
    Type(page, kRecordByte9, L"99");
    EXPECT_EQ(chip.regData4[9], 99);
    chip.ClearLog();
    Type(page, kRecordByte7, L"17"); // back at the snapshot, but byte 9 still differs
    EXPECT_EQ(chip.CallNames(false), changed);
    chip.ClearLog();
    Type(page, kRecordByte9, L"200");
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData4", "UpdateHostState"}));
}

// The caption the host gives wins over the title the chip's type and sub-type make.
TEST_F(Mbi5153Page, ShowingThePageAgainReadsTheChipTheHostRangeAndTheTitle) {
    HWND page = Open(chip);
    ShowWindow(page, SW_HIDE);
    chip.regData[3] = 0x3F;
    chip.gainMax = 40;
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kRed]), TBM_GETRANGEMAX, 0, 0), 40);
    EXPECT_EQ(SliderPos(page, kSliders[kRed]), 40);
    EXPECT_EQ(ItemText(page, kPercents[kRed]), L"194%") << "the label shows the chip, not the clamped slider";
    EXPECT_EQ(chip.CallNames(false), Calls{});

    SimulatedChip fm6153(196, 212), mbi5252(47, 212);
    EXPECT_EQ(Title(Open(fm6153, L"", 196)), L"FM6153");
    EXPECT_EQ(Title(Open(mbi5252)), L"MBI5252");
    page = Open(mbi5252, L"Cabinet 3");
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(Title(page), L"Cabinet 3");
    CloseAll();
}

TEST_F(Mbi5153Page, OddHostsDoNotBreakThePage) {
    SimulatedChip reversed;
    reversed.gainMin = 50;
    reversed.gainMax = 10;
    reversed.regData = kTypicalBlock;
    HWND page = Open(reversed);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kRed]), TBM_GETRANGEMIN, 0, 0), 10);
    EXPECT_EQ(SendMessageW(Item(page, kSliders[kRed]), TBM_GETRANGEMAX, 0, 0), 50);
    MoveSlider(page, kSliders[kRed], 30);
    EXPECT_EQ(reversed.regData[3], 30);
    CloseAll();

    // Without a host the page still opens and every control is inert.
    page = PageTest::Open(196, nullptr);
    MoveSlider(page, kSliders[kRed], 30);
    for (int id : {kFlagBit7, kFlagBit6, kFlagBit2, kDefault, kShowCurrent, kLinkGains, kPageButton})
        Click(page, id);
    Select(page, kDelayCombo, 2);
    Type(page, kRecordByte9, L"5");
    SendMessageW(page, 0x0903, 0, 0);
    Click(page, kCancel);
    EXPECT_FALSE(IsWindow(page));
    PumpMessages();
}

} // namespace
