#include "dialogs/chips/fm612x/RegvaneFM6127EX.h"

#include "module/ModuleState.h"

#include <algorithm>

using namespace fm612x;

namespace {

constexpr std::array<Fm6127ExGlobal, 3> kGlobalFields{Fm6127ExGlobal::RefreshMode, Fm6127ExGlobal::GreyMode,
                                                      Fm6127ExGlobal::ScanDirection};
constexpr std::array<std::array<const wchar_t*, 2>, 3> kGlobalItems{{
    {L"IDS_FM6127_CMB_Item1", L"IDS_FM6127_CMB_Item2"},
    {L"IDS_FM6127_CMB_Item3", L"IDS_FM6127_CMB_Item4"},
    {L"IDS_FM6127_CMB_Item5", L"IDS_FM6127_CMB_Item6"},
}};
// Grey mode and scan direction exist only on chip revisions that announce them.
constexpr int kExtendedGroupIds[] = {
    CRegvaneFM6127EX::kGlobalComboIds[1], CRegvaneFM6127EX::kGlobalComboIds[2],
    CRegvaneFM6127EX::kGlobalCaptionIds[1], CRegvaneFM6127EX::kGlobalCaptionIds[2]};
constexpr int kHostSliderMax = 63;

} // namespace

CRegvaneFM6127EX::CRegvaneFM6127EX(IRegvane* chip, const wchar_t* caption, HWND parent)
    : CChipDialog(kFM6127EXTemplate, chip, parent, nullptr, SnapshotScope::Nothing) {
    m_initialBlock = ReadBlock();
    m_initialEx = ReadExRecord();
    m_initialSliderValue = Chip() ? Chip()->GetSliderValue() : 0;
}

CRegvaneFM6127EX::ExRecord CRegvaneFM6127EX::ReadExRecord() const {
    ExRecord record{};
    if (Chip())
        Chip()->GetRegDataEx(record.data());
    return record;
}

void CRegvaneFM6127EX::DoDataExchange(CDataExchange* dx) {
    for (std::size_t setting = 0; setting < kSettings; ++setting)
        for (const Colour colour : kColours)
            DDX_Control(dx, FieldEditId(setting, colour), m_edits[setting][colour]);
    for (std::size_t i = 0; i < m_globalCombos.size(); ++i) {
        DDX_Control(dx, kGlobalComboIds[i], m_globalCombos[i]);
        DDX_CBIndex(dx, kGlobalComboIds[i], m_globalIndex[i]);
    }
    DDX_Control(dx, kHostSliderId, m_hostSlider);
    DDX_Slider(dx, kHostSliderId, m_hostSliderValue);
}

void CRegvaneFM6127EX::OnInitControls() {
    SetWindowText(ModelCaption(Chip(), L"IDS_Chip_Param_Setting"));
    for (std::size_t setting = 0; setting < kSettings; ++setting) {
        const EditRange range = Fm6127ExEditRange(kFm6127ExEditedFields[setting]);
        for (CNumberEdit& edit : m_edits[setting]) {
            edit.EnableSpin(true);
            edit.SetRange(range.min, range.max);
        }
    }
    for (std::size_t i = 0; i < m_globalCombos.size(); ++i) {
        m_globalCombos[i].ResetContent();
        for (const wchar_t* item : kGlobalItems[i])
            m_globalCombos[i].AddString(Tr(item));
    }
    // The brightness step belongs to the host; the page only shows it.
    m_hostSlider.SetRange(0, kHostSliderMax, TRUE);
    m_hostSlider.EnableWindow(false);
    m_hostSliderValue = std::clamp(Chip() ? Chip()->GetSliderValue() : 0, 0, kHostSliderMax);
    SetItemText(kHostSliderValueId, std::to_wstring(m_hostSliderValue));
}

void CRegvaneFM6127EX::RefreshFromChip() {
    const RegBlock block = ReadBlock();
    for (std::size_t setting = 0; setting < kSettings; ++setting)
        for (const Colour colour : kColours)
            m_edits[setting][colour].SetValue(ReadFm6127Ex(block, colour, kFm6127ExEditedFields[setting]));
    for (std::size_t i = 0; i < kGlobalFields.size(); ++i)
        m_globalIndex[i] = ReadFm6127ExGlobal(block, kGlobalFields[i]);
    const bool extended = ReadFm6127ExGlobal(block, Fm6127ExGlobal::ExtendedShown) != 0;
    for (const int id : kExtendedGroupIds)
        ShowItem(id, extended);
    UpdateData(FALSE);
}

bool CRegvaneFM6127EX::ChipDiffersFromSnapshot() {
    // All three are read whatever differs: the host sees the same calls whatever changed.
    const bool blockDiffers = ReadBlock() != m_initialBlock;
    const bool exDiffers = ReadExRecord() != m_initialEx;
    const int sliderValue = Chip() ? Chip()->GetSliderValue() : 0;
    return blockDiffers || exDiffers || sliderValue != m_initialSliderValue;
}

void CRegvaneFM6127EX::ReportChangeState() {
    if (!Chip())
        return;
    if (ChipDiffersFromSnapshot())
        Chip()->MarkModified();
    else
        Chip()->UpdateHostState(1, 1);
}

template <typename Patch> void CRegvaneFM6127EX::ChangeChip(Patch patch) {
    RegBlock block = ReadBlock();
    ExRecord ex = ReadExRecord();
    patch(block);
    WriteBlock(block);
    Chip()->SetRegDataEx(ex.data());
    RefreshFromChip();
    ReportChangeState();
}

void CRegvaneFM6127EX::OnNumberEditChanged(UINT id, HWND edit) {
    const auto slot = FieldEditAt(id, kFirstFieldEditId, kSettings);
    if (!CanWrite() || !slot)
        return;
    const auto [setting, colour] = *slot;
    const int value = m_edits[setting][colour].GetValueInt();
    ChangeChip([&](RegBlock& block) { WriteFm6127Ex(block, colour, kFm6127ExEditedFields[setting], value); });
}

bool CRegvaneFM6127EX::OnCommand(UINT code, UINT id, HWND control) {
    if (code != CBN_SELCHANGE)
        return false;
    const auto combo = std::find(kGlobalComboIds.begin(), kGlobalComboIds.end(), static_cast<int>(id));
    if (combo == kGlobalComboIds.end())
        return false;
    if (!CanWrite())
        return true;
    const auto i = static_cast<std::size_t>(combo - kGlobalComboIds.begin());
    m_globalIndex[i] = m_globalCombos[i].GetCurSel();
    ChangeChip([&](RegBlock& block) { WriteFm6127ExGlobal(block, kGlobalFields[i], m_globalIndex[i]); });
    return true;
}
