#include "paramfiles/ParamTablePage.h"

#include "dialogs/chips/ParamTablePageList.h"
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/ParamFileDialog.h"

#include <commctrl.h>

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kListId = RV_PARAM_TABLE_LIST;
constexpr int kExportButtonId = RV_PARAM_EXPORT_BUTTON;
constexpr int kImportButtonId = RV_PARAM_IMPORT_BUTTON;

// The texts every parameter-table page shares, whatever its template number.
constexpr wchar_t kSharedSection[] = L"ParamTablePage";

constexpr int kRowNumberColumnWidth = 48;
constexpr int kFieldColumnWidth = 72;

std::unique_ptr<RegisterParamTable> MakeTable(ParamTableKind kind, IRegvane* chip) {
    if (!chip)
        return nullptr;
    switch (kind) {
    case ParamTableKind::Cns7363:
        return std::make_unique<Cns7363ParamTable>(chip);
    case ParamTableKind::Mbi5292:
        return std::make_unique<Mbi5292ParamTable>(chip);
    default:
        return std::make_unique<ChipParamTable>(chip);
    }
}

// The button stays disabled while its operation runs, and is enabled again however it ends.
class DisabledWhileRunning {
public:
    DisabledWhileRunning(const CDialog& page, int id) : m_page(page), m_id(id) {
        m_page.EnableItem(m_id, false);
    }
    ~DisabledWhileRunning() { m_page.EnableItem(m_id, true); }
    DisabledWhileRunning(const DisabledWhileRunning&) = delete;
    DisabledWhileRunning& operator=(const DisabledWhileRunning&) = delete;

private:
    const CDialog& m_page;
    int m_id;
};

} // namespace

CParamTablePage::CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                                 ParamTableKind kind)
    : CParamTablePage(templateId, chip, parent, caption, kind, MakeTable(kind, chip)) {}

// The table runs the change test; the block is still read as the page opens, as hosts have seen.
CParamTablePage::CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                                 ParamTableKind kind, std::unique_ptr<RegisterParamTable> table)
    : CChipDialog(templateId, chip, parent, caption, {HostRecord::Block}), m_kind(kind),
      m_table(std::move(table)) {}

void CParamTablePage::OnInitControls() {
    Translator().TranslateDialog(m_hWnd, TemplateId(), kSharedSection);
    m_list.Attach(GetItem(kListId));
    m_list.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES,
                       LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    std::vector<CVirtualList::Column> columns;
    if (!m_table || !m_table->HasAddressColumn())
        columns.push_back({Tr(L"IDS_ParamTable_Row"), kRowNumberColumnWidth});
    if (m_table)
        for (std::wstring& title : m_table->ColumnTitles())
            columns.push_back({std::move(title), kFieldColumnWidth});
    m_list.AddColumns(columns);
}

void CParamTablePage::RefreshFromChip() {
    if (m_table)
        m_table->Refresh();
    m_list.SetRowCount(m_table ? m_table->RowCount() : 0);
    m_list.Refresh();
}

void CParamTablePage::CellText(int row, int column, std::wstring& text) const {
    const bool numbered = !m_table || !m_table->HasAddressColumn();
    if (numbered && column == 0) {
        text = std::to_wstring(row);
        return;
    }
    const auto field = static_cast<std::size_t>(numbered ? column - 1 : column);
    const std::span<const std::uint8_t> fields =
        m_table ? m_table->Row(row) : std::span<const std::uint8_t>();
    if (field < fields.size())
        FormatHexByte(text, fields[field]);
}

bool CParamTablePage::OnNotify(NMHDR* header, LRESULT& result) {
    return m_list.OnNotify(header, result) || CChipDialog::OnNotify(header, result);
}

bool CParamTablePage::OnCommand(UINT notifyCode, UINT id, HWND control) {
    if (notifyCode != BN_CLICKED)
        return false;
    switch (id) {
    case kExportButtonId:
        OnBnClickedExport();
        return true;
    case kImportButtonId:
        OnBnClickedImport();
        return true;
    default:
        return CChipDialog::OnCommand(notifyCode, id, control);
    }
}

bool CParamTablePage::ChipDiffersFromSnapshot() {
    return m_table && m_table->DiffersFromSnapshot();
}

void CParamTablePage::RestoreSnapshot() {
    if (m_table)
        m_table->RestoreSnapshot();
}

ParamFileResult CParamTablePage::ExportParameterFile(const std::wstring& path) {
    return m_table ? m_table->Export(path) : kParamFileFailed;
}

ParamFileResult CParamTablePage::ImportParameterFile(const std::wstring& path) {
    if (!m_table)
        return kParamFileFailed;
    const ParamImportResult imported = m_table->Import(path);
    m_lastImportStatus = imported.status;
    if (imported.result >= 0)
        NotifyIfChanged();
    return imported.result;
}

void CParamTablePage::OnBnClickedExport() {
    const DisabledWhileRunning busy(*this, kExportButtonId);
    const std::wstring defaultName = m_table ? m_table->DefaultFileName() : std::wstring();
    std::wstring path;
    if (!AskExportPath(m_hWnd, defaultName, path))
        return;
    const ParamFileResult result = ExportParameterFile(path);
    MsgBox(m_hWnd, Tr(result >= 0 ? L"IDS_Export_Success" : L"IDS_Export_Failed"), ApplicationName(),
           MB_ICONINFORMATION);
}

void CParamTablePage::OnBnClickedImport() {
    const DisabledWhileRunning busy(*this, kImportButtonId);
    std::wstring path;
    if (!AskImportPath(m_hWnd, path))
        return;
    const ParamFileResult result = ImportParameterFile(path);
    if (m_kind == ParamTableKind::Mbi5292 && m_lastImportStatus == ParamReadStatus::WrongTag)
        MsgBox(m_hWnd, Tr(L"IDS_FILE_TAG_ERROR"), ApplicationName(), MB_ICONERROR);
    else
        MsgBox(m_hWnd, Tr(result >= 0 ? L"IDS_Import_Success" : L"IDS_Import_Failed"), ApplicationName(),
               MB_ICONINFORMATION);
    RefreshFromChip();
}
