// Where a described page puts its register text and its tables: below the rows of its fields, above
// its Default, OK and Cancel buttons.
#pragma once

#include "descriptions/DescriptionLayout.h"

#include <functional>
#include <vector>

namespace chipdesc {

// The register text shows this many lines at most, and scrolls.
inline constexpr int kRegisterTextLines = 12;

// The ids the description gives these windows.
std::vector<int> SectionIds(const Description& description);

// Adds the windows from y down, as wide as left..right or as their texts need; idOr gives a window
// without an id of its own (0) an automatic one.
void PlanSections(const Description& description, const LayoutTexts& texts, DialogUnits units, int left,
                  int right, int& y, const std::function<int(int id)>& idOr,
                  std::vector<PlannedWindow>& windows);

} // namespace chipdesc
