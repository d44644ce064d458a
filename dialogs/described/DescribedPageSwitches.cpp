// The page's switches and the output-current read-out: the link switch, the read-out switch and the
// references the operator entered, kept for the page class or for this page alone.
#include "descriptions/DescriptionReadouts.h"
#include "dialogs/described/DescribedPage.h"
#include "framework/NumberEdit.h"

using namespace chipdesc;

void CDescribedPage::ShowSwitches() {
    if (!GetSafeHwnd())
        return;
    if (m_linkId)
        CheckButton(m_linkId, LinkSwitch() != 0);
    if (m_currentSwitchId) {
        for (int colour = 0; colour < m_description->page.colourCount; ++colour)
            if (CNumberEdit* reference = m_current[static_cast<std::size_t>(colour)].reference.get();
                reference && reference->GetValue() != Settings().reference[static_cast<std::size_t>(colour)])
                reference->SetValue(Settings().reference[static_cast<std::size_t>(colour)]);
        CheckButton(m_currentSwitchId, Settings().showCurrent != 0);
        UpdateCurrentGroup();
    }
}

void CDescribedPage::UpdateCurrent(int colour) {
    const CurrentColour& current = m_current[static_cast<std::size_t>(colour)];
    if (!current.reference)
        return;
    Value value = 0;
    for (const ControlSlot& slot : m_slots)
        if (slot.field == m_currentField && slot.colour == colour)
            value = slot.value;
    const auto text = FormatCurrent(m_description->fields[static_cast<std::size_t>(m_currentField)].current,
                                    static_cast<int>(value), current.reference->GetValue());
    if (!text)
        return;
    ::SetWindowTextW(current.fraction, text->fraction.c_str());
    ::SetWindowTextW(current.current, text->current.c_str());
}

void CDescribedPage::UpdateCurrentGroup() {
    // The read-out is greyed while the operator has not asked for it, and left as it was.
    const bool show = Settings().showCurrent != 0;
    for (int colour = 0; colour < m_description->page.colourCount; ++colour) {
        const CurrentColour& current = m_current[static_cast<std::size_t>(colour)];
        for (HWND window : {current.reference ? current.reference->GetSafeHwnd() : nullptr, current.fraction,
                            current.current})
            if (window)
                ::EnableWindow(window, show);
        if (show)
            UpdateCurrent(colour);
    }
}
