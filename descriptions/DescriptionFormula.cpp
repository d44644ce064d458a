// Read-out formulas: their format, reading the `readout` key, connecting the names to fields once every
// field is read, and the text a formula gives.
#include "descriptions/DescriptionFormula.h"

#include "descriptions/ChipDescriptionParser.h"
#include "descriptions/DescriptionReadouts.h"
#include "framework/TextEncoding.h"

#include <cmath>
#include <cstdint>

namespace chipdesc {

namespace {

constexpr int kMaxDecimals = 6;
// Beyond this a float has no whole digits left to show.
constexpr float kLargestShown = 1e15f;

} // namespace

std::optional<ReadoutFormat> ParseReadoutFormat(std::string_view format, int& badColumn) {
    ReadoutFormat parsed;
    bool converted = false;
    for (std::size_t i = 0; i < format.size(); ++i) {
        std::string& text = converted ? parsed.after : parsed.before;
        if (format[i] != '%') {
            text += format[i];
            continue;
        }
        badColumn = static_cast<int>(i) + 1;
        const std::string_view rest = format.substr(i + 1);
        if (rest.substr(0, 1) == "%") {
            text += '%';
            ++i;
        } else if (!converted && rest.substr(0, 1) == "d") {
            converted = true;
            ++i;
        } else if (!converted && rest.size() >= 3 && rest[0] == '.' && rest[1] >= '0' &&
                   rest[1] <= '0' + kMaxDecimals && rest[2] == 'f') {
            parsed.decimals = rest[1] - '0';
            converted = true;
            i += 3;
        } else {
            return std::nullopt;
        }
    }
    if (!converted) {
        badColumn = static_cast<int>(format.size()) + 1;
        return std::nullopt;
    }
    return parsed;
}

std::wstring FormatReadoutNumber(const ReadoutFormat& format, std::optional<float> value) {
    if (!value)
        return L"-";
    const int decimals = std::max(format.decimals, 0);
    float scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    // Rounded in single precision (halves away from zero), then written digit by digit: no locale's
    // decimal comma, no "-0".
    const float rounded = std::round(*value * scale);
    if (!(std::fabs(rounded) < kLargestShown))
        return L"-";
    const auto whole = static_cast<std::int64_t>(rounded);
    std::wstring digits = std::to_wstring(whole < 0 ? -whole : whole);
    if (decimals > 0) {
        if (digits.size() <= static_cast<std::size_t>(decimals))
            digits.insert(0, static_cast<std::size_t>(decimals) + 1 - digits.size(), L'0');
        digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, L'.');
    }
    return Utf8ToWide(format.before) + (whole < 0 ? L"-" : L"") + digits + Utf8ToWide(format.after);
}

std::optional<std::wstring> ReadoutText(const Field& field, std::int64_t value, const FieldValueOf& valueOf) {
    if (!field.formula)
        return FormatReadout(field.readout, static_cast<int>(value));
    const ReadoutFormula& formula = *field.formula;
    std::vector<std::int64_t> values;
    values.reserve(formula.fields.size());
    for (const int other : formula.fields) {
        const std::optional<std::int64_t> otherValue = other < 0 ? value : valueOf(other);
        if (!otherValue)
            return FormatReadoutNumber(formula.format, std::nullopt);
        values.push_back(*otherValue);
    }
    return FormatReadoutNumber(formula.format, formula.expression.EvaluateFloat(values));
}

namespace detail {

bool ReadReadout(KeyValue& v) {
    Field& field = v.draft->field;
    if (v.words.size() == 1 && !IsQuoted(v.value)) {
        if (!IsReadout(v.value))
            return v.Fail(v.value);
        field.readout = std::string(v.value);
        return true;
    }
    const std::string_view quoted = v.words.front();
    if (!IsQuoted(quoted) || v.words.size() < 2)
        return v.Fail(v.value);
    // Columns in the line: the format's text starts after its quote.
    int bad = 1;
    const std::optional<ReadoutFormat> format = ParseReadoutFormat(quoted.substr(1, quoted.size() - 2), bad);
    if (!format)
        return v.FailAt(v.column + bad, ErrorCode::BadFormula);
    const std::size_t start = quoted.size();
    auto parsed = Expression::Parse(v.value.substr(start));
    if (const auto* error = std::get_if<Expression::Error>(&parsed))
        return v.FailAt(v.column + static_cast<int>(start) + error->column - 1,
                        error->kind == Expression::Error::Kind::DivisionByZero ? ErrorCode::DivisionByZero
                                                                               : ErrorCode::BadFormula);
    auto formula = std::make_shared<ReadoutFormula>();
    formula->format = *format;
    formula->expression = std::move(std::get<Expression>(parsed));
    field.formula = std::move(formula);
    field.readout = std::string(v.value);
    return true;
}

// A formula's names are this field's value or fields the page shows, of one value or, for a read-out
// per colour, of the same colours.
bool Parser::ConnectFormulas() {
    for (FieldDraft& draft : m_drafts) {
        Field& field = draft.field;
        if (!field.formula || draft.broken)
            continue;
        auto formula = std::make_shared<ReadoutFormula>(*field.formula);
        for (const Expression::Name& name : formula->expression.Names()) {
            if (name.name == "value") {
                formula->fields.push_back(-1);
                continue;
            }
            const auto found = std::find_if(m_drafts.begin(), m_drafts.end(),
                                            [&](const FieldDraft& d) { return d.field.name == name.name; });
            if (found == m_drafts.end()) {
                draft.broken = !Fail(draft.LineOf("readout"), ErrorCode::UnknownField, name.name);
                break;
            }
            if (found->broken) // told already
                break;
            const Field& other = found->field;
            if (other.control == Control::None || other.ControlCount() > field.ControlCount()) {
                draft.broken = !Fail(draft.LineOf("readout"), ErrorCode::BadValue, name.name);
                break;
            }
            formula->fields.push_back(static_cast<int>(found - m_drafts.begin()));
        }
        field.formula = std::move(formula);
    }
    return true;
}

} // namespace detail

} // namespace chipdesc
