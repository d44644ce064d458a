// Language files name a page's texts by its template number, so no two pages may take one template
// unless the table says they share it (and then the owner's row comes first, which emits it). The
// resource compiler only warns about a template number given twice. Which page every number and
// sub-type opens, from which template, is held by the Windows factory tests.
#include "dialogs/chips/ParamTablePageList.h"
#include "factory/ChipTypes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace {

TEST(ChipTypeTable, EveryPageOwnsItsTemplateUnlessItSharesOneOwnedAbove) {
    std::set<unsigned> templates;
    for (const ChipClassInfo& info : AllChipClasses())
        EXPECT_EQ(templates.insert(info.templateId).second, !info.sharesTemplate) << info.className;
}

// The kind --list and the factory give a class is the truth: the described classes are those the
// module ships a description of, the table classes those with a parameter table.
TEST(ChipTypeTable, TheKindOfEveryPageIsWhatTheModuleMakesOfIt) {
    std::set<std::string> shipped, tables, described, tableKind;
    for (const auto& file : std::filesystem::directory_iterator(std::string(REGVANE_SOURCE_DIR) + "/descriptions/chips"))
        if (file.path().extension() == ".desc")
            shipped.insert(file.path().stem().string());
#define REGVANE_TABLE_CLASS(name, templateId, table, chip) tables.insert(#name);
    REGVANE_PARAM_TABLE_PAGES(REGVANE_TABLE_CLASS)
#undef REGVANE_TABLE_CLASS
    for (const ChipClassInfo& info : AllChipClasses()) {
        if (info.kind == ChipPageKind::Described)
            described.insert(info.className);
        if (info.kind == ChipPageKind::ParamTable)
            tableKind.insert(info.className);
    }
    EXPECT_EQ(described, shipped);
    EXPECT_EQ(tableKind, tables);
}

} // namespace
