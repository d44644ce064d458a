// The callback the module hands its pages, in-process. Which language files the host's language
// index reads, and English behind them, is held by the host-language tests of the description folder.
#include "module/RegvaneCallback.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

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
