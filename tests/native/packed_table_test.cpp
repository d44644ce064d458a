// Tables packed for a chip: a file that fits reaches the chip function as the block zlib itself unpacks
// to the table's bytes, followed by the send sequence; a file that cannot be used or does not fit
// reaches nothing.
#include "dialogs/common/ChipTables.h"
#include "workbench/SimulatedChip.h"

#include <zlib.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

// What the host's entry was handed, read while the block is alive.
std::vector<std::uint8_t> g_handed;
std::intptr_t g_unpackedBytes = 0;
int REGVANE_CALL TakeBlock(std::intptr_t block, std::intptr_t size, std::intptr_t unpacked) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(block);
    g_handed.assign(bytes, bytes + size);
    g_unpackedBytes = unpacked;
    return 0;
}

chipdesc::TableSpec Table16(int count) {
    chipdesc::TableSpec table;
    table.valueBits = 16;
    table.minimumCount = table.maximumCount = count;
    table.functionTable = 1;
    table.entry = 200;
    return table;
}

TEST(PackedTable, ATableThatFitsReachesTheChipAsItsCompressedBytesAndOneThatDoesNotReachesNothing) {
    SimulatedChip chip;
    chip.functionTable.entries[200] = TakeBlock;
    // 0x0000, 0x0101, ... 0xFFFF: big-endian, each value's two bytes equal.
    std::string file = "# ramp\r\n";
    for (int i = 0; i < 256; ++i)
        file += std::to_string(i * 257) + (i % 8 == 7 ? "\n" : ", ");
    const TableOutcome sent = SendTable(chip, Table16(256), file);
    ASSERT_EQ(sent.kind, TableOutcome::Kind::Sent);
    ASSERT_EQ(g_handed.size(), 2028u);
    const uLong packed =
        uLong{g_handed[0]} << 24 | uLong{g_handed[1]} << 16 | uLong{g_handed[2]} << 8 | g_handed[3];
    ASSERT_LE(packed, 2024u);
    std::vector<Bytef> unpacked(1024);
    uLongf unpackedSize = static_cast<uLongf>(unpacked.size());
    ASSERT_EQ(uncompress(unpacked.data(), &unpackedSize, g_handed.data() + 4, packed), Z_OK);
    ASSERT_EQ(unpackedSize, 512u);
    EXPECT_EQ(g_unpackedBytes, 512);
    for (std::size_t i = 0; i < 512; ++i)
        ASSERT_EQ(unpacked[i], i / 2) << i;
    for (std::size_t i = 4 + packed; i < g_handed.size(); ++i)
        ASSERT_EQ(g_handed[i], 0) << i;
    EXPECT_EQ(chip.CallNames(),
              (std::vector<std::string>{"GetFunctionTable", "ApplyChip", "NotifyHost", "SetModified"}));
    EXPECT_EQ(chip.log[2].ToString(), "NotifyHost(128, 1)");

    // Noise does not pack: 4096 values, 8 KiB, nothing sent.
    chip.ClearLog();
    std::mt19937 noise(7);
    file.clear();
    for (int i = 0; i < 4096; ++i)
        file += std::to_string(noise() & 0xFFFF) + " ";
    const TableOutcome tooLarge = SendTable(chip, Table16(4096), file);
    EXPECT_EQ(tooLarge.kind, TableOutcome::Kind::TooLarge);
    EXPECT_GT(tooLarge.packedBytes, 2024u);
    EXPECT_TRUE(chip.log.empty());

    // A file that cannot be used names its line; a host without the function is told apart.
    chip.functionTable.entries[200] = nullptr;
    EXPECT_EQ(SendTable(chip, Table16(4), "1 2 # 3\n65536\n").problem.line, 2);
    EXPECT_EQ(SendTable(chip, Table16(4), "1 2\n\n3 4 5").problem.line, 3);
    EXPECT_EQ(SendTable(chip, Table16(4),
                        "\xEF\xBB\xBF"
                        "1, 0x2, 3\n0X4\n")
                  .kind,
              TableOutcome::Kind::NotOffered);
    EXPECT_EQ(chip.CallNames(), (std::vector<std::string>{"GetFunctionTable"}));
}

} // namespace
