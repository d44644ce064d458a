// The page of a chip whose registers are a parameter table: the table in a list, Export and Import
// through the file dialogs, OK and Cancel as on every chip page. The page classes differ only in
// their name, template and which table they edit (dialogs/chips/ParamTablePages.h).
#pragma once

#include "dialogs/common/ChipDialog.h"
#include "framework/VirtualList.h"
#include "paramfiles/RegisterParamTable.h"

#include <memory>
#include <string>

class CParamTablePage : public CChipDialog {
public:
    CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption,
                    ParamTableKind kind);

protected:
    // A page on a table of the caller's making: benchmarks show tables longer than any chip's.
    CParamTablePage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption, ParamTableKind kind,
                    std::unique_ptr<RegisterParamTable> table);

    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT notifyCode, UINT id, HWND control) override;
    bool OnNotify(NMHDR* header, LRESULT& result) override;
    bool ChipDiffersFromSnapshot() override;
    void RestoreSnapshot() override;

    void OnBnClickedExport();
    void OnBnClickedImport();

private:
    void CellText(int row, int column, std::wstring& text) const;

    ParamTableKind m_kind;
    std::unique_ptr<RegisterParamTable> m_table; // null without a host
    // The table as the list shows it: the list asks for the cells it draws.
    CVirtualList m_list{[this](int row, int column, std::wstring& text) { CellText(row, column, text); }};
};
