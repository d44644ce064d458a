// Descriptions the host suite installs beside the language files, read by regvane.dll at run time. This
// program lives in a host-suite tree of its own (descriptiontest\App\Bin, with a copy of the module and
// of the language files), so the descriptions it writes never reach the build's own tree. The layouts
// are made up for the test; nothing here describes a real chip.
#include "TestHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Calls = std::vector<std::string>;

constexpr int kRawPageType = 7; // a page class without a description of its own
constexpr wchar_t kRawPageClass[] = L"CRegvane_SUM2018";
constexpr int kDescribedType = 65536 + 48; // ships a description
constexpr wchar_t kDescribedClass[] = L"CRegvaneFM6129Ex";

std::wstring ChipsFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L'\\') + 1) + L"..\\..\\Language\\Hw\\Regvane\\Chips\\";
}

std::wstring PathOf(const wchar_t* className) {
    return ChipsFolder() + className + L".desc";
}

void Write(const wchar_t* className, const std::string& text) {
    CreateDirectoryW(ChipsFolder().c_str(), nullptr);
    HANDLE file =
        CreateFileW(PathOf(className).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

// A description of one field, a byte of the block edited as a number, under the given control id.
std::string OneField(const char* className, int byte, int id) {
    return std::string("[page]\nclass = ") + className +
           "\n[field test]\nlabel = \"Test byte\"\nbits = " + std::to_string(byte) +
           "[7:0]\ncontrol = number\nids = " + std::to_string(id) + "\n";
}

class DescriptionFolder : public ::testing::Test {
protected:
    void SetUp() override {
        InstallHostCallback();
        TearDown();
    }
    void TearDown() override {
        for (const wchar_t* name : {kRawPageClass, kDescribedClass})
            DeleteFileW(PathOf(name).c_str());
        RemoveDirectoryW(ChipsFolder().c_str());
    }
    HWND Open(int type) {
        chip = SimulatedChip(static_cast<std::uint16_t>(type), 0);
        HWND page = lib.CreateRegvaneHwnd(type, &chip, L"", frame.View());
        pages.push_back(page);
        return page;
    }
    static void Type(HWND page, int id, const wchar_t* text) {
        SetWindowTextW(GetDlgItem(page, id), text);
        SendMessageW(GetDlgItem(page, id), WM_KEYDOWN, VK_RETURN, 0);
    }

    RegvaneLibrary& lib = RegvaneLibrary::Get();
    HostFrame frame;
    SimulatedChip chip;
    std::vector<HWND> pages;
};

TEST_F(DescriptionFolder, AFileDroppedIntoTheFolderTurnsARawPageIntoARealOne) {
    HWND raw = Open(kRawPageType);
    EXPECT_NE(GetDlgItem(raw, 8543), nullptr);

    Write(kRawPageClass, OneField("CRegvane_SUM2018", 4, 500));
    HWND page = Open(kRawPageType);
    ASSERT_NE(GetDlgItem(page, 500), nullptr);
    EXPECT_EQ(GetDlgItem(page, 8543), nullptr);
    EXPECT_STREQ(lib.RegvaneDialogClassName(page), "CRegvane_SUM2018");
    chip.ClearLog();
    Type(page, 500, L"165");
    EXPECT_EQ(chip.regData[4], 165);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "MarkModified", "UpdateHostState"}));
}

TEST_F(DescriptionFolder, AFileInTheFolderReplacesTheShippedDescriptionWhileItIsThere) {
    EXPECT_NE(GetDlgItem(Open(kDescribedType), 21501), nullptr);
    Write(kDescribedClass, OneField("CRegvaneFM6129Ex", 15, 600));
    HWND replaced = Open(kDescribedType);
    EXPECT_NE(GetDlgItem(replaced, 600), nullptr);
    EXPECT_EQ(GetDlgItem(replaced, 21501), nullptr);
    DeleteFileW(PathOf(kDescribedClass).c_str());
    EXPECT_NE(GetDlgItem(Open(kDescribedType), 21501), nullptr);
}

TEST_F(DescriptionFolder, AFileIsReadOncePerVersion) {
    Write(kRawPageClass, OneField("CRegvane_SUM2018", 4, 501));
    ASSERT_NE(GetDlgItem(Open(kRawPageType), 501), nullptr);
    // The same size and time as the file the module read: the module keeps what it parsed.
    FILETIME written{};
    HANDLE file = CreateFileW(PathOf(kRawPageClass).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    GetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
    Write(kRawPageClass, OneField("CRegvane_SUM2018", 4, 502));
    file = CreateFileW(PathOf(kRawPageClass).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0,
                       nullptr);
    SetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
    EXPECT_NE(GetDlgItem(Open(kRawPageType), 501), nullptr);
    // A new version is read again.
    Write(kRawPageClass, OneField("CRegvane_SUM2018", 4, 5030));
    EXPECT_NE(GetDlgItem(Open(kRawPageType), 5030), nullptr);
}

TEST_F(DescriptionFolder, ABrokenFileLeavesTheRawEditorWritesNothingAndIsToldOnce) {
    std::string broken = OneField("CRegvane_SUM2018", 4, 500);
    broken.replace(broken.find("label"), 5, "lable"); // line 4
    Write(kRawPageClass, broken);
    MessageBoxWatcher boxes;
    HWND page = Open(kRawPageType);
    PumpMessages();
    EXPECT_NE(GetDlgItem(page, 8543), nullptr);
    EXPECT_EQ(GetDlgItem(page, 500), nullptr);
    EXPECT_TRUE(chip.CallNames(false).empty());
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    const std::wstring& text = boxes.Boxes()[0].text;
    EXPECT_NE(text.find(L"CRegvane_SUM2018.desc"), std::wstring::npos);
    EXPECT_NE(text.find(L"line 4: unknown key"), std::wstring::npos) << std::string(text.begin(), text.end());

    Open(kRawPageType);
    PumpMessages();
    EXPECT_EQ(boxes.Boxes().size(), 1u) << "told twice";

    // A broken replacement of a shipped description leaves that chip's raw registers too.
    Write(kDescribedClass, "[page]\nclass = CRegvaneFM6129Ex\n");
    HWND fallback = Open(kDescribedType);
    PumpMessages();
    EXPECT_NE(GetDlgItem(fallback, 8543), nullptr);
    EXPECT_EQ(boxes.Boxes().size(), 2u);
}

} // namespace
