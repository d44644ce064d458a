// The raw register editor's model: typed bytes, the byte map and the groups the register kind moves.
#include "dialogs/chips/ChipRegModifyModel.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace {

TEST(RawRegisterModel, AcceptsOneOrTwoHexDigitsOnly) {
    EXPECT_EQ(ParseRawByte(L"A"), 0x0A);
    EXPECT_EQ(ParseRawByte(L"0"), 0x00);
    EXPECT_EQ(ParseRawByte(L"ff"), 0xFF);
    EXPECT_EQ(ParseRawByte(L"Bc"), 0xBC);
    EXPECT_EQ(ParseRawByte(L"07"), 0x07);
    for (const wchar_t* refused :
         {L"", L"0ff", L"100", L"1g", L"g", L" 1", L"1 ", L"+1", L"-1", L"0x", L"\uff11"})
        EXPECT_EQ(ParseRawByte(refused), std::nullopt) << testing::PrintToString(std::wstring(refused));
    EXPECT_EQ(ParseRawByte(std::wstring_view(L"1\0", 2)), std::nullopt) << "an embedded null is not a digit";
}

TEST(RawRegisterModel, EveryEditableByteHasOneEdit) {
    std::set<int> edits;
    std::set<std::pair<RawByteSource, std::size_t>> bytes;
    for (const RawByteField& field : kRawByteFields) {
        EXPECT_TRUE(edits.insert(field.editId).second) << field.editId;
        EXPECT_TRUE(bytes.insert({field.source, field.byte}).second) << field.editId;
        EXPECT_EQ(RawByteFieldOf(field.editId), static_cast<std::size_t>(&field - kRawByteFields.data()));
    }
    for (std::size_t b = 2; b < 16; ++b)
        EXPECT_TRUE(bytes.count({RawByteSource::Block, b})) << b;
    for (std::size_t b = 0; b < 4; ++b)
        EXPECT_TRUE(bytes.count({RawByteSource::RecordA, b})) << b;
    for (std::size_t b = 0; b < 6; ++b)
        EXPECT_TRUE(bytes.count({RawByteSource::RecordB, b})) << b;
    EXPECT_EQ(RawByteFieldOf(20013), std::nullopt);
}

// The groups hide and show whole registers: their edits are exactly the bytes of that register.
TEST(RawRegisterModel, GroupsHoldTheirRegistersBytes) {
    auto bytesOf = [](const auto& group) {
        std::set<std::pair<RawByteSource, std::size_t>> bytes;
        for (int id : group)
            if (const auto field = RawByteFieldOf(id))
                bytes.insert({kRawByteFields[*field].source, kRawByteFields[*field].byte});
        return bytes;
    };
    using B = std::set<std::pair<RawByteSource, std::size_t>>;
    const auto block = RawByteSource::Block;
    const auto a = RawByteSource::RecordA;
    const auto b = RawByteSource::RecordB;
    EXPECT_EQ(bytesOf(kRawGroupX),
              (B{{block, 8}, {block, 9}, {block, 10}, {block, 11}, {block, 12}, {block, 13}}));
    EXPECT_EQ(bytesOf(kRawGroupY), (B{{block, 14}, {block, 15}, {a, 0}, {a, 1}, {a, 2}, {a, 3}}));
    EXPECT_EQ(bytesOf(kRawGroupZ), (B{{b, 0}, {b, 1}, {b, 2}, {b, 3}, {b, 4}, {b, 5}}));
    for (int id : kRawFirstRegisterLowBytes) {
        const auto field = RawByteFieldOf(id);
        ASSERT_TRUE(field);
        EXPECT_EQ(kRawByteFields[*field].source, block);
        EXPECT_EQ(kRawByteFields[*field].byte % 2, 0u) << "low bytes sit at even offsets";
    }
}

} // namespace
