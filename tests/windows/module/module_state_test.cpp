// The language switch and the callback forwarding, in-process, under a folder tree laid out like the
// host suite (this program lives in testhost\App\Bin).
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/LanguageSwitch.h"
#include "module/ModuleState.h"
#include "module/RegvaneCallback.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::wstring LanguageFolder() {
    const std::wstring exe = HostExecutablePath();
    return exe.substr(0, exe.find_last_of(L'\\') + 1) + L"..\\..\\Language\\Hw\\Regvane\\";
}

void WriteFile(const std::wstring& name, const std::string& bytes) {
    std::ofstream(std::filesystem::path(LanguageFolder() + name), std::ios::binary) << bytes;
}

class LanguageSwitch : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        const std::wstring exe = HostExecutablePath();
        const std::wstring root = exe.substr(0, exe.find_last_of(L'\\') + 1) + L"..\\..\\";
        CreateDirectoryW((root + L"Language").c_str(), nullptr);
        CreateDirectoryW((root + L"Language\\Hw").c_str(), nullptr);
        CreateDirectoryW((root + L"Language\\Hw\\Regvane").c_str(), nullptr);
        WriteFile(L"Multi_eng.ini",
                  "\xEF\xBB\xBF[String]\r\nIDS_ONLY_ENGLISH=English only\r\nIDS_BOTH=English\r\n");
        // UTF-16LE, as translators' tools often save it.
        const std::u16string polish = u"[String]\r\nIDS_BOTH=Polski \u0142\r\n";
        std::string bytes("\xFF\xFE", 2);
        for (char16_t c : polish)
            bytes += std::string{static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
        WriteFile(L"Multi_Polish.ini", bytes);
        WriteFile(L"Multi_Russian.ini", "[String]\nIDS_BOTH=\xD0\xA0\xD1\x83\xD1\x81\n");
    }

    void Switch(int language) {
        callback.language = language;
        callback.log.clear();
        SetHostCallback(&callback);
        SwitchLanguage();
    }

    SimulatedHostCallback callback;
};

TEST_F(LanguageSwitch, IndexThirteenServesPolishWithEnglishBehindIt) {
    Switch(13);
    EXPECT_EQ(callback.log.size(), 1u);
    EXPECT_EQ(callback.log.at(0).name, "GetLanguage");
    EXPECT_EQ(Translator().TranslateString(L"IDS_BOTH"), L"Polski \u0142");
    EXPECT_EQ(Translator().TranslateString(L"IDS_ONLY_ENGLISH"), L"English only");
    EXPECT_EQ(Translator().TranslateString(L"IDS_NOWHERE"), L"IDS_NOWHERE");
    EXPECT_EQ(UIEx_Language(), 13);
}

TEST_F(LanguageSwitch, RussianHasNoFallbackFile) {
    Switch(7);
    const std::wstring fallback = Translator().FallbackPath();
    EXPECT_EQ(fallback, LanguageFolder());
    EXPECT_EQ(Translator().TranslateString(L"IDS_BOTH"), L"\u0420\u0443\u0441");
    EXPECT_EQ(Translator().TranslateString(L"IDS_ONLY_ENGLISH"), L"IDS_ONLY_ENGLISH");
}

TEST_F(LanguageSwitch, UnknownIndicesAndMissingFilesFallToEnglishOrTheId) {
    Switch(14);
    EXPECT_EQ(Translator().TranslateString(L"IDS_BOTH"), L"English");
    Switch(5); // no Japanese file in this tree
    EXPECT_EQ(Translator().TranslateString(L"IDS_BOTH"), L"English");
    EXPECT_EQ(UIEx_Language(), 5);
}

TEST(RegvaneCallback, ForwardsEveryOperationWithItsArgumentsUnchanged) {
    SimulatedHostCallback inner;
    inner.language = 9;
    inner.hostOptionOn = 0xA5;
    inner.hostState = -7;
    CRegvaneCallback forwarding(&inner);
    IRegvaneCallback& callback = forwarding;
    int dialog = 0;

    EXPECT_EQ(callback.QueryHostState(1, -2, INTPTR_MAX), -7);
    callback.Reserved1();
    callback.PostHostCommand(65535, INTPTR_MIN, 0xFF, 0x80, 0x7F, 0xFFFF, 0x8001);
    callback.Reserved3();
    callback.Reserved4();
    callback.Reserved5();
    callback.Reserved6();
    EXPECT_EQ(callback.GetLanguage(), 9);
    callback.SetHostValue(0, INT32_MIN, &dialog);
    EXPECT_EQ(callback.IsHostOptionOn(), 0xA5);

    std::vector<std::string> calls;
    for (const HostCall& call : inner.log)
        calls.push_back(call.ToString());
    EXPECT_EQ(calls,
              (std::vector<std::string>{
                  "QueryHostState(1, -2, " + std::to_string(INTPTR_MAX) + ")",
                  "Reserved1",
                  "PostHostCommand(65535, " + std::to_string(INTPTR_MIN) + ", 255, 128, 127, 65535, 32769)",
                  "Reserved3",
                  "Reserved4",
                  "Reserved5",
                  "Reserved6",
                  "GetLanguage",
                  "SetHostValue(0, " + std::to_string(INT32_MIN) + ", " +
                      std::to_string(reinterpret_cast<std::intptr_t>(&dialog)) + ")",
                  "IsHostOptionOn",
              }));
}

} // namespace
