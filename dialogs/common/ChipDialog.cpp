#include "dialogs/common/ChipDialog.h"

#include "dialogs/common/HostRecords.h"
#include "module/ModuleState.h"

#include <algorithm>
#include <cstdint>

std::wstring ChipModelName(IRegvane* chip) {
    const char* model = chip ? chip->GetChipModelName() : nullptr;
    if (!model || !*model)
        return {};
    const int length = ::MultiByteToWideChar(CP_ACP, 0, model, -1, nullptr, 0);
    if (length <= 1)
        return {};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, model, -1, wide.data(), length);
    wide.resize(static_cast<std::size_t>(length - 1));
    return wide;
}

CChipDialog::CChipDialog(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                         std::vector<CoveredRecord> changeTest)
    : CDialog(templateId, parent), m_chip(chip), m_changes(chip, std::move(changeTest)),
      m_caption(caption ? caption : L"") {}

namespace {

// A whole record of the host, or zeros without one.
template <typename Bytes>
Bytes ReadWhole(IRegvane* chip, HostRecord record) {
    Bytes bytes{};
    if (chip)
        ReadHostRecord(*chip, record, bytes.data());
    return bytes;
}

template <typename Bytes>
void WriteWhole(IRegvane* chip, HostRecord record, Bytes& bytes) {
    if (chip)
        WriteHostRecord(*chip, record, bytes.data());
}

} // namespace

RegBlock CChipDialog::ReadBlock() const {
    return ReadWhole<RegBlock>(m_chip, HostRecord::Block);
}

void CChipDialog::WriteBlock(RegBlock& block) const {
    WriteWhole(m_chip, HostRecord::Block, block);
}

Record20 CChipDialog::ReadRecord() const {
    return ReadWhole<Record20>(m_chip, HostRecord::Record20);
}

void CChipDialog::WriteRecord(Record20& record) const {
    WriteWhole(m_chip, HostRecord::Record20, record);
}

std::pair<int, int> CChipDialog::HostGainBytes() const {
    if (!m_chip)
        return {0, 0};
    const int minimum = static_cast<std::uint8_t>(m_chip->GetGainMin());
    const int maximum = static_cast<std::uint8_t>(m_chip->GetGainMax());
    return {minimum, maximum};
}

std::pair<int, int> CChipDialog::HostGainRange() const {
    const auto [minimum, maximum] = HostGainBytes();
    return {std::min(minimum, maximum), std::max(minimum, maximum)};
}

bool CChipDialog::ChipDiffersFromSnapshot() {
    return m_changes.ChipDiffers();
}

void CChipDialog::RestoreSnapshot() {
    m_changes.Restore();
}

int CChipDialog::NotifyIfChanged() {
    return m_changes.Notify(ChipDiffersFromSnapshot());
}

bool CChipDialog::OnCommand(UINT notifyCode, UINT id, HWND control) {
    if (notifyCode != BN_CLICKED)
        return false;
    if (id == kChipOkButtonId) {
        CloseAfterChangeTest();
        return true;
    }
    if (id == kChipCancelButtonId) {
        RestoreSnapshotAndClose();
        return true;
    }
    return false;
}

void CChipDialog::CloseAfterChangeTest() {
    NotifyIfChanged();
    OnCancel();
}

void CChipDialog::RestoreSnapshotAndClose() {
    RestoreSnapshot();
    OnCancel();
}

void CChipDialog::RequestHostPage(int page) const {
    // The page lives in the host's view; the view's parent is the frame that switches pages. With
    // no frame there is nobody to ask (and a null window would post to the thread instead).
    HWND view = m_hWnd ? ::GetParent(m_hWnd) : nullptr;
    HWND frame = view ? ::GetParent(view) : nullptr;
    if (frame)
        ::PostMessageW(frame, kOpenHostPageMessage, static_cast<WPARAM>(page), 1);
}

BOOL CChipDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    Translator().TranslateDialog(m_hWnd, TemplateId());
    OnInitControls();
    ReloadView();
    m_initialized = true;
    return TRUE;
}

void CChipDialog::ReloadView() {
    if (!m_caption.empty())
        SetWindowText(m_caption);
    ApplyHostRanges();
    RefreshFromChip();
    UpdateData(FALSE);
}

void CChipDialog::OnShowWindow(bool show, UINT status) {
    CDialog::OnShowWindow(show, status);
    if (show && m_initialized)
        ReloadView();
}

bool CChipDialog::OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == kRefreshFromChipMessage) {
        RefreshFromChip();
        result = 0;
        return true;
    }
    if (message == kNumberEditValueChanged) {
        OnNumberEditChanged(static_cast<UINT>(wParam), reinterpret_cast<HWND>(lParam));
        result = 0;
        return true;
    }
    return CDialog::OnUserMessage(message, wParam, lParam, result);
}
