// The FM6128 register model against values worked out by hand from the chip documentation; the
// pages themselves are held by the Windows FM612x page tests.
#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace fm612x;

TEST(Fm612xRegisters, Fm6128GainIsKeptInThreeCopiesAndATripleLowBit) {
    std::array<std::uint8_t, kRegData2Bytes> large{};
    WriteFm6128Gain(large, kRed, 127);
    for (const int byte : {79, 85, 91})
        EXPECT_EQ(large[byte], 63) << byte;
    EXPECT_EQ(large[73], 0x07);
    EXPECT_EQ(ReadFm6128Gain(large, kRed), 127);
}

} // namespace
