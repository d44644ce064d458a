#include "TestHost.h"

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

template <class Fn>
Fn Export(HMODULE module, const char* name) {
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
    m_frame = CreateWindowExW(0, L"RegvaneTestFrame", L"Test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000,
                              760, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    m_view = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 990, 740, m_frame,
                             nullptr, GetModuleHandleW(nullptr), nullptr);
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
