#include "workbench/ScreenCapture.h"

#include "workbench/PngWriter.h"
#include "workbench/Win32Text.h"

#include <vector>

std::string CaptureWindowPng(HWND window, const std::wstring& path, SIZE& size, bool& cropped) {
    // Everything the page has to draw must be on the screen before it is read back.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    GdiFlush();

    RECT rect{};
    GetWindowRect(window, &rect);
    const RECT screen{GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN),
                      GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                      GetSystemMetrics(SM_YVIRTUALSCREEN) + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    RECT visible{};
    if (!IntersectRect(&visible, &rect, &screen))
        return "the page is not on the screen";
    cropped = !EqualRect(&visible, &rect);
    size = {visible.right - visible.left, visible.bottom - visible.top};

    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    HDC screenDc = GetDC(nullptr);
    HDC memoryDc = CreateCompatibleDC(screenDc);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(screenDc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    std::string error;
    if (!bitmap || !memoryDc) {
        error = "no memory for the picture (" + LastErrorText() + ")";
    } else {
        HGDIOBJ old = SelectObject(memoryDc, bitmap);
        if (!BitBlt(memoryDc, 0, 0, size.cx, size.cy, screenDc, visible.left, visible.top,
                    SRCCOPY | CAPTUREBLT))
            error = "the screen could not be read (" + LastErrorText() + ")";
        GdiFlush();
        SelectObject(memoryDc, old);
    }
    std::vector<std::uint8_t> rgb;
    if (error.empty()) {
        const auto* pixels = static_cast<const std::uint8_t*>(bits); // blue, green, red, unused
        rgb.reserve(static_cast<std::size_t>(size.cx) * size.cy * 3);
        for (long i = 0; i < static_cast<long>(size.cx) * size.cy; ++i) {
            rgb.push_back(pixels[4 * i + 2]);
            rgb.push_back(pixels[4 * i + 1]);
            rgb.push_back(pixels[4 * i]);
        }
    }
    if (bitmap)
        DeleteObject(bitmap);
    if (memoryDc)
        DeleteDC(memoryDc);
    ReleaseDC(nullptr, screenDc);
    if (!error.empty())
        return error;

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
