#include "workbench/ScreenCapture.h"

#include "workbench/PageSession.h"
#include "workbench/PictureCheck.h"
#include "workbench/PngWriter.h"
#include "workbench/Win32Text.h"

#include <cwchar>

namespace {

// How long a page may take to show every control before the picture is given up.
constexpr ULONGLONG kPaintTimeoutMs = 3000;
constexpr DWORD kPaintPollMs = 20;

// A 32-bit bitmap with a memory DC drawing into it.
class Canvas {
public:
    Canvas(int width, int height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // top row first
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        HDC screen = GetDC(nullptr);
        m_dc = CreateCompatibleDC(screen);
        m_bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        ReleaseDC(nullptr, screen);
        if (m_dc && m_bitmap)
            m_old = SelectObject(m_dc, m_bitmap);
        m_width = width;
        m_height = height;
    }
    ~Canvas() {
        if (m_old)
            SelectObject(m_dc, m_old);
        if (m_bitmap)
            DeleteObject(m_bitmap);
        if (m_dc)
            DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    bool Ready() const { return m_old != nullptr; }
    HDC Dc() const { return m_dc; }
    PixelImage Pixels() const {
        GdiFlush();
        const auto* first = static_cast<const std::uint32_t*>(m_bits);
        return {m_width, m_height,
                std::vector<std::uint32_t>(first, first + static_cast<std::size_t>(m_width) * m_height)};
    }

private:
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_old = nullptr;
    void* m_bits = nullptr;
    int m_width = 0;
    int m_height = 0;
};

// A label without text or frame draws nothing but the background it sits on.
bool DrawsNothing(HWND control) {
    wchar_t className[16] = {};
    GetClassNameW(control, className, 16);
    if (_wcsicmp(className, L"Static") != 0 || GetWindowTextLengthW(control) > 0)
        return false;
    const auto style = static_cast<DWORD>(GetWindowLongW(control, GWL_STYLE));
    const auto extended = static_cast<DWORD>(GetWindowLongW(control, GWL_EXSTYLE));
    const DWORD type = style & SS_TYPEMASK;
    const bool textType = type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT || type == SS_SIMPLE ||
                          type == SS_LEFTNOWORDWRAP;
    return textType && !(style & WS_BORDER) && !(extended & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE));
}

struct AreaSearch {
    HWND page;
    RECT picture; // on the screen
    std::vector<PictureArea> areas;
};

// The page's controls as they are now, whoever created them: the part of each visible one that its
// parents let show, in picture coordinates. A control the page's edge cuts (a page scrolled part of
// the way) is left out: the strip that shows may be all background.
BOOL CALLBACK CollectArea(HWND control, LPARAM param) {
    auto* search = reinterpret_cast<AreaSearch*>(param);
    if (!IsWindowVisible(control) || DrawsNothing(control))
        return TRUE;
    RECT shown{}, page{}, whole{};
    GetWindowRect(control, &shown);
    GetClientRect(search->page, &page);
    MapWindowPoints(search->page, nullptr, reinterpret_cast<POINT*>(&page), 2);
    if (GetParent(control) == search->page &&
        (!IntersectRect(&whole, &shown, &page) || !EqualRect(&whole, &shown)))
        return TRUE;
    for (HWND parent = GetParent(control); parent && parent != search->page; parent = GetParent(parent)) {
        RECT client{};
        GetClientRect(parent, &client);
        MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&client), 2);
        IntersectRect(&shown, &shown, &client);
    }
    if (IntersectRect(&shown, &shown, &search->picture))
        search->areas.push_back({GetDlgCtrlID(control), shown.left - search->picture.left,
                                 shown.top - search->picture.top, shown.right - search->picture.left,
                                 shown.bottom - search->picture.top});
    return TRUE;
}

// The page with none of its controls: its client area as it erases it.
PixelImage BareBackground(HWND page, const RECT& picture) {
    RECT client{};
    GetClientRect(page, &client);
    Canvas background(client.right, client.bottom);
    Canvas bare(picture.right - picture.left, picture.bottom - picture.top);
    if (!background.Ready() || !bare.Ready())
        return {};
    SendMessageW(page, WM_ERASEBKGND, reinterpret_cast<WPARAM>(background.Dc()), 0);
    POINT origin{0, 0};
    ClientToScreen(page, &origin);
    BitBlt(bare.Dc(), origin.x - picture.left, origin.y - picture.top, client.right, client.bottom,
           background.Dc(), 0, 0, SRCCOPY);
    return bare.Pixels();
}

std::string IdList(const std::vector<int>& ids) {
    std::string list;
    for (const int id : ids) {
        if (!list.empty())
            list += ", ";
        list += std::to_string(id);
    }
    return list;
}

// Reads the page as it is drawn, children included, once every control shows. The pixels come from
// the window's own surface, so nothing depends on when the display gets to them.
std::string ReadPage(HWND window, const RECT& picture, PixelImage& pixels) {
    // Paint everything now, then let the page finish what it posted to itself.
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpMessages();

    AreaSearch search{window, picture, {}};
    EnumChildWindows(window, CollectArea, reinterpret_cast<LPARAM>(&search));
    const PixelImage bare = BareBackground(window, picture);
    Canvas canvas(picture.right - picture.left, picture.bottom - picture.top);
    if (!canvas.Ready() || bare.pixels.empty())
        return "no memory for the picture (" + LastErrorText() + ")";
    RECT rect{};
    GetWindowRect(window, &rect);

    // A blinking caret would make the picture depend on the moment it is taken.
    HideCaret(nullptr);
    const ULONGLONG deadline = GetTickCount64() + kPaintTimeoutMs;
    std::string error;
    for (;;) {
        HDC source = GetWindowDC(window);
        const BOOL copied =
            BitBlt(canvas.Dc(), 0, 0, picture.right - picture.left, picture.bottom - picture.top, source,
                   picture.left - rect.left, picture.top - rect.top, SRCCOPY);
        ReleaseDC(window, source);
        if (!copied) {
            error = "the page could not be read (" + LastErrorText() + ")";
            break;
        }
        pixels = canvas.Pixels();
        const std::vector<int> unpainted = BareAreas(pixels, bare, search.areas);
        if (unpainted.empty())
            break;
        if (GetTickCount64() > deadline) {
            error = "controls " + IdList(unpainted) + " had not painted after " +
                    std::to_string(kPaintTimeoutMs / 1000) + " s";
            break;
        }
        MsgWaitForMultipleObjectsEx(0, nullptr, kPaintPollMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        PumpMessages();
        RedrawWindow(window, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    ShowCaret(nullptr);
    return error;
}

} // namespace

std::string CaptureWindowPng(HWND window, const std::wstring& path, SIZE& size, bool& cropped) {
    RECT rect{};
    GetWindowRect(window, &rect);
    const RECT screen{GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN),
                      GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                      GetSystemMetrics(SM_YVIRTUALSCREEN) + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    RECT visible{};
    if (!IsWindowVisible(window) || !IntersectRect(&visible, &rect, &screen))
        return "the page is not on the screen";
    cropped = !EqualRect(&visible, &rect);
    size = {visible.right - visible.left, visible.bottom - visible.top};

    PixelImage pixels;
    if (const std::string error = ReadPage(window, visible, pixels); !error.empty())
        return error;
    std::vector<std::uint8_t> rgb;
    rgb.reserve(pixels.pixels.size() * 3);
    for (const std::uint32_t pixel : pixels.pixels) { // 0x00RRGGBB
        rgb.push_back(static_cast<std::uint8_t>(pixel >> 16));
        rgb.push_back(static_cast<std::uint8_t>(pixel >> 8));
        rgb.push_back(static_cast<std::uint8_t>(pixel));
    }

    const std::vector<std::uint8_t> png = EncodePng(size.cx, size.cy, rgb);
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return "cannot write " + Utf8(path) + " (" + LastErrorText() + ")";
    DWORD written = 0;
    const bool ok = WriteFile(file, png.data(), static_cast<DWORD>(png.size()), &written, nullptr) &&
                    written == png.size();
    const DWORD writeError = GetLastError();
    CloseHandle(file);
    return ok ? "" : "cannot write " + Utf8(path) + " (" + LastErrorText(writeError) + ")";
}
