// Register arrays drawn as grids: where each row's cells lie, the rows' names, and the refusals of a
// grid that leaves its record, crosses a byte, overlaps a field or names its rows badly.
#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionGrids.h"

#include <gtest/gtest.h>

namespace {

using namespace chipdesc;

const std::string kPage = "[page]\nclass = CRegvaneGridTest\n[field level]\nlabel = \"L\"\nbits = 4[7:0]\n"
                          "control = number\n";
const std::string kGrid =
    "[grid g]\nrecord = block\nrows = 4\nbit-step = 4\nstep = 0\nrow-names = \"R %d-%d\"\n"
    "per = 2\nfirst = 0\n[field t]\ngrid = g\nlabel = \"T\"\nbits = 0[3:0]\ncontrol = hex\n";

TEST(RegisterGrid, CellsPackAtTheirStepAndRowsAreNamedByGroup) {
    const auto parsed = Parse(kPage + kGrid, {});
    ASSERT_TRUE(std::holds_alternative<Description>(parsed)) << std::get<ParseError>(parsed).line;
    const Description& d = std::get<Description>(parsed);
    ASSERT_EQ(d.grids.size(), 1u);
    const Field& row3 = d.fields[static_cast<std::size_t>(d.grids[0].Cell(3, 0))];
    EXPECT_EQ(row3.positions[0].runs[0].copies[0].byte, 1); // rows 2 and 3 share byte 1
    EXPECT_EQ(row3.positions[0].runs[0].copies[0].lsb, 4);
    std::array<std::uint8_t, 16> block{};
    WriteValue(row3, block, 0, 0xA);
    EXPECT_EQ(block[1], 0xA0);
    EXPECT_EQ(RowName(d.grids[0], L"R %d-%d (%%)", 3), L"R 1-1 (%)");
    int value = 0;
    EXPECT_TRUE(ParseCell(row3, L"0xc", value));
    EXPECT_EQ(value, 12);
    EXPECT_FALSE(ParseCell(row3, L"g", value));
}

TEST(RegisterGrid, ABadGridIsRefusedAtItsLine) {
    auto with = [&](const std::string& from, const std::string& to) {
        std::string text = kPage + kGrid;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    const struct {
        std::string text;
        int line;
        ErrorCode code;
    } cases[] = {
        {with("rows = 4", "rows = 129"), 9, ErrorCode::OutOfRange},     // more cells than the block has bits
        {with("rows = 4", "rows = 33"), 9, ErrorCode::OutsideRecord},   // row 32 at byte 16
        {with("bit-step = 4", "bit-step = 6"), 10, ErrorCode::BadBits}, // row 1 at bits 6..9
        {with("\"R %d-%d\"", "\"R %s\""), 12, ErrorCode::BadValue},
        {with("per = 2\n", ""), 12, ErrorCode::MissingKey},
        {with("bits = 4[7:0]", "bits = 1[4]"), 18, ErrorCode::Overlap}, // row 3's trim
        {with("grid = g", "grid = h"), 16, ErrorCode::BadValue},
        {with("control = hex", "control = slider"), 19, ErrorCode::BadValue},
    };
    for (const auto& [text, line, code] : cases) {
        const auto parsed = Parse(text, {});
        ASSERT_TRUE(std::holds_alternative<ParseError>(parsed)) << text;
        EXPECT_EQ(std::get<ParseError>(parsed).line, line) << text;
        EXPECT_EQ(std::get<ParseError>(parsed).code, code) << text;
    }
    // Cells are named by column and row: row 0 of a column in bit 4 lies under row 1 of t.
    const std::string u = "[field u]\ngrid = g\nlabel = \"U\"\nbits = 0[4]\ncontrol = hex\n";
    EXPECT_EQ(std::get<ParseError>(Parse(kPage + kGrid + u, {})).detail, "u.0");
}

} // namespace
