// The MBI5153's register bytes as the page writes them: the record word its two flags call for, and
// Default; and its gain and current read-outs either side of the gain's two ranges. Which controls
// write them, and in which calls, is held by the Windows page tests.
#include "dialogs/chips/Mbi5153Registers.h"
#include "readouts/Mbi5153Readouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using Record = std::array<std::uint8_t, 20>;

TEST(Mbi5153Registers, TheFlagsWordGoesLowByteFirstAndDefaultLeavesTheHostsBytes) {
    const struct {
        int flag8026, flag9000;
        std::array<std::uint8_t, 4> bytes10To13;
    } words[] = {{0, 0, {0x02, 0x01, 0x02, 0x01}},
                 {0, 1, {0x01, 0x01, 0x01, 0x01}},
                 {1, 0, {0x01, 0x01, 0x01, 0x01}},
                 {1, 1, {0x00, 0x81, 0x00, 0x81}}};
    for (const auto& word : words) {
        Record record;
        record.fill(0x5A);
        mbi5153::WriteRecordWord(record, mbi5153::RecordWordFor(word.flag8026, word.flag9000));
        Record expected;
        expected.fill(0x5A);
        std::copy(word.bytes10To13.begin(), word.bytes10To13.end(), expected.begin() + 10);
        EXPECT_EQ(record, expected) << word.flag8026 << word.flag9000;
    }

    std::array<std::uint8_t, 16> block, recordA;
    block.fill(0x11);
    recordA.fill(0x77);
    mbi5153::ApplyDefaults(block, recordA);
    EXPECT_EQ(block, (std::array<std::uint8_t, 16>{0x11, 0x11, 0xDF, 0x2B, 0xDF, 0x2B, 0xDF, 0x2B, 0x42, 0x00,
                                                   0x62, 0x00, 0x62, 0x00, 0x00, 0x21}));
    EXPECT_EQ(recordA, (std::array<std::uint8_t, 16>{0x00, 0x21, 0x00, 0x21, 0x77, 0x77, 0x77, 0x77, 0x77,
                                                     0x77, 0x77, 0x77, 0x77, 0x77, 0x77, 0x77}));
}

// Red gain 32, green 63 (with bit 6), blue 43; bit 7 set; bit 2 set and delay step 3 in the second
// register; red's copy (byte 3) is the one the flags show.
TEST(Mbi5153Registers, DecodeReadsEachColoursGainAndTheRedCopysFlags) {
    const std::array<std::uint8_t, 16> block{0x11, 0x22, 0x80, 0x20, 0x80, 0x7F, 0x80, 0x2B,
                                             0x04, 0x06, 0x04, 0x06, 0x04, 0x06, 0x33, 0x44};
    const mbi5153::Settings s = mbi5153::Decode(block);
    EXPECT_EQ(
        (std::array{s.gainRed, s.gainGreen, s.gainBlue, s.flagBit7, s.flagBit6, s.flagBit2, s.delayStep}),
        (std::array{32, 63, 43, 1, 0, 1, 3}));
}

// Codes below 32 scale (3g + 32) / 256, from 32 up (3(g - 32) + 33) / 65; I = factor x 14.03 V / R.
TEST(Mbi5153Readouts, BothGainRangesAndTheCurrentTheyGive) {
    EXPECT_EQ(FormatGainPercent(31), L"49%");  // 125 / 256
    EXPECT_EQ(FormatGainPercent(32), L"51%");  // 33 / 65
    EXPECT_EQ(FormatGainPercent(63), L"194%"); // 126 / 65
    const readouts::CurrentReadout lowest = readouts::ComputeCurrentReadout(0, 1000);
    EXPECT_EQ(lowest.factor, L"0.1"); // 0.125
    EXPECT_EQ(lowest.current, L"1.75 mA");
    const readouts::CurrentReadout highest = readouts::ComputeCurrentReadout(63, 500);
    EXPECT_EQ(highest.factor, L"1.9");
    EXPECT_EQ(highest.current, L"54.39 mA");
}

} // namespace
