// With nobody at the screen, a page's message box would wait forever: a second thread finds each
// message box of this process, notes its caption and text and presses OK.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class MessageBoxAnswerer {
public:
    MessageBoxAnswerer();
    ~MessageBoxAnswerer();
    MessageBoxAnswerer(const MessageBoxAnswerer&) = delete;
    MessageBoxAnswerer& operator=(const MessageBoxAnswerer&) = delete;

    // "caption: text" of the boxes answered since the last call.
    std::vector<std::wstring> TakeAnswered();

private:
    static DWORD WINAPI Run(void* self);
    volatile LONG m_stop = 0;
    HANDLE m_thread = nullptr;
    CRITICAL_SECTION m_lock;
    std::vector<std::wstring> m_answered;
    std::vector<HWND> m_seen;
};
