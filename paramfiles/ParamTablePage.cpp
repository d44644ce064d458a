#include "paramfiles/ParamTablePage.h"

#include "dialogs/chips/ParamTablePageList.h"
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

} // namespace

CParamTablePage::CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                                 ParamTableKind kind)
    : CParamTablePage(templateId, chip, parent, caption, kind, MakeParamTable(kind, chip)) {}

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

void CParamTablePage::OnBnClickedExport() {
    ExportAsked(*this, kExportButtonId, m_table.get());
}

void CParamTablePage::OnBnClickedImport() {
    if (ImportAsked(*this, kImportButtonId, m_kind, m_table.get(), [this] { NotifyIfChanged(); }))
        RefreshFromChip();
}
