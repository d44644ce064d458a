// regvane.dll's module-wide entry points as a host calls them. That every entry point is found by its
// plain name is held by every test here: the test host loads them so, and the C host links them so.
#include "TestHost.h"

#include <gtest/gtest.h>

namespace {

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
