// The C view of the host interface (RegvaneC.h) is a second, hand-written statement of the slot
// order of IRegvane and IRegvaneCallback. Every operation's offset in the C table must be its slot
// in the C++ class, with the same result and argument types, or a C host's calls land on the wrong
// operation.
#include "RegvaneOperations.h"
#include "host/RegvaneC.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace {

// Where this compiler's table puts a virtual operation. g++ (mingw included) follows the Itanium
// C++ ABI: a pointer to a virtual member function holds 1 + the operation's byte offset in the table.
template <class MemberFunction> std::ptrdiff_t CppSlot(MemberFunction member) {
    static_assert(sizeof(member) == 2 * sizeof(std::ptrdiff_t));
    std::ptrdiff_t words[2];
    std::memcpy(words, &member, sizeof words);
    if ((words[0] & 1) == 0)
        return -1; // not virtual
    return (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// The C table entry that matches a C++ operation: the object first, then the same arguments.
template <class MemberFunction> struct CEntryOf;
template <class Result, class Class, class... Args> struct CEntryOf<Result (Class::*)(Args...)> {
    using type = Result (*)(Class*, Args...);
};

struct Slot {
    std::string name;
    std::ptrdiff_t cSlot;
    std::ptrdiff_t cppSlot;
    bool sameType;
};

#define REGVANE_SLOT_OF(Interface, name)                                                                     \
    Slot{#name, static_cast<std::ptrdiff_t>(offsetof(Interface##Vtbl, name) / sizeof(void*)),                \
         CppSlot(&Interface::name),                                                                          \
         std::is_same_v<decltype(Interface##Vtbl::name), CEntryOf<decltype(&Interface::name)>::type>},
#define REGVANE_CHIP_SLOT(name) REGVANE_SLOT_OF(IRegvane, name)
#define REGVANE_CHIP_PLACEHOLDER(n) REGVANE_SLOT_OF(IRegvane, Slot##n)
#define REGVANE_CALLBACK_SLOT(name) REGVANE_SLOT_OF(IRegvaneCallback, name)

// Each operation at its C++ slot with its C++ type, and every slot of the C++ table named once.
void ExpectSameTable(const std::vector<Slot>& slots, std::size_t tableBytes, std::ptrdiff_t slotCount) {
    std::set<std::ptrdiff_t> covered;
    for (const Slot& slot : slots) {
        EXPECT_EQ(slot.cSlot, slot.cppSlot) << slot.name;
        EXPECT_TRUE(slot.sameType) << slot.name << ": result or argument types differ";
        EXPECT_TRUE(covered.insert(slot.cppSlot).second) << slot.name << " shares slot " << slot.cppSlot;
    }
    EXPECT_EQ(tableBytes, static_cast<std::size_t>(slotCount) * sizeof(void*));
    ASSERT_EQ(covered.size(), static_cast<std::size_t>(slotCount));
    EXPECT_EQ(*covered.begin(), 0);
    EXPECT_EQ(*covered.rbegin(), slotCount - 1);
}

TEST(HostCView, ChipTableHasEveryOperationAtItsCppSlot) {
    const std::vector<Slot> slots{REGVANE_CHIP_OPERATIONS(REGVANE_CHIP_SLOT)
                                      REGVANE_PLACEHOLDER_SLOTS(REGVANE_CHIP_PLACEHOLDER)};
    ExpectSameTable(slots, sizeof(IRegvaneVtbl), 255);
}

TEST(HostCView, CallbackTableHasEveryOperationAtItsCppSlot) {
    const std::vector<Slot> slots{REGVANE_CALLBACK_OPERATIONS(REGVANE_CALLBACK_SLOT)};
    ExpectSameTable(slots, sizeof(IRegvaneCallbackVtbl), 10);
}

} // namespace
