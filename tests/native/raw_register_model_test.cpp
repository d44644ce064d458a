// The raw register editor's model: the groups the register kind shows and hides, and what each kind
// of the host asks for. Which byte each
// edit shows and writes, and which typed texts it refuses, is held by the Windows raw editor tests
// (and what it takes as a byte by the raw_byte fuzz target).
#include "dialogs/chips/ChipRegModifyModel.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>

namespace {

// The groups hide and show whole registers: their edits are exactly the bytes of that register.
TEST(RawRegisterModel, GroupsHoldTheirRegistersBytes) {
    using Bytes = std::set<std::pair<HostRecord, std::size_t>>;
    auto bytesOf = [](const auto& group) {
        Bytes bytes;
        for (int id : group)
            if (const auto field = RawByteFieldOf(id))
                bytes.insert({kRawByteFields[*field].source, kRawByteFields[*field].byte});
        return bytes;
    };
    const auto block = HostRecord::Block;
    const auto a = HostRecord::RecordA;
    const auto b = HostRecord::RecordB;
    EXPECT_EQ(bytesOf(kRawGroupX),
              (Bytes{{block, 8}, {block, 9}, {block, 10}, {block, 11}, {block, 12}, {block, 13}}));
    EXPECT_EQ(bytesOf(kRawGroupY), (Bytes{{block, 14}, {block, 15}, {a, 0}, {a, 1}, {a, 2}, {a, 3}}));
    EXPECT_EQ(bytesOf(kRawGroupZ), (Bytes{{b, 0}, {b, 1}, {b, 2}, {b, 3}, {b, 4}, {b, 5}}));
    EXPECT_EQ(bytesOf(kRawFirstRegisterLowBytes), (Bytes{{block, 2}, {block, 4}, {block, 6}}));
}

// One or two hexadecimal digits and nothing else; shown as two lower-case digits.
TEST(RawRegisterModel, ATypedByteIsOneOrTwoHexadecimalDigits) {
    EXPECT_EQ(ParseRawByte(L"0f"), 0x0F);
    EXPECT_EQ(ParseRawByte(L"Bc"), 0xBC);
    EXPECT_EQ(ParseRawByte(L"A"), 0x0A);
    for (const wchar_t* refused : {L"1g", L"0ff", L"", L"-1", L" 1"})
        EXPECT_EQ(ParseRawByte(refused), std::nullopt) << refused;
    EXPECT_EQ(FormatRawByte(0x0A) + FormatRawByte(0xBC), L"0abc");
}

// Kinds 4, 6, 7, 8, 10 and unknown ones keep the default layout; the others each change it.
TEST(RawRegisterModel, EachRegisterKindChangesItsOwnPartOfTheLayout) {
    const struct {
        int kind;
        // hideX, hideY, showZ, caption 4, caption 1, preset, first low read-only, CFG, colour R4
        std::array<bool, 9> layout;
    } kinds[] = {
        {1, {1, 1, 0, 0, 0, 0, 1, 0, 0}},
        {2, {1, 1, 0, 0, 0, 0, 0, 0, 0}},
        {3, {0, 1, 0, 0, 0, 0, 0, 0, 0}},
        {4, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {5, {0, 0, 1, 1, 0, 0, 0, 0, 0}},
        {9, {1, 1, 0, 0, 0, 1, 0, 0, 0}},
        {11, {0, 0, 1, 1, 1, 0, 0, 1, 0}},
        {12, {0, 0, 1, 1, 0, 0, 0, 0, 1}},
        {0, {}},
    };
    for (const auto& k : kinds) {
        const RawEditorLayout l = LayoutForRegisterKind(k.kind);
        EXPECT_EQ((std::array<bool, 9>{l.hideX, l.hideY, l.showZ, l.showRegister4Caption,
                                       l.showRegister1Caption, l.showPreset, l.disableFirstRegisterLow,
                                       l.configCaptions, l.colourRegister4Labels}),
                  k.layout)
            << "kind " << k.kind;
    }
}

} // namespace
