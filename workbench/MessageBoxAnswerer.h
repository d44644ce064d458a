// With nobody at the screen, a page's message box or file dialog would wait forever: a second
// thread finds each of them in this process, notes what it showed and answers it. A message box
// gets OK. A file dialog that proposes a file name gets that name in the working folder (an export
// writes beside the run, whatever folder the dialog remembered); one that proposes none is
// cancelled, as nobody can choose a file. A question the file dialog asks (replace the file?) gets Yes.
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

    // One line for each box or dialog answered since the last call, saying what it showed and how
    // it was answered.
    std::vector<std::wstring> TakeAnswered();

private:
    static DWORD WINAPI Run(void* self);
    void Answer(HWND box);
    std::wstring m_workingFolder;
    volatile LONG m_stop = 0;
    HANDLE m_thread = nullptr;
    CRITICAL_SECTION m_lock;
    std::vector<std::wstring> m_answered;
    std::vector<HWND> m_seen;
};
