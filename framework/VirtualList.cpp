#include "framework/VirtualList.h"

#include <algorithm>
#include <string_view>

void CVirtualList::AddColumns(const std::vector<Column>& columns) {
    // Each column would lay the list and its header out again. A hidden list is laid out once, with
    // its rows (SetRowCount): switching its drawing back on costs more than the columns.
    SendMessage(WM_SETREDRAW, FALSE);
    // Every title measured on one device context: the list view would take one per title.
    HWND header = ListView_GetHeader(m_hWnd);
    const int margins = header ? 2 * Header_GetBitmapMargin(header) : 0;
    HDC dc = ::GetDC(m_hWnd);
    const HGDIOBJ oldFont = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    for (const Column& added : columns) {
        SIZE title{};
        ::GetTextExtentPoint32W(dc, added.title.c_str(), static_cast<int>(added.title.size()), &title);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = LVCFMT_LEFT;
        column.cx = std::max(added.minimumWidth, static_cast<int>(title.cx) + margins);
        column.pszText = const_cast<wchar_t*>(added.title.c_str());
        SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(ColumnCount()), reinterpret_cast<LPARAM>(&column));
    }
    ::SelectObject(dc, oldFont);
    ::ReleaseDC(m_hWnd, dc);
    m_layoutPending = true;
    if (IsWindowVisible())
        FinishLayout();
}

int CVirtualList::ColumnCount() const {
    HWND header = ListView_GetHeader(m_hWnd);
    return header ? Header_GetItemCount(header) : 0;
}

void CVirtualList::SetRowCount(int rows) {
    // A new count lays the list out again and redraws its scroll bar: only when it changes.
    const bool changed = std::max(rows, 0) != RowCount();
    if (changed)
        SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(std::max(rows, 0)), LVSICF_NOSCROLL);
    if (changed || m_layoutPending)
        FinishLayout();
}

void CVirtualList::FinishLayout() {
    if (m_layoutPending) {
        m_layoutPending = false;
        SendMessage(WM_SETREDRAW, TRUE);
    }
    const bool shown = IsWindowVisible();
    if (!shown)
        SettleLayout();
    // The strip takes its place in the frame when the frame is next worked out: a list whose rows
    // brought no scroll bar just now, or whose font changed, has not had that happen yet.
    if (m_framePending)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    if (shown)
        DrawStrip();
}

void CVirtualList::SettleLayout() const {
    // Wine's list made hidden measures its rows and adds its scroll bar only at its own first paint,
    // which this list never asks for (it draws its rows itself). A paint into an empty clip does the
    // measuring; elsewhere it draws nothing.
    HDC dc = ::CreateCompatibleDC(nullptr);
    if (!dc)
        return;
    ::IntersectClipRect(dc, 0, 0, 0, 0);
    SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    ::DeleteDC(dc);
}

int CVirtualList::RowCount() const {
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

void CVirtualList::Refresh() const {
    // A hidden list is drawn whole when it shows.
    if (!IsWindowVisible())
        return;
    // The rows in view, the last one partly in view included; the header and scroll bar stay.
    const int top = static_cast<int>(SendMessage(LVM_GETTOPINDEX));
    const int inView = static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE));
    SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(top), static_cast<LPARAM>(top + inView));
}

const std::wstring& CVirtualList::Text(int row, int column) {
    m_text.clear();
    m_cellText(row, column, m_text);
    return m_text;
}

int CVirtualList::FindRow(const NMLVFINDITEMW& find) {
    const UINT flags = find.lvfi.flags;
    if (!find.lvfi.psz || !(flags & (LVFI_STRING | LVFI_PARTIAL)))
        return -1;
    const std::wstring_view wanted(find.lvfi.psz);
    const bool partial = (flags & LVFI_PARTIAL) != 0;
    const int rows = RowCount();
    const int start = find.iStart >= 0 && find.iStart < rows ? find.iStart : 0;
    const int candidates = (flags & LVFI_WRAP) ? rows : rows - start;
    for (int i = 0; i < candidates; ++i) {
        const int row = (start + i) % rows;
        std::wstring_view text = Text(row, 0);
        if (partial)
            text = text.substr(0, wanted.size());
        if (text.size() == wanted.size() &&
            ::CompareStringOrdinal(text.data(), static_cast<int>(text.size()), wanted.data(),
                                   static_cast<int>(wanted.size()), TRUE) == CSTR_EQUAL)
            return row;
    }
    return -1;
}

bool CVirtualList::OnNotify(const NMHDR* header, LRESULT& result) {
    if (!header || header->hwndFrom != m_hWnd)
        return false;
    switch (header->code) {
    case LVN_GETDISPINFOW: {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(header))->item;
        if ((item.mask & LVIF_TEXT) && item.pszText && item.cchTextMax > 0) {
            const std::wstring& text = Text(item.iItem, item.iSubItem);
            const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
            std::copy_n(text.begin(), length, item.pszText);
            item.pszText[length] = L'\0';
        }
        result = 0;
        return true;
    }
    case LVN_ODFINDITEMW:
        result = FindRow(*reinterpret_cast<const NMLVFINDITEMW*>(header));
        return true;
    default:
        return false;
    }
}
