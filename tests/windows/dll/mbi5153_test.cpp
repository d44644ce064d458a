// The MBI5153 page through regvane.dll, driven with the window messages an operator's actions
// produce, against a simulated chip that logs every host call.
#include "TestHost.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Block = std::array<std::uint8_t, 16>;
using Record = std::array<std::uint8_t, 20>;

constexpr int kRedSlider = 8123, kGreenSlider = 8124, kBlueSlider = 8125;
constexpr int kRedPercent = 1054, kGreenPercent = 1055, kBluePercent = 1056;
constexpr int kFlagBit7 = 8296, kFlagBit6 = 8026, kFlagBit2 = 9000;
constexpr int kLinkGains = 8021, kShowCurrent = 8022, kDelayCombo = 8572;
constexpr int kOk = 8570, kCancel = 8571, kDefault = 8025, kPageButton = 8055;
constexpr int kRedResistance = 8050, kGreenResistance = 8051, kBlueResistance = 8049;
constexpr int kRecordByte9 = 1040, kRecordByte7 = 1042;
constexpr int kRedFactor = 8261, kGreenFactor = 8262, kBlueFactor = 8263;
constexpr int kRedCurrent = 8267, kGreenCurrent = 8268, kBlueCurrent = 8269;

// Red gain 32, green 63 (with bit 6), blue 43; bit 7 set in every first byte; bit 2 set and delay
// step 3 in the second register; bytes 0, 1, 14, 15 are the host's and must never change.
constexpr Block kTypicalBlock{0x11, 0x22, 0x80, 0x20, 0x80, 0x7F, 0x80, 0x2B,
                              0x04, 0x06, 0x04, 0x06, 0x04, 0x06, 0x33, 0x44};

HWND Item(HWND page, int id) {
    return GetDlgItem(page, id);
}

bool Checked(HWND page, int id) {
    return SendMessageW(Item(page, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int SliderPos(HWND page, int id) {
    return static_cast<int>(SendMessageW(Item(page, id), TBM_GETPOS, 0, 0));
}

void Click(HWND page, int id) {
    SendMessageW(Item(page, id), BM_CLICK, 0, 0);
}

void SetCheckByClicking(HWND page, int id, bool checked) {
    if (Checked(page, id) != checked)
        Click(page, id);
}

// A drag ends with the trackbar at its new place and the dialog told by WM_HSCROLL.
void MoveSlider(HWND page, int id, int position) {
    HWND slider = Item(page, id);
    SendMessageW(slider, TBM_SETPOS, TRUE, position);
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, position), reinterpret_cast<LPARAM>(slider));
}

void SelectDelay(HWND page, int index) {
    HWND combo = Item(page, kDelayCombo);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(kDelayCombo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
}

std::wstring ComboText(HWND page) {
    HWND combo = Item(page, kDelayCombo);
    const LRESULT index = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (index < 0)
        return L"";
    wchar_t text[32] = {};
    SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}

// As the operator types: click into the edit, type, move on to another control.
void Type(HWND page, int id, const wchar_t* text) {
    SetFocus(Item(page, id));
    SetWindowTextW(Item(page, id), text);
    SetFocus(Item(page, kRedSlider));
}

class Mbi5153Page : public ::testing::Test {
protected:
    void SetUp() override {
        InstallHostCallback();
        chip.regData = kTypicalBlock;
        chip.regData4[7] = 17;
        chip.regData4[9] = 200;
        ResetClassWideValues();
    }

    // The link, show-current and resistance values outlive pages; every test starts from the
    // values a fresh session has.
    void ResetClassWideValues() {
        SimulatedChip scratch;
        HWND page = Open(scratch);
        ASSERT_NE(page, nullptr);
        SetCheckByClicking(page, kLinkGains, false);
        SetCheckByClicking(page, kShowCurrent, true);
        for (int id : {kRedResistance, kGreenResistance, kBlueResistance})
            Type(page, id, L"1000");
        SetCheckByClicking(page, kShowCurrent, false);
        DestroyWindow(page);
    }

    HWND Open(SimulatedChip& target, const wchar_t* caption = L"", int chipType = 47) {
        HWND page = RegvaneLibrary::Get().CreateRegvaneHwnd(chipType, &target, caption, host.View());
        if (page)
            ShowWindow(page, SW_SHOW);
        PumpMessages();
        target.ClearLog();
        return page;
    }

    HostFrame host;
    SimulatedChip chip;
};

TEST_F(Mbi5153Page, OpensShowingTheChipWithoutWritingToIt) {
    HWND page = RegvaneLibrary::Get().CreateRegvaneHwnd(47, &chip, L"", host.View());
    ASSERT_NE(page, nullptr);
    EXPECT_STREQ(RegvaneLibrary::Get().RegvaneDialogClassName(page), "CRegvaneMbi5153");
    EXPECT_EQ(chip.CallNames(false), Names{}) << "opening a page changes nothing";
    const Names opening = chip.CallNames(true);
    ASSERT_GE(opening.size(), 3u);
    EXPECT_EQ((Names{opening[0], opening[1], opening[2]}),
              (Names{"GetChipSubType", "GetRegData", "GetRegData4"}))
        << "the factory picks the page by sub-type, then the page snapshots the chip";
    wchar_t title[64] = {};
    GetWindowTextW(page, title, 64);
    EXPECT_STREQ(title, L"MBI5153");

    EXPECT_EQ(SliderPos(page, kRedSlider), 32);
    EXPECT_EQ(SliderPos(page, kGreenSlider), 63);
    EXPECT_EQ(SliderPos(page, kBlueSlider), 43);
    EXPECT_EQ(ItemText(page, kRedPercent), L"51%");
    EXPECT_EQ(ItemText(page, kGreenPercent), L"194%");
    EXPECT_EQ(ItemText(page, kBluePercent), L"102%");
    EXPECT_TRUE(Checked(page, kFlagBit7));
    EXPECT_FALSE(Checked(page, kFlagBit6)) << "flags show the red copy (byte 3), not green's";
    EXPECT_TRUE(Checked(page, kFlagBit2));
    EXPECT_EQ(SendMessageW(Item(page, kDelayCombo), CB_GETCOUNT, 0, 0), 8);
    EXPECT_EQ(ComboText(page), L"15ns");
    EXPECT_EQ(ItemText(page, kRecordByte9), L"200");
    EXPECT_EQ(ItemText(page, kRecordByte7), L"17");
    EXPECT_EQ(ItemText(page, kRedResistance), L"1000");
    EXPECT_FALSE(IsWindowVisible(Item(page, kRedResistance))) << "the current group starts hidden";
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, UnlinkedSliderWritesOnlyItsOwnGainBits) {
    HWND page = Open(chip);
    MoveSlider(page, kGreenSlider, 40);
    Block expected = kTypicalBlock;
    expected[5] = 0x40 | 40; // bit 6 of green's copy survives
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}));
    EXPECT_EQ(ItemText(page, kGreenPercent), L"88%");
    EXPECT_EQ(SliderPos(page, kRedSlider), 32);

    chip.ClearLog();
    MoveSlider(page, kGreenSlider, 63);
    EXPECT_EQ(chip.regData, kTypicalBlock);
    EXPECT_EQ(chip.CallNames(true),
              (Names{"GetRegData", "SetRegData", "GetRegData", "GetRegData4", "UpdateHostState"}))
        << "back at the snapshot: the host hears only the state update";
    ASSERT_FALSE(chip.log.empty());
    EXPECT_EQ(chip.log.back().ToString(), "UpdateHostState(1, 1)");
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, SliderValuesAreCutToTheSixBitField) {
    chip.gainMax = 200; // a host with a wider range than the chip has
    HWND page = Open(chip);
    MoveSlider(page, kRedSlider, 70);
    EXPECT_EQ(chip.regData[3], 0x00 | (70 & 0x3F));
    EXPECT_EQ(chip.regData[2], 0x80);
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, LinkedSlidersMoveAllThreeColours) {
    HWND page = Open(chip);
    Click(page, kLinkGains);
    EXPECT_EQ(chip.CallNames(true), Names{}) << "linking is the operator's view, not the chip's";

    MoveSlider(page, kGreenSlider, 50);
    EXPECT_EQ(chip.regData[3], 50);
    EXPECT_EQ(chip.regData[5], 0x40 | 50);
    EXPECT_EQ(chip.regData[7], 50);
    for (int id : {kRedSlider, kGreenSlider, kBlueSlider})
        EXPECT_EQ(SliderPos(page, id), 50);
    for (int id : {kRedPercent, kGreenPercent, kBluePercent})
        EXPECT_EQ(ItemText(page, id), L"134%");
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}));

    // A scroll bar that is no gain slider gives no gain: the block goes back as it is.
    HWND scrollBar = CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | SBS_HORZ, 0, 0, 50, 10, page, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    const Block before = chip.regData;
    chip.ClearLog();
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), reinterpret_cast<LPARAM>(scrollBar));
    EXPECT_EQ(chip.regData, before);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}));
    for (int id : {kRedSlider, kGreenSlider, kBlueSlider})
        EXPECT_EQ(SliderPos(page, id), 0);
    EXPECT_EQ(ItemText(page, kRedPercent), L"11%");
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, UnlinkedScrollBarWritesTheSliderPositions) {
    HWND page = Open(chip);
    HWND scrollBar = CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | SBS_HORZ, 0, 0, 50, 10, page, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    SendMessageW(Item(page, kBlueSlider), TBM_SETPOS, TRUE, 10); // moved without telling the page
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), reinterpret_cast<LPARAM>(scrollBar));
    EXPECT_EQ(chip.regData[7], 10);
    EXPECT_EQ(chip.regData[3], 32);
    DestroyWindow(page);
}

struct FlagCase {
    const char* name;
    int checkBox;
    Block start;
    std::array<std::uint8_t, 4> word;
    std::array<int, 3> bytes; // the copies the flag lives in
    std::uint8_t bit;
    bool setsFlag;
};

// Each flag click writes its bit into all three copies and the record word that matches both flags.
TEST_F(Mbi5153Page, FlagsWriteAllColoursAndTheRecordWordOfBothFlags) {
    const Block none{0, 0, 0x00, 0x20, 0x00, 0x20, 0x00, 0x20, 0x00, 0, 0x00, 0, 0x00, 0, 0, 0};
    Block bit2 = none;
    bit2[8] = bit2[10] = bit2[12] = 0x04;
    Block bit6 = none;
    bit6[3] = bit6[5] = bit6[7] = 0x60;
    Block both = bit2;
    both[3] = both[5] = both[7] = 0x60;
    const FlagCase cases[] = {
        {"8026 on with 9000 on", kFlagBit6, bit2, {0x00, 0x81, 0x00, 0x81}, {3, 5, 7}, 0x40, true},
        {"8026 on with 9000 off", kFlagBit6, none, {0x01, 0x01, 0x01, 0x01}, {3, 5, 7}, 0x40, true},
        {"8026 off with 9000 on", kFlagBit6, both, {0x01, 0x01, 0x01, 0x01}, {3, 5, 7}, 0x40, false},
        {"8026 off with 9000 off", kFlagBit6, bit6, {0x02, 0x01, 0x02, 0x01}, {3, 5, 7}, 0x40, false},
        {"9000 on with 8026 on", kFlagBit2, bit6, {0x00, 0x81, 0x00, 0x81}, {8, 10, 12}, 0x04, true},
        {"9000 on with 8026 off", kFlagBit2, none, {0x01, 0x01, 0x01, 0x01}, {8, 10, 12}, 0x04, true},
        {"9000 off with 8026 on", kFlagBit2, both, {0x01, 0x01, 0x01, 0x01}, {8, 10, 12}, 0x04, false},
        {"9000 off with 8026 off", kFlagBit2, bit2, {0x02, 0x01, 0x02, 0x01}, {8, 10, 12}, 0x04, false},
    };
    for (const FlagCase& c : cases) {
        SCOPED_TRACE(c.name);
        SimulatedChip target;
        target.regData = c.start;
        target.regData4.fill(0x5A);
        HWND page = Open(target);
        Click(page, c.checkBox);
        for (int byte : c.bytes)
            EXPECT_EQ(target.regData[byte] & c.bit, c.setsFlag ? c.bit : 0) << "byte " << byte;
        Block others = target.regData;
        Block startOthers = c.start;
        for (int byte : c.bytes) {
            others[byte] &= static_cast<std::uint8_t>(~c.bit);
            startOthers[byte] &= static_cast<std::uint8_t>(~c.bit);
        }
        EXPECT_EQ(others, startOthers) << "nothing but the flag changes in the block";
        EXPECT_EQ((std::array<std::uint8_t, 4>{target.regData4[10], target.regData4[11], target.regData4[12],
                                               target.regData4[13]}),
                  c.word);
        EXPECT_EQ(target.regData4[9], 0x5A);
        EXPECT_EQ(target.regData4[14], 0x5A);
        EXPECT_EQ(target.CallNames(true),
                  (Names{"GetRegData", "GetRegData4", "SetRegData4", "SetRegData", "GetRegData",
                         "GetRegData4", "MarkModified", "UpdateHostState"}));
        DestroyWindow(page);
    }
}

TEST_F(Mbi5153Page, FlagBit7GoesIntoTheFirstByteOfEachColour) {
    HWND page = Open(chip);
    Click(page, kFlagBit7);
    Block expected = kTypicalBlock;
    expected[2] = expected[4] = expected[6] = 0x00;
    EXPECT_EQ(chip.regData, expected);
    EXPECT_EQ(chip.regData4, (Record{0, 0, 0, 0, 0, 0, 0, 17, 0, 200}));
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}));
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, DelayComboWritesTheStepAndNoSelectionMeansTheLongest) {
    chip.regData[9] = chip.regData[11] = chip.regData[13] = 0xF1; // neighbours of the field are set
    HWND page = Open(chip);
    EXPECT_EQ(ComboText(page), L"0ns");
    SelectDelay(page, 3);
    EXPECT_EQ(chip.regData[9], 0xF7);
    EXPECT_EQ(chip.regData[11], 0xF7);
    EXPECT_EQ(chip.regData[13], 0xF7);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}));

    SelectDelay(page, -1);
    EXPECT_EQ(chip.regData[9], 0xFF);
    EXPECT_EQ(chip.regData[13], 0xFF);

    // The host changes the delay itself and asks the page to read the chip again.
    chip.regData[9] = 0x0E;
    chip.ClearLog();
    EXPECT_EQ(SendMessageW(page, 0x0903, 0, 0), 0);
    EXPECT_EQ(ComboText(page), L"35ns");
    EXPECT_EQ(chip.CallNames(false), Names{});
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, DefaultWritesTheChipMakersValuesInOrder) {
    chip.regDataEx.fill(0x77);
    HWND page = Open(chip);
    Click(page, kShowCurrent);
    Type(page, kRedResistance, L"470");
    chip.ClearLog();

    Click(page, kDefault);
    EXPECT_EQ(chip.regData, (Block{0x11, 0x22, 0xDF, 0x2B, 0xDF, 0x2B, 0xDF, 0x2B, 0x42, 0x00, 0x62, 0x00,
                                   0x62, 0x00, 0x00, 0x21}));
    EXPECT_EQ(chip.regDataEx[0], 0x00);
    EXPECT_EQ(chip.regDataEx[1], 0x21);
    EXPECT_EQ(chip.regDataEx[2], 0x00);
    EXPECT_EQ(chip.regDataEx[3], 0x21);
    EXPECT_EQ(chip.regDataEx[4], 0x77) << "only the first word of record A is the page's";
    EXPECT_EQ(chip.CallNames(false),
              (Names{"SetRegData", "SetRegDataEx", "MarkModified", "UpdateHostState"}));
    const Names all = chip.CallNames(true);
    ASSERT_GE(all.size(), 4u);
    EXPECT_EQ((Names{all[0], all[1], all[2], all[3]}),
              (Names{"GetRegData", "GetRegDataEx", "SetRegData", "SetRegDataEx"}));

    for (int id : {kRedSlider, kGreenSlider, kBlueSlider})
        EXPECT_EQ(SliderPos(page, id), 43);
    for (int id : {kRedPercent, kGreenPercent, kBluePercent})
        EXPECT_EQ(ItemText(page, id), L"102%");
    EXPECT_TRUE(Checked(page, kFlagBit7));
    EXPECT_FALSE(Checked(page, kFlagBit6));
    EXPECT_FALSE(Checked(page, kFlagBit2));
    EXPECT_EQ(ComboText(page), L"0ns");
    for (int id : {kRedResistance, kGreenResistance, kBlueResistance})
        EXPECT_EQ(ItemText(page, id), L"1000");
    EXPECT_EQ(ItemText(page, kRedCurrent), L"14.25 mA") << "the current follows the reset resistance";
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, OkRunsTheChangeTestAndCloses) {
    HWND page = Open(chip);
    Click(page, kOk);
    EXPECT_EQ(chip.CallNames(false), Names{"UpdateHostState"});
    EXPECT_FALSE(IsWindow(page));

    page = Open(chip);
    chip.regData[3] ^= 0x01; // the chip now differs from this page's snapshot
    Click(page, kOk);
    EXPECT_EQ(chip.CallNames(false), (Names{"MarkModified", "UpdateHostState"}));
    EXPECT_FALSE(IsWindow(page));
}

TEST_F(Mbi5153Page, CancelPutsTheSnapshotBackEvenWithoutAChange) {
    HWND page = Open(chip);
    Click(page, kCancel);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "SetRegData4"}));
    EXPECT_FALSE(IsWindow(page));

    const Record record = chip.regData4;
    page = Open(chip);
    MoveSlider(page, kRedSlider, 5);
    Type(page, kRecordByte9, L"3");
    ASSERT_NE(chip.regData, kTypicalBlock);
    ASSERT_NE(chip.regData4, record);
    chip.ClearLog();
    Click(page, kCancel);
    EXPECT_EQ(chip.regData, kTypicalBlock);
    EXPECT_EQ(chip.regData4, record);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "SetRegData4"}));
    EXPECT_FALSE(IsWindow(page));
}

TEST_F(Mbi5153Page, PageButtonAsksTheHostFrameForPageTwelve) {
    HWND page = Open(chip);
    host.TakePosted();
    Click(page, kPageButton);
    const auto posted = host.TakePosted();
    ASSERT_EQ(posted.size(), 1u);
    EXPECT_EQ(posted[0].message, 0x0904u);
    EXPECT_EQ(posted[0].wParam, 12u);
    EXPECT_EQ(posted[0].lParam, 1);
    EXPECT_EQ(chip.CallNames(true), Names{});
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, CurrentReadoutsFollowGainAndResistance) {
    HWND page = Open(chip);
    Click(page, kShowCurrent);
    EXPECT_TRUE(IsWindowVisible(Item(page, kRedResistance)));
    EXPECT_TRUE(IsWindowVisible(Item(page, kBlueCurrent)));
    EXPECT_EQ(ItemText(page, kRedFactor), L"0.5");
    EXPECT_EQ(ItemText(page, kRedCurrent), L"7.12 mA");
    EXPECT_EQ(ItemText(page, kGreenFactor), L"1.9");
    EXPECT_EQ(ItemText(page, kGreenCurrent), L"27.20 mA");

    MoveSlider(page, kRedSlider, 63);
    EXPECT_EQ(ItemText(page, kRedFactor), L"1.9");
    EXPECT_EQ(ItemText(page, kRedCurrent), L"27.20 mA");

    Type(page, kRedResistance, L"500");
    EXPECT_EQ(ItemText(page, kRedCurrent), L"54.39 mA");
    EXPECT_EQ(ItemText(page, kGreenCurrent), L"27.20 mA");
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "MarkModified", "UpdateHostState"}))
        << "resistances are the operator's arithmetic, never the chip's";

    // Linked: every colour's read-out follows the moved slider.
    Click(page, kLinkGains);
    MoveSlider(page, kBlueSlider, 32);
    EXPECT_EQ(ItemText(page, kRedCurrent), L"14.25 mA");
    EXPECT_EQ(ItemText(page, kGreenCurrent), L"7.12 mA");
    EXPECT_EQ(ItemText(page, kBlueFactor), L"0.5");

    Click(page, kShowCurrent);
    EXPECT_FALSE(IsWindowVisible(Item(page, kRedResistance)));
    EXPECT_FALSE(IsWindowVisible(Item(page, kGreenFactor)));
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, RecordEditsWriteTheirBytesClampedToRange) {
    HWND page = Open(chip);
    Type(page, kRecordByte9, L"99");
    EXPECT_EQ(chip.regData4[9], 99);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData4", "MarkModified", "UpdateHostState"}));

    chip.ClearLog();
    Type(page, kRecordByte7, L"300");
    EXPECT_EQ(chip.regData4[7], 63);
    EXPECT_EQ(ItemText(page, kRecordByte7), L"63");
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData4", "MarkModified", "UpdateHostState"}));

    chip.ClearLog();
    Type(page, kRecordByte9, L"200"); // back at the snapshot
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData4", "MarkModified", "UpdateHostState"}))
        << "byte 7 still differs";
    chip.ClearLog();
    Type(page, kRecordByte7, L"17");
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData4", "UpdateHostState"}));
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, ReopenedPagesKeepLinkShowCurrentAndResistances) {
    HWND page = Open(chip);
    Click(page, kLinkGains);
    Click(page, kShowCurrent);
    Type(page, kGreenResistance, L"2200");
    DestroyWindow(page);

    SimulatedChip other(47, 5);
    page = Open(other);
    EXPECT_TRUE(Checked(page, kLinkGains));
    EXPECT_TRUE(Checked(page, kShowCurrent));
    EXPECT_TRUE(IsWindowVisible(Item(page, kGreenResistance)));
    EXPECT_EQ(ItemText(page, kGreenResistance), L"2200");
    EXPECT_EQ(ItemText(page, kRedResistance), L"1000");
    MoveSlider(page, kRedSlider, 20);
    EXPECT_EQ(other.regData[7], 20) << "the reopened page moves the gains together";
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, ShowingThePageAgainReadsTheChipAndTheHostRange) {
    HWND page = Open(chip);
    ShowWindow(page, SW_HIDE);
    chip.regData[3] = 0x3F;
    chip.gainMax = 40;
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(SendMessageW(Item(page, kRedSlider), TBM_GETRANGEMAX, 0, 0), 40);
    EXPECT_EQ(SliderPos(page, kRedSlider), 40);
    EXPECT_EQ(ItemText(page, kRedPercent), L"194%") << "the label shows the chip, not the clamped slider";
    EXPECT_EQ(chip.CallNames(false), Names{});
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, TitleFollowsChipTypeAndSubTypeAndTheCaptionWins) {
    auto title = [](HWND page) {
        wchar_t text[64] = {};
        GetWindowTextW(page, text, 64);
        return std::wstring(text);
    };
    SimulatedChip fm6153(196, 212);
    HWND page = Open(fm6153, L"", 196);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(title(page), L"FM6153");
    DestroyWindow(page);

    SimulatedChip mbi5252(47, 212);
    page = Open(mbi5252);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(title(page), L"MBI5252");
    DestroyWindow(page);

    page = Open(mbi5252, L"Cabinet 3");
    EXPECT_EQ(title(page), L"Cabinet 3");
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(title(page), L"Cabinet 3");
    DestroyWindow(page);

    SimulatedChip sm16159(47, 138);
    page = RegvaneLibrary::Get().CreateRegvaneHwnd(47, &sm16159, L"", host.View());
    EXPECT_STREQ(RegvaneLibrary::Get().RegvaneDialogClassName(page), "CRegvane_SM16159")
        << "type 47 with sub-type 138 is another chip's page";
    DestroyWindow(page);
}

TEST_F(Mbi5153Page, OddHostsDoNotBreakThePage) {
    SimulatedChip reversed;
    reversed.gainMin = 50;
    reversed.gainMax = 10;
    reversed.regData = kTypicalBlock;
    HWND page = Open(reversed);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(SendMessageW(Item(page, kRedSlider), TBM_GETRANGEMIN, 0, 0), 10);
    EXPECT_EQ(SendMessageW(Item(page, kRedSlider), TBM_GETRANGEMAX, 0, 0), 50);
    MoveSlider(page, kRedSlider, 30);
    EXPECT_EQ(reversed.regData[3], 30);
    DestroyWindow(page);

    // Without a host the page still opens and every control is inert.
    page = RegvaneLibrary::Get().CreateRegvaneHwnd(196, nullptr, L"", host.View());
    ASSERT_NE(page, nullptr);
    ShowWindow(page, SW_SHOW);
    MoveSlider(page, kRedSlider, 30);
    for (int id : {kFlagBit7, kFlagBit6, kFlagBit2, kDefault, kShowCurrent, kLinkGains, kPageButton})
        Click(page, id);
    SelectDelay(page, 2);
    Type(page, kRecordByte9, L"5");
    SendMessageW(page, 0x0903, 0, 0);
    Click(page, kCancel);
    EXPECT_FALSE(IsWindow(page));
    host.TakePosted();
}

} // namespace
