#include "TestHost.h"

#include <algorithm>
#include <dlgs.h>
#include <stdexcept>

namespace {

std::vector<HostFrame::Posted>* g_posted = nullptr;

LRESULT CALLBACK FrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_USER && g_posted)
        g_posted->push_back({message, wParam, lParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L'\\') + 1);
}

template <class Fn> Fn Export(HMODULE module, const char* name) {
    FARPROC proc = GetProcAddress(module, name);
    if (!proc)
        throw std::runtime_error(std::string("regvane.dll does not export ") + name);
    return reinterpret_cast<Fn>(reinterpret_cast<void*>(proc));
}

} // namespace

RegvaneLibrary& RegvaneLibrary::Get() {
    static RegvaneLibrary library = [] {
        RegvaneLibrary lib;
        lib.module = LoadLibraryW((ProgramFolder() + L"regvane.dll").c_str());
        if (!lib.module)
            throw std::runtime_error("regvane.dll did not load");
        lib.InitRegvane = Export<InitRegvaneFn>(lib.module, "InitRegvane");
        lib.RegvaneLanguageChanged = Export<RegvaneLanguageChangedFn>(lib.module, "RegvaneLanguageChanged");
        lib.RegvaneCheckDescription = Export<RegvaneCheckDescriptionFn>(lib.module, "RegvaneCheckDescription");
        lib.RegvaneCreateDescribedPage =
            Export<RegvaneCreateDescribedPageFn>(lib.module, "RegvaneCreateDescribedPage");
        lib.CreateRegvaneWnd = Export<CreateRegvaneWndFn>(lib.module, "CreateRegvaneWnd");
        lib.CreateRegvaneHwnd = Export<CreateRegvaneHwndFn>(lib.module, "CreateRegvaneHwnd");
        lib.RegvaneDialogClassName = Export<RegvaneDialogClassNameFn>(lib.module, "RegvaneDialogClassName");
        return lib;
    }();
    return library;
}

HostFrame::HostFrame() {
    static const ATOM frameClass = [] {
        WNDCLASSW wc{};
        wc.lpfnWndProc = FrameProc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = L"RegvaneTestFrame";
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        return RegisterClassW(&wc);
    }();
    (void)frameClass;
    m_frame = CreateWindowExW(0, L"RegvaneTestFrame", L"Test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                              1000, 760, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    m_view = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 990, 740,
                             m_frame, nullptr, GetModuleHandleW(nullptr), nullptr);
    // Pages take their keyboard and command routing from a dialog-like parent.
    SetWindowLongPtrW(m_view, GWL_STYLE, GetWindowLongPtrW(m_view, GWL_STYLE) | WS_CLIPCHILDREN);
}

HostFrame::~HostFrame() {
    if (m_frame)
        DestroyWindow(m_frame);
}

std::vector<HostFrame::Posted> HostFrame::TakePosted() {
    std::vector<Posted> posted;
    g_posted = &posted;
    PumpMessages();
    g_posted = nullptr;
    return posted;
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

struct FindState {
    DWORD process;
    std::vector<HWND> found;
};

BOOL CALLBACK CollectDialogs(HWND window, LPARAM param) {
    auto* state = reinterpret_cast<FindState*>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (process == state->process && IsWindowVisible(window) && std::wstring(className) == L"#32770")
        state->found.push_back(window);
    return TRUE;
}

// The icon of a message box is a static control showing one of the system icons.
bool ShowsIcon(HWND box, LPCWSTR icon) {
    HICON expected = LoadIconW(nullptr, icon);
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)) == expected && expected)
            return true;
    return false;
}

} // namespace

MessageBoxWatcher::MessageBoxWatcher(int answer) : m_answer(answer) {
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

MessageBoxWatcher::~MessageBoxWatcher() {
    InterlockedExchange(&m_stop, 1);
    WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
    DeleteCriticalSection(&m_lock);
}

std::vector<MessageBoxWatcher::Box> MessageBoxWatcher::Boxes() const {
    EnterCriticalSection(&m_lock);
    std::vector<Box> copy = m_seen;
    LeaveCriticalSection(&m_lock);
    return copy;
}

DWORD WINAPI MessageBoxWatcher::Run(void* param) {
    auto* self = static_cast<MessageBoxWatcher*>(param);
    while (!InterlockedCompareExchange(&self->m_stop, 0, 0)) {
        FindState state{GetCurrentProcessId(), {}};
        EnumWindows(CollectDialogs, reinterpret_cast<LPARAM>(&state));
        for (HWND box : state.found) {
            if (std::find(self->m_answered.begin(), self->m_answered.end(), box) != self->m_answered.end())
                continue;
            if (BelongsToFileDialog(box))
                continue; // FileDialogWatcher's to answer
            // Pages are children, never top-level: a top-level dialog here is a box the page opened.
            Box seen{};
            wchar_t text[1024] = {};
            GetWindowTextW(box, text, 1024);
            seen.caption = text;
            text[0] = 0;
            GetDlgItemTextW(box, 0xFFFF, text, 1024); // the message text of a message box
            seen.text = text;
            seen.hasInformationIcon = ShowsIcon(box, IDI_INFORMATION);
            seen.hasErrorIcon = ShowsIcon(box, IDI_ERROR);
            EnterCriticalSection(&self->m_lock);
            self->m_seen.push_back(seen);
            LeaveCriticalSection(&self->m_lock);
            self->m_answered.push_back(box);
            PostMessageW(box, WM_COMMAND, MAKEWPARAM(self->m_answer, BN_CLICKED), 0);
        }
        Sleep(20);
    }
    return 0;
}

bool BelongsToFileDialog(HWND window) {
    // The file-type list (cmb1) is in every common file dialog and in no message box.
    auto isFileDialog = [](HWND w) { return w && GetDlgItem(w, cmb1) != nullptr; };
    return isFileDialog(window) || isFileDialog(GetWindow(window, GW_OWNER));
}

namespace {

std::wstring WindowText(HWND window) {
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

// The file-name field: an edit (edt1) in some dialog layouts, an editable combo (cmb13) in others.
HWND FileNameField(HWND dialog) {
    if (HWND edit = GetDlgItem(dialog, edt1))
        return edit;
    return GetDlgItem(dialog, cmb13);
}

std::vector<std::wstring> ComboItems(HWND combo) {
    std::vector<std::wstring> items;
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[256] = {};
        if (SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0) < 255)
            SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        items.push_back(text);
    }
    return items;
}

} // namespace

FileDialogWatcher::FileDialogWatcher(std::vector<std::wstring> answers) : m_answers(std::move(answers)) {
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

FileDialogWatcher::~FileDialogWatcher() {
    InterlockedExchange(&m_stop, 1);
    WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
    DeleteCriticalSection(&m_lock);
}

std::vector<FileDialogWatcher::Dialog> FileDialogWatcher::Dialogs() const {
    EnterCriticalSection(&m_lock);
    std::vector<Dialog> copy = m_seen;
    LeaveCriticalSection(&m_lock);
    return copy;
}

DWORD WINAPI FileDialogWatcher::Run(void* param) {
    auto* self = static_cast<FileDialogWatcher*>(param);
    std::size_t nextAnswer = 0;
    while (!InterlockedCompareExchange(&self->m_stop, 0, 0)) {
        FindState state{GetCurrentProcessId(), {}};
        EnumWindows(CollectDialogs, reinterpret_cast<LPARAM>(&state));
        for (HWND window : state.found) {
            if (!BelongsToFileDialog(window) ||
                std::find(self->m_answered.begin(), self->m_answered.end(), window) != self->m_answered.end())
                continue;
            self->m_answered.push_back(window);
            if (GetDlgItem(window, cmb1) == nullptr) {
                // A question of the file dialog: noted with its dialog, answered Yes.
                const std::wstring text = WindowText(GetDlgItem(window, 0xFFFF));
                EnterCriticalSection(&self->m_lock);
                if (!self->m_seen.empty())
                    self->m_seen.back().prompts.push_back(text);
                LeaveCriticalSection(&self->m_lock);
                PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDYES, BN_CLICKED), 0);
                continue;
            }
            Dialog seen;
            seen.title = WindowText(window);
            seen.okButton = WindowText(GetDlgItem(window, IDOK));
            HWND nameField = FileNameField(window);
            seen.proposedName = WindowText(nameField);
            seen.fileTypes = ComboItems(GetDlgItem(window, cmb1));
            EnterCriticalSection(&self->m_lock);
            self->m_seen.push_back(seen);
            LeaveCriticalSection(&self->m_lock);
            if (self->m_probe)
                self->m_probe();
            const std::wstring answer =
                nextAnswer < self->m_answers.size() ? self->m_answers[nextAnswer] : std::wstring();
            ++nextAnswer;
            if (answer.empty()) {
                PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                             reinterpret_cast<LPARAM>(GetDlgItem(window, IDCANCEL)));
                continue;
            }
            DWORD_PTR ignored = 0;
            SendMessageTimeoutW(nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(answer.c_str()),
                                SMTO_BLOCK, 5000, &ignored);
            PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(window, IDOK)));
        }
        Sleep(20);
    }
    return 0;
}
