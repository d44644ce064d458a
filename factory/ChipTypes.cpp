#include "factory/ChipTypes.h"

#include "factory/ChipTypeTable.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// Class ids in table order; the names are checked by the compiler wherever a list names a class.
enum class ClassId : std::uint16_t {
#define REGVANE_CLASS_ID(name, chip, templateId, form, kind) name,
    REGVANE_CHIP_CLASSES(REGVANE_CLASS_ID, REGVANE_CLASS_ID)
#undef REGVANE_CLASS_ID
        NoPage
};

#define REGVANE_FORM_CHIP ChipConstructor::Chip
#define REGVANE_FORM_CHIP_PARENT ChipConstructor::ChipParent
#define REGVANE_FORM_CHIP_CAPTION_PARENT ChipConstructor::ChipCaptionParent
#define REGVANE_FORM_CHIP_MODE_CAPTION_PARENT ChipConstructor::ChipModeCaptionParent
#define REGVANE_KIND_GENERIC ChipPageKind::Raw
#define REGVANE_KIND_DESCRIBED ChipPageKind::Described
#define REGVANE_KIND_TABLE ChipPageKind::ParamTable
#define REGVANE_KIND_CUSTOM ChipPageKind::HandWritten

constexpr ChipClassInfo kClasses[] = {
#define REGVANE_CLASS_ROW(name, chip, templateId, form, kind)                                                \
    {#name, chip, templateId, REGVANE_FORM_##form, REGVANE_KIND_##kind, false},
#define REGVANE_SHARING_ROW(name, chip, templateId, form, kind)                                              \
    {#name, chip, templateId, REGVANE_FORM_##form, REGVANE_KIND_##kind, true},
    REGVANE_CHIP_CLASSES(REGVANE_CLASS_ROW, REGVANE_SHARING_ROW)
#undef REGVANE_CLASS_ROW
#undef REGVANE_SHARING_ROW
};
static_assert(std::size(kClasses) == static_cast<std::size_t>(ClassId::NoPage));

struct TypeRow {
    int first;
    int last;
    ClassId target;
};
constexpr TypeRow kTypeRows[] = {
#define REGVANE_TYPE_ROW(first, last, name) {first, last, ClassId::name},
    REGVANE_CHIP_TYPES(REGVANE_TYPE_ROW)
#undef REGVANE_TYPE_ROW
};

struct SubTypeType {
    int chipType;
    int rulesOf;
};
constexpr SubTypeType kSubTypeTypes[] = {
#define REGVANE_SUBTYPE_TYPE_ROW(chipType, rulesOf) {chipType, rulesOf},
    REGVANE_CHIP_SUBTYPE_TYPES(REGVANE_SUBTYPE_TYPE_ROW)
#undef REGVANE_SUBTYPE_TYPE_ROW
};

struct SubTypeRule {
    int rulesOf;
    ClassId target;
    std::array<int, 4> subTypes; // the first `count` are used; no sub-types: any other value
    std::size_t count;

    constexpr bool Matches(int subType) const {
        return std::find(subTypes.begin(), subTypes.begin() + count, subType) != subTypes.begin() + count;
    }
};
template <class... SubTypes>
constexpr SubTypeRule MakeRule(int rulesOf, ClassId target, SubTypes... subTypes) {
    static_assert(sizeof...(SubTypes) <= 4, "a sub-type row lists at most four sub-types");
    return {rulesOf, target, {static_cast<int>(subTypes)...}, sizeof...(SubTypes)};
}
constexpr SubTypeRule kSubTypeRules[] = {
#define REGVANE_RULE_ROW(rulesOf, target, ...) MakeRule(rulesOf, ClassId::target __VA_OPT__(, ) __VA_ARGS__),
    REGVANE_CHIP_SUBTYPE_RULES(REGVANE_RULE_ROW)
#undef REGVANE_RULE_ROW
};

// The host numbers its chips in a few dense blocks; each is a table indexed by the number, so a
// number outside them is refused without a search, and without asking the host anything.
struct DispatchRange {
    int first;
    int last;
};
constexpr DispatchRange kRanges[] = {{4, 253}, {256, 256}, {257, 548}, {65536, 65536}, {65537, 65652}};

constexpr std::size_t SlotCount() {
    std::size_t count = 0;
    for (const DispatchRange& range : kRanges)
        count += static_cast<std::size_t>(range.last - range.first + 1);
    return count;
}

constexpr int SlotOf(int chipType) {
    int offset = 0;
    for (const DispatchRange& range : kRanges) {
        if (chipType >= range.first && chipType <= range.last)
            return offset + (chipType - range.first);
        offset += range.last - range.first + 1;
    }
    return -1;
}

struct Slot {
    enum Kind : std::uint8_t { Empty, Class, SubTypeRules } kind = Empty;
    std::uint16_t value = 0; // a ClassId, or the type whose sub-type rules apply
};

// Built at compile time: a number listed twice, or outside the blocks, stops the build.
constexpr std::array<Slot, SlotCount()> BuildSlots() {
    std::array<Slot, SlotCount()> slots{};
    auto fill = [&slots](int chipType, Slot slot) {
        const int index = SlotOf(chipType);
        if (index < 0)
            throw "a chip type lies outside the dispatch blocks";
        if (slots[static_cast<std::size_t>(index)].kind != Slot::Empty)
            throw "a chip type is listed twice";
        slots[static_cast<std::size_t>(index)] = slot;
    };
    for (const TypeRow& row : kTypeRows)
        for (int chipType = row.first; chipType <= row.last; ++chipType)
            fill(chipType, {Slot::Class, static_cast<std::uint16_t>(row.target)});
    for (const SubTypeType& type : kSubTypeTypes) {
        bool endsWithAnyOther = false;
        for (const SubTypeRule& rule : kSubTypeRules)
            if (rule.rulesOf == type.rulesOf)
                endsWithAnyOther = rule.count == 0;
        if (!endsWithAnyOther)
            throw "sub-type rules must end with an any-other row";
        fill(type.chipType, {Slot::SubTypeRules, static_cast<std::uint16_t>(type.rulesOf)});
    }
    return slots;
}
constexpr auto kSlots = BuildSlots();

// The page a sub-type number usually gives, for lists of chip types.
constexpr ClassId RepresentativeOf(int rulesOf) {
    ClassId anyOther = ClassId::NoPage;
    ClassId firstPage = ClassId::NoPage;
    for (const SubTypeRule& rule : kSubTypeRules) {
        if (rule.rulesOf != rulesOf)
            continue;
        if (rule.count == 0)
            anyOther = rule.target;
        if (firstPage == ClassId::NoPage)
            firstPage = rule.target;
    }
    return anyOther != ClassId::NoPage ? anyOther : firstPage;
}

constexpr std::size_t TypeCount() {
    std::size_t count = 0;
    for (const Slot& slot : kSlots)
        count += slot.kind != Slot::Empty ? 1 : 0;
    return count;
}

constexpr std::array<ChipTypeInfo, TypeCount()> BuildTypes() {
    std::array<ChipTypeInfo, TypeCount()> types{};
    std::size_t next = 0;
    int offset = 0;
    for (const DispatchRange& range : kRanges) {
        for (int chipType = range.first; chipType <= range.last; ++chipType) {
            const Slot& slot = kSlots[static_cast<std::size_t>(offset + chipType - range.first)];
            if (slot.kind == Slot::Empty)
                continue;
            const bool bySubType = slot.kind == Slot::SubTypeRules;
            const ClassId id = bySubType ? RepresentativeOf(slot.value) : static_cast<ClassId>(slot.value);
            if (id == ClassId::NoPage)
                throw "a sub-type number gives no page at all";
            const ChipClassInfo& info = kClasses[static_cast<std::size_t>(id)];
            types[next++] = {chipType, info.className, info.templateId, bySubType};
        }
        offset += range.last - range.first + 1;
    }
    return types;
}
constexpr auto kTypes = BuildTypes();

ChipChoice Choice(ClassId id) {
    if (id == ClassId::NoPage)
        return {};
    const auto index = static_cast<std::size_t>(id);
    return {&kClasses[index], index};
}

} // namespace

const char* ChipPageKindName(ChipPageKind kind) {
    switch (kind) {
    case ChipPageKind::Raw:
        return "raw";
    case ChipPageKind::Described:
        return "described";
    case ChipPageKind::ParamTable:
        return "table";
    case ChipPageKind::HandWritten:
        break;
    }
    return "hand-written";
}

std::span<const ChipClassInfo> AllChipClasses() {
    return kClasses;
}

const ChipClassInfo* FindChipClass(std::string_view className) {
    for (const ChipClassInfo& info : kClasses)
        if (className == info.className)
            return &info;
    return nullptr;
}

std::span<const ChipTypeInfo> AllChipTypes() {
    return kTypes;
}

const ChipTypeInfo* FindChipType(int chipType) {
    const auto found =
        std::lower_bound(kTypes.begin(), kTypes.end(), chipType,
                         [](const ChipTypeInfo& info, int type) { return info.chipType < type; });
    return found != kTypes.end() && found->chipType == chipType ? &*found : nullptr;
}

ChipChoice ChooseChipClass(int chipType, const SubTypeQuery& querySubType) {
    const int index = SlotOf(chipType);
    if (index < 0)
        return {};
    const Slot& slot = kSlots[static_cast<std::size_t>(index)];
    switch (slot.kind) {
    case Slot::Empty:
        return {};
    case Slot::Class:
        return Choice(static_cast<ClassId>(slot.value));
    case Slot::SubTypeRules:
        if (!querySubType)
            return {};
        for (const SubTypeRule& rule : kSubTypeRules) {
            if (rule.rulesOf != slot.value)
                continue;
            // Each row asks afresh: the host's answer is not assumed to stay put between tests.
            if (rule.count == 0 || rule.Matches(querySubType()))
                return Choice(rule.target);
        }
        return {};
    }
    return {};
}
