// Translated texts fit the controls that show them, in every host language: a label that wraps into
// a line its control has no room for, or runs past its edge, loses words the operator needs, and
// a letter no font has comes out as a box. Each text is drawn and measured with the control's own
// font (and the fonts linked to it for scripts it lacks, as on Windows) and compared with the room
// the control draws it in.
#include "TestHost.h"
#include "factory/ChipTypes.h"
#include "module/LanguageSelection.h"
#include "workbench/ChipCatalog.h"
#include "workbench/ChipPresets.h"
#include "workbench/Win32Text.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    CharLowerW(name);
    return name;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

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
    ControlDc(const ControlDc&) = delete;
    ControlDc& operator=(const ControlDc&) = delete;

    // The rectangle DrawText lays the text out in when it may use `width` pixels.
    SIZE Layout(const std::wstring& text, UINT format, int width) const {
        RECT rect{0, 0, width, 0};
        DrawTextW(m_dc, text.c_str(), static_cast<int>(text.size()), &rect, format | DT_CALCRECT);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    // How far one line's glyphs reach, drawn from the left edge: a control clips its text at its
    // edge, so only the blank the last glyphs leave may lie beyond it.
    int Reach(const std::wstring& text, UINT format) const {
        const Picture picture = Draw(text, format);
        int reach = 0;
        for (int y = 0; y < picture.height; ++y)
            for (int x = picture.width - 1; x >= reach; --x)
                if (picture.pixels[static_cast<std::size_t>(y * picture.width + x)] != kWhite) {
                    reach = x + 1;
                    break;
                }
        return reach;
    }
    // The characters of the text that come out as the box a font draws for a character it lacks:
    // neither the control's font nor a font linked to it has them.
    std::wstring Boxed(const std::wstring& text) const {
        const Picture box = Draw(std::wstring(1, kNoFontHasIt), DT_NOPREFIX);
        std::wstring boxed;
        for (const wchar_t c : text)
            if (c > L' ' && boxed.find(c) == std::wstring::npos &&
                Draw(std::wstring(1, c), DT_NOPREFIX).pixels == box.pixels)
                boxed += c;
        return boxed;
    }
    int Advance(const std::wstring& text) const { return Layout(text, DT_SINGLELINE | DT_NOPREFIX, 0).cx; }
    int HalfDigitWidth() const {
        int width = 0;
        GetCharWidth32W(m_dc, L'0', L'0', &width);
        return width / 2;
    }

private:
    static constexpr std::uint32_t kWhite = 0xFFFFFF;
    static constexpr wchar_t kNoFontHasIt = 0xFFFF; // not a character at all

    struct Picture {
        int width;
        int height;
        std::vector<std::uint32_t> pixels; // 0xRRGGBB, rows from the top
    };
    // The text drawn black on white on one line, from the left edge, with room on the right for
    // glyphs that overhang their advance.
    Picture Draw(const std::wstring& text, UINT format) const {
        const SIZE line = Layout(text, format | DT_SINGLELINE, 0);
        Picture picture{line.cx + 2 * line.cy, line.cy, {}};
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = picture.width;
        info.bmiHeader.biHeight = -picture.height; // top-down rows
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        HDC dc = CreateCompatibleDC(m_dc);
        HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        HGDIOBJ oldBitmap = SelectObject(dc, bitmap);
        HGDIOBJ oldFont = SelectObject(dc, GetCurrentObject(m_dc, OBJ_FONT));
        RECT area{0, 0, picture.width, picture.height};
        FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        SetTextColor(dc, RGB(0, 0, 0));
        SetBkMode(dc, TRANSPARENT);
        DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format | DT_SINGLELINE | DT_NOCLIP);
        GdiFlush();
        const auto* pixels = static_cast<const std::uint32_t*>(bits);
        for (int i = 0; i < picture.width * picture.height; ++i)
            picture.pixels.push_back(pixels[i] & kWhite);
        SelectObject(dc, oldFont);
        SelectObject(dc, oldBitmap);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return picture;
    }

    HWND m_control;
    HDC m_dc;
    HGDIOBJ m_old;
};

struct Room {
    int width;
    int height;
};

Room ClientRoom(HWND control) {
    RECT client{};
    GetClientRect(control, &client);
    return {client.right, client.bottom};
}

std::string Quoted(const std::wstring& text) {
    std::string quoted(1, '"');
    quoted += Utf8(text);
    quoted += '"';
    return quoted;
}

// Where a text laid out as the control lays it out does not fit: empty when it fits. A text that
// may wrap must not need more lines than there is room for; a line that cannot be broken (one
// long word, or a single-line control) must not reach past the edge.
std::string Misfit(const ControlDc& dc, const std::wstring& text, UINT format, Room room) {
    if (const std::wstring boxed = dc.Boxed(text); !boxed.empty())
        return Quoted(text) + " draws " + Quoted(boxed) + " as boxes: no font has those letters";
    const SIZE laidOut = dc.Layout(text, format, room.width);
    if (laidOut.cy > room.height)
        return Quoted(text) + " needs " + std::to_string(laidOut.cy) + " pixels of height to wrap into " +
               std::to_string(room.width) + " pixels of width, has " + std::to_string(room.height);
    if (laidOut.cx <= room.width)
        return {};
    const int reach = dc.Reach(text, format & ~DT_WORDBREAK);
    if (reach <= room.width)
        return {};
    return Quoted(text) + " reaches " + std::to_string(reach) + " pixels, has " + std::to_string(room.width);
}

// A static text is drawn over its whole client area, wrapped at spaces unless it is single-line.
std::string StaticMisfit(HWND control) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    UINT format = 0;
    switch (style & SS_TYPEMASK) {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
        format = DT_WORDBREAK | DT_EXPANDTABS;
        break;
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        format = DT_SINGLELINE;
        break;
    default:
        return {}; // icons, bitmaps, frames: no text
    }
    if (style & SS_NOPREFIX)
        format |= DT_NOPREFIX;
    const std::wstring text = TextOf(control);
    if (text.empty())
        return {};
    return Misfit(ControlDc(control), text, format, ClientRoom(control));
}

// A button draws its text inside its frame: a push button within its 3D edge and focus rectangle,
// a check box or radio button to the right of its box, a group box between the frame's corners.
std::string ButtonMisfit(HWND control) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    const std::wstring text = TextOf(control);
    if (text.empty())
        return {};
    ControlDc dc(control);
    Room room = ClientRoom(control);
    switch (style & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
        room.width -= 2 * 3;
        room.height -= 2 * 3;
        break;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
    case BS_3STATE:
    case BS_AUTO3STATE:
        room.width -= GetSystemMetrics(SM_CXMENUCHECK) + dc.HalfDigitWidth() + 1;
        break;
    case BS_GROUPBOX:
        room.width -= 2 * 8;
        break;
    default:
        return {}; // owner-drawn: the page draws it
    }
    const UINT format = (style & BS_MULTILINE) ? DT_WORDBREAK : DT_SINGLELINE;
    return Misfit(dc, text, format, room);
}

// The findings about one control's items, one after another.
void Note(std::string& misfits, const std::string& finding) {
    if (finding.empty())
        return;
    if (!misfits.empty())
        misfits += "; ";
    misfits += finding;
}

// A drop-down list shows the chosen item on one line in the field beside its arrow.
std::string ComboMisfit(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!GetComboBoxInfo(combo, &info))
        return {};
    const Room room{info.rcItem.right - info.rcItem.left - 2, info.rcItem.bottom - info.rcItem.top};
    ControlDc dc(combo);
    std::string misfits;
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
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
std::string ListHeaderMisfit(HWND list) {
    HWND header = ListView_GetHeader(list);
    if (!header)
        return {};
    ControlDc dc(header);
    const int margins = 2 * Header_GetBitmapMargin(header);
    std::string misfits;
    for (int i = 0; i < Header_GetItemCount(header); ++i) {
        wchar_t text[256] = {};
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH;
        item.pszText = text;
        item.cchTextMax = 256;
        Header_GetItem(header, i, &item);
        if (!*text)
            continue;
        const int needs = dc.Advance(text) + margins;
        if (const std::wstring boxed = dc.Boxed(text); !boxed.empty())
            Note(misfits, "column " + Quoted(text) + " draws " + Quoted(boxed) + " as boxes");
        else if (needs > item.cxy)
            Note(misfits, "column " + Quoted(text) + " needs " + std::to_string(needs) + " pixels, has " +
                              std::to_string(item.cxy));
    }
    return misfits;
}

// Every text of a page that does not fit, hidden controls included: the host's register kind or
// the page itself shows them later, with the same text.
std::vector<std::string> PageMisfits(HWND page) {
    std::vector<std::string> misfits;
    for (HWND control = GetWindow(page, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
        const std::wstring kind = ClassOf(control);
        std::string misfit;
        if (kind == L"static")
            misfit = StaticMisfit(control);
        else if (kind == L"button")
            misfit = ButtonMisfit(control);
        else if (kind == L"combobox")
            misfit = ComboMisfit(control);
        else if (kind == L"syslistview32")
            misfit = ListHeaderMisfit(control);
        if (!misfit.empty())
            misfits.push_back("control " + std::to_string(GetDlgCtrlID(control)) + ": " + misfit);
    }
    return misfits;
}

struct PageToCheck {
    CatalogEntry row;
    int registerKind; // the host's register kind: it shows and renames the raw editor's controls
};

// The page classes the module ships a chip description for: their pages are laid out from it, with
// the description's texts, whatever their row of the chip-type table says.
std::set<std::wstring> DescribedClasses(HMODULE module) {
    std::set<std::wstring> classes;
    EnumResourceNamesW(
        module, L"CHIPDESC",
        [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR found) -> BOOL {
            if (!IS_INTRESOURCE(name))
                reinterpret_cast<std::set<std::wstring>*>(found)->insert(name);
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&classes));
    return classes;
}

// One page of every class with texts of its own: the custom and the described pages. The other
// generic pages are the raw register editor under their own template numbers, with its texts: the
// editor stands for them, under every register kind a host can give, since each kind shows other
// controls and names them differently.
std::vector<PageToCheck> PagesToCheck(HMODULE module) {
    constexpr int kRegisterKinds = 12;
    const std::set<std::wstring> described = DescribedClasses(module); // resource names: upper case
    std::vector<PageToCheck> pages;
    std::set<std::string> seen;
    for (const CatalogEntry& row : ChipCatalog()) {
        std::wstring upperName = Wide(row.className);
        CharUpperW(upperName.data());
        const ChipClassInfo* info = FindChipClass(row.className);
        const bool ownTexts = info && (info->custom || described.count(upperName));
        if (!ownTexts || !seen.insert(row.className).second)
            continue;
        if (row.className == "CchipRegModify") {
            for (int kind = 1; kind <= kRegisterKinds; ++kind)
                pages.push_back({row, kind});
        } else {
            pages.push_back({row, 0});
        }
    }
    return pages;
}

class TranslatedLabels : public ::testing::TestWithParam<int> {};

TEST_P(TranslatedLabels, FitTheirControlsOnEveryPage) {
    const int language = GetParam();
    InstallHostCallback(language);
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    HostFrame host;
    int checked = 0;
    for (const PageToCheck& check : PagesToCheck(lib.module)) {
        SimulatedChip chip;
        SetUpSimulatedChip(chip, check.row.chipType, check.row.subType);
        if (check.registerKind)
            chip.registerKind = check.registerKind;
        chip.OfferChipFunctions();
        HWND page = lib.CreateRegvaneHwnd(check.row.chipType, &chip, L"", host.View());
        ASSERT_NE(page, nullptr) << EntryLabel(check.row);
        ShowWindow(page, SW_SHOW);
        PumpMessages();
        for (const std::string& misfit : PageMisfits(page))
            ADD_FAILURE() << "page " << EntryLabel(check.row) << " (" << check.row.className
                          << (check.registerKind ? ", register kind " + std::to_string(check.registerKind)
                                                 : "")
                          << "), " << misfit;
        DestroyWindow(page);
        ++checked;
    }
    EXPECT_GT(checked, 20);
}

// One run per language file: the thirteenth index reads the same files as the tenth.
std::vector<int> LanguagesWithTheirOwnFiles() {
    std::vector<int> indices;
    std::set<std::wstring> files;
    for (int index = 1; index <= kLanguageCount; ++index)
        if (files.insert(LanguageFilesForIndex(index).primary).second)
            indices.push_back(index);
    return indices;
}

std::string LanguageName(const ::testing::TestParamInfo<int>& info) {
    std::wstring file = LanguageFilesForIndex(info.param).primary; // "Multi_Thai.ini" -> "Thai"
    file = file.substr(6, file.size() - 10);
    std::string name;
    for (const wchar_t c : file)
        if (iswalnum(c))
            name += static_cast<char>(c);
    return name;
}

INSTANTIATE_TEST_SUITE_P(Language, TranslatedLabels, ::testing::ValuesIn(LanguagesWithTheirOwnFiles()),
                         LanguageName);

} // namespace
