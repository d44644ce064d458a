// Formulas reach the module inside descriptions, and conditions between fields will too: any text must
// parse or be refused at a column inside it, and whatever parses must evaluate in both precisions on
// any values, and format, without a crash. The input: a read-out format, a newline, the expression, a
// newline, then the bytes the names' values are made of.
#include "descriptions/DescriptionFormula.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <variant>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t formatEnd = std::min(input.find('\n'), input.size());
    const std::string_view format = input.substr(0, formatEnd);
    input.remove_prefix(std::min(formatEnd + 1, input.size()));
    const std::size_t textEnd = std::min(input.find('\n'), input.size());
    const std::string_view text = input.substr(0, textEnd);
    input.remove_prefix(std::min(textEnd + 1, input.size()));

    int badColumn = 0;
    const std::optional<chipdesc::ReadoutFormat> readout = chipdesc::ParseReadoutFormat(format, badColumn);
    if (!readout && (badColumn < 1 || static_cast<std::size_t>(badColumn) > format.size() + 1))
        __builtin_trap();

    auto parsed = chipdesc::Expression::Parse(text);
    if (const auto* error = std::get_if<chipdesc::Expression::Error>(&parsed)) {
        if (error->column < 1 || static_cast<std::size_t>(error->column) > text.size() + 1)
            __builtin_trap();
        return 0;
    }
    const chipdesc::Expression& expression = std::get<chipdesc::Expression>(parsed);
    std::vector<std::int64_t> values(expression.Names().size());
    for (std::size_t i = 0; i < values.size() && input.size() >= 4; ++i, input.remove_prefix(4)) {
        std::int32_t value = 0;
        std::memcpy(&value, input.data(), 4);
        values[i] = value;
    }
    for (const auto& name : expression.Names())
        if (name.name.empty() || name.column < 1 || static_cast<std::size_t>(name.column) > text.size())
            __builtin_trap();
    const std::optional<float> single = expression.EvaluateFloat(values);
    const std::optional<double> exact = expression.Evaluate(values);
    if ((single && !std::isfinite(*single)) || (exact && !std::isfinite(*exact)))
        __builtin_trap();
    if (readout && chipdesc::FormatReadoutNumber(*readout, single).empty())
        __builtin_trap();
    return 0;
}
