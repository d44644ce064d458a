// A report-view list that holds no rows of its own: it asks for the text of each cell it draws, so
// filling and refreshing it cost the same for 16 rows as for 4,096. The list view is created with
// LVS_REPORT | LVS_OWNERDATA (a style that cannot be added later), and its parent hands its WM_NOTIFY
// messages to OnNotify.
//
//   CVirtualList m_list{[this](int row, int column, std::wstring& text) { text = ...; }};
//   m_list.Attach(GetItem(kListId));  m_list.AddColumns({{L"Addr", 72}, ...});  m_list.SetRowCount(rows);
//   bool OnNotify(NMHDR* header, LRESULT& result) override { return m_list.OnNotify(header, result); }
#pragma once

#include "framework/Wnd.h"

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

class CVirtualList : public CWnd {
public:
    // Writes the text of one cell into `text`, which arrives empty.
    using CellText = std::function<void(int row, int column, std::wstring& text)>;

    explicit CVirtualList(CellText cellText) : m_cellText(std::move(cellText)) {}

    struct Column {
        std::wstring title;
        int minimumWidth;
    };
    // Columns after the others, each at least wide enough for its title between the header's
    // margins (a title, translated or not, is never cut short to "..."); laid out once for all.
    void AddColumns(const std::vector<Column>& columns) const;
    int ColumnCount() const;

    // Selection, focus and scroll position stay where the rows they are on still exist.
    void SetRowCount(int rows) const;
    int RowCount() const;
    // Draws the rows in view again with their current texts; nothing is rebuilt. A hidden list
    // has nothing to redraw.
    void Refresh() const;

    // The list's notifications from the parent's WM_NOTIFY; true when this list answered one: the
    // texts of cells, and finding a row by the start of its first cell's text (typing in the list).
    bool OnNotify(const NMHDR* header, LRESULT& result);

    // One cell's text as the list shows it, valid until the next call.
    const std::wstring& Text(int row, int column);

private:
    void AddColumn(const Column& column) const;
    void SettleLayout() const;
    int FindRow(const NMLVFINDITEMW& find);

    CellText m_cellText;
    std::wstring m_text;
};
