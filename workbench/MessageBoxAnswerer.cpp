#include "workbench/MessageBoxAnswerer.h"

#include <algorithm>

namespace {

// Pages are child windows: a visible top-level dialog of this process is a box a page opened.
BOOL CALLBACK CollectBoxes(HWND window, LPARAM param) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (process == GetCurrentProcessId() && IsWindowVisible(window) && std::wstring(className) == L"#32770")
        reinterpret_cast<std::vector<HWND>*>(param)->push_back(window);
    return TRUE;
}

std::wstring TextOf(HWND window) {
    wchar_t text[2048] = {};
    GetWindowTextW(window, text, 2048);
    return text;
}

} // namespace

MessageBoxAnswerer::MessageBoxAnswerer() {
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

MessageBoxAnswerer::~MessageBoxAnswerer() {
    InterlockedExchange(&m_stop, 1);
    WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
    DeleteCriticalSection(&m_lock);
}

std::vector<std::wstring> MessageBoxAnswerer::TakeAnswered() {
    EnterCriticalSection(&m_lock);
    std::vector<std::wstring> answered;
    answered.swap(m_answered);
    LeaveCriticalSection(&m_lock);
    return answered;
}

DWORD WINAPI MessageBoxAnswerer::Run(void* param) {
    auto* self = static_cast<MessageBoxAnswerer*>(param);
    while (!InterlockedCompareExchange(&self->m_stop, 0, 0)) {
        std::vector<HWND> boxes;
        EnumWindows(CollectBoxes, reinterpret_cast<LPARAM>(&boxes));
        for (HWND box : boxes) {
            if (std::find(self->m_seen.begin(), self->m_seen.end(), box) != self->m_seen.end())
                continue;
            self->m_seen.push_back(box);
            // 0xFFFF is the static control that holds a message box's text.
            const std::wstring seen = TextOf(box) + L": " + TextOf(GetDlgItem(box, 0xFFFF));
            EnterCriticalSection(&self->m_lock);
            self->m_answered.push_back(seen);
            LeaveCriticalSection(&self->m_lock);
            PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
        }
        Sleep(20);
    }
    return 0;
}
