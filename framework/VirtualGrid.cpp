#include "framework/VirtualGrid.h"
#include "framework/Subclass.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

constexpr UINT_PTR kSubclassId = 1;

HINSTANCE InstanceOf(HWND window) {
    return reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(window, GWLP_HINSTANCE));
}

// A control's answer to WM_GETDLGCODE with `more`, and the keys of `wanted` it takes from the dialog
// (Enter would press the default button, Escape cancel the dialog).
LRESULT DialogCode(HWND control, WPARAM wParam, LPARAM lParam, LRESULT more,
                   std::initializer_list<WPARAM> wanted) {
    LRESULT code = NextSubclass(control, WM_GETDLGCODE, wParam, lParam) | more;
    const auto* msg = reinterpret_cast<const MSG*>(lParam);
    if (msg && msg->message == WM_KEYDOWN &&
        std::find(wanted.begin(), wanted.end(), msg->wParam) != wanted.end())
        code |= DLGC_WANTMESSAGE;
    return code;
}

} // namespace

CVirtualGrid::CVirtualGrid(CVirtualList::CellText cellText, CommitCell commit)
    : m_list(std::move(cellText)), m_commit(std::move(commit)) {}

CVirtualGrid::~CVirtualGrid() {
    HWND list = m_list.GetSafeHwnd();
    if (list && ::IsWindow(list)) {
        RemoveSubclass(list, ListProc, kSubclassId);
        if (m_edit)
            ::DestroyWindow(m_edit);
    }
}

void CVirtualGrid::Attach(HWND list, int fixedColumns) {
    m_list.Attach(list);
    m_fixedColumns = std::max(fixedColumns, 0);
    m_row = 0;
    m_column = m_fixedColumns;
    // The edit lies over the cells: the list's own drawing must leave it alone.
    if (const LONG_PTR style = ::GetWindowLongPtrW(list, GWL_STYLE); !(style & WS_CLIPCHILDREN))
        ::SetWindowLongPtrW(list, GWL_STYLE, style | WS_CLIPCHILDREN);
    AddSubclass(list, ListProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
    m_list.SetHighlight(
        [this](int row, int column) { return row == m_row && column == m_column && !m_edit; });
}

void CVirtualGrid::SetCurrent(int row, int column) {
    const int rows = m_list.RowCount();
    const int columns = m_list.ColumnCount();
    const int oldRow = m_row;
    m_row = std::clamp(row, 0, std::max(rows - 1, 0));
    m_column = std::clamp(column, m_fixedColumns, std::max(columns - 1, m_fixedColumns));
    RedrawRow(oldRow);
    RedrawRow(m_row);
    if (rows == 0)
        return;
    m_list.SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(m_row), FALSE);
    // The list scrolls to rows by itself, not to columns.
    const RECT cell = CellRect(m_row, m_column);
    RECT client{};
    ::GetClientRect(m_list, &client);
    int dx = 0;
    if (cell.right > client.right)
        dx = std::min(cell.right - client.right, cell.left);
    else if (cell.left < 0)
        dx = cell.left;
    if (dx != 0)
        m_list.SendMessage(LVM_SCROLL, static_cast<WPARAM>(dx), 0);
}

RECT CVirtualGrid::CellRect(int row, int column) const {
    RECT cell{};
    cell.top = column;
    cell.left = column == 0 ? LVIR_LABEL : LVIR_BOUNDS;
    m_list.SendMessage(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
    return cell;
}

void CVirtualGrid::RedrawRow(int row) const {
    if (row < m_list.RowCount())
        m_list.SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(row), static_cast<LPARAM>(row));
}

bool CVirtualGrid::BeginEdit(const std::wstring* typed) {
    if (m_edit)
        return true;
    if (m_row >= m_list.RowCount() || m_column < m_fixedColumns || m_column >= m_list.ColumnCount())
        return false;
    HideRefusal();
    SetCurrent(m_row, m_column);
    const std::wstring text = typed ? *typed : m_list.Text(m_row, m_column);
    const RECT cell = CellRect(m_row, m_column);
    m_edit = ::CreateWindowExW(0, L"EDIT", text.c_str(), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL,
                               cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top + 1,
                               m_list, nullptr, InstanceOf(m_list), nullptr);
    if (!m_edit)
        return false;
    ::SendMessageW(m_edit, WM_SETFONT, static_cast<WPARAM>(m_list.SendMessage(WM_GETFONT)), FALSE);
    AddSubclass(m_edit, EditProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
    const auto end = static_cast<LPARAM>(text.size());
    ::SendMessageW(m_edit, EM_SETSEL, typed ? static_cast<WPARAM>(end) : 0, typed ? end : -1);
    ::SetFocus(m_edit);
    RedrawRow(m_row);
    return true;
}

CVirtualGrid::Verdict CVirtualGrid::Ask() {
    const std::wstring typed = CWnd(m_edit).GetWindowText();
    // Whatever the owner does meanwhile (a message box takes the focus) must not commit twice.
    m_ending = true;
    Verdict verdict;
    try {
        verdict = m_commit ? m_commit(m_row, m_column, typed) : Verdict{true, {}};
    } catch (...) {
        // Nothing may unwind through user32: the cell stays as it was.
    }
    m_ending = false;
    if (verdict.accepted) {
        m_refusal.clear();
        HideRefusal();
    } else {
        ShowRefusal(verdict.reason);
    }
    return verdict;
}

bool CVirtualGrid::CommitEdit() {
    if (!m_edit || m_ending)
        return true;
    if (!Ask().accepted) {
        if (m_edit)
            ::SendMessageW(m_edit, EM_SETSEL, 0, -1);
        return false;
    }
    Close();
    return true;
}

void CVirtualGrid::CancelEdit() {
    if (!m_edit || m_ending)
        return;
    m_refusal.clear();
    HideRefusal();
    Close();
}

void CVirtualGrid::Close() {
    if (!m_edit)
        return;
    m_ending = true;
    HWND edit = std::exchange(m_edit, nullptr);
    if (::GetFocus() == edit)
        ::SetFocus(m_list);
    ::DestroyWindow(edit);
    m_ending = false;
    RedrawRow(m_row);
}

void CVirtualGrid::ShowRefusal(const std::wstring& reason) {
    m_refusal = reason;
    if (m_refusal.empty())
        return;
    // A note in the list beside the cell: a child window shows wherever the list does.
    if (!m_note) {
        m_note = ::CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_BORDER | SS_NOPREFIX, 0, 0, 0, 0,
                                   m_list, nullptr, InstanceOf(m_list), nullptr);
        if (!m_note)
            return;
        ::SendMessageW(m_note, WM_SETFONT, static_cast<WPARAM>(m_list.SendMessage(WM_GETFONT)), FALSE);
    }
    ::SetWindowTextW(m_note, m_refusal.c_str());
    RECT text{};
    HDC dc = ::GetDC(m_note);
    const HGDIOBJ font =
        ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(m_note, WM_GETFONT, 0, 0)));
    ::DrawTextW(dc, m_refusal.c_str(), -1, &text, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
    ::SelectObject(dc, font);
    ::ReleaseDC(m_note, dc);
    const int width = text.right + 8;
    const int height = text.bottom + 4;
    const RECT cell = CellRect(m_row, m_column);
    RECT client{};
    ::GetClientRect(m_list, &client);
    // Below the cell, or above it when the list ends first.
    const int top = cell.bottom + height <= client.bottom ? cell.bottom : cell.top - height;
    ::SetWindowPos(m_note, HWND_TOP, cell.left, top, width, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CVirtualGrid::HideRefusal() const {
    if (m_note)
        ::ShowWindow(m_note, SW_HIDE);
}

bool CVirtualGrid::OnListKey(WPARAM key) {
    const bool control = ::GetKeyState(VK_CONTROL) < 0;
    const int page = std::max(1, static_cast<int>(m_list.SendMessage(LVM_GETCOUNTPERPAGE)));
    int row = m_row;
    int column = m_column;
    switch (key) {
    case VK_LEFT:
        --column;
        break;
    case VK_RIGHT:
        ++column;
        break;
    case VK_UP:
        --row;
        break;
    case VK_DOWN:
        ++row;
        break;
    case VK_PRIOR:
        row -= page;
        break;
    case VK_NEXT:
        row += page;
        break;
    case VK_HOME:
        (control ? row : column) = control ? 0 : m_fixedColumns;
        break;
    case VK_END:
        (control ? row : column) = control ? m_list.RowCount() - 1 : m_list.ColumnCount() - 1;
        break;
    case VK_F2:
    case VK_RETURN:
        BeginEdit();
        return true;
    default:
        return false;
    }
    SetCurrent(row, column);
    return true;
}

void CVirtualGrid::OnListClick(LPARAM point, bool edit) {
    // Focus first: an edit still open commits before the current cell moves.
    ::SetFocus(m_list);
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    if (m_list.SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0 || hit.iItem < 0)
        return;
    const bool onCell = hit.iSubItem >= m_fixedColumns;
    SetCurrent(hit.iItem, onCell ? hit.iSubItem : m_column);
    if (edit && onCell)
        BeginEdit();
}

bool CVirtualGrid::OnNotify(const NMHDR* header, LRESULT& result) {
    return m_list.OnNotify(header, result);
}

LRESULT CALLBACK CVirtualGrid::ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR data) {
    auto& grid = *reinterpret_cast<CVirtualGrid*>(data);
    // Nothing may unwind through user32: a failing owner leaves the message to the control.
    try {
        switch (message) {
        case WM_GETDLGCODE:
            // Enter edits here instead of pressing the dialog's default button.
            return DialogCode(list, wParam, lParam, DLGC_WANTARROWS | DLGC_WANTCHARS, {VK_RETURN});
        case WM_KEYDOWN:
            grid.HideRefusal();
            if (grid.OnListKey(wParam))
                return 0;
            break;
        case WM_CHAR:
            // Typing a printable character starts an edit with it; Enter already did its work.
            if (wParam >= L' ' && !grid.m_edit) {
                const std::wstring typed(1, static_cast<wchar_t>(wParam));
                grid.BeginEdit(&typed);
                return 0;
            }
            if (wParam == L'\r')
                return 0;
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            grid.HideRefusal();
            grid.OnListClick(lParam, message == WM_LBUTTONDBLCLK);
            return 0;
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
            // The edit does not follow its cell: leaving it by scrolling is leaving it.
            if (grid.m_edit) {
                grid.Ask();
                grid.Close();
            } else {
                grid.HideRefusal();
            }
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: {
            const LRESULT result = NextSubclass(list, message, wParam, lParam);
            grid.RedrawRow(grid.m_row);
            return result;
        }
        case WM_CTLCOLORSTATIC:
            if (grid.m_note && reinterpret_cast<HWND>(lParam) == grid.m_note) {
                ::SetTextColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_INFOTEXT));
                ::SetBkColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_INFOBK));
                return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_INFOBK));
            }
            break;
        case WM_DESTROY:
            grid.m_ending = true;
            if (grid.m_edit)
                ::DestroyWindow(std::exchange(grid.m_edit, nullptr));
            grid.m_note = nullptr; // goes with the list
            grid.m_ending = false;
            break;
        default:
            break;
        }
    } catch (...) {
    }
    return NextSubclass(list, message, wParam, lParam);
}

LRESULT CALLBACK CVirtualGrid::EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR data) {
    auto& grid = *reinterpret_cast<CVirtualGrid*>(data);
    // Nothing may unwind through user32: a failing owner leaves the message to the control.
    try {
        switch (message) {
        case WM_GETDLGCODE:
            return DialogCode(edit, wParam, lParam, 0, {VK_RETURN, VK_ESCAPE});
        case WM_KEYDOWN:
            if (wParam == VK_RETURN) {
                grid.CommitEdit();
                return 0;
            }
            if (wParam == VK_ESCAPE) {
                grid.CancelEdit();
                return 0;
            }
            grid.HideRefusal();
            break;
        case WM_CHAR:
            if (wParam == L'\r' || wParam == 0x1B)
                return 0; // handled as keys; the edit would beep
            break;
        case WM_KILLFOCUS: {
            const LRESULT result = NextSubclass(edit, message, wParam, lParam);
            // Leaving the edit commits; a refused text leaves the cell as it was and says why.
            if (!grid.m_ending && grid.m_edit == edit) {
                grid.Ask();
                grid.Close();
            }
            return result;
        }
        default:
            break;
        }
    } catch (...) {
    }
    return NextSubclass(edit, message, wParam, lParam);
}
