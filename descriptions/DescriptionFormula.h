// Read-out formulas: `readout = "%.1f%%" (value + 1) * 100 / 64`, a quoted format and an expression of
// the field's value and of other fields of the page. Computed in single precision and rounded to the
// format's decimals before it is written, as every read-out of the module is.
#pragma once

#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionExpression.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chipdesc {

// Literal text around one conversion: %d (rounded to a whole number) or %.Nf (N decimals, 0..6); %%
// is a percent sign.
struct ReadoutFormat {
    std::string before;
    std::string after;
    int decimals = -1; // -1: %d
};
// The format inside the quotes; on failure the column (from 1) of what is wrong.
std::optional<ReadoutFormat> ParseReadoutFormat(std::string_view format, int& badColumn);
// "-" for no value, and for a value too large to write.
std::wstring FormatReadoutNumber(const ReadoutFormat& format, std::optional<float> value);

struct ReadoutFormula {
    ReadoutFormat format;
    Expression expression;
    // Per name of the expression: the field it names, or -1 for `value`, this field's own.
    std::vector<int> fields;
};

// The value of another field of the page, as the read-out's control sees it; nothing: it has none.
using FieldValueOf = std::function<std::optional<std::int64_t>(int field)>;

// A field's read-out text, by its formula or its named routine; nothing when it has neither.
std::optional<std::wstring> ReadoutText(const Field& field, std::int64_t value, const FieldValueOf& valueOf);

namespace detail {
struct KeyValue;
// The `readout` key: a routine's name, or a formula (its names are connected to fields later).
bool ReadReadout(KeyValue& v);
} // namespace detail

} // namespace chipdesc
