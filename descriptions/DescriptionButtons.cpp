// A page's buttons: their sections, the action each asks for, and whether the page can do it.
#include "descriptions/ChipDescriptionParser.h"
#include "host/RegvaneTypes.h"
#include "paramfiles/RegisterParamTable.h"

#include <algorithm>
#include <array>

namespace chipdesc::detail {

namespace {

constexpr std::array<std::size_t, 3> kTableEntries{kFunctionTableEntries, kFunctionTable2Entries,
                                                   kFunctionTable3Entries};

// A number the key's value holds, within lowest..highest; `what` names it in the refusal.
bool NumberIn(KeyValue& v, std::string_view word, int lowest, int highest, const std::string& what,
              int& out) {
    if (!ParseInt(word, out))
        return v.Fail(word);
    if (out < lowest || out > highest)
        return v.Fail(what + " " + std::to_string(out) + " (" + std::to_string(lowest) + ".." +
                          std::to_string(highest) + ")",
                      ErrorCode::OutOfRange);
    return true;
}

} // namespace

bool ReadAction(KeyValue& v) {
    static constexpr std::pair<std::string_view, Action> kPlain[] = {{"reread", Action::Reread},
                                                                     {"defaults", Action::Defaults},
                                                                     {"export", Action::Export},
                                                                     {"import", Action::Import}};
    Button& button = v.button->button;
    for (const auto& [word, action] : kPlain)
        if (v.words.size() == 1 && v.words[0] == word) {
            button.action = action;
            return true;
        }
    if (v.words.size() == 2 && v.words[0] == "page") {
        button.action = Action::GoToPage;
        return NumberIn(v, v.words[1], 0, kMaxHostPage, "page", button.page);
    }
    if (v.words.size() == 3 && v.words[0] == "function") {
        button.action = Action::Function;
        if (!NumberIn(v, v.words[1], 1, static_cast<int>(kTableEntries.size()), "table", button.table))
            return false;
        const auto entries = static_cast<int>(kTableEntries[static_cast<std::size_t>(button.table - 1)]);
        return NumberIn(v, v.words[2], 0, entries - 1, "entry", button.entry);
    }
    return v.Fail(v.words.empty() ? v.value : v.words[0]);
}

bool ReadArgument(KeyValue& v) {
    Button& button = v.button->button;
    if (v.words.size() != 2)
        return v.Fail(v.value);
    if (v.words[0] == "value") {
        button.argument = Argument::Value;
        v.button->fieldName = std::string(v.words[1]);
        return true;
    }
    const auto source = SourceNamed(v.words[1]);
    if (v.words[0] != "record" || !source || IsHostValue(*source))
        return v.Fail(v.words[0] == "record" ? v.words[1] : v.words[0]);
    button.argument = Argument::Record;
    button.record = *source;
    return true;
}

bool Parser::ButtonHeader(int number, std::string_view name) {
    if (!IsName(name))
        return Fail(number, ErrorCode::BadValue, name);
    if (std::any_of(m_buttons.begin(), m_buttons.end(),
                    [&](const ButtonDraft& draft) { return draft.button.name == name; }))
        return Fail(number, ErrorCode::DuplicateKey, "[button " + std::string(name) + "]");
    ButtonDraft draft;
    draft.button.name = std::string(name);
    draft.button.line = number;
    m_buttons.push_back(std::move(draft));
    m_section = Section::Button;
    return true;
}

// Each button says what it does, and the page has what that needs; every button is looked at, so
// that each one's problem can be told.
void Parser::FinishButtons() {
    for (ButtonDraft& draft : m_buttons)
        if (!draft.broken)
            FinishButton(draft);
}

bool Parser::FinishButton(ButtonDraft& draft) {
    const std::vector<Field>& fields = m_description.fields;
    Button& button = draft.button;
    for (const char* key : {"label", "action"})
        if (!draft.keyLines.count(key))
            return Fail(button.line, ErrorCode::MissingKey, key);
    const int actionLine = draft.LineOf("action");
    if (draft.keyLines.count("argument") && button.action != Action::Function)
        return Fail(draft.LineOf("argument"), ErrorCode::BadValue, "argument");
    if (button.argument == Argument::Value) {
        button.field = m_description.FieldIndex(draft.fieldName);
        if (button.field < 0)
            return Fail(draft.LineOf("argument"), ErrorCode::UnknownField, draft.fieldName);
        if (m_drafts[static_cast<std::size_t>(button.field)].broken) // told already
            return false;
        // One value to hand over: a field per colour has three.
        if (fields[static_cast<std::size_t>(button.field)].ControlCount() > 1)
            return Fail(draft.LineOf("argument"), ErrorCode::BadValue, draft.fieldName);
    }
    if (button.action == Action::Defaults && !AnyFieldBroken() &&
        std::none_of(fields.begin(), fields.end(), [](const Field& f) { return f.defaultValue; }))
        return Fail(actionLine, ErrorCode::MissingKey, "default");
    if ((button.action == Action::Export || button.action == Action::Import) &&
        !m_description.page.className.empty() && !ParamTableKindOf(m_description.page.className))
        return Fail(actionLine, ErrorCode::NoParamTable, m_description.page.className);
    m_description.buttons.push_back(button);
    return true;
}

} // namespace chipdesc::detail
