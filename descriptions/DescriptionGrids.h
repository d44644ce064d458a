// A grid's rows and cells as the page shows and takes them.
#pragma once

#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"

#include <functional>

#include <string>
#include <string_view>

namespace chipdesc {

// The name of a row: each %d the row's number from `first` (with two, the group's and the row's within
// it, from `first` each), %% a percent sign; anything else is shown as written.
std::wstring RowName(const Grid& grid, std::wstring_view pattern, int row);
// A cell's value as typed, in the column's way (hex digits for a hex column, with or without 0x);
// false: not a number.
bool ParseCell(const Field& cell, std::wstring_view typed, int& value);

// Rows taller than this scroll.
inline constexpr int kGridVisibleRows = 12;

// Each grid from y down at x: the label above it, then its list, columns as wide as their widest
// texts; y ends below the last.
void PlanGrids(const Description& description, const LayoutTexts& texts, DialogUnits units, int x, int& y,
               LayoutPlan& plan, const std::function<int()>& nextId);

} // namespace chipdesc
