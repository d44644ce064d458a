// The read-outs a description may name next to a field: the chips' own routines, shared with the
// hand-written pages, never a formula written in a description.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chipdesc {

// The read-out's text for a field value; nothing for a name no routine has.
std::optional<std::wstring> FormatReadout(std::string_view name, int value);
bool IsReadout(std::string_view name);

// An output-current read-out: the gain as a fraction of the full current, and the current it gives
// against the reference the operator entered, decimals and all (0 shows a current of 0).
struct CurrentText {
    std::wstring fraction;
    std::wstring current;
};
std::optional<CurrentText> FormatCurrent(std::string_view name, int value, double reference);
bool IsCurrentReadout(std::string_view name);

} // namespace chipdesc
