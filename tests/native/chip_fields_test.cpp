// Register bit fields and the gain/current read-outs shared by the chip pages.
#include "dialogs/common/BitField.h"
#include "dialogs/common/Readouts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

using bitfield::ColourField;
using bitfield::Field;

TEST(BitField, MasksAreBuiltBitByBitAndKeptToOneByte) {
    EXPECT_EQ(bitfield::Mask(0), 0x00);
    EXPECT_EQ(bitfield::Mask(1), 0x01);
    EXPECT_EQ(bitfield::Mask(2), 0x03);
    EXPECT_EQ(bitfield::Mask(3), 0x07);
    EXPECT_EQ(bitfield::Mask(6), 0x3F);
    EXPECT_EQ(bitfield::Mask(8), 0xFF);
    EXPECT_EQ(bitfield::Mask(12), 0xFF);
}

TEST(BitField, WritesTouchOnlyTheFieldAndCutValuesToItsWidth) {
    // Gain in bits 0-5 next to two flags that must survive.
    EXPECT_EQ(bitfield::Write(0xC0, 0, 6, 43), 0xEB);
    EXPECT_EQ(bitfield::Write(0xFF, 0, 6, 0), 0xC0);
    EXPECT_EQ(bitfield::Write(0x00, 0, 6, 64), 0x00) << "64 has no bit in a 6-bit field";
    EXPECT_EQ(bitfield::Write(0x00, 0, 6, 65), 0x01);
    // A 3-bit field at bit 1: -1 (a combo with no selection) becomes all ones, 7.
    EXPECT_EQ(bitfield::Write(0xF1, 1, 3, -1), 0xFF);
    EXPECT_EQ(bitfield::Write(0xFF, 1, 3, 0), 0xF1);
    EXPECT_EQ(bitfield::Write(0x00, 1, 3, 9), 0x02);
    // One-bit flags: only bit 0 of the value counts.
    EXPECT_EQ(bitfield::Write(0x00, 7, 1, 1), 0x80);
    EXPECT_EQ(bitfield::Write(0x00, 7, 1, 2), 0x00);
    EXPECT_EQ(bitfield::Write(0xFF, 6, 1, 0), 0xBF);
    EXPECT_EQ(bitfield::Read(0xEB, 0, 6), 43);
    EXPECT_EQ(bitfield::Read(0x0E, 1, 3), 7);
    EXPECT_EQ(bitfield::Read(0x40, 6, 1), 1);
}

TEST(BitField, ColourFieldsWriteRedGreenBlueTwoBytesApart) {
    std::array<std::uint8_t, 16> block{};
    block.fill(0x55);
    const ColourField gain{3, 0, 6};
    gain.WriteAll(block, 0x2A);
    const std::array<std::uint8_t, 16> expected{0x55, 0x55, 0x55, 0x6A, 0x55, 0x6A, 0x55, 0x6A,
                                                0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(block, expected);
    EXPECT_EQ(gain.Of(2).byte, 7);
    EXPECT_EQ(gain.ReadFrom(block), 0x2A);

    // Red alone stands for the colours when they disagree.
    block[3] = 0x01;
    EXPECT_EQ(gain.ReadFrom(block), 1);
}

TEST(BitField, FieldsOutsideTheBlockAreIgnored) {
    std::array<std::uint8_t, 4> small{};
    const Field beyond{9, 0, 8};
    beyond.WriteTo(small, 0xFF);
    EXPECT_EQ(beyond.ReadFrom(small), 0);
    EXPECT_EQ(small, (std::array<std::uint8_t, 4>{}));
}

TEST(Readouts, GainPercentFollowsBothRangesOfTheGainCode) {
    EXPECT_EQ(FormatGainPercent(31), L"49%");
    EXPECT_EQ(FormatGainPercent(32), L"51%");
    EXPECT_EQ(FormatGainPercent(43), L"102%");
    EXPECT_EQ(FormatGainPercent(63), L"194%");
    // Codes a host should never send still read sensibly.
    EXPECT_EQ(FormatGainPercent(-1), L"11%");
}

TEST(Readouts, GainFactorSwitchesRangeAtThirtyTwo) {
    EXPECT_FLOAT_EQ(readouts::GainFactor(31.0f), 125.0f / 256.0f);
    EXPECT_FLOAT_EQ(readouts::GainFactor(31.5f), (3.0f * 31.5f + 32.0f) / 256.0f);
    EXPECT_FLOAT_EQ(readouts::GainFactor(32.0f), 33.0f / 65.0f);
}

TEST(Readouts, CurrentLabelsAreRoundedBeforeFormatting) {
    auto readout = readouts::ComputeCurrentReadout(32.0f, 1000.0f);
    EXPECT_EQ(readout.factor, L"0.5");
    EXPECT_EQ(readout.current, L"7.12 mA");

    readout = readouts::ComputeCurrentReadout(63.0f, 1000.0f);
    EXPECT_EQ(readout.factor, L"1.9");
    EXPECT_EQ(readout.current, L"27.20 mA");

    // Half the resistance, twice the current.
    readout = readouts::ComputeCurrentReadout(43.0f, 500.0f);
    EXPECT_EQ(readout.factor, L"1.0");
    EXPECT_EQ(readout.current, L"28.49 mA");
}

} // namespace
