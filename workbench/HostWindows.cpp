#include "workbench/HostWindows.h"

#include "workbench/PageSession.h"

namespace {

constexpr wchar_t kViewClass[] = L"RegvaneWorkbenchView";
constexpr wchar_t kHeadlessFrameClass[] = L"RegvaneWorkbenchHeadlessFrame";

LRESULT CALLBACK HeadlessFrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* session = reinterpret_cast<PageSession*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (session && IsPageRequest(message)) {
        session->NoteFrameMessage(message, wParam, lParam);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterClassOnce(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSW windowClass{};
    if (GetClassInfoW(GetModuleHandleW(nullptr), name, &windowClass))
        return;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
}

} // namespace

bool IsPageRequest(UINT message) {
    return message >= WM_USER && message < 0x8000;
}

HWND CreateHostView(HWND frame, int x, int y, int width, int height) {
    RegisterClassOnce(kViewClass, DefWindowProcW);
    return CreateWindowExW(WS_EX_CONTROLPARENT, kViewClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, x,
                           y, width, height, frame, nullptr, GetModuleHandleW(nullptr), nullptr);
}

HeadlessFrame::HeadlessFrame(PageSession& session, SIZE area) : m_area(area) {
    RegisterClassOnce(kHeadlessFrameClass, HeadlessFrameProc);
    m_frame = CreateWindowExW(WS_EX_TOPMOST | WS_EX_CONTROLPARENT, kHeadlessFrameClass, L"RegvaneWorkbench",
                              WS_POPUP | WS_CLIPCHILDREN, 0, 0, 200, 100, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(m_frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&session));
    m_view = CreateHostView(m_frame, 0, 0, area.cx, area.cy);
}

HWND HeadlessFrame::RoomForPage() const {
    SetWindowPos(m_view, nullptr, 0, 0, m_area.cx, m_area.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    return m_view;
}

HeadlessFrame::~HeadlessFrame() {
    if (m_frame)
        DestroyWindow(m_frame);
}

void HeadlessFrame::FitPage(HWND page) {
    RECT rect{};
    GetWindowRect(page, &rect);
    const int width = rect.right - rect.left, height = rect.bottom - rect.top;
    SetWindowPos(m_view, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(m_frame, HWND_TOPMOST, 0, 0, width, height, SWP_SHOWWINDOW);
    SetForegroundWindow(m_frame);
    UpdateWindow(m_frame);
    PumpMessages();
}
