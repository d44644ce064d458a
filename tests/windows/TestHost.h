// What a Windows test needs to act as the host: regvane.dll loaded by LoadLibraryW with its
// exports, a host window tree for pages to live in, and helpers to drive controls the way an
// operator does.
#pragma once

#include "host/RegvaneExports.h"
#include "workbench/SimulatedChip.h"

#include <windows.h>

#include <string>
#include <vector>

struct RegvaneLibrary {
    HMODULE module = nullptr;
    InitRegvaneFn InitRegvane = nullptr;
    RegvaneLanguageChangedFn RegvaneLanguageChanged = nullptr;
    CreateRegvaneWndFn CreateRegvaneWnd = nullptr;
    CreateRegvaneHwndFn CreateRegvaneHwnd = nullptr;
    RegvaneDialogClassNameFn RegvaneDialogClassName = nullptr;

    // Loaded once per test process from the test program's own folder.
    static RegvaneLibrary& Get();
};

// A top-level "frame" window with a child "view" window, as the host nests its pages: pages are
// children of the view, and page buttons post to the frame. The frame records user messages.
class HostFrame {
public:
    HostFrame();
    ~HostFrame();
    HWND Frame() const { return m_frame; }
    HWND View() const { return m_view; }

    struct Posted {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    // Delivers posted messages and returns those the frame received since the last call.
    std::vector<Posted> TakePosted();

private:
    HWND m_frame = nullptr;
    HWND m_view = nullptr;
};

// Answers the message boxes a page shows while a test drives it: a second thread finds each visible
// top-level dialog window of this process, notes its caption, text and icon style, and presses the
// button given (IDOK by default). Each window is answered once.
class MessageBoxWatcher {
public:
    explicit MessageBoxWatcher(int answer = IDOK);
    ~MessageBoxWatcher();
    MessageBoxWatcher(const MessageBoxWatcher&) = delete;
    MessageBoxWatcher& operator=(const MessageBoxWatcher&) = delete;

    struct Box {
        std::wstring caption;
        std::wstring text;
        bool hasInformationIcon;
        bool hasErrorIcon;
    };
    std::vector<Box> Boxes() const;

private:
    static DWORD WINAPI Run(void* self);
    int m_answer;
    volatile LONG m_stop = 0;
    HANDLE m_thread = nullptr;
    mutable CRITICAL_SECTION m_lock;
    std::vector<Box> m_seen;
    std::vector<HWND> m_answered;
};

// Runs the message loop until nothing is pending.
void PumpMessages();
// The text of a dialog's control.
std::wstring ItemText(HWND dialog, int id);
// Module-wide set-up every page test shares: library loaded, callback installed, English loaded.
SimulatedHostCallback& InstallHostCallback(int language = 3);
