#include "TestHost.h"

#include <algorithm>
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
