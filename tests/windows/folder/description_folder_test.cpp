// Descriptions the host suite installs beside the language files, read by regvane.dll at run time. This
// program lives in a host-suite tree of its own (descriptiontest\App\Bin, with a copy of the module and
// of the language files), so the descriptions it writes never reach the build's own tree. The layouts
// are made up for the test; nothing here describes a real chip.
#include "TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int kRawPageType = 7;            // CRegvane_SUM2018, a page class without a description of its own
constexpr int kDescribedType = 65536 + 48; // CRegvaneFM6129Ex, which ships a description
constexpr int kRawByteEdit = 8543, kShippedFieldEdit = 21501;
constexpr int kFm6126LinkSwitch = 21016;

fs::path PathOf(const char* className) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return fs::path(program).parent_path() / "../../Language/Hw/Regvane/Chips" /
           (className + std::string(".desc"));
}

// The caption of a page and the texts of all its windows.
std::vector<std::wstring> TextsOf(HWND page) {
    std::vector<std::wstring> texts{WindowText(page)};
    EnumChildWindows(
        page,
        [](HWND window, LPARAM found) {
            reinterpret_cast<std::vector<std::wstring>*>(found)->push_back(WindowText(window));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texts));
    return texts;
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
        DescriptionFolder::TearDown();
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
    // What its controls write is the described page's, held by its own tests.
    HWND page = Open(kRawPageType);
    EXPECT_NE(GetDlgItem(page, 500), nullptr);
    EXPECT_EQ(GetDlgItem(page, kRawByteEdit), nullptr);
    EXPECT_STREQ(lib.RegvaneDialogClassName(page), "CRegvane_SUM2018");

    // The module parses a file once while it stays the same (its time and size): a file rewritten to
    // the same size and given back its time is not read again; a new version is read when the next
    // page opens.
    HANDLE file = CreateFileW(PathOf("CRegvane_SUM2018").c_str(), GENERIC_READ | FILE_WRITE_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    FILETIME written{};
    GetFileTime(file, nullptr, nullptr, &written);
    Write("CRegvane_SUM2018", 4, 501);
    SetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
    EXPECT_NE(GetDlgItem(Open(kRawPageType), 500), nullptr);
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
    Write("CRegvane_SUM2018", 4, 500, "colour = red\nshape = round\n"); // lines 8 and 9
    MessageBoxWatcher boxes;
    HWND page = Open(kRawPageType);
    EXPECT_NE(GetDlgItem(page, kRawByteEdit), nullptr);
    EXPECT_EQ(GetDlgItem(page, 500), nullptr);
    EXPECT_TRUE(chip.CallNames(false).empty());
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    const std::wstring& text = boxes.Boxes()[0].text;
    EXPECT_NE(text.find(L"CRegvane_SUM2018.desc"), std::wstring::npos);
    EXPECT_NE(text.find(L"line 8: unknown key"), std::wstring::npos) << std::string(text.begin(), text.end());
    EXPECT_NE(text.find(L"Further problems in the file: 1."), std::wstring::npos); // one message, of the first

    Open(kRawPageType);
    EXPECT_EQ(boxes.Boxes().size(), 1u) << "told twice";

    // A broken replacement of a shipped description leaves the module's own, and says so once.
    std::ofstream(PathOf("CRegvaneFM6129Ex")) << "[page]\nclass = CRegvaneFM6129Ex\n";
    EXPECT_NE(GetDlgItem(Open(kDescribedType), kShippedFieldEdit), nullptr);
    EXPECT_NE(GetDlgItem(Open(kDescribedType), kShippedFieldEdit), nullptr);
    ASSERT_EQ(boxes.Boxes().size(), 2u);
    EXPECT_NE(boxes.Boxes()[1].text.find(L"module's own description"), std::wstring::npos);
}

// The host suite's language folder as a user's machine may have it: files of an older release, or
// of the suite's own translators, that know only a few of this module's texts; or no folder at all;
// or Russian, which has no fallback file. Every described page still opens described, in the host's
// language where its files have a text and in English where they do not, without a message box.
class HostLanguageFiles : public DescriptionFolder {
protected:
    // The shipped language files are set aside for the test and put back after it.
    void SetUp() override {
        DescriptionFolder::SetUp();
        fs::rename(LanguageFolder(), SetAside());
        fs::create_directories(LanguageFolder());
    }
    void TearDown() override {
        fs::remove_all(LanguageFolder());
        fs::rename(SetAside(), LanguageFolder());
    }
    static fs::path LanguageFolder() { return PathOf("").parent_path().parent_path(); }
    static fs::path SetAside() { return LanguageFolder().string() + "-shipped"; }

    // Opens each described page and returns the texts its windows show.
    std::vector<std::wstring> OpenEveryDescribedPage(int language) {
        InstallHostCallback(language);
        std::vector<std::wstring> texts;
        for (const int type : kDescribedTypes) {
            HWND page = Open(type);
            EXPECT_EQ(GetDlgItem(page, kRawByteEdit), nullptr) << type << " opened as the raw editor";
            const std::vector<std::wstring> shown = TextsOf(page);
            texts.insert(texts.end(), shown.begin(), shown.end());
            DestroyWindow(page);
        }
        return texts;
    }
    static bool Has(const std::vector<std::wstring>& texts, const std::wstring& text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
    static void ExpectNoBareIds(const std::vector<std::wstring>& texts) {
        for (const std::wstring& text : texts)
            EXPECT_TRUE(text.rfind(L"IDS_", 0) != 0 && text.rfind(L"IDD_", 0) != 0)
                << std::string(text.begin(), text.end());
    }

    // Every page class that ships a description, by one of its chip types.
    static constexpr int kDescribedTypes[] = {179,        184,        120,        259,
                                              65536 + 15, 65536 + 25, 65536 + 41, 65536 + 48};
};

TEST_F(HostLanguageFiles, WithOnlyAFewOfOurTextsOrNoneEveryDescribedPageOpensDescribedInEnglish) {
    // UTF-8 with a byte-order mark, as the suite's own files are.
    std::ofstream(LanguageFolder() / "Multi_eng.ini", std::ios::binary)
        << "\xEF\xBB\xBF[String]\r\nIDS_Red=Red\r\nIDS_Green=Green\r\nIDS_Blue=Blue\r\n";
    std::ofstream(LanguageFolder() / "Multi_French.ini", std::ios::binary)
        << "\xEF\xBB\xBF[String]\r\nIDS_Red=Rouge\r\nIDS_Default=Par d\xC3\xA9"
           "faut\r\n";
    MessageBoxWatcher boxes;
    std::vector<std::wstring> french = OpenEveryDescribedPage(4);
    ExpectNoBareIds(french);
    EXPECT_TRUE(Has(french, L"Rouge")); // the host's own translation
    EXPECT_TRUE(Has(french, L"Par d\u00e9"
                            "faut"));
    EXPECT_TRUE(Has(french, L"Green"));                // its English file behind it
    EXPECT_TRUE(Has(french, L"Link the three gains")); // the module's own English behind both

    fs::remove(LanguageFolder() / "Multi_eng.ini");
    fs::remove(LanguageFolder() / "Multi_French.ini");
    for (const int language : {7, 3}) { // Russian without a fallback file, then English: no files at all
        const std::vector<std::wstring> english = OpenEveryDescribedPage(language);
        ExpectNoBareIds(english);
        EXPECT_TRUE(Has(english, L"Current gain"));
        EXPECT_TRUE(Has(english, L"Red"));
    }
    EXPECT_EQ(boxes.Boxes().size(), 0u);
}

// A host may open a page before it first tells the module its language.
TEST(FirstLanguageCall, APageOpenedBeforeItShowsEnglishAndOneOpenedAfterItTheHostsLanguage) {
    static SimulatedHostCallback callback;
    callback.language = 1;
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    lib.InitRegvane(&callback);
    HostFrame frame;
    SimulatedChip chip(179, 0);
    HWND before = lib.CreateRegvaneHwnd(179, &chip, L"", frame.View());
    EXPECT_EQ(GetDlgItem(before, kRawByteEdit), nullptr);
    EXPECT_EQ(ItemText(before, kFm6126LinkSwitch), L"Link the three gains");
    lib.RegvaneLanguageChanged();
    HWND after = lib.CreateRegvaneHwnd(179, &chip, L"", frame.View());
    EXPECT_EQ(ItemText(after, kFm6126LinkSwitch), L"\u4e09\u8272\u589e\u76ca\u8054\u52a8");
}

} // namespace
