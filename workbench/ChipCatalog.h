// Every chip page the workbench can open, as the host would list them: one row per chip type, and
// for the twelve types whose page depends on the chip's sub-type, one row per sub-type that gives
// a page of its own.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// A sub-type choice of one of the twelve types; className null = no page for that sub-type.
inline constexpr int kAnyOtherSubType = -1;
struct SubTypeChoice {
    int chipType;
    int subType; // kAnyOtherSubType: every sub-type not listed for the type
    const char* className;
};
std::span<const SubTypeChoice> SubTypeChoices();
bool DependsOnSubType(int chipType);

struct CatalogEntry {
    int chipType;
    int subType; // 0 where the sub-type does not matter or any other sub-type gives this page
    std::string className;
    std::string modelName;
    unsigned templateId;
    bool needsSubType;
};

std::vector<CatalogEntry> ChipCatalog();

// The class of the page for a type and sub-type; empty when there is none.
std::string PageClassFor(int chipType, int subType);

// All words of the search text must occur, ignoring case, in the row's number ("47", "47/138",
// "65536+4"), class or chip name.
bool MatchesSearch(const CatalogEntry& entry, std::string_view search);

// "CRegvane_SUM2017T" -> "SUM2017T", "CRegvaneMbi5153" -> "MBI5153", "CRegvaneICN2055EX" -> "ICN2055";
// the generic register editor has no chip of its own and gets "CHIP<type>".
std::string ModelNameFromClassName(std::string_view className, int chipType);

// "47", "65536+4": the host's way of writing the numbers of the last range.
std::string ChipTypeLabel(int chipType);
// "47/138" for a row with a sub-type.
std::string EntryLabel(const CatalogEntry& entry);
// Reads "47", "65540" or "65536+4"; null for anything else.
std::optional<int> ParseChipTypeNumber(std::string_view text);
