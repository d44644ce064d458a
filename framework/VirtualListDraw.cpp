// The list draws its rows and its column titles itself. Under Wine a list view's own header and rows
// cost more to draw than the whole page around them; a line of text per cell costs little. The titles
// lie in a strip of the list's frame above the rows, the list view's header hidden, so the list view
// still places, selects, scrolls and hit-tests the rows as before. The rest of the frame (border and
// scroll bar) is copied from the last one the system drew alike, where it drew one.
#include "framework/FrameCache.h"
#include "framework/Subclass.h"
#include "framework/VirtualList.h"

#include <algorithm>
#include <vector>

namespace {

constexpr UINT_PTR kDrawSubclass = 0x564C; // "VL"

// Draws `text` in `cell` between the header's margins, centred in its height, cut with "..." when
// it does not fit. Measuring costs more than drawing: only a text that may not fit is measured.
void DrawCellText(HDC dc, const std::wstring& text, RECT cell, int margin, const TEXTMETRICW& metrics) {
    cell.left += margin;
    cell.right -= margin;
    if (text.empty() || cell.right <= cell.left)
        return;
    const auto length = static_cast<int>(text.size());
    if (length * metrics.tmMaxCharWidth > cell.right - cell.left) {
        ::DrawTextW(dc, text.c_str(), length, &cell,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        return;
    }
    const int top = (cell.top + cell.bottom - metrics.tmHeight) / 2;
    ::ExtTextOutW(dc, cell.left, top, ETO_CLIPPED, &cell, text.c_str(), static_cast<UINT>(length), nullptr);
}

void Fill(HDC dc, const RECT& area, COLORREF colour) {
    ::SetBkColor(dc, colour);
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

} // namespace

CVirtualList::~CVirtualList() {
    if (m_hWnd && ::IsWindow(m_hWnd))
        RemoveSubclass(m_hWnd, DrawProc, kDrawSubclass);
}

void CVirtualList::Attach(HWND list) {
    CWnd::Attach(list);
    if (!list)
        return;
    // A list made without its header saves the list view laying itself out again.
    if (const LONG_PTR style = ::GetWindowLongPtrW(list, GWL_STYLE); !(style & LVS_NOCOLUMNHEADER))
        ::SetWindowLongPtrW(list, GWL_STYLE, style | LVS_NOCOLUMNHEADER);
    AddSubclass(list, DrawProc, kDrawSubclass, reinterpret_cast<DWORD_PTR>(this));
    FitStrip();
}

void CVirtualList::FitStrip() {
    HDC dc = ::GetDC(m_hWnd);
    const HGDIOBJ oldFont = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    ::SelectObject(dc, oldFont);
    ::ReleaseDC(m_hWnd, dc);
    // As tall as the list view's own header with the same font.
    m_stripHeight = metrics.tmHeight + 3 * ::GetSystemMetrics(SM_CYEDGE);
    // A hidden list takes the strip when its rows are laid out, often with its scroll bar.
    m_framePending = true;
    if (IsWindowVisible())
        FinishLayout();
}

int CVirtualList::Margin() const {
    HWND header = ListView_GetHeader(m_hWnd);
    return header ? Header_GetBitmapMargin(header) : 0;
}

std::vector<int> CVirtualList::ColumnEdges() const {
    // Scrolled sideways, the columns start left of the rows' area.
    SCROLLINFO scroll{};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_POS;
    const bool scrolled =
        (::GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_HSCROLL) && ::GetScrollInfo(m_hWnd, SB_HORZ, &scroll);
    std::vector<int> edges{scrolled ? -scroll.nPos : 0};
    const int columns = ColumnCount();
    for (int column = 0; column < columns; ++column)
        edges.push_back(edges.back() +
                        static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column))));
    return edges;
}

void CVirtualList::DrawStrip() {
    if (!m_stripHeight)
        return;
    RECT window{}, client{};
    ::GetWindowRect(m_hWnd, &window);
    ::GetClientRect(m_hWnd, &client);
    POINT corner{0, 0};
    ::ClientToScreen(m_hWnd, &corner);
    const int border = corner.x - window.left;
    const RECT strip{border, corner.y - window.top - m_stripHeight, window.right - window.left - border,
                     corner.y - window.top};
    if (strip.bottom <= strip.top || strip.right <= strip.left)
        return;
    const std::vector<int> edges = ColumnEdges();
    m_stripOrigin = edges.front();
    HDC dc = ::GetWindowDC(m_hWnd);
    ::IntersectClipRect(dc, strip.left, strip.top, strip.right, strip.bottom);
    const HGDIOBJ oldFont = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    Fill(dc, strip, ::GetSysColor(COLOR_BTNFACE));
    // A flat header: a line under the titles and one after each column.
    const COLORREF line = ::GetSysColor(COLOR_BTNSHADOW);
    Fill(dc, {strip.left, strip.bottom - 1, strip.right, strip.bottom}, line);
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, ::GetSysColor(::IsWindowEnabled(m_hWnd) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    const int margin = Margin();
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    wchar_t title[128];
    for (std::size_t column = 0; column + 1 < edges.size(); ++column) {
        const int left = strip.left + edges[column];
        const int right = strip.left + edges[column + 1];
        if (right <= strip.left || left >= strip.right)
            continue;
        LVCOLUMNW item{};
        item.mask = LVCF_TEXT;
        item.pszText = title;
        item.cchTextMax = static_cast<int>(std::size(title));
        title[0] = L'\0';
        SendMessage(LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&item));
        DrawCellText(dc, title, {left, strip.top, right, strip.bottom - 1}, margin, metrics);
        Fill(dc, {right - 1, strip.top + 2, right, strip.bottom - 3}, line);
    }
    ::SelectObject(dc, oldFont);
    ::ReleaseDC(m_hWnd, dc);
}

void CVirtualList::DrawRows(HDC dc, const RECT& area) {
    RECT client{};
    ::GetClientRect(m_hWnd, &client);
    const std::vector<int> edges = ColumnEdges();
    // Scrolled sideways: the titles follow their columns.
    if (edges.front() != m_stripOrigin)
        DrawStrip();
    const HGDIOBJ oldFont = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    const auto background = static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR));
    const COLORREF paper = background == CLR_NONE ? ::GetSysColor(COLOR_WINDOW) : background;
    Fill(dc, area, paper);
    const bool enabled = ::IsWindowEnabled(m_hWnd) != FALSE;
    const bool focused = ::GetFocus() == m_hWnd;
    const LONG_PTR style = ::GetWindowLongPtrW(m_hWnd, GWL_STYLE);
    const auto extended = static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
    const COLORREF ink =
        enabled ? static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)) : ::GetSysColor(COLOR_GRAYTEXT);
    const int rows = RowCount();
    const int top = static_cast<int>(SendMessage(LVM_GETTOPINDEX));
    RECT first{};
    first.left = LVIR_BOUNDS;
    const bool anyRow = top < rows && SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(top),
                                                  reinterpret_cast<LPARAM>(&first)) != 0;
    const int height = anyRow ? std::max<int>(first.bottom - first.top, 1) : 0;
    const int margin = Margin();
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    ::SetBkMode(dc, TRANSPARENT);
    for (int row = top, y = first.top; anyRow && row < rows && y < area.bottom; ++row, y += height) {
        if (y + height <= area.top)
            continue;
        const auto state = static_cast<UINT>(
            SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED | LVIS_FOCUSED));
        const bool selected = (state & LVIS_SELECTED) && (focused || (style & LVS_SHOWSELALWAYS));
        for (std::size_t column = 0; column + 1 < edges.size(); ++column) {
            const RECT cell{edges[column], y, edges[column + 1], y + height};
            if (cell.right <= area.left || cell.left >= area.right)
                continue;
            const int c = static_cast<int>(column);
            const bool marked = (selected && (c == 0 || (extended & LVS_EX_FULLROWSELECT))) ||
                                (m_highlight && m_highlight(row, c));
            if (marked)
                Fill(dc, cell, ::GetSysColor(focused ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
            ::SetTextColor(dc, !marked ? ink : ::GetSysColor(focused ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
            DrawCellText(dc, Text(row, c), cell, margin, metrics);
        }
        if (focused && (state & LVIS_FOCUSED)) {
            const RECT whole{edges.front(), y, edges.back(), y + height};
            ::SetTextColor(dc, RGB(0, 0, 0));
            ::SetBkColor(dc, RGB(255, 255, 255));
            ::DrawFocusRect(dc, &whole);
        }
    }
    if (extended & LVS_EX_GRIDLINES) {
        const COLORREF line = ::GetSysColor(COLOR_BTNFACE);
        for (std::size_t column = 1; column < edges.size(); ++column)
            Fill(dc, {edges[column] - 1, area.top, edges[column], area.bottom}, line);
        if (anyRow)
            for (int y = first.top + height - 1; y < area.bottom; y += height)
                if (y >= area.top)
                    Fill(dc, {client.left, y, client.right, y + 1}, line);
    }
    ::SelectObject(dc, oldFont);
}

LRESULT CALLBACK CVirtualList::DrawProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR data) {
    auto& self = *reinterpret_cast<CVirtualList*>(data);
    // Nothing may unwind through user32: a failing owner leaves the message to the control.
    try {
        switch (message) {
        case WM_NCCALCSIZE: {
            const LRESULT result = NextSubclass(list, message, wParam, lParam);
            RECT& client = wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0]
                                  : *reinterpret_cast<RECT*>(lParam);
            client.top = std::min(client.top + self.m_stripHeight, client.bottom);
            self.m_framePending = false;
            return result;
        }
        case WM_NCPAINT: {
            LRESULT result = 0;
            if (!DrawKeptFrame(list)) {
                result = NextSubclass(list, message, wParam, lParam);
                KeepFrame(list, wParam);
            }
            self.DrawStrip();
            return result;
        }
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            ForgetKeptFrames();
            break;
        case WM_ERASEBKGND:
            return 1; // the rows' drawing fills every pixel
        case WM_PAINT: {
            if (wParam) {
                RECT client{};
                ::GetClientRect(list, &client);
                self.DrawRows(reinterpret_cast<HDC>(wParam), client);
                return 0;
            }
            if (self.m_layoutPending || self.m_framePending)
                self.FinishLayout(); // columns added to a hidden list that then showed with no rows set
            PAINTSTRUCT paint{};
            HDC dc = ::BeginPaint(list, &paint);
            self.DrawRows(dc, paint.rcPaint);
            ::EndPaint(list, &paint);
            return 0;
        }
        case WM_SETFOCUS:
        case WM_KILLFOCUS: {
            // The selection's colours and the focus rectangle follow the focus.
            const LRESULT result = NextSubclass(list, message, wParam, lParam);
            // The rows these lists select are one at most.
            for (const UINT rows : {LVNI_FOCUSED, LVNI_SELECTED})
                if (const int row = ListView_GetNextItem(list, -1, rows); row >= 0)
                    ListView_RedrawItems(list, row, row);
            return result;
        }
        case WM_ENABLE: {
            const LRESULT result = NextSubclass(list, message, wParam, lParam);
            ::InvalidateRect(list, nullptr, FALSE);
            self.DrawStrip();
            return result;
        }
        case WM_SETFONT: {
            const LRESULT result = NextSubclass(list, message, wParam, lParam);
            self.FitStrip();
            return result;
        }
        default:
            break;
        }
    } catch (...) {
    }
    return NextSubclass(list, message, wParam, lParam);
}
