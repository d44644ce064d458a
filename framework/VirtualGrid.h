// A grid of cells edited in place, on a CVirtualList: it keeps no cells of its own, so opening it and
// editing one cell cost the same whatever its size. One cell is current (drawn highlighted): arrows,
// Page Up/Down, Home/End (first and last column) and Ctrl+Home/End (first and last row) move it, a
// click picks it. Enter, F2, a double click or typing opens an edit over it; Escape closes the edit;
// Enter or leaving the edit hands the typed text to the owner, who takes it or refuses it with a
// reason the grid shows under the cell until the next key or click. A refused cell keeps its value;
// a refused Enter keeps the edit open to be corrected. The first `fixedColumns` columns (row names)
// are neither current nor edited.
//
//   CVirtualGrid m_grid{[this](int row, int column, std::wstring& text) { text = ...; },
//                       [this](int row, int column, const std::wstring& typed) -> CVirtualGrid::Verdict {
//                           if (!Parse(typed, value)) return {false, Tr(L"IDS_...")};
//                           Write(row, column, value); return {true, {}}; }};
//   m_grid.Attach(GetItem(kGridId), 1);  m_grid.List().AddColumns(...);  m_grid.List().SetRowCount(rows);
//   bool OnNotify(NMHDR* header, LRESULT& result) override { return m_grid.OnNotify(header, result); }
#pragma once

#include "framework/VirtualList.h"

#include <functional>
#include <string>

class CVirtualGrid {
public:
    struct Verdict {
        bool accepted = false;
        std::wstring reason; // shown to the operator when refused
    };
    using CommitCell = std::function<Verdict(int row, int column, const std::wstring& typed)>;

    CVirtualGrid(CVirtualList::CellText cellText, CommitCell commit);
    ~CVirtualGrid();
    CVirtualGrid(const CVirtualGrid&) = delete;
    CVirtualGrid& operator=(const CVirtualGrid&) = delete;

    // A report-view list created with LVS_OWNERDATA; its parent hands its WM_NOTIFY to OnNotify.
    void Attach(HWND list, int fixedColumns);
    CVirtualList& List() { return m_list; }

    int Row() const { return m_row; }
    int Column() const { return m_column; }
    // Makes a cell current and scrolls it into view; kept within the grid's rows and editable columns.
    void SetCurrent(int row, int column);

    // Opens the edit over the current cell with its text (or `typed`, when typing opened it).
    bool BeginEdit(const std::wstring* typed = nullptr);
    bool IsEditing() const { return m_edit != nullptr; }
    // Hands the edit's text to the owner; true when taken or nothing was open.
    bool CommitEdit();
    void CancelEdit();
    // The reason of the last refusal, shown until the next key or click; empty after a taken edit.
    const std::wstring& Refusal() const { return m_refusal; }

    bool OnNotify(const NMHDR* header, LRESULT& result);

private:
    static LRESULT CALLBACK ListProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    static LRESULT CALLBACK EditProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    bool OnListKey(WPARAM key);
    void OnListClick(LPARAM point, bool edit);
    RECT CellRect(int row, int column) const;
    // Hands the edit's text to the owner and shows a refusal.
    Verdict Ask();
    // Removes the edit, whatever it holds.
    void Close();
    void ShowRefusal(const std::wstring& reason);
    void HideRefusal() const;
    void RedrawRow(int row) const;

    CVirtualList m_list;
    CommitCell m_commit;
    int m_fixedColumns = 0;
    int m_row = 0;
    int m_column = 0;
    HWND m_edit = nullptr;
    bool m_ending = false;
    HWND m_note = nullptr; // the refusal's reason, beside the cell
    std::wstring m_refusal;
};
