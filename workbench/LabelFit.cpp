#include "workbench/LabelFit.h"

#include "framework/Wnd.h"
#include "module/LanguageSelection.h"
#include "workbench/Win32Text.h"

#include <commctrl.h>

#include <cstdint>
#include <set>

namespace {

// A device context with the control's font selected, for measuring as the control draws.
class ControlDc {
public:
    explicit ControlDc(HWND control) : m_control(control), m_dc(GetDC(control)) {
        HFONT font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
        m_old = SelectObject(m_dc, font ? font : GetStockObject(SYSTEM_FONT));
    }
    ~ControlDc() {
        SelectObject(m_dc, m_old);
        ReleaseDC(m_control, m_dc);
    }

    // The rectangle DrawText lays the text out in when it may use `width` pixels.
    SIZE Layout(const std::wstring& text, UINT format, int width) const {
        RECT rect{0, 0, width, 0};
        DrawTextW(m_dc, text.c_str(), static_cast<int>(text.size()), &rect, format | DT_CALCRECT);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    // How far one line's glyphs reach, drawn from the left edge: a control clips its text at its
    // edge, so only the blank the last glyphs leave may lie beyond it.
    int Reach(const std::wstring& text, UINT format) const {
        int width = 0;
        const std::vector<std::uint32_t> pixels = Draw(text, format, width);
        int reach = 0;
        for (std::size_t row = 0; row < pixels.size(); row += static_cast<std::size_t>(width))
            for (int x = width - 1; x >= reach; --x)
                if (pixels[row + static_cast<std::size_t>(x)] != kWhite)
                    reach = x + 1;
        return reach;
    }
    // The characters of the text that come out as the box a font draws for a character it lacks:
    // neither the control's font nor a font linked to it has them.
    std::wstring Boxed(const std::wstring& text) const {
        int width = 0;
        const auto box = Draw(std::wstring(1, wchar_t(0xFFFF)), DT_NOPREFIX, width); // no character at all
        std::wstring boxed;
        for (const wchar_t c : text)
            if (c > L' ' && boxed.find(c) == std::wstring::npos &&
                Draw(std::wstring(1, c), DT_NOPREFIX, width) == box)
                boxed += c;
        return boxed;
    }
    int HalfDigitWidth() const {
        int width = 0;
        GetCharWidth32W(m_dc, L'0', L'0', &width);
        return width / 2;
    }

private:
    static constexpr std::uint32_t kWhite = 0xFFFFFF;

    // The text drawn black on white on one line, from the left edge, with room on the right for
    // glyphs that overhang their advance: 0xRRGGBB pixels, rows from the top.
    std::vector<std::uint32_t> Draw(const std::wstring& text, UINT format, int& width) const {
        const SIZE line = Layout(text, format | DT_SINGLELINE, 0);
        width = line.cx + 2 * line.cy;
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -line.cy; // top-down rows
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        HDC dc = CreateCompatibleDC(m_dc);
        HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        HGDIOBJ oldBitmap = SelectObject(dc, bitmap);
        HGDIOBJ oldFont = SelectObject(dc, GetCurrentObject(m_dc, OBJ_FONT));
        RECT area{0, 0, width, line.cy};
        FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        SetBkMode(dc, TRANSPARENT);
        DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format | DT_SINGLELINE | DT_NOCLIP);
        GdiFlush();
        const auto* first = static_cast<const std::uint32_t*>(bits);
        std::vector<std::uint32_t> pixels(first, first + width * line.cy);
        for (std::uint32_t& pixel : pixels)
            pixel &= kWhite;
        SelectObject(dc, oldFont);
        SelectObject(dc, oldBitmap);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return pixels;
    }

    HWND m_control;
    HDC m_dc;
    HGDIOBJ m_old;
};

std::string Quoted(const std::wstring& text) {
    return '"' + Utf8(text) + '"';
}

// Where a text laid out as the control lays it out does not fit: empty when it fits. A text that
// may wrap must not need more lines than there is room for; a line that cannot be broken (one
// long word, or a single-line control) must not reach past the edge.
std::string Misfit(const ControlDc& dc, const std::wstring& text, UINT format, SIZE room) {
    if (const std::wstring boxed = dc.Boxed(text); !boxed.empty())
        return Quoted(text) + " draws " + Quoted(boxed) + " as boxes: no font has those letters";
    const SIZE laidOut = dc.Layout(text, format, room.cx);
    if (laidOut.cy > room.cy)
        return Quoted(text) + " needs " + std::to_string(laidOut.cy) + " pixels of height to wrap into " +
               std::to_string(room.cx) + " pixels of width, has " + std::to_string(room.cy);
    const int reach = laidOut.cx <= room.cx ? 0 : dc.Reach(text, format & ~DT_WORDBREAK);
    if (reach <= room.cx)
        return {};
    return Quoted(text) + " reaches " + std::to_string(reach) + " pixels, has " + std::to_string(room.cx);
}

void Note(std::string& misfits, const std::string& finding) {
    if (!finding.empty())
        misfits += (misfits.empty() ? "" : "; ") + finding;
}

// A drop-down list shows the chosen item on one line in the field beside its arrow.
std::string ComboMisfits(HWND combo, const ControlDc& dc) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!GetComboBoxInfo(combo, &info))
        return {};
    const SIZE room{info.rcItem.right - info.rcItem.left - 2, info.rcItem.bottom - info.rcItem.top};
    std::string misfits;
    for (LRESULT i = 0; i < SendMessageW(combo, CB_GETCOUNT, 0, 0); ++i) {
        std::wstring item(static_cast<std::size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, i, 0)) + 1, L'\0');
        item.resize(static_cast<std::size_t>(
            SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item.data()))));
        const std::string misfit = Misfit(dc, item, DT_SINGLELINE | DT_NOPREFIX, room);
        Note(misfits, misfit.empty() ? "" : "item " + misfit);
    }
    return misfits;
}

// A list's column header draws each title between its margins, and shortens it with "..." once
// its advance is wider than the room between them.
std::string ListHeaderMisfits(HWND list) {
    HWND header = ListView_GetHeader(list);
    if (!header)
        return {};
    ControlDc dc(header);
    std::string misfits;
    for (int i = 0; i < Header_GetItemCount(header); ++i) {
        wchar_t text[256] = {};
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH;
        item.pszText = text;
        item.cchTextMax = 256;
        Header_GetItem(header, i, &item);
        const int needs =
            dc.Layout(text, DT_SINGLELINE | DT_NOPREFIX, 0).cx + 2 * Header_GetBitmapMargin(header);
        if (const std::wstring boxed = dc.Boxed(text); !boxed.empty())
            Note(misfits, "column " + Quoted(text) + " draws " + Quoted(boxed) + " as boxes");
        else if (*text && needs > item.cxy)
            Note(misfits, "column " + Quoted(text) + " needs " + std::to_string(needs) + " pixels, has " +
                              std::to_string(item.cxy));
    }
    return misfits;
}

// Where one control's texts do not fit. A static text is drawn over its whole client area, wrapped
// at spaces unless it is single-line; a button draws its text inside its frame: a push button within
// its 3D edge and focus rectangle, a check box or radio button to the right of its box, a group box
// between the frame's corners.
std::string ControlMisfits(HWND control) {
    wchar_t name[64] = {};
    GetClassNameW(control, name, 64);
    CharLowerW(name);
    const std::wstring kind = name;
    if (kind == L"syslistview32")
        return ListHeaderMisfits(control);
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    const ControlDc dc(control);
    RECT client{};
    GetClientRect(control, &client);
    SIZE room{client.right, client.bottom};
    UINT format = DT_SINGLELINE;
    if (kind == L"combobox") {
        return ComboMisfits(control, dc);
    } else if (kind == L"static") {
        const LONG_PTR type = style & SS_TYPEMASK;
        if (type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT)
            format = DT_WORDBREAK | DT_EXPANDTABS;
        else if (type != SS_SIMPLE && type != SS_LEFTNOWORDWRAP)
            return {}; // icons, bitmaps, frames: no text
        if (style & SS_NOPREFIX)
            format |= DT_NOPREFIX;
    } else if (kind == L"button") {
        const LONG_PTR type = style & BS_TYPEMASK;
        if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON)
            room = {room.cx - 2 * 3, room.cy - 2 * 3};
        else if (type == BS_GROUPBOX)
            room.cx -= 2 * 8;
        else if (type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_RADIOBUTTON ||
                 type == BS_AUTORADIOBUTTON || type == BS_3STATE || type == BS_AUTO3STATE)
            room.cx -= GetSystemMetrics(SM_CXMENUCHECK) + dc.HalfDigitWidth() + 1;
        else
            return {}; // owner-drawn: the page draws it
        if (style & BS_MULTILINE)
            format = DT_WORDBREAK;
    } else {
        return {};
    }
    const std::wstring text = CWnd(control).GetWindowText();
    return text.empty() ? std::string() : Misfit(dc, text, format, room);
}

} // namespace

std::vector<std::string> PageMisfits(HWND page) {
    std::vector<std::string> misfits;
    for (HWND control = GetWindow(page, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if (const std::string misfit = ControlMisfits(control); !misfit.empty())
            misfits.push_back("control " + std::to_string(GetDlgCtrlID(control)) + ": " + misfit);
    return misfits;
}

std::vector<int> LanguagesWithTheirOwnFiles() {
    std::vector<int> indices;
    std::set<std::wstring> files;
    for (int index = 1; index <= kLanguageCount; ++index)
        if (files.insert(LanguageFilesForIndex(index).primary).second)
            indices.push_back(index);
    return indices;
}
