#include "workbench/ChipCatalog.h"

#include "workbench/ChipTypesStandIn.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

// The sub-types that choose another page, in the order the factory tests them.
constexpr SubTypeChoice kSubTypeChoices[] = {
    {4, 160, nullptr},
    {4, 169, nullptr},
    {4, 170, nullptr},
    {4, 312, "CRegvaneRT5938"},
    {4, kAnyOtherSubType, "CRegvane_MBI5124"},
    {5, 160, nullptr},
    {5, 169, nullptr},
    {5, 170, nullptr},
    {5, 312, "CRegvaneRT5938"},
    {5, kAnyOtherSubType, "CRegvane_MBI5124"},
    {6, 160, nullptr},
    {6, 169, nullptr},
    {6, 170, nullptr},
    {6, 312, "CRegvaneRT5938"},
    {6, kAnyOtherSubType, "CRegvane_MBI5124"},
    {13, 160, nullptr},
    {13, 169, nullptr},
    {13, 170, nullptr},
    {13, 312, "CRegvaneRT5938"},
    {13, kAnyOtherSubType, "CRegvane_MBI5124"},
    {9, 85, "CRegvane_SUM2017T"},
    {9, kAnyOtherSubType, "CchipRegModify"},
    {11, 173, "CRegvaneSM16227"},
    {11, 63, "CRegvaneFM6182"},
    {11, 387, "CRegvaneSM16208"},
    {11, 161, nullptr},
    {11, 167, nullptr},
    {11, kAnyOtherSubType, "CRegvane_MY9862"},
    {46, 82, "CRegvaneMBI5043"},
    {46, kAnyOtherSubType, "CRegvane5041B"},
    {47, 138, "CRegvane_SM16159"},
    {47, 212, "CRegvaneMbi5153"}, // 212: the same page titled MBI5252
    {47, kAnyOtherSubType, "CRegvaneMbi5153"},
    {67, 403, "CRegvaneWS2816A"},
    {67, kAnyOtherSubType, nullptr},
    {91, 329, "CRegvane_H8106"},
    {91, kAnyOtherSubType, "CRegvaneGW6803"},
    {129, 230, "CRegvaneCS2033"},
    {129, 265, "CRegvaneCS2033"},
    {129, kAnyOtherSubType, "CRegvaneSum2033"},
    {349, 360, "CRegvaneDP3153"},
    {349, kAnyOtherSubType, "CRegvaneDP3254"},
};

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

bool EndsWith(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
}

} // namespace

std::span<const SubTypeChoice> SubTypeChoices() {
    return kSubTypeChoices;
}

bool DependsOnSubType(int chipType) {
    return std::any_of(std::begin(kSubTypeChoices), std::end(kSubTypeChoices),
                       [&](const SubTypeChoice& c) { return c.chipType == chipType; });
}

std::string PageClassFor(int chipType, int subType) {
    if (!DependsOnSubType(chipType)) {
        const ChipTypeInfo* info = FindChipType(chipType);
        return info && info->className ? info->className : "";
    }
    for (const SubTypeChoice& choice : kSubTypeChoices)
        if (choice.chipType == chipType && choice.subType == subType)
            return choice.className ? choice.className : "";
    for (const SubTypeChoice& choice : kSubTypeChoices)
        if (choice.chipType == chipType && choice.subType == kAnyOtherSubType)
            return choice.className ? choice.className : "";
    return "";
}

std::vector<CatalogEntry> ChipCatalog() {
    std::vector<CatalogEntry> entries;
    for (const ChipTypeInfo& info : AllChipTypes()) {
        if (!DependsOnSubType(info.chipType)) {
            entries.push_back({info.chipType, 0, info.className,
                               ModelNameFromClassName(info.className, info.chipType), info.templateId,
                               info.dependsOnSubType});
            continue;
        }
        for (const SubTypeChoice& choice : kSubTypeChoices) {
            if (choice.chipType != info.chipType || !choice.className)
                continue;
            const int subType = choice.subType == kAnyOtherSubType ? 0 : choice.subType;
            // Sub-type 212 keeps the MBI5153 page but retitles it, so it is a page to look at of its own;
            // any other second sub-type with the same page adds nothing to the list.
            const bool retitled = info.chipType == 47 && subType == 212;
            const bool listed = std::any_of(entries.begin(), entries.end(), [&](const CatalogEntry& e) {
                return e.chipType == info.chipType && e.className == choice.className && e.subType != 212;
            });
            if (listed && !retitled)
                continue;
            const bool sameAsTable = info.className && std::string_view(choice.className) == info.className;
            entries.push_back({info.chipType, subType, choice.className,
                               ModelNameFromClassName(choice.className, info.chipType),
                               sameAsTable ? info.templateId : 0u, true});
        }
    }
    // The host lists by number; the "any other" row of a sub-type choice first.
    std::stable_sort(entries.begin(), entries.end(), [](const CatalogEntry& a, const CatalogEntry& b) {
        return a.chipType != b.chipType ? a.chipType < b.chipType : a.subType < b.subType;
    });
    return entries;
}

bool MatchesSearch(const CatalogEntry& entry, std::string_view search) {
    const std::string haystack = Lower(EntryLabel(entry) + " " + std::to_string(entry.chipType) + " " +
                                       entry.className + " " + entry.modelName);
    const std::string needle = Lower(search);
    std::size_t pos = 0;
    while (pos < needle.size()) {
        const std::size_t start = needle.find_first_not_of(" \t", pos);
        if (start == std::string::npos)
            break;
        const std::size_t end = std::min(needle.find_first_of(" \t", start), needle.size());
        if (haystack.find(needle.substr(start, end - start)) == std::string::npos)
            return false;
        pos = end;
    }
    return true;
}

std::string ModelNameFromClassName(std::string_view name, int chipType) {
    if (StartsWith(name, "CchipRegModify") || StartsWith(name, "CChipRegModify"))
        name.remove_prefix(14);
    else
        for (std::string_view prefix : {"CRegvane_", "CRegvane", "CRegvan_", "CRegvan", "CChip", "C"})
            if (StartsWith(name, prefix)) {
                name.remove_prefix(prefix.size());
                break;
            }
    for (std::string_view suffix : {"Extension", "SetDlgEx", "EX", "Ex", "Basic", "Multi"})
        if (EndsWith(name, suffix) && name.size() > suffix.size()) {
            name.remove_suffix(suffix.size());
            break;
        }
    std::string model;
    for (const char c : name)
        model += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return model.empty() ? "CHIP" + std::to_string(chipType) : model;
}

std::string ChipTypeLabel(int chipType) {
    return chipType >= 65536 ? "65536+" + std::to_string(chipType - 65536) : std::to_string(chipType);
}

std::string EntryLabel(const CatalogEntry& entry) {
    std::string label = ChipTypeLabel(entry.chipType);
    if (entry.needsSubType && entry.subType)
        label.append(1, '/').append(std::to_string(entry.subType));
    return label;
}

std::optional<int> ParseChipTypeNumber(std::string_view text) {
    auto number = [](std::string_view digits) -> std::optional<int> {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto result = std::from_chars(digits.data(), end, value);
        if (digits.empty() || result.ec != std::errc() || result.ptr != end || value < 0)
            return std::nullopt;
        return value;
    };
    if (StartsWith(text, "65536+")) {
        const std::optional<int> offset = number(text.substr(6));
        if (!offset || *offset > 65535)
            return std::nullopt;
        return 65536 + *offset;
    }
    return number(text);
}
