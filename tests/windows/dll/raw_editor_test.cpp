// The raw register editor driven as an operator does: bytes typed into edits and confirmed by leaving
// them, buttons clicked, and the host's register kind choosing what is shown. That opening writes
// nothing is held by the factory test, and that a host's caption wins over the title by the MBI5153
// page's.
#include "OperatorActions.h"

#include <gtest/gtest.h>

namespace {

constexpr int kRawEditorType = 81;
constexpr int kReadAgain = 8025, kRestore = 8026, kPreset = 20013;

class RawEditor : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        for (std::size_t i = 0; i < chip.regData.size(); ++i)
            chip.regData[i] = static_cast<std::uint8_t>(0x10 + i);
        for (std::size_t i = 0; i < chip.regDataEx.size(); ++i)
            chip.regDataEx[i] = static_cast<std::uint8_t>(0xA0 + i);
        for (std::size_t i = 0; i < chip.regData3.size(); ++i)
            chip.regData3[i] = static_cast<std::uint8_t>(0xB0 + i);
    }
    void Open(SimulatedChip* target) { page = PageTest::Open(kRawEditorType, target); }
    void Type(int id, const wchar_t* text) { TypeAndLeave(page, id, text, kReadAgain); }

    SimulatedChip chip{kRawEditorType, 0};
    HWND page = nullptr;
};

// The typed byte's own record is read, patched and written; the change test reads block and record A.
TEST_F(RawEditor, ATypedByteGoesToItsRecordAndTheChangeIsReported) {
    Open(&chip);
    const auto cycle = [](const std::string& record) {
        return Calls{"Get" + record, "Set" + record, "GetRegData",
                     "GetRegDataEx", "MarkModified", "UpdateHostState"};
    };
    Type(8069, L"A");
    EXPECT_EQ(chip.regData[4], 0x0A);
    EXPECT_EQ(chip.regData[5], 0x15) << "only the typed byte changes";
    EXPECT_EQ(chip.CallNames(), cycle("RegData"));
    EXPECT_EQ(chip.log.back().args, (std::vector<std::int64_t>{1, 1}));
    chip.ClearLog();
    Type(8082, L"ff");
    EXPECT_EQ(chip.regDataEx[1], 0xFF);
    EXPECT_EQ(chip.CallNames(), cycle("RegDataEx"));
    chip.ClearLog();
    Type(8090, L"Bc");
    EXPECT_EQ(chip.regData3[5], 0xBC);
    EXPECT_EQ(chip.regData3[4], 0xB4);
    EXPECT_EQ(chip.CallNames(), cycle("RegData3"));
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(ItemText(page, 8069), L"0a");
}

TEST_F(RawEditor, RefusedTextsShowTheTipBringTheOldTextBackAndWriteNothing) {
    Open(&chip);
    MessageBoxWatcher watcher;
    const wchar_t* refused[] = {L"1g", L"0ff", L"", L"-1"};
    for (const wchar_t* text : refused) {
        Type(8068, text);
        EXPECT_EQ(ItemText(page, 8068), L"13") << "after " << testing::PrintToString(std::wstring(text));
    }
    EXPECT_EQ(chip.CallNames(false), Calls{});
    const auto boxes = watcher.Boxes();
    ASSERT_EQ(boxes.size(), std::size(refused));
    for (const auto& box : boxes) {
        EXPECT_EQ(box.text, L"Please enter one or two hexadecimal digits (0-9, a-f).");
        EXPECT_EQ(box.caption, L"regvane_windows_tests");
        EXPECT_TRUE(box.hasInformationIcon);
    }
    Type(8068, L"ff");
    EXPECT_EQ(chip.regData[3], 0xFF);
    EXPECT_EQ(watcher.Boxes().size(), std::size(refused)) << "ff is a byte";
}

TEST_F(RawEditor, OnlyTheBlockAndTheFirstBytesOfRecordACountAsAChange) {
    Open(&chip);
    Type(8068, L"14");
    Type(8068, L"13"); // and back again
    EXPECT_EQ(chip.CallNames(false),
              (Calls{"SetRegData", "MarkModified", "UpdateHostState", "SetRegData", "UpdateHostState"}));

    chip.ClearLog();
    Type(8085, L"00"); // record B is not part of the change test
    EXPECT_EQ(chip.regData3[0], 0x00);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData3", "UpdateHostState"}));

    chip.ClearLog();
    chip.regDataEx[8] = 0x55; // beyond the four bytes the page shows
    Type(8084, L"a3");
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegDataEx", "UpdateHostState"}));
}

TEST_F(RawEditor, PresetPutsTheFirstRegisterOfEachColourTo3FA6) {
    chip.registerKind = 9;
    Open(&chip);
    ASSERT_TRUE(Shown(page, kPreset));
    Click(page, kPreset);
    EXPECT_EQ(std::vector<std::uint8_t>(chip.regData.begin() + 1, chip.regData.begin() + 9),
              (std::vector<std::uint8_t>{0x11, 0xA6, 0x3F, 0xA6, 0x3F, 0xA6, 0x3F, 0x18}));
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "MarkModified", "UpdateHostState"}));
    EXPECT_EQ(ItemText(page, 8543), L"a6");
    EXPECT_EQ(ItemText(page, 8072), L"3f");
}

TEST_F(RawEditor, ReadAgainShowsTheChipAndRestorePutsBackWhatItHeldAtOpening) {
    Open(&chip);
    Type(8070, L"99");
    Type(8081, L"01");
    chip.regData[15] = 0x77; // changed by the host behind the page
    Click(page, kReadAgain);
    EXPECT_EQ(ItemText(page, 8080), L"77");

    chip.ClearLog();
    Click(page, kRestore);
    EXPECT_EQ(chip.regData[5], 0x15);
    EXPECT_EQ(chip.regData[15], 0x1F);
    EXPECT_EQ(chip.regDataEx[0], 0xA0);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegDataEx", "UpdateHostState"}));
    EXPECT_EQ(ItemText(page, 8070), L"15");
}

// Which kind asks for what is held natively; here each of the layout's switches on its controls. One
// edit of each further register stands for its group: byte 9 (second), record A byte 0 (third),
// record B byte 0 (fourth).
TEST_F(RawEditor, TheRegisterKindChoosesWhatIsShown) {
    const struct {
        int kind;
        bool second, third, fourth, caption4, caption1, preset, firstLowEnabled;
    } kinds[] = {
        {1, false, false, false, false, false, false, false},
        {3, true, false, false, false, false, false, true},
        {5, true, true, true, true, false, false, true},
        {9, false, false, false, false, false, true, true},
        {11, true, true, true, true, true, false, true},
    };
    for (const auto& k : kinds) {
        SCOPED_TRACE(k.kind);
        chip.registerKind = k.kind;
        Open(&chip);
        EXPECT_EQ(Shown(page, 8074), k.second);
        EXPECT_EQ(Shown(page, 8081), k.third);
        EXPECT_EQ(Shown(page, 8085), k.fourth);
        EXPECT_EQ(Shown(page, 20016), k.caption4);
        EXPECT_EQ(Shown(page, 20616), k.caption1);
        EXPECT_EQ(Shown(page, kPreset), k.preset);
        for (int id : {8543, 8069, 8544})
            EXPECT_EQ(IsWindowEnabled(Item(page, id)) != FALSE, k.firstLowEnabled) << id;
        EXPECT_EQ(Shown(page, 20607), k.kind != 11) << "CFG1 takes the place of the plain caption";
        EXPECT_EQ(ItemText(page, 20015), k.kind == 11 ? L"CFG3" : L"Register 3");
        // English names the fourth register's rows as the template does; that kind 12 takes them
        // from the language file shows in the Chinese test below.
        EXPECT_EQ(ItemText(page, 8569), L"R4");
        DestroyWindow(page);
    }
}

TEST_F(RawEditor, ChineseTitleAndTexts) {
    InstallHostCallback(1);
    chip.registerKind = 12;
    chip.modelName = "SM16208";
    Open(&chip);
    EXPECT_EQ(Title(page), L"\u82af\u7247\u5bc4\u5b58\u5668 - SM16208");
    EXPECT_EQ(ItemText(page, 20014), L"\u5bc4\u5b58\u5668 2");
    EXPECT_EQ(ItemText(page, 8569), L"\u7ea2 4");
    InstallHostCallback();
}

TEST_F(RawEditor, WithoutAHostThePageShowsZerosAndWritesNowhere) {
    Open(nullptr);
    EXPECT_EQ(Title(page), L"Chip registers");
    Type(8543, L"5a");
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(kPreset, BN_CLICKED), 0);
    Click(page, kReadAgain);
    Click(page, kRestore);
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(ItemText(page, 8543), L"00");
}

} // namespace
