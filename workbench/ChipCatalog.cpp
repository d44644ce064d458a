#include "workbench/ChipCatalog.h"

#include "factory/ChipTypes.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

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

std::string PageClassFor(int chipType, int subType) {
    const ChipChoice choice =
        ChooseChipClass(chipType, [subType] { return static_cast<std::uint16_t>(subType); });
    return choice ? choice.chipClass->className : "";
}

bool DependsOnSubType(int chipType) {
    const ChipTypeInfo* info = FindChipType(chipType);
    return info && info->dependsOnSubType;
}

const std::vector<CatalogEntry>& ChipCatalog() {
    static const std::vector<CatalogEntry> entries = [] {
        std::vector<CatalogEntry> rows;
        for (const ChipTypeInfo& info : AllChipTypes()) {
            if (!info.dependsOnSubType) {
                rows.push_back({info.chipType, 0, info.className,
                                ModelNameFromClassName(info.className, info.chipType), info.templateId,
                                false});
                continue;
            }
            // The factory's rules are its own; asking them about every sub-type finds each page a
            // sub-type can give, listed under the first sub-type that gives it (0 for "any other").
            std::vector<const ChipClassInfo*> seen;
            for (int subType = 0; subType <= 0xFFFF; ++subType) {
                const ChipChoice choice =
                    ChooseChipClass(info.chipType, [subType] { return static_cast<std::uint16_t>(subType); });
                if (!choice || std::find(seen.begin(), seen.end(), choice.chipClass) != seen.end())
                    continue;
                seen.push_back(choice.chipClass);
                rows.push_back({info.chipType, subType, choice.chipClass->className,
                                ModelNameFromClassName(choice.chipClass->className, info.chipType),
                                choice.chipClass->templateId, true});
            }
        }
        return rows;
    }();
    return entries;
}

const CatalogEntry* ExtendedPageBase(int chipType) {
    if (chipType <= 0xFFFF)
        return nullptr;
    const std::string chip = ModelNameFromClassName(PageClassFor(chipType, 0), chipType);
    for (const CatalogEntry& entry : ChipCatalog())
        if (entry.chipType <= 0xFFFF && entry.modelName == chip)
            return &entry;
    return nullptr;
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
