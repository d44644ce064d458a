// The MBI5153 register layout: decoding, the record word of the two flags, and the defaults.
#include "dialogs/chips/Mbi5153Registers.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

TEST(Mbi5153Registers, DecodeTakesEachGainFromItsColourAndTheRestFromRed) {
    const std::array<std::uint8_t, 16> block{0,    0,    0x80, 0x20, 0x00, 0x7F, 0x00, 0x2B,
                                             0x04, 0x0E, 0x00, 0x00, 0x00, 0x00, 0,    0};
    const mbi5153::Settings settings = mbi5153::Decode(block);
    EXPECT_EQ(settings.gainRed, 32);
    EXPECT_EQ(settings.gainGreen, 63);
    EXPECT_EQ(settings.gainBlue, 43);
    EXPECT_EQ(settings.flagBit7, 1);
    EXPECT_EQ(settings.flagBit6, 0) << "green's bit 6 does not count";
    EXPECT_EQ(settings.flagBit2, 1);
    EXPECT_EQ(settings.delayStep, 7);
}

TEST(Mbi5153Registers, RecordWordFollowsBothFlagsLittleEndianAtOffsetTen) {
    EXPECT_EQ(mbi5153::RecordWordFor(0, 0), 0x01020102u);
    EXPECT_EQ(mbi5153::RecordWordFor(0, 1), 0x01010101u);
    EXPECT_EQ(mbi5153::RecordWordFor(1, 0), 0x01010101u);
    EXPECT_EQ(mbi5153::RecordWordFor(1, 1), 0x81008100u);
    EXPECT_EQ(mbi5153::RecordWordFor(2, 3), 0x01010101u) << "flags are one bit wide";

    std::array<std::uint8_t, 20> record{};
    record.fill(0xEE);
    mbi5153::WriteRecordWord(record, 0x81008100u);
    EXPECT_EQ(record[9], 0xEE);
    EXPECT_EQ(record[10], 0x00);
    EXPECT_EQ(record[11], 0x81);
    EXPECT_EQ(record[12], 0x00);
    EXPECT_EQ(record[13], 0x81);
    EXPECT_EQ(record[14], 0xEE);
}

TEST(Mbi5153Registers, DefaultsKeepTheHostBytesAndSetTheGainsTo43) {
    std::array<std::uint8_t, 16> block;
    block.fill(0xA5);
    std::array<std::uint8_t, 16> recordA;
    recordA.fill(0x77);
    mbi5153::ApplyDefaults(block, recordA);
    EXPECT_EQ(block, (std::array<std::uint8_t, 16>{0xA5, 0xA5, 0xDF, 0x2B, 0xDF, 0x2B, 0xDF, 0x2B, 0x42, 0x00,
                                                   0x62, 0x00, 0x62, 0x00, 0x00, 0x21}));
    EXPECT_EQ(recordA[0], 0x00);
    EXPECT_EQ(recordA[1], 0x21);
    EXPECT_EQ(recordA[2], 0x00);
    EXPECT_EQ(recordA[3], 0x21);
    EXPECT_EQ(recordA[4], 0x77);
    const mbi5153::Settings settings = mbi5153::Decode(block);
    EXPECT_EQ(settings.gainGreen, mbi5153::kDefaultGain);
    EXPECT_EQ(settings.flagBit7, 1);
    EXPECT_EQ(settings.flagBit6, 0);
    EXPECT_EQ(settings.flagBit2, 0);
    EXPECT_EQ(settings.delayStep, 0);
}

TEST(Mbi5153Registers, DelayStepsReadInNanoseconds) {
    EXPECT_EQ(mbi5153::DelayStepText(0), L"0ns");
    EXPECT_EQ(mbi5153::DelayStepText(7), L"35ns");
}

} // namespace
