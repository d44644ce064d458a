// A page taller than the room its host gives it scrolls its controls up and down: a vertical scroll
// bar, the mouse wheel, Page Up, Page Down, Home and End while the page itself has the focus (a click
// on its background gives it), and a control that takes the focus (Tab, a mnemonic, a click, the host)
// is brought into view.
#pragma once

#include <windows.h>

class CPageScroller {
public:
    CPageScroller() = default;
    CPageScroller(const CPageScroller&) = delete;
    CPageScroller& operator=(const CPageScroller&) = delete;
    ~CPageScroller();

    // Gives page (a child window with WS_VSCROLL) content this tall, moved `line` pixels a step.
    void Attach(HWND page, int contentHeight, int line);
    void Detach();
    bool Attached() const { return m_page != nullptr; }

    // The page's messages: true when the scroller handled the message (result: what to answer).
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result);

    // Scrolls so that the content's y (from its top) is at the top of the view, as far as it goes.
    void ScrollTo(int y);
    // Scrolls the least that shows the whole of a child window, its top when it is taller than the view.
    void ScrollIntoView(HWND child);

private:
    int ViewHeight() const;
    int Target(WORD command) const;
    void UpdateBar() const;
    static LRESULT CALLBACK FocusHook(int code, WPARAM wParam, LPARAM lParam);

    HWND m_page = nullptr;
    int m_content = 0;
    int m_line = 1;
    int m_position = 0;
    int m_wheel = 0; // wheel turns not yet scrolled
    bool m_takeFocus = false;
};
