#include "dialogs/chips/fm612x/RegvaneFM6128.h"

#include "dialogs/chips/fm612x/Fm612xReadouts.h"

using namespace fm612x;

CRegvaneFM6128::CRegvaneFM6128(UINT templateId, IRegvane* chip, const wchar_t* caption, HWND parent,
                               int& linkedSwitch)
    : CChipDialog(templateId, chip, parent, caption, SnapshotScope::BlockOnly), m_linkedSwitch(linkedSwitch) {
    m_snapshotLarge = ReadLarge();
    for (const Colour colour : kColours)
        m_gain[colour] = ReadFm6128Gain(m_snapshotLarge, colour);
}

CRegvaneFM6128::LargeBlock CRegvaneFM6128::ReadLarge() const {
    LargeBlock block{};
    if (Chip())
        Chip()->GetRegData2(block.data());
    return block;
}

void CRegvaneFM6128::WriteLarge(LargeBlock& block) const {
    if (Chip())
        Chip()->SetRegData2(block.data());
}

bool CRegvaneFM6128::ChipDiffersFromSnapshot() {
    return ReadLarge() != m_snapshotLarge || CChipDialog::ChipDiffersFromSnapshot();
}

void CRegvaneFM6128::DoDataExchange(CDataExchange* dx) {
    for (const Colour colour : kColours) {
        DDX_Control(dx, kGainSliderIds[colour], m_sliders[colour]);
        DDX_Slider(dx, kGainSliderIds[colour], m_gain[colour]);
    }
    DDX_Check(dx, kLinkGainsId, m_linked);
}

void CRegvaneFM6128::OnInitControls() {
    for (CSliderCtrl& slider : m_sliders)
        slider.SetRange(0, kFm6128GainMax, TRUE);
}

void CRegvaneFM6128::RefreshFromChip() {
    const LargeBlock block = ReadLarge();
    for (const Colour colour : kColours)
        m_gain[colour] = ReadFm6128Gain(block, colour);
    m_linked = m_linkedSwitch;
    UpdateGainLabels();
    UpdateData(FALSE);
}

void CRegvaneFM6128::UpdateGainLabels() {
    for (const Colour colour : kColours)
        SetItemText(kGainLabelIds[colour], FormatFm6128Gain(m_gain[colour]));
}

bool CRegvaneFM6128::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    if (!CanWrite())
        return false;
    LargeBlock block = ReadLarge();
    const int moved = ColourOfWindow(m_sliders, scrollBar);
    if (!m_linkedSwitch) {
        for (const Colour colour : kColours) {
            m_gain[colour] = m_sliders[colour].GetPos();
            WriteFm6128Gain(block, colour, m_gain[colour]);
        }
    } else if (moved >= 0) {
        const int gain = m_sliders[moved].GetPos();
        for (const Colour colour : kColours) {
            m_sliders[colour].SetPos(gain, TRUE);
            m_gain[colour] = gain;
            WriteFm6128Gain(block, colour, gain);
        }
    }
    WriteLarge(block);
    UpdateGainLabels();
    NotifyIfChanged();
    return true;
}

bool CRegvaneFM6128::OnCommand(UINT code, UINT id, HWND control) {
    if (code != BN_CLICKED || id != kLinkGainsId)
        return false;
    m_linked = IsButtonChecked(kLinkGainsId) ? 1 : 0;
    m_linkedSwitch = m_linked;
    return true;
}

BOOL CRegvaneFM6128Ex::OnInitDialog() {
    const BOOL result = CRegvaneFM6128::OnInitDialog();
    WriteNormalizedChip();
    return result;
}

void CRegvaneFM6128Ex::DoDataExchange(CDataExchange* dx) {
    CRegvaneFM6128::DoDataExchange(dx);
    DDX_Control(dx, kBlankingEditId, m_blanking);
}

void CRegvaneFM6128Ex::OnInitControls() {
    CRegvaneFM6128::OnInitControls();
    m_blanking.EnableSpin(true);
    m_blanking.SetRange(0, kFm6128ExBlankingMax);
}

void CRegvaneFM6128Ex::RefreshFromChip() {
    CRegvaneFM6128::RefreshFromChip();
    const LargeBlock block = ReadLarge();
    m_blanking.SetValue(ReadFm6128ExBlanking(block));
    UpdateBlankingTime();
    if (CanWrite())
        WriteNormalizedChip();
}

void CRegvaneFM6128Ex::WriteNormalizedChip() {
    if (!CanWrite())
        return;
    const LargeBlock block = ReadLarge();
    LargeBlock normalized = block;
    for (const Colour colour : kColours)
        WriteFm6128Gain(normalized, colour, ReadFm6128Gain(block, colour));
    WriteFm6128ExScanCount(normalized, Chip()->GetCount());
    SetItemText(kScanCountId, std::to_wstring(ReadFm6128ExScanCount(normalized)));
    if (normalized == block)
        return;
    WriteLarge(normalized);
    NotifyIfChanged();
}

void CRegvaneFM6128Ex::UpdateBlankingTime() {
    SetItemText(kBlankingTimeId, FormatNanoseconds(Fm6128ExBlankingNanoseconds(m_blanking.GetValueInt())));
}

void CRegvaneFM6128Ex::OnNumberEditChanged(UINT id, HWND edit) {
    if (id != kBlankingEditId)
        return;
    UpdateBlankingTime();
    if (!CanWrite())
        return;
    LargeBlock block = ReadLarge();
    WriteFm6128ExBlanking(block, m_blanking.GetValueInt());
    WriteLarge(block);
    NotifyIfChanged();
}
