#include "dialogs/chips/fm612x/Fm612xGainSliderPage.h"

#include "dialogs/chips/fm612x/Fm612xReadouts.h"

namespace fm612x {

CGainSliderPage::CGainSliderPage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                                 GainCoding coding, GainSliderClassSettings& settings)
    : CChipDialog(templateId, chip, parent, caption), m_coding(coding), m_settings(settings) {
    const RegBlock& block = SnapshotBlock();
    for (const Colour colour : kColours)
        m_gain[colour] = ReadGain6(block, colour, m_coding);
}

void CGainSliderPage::DoDataExchange(CDataExchange* dx) {
    for (const Colour colour : kColours) {
        DDX_Control(dx, kGainSliderIds[colour], m_sliders[colour]);
        DDX_Control(dx, kReferenceEditIds[colour], m_references[colour]);
        DDX_Slider(dx, kGainSliderIds[colour], m_gain[colour]);
    }
    DDX_Check(dx, kLinkGainsId, m_linked);
    DDX_Check(dx, kShowCurrentId, m_showCurrent);
}

void CGainSliderPage::OnInitControls() {
    for (const Colour colour : kColours) {
        m_sliders[colour].SetRange(kGainSliderMin, kGainSliderMax, TRUE);
        m_references[colour].SetRange(0, 1000000);
    }
}

void CGainSliderPage::RefreshFromChip() {
    const RegBlock block = ReadBlock();
    for (const Colour colour : kColours)
        m_gain[colour] = ReadGain6(block, colour, m_coding);
    ReadRecord(); // the host expects the gain pages to fetch the record with every fill
    for (const Colour colour : kColours)
        m_references[colour].SetValue(m_settings.reference[colour]);
    m_showCurrent = m_settings.showCurrent;
    CheckButton(kShowCurrentId, m_showCurrent != 0);
    for (const Colour colour : kColours)
        m_sliders[colour].SetPos(m_gain[colour], TRUE);
    m_linked = m_settings.linked;
    CheckButton(kLinkGainsId, m_linked != 0);
    UpdateCurrentGroup();
    UpdatePercentLabels();
    UpdateData(FALSE);
}

void CGainSliderPage::WriteGains() {
    RegBlock block = ReadBlock();
    for (const Colour colour : kColours)
        WriteGain6(block, colour, m_coding, m_gain[colour]);
    WriteBlock(block);
}

void CGainSliderPage::UpdatePercentLabels() {
    for (const Colour colour : kColours)
        SetItemText(kGainPercentIds[colour], FormatGain6Percent(m_gain[colour]));
}

void CGainSliderPage::UpdateCurrentReadout(Colour colour) {
    const CurrentReadout readout =
        Gain6Readout(m_gain[colour], static_cast<float>(m_references[colour].GetValue()));
    SetItemText(kGainFractionIds[colour], readout.fraction);
    SetItemText(kGainCurrentIds[colour], readout.current);
}

void CGainSliderPage::UpdateCurrentGroup() {
    const bool show = m_showCurrent != 0;
    for (const Colour colour : kColours) {
        EnableItem(kReferenceEditIds[colour], show);
        EnableItem(kGainFractionIds[colour], show);
        EnableItem(kGainCurrentIds[colour], show);
        if (show)
            UpdateCurrentReadout(colour);
    }
}

bool CGainSliderPage::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    if (!CanWrite())
        return false;
    const int moved = ColourOfWindow(m_sliders, scrollBar);
    if (!m_settings.linked) {
        for (const Colour colour : kColours)
            m_gain[colour] = m_sliders[colour].GetPos();
    } else if (moved >= 0) {
        const int gain = m_sliders[moved].GetPos();
        for (const Colour colour : kColours) {
            m_sliders[colour].SetPos(gain, TRUE);
            m_gain[colour] = gain;
        }
    }
    WriteGains();
    UpdatePercentLabels();
    if (m_showCurrent)
        for (const Colour colour : kColours)
            UpdateCurrentReadout(colour);
    NotifyIfChanged();
    return true;
}

void CGainSliderPage::SetDefaultGains() {
    for (const Colour colour : kColours) {
        m_gain[colour] = kGainDefault;
        m_sliders[colour].SetPos(kGainDefault, TRUE);
    }
    WriteGains();
    UpdatePercentLabels();
    if (m_showCurrent)
        for (const Colour colour : kColours)
            UpdateCurrentReadout(colour);
    NotifyIfChanged();
}

bool CGainSliderPage::OnCommand(UINT code, UINT id, HWND control) {
    if (code != BN_CLICKED)
        return false;
    switch (id) {
    case kLinkGainsId:
        m_linked = IsButtonChecked(kLinkGainsId) ? 1 : 0;
        m_settings.linked = m_linked;
        return true;
    case kShowCurrentId:
        m_showCurrent = IsButtonChecked(kShowCurrentId) ? 1 : 0;
        m_settings.showCurrent = m_showCurrent;
        UpdateCurrentGroup();
        return true;
    case kDefaultGainId:
        if (CanWrite())
            SetDefaultGains();
        return true;
    default:
        return false;
    }
}

void CGainSliderPage::OnNumberEditChanged(UINT id, HWND edit) {
    const int colour = ColourOfId(kReferenceEditIds, id);
    if (colour < 0)
        return;
    m_settings.reference[colour] = m_references[colour].GetValueInt();
    if (m_showCurrent)
        UpdateCurrentReadout(static_cast<Colour>(colour));
}

} // namespace fm612x
