#include "paramfiles/ParamTablePage.h"

#include "dialogs/chips/ParamTablePageList.h"
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/ParamFileDialog.h"

#include <commctrl.h>

#include <algorithm>

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

// A column is at least wide enough for its title between the header's margins: a title, translated
// or not, is never cut short to "...".
void AddColumn(HWND list, int index, const std::wstring& title, int minimumWidth) {
    HWND header = ListView_GetHeader(list);
    const int margins = header ? 2 * Header_GetBitmapMargin(header) : 0;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = LVCFMT_LEFT;
    column.cx = std::max(minimumWidth, ListView_GetStringWidth(list, title.c_str()) + margins);
    column.pszText = const_cast<wchar_t*>(title.c_str());
    ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void SetCell(HWND list, int row, int column, const std::wstring& text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text.c_str());
    if (column == 0)
        ::SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    else
        ::SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
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

// The table runs the change test; the block is still read as the page opens, as hosts have seen.
CParamTablePage::CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                                 ParamTableKind kind)
    : CChipDialog(templateId, chip, parent, caption, {HostRecord::Block}), m_kind(kind),
      m_table(MakeTable(kind, chip)) {}

void CParamTablePage::OnInitControls() {
    Translator().TranslateDialog(m_hWnd, TemplateId(), kSharedSection);
    HWND list = GetItem(kListId);
    ::SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES,
                   LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    int column = 0;
    if (!m_table || !m_table->HasAddressColumn())
        AddColumn(list, column++, Tr(L"IDS_ParamTable_Row"), kRowNumberColumnWidth);
    if (m_table)
        for (const std::wstring& title : m_table->ColumnTitles())
            AddColumn(list, column++, title, kFieldColumnWidth);
}

void CParamTablePage::RefreshFromChip() {
    if (m_table)
        m_table->Refresh();
    FillList();
}

void CParamTablePage::FillList() {
    HWND list = GetItem(kListId);
    if (!list)
        return;
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ::SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    const int rows = m_table ? m_table->RowCount() : 0;
    const bool numbered = m_table && !m_table->HasAddressColumn();
    std::wstring text;
    for (int row = 0; row < rows; ++row) {
        int column = 0;
        if (numbered)
            SetCell(list, row, column++, std::to_wstring(row));
        for (const std::uint8_t value : m_table->Row(row)) {
            FormatHexByte(text, value);
            SetCell(list, row, column++, text);
        }
    }
    ::SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list, nullptr, TRUE);
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
