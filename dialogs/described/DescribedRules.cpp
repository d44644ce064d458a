// The description's rules on the page: a change that breaks one is refused (the control shows the
// chip's value again) or written with a warning, and a fill that finds the chip breaking one shows it
// as it is and tells the operator once.
#include "descriptions/DescriptionRules.h"
#include "dialogs/described/DescribedPage.h"
#include "framework/ModuleInstance.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"

#include <algorithm>

using namespace chipdesc;

std::optional<std::int64_t> CDescribedPage::RuleValue(int field) const {
    for (const ControlSlot& slot : m_slots)
        if (slot.field == field && slot.colour == 0)
            return slot.value;
    return std::nullopt;
}

bool CDescribedPage::RulesAllowChange(int field, const ColourValues& values,
                                      std::vector<const Rule*>& warnings) {
    if (m_description->rules.empty())
        return true;
    // Rules name fields of one value: the change's value is its colour 0's.
    const auto valueOf = [&](int named) {
        return named == field ? std::optional<std::int64_t>(values[0]) : RuleValue(named);
    };
    std::vector<const Rule*> refused;
    for (const Rule* rule : BrokenRules(*m_description, valueOf, field))
        (rule->onBreak == OnBreak::Refuse ? refused : warnings).push_back(rule);
    if (refused.empty()) {
        // Told now: a fill the change makes does not tell them again.
        for (const Rule* rule : warnings)
            if (std::find(m_rulesTold.begin(), m_rulesTold.end(), rule) == m_rulesTold.end())
                m_rulesTold.push_back(rule);
        return true;
    }
    for (ControlSlot& slot : m_slots)
        if (slot.field == field)
            ShowValue(slot, slot.value);
    TellRules(refused);
    return false;
}

void CDescribedPage::TellRulesTheChipBreaks() {
    if (m_description->rules.empty())
        return;
    const std::vector<const Rule*> broken =
        BrokenRules(*m_description, [this](int field) { return RuleValue(field); });
    std::vector<const Rule*> fresh;
    for (const Rule* rule : broken)
        if (std::find(m_rulesTold.begin(), m_rulesTold.end(), rule) == m_rulesTold.end())
            fresh.push_back(rule);
    m_rulesTold = broken;
    TellRules(fresh);
}

void CDescribedPage::TellRules(const std::vector<const Rule*>& rules) const {
    if (rules.empty())
        return;
    std::wstring text;
    for (const Rule* rule : rules)
        text += (text.empty() ? L"" : L"\n\n") +
                (rule->message.literal ? Utf8ToWide(rule->message.text) : Tr(Utf8ToWide(rule->message.text)));
    MsgBox(m_hWnd, text, ApplicationName(), MB_OK | MB_ICONWARNING);
}
