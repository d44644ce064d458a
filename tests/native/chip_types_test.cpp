// Language files name a page's texts by its template number, so no two pages may take one template
// unless the table says they share it (and then the owner's row comes first, which emits it). The
// resource compiler only warns about a template number given twice. Which page every number and
// sub-type opens, from which template, is held by the Windows factory tests.
#include "factory/ChipTypes.h"

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(ChipTypeTable, EveryPageOwnsItsTemplateUnlessItSharesOneOwnedAbove) {
    std::set<unsigned> templates;
    for (const ChipClassInfo& info : AllChipClasses())
        EXPECT_EQ(templates.insert(info.templateId).second, !info.sharesTemplate) << info.className;
}

} // namespace
