#include "dialogs/chips/Mbi5153.h"

#include "dialogs/common/ReadoutLabels.h"
#include "module/ModuleState.h"

namespace {

constexpr int kFlagBit7CheckId = 8296;
constexpr int kFlagBit6CheckId = 8026;
constexpr int kLinkGainsCheckId = 8021;
constexpr int kFlagBit2CheckId = 9000;
constexpr int kShowCurrentCheckId = 8022;
constexpr int kDelayComboId = 8572;
constexpr int kDefaultButtonId = 8025;
constexpr int kExtendedPageButtonId = 8055;
constexpr int kResistanceRedEditId = 8050;
constexpr int kResistanceGreenEditId = 8051;
constexpr int kResistanceBlueEditId = 8049;
constexpr int kRecordByte9EditId = 1040;
constexpr int kRecordByte7EditId = 1042;

// The host's page with the chip's extended parameters.
constexpr int kExtendedPage = 12;

// Chip types and sub-types that share this page but carry their own name.
constexpr std::uint16_t kFm6153ChipType = 196;
constexpr std::uint16_t kMbi5252SubType = 212;

constexpr int kSliderIds[3] = {kRedGainSliderId, kGreenGainSliderId, kBlueGainSliderId};

// Current-setting resistors of the driver board, in ohms.
constexpr double kMinResistanceOhms = 1;
constexpr double kMaxResistanceOhms = 100000;
constexpr int kDefaultResistanceOhms = 1000;

// With linked gains the moved colour is recomputed first, then the others nearest first.
constexpr int kCurrentUpdateOrder[3][3] = {{0, 1, 2}, {1, 0, 2}, {2, 1, 0}};

} // namespace

CRegvaneMbi5153::CRegvaneMbi5153(IRegvane* chip, const wchar_t* caption, HWND parent)
    : CChipDialog(kTemplateId, chip, parent, caption) {
    TakeSettings(Changes().Snapshot(HostRecord::Block));
    m_linkGains = 0;
    m_showCurrent = 0;
    for (CNumberEdit* edit : {&m_editResistanceRed, &m_editResistanceGreen, &m_editResistanceBlue}) {
        edit->SetRange(kMinResistanceOhms, kMaxResistanceOhms);
        edit->SetStep(10);
        edit->EnableSpin(true);
    }
    m_editRecordByte9.SetRange(0, 255);
    m_editRecordByte7.SetRange(0, 63);
    m_editRecordByte9.EnableSpin(true);
    m_editRecordByte7.EnableSpin(true);
}

void CRegvaneMbi5153::DoDataExchange(CDataExchange* dx) {
    DDX_Control(dx, kRedGainSliderId, m_sliderRed);
    DDX_Control(dx, kGreenGainSliderId, m_sliderGreen);
    DDX_Control(dx, kBlueGainSliderId, m_sliderBlue);
    DDX_Control(dx, kFlagBit6CheckId, m_checkFlagBit6);
    DDX_Control(dx, kFlagBit7CheckId, m_checkFlagBit7);
    DDX_Control(dx, kLinkGainsCheckId, m_checkLinkGains);
    DDX_Control(dx, kShowCurrentCheckId, m_checkShowCurrent);
    DDX_Control(dx, kFlagBit2CheckId, m_checkFlagBit2);
    DDX_Control(dx, kDelayComboId, m_comboDelay);
    DDX_Control(dx, kResistanceRedEditId, m_editResistanceRed);
    DDX_Control(dx, kResistanceGreenEditId, m_editResistanceGreen);
    DDX_Control(dx, kResistanceBlueEditId, m_editResistanceBlue);
    DDX_Control(dx, kRecordByte9EditId, m_editRecordByte9);
    DDX_Control(dx, kRecordByte7EditId, m_editRecordByte7);

    DDX_Slider(dx, kRedGainSliderId, m_gainRed);
    DDX_Slider(dx, kGreenGainSliderId, m_gainGreen);
    DDX_Slider(dx, kBlueGainSliderId, m_gainBlue);
    DDX_Check(dx, kFlagBit7CheckId, m_flagBit7);
    DDX_Check(dx, kFlagBit6CheckId, m_flagBit6);
    DDX_Check(dx, kLinkGainsCheckId, m_linkGains);
    DDX_Check(dx, kFlagBit2CheckId, m_flagBit2);
    DDX_Check(dx, kShowCurrentCheckId, m_showCurrent);
    DDX_CBIndex(dx, kDelayComboId, m_delayIndex);
}

void CRegvaneMbi5153::OnInitControls() {
    if (IRegvane* chip = Chip()) {
        if (chip->GetChipType() == kFm6153ChipType)
            SetWindowText(Tr(L"IDD_FM6153_Title"));
        else if (chip->GetChipSubType() == kMbi5252SubType)
            SetWindowText(Tr(L"IDD_MBI5252_Title"));
    }
    m_editResistanceRed.SetValue(kDefaultResistanceOhms);
    m_editResistanceGreen.SetValue(kDefaultResistanceOhms);
    m_editResistanceBlue.SetValue(kDefaultResistanceOhms);
    m_editRecordByte9.SetValue(0);
    m_editRecordByte7.SetValue(0);
}

void CRegvaneMbi5153::ApplyHostRanges() {
    const auto [minimum, maximum] = HostGainRange();
    for (CSliderCtrl* slider : {&m_sliderRed, &m_sliderGreen, &m_sliderBlue})
        slider->SetRange(minimum, maximum, TRUE);
}

void CRegvaneMbi5153::TakeSettings(std::span<const std::uint8_t> block) {
    const mbi5153::Settings settings = mbi5153::Decode(block);
    m_gainRed = settings.gainRed;
    m_gainGreen = settings.gainGreen;
    m_gainBlue = settings.gainBlue;
    m_flagBit7 = settings.flagBit7;
    m_flagBit6 = settings.flagBit6;
    m_flagBit2 = settings.flagBit2;
    m_delayIndex = settings.delayStep;
}

float CRegvaneMbi5153::ResistanceOf(int colour) const {
    const CNumberEdit* edits[3] = {&m_editResistanceRed, &m_editResistanceGreen, &m_editResistanceBlue};
    return static_cast<float>(edits[colour]->GetValueInt());
}

void CRegvaneMbi5153::UpdateAllCurrentLabels() {
    const int gains[3] = {m_gainRed, m_gainGreen, m_gainBlue};
    for (int colour = 0; colour < 3; ++colour)
        UpdateCurrentLabels(*this, kSliderIds[colour], static_cast<float>(gains[colour]),
                            ResistanceOf(colour));
}

void CRegvaneMbi5153::RefreshFromChip() {
    TakeSettings(ReadBlock());
    const Record20 record = ReadRecord();
    m_editRecordByte9.SetValue(mbi5153::kRecordByte9.ReadFrom(record));
    m_editRecordByte7.SetValue(mbi5153::kRecordByte7.ReadFrom(record));
    m_editResistanceRed.SetValue(s_resistanceOhms[0]);
    m_editResistanceGreen.SetValue(s_resistanceOhms[1]);
    m_editResistanceBlue.SetValue(s_resistanceOhms[2]);
    m_showCurrent = s_showCurrent;
    m_linkGains = s_linkGains;
    m_sliderRed.SetPos(m_gainRed);
    m_sliderGreen.SetPos(m_gainGreen);
    m_sliderBlue.SetPos(m_gainBlue);
    if (m_showCurrent) {
        ShowCurrentGroup(*this, SW_SHOW);
        UpdateAllCurrentLabels();
    } else {
        ShowCurrentGroup(*this, SW_HIDE);
    }
    UpdateGainPercentLabels(*this, m_gainRed, m_gainGreen, m_gainBlue);
    m_comboDelay.ResetContent();
    for (int step = 0; step < mbi5153::kDelaySteps; ++step)
        m_comboDelay.AddString(mbi5153::DelayStepText(step));
    UpdateData(FALSE);
}

bool CRegvaneMbi5153::OnCommand(UINT notifyCode, UINT id, HWND control) {
    if (id == kDelayComboId) {
        if (notifyCode == CBN_SELCHANGE)
            OnDelayStepChanged();
        return notifyCode == CBN_SELCHANGE;
    }
    if (notifyCode != BN_CLICKED)
        return false;
    switch (id) {
    case kFlagBit7CheckId:
        OnFlagBit7Clicked();
        return true;
    case kFlagBit6CheckId:
        OnFlagBit6Clicked();
        return true;
    case kFlagBit2CheckId:
        OnFlagBit2Clicked();
        return true;
    case kLinkGainsCheckId:
        OnLinkGainsClicked();
        return true;
    case kDefaultButtonId:
        OnDefault();
        return true;
    case kShowCurrentCheckId:
        OnShowCurrentClicked();
        return true;
    case kExtendedPageButtonId:
        RequestHostPage(kExtendedPage);
        return true;
    default:
        return CChipDialog::OnCommand(notifyCode, id, control);
    }
}

bool CRegvaneMbi5153::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    if (CanWrite())
        OnGainSliderMoved(scrollBar);
    return CChipDialog::OnHScroll(code, position, scrollBar);
}

void CRegvaneMbi5153::OnGainSliderMoved(HWND scrollBar) {
    UpdateData(TRUE);
    RegBlock block = ReadBlock();
    const HWND sliders[3] = {m_sliderRed, m_sliderGreen, m_sliderBlue};
    int moved = -1;
    for (int colour = 0; colour < 3; ++colour)
        if (scrollBar && scrollBar == sliders[colour])
            moved = colour;

    if (!m_linkGains) {
        mbi5153::kGain.Of(0).WriteTo(block, m_gainRed);
        mbi5153::kGain.Of(1).WriteTo(block, m_gainGreen);
        mbi5153::kGain.Of(2).WriteTo(block, m_gainBlue);
    } else {
        // A scroll bar that is no gain slider gives no position: the sliders show -1 (their
        // minimum) and the block goes back unchanged.
        const CSliderCtrl* slidersByColour[3] = {&m_sliderRed, &m_sliderGreen, &m_sliderBlue};
        const int position = moved >= 0 ? slidersByColour[moved]->GetPos() : -1;
        for (const CSliderCtrl* slider : slidersByColour)
            slider->SetPos(position, TRUE);
        m_gainRed = m_gainGreen = m_gainBlue = position;
        if (position != -1)
            mbi5153::kGain.WriteAll(block, position);
    }
    WriteBlock(block);
    UpdateGainPercentLabels(*this, m_gainRed, m_gainGreen, m_gainBlue);

    if (m_showCurrent && moved >= 0) {
        const int colours = m_linkGains ? 3 : 1;
        for (int i = 0; i < colours; ++i) {
            const int colour = kCurrentUpdateOrder[moved][i];
            const RegBlock current = ReadBlock();
            UpdateCurrentLabels(*this, kSliderIds[colour],
                                static_cast<float>(mbi5153::kGain.Of(colour).ReadFrom(current)),
                                ResistanceOf(colour));
        }
    }
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnFlagBit6Clicked() {
    if (!CanWrite())
        return;
    UpdateData(TRUE);
    RegBlock block = ReadBlock();
    Record20 record = ReadRecord();
    mbi5153::WriteRecordWord(record, mbi5153::RecordWordFor(m_flagBit6, mbi5153::kFlagBit2.ReadFrom(block)));
    WriteRecord(record);
    mbi5153::kFlagBit6.WriteAll(block, m_flagBit6);
    WriteBlock(block);
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnFlagBit2Clicked() {
    if (!CanWrite())
        return;
    UpdateData(TRUE);
    RegBlock block = ReadBlock();
    Record20 record = ReadRecord();
    mbi5153::WriteRecordWord(record, mbi5153::RecordWordFor(mbi5153::kFlagBit6.ReadFrom(block), m_flagBit2));
    WriteRecord(record);
    mbi5153::kFlagBit2.WriteAll(block, m_flagBit2);
    WriteBlock(block);
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnFlagBit7Clicked() {
    if (!CanWrite())
        return;
    UpdateData(TRUE);
    RegBlock block = ReadBlock();
    mbi5153::kFlagBit7.WriteAll(block, m_flagBit7);
    WriteBlock(block);
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnDelayStepChanged() {
    if (!CanWrite())
        return;
    UpdateData(TRUE);
    RegBlock block = ReadBlock();
    // No selection (-1) masks to step 7: the chip then gets its longest delay, as it always has.
    mbi5153::kDelayStep.WriteAll(block, m_delayIndex);
    WriteBlock(block);
    UpdateData(FALSE);
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnLinkGainsClicked() {
    UpdateData(TRUE);
    s_linkGains = m_linkGains;
}

void CRegvaneMbi5153::OnShowCurrentClicked() {
    UpdateData(TRUE);
    s_showCurrent = m_showCurrent;
    if (!m_showCurrent) {
        ShowCurrentGroup(*this, SW_HIDE);
        return;
    }
    ShowCurrentGroup(*this, SW_SHOW);
    UpdateAllCurrentLabels();
}

void CRegvaneMbi5153::OnDefault() {
    IRegvane* chip = Chip();
    if (!CanWrite() || !chip)
        return;
    RegBlock block = ReadBlock();
    std::array<std::uint8_t, kRegDataExBytes> recordA{};
    chip->GetRegDataEx(recordA.data());
    mbi5153::ApplyDefaults(block, recordA);
    m_gainRed = m_gainGreen = m_gainBlue = mbi5153::kDefaultGain;
    for (const CSliderCtrl* slider : {&m_sliderRed, &m_sliderGreen, &m_sliderBlue})
        slider->SetPos(mbi5153::kDefaultGain);
    WriteBlock(block);
    chip->SetRegDataEx(recordA.data());

    UpdateGainPercentLabels(*this, m_gainRed, m_gainGreen, m_gainBlue);
    if (m_showCurrent)
        UpdateAllCurrentLabels();
    TakeSettings(block);
    for (int& resistance : s_resistanceOhms)
        resistance = kDefaultResistanceOhms;
    RefreshFromChip();
    NotifyIfChanged();
}

void CRegvaneMbi5153::OnNumberEditChanged(UINT id, HWND edit) {
    CNumberEdit* resistanceEdits[3] = {&m_editResistanceRed, &m_editResistanceGreen, &m_editResistanceBlue};
    const int gains[3] = {m_gainRed, m_gainGreen, m_gainBlue};
    for (int colour = 0; colour < 3; ++colour) {
        if (edit != resistanceEdits[colour]->GetSafeHwnd())
            continue;
        s_resistanceOhms[colour] = resistanceEdits[colour]->GetValueInt();
        UpdateCurrentLabels(*this, kSliderIds[colour], static_cast<float>(gains[colour]),
                            ResistanceOf(colour));
        return;
    }
    if (edit == m_editRecordByte9.GetSafeHwnd())
        OnRecordByteChanged(m_editRecordByte9, mbi5153::kRecordByte9, false);
    else if (edit == m_editRecordByte7.GetSafeHwnd())
        OnRecordByteChanged(m_editRecordByte7, mbi5153::kRecordByte7, true);
}

void CRegvaneMbi5153::OnRecordByteChanged(CNumberEdit& edit, const bitfield::Field& field,
                                          bool validateFirst) {
    if (!CanWrite())
        return;
    if (validateFirst && !UpdateData(TRUE)) {
        edit.SetValue(field.ReadFrom(ReadRecord()));
        NotifyIfChanged();
        return;
    }
    Record20 record = ReadRecord();
    field.WriteTo(record, edit.GetValueInt());
    WriteRecord(record);
    NotifyIfChanged();
}
