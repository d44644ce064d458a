// The read-outs a description may name next to a field: the chips' own routines, shared with the
// hand-written pages, never a formula written in a description.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chipdesc {

// The read-out's text for a field value; nothing for a name no routine has.
std::optional<std::wstring> FormatReadout(std::string_view name, int value);
bool IsReadout(std::string_view name);
std::vector<std::string_view> ReadoutNames();

} // namespace chipdesc
