// A report-view list that holds no rows of its own: it asks for the text of each cell it draws, so
// filling and refreshing it cost the same for 16 rows as for 4,096. It draws its rows and column
// titles itself (VirtualListDraw.cpp); the list view keeps selecting, scrolling and the keyboard. The
// list view is created with LVS_REPORT | LVS_OWNERDATA (a style that cannot be added later), best with
// LVS_NOCOLUMNHEADER too, and its parent hands its WM_NOTIFY messages to OnNotify. A hidden list is laid
// out once, when SetRowCount follows AddColumns.
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
    ~CVirtualList() override;

    // Takes over the list's drawing; its own header is hidden for the titles this list draws.
    void Attach(HWND list);
    // Cells drawn as selected besides the selected rows (a grid's current cell).
    void SetHighlight(std::function<bool(int row, int column)> highlight) {
        m_highlight = std::move(highlight);
    }

    struct Column {
        std::wstring title;
        int minimumWidth;
    };
    // Columns after the others, each at least wide enough for its title between the header's
    // margins (a title, translated or not, is never cut short to "..."); laid out once for all.
    void AddColumns(const std::vector<Column>& columns);
    int ColumnCount() const;

    // Selection, focus and scroll position stay where the rows they are on still exist. Also lays out
    // a hidden list whose columns were added since.
    void SetRowCount(int rows);
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
    void FinishLayout();
    void SettleLayout() const;
    int FindRow(const NMLVFINDITEMW& find);

    static LRESULT CALLBACK DrawProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    // The strip of the frame above the rows that holds the titles, as tall as the font needs.
    void FitStrip();
    void DrawStrip();
    void DrawRows(HDC dc, const RECT& area);
    // Where each column starts, and after them where the last ends, in the rows' coordinates.
    std::vector<int> ColumnEdges() const;
    int Margin() const;

    CellText m_cellText;
    std::wstring m_text;
    std::function<bool(int, int)> m_highlight;
    int m_stripHeight = 0;
    bool m_framePending = false;  // the strip is not yet part of the frame
    bool m_layoutPending = false; // columns were added with the list view's drawing off
    int m_stripOrigin = 0;        // where the first column started when the titles were drawn
};
