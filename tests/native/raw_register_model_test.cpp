// The raw register editor's model: the groups the register kind shows and hides. Which byte each
// edit shows and writes, and which typed texts it refuses, is held by the Windows raw editor tests
// (and what it takes as a byte by the raw_byte fuzz target).
#include "dialogs/chips/ChipRegModifyModel.h"

#include <gtest/gtest.h>

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

} // namespace
