// What a Windows test needs to act as the host: regvane.dll loaded by LoadLibraryW with its
// exports, a host window tree for pages to live in, and helpers to drive controls the way an
// operator does.
#pragma once

#include "host/RegvaneDesignerExports.h"
#include "host/RegvaneExports.h"
#include "workbench/SimulatedChip.h"

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

struct RegvaneLibrary {
    HMODULE module = nullptr;
    InitRegvaneFn InitRegvane = nullptr;
    RegvaneLanguageChangedFn RegvaneLanguageChanged = nullptr;
    CreateRegvaneWndFn CreateRegvaneWnd = nullptr;
    CreateRegvaneHwndFn CreateRegvaneHwnd = nullptr;
    RegvaneDialogClassNameFn RegvaneDialogClassName = nullptr;
    RegvaneCreateDescribedPageFn RegvaneCreateDescribedPage = nullptr;

    // Loaded once per test process from the test program's own folder.
    static RegvaneLibrary& Get();
};

// A top-level "frame" window with a child "view" window, as the host nests its pages: pages are
// children of the view, and page buttons post to the frame (what they post is held by the workbench
// tests, whose frame logs it).
class HostFrame {
public:
    HostFrame();
    ~HostFrame();
    HWND Frame() const { return m_frame; }
    HWND View() const { return m_view; }

private:
    HWND m_frame = nullptr;
    HWND m_view = nullptr;
};

// Answers the message boxes a page shows while a test drives it: a second thread finds each visible
// top-level dialog window of this process, notes its caption, text and icon style, and presses OK.
// Each window is answered once.
class MessageBoxWatcher {
public:
    MessageBoxWatcher();
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
    volatile LONG m_stop = 0;
    HANDLE m_thread = nullptr;
    mutable CRITICAL_SECTION m_lock;
    std::vector<Box> m_seen;
    std::vector<HWND> m_answered;
};

// Answers the common file dialogs (open and save) a page shows while a test drives it: a second
// thread finds each visible file dialog of this process, notes what it offers, types the next
// queued path into its file-name field and presses its OK button, or cancels when the queued
// answer is empty (and when the queue is used up). A question the file dialog itself asks
// ("replace the existing file?") is answered Yes. Each dialog is answered once.
class FileDialogWatcher {
public:
    explicit FileDialogWatcher(std::vector<std::wstring> answers);
    ~FileDialogWatcher();
    FileDialogWatcher(const FileDialogWatcher&) = delete;
    FileDialogWatcher& operator=(const FileDialogWatcher&) = delete;

    // Runs on the watcher's thread while a file dialog is open, before it is answered.
    void WhileOpen(std::function<void()> probe) { m_probe = std::move(probe); }

    struct Dialog {
        std::wstring proposedName;           // the file-name field as the dialog opened
        std::vector<std::wstring> fileTypes; // the entries of the file-type list
        std::vector<std::wstring> prompts;   // texts of the questions it asked before closing
    };
    std::vector<Dialog> Dialogs() const;

private:
    static DWORD WINAPI Run(void* self);
    std::vector<std::wstring> m_answers;
    std::function<void()> m_probe;
    volatile LONG m_stop = 0;
    HANDLE m_thread = nullptr;
    mutable CRITICAL_SECTION m_lock;
    std::vector<Dialog> m_seen;
    std::vector<HWND> m_answered;
};

// Runs the message loop until nothing is pending.
void PumpMessages();
// The text of a dialog's control.
std::wstring ItemText(HWND dialog, int id);
// Module-wide set-up every page test shares: library loaded, callback installed, English loaded.
SimulatedHostCallback& InstallHostCallback(int language = 3);
