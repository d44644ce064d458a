// The language switch and the callback forwarding, in-process, under a folder tree laid out like the
// host suite (this program lives in testhost\App\Bin).
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/LanguageSwitch.h"
#include "module/ModuleState.h"
#include "module/RegvaneCallback.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

// The host's language index decides the files read from two levels above the executable: English
// behind every other language, so a text a translation lacks, or a missing file, shows in English.
TEST(LanguageSwitch, ReadsTheHostsLanguageFileWithEnglishBehindIt) {
    const std::filesystem::path folder =
        std::filesystem::path(HostExecutablePath()).parent_path() / "../../Language/Hw/Regvane";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "Multi_eng.ini", std::ios::binary)
        << "\xEF\xBB\xBF[String]\r\nIDS_ONLY_ENGLISH=English only\r\nIDS_BOTH=English\r\n";
    // UTF-16LE, as translators' tools often save it.
    std::string polish("\xFF\xFE", 2);
    for (char16_t c : std::u16string(u"[String]\r\nIDS_BOTH=Polski \u0142\r\n"))
        polish += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    std::ofstream(folder / "Multi_Polish.ini", std::ios::binary) << polish;

    SimulatedHostCallback callback;
    SetHostCallback(&callback);
    callback.language = 13;
    SwitchLanguage();
    EXPECT_EQ(callback.log.size(), 1u) << "the host is asked once";
    EXPECT_EQ(Translator().TranslateString(L"IDS_BOTH"), L"Polski \u0142");
    EXPECT_EQ(Translator().TranslateString(L"IDS_ONLY_ENGLISH"), L"English only");
    EXPECT_EQ(UIEx_Language(), 13);

    callback.language = 5; // no Japanese file in this tree
    SwitchLanguage();
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

    // Pointer-sized arguments beyond 32 bits, so none is cut on the way.
    EXPECT_EQ(callback.QueryHostState(1, -2, 0x7FFFFFFFFFFF), -7);
    callback.Reserved1();
    callback.PostHostCommand(65535, -0x123456789, 0xFF, 0x80, 0x7F, 0xFFFF, 0x8001);
    callback.Reserved3();
    callback.Reserved4();
    callback.Reserved5();
    callback.Reserved6();
    EXPECT_EQ(callback.GetLanguage(), 9);
    callback.SetHostValue(0, INT32_MIN, reinterpret_cast<void*>(0x123456789AB));
    EXPECT_EQ(callback.IsHostOptionOn(), 0xA5);

    std::vector<std::string> calls;
    for (const HostCall& call : inner.log)
        calls.push_back(call.ToString());
    EXPECT_EQ(calls,
              (std::vector<std::string>{"QueryHostState(1, -2, 140737488355327)", "Reserved1",
                                        "PostHostCommand(65535, -4886718345, 255, 128, 127, 65535, 32769)",
                                        "Reserved3", "Reserved4", "Reserved5", "Reserved6", "GetLanguage",
                                        "SetHostValue(0, -2147483648, 1250999896491)", "IsHostOptionOn"}));
}

} // namespace
