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

// Runs the message loop until nothing is pending.
void PumpMessages();
// The text of a dialog's control.
std::wstring ItemText(HWND dialog, int id);
// Module-wide set-up every page test shares: library loaded, callback installed, English loaded.
SimulatedHostCallback& InstallHostCallback(int language = 3);
