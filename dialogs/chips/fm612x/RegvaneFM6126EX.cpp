#include "dialogs/chips/fm612x/RegvaneFM6126EX.h"

#include "dialogs/chips/fm612x/Fm612xReadouts.h"
#include "module/ModuleState.h"

using namespace fm612x;

CRegvaneFM6126EX::CRegvaneFM6126EX(IRegvane* chip, const wchar_t* caption, HWND parent)
    : CChipDialog(kFM6126EXTemplate, chip, parent, caption) {}

void CRegvaneFM6126EX::DoDataExchange(CDataExchange* dx) {
    for (const Colour colour : kColours) {
        DDX_Control(dx, kGainSliderIds[colour], m_sliders[colour]);
        DDX_Control(dx, kModeComboIds[colour], m_modeCombos[colour]);
        DDX_Control(dx, kGhostComboIds[colour], m_ghostCombos[colour]);
        DDX_Control(dx, kLowGreyEditIds[colour], m_lowGreyEdits[colour]);
        DDX_Control(dx, kDelayEditIds[colour], m_delayEdits[colour]);
        DDX_Slider(dx, kGainSliderIds[colour], m_gain[colour]);
        DDX_CBIndex(dx, kModeComboIds[colour], m_mode[colour]);
        DDX_CBIndex(dx, kGhostComboIds[colour], m_ghost[colour]);
    }
    DDX_Check(dx, kLinkGainsId, m_linked);
}

void CRegvaneFM6126EX::OnInitControls() {
    for (const Colour colour : kColours) {
        m_sliders[colour].SetRange(0, kFm6126ExGainMax, TRUE);
        m_modeCombos[colour].ResetContent();
        m_modeCombos[colour].AddString(Tr(L"IDS_FM6126EX_NormalMode"));
        m_modeCombos[colour].AddString(Tr(L"IDS_FM6126EX_EnhancedMode"));
        m_ghostCombos[colour].ResetContent();
        for (const wchar_t* level : {L"0", L"1", L"2", L"3"})
            m_ghostCombos[colour].AddString(level);
        for (CNumberEdit* edit : {&m_lowGreyEdits[colour], &m_delayEdits[colour]}) {
            edit->EnableSpin(true);
            edit->SetRange(0, 7);
        }
    }
}

void CRegvaneFM6126EX::RefreshFromChip() {
    const RegBlock block = ReadBlock();
    for (const Colour colour : kColours) {
        m_gain[colour] = ReadFm6126Ex(block, colour, Fm6126ExField::Gain);
        m_sliders[colour].SetPos(m_gain[colour], TRUE);
    }
    UpdateGainLabels();
    m_linked = s_linked;
    for (const Colour colour : kColours) {
        m_mode[colour] = ReadFm6126Ex(block, colour, Fm6126ExField::Mode);
        m_ghost[colour] = ReadFm6126Ex(block, colour, Fm6126ExField::GhostLevel);
        m_lowGreyEdits[colour].SetValue(ReadFm6126Ex(block, colour, Fm6126ExField::LowGreyComp));
        m_delayEdits[colour].SetValue(ReadFm6126Ex(block, colour, Fm6126ExField::OutputDelay));
    }
    UpdateData(FALSE);
}

void CRegvaneFM6126EX::UpdateGainLabels() {
    for (const Colour colour : kColours)
        SetItemText(kGainLabelIds[colour], FormatFm6126ExGain(m_gain[colour]));
}

bool CRegvaneFM6126EX::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    if (!CanWrite())
        return false;
    RegBlock block = ReadBlock();
    const int moved = ColourOfWindow(m_sliders, scrollBar);
    if (!s_linked) {
        for (const Colour colour : kColours) {
            m_gain[colour] = m_sliders[colour].GetPos();
            WriteFm6126Ex(block, colour, Fm6126ExField::Gain, m_gain[colour]);
        }
    } else if (moved >= 0) {
        const int gain = m_sliders[moved].GetPos();
        for (const Colour colour : kColours) {
            m_sliders[colour].SetPos(gain, TRUE);
            m_gain[colour] = gain;
            WriteFm6126Ex(block, colour, Fm6126ExField::Gain, gain);
        }
    }
    WriteBlock(block);
    UpdateGainLabels();
    UpdateData(FALSE);
    NotifyIfChanged();
    return true;
}

void CRegvaneFM6126EX::WriteField(Colour colour, Fm6126ExField field, int value) {
    RegBlock block = ReadBlock();
    WriteFm6126Ex(block, colour, field, value);
    WriteBlock(block);
}

bool CRegvaneFM6126EX::OnCommand(UINT code, UINT id, HWND control) {
    if (code == BN_CLICKED && id == kLinkGainsId) {
        m_linked = IsButtonChecked(kLinkGainsId) ? 1 : 0;
        s_linked = m_linked;
        return true;
    }
    if (code != CBN_SELCHANGE)
        return false;
    const int modeColour = ColourOfId(kModeComboIds, id);
    const int ghostColour = ColourOfId(kGhostComboIds, id);
    if (modeColour < 0 && ghostColour < 0)
        return false;
    if (!CanWrite())
        return true;
    if (modeColour >= 0) {
        m_mode[modeColour] = m_modeCombos[modeColour].GetCurSel();
        WriteField(static_cast<Colour>(modeColour), Fm6126ExField::Mode, m_mode[modeColour]);
    } else {
        m_ghost[ghostColour] = m_ghostCombos[ghostColour].GetCurSel();
        WriteField(static_cast<Colour>(ghostColour), Fm6126ExField::GhostLevel, m_ghost[ghostColour]);
    }
    UpdateData(FALSE);
    NotifyIfChanged();
    return true;
}

void CRegvaneFM6126EX::OnNumberEditChanged(UINT id, HWND edit) {
    if (!CanWrite())
        return;
    const int lowGreyColour = ColourOfId(kLowGreyEditIds, id);
    const int delayColour = ColourOfId(kDelayEditIds, id);
    if (lowGreyColour >= 0)
        WriteField(static_cast<Colour>(lowGreyColour), Fm6126ExField::LowGreyComp,
                   m_lowGreyEdits[lowGreyColour].GetValueInt());
    else if (delayColour >= 0)
        WriteField(static_cast<Colour>(delayColour), Fm6126ExField::OutputDelay,
                   m_delayEdits[delayColour].GetValueInt());
    else
        return;
    NotifyIfChanged();
}
