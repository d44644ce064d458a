// Descriptions the host suite installs beside the language files, read by regvane.dll at run time. This
// program lives in a host-suite tree of its own (descriptiontest\App\Bin, with a copy of the module and
// of the language files), so the descriptions it writes never reach the build's own tree. The layouts
// are made up for the test; nothing here describes a real chip.
#include "TestHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using Calls = std::vector<std::string>;

constexpr int kRawPageType = 7;            // CRegvane_SUM2018, a page class without a description of its own
constexpr int kDescribedType = 65536 + 48; // CRegvaneFM6129Ex, which ships a description
constexpr int kRawByteEdit = 8543, kShippedFieldEdit = 21501;

fs::path PathOf(const char* className) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return fs::path(program).parent_path() / "../../Language/Hw/Regvane/Chips" /
           (className + std::string(".desc"));
}

// A description of one field, a byte of the block edited as a number, under the given control id.
void Write(const char* className, int byte, int id, const std::string& mistake = "") {
    fs::create_directories(PathOf(className).parent_path());
    std::ofstream(PathOf(className), std::ios::binary)
        << "[page]\nclass = " << className << "\n[field test]\nlabel = \"Test byte\"\nbits = " << byte
        << "[7:0]\ncontrol = number\nids = " << id << "\n"
        << mistake;
}

class DescriptionFolder : public ::testing::Test {
protected:
    void SetUp() override {
        InstallHostCallback();
        TearDown();
    }
    void TearDown() override { fs::remove_all(PathOf("").parent_path()); }
    HWND Open(int type) {
        chip = SimulatedChip(static_cast<std::uint16_t>(type), 0);
        HWND page = lib.CreateRegvaneHwnd(type, &chip, L"", frame.View());
        PumpMessages();
        return page;
    }

    RegvaneLibrary& lib = RegvaneLibrary::Get();
    HostFrame frame;
    SimulatedChip chip;
};

TEST_F(DescriptionFolder, AFileDroppedIntoTheFolderTurnsARawPageIntoARealOne) {
    EXPECT_NE(GetDlgItem(Open(kRawPageType), kRawByteEdit), nullptr);

    Write("CRegvane_SUM2018", 4, 500);
    HWND page = Open(kRawPageType);
    HWND edit = GetDlgItem(page, 500);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(GetDlgItem(page, kRawByteEdit), nullptr);
    EXPECT_STREQ(lib.RegvaneDialogClassName(page), "CRegvane_SUM2018");
    chip.ClearLog();
    SetWindowTextW(edit, L"165");
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(chip.regData[4], 165);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "MarkModified", "UpdateHostState"}));

    // The module parses a file once while it stays the same (its time and size): a file rewritten to
    // the same size and given back its time is not read again ...
    FILETIME written{};
    auto fileTime = [](bool set, FILETIME& time) {
        HANDLE file = CreateFileW(PathOf("CRegvane_SUM2018").c_str(), GENERIC_READ | FILE_WRITE_ATTRIBUTES,
                                  FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        set ? SetFileTime(file, nullptr, nullptr, &time) : GetFileTime(file, nullptr, nullptr, &time);
        CloseHandle(file);
    };
    fileTime(false, written);
    Write("CRegvane_SUM2018", 4, 501);
    fileTime(true, written);
    EXPECT_NE(GetDlgItem(Open(kRawPageType), 500), nullptr);
    // ... and a new version is read when the next page opens.
    Write("CRegvane_SUM2018", 5, 5030);
    EXPECT_NE(GetDlgItem(Open(kRawPageType), 5030), nullptr);
}

TEST_F(DescriptionFolder, AFileInTheFolderReplacesTheShippedDescriptionWhileItIsThere) {
    EXPECT_NE(GetDlgItem(Open(kDescribedType), kShippedFieldEdit), nullptr);
    Write("CRegvaneFM6129Ex", 15, 600);
    HWND replaced = Open(kDescribedType);
    EXPECT_NE(GetDlgItem(replaced, 600), nullptr);
    EXPECT_EQ(GetDlgItem(replaced, kShippedFieldEdit), nullptr);
    fs::remove(PathOf("CRegvaneFM6129Ex"));
    EXPECT_NE(GetDlgItem(Open(kDescribedType), kShippedFieldEdit), nullptr);
}

TEST_F(DescriptionFolder, ABrokenFileLeavesTheRawEditorWritesNothingAndIsToldOnce) {
    Write("CRegvane_SUM2018", 4, 500, "colour = red\n"); // line 8
    MessageBoxWatcher boxes;
    HWND page = Open(kRawPageType);
    EXPECT_NE(GetDlgItem(page, kRawByteEdit), nullptr);
    EXPECT_EQ(GetDlgItem(page, 500), nullptr);
    EXPECT_TRUE(chip.CallNames(false).empty());
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    const std::wstring& text = boxes.Boxes()[0].text;
    EXPECT_NE(text.find(L"CRegvane_SUM2018.desc"), std::wstring::npos);
    EXPECT_NE(text.find(L"line 8: unknown key"), std::wstring::npos) << std::string(text.begin(), text.end());

    Open(kRawPageType);
    EXPECT_EQ(boxes.Boxes().size(), 1u) << "told twice";

    // A broken replacement of a shipped description leaves that chip's raw registers too.
    std::ofstream(PathOf("CRegvaneFM6129Ex")) << "[page]\nclass = CRegvaneFM6129Ex\n";
    EXPECT_NE(GetDlgItem(Open(kDescribedType), kRawByteEdit), nullptr);
    EXPECT_EQ(boxes.Boxes().size(), 2u);
}

} // namespace
