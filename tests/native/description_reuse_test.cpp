// Wider descriptions: signed and 32-bit fields against bytes worked out by hand, and fields declared
// once and used again (like another, repeated). Their refusals are rows of the parser's table in
// chip_description_test.cpp; four colour copies are written by a described page's Windows test.
#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"

#include <gtest/gtest.h>

namespace {

using namespace chipdesc;
using Block = std::array<std::uint8_t, 16>;

// A refused description throws, and the test fails saying so.
Description Parsed(const std::string& fields) {
    return std::get<Description>(Parse("[page]\nclass = CRegvaneExampleChip\n" + fields, {}));
}

TEST(WideFields, SignedAnd32BitValuesAreTheBytesWorkedOutByHand) {
    const Description d =
        Parsed("[field count]\nlabel = \"C\"\nbits = 3[7:0] 2[7:0] 1[7:0] 0[7:0]\n"
               "control = number\n[field trim]\nlabel = \"T\"\nbits = 4[7:0]\n"
               "signed = twos-complement\ncontrol = slider\n[field black]\nlabel = \"B\"\n"
               "bits = 6[3:0] 5[7:0]\nsigned = sign-magnitude\ncontrol = number\n[field tiny]\n"
               "label = \"S\"\nbits = 7[1:0]\nsigned = twos-complement\ncontrol = number\n"
               "step = 0.5\n");
    const Field &count = d.fields.at(0), &trim = d.fields.at(1), &black = d.fields.at(2);
    Block block{};
    WriteValue(count, block, 0, 0x89ABCDEF);
    WriteValue(trim, block, 0, -2);
    WriteValue(black, block, 0, -5);
    EXPECT_EQ(block, (Block{0xEF, 0xCD, 0xAB, 0x89, 0xFE, 0x05, 0x08}));
    block = {0xFF, 0xFF, 0xFF, 0xFF, 0x80, 0xFF, 0xFF};
    EXPECT_EQ(ReadValue(count, block, 0), 4294967295);
    EXPECT_EQ(ReadValue(trim, block, 0), -128);
    EXPECT_EQ(ReadValue(black, block, 0), -2047);
    block[6] = 0x08, block[5] = 0; // the sign without a magnitude
    EXPECT_EQ(ReadValue(black, block, 0), 0);
    block[7] = 0x03;
    EXPECT_EQ(ReadValue(d.fields.at(3), block, 0), -1) << "two bits are the smallest signed field";
    EXPECT_EQ((std::vector<Value>{count.minimum, count.maximum, trim.minimum, trim.maximum, black.minimum,
                                  black.maximum, d.fields.at(3).minimum, d.fields.at(3).maximum}),
              (std::vector<Value>{0, 4294967295, -128, 127, -2047, 2047, -2, 1}));
}

TEST(Reuse, CopiesAndRepeatsLieWhereTheirOffsetsPutThem) {
    const Description d = Parsed(
        "[field on]\nlabel = \"On\"\ngroup = \"Ch {n}\"\nbits = 0[7]\ncontrol = check\nrepeat = 3 every 2\n"
        "[field level]\nlabel = \"L\"\ngroup = \"Ch {n}\"\nbits = 0[6:0]\ncontrol = slider\nshow-if = on\n"
        "repeat = 3 every 2\n[field all]\nlike = level\noffset = 9\ngroup = \"All\"\nshow-if = on-3\n"
        "[field more]\nlike = all\noffset = 2\n");
    Block block{};
    for (const Field& field : d.fields)
        WriteValue(field, block, 0, field.maximum);
    EXPECT_EQ(block, (Block{0xFF, 0, 0xFF, 0, 0xFF, 0, 0, 0, 0, 0x7F, 0, 0x7F}));
    ASSERT_EQ(d.fields.size(), 8u);
    EXPECT_EQ(d.fields[3].name, "level-2");
    EXPECT_EQ(d.fields[3].showIf, 2); // its own channel's switch
    std::vector<std::wstring> boxes;
    for (const PlannedWindow& window : PlanLayout(d, {}, {}).windows)
        if (window.role == Role::GroupBox)
            boxes.push_back(window.text);
    EXPECT_EQ(boxes, (std::vector<std::wstring>{L"Ch 1", L"Ch 2", L"Ch 3", L"All"}));
}

} // namespace
