#include "TestHost.h"

#include <algorithm>
#include <dlgs.h>
#include <stdexcept>

namespace {

template <class Fn> Fn Export(HMODULE module, const char* name) {
    FARPROC proc = GetProcAddress(module, name);
    if (!proc)
        throw std::runtime_error(std::string("regvane.dll does not export ") + name);
    return reinterpret_cast<Fn>(reinterpret_cast<void*>(proc));
}

} // namespace

RegvaneLibrary& RegvaneLibrary::Get() {
    static RegvaneLibrary library = [] {
        wchar_t path[MAX_PATH];
        std::wstring dll(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
        dll = dll.substr(0, dll.find_last_of(L'\\') + 1) + L"regvane.dll";
        RegvaneLibrary lib;
        lib.module = LoadLibraryW(dll.c_str());
        if (!lib.module)
            throw std::runtime_error("regvane.dll did not load");
#define REGVANE_TEST_EXPORT(name) lib.name = Export<name##Fn>(lib.module, #name);
        REGVANE_TEST_EXPORT(InitRegvane)
        REGVANE_TEST_EXPORT(RegvaneLanguageChanged)
        REGVANE_TEST_EXPORT(CreateRegvaneWnd)
        REGVANE_TEST_EXPORT(CreateRegvaneHwnd)
        REGVANE_TEST_EXPORT(RegvaneDialogClassName)
        REGVANE_TEST_EXPORT(RegvaneCreateDescribedPage)
#undef REGVANE_TEST_EXPORT
        return lib;
    }();
    return library;
}

HostFrame::HostFrame() {
    m_frame = CreateWindowExW(0, L"STATIC", L"Test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 760,
                              nullptr, nullptr, nullptr, nullptr);
    // Pages take their keyboard and command routing from a dialog-like parent.
    m_view = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                             0, 990, 740, m_frame, nullptr, nullptr, nullptr);
}

HostFrame::~HostFrame() {
    DestroyWindow(m_frame);
}

void PumpMessages() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

std::wstring ItemText(HWND dialog, int id) {
    wchar_t text[512] = {};
    GetDlgItemTextW(dialog, id, text, 512);
    return text;
}

SimulatedHostCallback& InstallHostCallback(int language) {
    static SimulatedHostCallback callback;
    callback.language = language;
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    lib.InitRegvane(&callback);
    lib.RegvaneLanguageChanged();
    return callback;
}

namespace {

// A common file dialog, or a question one of them asks: never a page's own message box. The
// file-type list (cmb1) is in every common file dialog and in no message box.
bool BelongsToFileDialog(HWND window) {
    auto isFileDialog = [](HWND w) { return w && GetDlgItem(w, cmb1) != nullptr; };
    return isFileDialog(window) || isFileDialog(GetWindow(window, GW_OWNER));
}

// The dialogs a watcher thread answers: each runs on its own thread until the watcher goes, and
// answers every visible top-level dialog window of this process it has not answered yet. Pages are
// children, never top-level: such a window is a box or a file dialog a page opened.
template <class Answer> void Watch(volatile LONG& stop, std::vector<HWND>& answered, Answer answer) {
    while (!InterlockedCompareExchange(&stop, 0, 0)) {
        std::vector<HWND> found;
        EnumWindows(
            [](HWND window, LPARAM list) {
                DWORD process = 0;
                GetWindowThreadProcessId(window, &process);
                wchar_t className[16] = {};
                GetClassNameW(window, className, 16);
                if (process == GetCurrentProcessId() && IsWindowVisible(window) &&
                    std::wstring(className) == L"#32770")
                    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        for (HWND window : found)
            if (std::find(answered.begin(), answered.end(), window) == answered.end() && answer(window))
                answered.push_back(window);
        Sleep(20);
    }
}

void StopWatching(volatile LONG& stop, HANDLE thread, CRITICAL_SECTION& lock) {
    InterlockedExchange(&stop, 1);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    DeleteCriticalSection(&lock);
}

template <class Seen> std::vector<Seen> Copy(CRITICAL_SECTION& lock, const std::vector<Seen>& seen) {
    EnterCriticalSection(&lock);
    std::vector<Seen> copy = seen;
    LeaveCriticalSection(&lock);
    return copy;
}

std::wstring WindowText(HWND window) {
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

// The icon of a message box is a static control showing one of the system icons.
bool ShowsIcon(HWND box, LPCWSTR icon) {
    HICON expected = LoadIconW(nullptr, icon);
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (expected && reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)) == expected)
            return true;
    return false;
}

void Press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

} // namespace

MessageBoxWatcher::MessageBoxWatcher() {
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

MessageBoxWatcher::~MessageBoxWatcher() {
    StopWatching(m_stop, m_thread, m_lock);
}

std::vector<MessageBoxWatcher::Box> MessageBoxWatcher::Boxes() const {
    return Copy(m_lock, m_seen);
}

DWORD WINAPI MessageBoxWatcher::Run(void* param) {
    auto* self = static_cast<MessageBoxWatcher*>(param);
    Watch(self->m_stop, self->m_answered, [self](HWND box) {
        if (BelongsToFileDialog(box))
            return false; // FileDialogWatcher's to answer
        // 0xFFFF: the message text of a message box.
        const Box seen{WindowText(box), WindowText(GetDlgItem(box, 0xFFFF)), ShowsIcon(box, IDI_INFORMATION),
                       ShowsIcon(box, IDI_ERROR)};
        EnterCriticalSection(&self->m_lock);
        self->m_seen.push_back(seen);
        LeaveCriticalSection(&self->m_lock);
        Press(box, IDOK);
        return true;
    });
    return 0;
}

FileDialogWatcher::FileDialogWatcher(std::vector<std::wstring> answers) : m_answers(std::move(answers)) {
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

FileDialogWatcher::~FileDialogWatcher() {
    StopWatching(m_stop, m_thread, m_lock);
}

std::vector<FileDialogWatcher::Dialog> FileDialogWatcher::Dialogs() const {
    return Copy(m_lock, m_seen);
}

DWORD WINAPI FileDialogWatcher::Run(void* param) {
    auto* self = static_cast<FileDialogWatcher*>(param);
    std::size_t nextAnswer = 0;
    Watch(self->m_stop, self->m_answered, [self, &nextAnswer](HWND window) {
        if (!BelongsToFileDialog(window))
            return false;
        EnterCriticalSection(&self->m_lock);
        if (GetDlgItem(window, cmb1) == nullptr) {
            // A question of the file dialog: noted with its dialog, answered Yes.
            if (!self->m_seen.empty())
                self->m_seen.back().prompts.push_back(WindowText(GetDlgItem(window, 0xFFFF)));
            LeaveCriticalSection(&self->m_lock);
            Press(window, IDYES);
            return true;
        }
        // The file-name field: an edit (edt1) in some dialog layouts, an editable combo (cmb13) in others.
        HWND nameField = GetDlgItem(window, edt1) ? GetDlgItem(window, edt1) : GetDlgItem(window, cmb13);
        Dialog& seen = self->m_seen.emplace_back();
        seen.proposedName = WindowText(nameField);
        HWND types = GetDlgItem(window, cmb1);
        for (LRESULT i = 0, count = SendMessageW(types, CB_GETCOUNT, 0, 0); i < count; ++i) {
            wchar_t text[256] = {};
            if (SendMessageW(types, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0) < 255)
                SendMessageW(types, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            seen.fileTypes.push_back(text);
        }
        LeaveCriticalSection(&self->m_lock);
        if (self->m_probe)
            self->m_probe();
        const std::wstring answer = nextAnswer < self->m_answers.size() ? self->m_answers[nextAnswer] : L"";
        ++nextAnswer;
        if (!answer.empty()) {
            DWORD_PTR ignored = 0;
            SendMessageTimeoutW(nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(answer.c_str()),
                                SMTO_BLOCK, 5000, &ignored);
        }
        Press(window, answer.empty() ? IDCANCEL : IDOK);
        return true;
    });
    return 0;
}
