// The parameter-table pages through regvane.dll: the table shown, Export and Import through the
// real save and open dialogs (answered by a second thread as an operator would), the messages,
// and what reaches the host. The file format itself is held to its bytes natively.
#include "OperatorActions.h"
#include "workbench/Win32Text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

namespace {

namespace fs = std::filesystem;

constexpr int kList = 8700, kExport = 8701, kImport = 8702, kCancel = 8571;
constexpr int kIcn2055ExType = 65536 + 13;
const std::wstring kLoaded = L"The parameter file has been loaded into the chip.";

std::wstring Cell(HWND page, int row, int column) {
    wchar_t text[64] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 64;
    SendDlgItemMessageW(page, kList, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                        reinterpret_cast<LPARAM>(&item));
    return text;
}

std::vector<std::wstring> ColumnTitles(HWND page) {
    std::vector<std::wstring> titles;
    wchar_t text[64] = {};
    LVCOLUMNW info{LVCF_TEXT, 0, 0, text, 64};
    while (SendDlgItemMessageW(page, kList, LVM_GETCOLUMNW, titles.size(), reinterpret_cast<LPARAM>(&info)))
        titles.push_back(text);
    return titles;
}

// A button that opens a file dialog, pressed; the dialog answered with the next path ("" cancels).
struct Outcome {
    std::vector<FileDialogWatcher::Dialog> dialogs;
    std::vector<MessageBoxWatcher::Box> boxes;
    // The one message box the press showed, after the icon it showed it with.
    std::wstring Box() const {
        if (boxes.size() != 1)
            return std::to_wstring(boxes.size()) + L" boxes";
        const wchar_t* icon = boxes[0].hasErrorIcon         ? L"error: "
                              : boxes[0].hasInformationIcon ? L"info: "
                                                            : L"";
        return icon + boxes[0].text;
    }
};
Outcome Press(HWND page, int button, std::vector<std::wstring> answers,
              std::function<void()> whileOpen = {}) {
    FileDialogWatcher dialogs(std::move(answers));
    if (whileOpen)
        dialogs.WhileOpen(std::move(whileOpen));
    MessageBoxWatcher boxes;
    Click(page, button);
    return {dialogs.Dialogs(), boxes.Boxes()};
}

class ParamFilePages : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        // A folder of the test's own, not named in ASCII: a file dialog may leave the process in the
        // last folder it showed, where it cannot be removed at once.
        const std::wstring test = Wide(testing::UnitTest::GetInstance()->current_test_info()->name());
        folder = fs::temp_directory_path() / (L"regvane_" + test + L"_\u53c2\u6570");
        fs::remove_all(folder);
        fs::create_directories(folder);
        chip.chipType = 193; // an ICN2055
        for (std::size_t i = 0; i < chip.regData2.size(); ++i)
            chip.regData2[i] = static_cast<std::uint8_t>(i * 5);
    }
    void TearDown() override {
        PageTest::TearDown();
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    std::wstring File(const std::wstring& name) const { return (folder / name).wstring(); }
    void Write(const std::wstring& name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::wstring& name) const {
        std::ifstream in(folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    fs::path folder;
    SimulatedChip chip;
};

// The pages are one class under many names, each with one of three tables; which name and template
// each chip type gets is held by the factory test for every type.
TEST_F(ParamFilePages, EachKindOfTableShowsItsRowsWithoutWritingToTheChip) {
    const struct {
        int type;
        int rows;
        std::size_t columns;
    } pages[] = {{kIcn2055ExType, 45, 4}, {65536 + 65, 18, 7}, {65536 + 107, 16, 9}};
    for (const auto& expected : pages) {
        SCOPED_TRACE(expected.type);
        SimulatedChip target = chip;
        HWND page = RegvaneLibrary::Get().CreateRegvaneHwnd(expected.type, &target, L"", host.View());
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(SendDlgItemMessageW(page, kList, LVM_GETITEMCOUNT, 0, 0), expected.rows);
        EXPECT_EQ(ColumnTitles(page).size(), expected.columns);
        EXPECT_EQ(ItemText(page, kExport), L"Export...");
        EXPECT_EQ(ItemText(page, kImport), L"Import...");
        EXPECT_EQ(GetWindowLongPtrW(page, GWL_STYLE) & WS_CAPTION, 0) << "a page has no title bar";
        DestroyWindow(page);
    }

    // The ICN2055 table in hexadecimal, address first; the CNS7363 numbers its rows.
    HWND page = Open(kIcn2055ExType, &chip);
    EXPECT_EQ(ColumnTitles(page), (std::vector<std::wstring>{L"Addr", L"RReg", L"GReg", L"BReg"}));
    EXPECT_EQ(Cell(page, 1, 0), L"0x01");
    EXPECT_EQ(Cell(page, 1, 1), L"0x0f");
    EXPECT_EQ(Cell(page, 1, 3), L"0x19");
    page = Open(65536 + 65, &chip);
    EXPECT_EQ(ColumnTitles(page)[0], L"Row");
    EXPECT_EQ(Cell(page, 17, 0), L"17");
    EXPECT_EQ(Cell(page, 17, 6), L"0x17"); // byte 107 of the large record
}

TEST_F(ParamFilePages, ExportAsksForAFileProposingTheChipsNameAndSaysItSavedIt) {
    HWND page = Open(kIcn2055ExType, &chip);
    const std::wstring target = File(L"\u5bc4\u5b58\u5668.csv");
    bool exportEnabledWhileOpen = true;
    const Outcome first = Press(page, kExport, {target},
                                [&] { exportEnabledWhileOpen = IsWindowEnabled(Item(page, kExport)); });
    ASSERT_EQ(first.dialogs.size(), 1u);
    EXPECT_EQ(first.dialogs[0].proposedName, L"ChipICN2055Param.csv");
    EXPECT_EQ(first.dialogs[0].fileTypes, (std::vector<std::wstring>{L"(*.csv)", L"All Files (*.*)"}));
    EXPECT_TRUE(first.dialogs[0].prompts.empty());
    ASSERT_EQ(first.Box(), L"info: The parameter file has been saved.");
    EXPECT_EQ(first.boxes[0].caption, L"regvane_windows_tests");
    EXPECT_FALSE(exportEnabledWhileOpen) << "Export is disabled while it runs";
    EXPECT_TRUE(IsWindowEnabled(Item(page, kExport)));
    EXPECT_EQ(Read(L"\u5bc4\u5b58\u5668.csv").rfind("CHIP_ICN2055_PARAMETER_FILE\r\n", 0), 0u);
    EXPECT_EQ(chip.CallNames(false), Calls{}) << "an export changes nothing in the chip";

    // Saving over the file again: the dialog asks before replacing it.
    const Outcome again = Press(page, kExport, {target});
    ASSERT_EQ(again.dialogs.size(), 1u);
    EXPECT_EQ(again.dialogs[0].prompts.size(), 1u);
    EXPECT_EQ(again.boxes.size(), 1u);
}

TEST_F(ParamFilePages, CancellingEitherDialogDoesNothingAndSaysNothing) {
    HWND page = Open(kIcn2055ExType, &chip);
    for (const int button : {kExport, kImport}) {
        const Outcome outcome = Press(page, button, {L""});
        EXPECT_EQ(outcome.dialogs.size(), 1u);
        EXPECT_TRUE(outcome.boxes.empty());
        EXPECT_TRUE(IsWindowEnabled(Item(page, button)));
    }
    EXPECT_EQ(chip.CallNames(false), Calls{});
}

TEST_F(ParamFilePages, ImportHandsTheFileToTheHostAndCancelTakesItBack) {
    Write(L"in.csv", "CHIP_ICN2055_PARAMETER_FILE,,,\r\nAddr,RReg,GReg,BReg\r\n0x00,0x40,0x80,0xc0\r\n"
                     "0x01,0x41,0x81,0xc1\r\n"); // the other rows keep their values
    HWND page = Open(kIcn2055ExType, &chip);
    const Outcome outcome = Press(page, kImport, {File(L"in.csv")});
    ASSERT_EQ(outcome.dialogs.size(), 1u);
    EXPECT_EQ(outcome.dialogs[0].proposedName, L"");
    EXPECT_EQ(outcome.Box(), L"info: " + kLoaded);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegDataEx", "SetRegData2", "SetRegData3",
                                            "MarkModified", "UpdateHostState"}));
    EXPECT_EQ(chip.regData2[5], 0xc1); // which rows a file changes is held natively
    EXPECT_EQ(Cell(page, 1, 3), L"0xc1") << "the list shows what the chip now holds";
    EXPECT_TRUE(IsWindowEnabled(Item(page, kImport)));

    chip.ClearLog();
    Click(page, kCancel);
    EXPECT_EQ(chip.regData2[5], 25);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "SetRegDataEx", "SetRegData2", "SetRegData3"}));
    EXPECT_FALSE(IsWindow(page));
}

TEST_F(ParamFilePages, AnotherChipsFileIsRefusedInTheOperatorsLanguage) {
    Write(L"other.csv", "CHIP_ICN2065_PARAMETER_FILE\r\nAddr,RReg,GReg,BReg\r\n0x00,0x01,0x02,0x03\r\n");
    HWND page = Open(kIcn2055ExType, &chip);
    Outcome outcome = Press(page, kImport, {File(L"other.csv")});
    EXPECT_EQ(
        outcome.Box(),
        L"info: The parameter file could not be loaded. Check that it is a parameter file of this chip.");

    InstallHostCallback(1);
    outcome = Press(page, kImport, {File(L"other.csv")});
    EXPECT_EQ(outcome.Box(), L"info: \u53c2\u6570\u6587\u4ef6\u5bfc\u5165\u5931\u8d25\uff0c\u8bf7\u786e\u8ba4"
                             L"\u5b83\u662f\u672c\u82af\u7247\u7684\u53c2\u6570\u6587\u4ef6\u3002");
}

TEST_F(ParamFilePages, AnExportThatCannotWriteSaysSoAndKeepsTheEarlierFile) {
    Write(L"keep.csv", "earlier file");
    // The export writes beside its target first; a folder in that place makes the write fail.
    fs::create_directories(fs::path(File(L"keep.csv.regvane-part")));
    HWND page = Open(kIcn2055ExType, &chip);
    const Outcome outcome = Press(page, kExport, {File(L"keep.csv")});
    EXPECT_EQ(outcome.Box(), L"info: The parameter file could not be saved.");
    EXPECT_EQ(Read(L"keep.csv"), "earlier file");
}

TEST_F(ParamFilePages, Mbi5292TellsAWrongTagApartWithAnErrorIcon) {
    Write(L"wrong.csv", "CHIP_ICN2055_PARAMETER_FILE\r\nRegister Count: 1\r\n1,2,3,4,5,6,7,8\r\n");
    Write(L"right.csv", "MBI5292\r\nRegister Count: 1\r\n\r\n1,2,3,4,5,6,7,8\r\n");
    HWND page = Open(65536 + 107, &chip);
    const Outcome wrong = Press(page, kImport, {File(L"wrong.csv")});
    EXPECT_EQ(chip.CallNames(false), Calls{});
    const Outcome right = Press(page, kImport, {File(L"right.csv")});
    EXPECT_EQ(wrong.Box(), L"error: This file is not a parameter file of this chip.");
    EXPECT_EQ(right.Box(), L"info: " + kLoaded);
    EXPECT_EQ(Cell(page, 0, 8), L"0x08");
}

} // namespace
