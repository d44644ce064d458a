// regvane.dll as a host sees it: loaded by path, entry points found by plain name.
#include "TestHost.h"

#include <gtest/gtest.h>

namespace {

TEST(ModuleExports, LoadsAndExportsEveryEntryPointByPlainName) {
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    ASSERT_NE(lib.module, nullptr);
    for (const char* name : {"InitRegvane", "RegvaneLanguageChanged", "CreateRegvaneWnd", "CreateRegvaneHwnd",
                             "RegvaneDialogClassName"})
        EXPECT_NE(GetProcAddress(lib.module, name), nullptr) << name;
    EXPECT_EQ(GetProcAddress(lib.module, "_InitRegvane"), nullptr);
}

TEST(ModuleExports, LanguageChangeAsksTheLatestCallbackOnce) {
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    SimulatedHostCallback first, second;
    lib.InitRegvane(&first);
    lib.InitRegvane(&second);
    lib.RegvaneLanguageChanged();
    EXPECT_TRUE(first.log.empty());
    ASSERT_EQ(second.log.size(), 1u);
    EXPECT_EQ(second.log[0].name, "GetLanguage");
}

TEST(ModuleExports, ForeignWindowsHaveNoDialogClassName) {
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    HostFrame host;
    EXPECT_EQ(lib.RegvaneDialogClassName(host.Frame()), nullptr);
    EXPECT_EQ(lib.RegvaneDialogClassName(nullptr), nullptr);
}

} // namespace

namespace {

// The harness itself: a message box shown on the test thread is answered and its content seen.
TEST(TestHarness, MessageBoxWatcherAnswersBoxesOnTheTestThread) {
    MessageBoxWatcher watcher;
    EXPECT_EQ(MessageBoxW(nullptr, L"Value must be hexadecimal", L"Host", MB_OK | MB_ICONINFORMATION), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, L"Second", L"Host", MB_OK | MB_ICONERROR), IDOK);
    const auto seen = watcher.Boxes();
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].text, L"Value must be hexadecimal");
    EXPECT_EQ(seen[0].caption, L"Host");
    EXPECT_TRUE(seen[0].hasInformationIcon);
    EXPECT_FALSE(seen[0].hasErrorIcon);
    EXPECT_TRUE(seen[1].hasErrorIcon);
}

} // namespace
