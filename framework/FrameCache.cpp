#include "framework/FrameCache.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>
#include <vector>

namespace {

// Everything the system's drawing of a frame depends on, but the theme (a theme change forgets all).
struct FrameLook {
    ATOM windowClass = 0;
    LONG_PTR style = 0;
    LONG_PTR extendedStyle = 0;
    SIZE size{};
    RECT client{}; // in the window's coordinates
    struct Bar {
        RECT place{}; // in the window's coordinates
        int button = 0, thumbTop = 0, thumbBottom = 0;
        std::array<DWORD, CCHILDREN_SCROLLBAR + 1> states{};
        bool operator==(const Bar& other) const {
            return ::EqualRect(&place, &other.place) && button == other.button &&
                   thumbTop == other.thumbTop && thumbBottom == other.thumbBottom && states == other.states;
        }
    } vertical, horizontal;
    std::array<COLORREF, 8> colours{};

    bool operator==(const FrameLook& other) const {
        return windowClass == other.windowClass && style == other.style &&
               extendedStyle == other.extendedStyle && size.cx == other.size.cx && size.cy == other.size.cy &&
               ::EqualRect(&client, &other.client) && vertical == other.vertical &&
               horizontal == other.horizontal && colours == other.colours;
    }
};

constexpr LONG_PTR kStyles = WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_VSCROLL | WS_HSCROLL | WS_DISABLED;
constexpr LONG_PTR kExtendedStyles = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_WINDOWEDGE |
                                     WS_EX_DLGMODALFRAME | WS_EX_LEFTSCROLLBAR | WS_EX_LAYOUTRTL;

RECT Relative(RECT rect, const RECT& window) {
    ::OffsetRect(&rect, -window.left, -window.top);
    return rect;
}

FrameLook::Bar BarOf(HWND window, LONG object, const RECT& windowRect) {
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    FrameLook::Bar bar;
    if (!::GetScrollBarInfo(window, object, &info))
        return bar;
    bar.place = Relative(info.rcScrollBar, windowRect);
    bar.button = info.dxyLineButton;
    bar.thumbTop = info.xyThumbTop;
    bar.thumbBottom = info.xyThumbBottom;
    std::copy(std::begin(info.rgstate), std::end(info.rgstate), bar.states.begin());
    return bar;
}

FrameLook LookOf(HWND window, RECT& windowRect) {
    FrameLook look;
    ::GetWindowRect(window, &windowRect);
    look.windowClass = static_cast<ATOM>(::GetClassLongPtrW(window, GCW_ATOM));
    look.style = ::GetWindowLongPtrW(window, GWL_STYLE) & kStyles;
    look.extendedStyle = ::GetWindowLongPtrW(window, GWL_EXSTYLE) & kExtendedStyles;
    look.size = {windowRect.right - windowRect.left, windowRect.bottom - windowRect.top};
    ::GetClientRect(window, &look.client);
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&look.client), 2);
    look.client = Relative(look.client, windowRect);
    if (look.style & WS_VSCROLL)
        look.vertical = BarOf(window, OBJID_VSCROLL, windowRect);
    if (look.style & WS_HSCROLL)
        look.horizontal = BarOf(window, OBJID_HSCROLL, windowRect);
    constexpr int kColours[] = {COLOR_SCROLLBAR,  COLOR_BTNFACE, COLOR_BTNSHADOW,   COLOR_BTNHIGHLIGHT,
                                COLOR_3DDKSHADOW, COLOR_3DLIGHT, COLOR_WINDOWFRAME, COLOR_BTNTEXT};
    for (std::size_t i = 0; i < look.colours.size(); ++i)
        look.colours[i] = ::GetSysColor(kColours[i]);
    return look;
}

// A scroll arrow or thumb lit by the mouse must not be kept, nor drawn over plain.
bool MouseOnBars(const FrameLook& look, const RECT& windowRect) {
    POINT cursor{};
    if (!::GetCursorPos(&cursor))
        return true;
    cursor.x -= windowRect.left;
    cursor.y -= windowRect.top;
    return ::PtInRect(&look.vertical.place, cursor) || ::PtInRect(&look.horizontal.place, cursor);
}

struct KeptFrame {
    FrameLook look;
    HBITMAP pixels;
};

// A few looks are enough: the pages that need this open their lists at one or two sizes.
constexpr std::size_t kMostKept = 4;
std::mutex keptLock;
std::vector<KeptFrame> kept; // the most recently kept last

std::vector<KeptFrame>::iterator KeptLike(const FrameLook& look) {
    return std::find_if(kept.begin(), kept.end(),
                        [&look](const KeptFrame& frame) { return frame.look == look; });
}

// Copies a whole frame of `size` between the control's frame and `pixels`, either way.
bool CopyFrame(HDC frame, HBITMAP pixels, SIZE size, bool toFrame) {
    HDC memory = ::CreateCompatibleDC(frame);
    const HGDIOBJ old = ::SelectObject(memory, pixels);
    const bool copied = toFrame ? ::BitBlt(frame, 0, 0, size.cx, size.cy, memory, 0, 0, SRCCOPY)
                                : ::BitBlt(memory, 0, 0, size.cx, size.cy, frame, 0, 0, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    return copied;
}

HDC FrameDC(HWND window) {
    return ::GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE | DCX_CLIPSIBLINGS);
}

bool Overlap(const RECT& a, const RECT& b) {
    RECT common{};
    return ::IntersectRect(&common, &a, &b) != FALSE;
}

// Pixels read back are the frame's only where nothing else was drawn over it: no window above it at
// any level of its family (Wine leaves siblings out of the visible region), all of it inside its
// parents.
bool Uncovered(HWND window, const RECT& windowRect) {
    for (HWND level = window; ::GetWindowLongPtrW(level, GWL_STYLE) & WS_CHILD;) {
        HWND parent = ::GetParent(level);
        if (!parent)
            return false;
        RECT inside{}, clipped{};
        ::GetClientRect(parent, &inside);
        ::MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&inside), 2);
        if (!::IntersectRect(&clipped, &windowRect, &inside) || !::EqualRect(&clipped, &windowRect))
            return false;
        for (HWND above = ::GetWindow(level, GW_HWNDPREV); above; above = ::GetWindow(above, GW_HWNDPREV)) {
            RECT other{};
            if (::IsWindowVisible(above) && ::GetWindowRect(above, &other) && Overlap(other, windowRect))
                return false;
        }
        level = parent;
    }
    return true;
}

// True when `region` (screen coordinates) holds all of `rect`.
bool Covers(HRGN region, const RECT& rect) {
    HRGN rest = ::CreateRectRgnIndirect(&rect);
    const bool covered = ::CombineRgn(rest, rest, region, RGN_DIFF) == NULLREGION;
    ::DeleteObject(rest);
    return covered;
}

} // namespace

bool DrawKeptFrame(HWND window) {
    RECT windowRect{};
    const FrameLook look = LookOf(window, windowRect);
    if (MouseOnBars(look, windowRect))
        return false;
    const std::lock_guard lock(keptLock);
    const auto found = KeptLike(look);
    if (found == kept.end())
        return false;
    HDC dc = FrameDC(window);
    if (!dc)
        return false;
    ::ExcludeClipRect(dc, look.client.left, look.client.top, look.client.right, look.client.bottom);
    const bool drawn = CopyFrame(dc, found->pixels, look.size, true);
    ::ReleaseDC(window, dc);
    return drawn;
}

void KeepFrame(HWND window, WPARAM region) {
    RECT windowRect{};
    const FrameLook look = LookOf(window, windowRect);
    if (look.size.cx <= 0 || look.size.cy <= 0 || MouseOnBars(look, windowRect) || ::GetCapture() == window)
        return;
    // Only a frame drawn whole: 1 is the whole window, anything else the region drawn.
    if (region != 1 && !Covers(reinterpret_cast<HRGN>(region), windowRect))
        return;
    HDC dc = FrameDC(window);
    if (!dc)
        return;
    // The visible region also leaves out other programs' windows where they cover this one.
    HRGN visible = ::CreateRectRgn(0, 0, 0, 0);
    const bool onScreen = ::GetRandomRgn(dc, visible, SYSRGN) == 1 && Covers(visible, windowRect) &&
                          Uncovered(window, windowRect);
    ::DeleteObject(visible);
    HBITMAP pixels = onScreen ? ::CreateCompatibleBitmap(dc, look.size.cx, look.size.cy) : nullptr;
    if (pixels && !CopyFrame(dc, pixels, look.size, false)) {
        ::DeleteObject(pixels);
        pixels = nullptr;
    }
    ::ReleaseDC(window, dc);
    if (!pixels)
        return;
    const std::lock_guard lock(keptLock);
    if (const auto same = KeptLike(look); same != kept.end()) {
        ::DeleteObject(same->pixels);
        kept.erase(same);
    }
    if (kept.size() == kMostKept) {
        ::DeleteObject(kept.front().pixels);
        kept.erase(kept.begin());
    }
    kept.push_back({look, pixels});
}

void ForgetKeptFrames() {
    const std::lock_guard lock(keptLock);
    for (const KeptFrame& frame : kept)
        ::DeleteObject(frame.pixels);
    kept.clear();
}
