// The parameter-table pages through regvane.dll: the table shown, Export and Import through the
// real save and open dialogs (answered by a second thread as an operator would), the messages,
// and what reaches the host.
#include "TestHost.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr int kList = 8700, kExport = 8701, kImport = 8702, kCancel = 8571;
constexpr int kIcn2055ExType = 65536 + 13;
constexpr int kMbi5292ExType = 65536 + 107;
constexpr int kCns7363ExType = 65536 + 65;

class TempFolder {
public:
    explicit TempFolder(const std::wstring& name) {
        wchar_t temp[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, temp);
        m_path = fs::path(temp) / (L"regvane_pages_" + name);
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~TempFolder() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    std::wstring File(const std::wstring& name) const { return (m_path / name).wstring(); }
    void Write(const std::wstring& name, const std::string& bytes) const {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::wstring& name) const {
        std::ifstream in(m_path / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    bool Exists(const std::wstring& name) const { return fs::exists(m_path / name); }

private:
    fs::path m_path;
};

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0, end = 0;
    while ((end = text.find("\r\n", start)) != std::string::npos) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

std::wstring ApplicationCaption() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring name = fs::path(path).stem().wstring();
    return name;
}

int ListRows(HWND page) {
    return static_cast<int>(SendDlgItemMessageW(page, kList, LVM_GETITEMCOUNT, 0, 0));
}

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
    for (int column = 0;; ++column) {
        wchar_t text[64] = {};
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT;
        info.pszText = text;
        info.cchTextMax = 64;
        if (!SendDlgItemMessageW(page, kList, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                                 reinterpret_cast<LPARAM>(&info)))
            return titles;
        titles.push_back(text);
    }
}

void Click(HWND page, int id) {
    SendMessageW(GetDlgItem(page, id), BM_CLICK, 0, 0);
}

class ParamFilePages : public ::testing::Test {
protected:
    void SetUp() override {
        InstallHostCallback();
        chip.chipType = 193; // an ICN2055
        for (std::size_t i = 0; i < chip.regData2.size(); ++i)
            chip.regData2[i] = static_cast<std::uint8_t>(i * 5);
    }
    void TearDown() override { InstallHostCallback(); }

    HWND Open(int chipType, SimulatedChip& target) {
        HWND page = RegvaneLibrary::Get().CreateRegvaneHwnd(chipType, &target, L"", host.View());
        if (page)
            ShowWindow(page, SW_SHOW);
        PumpMessages();
        target.ClearLog();
        return page;
    }

    HostFrame host;
    SimulatedChip chip;
};

TEST_F(ParamFilePages, EveryPageShowsItsTableUnderItsOwnNameWithoutWritingToTheChip) {
    struct Page {
        int type;
        const char* className;
        int rows;
        std::size_t columns;
    };
    const Page pages[] = {
        {65536 + 12, "CRegvaneICN2055", 45, 4},      {65536 + 13, "CRegvaneICN2055EX", 45, 4},
        {65536 + 57, "CRegvaneICND2165Ex", 45, 4},   {65536 + 63, "CRegvaneICND2168Ex", 45, 4},
        {65536 + 64, "CRegvaneICND2169Ex", 45, 4},   {65536 + 65, "CRegvaneCNS7363Ex", 18, 7},
        {65536 + 84, "CRegvaneICND1065SEx", 45, 4},  {65536 + 90, "CRegvaneICND2153SEx", 45, 4},
        {65536 + 98, "CRegvaneICND1068Ex", 45, 4},   {65536 + 99, "CRegvaneFM6373EX", 45, 4},
        {65536 + 107, "CRegvaneMBI5292EX", 16, 9},   {65536 + 108, "CRegvaneFM6373CEX", 45, 4},
        {65536 + 116, "CRegvaneICND2163SEx", 45, 4},
    };
    for (const Page& expected : pages) {
        SCOPED_TRACE(expected.className);
        SimulatedChip target = chip;
        HWND page = RegvaneLibrary::Get().CreateRegvaneHwnd(expected.type, &target, L"", host.View());
        ASSERT_NE(page, nullptr);
        EXPECT_STREQ(RegvaneLibrary::Get().RegvaneDialogClassName(page), expected.className);
        EXPECT_EQ(target.CallNames(false), Names{});
        EXPECT_EQ(ListRows(page), expected.rows);
        EXPECT_EQ(ColumnTitles(page).size(), expected.columns);
        EXPECT_EQ(ItemText(page, kExport), L"Export...");
        EXPECT_EQ(ItemText(page, kImport), L"Import...");
        EXPECT_EQ(GetWindowLongPtrW(page, GWL_STYLE) & WS_CAPTION, 0) << "a page has no title bar";
        DestroyWindow(page);
    }

    // The ICN2055 table in hexadecimal, address first; the CNS7363 numbers its rows.
    HWND page = Open(kIcn2055ExType, chip);
    EXPECT_EQ(ColumnTitles(page), (std::vector<std::wstring>{L"Addr", L"RReg", L"GReg", L"BReg"}));
    EXPECT_EQ(Cell(page, 1, 0), L"0x01");
    EXPECT_EQ(Cell(page, 1, 1), L"0x0f");
    EXPECT_EQ(Cell(page, 1, 3), L"0x19");
    DestroyWindow(page);
    page = Open(kCns7363ExType, chip);
    EXPECT_EQ(ColumnTitles(page)[0], L"Row");
    EXPECT_EQ(Cell(page, 17, 0), L"17");
    EXPECT_EQ(Cell(page, 17, 6), L"0x17"); // byte 107 of the large record
    DestroyWindow(page);
}

TEST_F(ParamFilePages, ExportAsksForAFileProposingTheChipsNameAndSaysItSavedIt) {
    TempFolder folder(L"export_\u53c2\u6570");
    HWND page = Open(kIcn2055ExType, chip);
    const std::wstring target = folder.File(L"\u5bc4\u5b58\u5668.csv");
    bool exportEnabledWhileOpen = true;
    {
        FileDialogWatcher dialogs({target});
        dialogs.WhileOpen(
            [&] { exportEnabledWhileOpen = IsWindowEnabled(GetDlgItem(page, kExport)) != FALSE; });
        MessageBoxWatcher boxes;
        Click(page, kExport);
        const auto seen = dialogs.Dialogs();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].proposedName, L"ChipICN2055Param.csv");
        EXPECT_EQ(seen[0].fileTypes, (std::vector<std::wstring>{L"(*.csv)", L"All Files (*.*)"}));
        EXPECT_TRUE(seen[0].prompts.empty());
        const auto messages = boxes.Boxes();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, L"The parameter file has been saved.");
        EXPECT_EQ(messages[0].caption, ApplicationCaption());
        EXPECT_TRUE(messages[0].hasInformationIcon);
    }
    EXPECT_FALSE(exportEnabledWhileOpen) << "Export is disabled while it runs";
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(page, kExport)));
    const auto lines = Lines(folder.Read(L"\u5bc4\u5b58\u5668.csv"));
    ASSERT_EQ(lines.size(), 47u);
    EXPECT_EQ(lines[0], "CHIP_ICN2055_PARAMETER_FILE");
    EXPECT_EQ(lines[1], "Addr,RReg,GReg,BReg");
    EXPECT_EQ(lines[3], "0x01,0x0f,0x14,0x19");
    EXPECT_EQ(chip.CallNames(false), Names{}) << "an export changes nothing in the chip";

    // Saving over the file again: the dialog asks before replacing it.
    {
        FileDialogWatcher dialogs({target});
        MessageBoxWatcher boxes;
        Click(page, kExport);
        const auto seen = dialogs.Dialogs();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].prompts.size(), 1u);
        EXPECT_EQ(boxes.Boxes().size(), 1u);
    }
    DestroyWindow(page);
}

TEST_F(ParamFilePages, CancellingEitherDialogDoesNothingAndSaysNothing) {
    HWND page = Open(kIcn2055ExType, chip);
    FileDialogWatcher dialogs({L"", L""});
    MessageBoxWatcher boxes;
    Click(page, kExport);
    Click(page, kImport);
    EXPECT_EQ(dialogs.Dialogs().size(), 2u);
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(chip.CallNames(false), Names{});
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(page, kExport)));
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(page, kImport)));
    DestroyWindow(page);
}

TEST_F(ParamFilePages, ImportHandsTheFileToTheHostAndAnExportGivesItBack) {
    TempFolder folder(L"import");
    std::string file = "CHIP_ICN2055_PARAMETER_FILE,,,\r\nAddr,RReg,GReg,BReg\r\n";
    for (int row = 0; row < 45; ++row) {
        char line[64];
        std::snprintf(line, sizeof line, "0x%02x,0x%02x,0x%02x,0x%02x\r\n", row, 0x40 + row, 0x80 + row,
                      0xc0 + row);
        file += line;
    }
    folder.Write(L"in.csv", file);
    HWND page = Open(kIcn2055ExType, chip);
    {
        FileDialogWatcher dialogs({folder.File(L"in.csv")});
        MessageBoxWatcher boxes;
        Click(page, kImport);
        const auto seen = dialogs.Dialogs();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].proposedName, L"");
        const auto messages = boxes.Boxes();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, L"The parameter file has been loaded into the chip.");
        EXPECT_TRUE(messages[0].hasInformationIcon);
    }
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "SetRegDataEx", "SetRegData2", "SetRegData3",
                                            "MarkModified", "UpdateHostState"}));
    EXPECT_EQ(chip.regData2[0], 0x40);
    EXPECT_EQ(chip.regData2[41 * 3 + 2], 0xc0 + 41);
    EXPECT_EQ(chip.regDataEx[2 * 3 + 1], 0x80 + 44);
    EXPECT_EQ(Cell(page, 44, 3), L"0xec") << "the list shows what the chip now holds";
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(page, kImport)));

    {
        FileDialogWatcher dialogs({folder.File(L"out.csv")});
        MessageBoxWatcher boxes;
        Click(page, kExport);
    }
    EXPECT_EQ(folder.Read(L"out.csv"), "CHIP_ICN2055_PARAMETER_FILE\r\n" + file.substr(file.find("Addr")));

    // Cancel puts the chip back as the page found it.
    chip.ClearLog();
    Click(page, kCancel);
    EXPECT_EQ(chip.regData2[0], 0);
    EXPECT_EQ(chip.regData2[1], 5);
    EXPECT_EQ(chip.CallNames(false), (Names{"SetRegData", "SetRegDataEx", "SetRegData2", "SetRegData3"}));
    EXPECT_FALSE(IsWindow(page));
}

TEST_F(ParamFilePages, AnotherChipsFileIsRefusedAndTheChipKeepsItsTable) {
    TempFolder folder(L"refused");
    folder.Write(L"other.csv",
                 "CHIP_ICN2065_PARAMETER_FILE\r\nAddr,RReg,GReg,BReg\r\n0x00,0x01,0x02,0x03\r\n");
    const auto before = chip.regData2;
    HWND page = Open(kIcn2055ExType, chip);
    {
        FileDialogWatcher dialogs({folder.File(L"other.csv")});
        MessageBoxWatcher boxes;
        Click(page, kImport);
        const auto messages = boxes.Boxes();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text,
                  L"The parameter file could not be loaded. Check that it is a parameter file of this chip.");
        EXPECT_TRUE(messages[0].hasInformationIcon);
        EXPECT_FALSE(messages[0].hasErrorIcon);
    }
    EXPECT_EQ(chip.regData2, before);
    EXPECT_EQ(chip.CallNames(false), Names{});

    // In Chinese, the same refusal in the operator's language.
    InstallHostCallback(1);
    {
        FileDialogWatcher dialogs({folder.File(L"other.csv")});
        MessageBoxWatcher boxes;
        Click(page, kImport);
        const auto messages = boxes.Boxes();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text,
                  L"\u53c2\u6570\u6587\u4ef6\u5bfc\u5165\u5931\u8d25\uff0c\u8bf7\u786e\u8ba4"
                  L"\u5b83\u662f\u672c\u82af\u7247\u7684\u53c2\u6570\u6587\u4ef6\u3002");
    }
    DestroyWindow(page);
}

TEST_F(ParamFilePages, AnExportThatCannotWriteSaysSoAndKeepsTheEarlierFile) {
    TempFolder folder(L"blocked");
    folder.Write(L"keep.csv", "earlier file");
    // The export writes beside its target first; a folder in that place makes the write fail.
    fs::create_directories(fs::path(folder.File(L"keep.csv.regvane-part")));
    HWND page = Open(kIcn2055ExType, chip);
    {
        FileDialogWatcher dialogs({folder.File(L"keep.csv")});
        MessageBoxWatcher boxes;
        Click(page, kExport);
        const auto messages = boxes.Boxes();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, L"The parameter file could not be saved.");
        EXPECT_TRUE(messages[0].hasInformationIcon);
    }
    EXPECT_EQ(folder.Read(L"keep.csv"), "earlier file");
    DestroyWindow(page);
}

TEST_F(ParamFilePages, Mbi5292TellsAWrongTagApartWithAnErrorIcon) {
    TempFolder folder(L"mbi5292");
    folder.Write(L"wrong.csv", "CHIP_ICN2055_PARAMETER_FILE\r\nRegister Count: 1\r\n1,2,3,4,5,6,7,8\r\n");
    folder.Write(L"right.csv", "MBI5292\r\nRegister Count: 1\r\n\r\n1,2,3,4,5,6,7,8\r\n");
    HWND page = Open(kMbi5292ExType, chip);
    FileDialogWatcher dialogs({folder.File(L"wrong.csv"), folder.File(L"right.csv")});
    MessageBoxWatcher boxes;
    Click(page, kImport);
    EXPECT_EQ(chip.CallNames(false), Names{});
    Click(page, kImport);
    const auto messages = boxes.Boxes();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].text, L"This file is not a parameter file of this chip.");
    EXPECT_TRUE(messages[0].hasErrorIcon);
    EXPECT_EQ(messages[1].text, L"The parameter file has been loaded into the chip.");
    EXPECT_EQ(chip.regData2[7], 8);
    EXPECT_EQ(chip.regData2[8], 40) << "rows beyond the stated count keep their values";
    EXPECT_EQ(Cell(page, 0, 8), L"0x08");
    DestroyWindow(page);
}

} // namespace
