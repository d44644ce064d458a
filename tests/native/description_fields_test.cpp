// Combo items with their own values, read-only values and the format version: what the parser takes
// and refuses (at which line), and how an item's value is stored and read back. What the page does
// with them is held by the Windows test of described fields.
#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace chipdesc;

bool AnyId(std::string_view id) {
    return id.rfind("IDS_", 0) == 0;
}

// Two bits kept twice, stored XOR 1; value 1 has no item.
const std::string kPage = R"([page]
format-version = 2
class = CRegvaneExampleChip

[field speed]
label = IDS_Speed
bits = 4[1:0]=6[3:2]
coding = xor 1
control = combo
items = 2 "Slow", 3 "Fast", 0 IDS_Off
default = 2

[field state]
label = IDS_State
bits = 12[5:4]
access = read-only
control = combo
items = IDS_Normal IDS_Test
)";

std::variant<Description, ParseError> ParsedWith(const std::string& from, const std::string& to) {
    std::string text = kPage;
    text.replace(text.find(from), from.size(), to);
    return Parse(text, AnyId);
}

TEST(DescriptionFields, ItemsWithGapsAreStoredByTheirValueAndAnUnnamedValueIsShownAsItsNumber) {
    const Description description = std::get<Description>(Parse(kPage, AnyId));
    const Field& speed = description.fields[0];
    EXPECT_EQ(description.page.formatVersion, 2);
    EXPECT_EQ(std::make_pair(speed.minimum, speed.maximum), std::make_pair(0, 3));
    std::array<std::uint8_t, 16> block{};
    block.fill(0xFF);
    WriteValue(speed, block, 0, speed.itemCodes[1]); // "Fast": 3, stored 2 in both places
    EXPECT_EQ(block[4], 0xFE);
    EXPECT_EQ(block[6], 0xFB);
    block[4] = 0xF3; // stored 3: shown 2, the first item
    EXPECT_EQ(ItemOf(speed, ReadValue(speed, block, 0)), 0);
    block[4] = 0xF0; // stored 0: shown 1, which no item names
    const int unnamed = ReadValue(speed, block, 0);
    EXPECT_EQ(ItemOf(speed, unnamed), -1);
    LayoutTexts texts;
    EXPECT_EQ(ValueText(speed, unnamed, texts), L"1");
    EXPECT_EQ(ValueText(speed, 3, texts), L"Fast");
    // Items without values stand for 0, 1, ...
    EXPECT_EQ(description.fields[1].itemCodes, (std::vector<int>{0, 1}));
}

TEST(DescriptionFields, EveryBadItemReadOnlyFieldAndVersionIsRefusedAtItsLine) {
    const struct {
        std::string from, to;
        int line;
        ErrorCode code;
    } cases[] = {
        {"0 IDS_Off", "4 IDS_Over", 10, ErrorCode::ItemsDoNotFit},
        {"0 IDS_Off", "3 IDS_Again", 10, ErrorCode::DuplicateKey},
        {"0 IDS_Off", "0", 10, ErrorCode::BadValue},
        {"default = 2", "default = 1", 11, ErrorCode::RangeDoesNotFit},
        {"control = combo\nitems = IDS_Normal", "control = slider\n#", 16, ErrorCode::BadValue},
        {"access = read-only", "access = read-only\ndefault = 0", 17, ErrorCode::BadValue},
        {"access = read-only", "access = read-only\non-fill = rewrite", 17, ErrorCode::BadValue},
        {"access = read-only", "access = maybe", 16, ErrorCode::BadValue},
        {"format-version = 2", "format-version = 0", 2, ErrorCode::BadValue},
        // A newer file is refused as newer, not for a key of its own that comes first.
        {"format-version = 2\nclass", "shape = round\nformat-version = 3\nclass", 3, ErrorCode::NewerFormat},
    };
    for (const auto& bad : cases) {
        SCOPED_TRACE(bad.to);
        const auto result = ParsedWith(bad.from, bad.to);
        ASSERT_TRUE(std::holds_alternative<ParseError>(result));
        EXPECT_EQ(std::get<ParseError>(result).line, bad.line);
        EXPECT_EQ(std::get<ParseError>(result).code, bad.code);
    }
}

} // namespace
