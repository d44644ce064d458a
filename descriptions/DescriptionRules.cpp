// Rules between fields: their sections and keys, connecting a check's names to the page's fields once
// every field is read, and which rules a set of values breaks.
#include "descriptions/DescriptionRules.h"

#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>

namespace chipdesc {

bool Rule::Names(int field) const {
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

std::vector<const Rule*> BrokenRules(const Description& description, const FieldValueOf& valueOf,
                                     int changed) {
    std::vector<const Rule*> broken;
    std::vector<std::int64_t> values;
    for (const std::shared_ptr<const Rule>& rule : description.rules) {
        if (changed >= 0 && !rule->Names(changed))
            continue;
        values.clear();
        for (const int field : rule->fields)
            if (const std::optional<std::int64_t> value = valueOf(field))
                values.push_back(*value);
        // Fewer values than names: no value, and a rule that cannot be shown to hold is broken.
        const std::optional<double> holds = rule->check.Evaluate(values);
        if (!holds || *holds == 0)
            broken.push_back(rule.get());
    }
    return broken;
}

namespace detail {

int RuleDraft::LineOf(std::string_view key) const {
    const auto found = keyLines.find(key);
    return found != keyLines.end() ? found->second : rule->line;
}

bool ReadRuleCheck(KeyValue& v) {
    auto parsed = Expression::Parse(v.value);
    if (const auto* error = std::get_if<Expression::Error>(&parsed))
        return v.FailAt(v.column + error->column - 1, error->kind == Expression::Error::Kind::DivisionByZero
                                                          ? ErrorCode::DivisionByZero
                                                          : ErrorCode::BadFormula);
    v.rule->rule->check = std::move(std::get<Expression>(parsed));
    return true;
}

bool ReadRuleMessage(KeyValue& v) {
    if (v.words.size() != 1)
        return v.Fail(v.value);
    return v.Text(v.words[0], v.rule->rule->message);
}

bool ReadOnBreak(KeyValue& v) {
    if (v.value == "refuse")
        v.rule->rule->onBreak = OnBreak::Refuse;
    else if (v.value == "warn")
        v.rule->rule->onBreak = OnBreak::Warn;
    else
        return v.Fail(v.value);
    return true;
}

bool Parser::RuleHeader(int number, std::string_view name) {
    if (!IsName(name))
        return Fail(number, ErrorCode::BadValue, name);
    if (std::any_of(m_rules.begin(), m_rules.end(),
                    [&](const RuleDraft& draft) { return draft.rule->name == name; }))
        return Fail(number, ErrorCode::DuplicateKey, "[rule " + std::string(name) + "]");
    RuleDraft draft{std::make_shared<Rule>(), {}};
    draft.rule->name = std::string(name);
    draft.rule->line = number;
    m_rules.push_back(std::move(draft));
    m_section = Section::Rule;
    return true;
}

// A check names fields of one value that the page shows: the values the operator sets and sees.
void Parser::FinishRules() {
    for (RuleDraft& draft : m_rules)
        if (!draft.broken && FinishRule(draft))
            m_description.rules.push_back(std::move(draft.rule));
}

bool Parser::FinishRule(RuleDraft& draft) {
    Rule& rule = *draft.rule;
    for (const char* key : {"check", "message"})
        if (!draft.keyLines.count(key))
            return Fail(rule.line, ErrorCode::MissingKey, key);
    for (const Expression::Name& name : rule.check.Names()) {
        const int field = m_description.FieldIndex(name.name);
        if (field < 0)
            return Fail(draft.LineOf("check"), ErrorCode::UnknownField, name.name);
        if (m_drafts[static_cast<std::size_t>(field)].broken) // told already
            return false;
        const Field& named = m_description.fields[static_cast<std::size_t>(field)];
        if (named.control == Control::None || named.ControlCount() > 1)
            return Fail(draft.LineOf("check"), ErrorCode::BadValue, name.name);
        rule.fields.push_back(field);
    }
    return true;
}

} // namespace detail

} // namespace chipdesc
