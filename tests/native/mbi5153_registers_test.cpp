// The MBI5153's register bytes as the page writes them: the record word its two flags call for, and
// Default. Which controls write them, and in which calls, is held by the Windows page tests.
#include "dialogs/chips/Mbi5153Registers.h"

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

} // namespace
