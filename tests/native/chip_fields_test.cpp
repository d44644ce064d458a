// Register bit fields as the hand-written pages use them: values are cut to the field's width, never
// rejected, and a write keeps every other bit. The pages' gains, flags and read-outs are held by the
// Windows MBI5153 and FM612x page tests.
#include "dialogs/common/BitField.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

TEST(BitField, WritesTouchOnlyTheFieldAndCutValuesToItsWidth) {
    // Gain in bits 0-5 next to two flags that must survive.
    EXPECT_EQ(bitfield::Write(0xC0, 0, 6, 43), 0xEB);
    EXPECT_EQ(bitfield::Write(0xFF, 0, 6, 0), 0xC0);
    EXPECT_EQ(bitfield::Write(0x00, 0, 6, 65), 0x01) << "64 has no bit in a 6-bit field";
    // A 3-bit field at bit 1: -1 (a combo with no selection) becomes all ones, 7.
    EXPECT_EQ(bitfield::Write(0xF1, 1, 3, -1), 0xFF);
    EXPECT_EQ(bitfield::Write(0x00, 1, 3, 9), 0x02);
    EXPECT_EQ(bitfield::Write(0x00, 7, 1, 2), 0x00) << "only bit 0 of a flag's value counts";
    EXPECT_EQ(bitfield::Write(0xFF, 6, 1, 0), 0xBF);
    EXPECT_EQ(bitfield::Read(0x0E, 1, 3), 7);
    EXPECT_EQ(bitfield::Mask(12), 0xFF);

    // A field beyond a short block is neither written nor read.
    std::array<std::uint8_t, 4> small{};
    const bitfield::Field beyond{9, 0, 8};
    beyond.WriteTo(small, 0xFF);
    EXPECT_EQ(beyond.ReadFrom(small), 0);
    EXPECT_EQ(small, (std::array<std::uint8_t, 4>{}));
}

} // namespace
