#include "dialogs/chips/fm612x/RegvaneFM6129Ex.h"

using namespace fm612x;

CRegvaneFM6129Ex::CRegvaneFM6129Ex(IRegvane* chip, const wchar_t* caption, HWND parent)
    : CChipDialog(kFM6129ExTemplate, chip, parent, nullptr, SnapshotScope::BlockOnly) {
    m_snapshotEx = ReadExRecord();
}

CRegvaneFM6129Ex::ExRecord CRegvaneFM6129Ex::ReadExRecord() const {
    ExRecord record{};
    if (Chip())
        Chip()->GetRegDataEx(record.data());
    return record;
}

bool CRegvaneFM6129Ex::ChipDiffersFromSnapshot() {
    const bool blockDiffers = CChipDialog::ChipDiffersFromSnapshot();
    return ReadExRecord() != m_snapshotEx || blockDiffers;
}

void CRegvaneFM6129Ex::DoDataExchange(CDataExchange* dx) {
    for (std::size_t setting = 0; setting < kSettings; ++setting)
        for (const Colour colour : kColours)
            DDX_Control(dx, FieldEditId(setting, colour), m_edits[setting][colour]);
}

void CRegvaneFM6129Ex::OnInitControls() {
    SetWindowText(ModelCaption(Chip(), L"IDS_Chip_Param_Extend_Setting"));
    for (std::size_t setting = 0; setting < kSettings; ++setting) {
        for (CNumberEdit& edit : m_edits[setting]) {
            edit.EnableSpin(true);
            edit.SetRange(0, Fm6129ExFieldMax(kFm6129ExFields[setting]));
        }
    }
}

void CRegvaneFM6129Ex::RefreshFromChip() {
    const RegBlock block = ReadBlock();
    for (std::size_t setting = 0; setting < kSettings; ++setting)
        for (const Colour colour : kColours)
            m_edits[setting][colour].SetValue(ReadFm6129Ex(block, colour, kFm6129ExFields[setting]));
}

void CRegvaneFM6129Ex::OnNumberEditChanged(UINT id, HWND edit) {
    const auto slot = FieldEditAt(id, kFirstFieldEditId, kSettings);
    if (!CanWrite() || !slot)
        return;
    const auto [setting, colour] = *slot;
    RegBlock block = ReadBlock();
    WriteFm6129Ex(block, colour, kFm6129ExFields[setting], m_edits[setting][colour].GetValueInt());
    WriteBlock(block);
    NotifyIfChanged();
}
