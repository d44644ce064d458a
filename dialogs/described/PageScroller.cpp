#include "dialogs/described/PageScroller.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// One hook of the thread's focus changes serves every scrolling page.
struct FocusWatch {
    HHOOK hook = nullptr;
    std::vector<CPageScroller*> scrollers;
};

FocusWatch& Watch() {
    static FocusWatch watch;
    return watch;
}

} // namespace

CPageScroller::~CPageScroller() {
    Detach();
}

void CPageScroller::Attach(HWND page, int contentHeight, int line) {
    Detach();
    m_page = page;
    m_content = contentHeight;
    m_line = std::max(line, 1);
    m_position = 0;
    m_wheel = 0;
    FocusWatch& watch = Watch();
    if (watch.scrollers.empty())
        watch.hook = ::SetWindowsHookExW(WH_CBT, FocusHook, nullptr, ::GetCurrentThreadId());
    watch.scrollers.push_back(this);
    UpdateBar();
}

void CPageScroller::Detach() {
    if (!m_page)
        return;
    m_page = nullptr;
    FocusWatch& watch = Watch();
    std::erase(watch.scrollers, this);
    if (watch.scrollers.empty() && watch.hook) {
        ::UnhookWindowsHookEx(watch.hook);
        watch.hook = nullptr;
    }
}

LRESULT CALLBACK CPageScroller::FocusHook(int code, WPARAM wParam, LPARAM lParam) {
    const HWND focus = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_SETFOCUS && focus)
        for (CPageScroller* scroller : Watch().scrollers)
            if (::IsChild(scroller->m_page, focus))
                scroller->ScrollIntoView(focus);
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

int CPageScroller::ViewHeight() const {
    RECT client{};
    ::GetClientRect(m_page, &client);
    return client.bottom;
}

void CPageScroller::UpdateBar() const {
    SCROLLINFO info{sizeof info,
                    SIF_RANGE | SIF_PAGE | SIF_POS,
                    0,
                    m_content - 1,
                    static_cast<UINT>(std::max(ViewHeight(), 0)),
                    m_position,
                    0};
    ::SetScrollInfo(m_page, SB_VERT, &info, TRUE);
}

void CPageScroller::ScrollTo(int y) {
    if (!m_page)
        return;
    y = std::clamp(y, 0, std::max(m_content - ViewHeight(), 0));
    if (y == m_position)
        return;
    ::ScrollWindowEx(m_page, 0, m_position - y, nullptr, nullptr, nullptr, nullptr,
                     SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    m_position = y;
    UpdateBar();
}

void CPageScroller::ScrollIntoView(HWND child) {
    // The page's own child: a control's inner windows move with it.
    while (child && ::GetParent(child) != m_page)
        child = ::GetParent(child);
    if (!child)
        return;
    RECT rect{};
    ::GetWindowRect(child, &rect);
    ::MapWindowPoints(nullptr, m_page, reinterpret_cast<POINT*>(&rect), 2);
    const int view = ViewHeight();
    if (rect.top < 0 || rect.bottom - rect.top > view)
        ScrollTo(m_position + rect.top);
    else if (rect.bottom > view)
        ScrollTo(m_position + rect.bottom - view);
}

// Where a scroll bar's command takes the view's top; -1 for none.
int CPageScroller::Target(WORD command) const {
    const int page = std::max(ViewHeight() - m_line, m_line);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    switch (command) {
    case SB_LINEUP:
    case SB_LINEDOWN:
        return m_position + (command == SB_LINEUP ? -m_line : m_line);
    case SB_PAGEUP:
    case SB_PAGEDOWN:
        return m_position + (command == SB_PAGEUP ? -page : page);
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return m_content;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        ::GetScrollInfo(m_page, SB_VERT, &info);
        return info.nTrackPos;
    default:
        return -1;
    }
}

bool CPageScroller::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) {
    if (!m_page)
        return false;
    // The keys the page takes while it has the keyboard, as the scroll bar's commands.
    constexpr std::pair<WPARAM, WORD> kKeys[] = {{VK_UP, SB_LINEUP},    {VK_DOWN, SB_LINEDOWN},
                                                 {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN},
                                                 {VK_HOME, SB_TOP},     {VK_END, SB_BOTTOM}};
    switch (message) {
    case WM_VSCROLL: // the page's own scroll bar, not a control's or spin buttons'
        if (lParam)
            return false;
        if (const int target = Target(LOWORD(wParam)); target >= 0)
            ScrollTo(target);
        result = TRUE;
        return true;
    case WM_KEYDOWN:
        for (const auto& [key, command] : kKeys)
            if (wParam == key) {
                ScrollTo(Target(command));
                result = TRUE;
                return true;
            }
        return false;
    case WM_MOUSEWHEEL: {
        UINT lines = 3;
        ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
        m_wheel += GET_WHEEL_DELTA_WPARAM(wParam);
        const int notches = m_wheel / WHEEL_DELTA;
        m_wheel -= notches * WHEEL_DELTA;
        const int step = lines == WHEEL_PAGESCROLL ? std::max(ViewHeight() - m_line, m_line)
                                                   : static_cast<int>(lines) * m_line;
        ScrollTo(m_position - notches * step);
        result = TRUE;
        return true;
    }
    case WM_LBUTTONDOWN:
        // A click on the page's background gives the page the keyboard, which a dialog would
        // otherwise hand on to its first control.
        m_takeFocus = true;
        ::SetFocus(m_page);
        m_takeFocus = false;
        return false;
    case WM_SETFOCUS:
        result = m_takeFocus;
        return m_takeFocus;
    case WM_SIZE:
        UpdateBar();
        ScrollTo(m_position);
        return false;
    default:
        return false;
    }
}
