// A non-owning window: an HWND with the few calls the dialogs repeat. Copying is forbidden so that
// a control member is never confused with a second window.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

class CWnd {
public:
    CWnd() = default;
    explicit CWnd(HWND window) : m_hWnd(window) {}
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;

    operator HWND() const { return m_hWnd; }
    HWND GetSafeHwnd() const { return m_hWnd; }
    void Attach(HWND window) { m_hWnd = window; }
    HWND Detach() {
        HWND window = m_hWnd;
        m_hWnd = nullptr;
        return window;
    }

    HWND GetParent() const { return ::GetParent(m_hWnd); }
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    void SetWindowText(std::wstring_view text) const { ::SetWindowTextW(m_hWnd, std::wstring(text).c_str()); }
    // Setting the text a window already shows would only make it notify and redraw, and under Wine
    // ask the window server.
    void SetWindowTextIfChanged(std::wstring_view text) const {
        if (GetWindowText() != text)
            SetWindowText(text);
    }
    std::wstring GetWindowText() const;
    BOOL ShowWindow(int command) const { return ::ShowWindow(m_hWnd, command); }
    BOOL EnableWindow(bool enable) const { return ::EnableWindow(m_hWnd, enable); }
    bool IsWindowVisible() const { return ::IsWindowVisible(m_hWnd) != FALSE; }

protected:
    HWND m_hWnd = nullptr;
};

inline std::wstring CWnd::GetWindowText() const {
    const int length = ::GetWindowTextLengthW(m_hWnd);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(m_hWnd, text.data(), length + 1)));
    return text;
}
