// Every chip page the workbench can open, as the host would list them: one row per chip type, and
// for the types whose page depends on the chip's sub-type, one row per page a sub-type can give.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct CatalogEntry {
    int chipType;
    int subType; // the sub-type the row opens with: 0, or the first sub-type that gives this page
    std::string className;
    std::string modelName;
    unsigned templateId;
    bool needsSubType; // the type's page depends on the sub-type
};

// Every row, by type and sub-type. Built once: it asks the factory about every possible sub-type.
const std::vector<CatalogEntry>& ChipCatalog();

// The numbered chip a page of the extended range (65536 and up) runs on: the first row below 65536
// whose page class names the same chip ("CRegvaneICN2055EX" runs on the ICN2055 of type 193). Null
// when no numbered page names that chip, and for numbered types.
const CatalogEntry* ExtendedPageBase(int chipType);

// The class of the page the module gives for a type and sub-type; empty when there is none.
std::string PageClassFor(int chipType, int subType);
bool DependsOnSubType(int chipType);

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
