#include "dialogs/chips/fm612x/RegvaneFM6129.h"

#include "dialogs/chips/fm612x/Fm612xReadouts.h"

using namespace fm612x;

namespace {

constexpr int kDefaultReference = 1000;

} // namespace

CRegvane_FM6129::CRegvane_FM6129(IRegvane* chip, const wchar_t* caption, HWND parent)
    : CChipDialog(kFM6129Template, chip, parent, caption) {
    for (const Colour colour : kColours)
        m_gain[colour] = ReadFm6129Gain(SnapshotBlock(), colour);
}

void CRegvane_FM6129::DoDataExchange(CDataExchange* dx) {
    for (const Colour colour : kColours) {
        DDX_Control(dx, kGainSliderIds[colour], m_sliders[colour]);
        DDX_Control(dx, kLowGreyEditIds[colour], m_lowGreyEdits[colour]);
        DDX_Control(dx, kReferenceEditIds[colour], m_references[colour]);
        DDX_Slider(dx, kGainSliderIds[colour], m_gain[colour]);
    }
    DDX_Check(dx, kLinkGainsId, m_linked);
    DDX_Check(dx, kShowCurrentId, m_showCurrent);
}

void CRegvane_FM6129::OnInitControls() {
    for (const Colour colour : kColours) {
        m_lowGreyEdits[colour].EnableSpin(true);
        m_lowGreyEdits[colour].SetRange(0, kFm6129LowGreyMax);
        m_lowGreyEdits[colour].SetValue(0);
        m_references[colour].SetRange(0, 1000000);
        m_references[colour].SetValue(kDefaultReference);
    }
}

void CRegvane_FM6129::ApplyHostRanges() {
    const auto [minimum, maximum] = HostGainRange();
    for (CSliderCtrl& slider : m_sliders)
        slider.SetRange(minimum, maximum, TRUE);
}

void CRegvane_FM6129::RefreshFromChip() {
    const RegBlock block = ReadBlock();
    for (const Colour colour : kColours) {
        m_gain[colour] = ReadFm6129Gain(block, colour);
        m_lowGreyEdits[colour].SetValue(ReadFm6129LowGrey(block, colour));
    }
    UpdatePercentLabels();
    UpdateCurrentGroup();
    UpdateData(FALSE);
}

void CRegvane_FM6129::UpdatePercentLabels() {
    for (const Colour colour : kColours)
        SetItemText(kGainPercentIds[colour], FormatFm6129Percent(m_gain[colour]));
}

void CRegvane_FM6129::UpdateCurrentReadout(Colour colour) {
    const CurrentReadout readout =
        Fm6129Readout(m_gain[colour], Fm6129Divisor(static_cast<float>(m_references[colour].GetValue())));
    SetItemText(kReadoutGainIds[colour], readout.fraction);
    SetItemText(kReadoutCurrentIds[colour], readout.current);
}

void CRegvane_FM6129::UpdateCurrentGroup() {
    const bool show = m_showCurrent != 0;
    for (const Colour colour : kColours) {
        EnableItem(kReferenceEditIds[colour], show);
        EnableItem(kReadoutGainIds[colour], show);
        EnableItem(kReadoutCurrentIds[colour], show);
        if (show)
            UpdateCurrentReadout(colour);
    }
}

bool CRegvane_FM6129::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    if (!CanWrite())
        return false;
    RegBlock block = ReadBlock();
    const int moved = ColourOfWindow(m_sliders, scrollBar);
    if (!m_linked) {
        for (const Colour colour : kColours) {
            m_gain[colour] = m_sliders[colour].GetPos();
            WriteFm6129Gain(block, colour, m_gain[colour]);
        }
    } else if (moved >= 0) {
        const int gain = m_sliders[moved].GetPos();
        for (const Colour colour : kColours) {
            m_sliders[colour].SetPos(gain, TRUE);
            m_gain[colour] = gain;
            WriteFm6129Gain(block, colour, gain);
        }
    }
    WriteBlock(block);
    UpdatePercentLabels();
    if (m_showCurrent && moved >= 0) {
        if (m_linked) {
            for (const Colour colour : kColours)
                UpdateCurrentReadout(colour);
        } else {
            UpdateCurrentReadout(static_cast<Colour>(moved));
        }
    }
    NotifyIfChanged();
    return true;
}

bool CRegvane_FM6129::OnCommand(UINT code, UINT id, HWND control) {
    if (code != BN_CLICKED)
        return false;
    if (id == kLinkGainsId) {
        m_linked = IsButtonChecked(kLinkGainsId) ? 1 : 0;
        return true;
    }
    if (id == kShowCurrentId) {
        m_showCurrent = IsButtonChecked(kShowCurrentId) ? 1 : 0;
        UpdateCurrentGroup();
        return true;
    }
    return false;
}

void CRegvane_FM6129::OnNumberEditChanged(UINT id, HWND edit) {
    if (const int colour = ColourOfId(kReferenceEditIds, id); colour >= 0) {
        if (m_showCurrent)
            UpdateCurrentReadout(static_cast<Colour>(colour));
        return;
    }
    const int colour = ColourOfId(kLowGreyEditIds, id);
    if (colour < 0 || !CanWrite())
        return;
    RegBlock block = ReadBlock();
    WriteFm6129LowGrey(block, static_cast<Colour>(colour), m_lowGreyEdits[colour].GetValueInt());
    WriteBlock(block);
    NotifyIfChanged();
}
