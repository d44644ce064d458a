#include "dialogs/chips/ChipRegModify.h"

#include "dialogs/common/ChipDialog.h"
#include "dialogs/common/HostRecords.h"
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"

#include <cstring>

namespace {

constexpr UINT kReadAgainButton = 8025;
constexpr UINT kRestoreButton = 8026;
// The plain caption of the first register, which the chip's own CFG1 caption replaces.
constexpr int kRegister1PlainCaption = 20607;

} // namespace

CchipRegModify::CchipRegModify(IRegvane* chip, HWND parent) : CchipRegModify(chip, parent, kTemplateId) {}

CchipRegModify::CchipRegModify(IRegvane* chip, HWND parent, UINT templateId)
    : CDialog(templateId, parent), m_chip(chip),
      m_changes(chip, {HostRecord::Block, {HostRecord::RecordA, 4}}) {}

void CchipRegModify::DoDataExchange(CDataExchange* dx) {
    for (std::size_t i = 0; i < kRawByteFields.size(); ++i)
        DDX_Text(dx, kRawByteFields[i].editId, m_texts[i]);
}

BOOL CchipRegModify::OnInitDialog() {
    CDialog::OnInitDialog();
    Translator().TranslateDialog(m_hWnd, kTemplateId);
    if (m_chip)
        ApplyRegisterKind(m_chip->GetRegisterKind());
    SetTitle();
    Refresh();
    UpdateData(FALSE);
    m_initialized = true;
    return TRUE;
}

bool CchipRegModify::OnCommand(UINT notifyCode, UINT id, HWND control) {
    if (notifyCode == EN_KILLFOCUS) {
        if (const auto field = RawByteFieldOf(static_cast<int>(id))) {
            OnByteEdited(*field);
            return true;
        }
        return false;
    }
    if (notifyCode != BN_CLICKED)
        return false;
    switch (id) {
    case kRawPresetButton:
        OnPreset();
        return true;
    case kReadAgainButton:
        if (m_initialized)
            Refresh();
        return true;
    case kRestoreButton:
        OnRestore();
        return true;
    default:
        return false;
    }
}

bool CchipRegModify::OnUserMessage(UINT message, WPARAM, LPARAM, LRESULT& result) {
    if (message != kRefreshFromChipMessage)
        return false;
    Refresh();
    result = 0;
    return true;
}

CchipRegModify::Records CchipRegModify::ReadRecords() const {
    Records records{};
    if (m_chip)
        for (const HostRecord record : {HostRecord::Block, HostRecord::RecordA, HostRecord::RecordB})
            ReadHostRecord(*m_chip, record, records[static_cast<std::size_t>(record)].data());
    return records;
}

void CchipRegModify::Refresh() {
    const Records records = ReadRecords();
    for (std::size_t i = 0; i < kRawByteFields.size(); ++i) {
        const RawByteField& field = kRawByteFields[i];
        m_texts[i] = FormatRawByte(records[static_cast<std::size_t>(field.source)][field.byte]);
    }
    UpdateData(FALSE);
}

void CchipRegModify::OnByteEdited(std::size_t field) {
    // Focus may move while the page is being built; nothing the operator typed is pending then.
    if (!m_initialized)
        return;
    const std::wstring previous = m_texts[field];
    UpdateData(TRUE);
    const std::optional<std::uint8_t> value = ParseRawByte(m_texts[field]);
    if (!value) {
        MsgBox(m_hWnd, Tr(L"IDS_INPUT_TIP"), ApplicationName(), MB_OK | MB_ICONINFORMATION);
        m_texts[field] = previous;
        UpdateData(FALSE);
        return;
    }
    if (!m_chip)
        return;
    // Only the record the byte belongs to goes to and from the host.
    const RawByteField& where = kRawByteFields[field];
    Record record{};
    ReadHostRecord(*m_chip, where.source, record.data());
    record[where.byte] = *value;
    WriteHostRecord(*m_chip, where.source, record.data());
    m_changes.NotifyIfChanged();
}

void CchipRegModify::OnPreset() {
    if (!m_chip || !m_initialized)
        return;
    Record block{};
    m_chip->GetRegData(block.data());
    std::memcpy(block.data() + kRawPresetFirstByte, kRawPresetBytes.data(), kRawPresetBytes.size());
    m_chip->SetRegData(block.data());
    m_changes.NotifyIfChanged();
    Refresh();
}

// Puts back what the chip held when the page opened, as far as the change test covers it.
void CchipRegModify::OnRestore() {
    if (!m_chip || !m_initialized)
        return;
    m_changes.Restore();
    m_changes.NotifyIfChanged();
    Refresh();
}

void CchipRegModify::ApplyRegisterKind(int kind) {
    const RawEditorLayout layout = LayoutForRegisterKind(kind);
    if (layout.hideX)
        for (int id : kRawGroupX)
            ShowItem(id, false);
    if (layout.hideY)
        for (int id : kRawGroupY)
            ShowItem(id, false);
    if (layout.showZ)
        for (int id : kRawGroupZ)
            ShowItem(id, true);
    if (layout.showRegister4Caption)
        ShowItem(kRawRegisterCaptions[3], true);
    if (layout.showRegister1Caption) {
        ShowItem(kRegister1PlainCaption, false);
        ShowItem(kRawRegisterCaptions[0], true);
    }
    if (layout.showPreset)
        ShowItem(kRawPresetButton, true);
    if (layout.disableFirstRegisterLow)
        for (int id : kRawFirstRegisterLowBytes)
            EnableItem(id, false);
    if (layout.configCaptions) {
        const wchar_t* captions[] = {L"CFG1", L"CFG2", L"CFG3", L"CFG4"};
        for (std::size_t i = 0; i < std::size(captions); ++i)
            SetItemText(kRawRegisterCaptions[i], captions[i]);
    }
    if (layout.colourRegister4Labels) {
        SetItemText(kRawRegister4Labels[0], Tr(L"IDS_ChipR4"));
        SetItemText(kRawRegister4Labels[1], Tr(L"IDS_ChipG4"));
        SetItemText(kRawRegister4Labels[2], Tr(L"IDS_ChipB4"));
    }
}

void CchipRegModify::SetTitle() {
    std::wstring title = Tr(L"IDD_ChipType_Title");
    const std::wstring model = ChipModelName(m_chip);
    if (!model.empty())
        title += L" - " + model;
    SetWindowText(title);
}
