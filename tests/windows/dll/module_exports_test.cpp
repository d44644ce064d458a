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
