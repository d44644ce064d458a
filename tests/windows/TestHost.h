// What a Windows test needs to act as the host: regvane.dll loaded by LoadLibraryW with its
// exports, a host window tree for pages to live in, and helpers to drive controls the way an
// operator does.
#pragma once

#include "host/RegvaneExports.h"
#include "workbench/HostModule.h"
#include "workbench/SimulatedChip.h"

#include <windows.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// regvane.dll as the host suite loads it (by path, entry points by plain name), with the entry point
// a C++ host uses to hold a page as its object.
struct RegvaneLibrary : HostModule {
    CreateRegvaneWndFn CreateRegvaneWnd = nullptr;

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

// Finds each visible top-level dialog window of this process until `stop`, and hands each to `answer`
// until it takes it (true). Pages are children, never top-level: such a window is a message box or a
// file dialog a page opened.
void WatchDialogs(const std::atomic<bool>& stop, const std::function<bool(HWND)>& answer);

// Answers the dialogs a page shows while a test drives it, on a second thread, noting what each showed.
template <class Seen> class DialogWatcher {
public:
    ~DialogWatcher() { Stop(); }
    std::vector<Seen> Noted() const {
        std::lock_guard lock(m_lock);
        return m_seen;
    }

protected:
    explicit DialogWatcher(std::function<bool(HWND)> answer)
        : m_thread([this, answer] { WatchDialogs(m_stop, answer); }) {}
    void Stop() {
        m_stop = true;
        if (m_thread.joinable())
            m_thread.join();
    }
    template <class Fn> void Note(Fn note) {
        std::lock_guard lock(m_lock);
        note(m_seen);
    }

private:
    std::atomic<bool> m_stop{false};
    mutable std::mutex m_lock;
    std::vector<Seen> m_seen;
    std::thread m_thread; // last: it starts once the rest is made
};

struct MessageBoxSeen {
    std::wstring caption;
    std::wstring text;
    bool hasInformationIcon;
    bool hasErrorIcon;
};

// Presses OK on every message box, noting its caption, text and icon style.
class MessageBoxWatcher : public DialogWatcher<MessageBoxSeen> {
public:
    using Box = MessageBoxSeen;
    MessageBoxWatcher();
    std::vector<Box> Boxes() const { return Noted(); }
};

struct FileDialogSeen {
    std::wstring proposedName;           // the file-name field as the dialog opened
    std::vector<std::wstring> fileTypes; // the entries of the file-type list
    std::vector<std::wstring> prompts;   // texts of the questions it asked before closing
};

// Answers the common file dialogs (open and save): types the next queued path into the file-name field
// and presses OK, or cancels when the queued answer is empty (and when the queue is used up). A
// question the file dialog itself asks ("replace the existing file?") is answered Yes.
class FileDialogWatcher : public DialogWatcher<FileDialogSeen> {
public:
    using Dialog = FileDialogSeen;
    explicit FileDialogWatcher(std::vector<std::wstring> answers);
    ~FileDialogWatcher() { Stop(); } // before the probe goes
    // Runs on the watcher's thread while a file dialog is open, before it is answered.
    void WhileOpen(std::function<void()> probe) { m_probe = std::move(probe); }
    std::vector<Dialog> Dialogs() const { return Noted(); }

private:
    std::function<void()> m_probe;
};

// Runs the message loop until nothing is pending.
void PumpMessages();
// The text of a window, and of a dialog's control.
std::wstring WindowText(HWND window);
std::wstring ItemText(HWND dialog, int id);
// Module-wide set-up every page test shares: library loaded, callback installed, English loaded.
SimulatedHostCallback& InstallHostCallback(int language = 3);
