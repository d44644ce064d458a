// Chip descriptions reach the module from a folder the host suite installs: any bytes at all must give
// a description or refusals each with its line, never a crash. What parses is laid out and every field is
// written and read on a record of the largest size, so the positions the parser accepted are in bounds;
// every rule is checked on the fields' highest values, which index only fields the page has.
#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"
#include "descriptions/DescriptionRules.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    chipdesc::ParseResult result =
        chipdesc::Parse(text, [](std::string_view id) { return id.size() % 5 != 0; });
    auto* description = std::get_if<chipdesc::Description>(&result);
    if (!description) {
        // Every problem with its line and reason, in line order, a bounded number of them.
        const auto& error = std::get<chipdesc::ParseError>(result);
        int line = 0;
        for (std::size_t i = 0; i <= error.more.size(); ++i) {
            const chipdesc::Problem& problem = i == 0 ? error : error.more[i - 1];
            if (problem.line < line || i >= chipdesc::kMaxProblems ||
                chipdesc::ReasonStringId(problem.code).empty())
                __builtin_trap();
            line = problem.line;
        }
        return 0;
    }
    chipdesc::LayoutTexts texts;
    texts.measure = [](std::wstring_view shown) { return static_cast<int>(shown.size()) * 7; };
    const chipdesc::LayoutPlan plan = chipdesc::PlanLayout(*description, texts, {});
    if (plan.width < 0 || plan.height < 0)
        __builtin_trap();
    for (const chipdesc::Field& field : description->fields) {
        std::array<std::uint8_t, 128> record{};
        const std::size_t bytes = chipdesc::SourceBytes(field.source);
        for (int colour = 0; colour < static_cast<int>(field.positions.size()); ++colour) {
            chipdesc::WriteValue(field, std::span(record.data(), bytes), colour, field.maximum);
            if (!field.cutToWidth &&
                chipdesc::ReadValue(field, std::span(record.data(), bytes), colour) != field.maximum)
                __builtin_trap();
        }
    }
    const chipdesc::FieldValueOf highest = [&](int field) {
        return std::optional<std::int64_t>(description->fields.at(static_cast<std::size_t>(field)).maximum);
    };
    if (chipdesc::BrokenRules(*description, highest).size() > description->rules.size())
        __builtin_trap();
    return 0;
}
