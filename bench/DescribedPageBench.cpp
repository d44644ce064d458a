// What a described page costs to open and close, against the floor of the same frame with the same
// windows (every control, label and spin button, at the same places) created bare and closed in the
// same run: the ratio is what reading the chip, finding the description's layout, hooking up the
// controls and filling them add, and it holds from machine to machine where absolute times do not.
// The target is at most 1.3. The first opening of a class includes parsing its description, which
// happens once per module; later openings reuse it. Description files (the made-up 60-field page of
// docs/examples unless others are named) open as the designer opens them: each opening looks at the
// file, which is read again only once it changed. In the host's room that page flows into columns
// and scrolls.
//
// Last, a page of a 32 x 16 register grid against the bare frame of its controls (the grid's list
// view made with the page's styles, empty) and against that frame whose list view also gets the
// grid's columns and rows. The host window stays hidden: this is what making, filling and closing
// the page cost, not painting it (regvane_table_bench paints its grid). What the grid adds is almost
// all the list view taking 17 columns and 32 rows; reading the record and the 512 cells' fields cost
// a few hundredths of a millisecond.
//
// Run under Wine, from the build (rounds, then chip types, hand-written pages too, or description files):
//   xvfb-run -a cmake/wine-run.sh build/windows/App/Bin/regvane_page_bench.exe [300 [65551 FILE.desc ...]]
#include "bench/PageBench.h"
#include "host/RegvaneDesignerExports.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iterator>
#include <commctrl.h>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

struct Child {
    std::wstring windowClass;
    std::wstring text;
    DWORD style, exStyle;
    RECT rect;
    int id;
};

std::vector<Child> ChildrenOf(HWND page) {
    std::vector<Child> children;
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        Child c;
        wchar_t name[64] = {}, text[256] = {};
        GetClassNameW(child, name, 64);
        GetWindowTextW(child, text, 256);
        c.windowClass = name;
        c.text = text;
        c.style = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE));
        c.exStyle = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_EXSTYLE));
        GetWindowRect(child, &c.rect);
        // A combo box is made as tall as it is with its list dropped, as a template makes it.
        if (_wcsicmp(name, WC_COMBOBOXW) == 0)
            SendMessageW(child, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&c.rect));
        MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&c.rect), 2);
        c.id = GetDlgCtrlID(child);
        children.push_back(c);
    }
    return children;
}

INT_PTR CALLBACK BareProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

// The page's frame as a bare dialog: an empty template of the same size, style and font.
std::vector<WORD> BareTemplate(HWND page) {
    RECT client;
    GetClientRect(page, &client);
    std::vector<WORD> words(64, 0);
    auto* header = reinterpret_cast<DLGTEMPLATE*>(words.data());
    header->style = DS_SETFONT | DS_CONTROL | WS_CHILD;
    header->cx = static_cast<short>(client.right);
    header->cy = static_cast<short>(client.bottom);
    WORD* tail = reinterpret_cast<WORD*>(header + 1);
    tail[0] = 0; // no menu
    tail[1] = 0; // standard class
    tail[2] = 0; // no title
    tail[3] = 8; // point size
    const wchar_t face[] = L"MS Shell Dlg";
    std::copy(face, face + std::size(face), reinterpret_cast<wchar_t*>(tail + 4));
    return words;
}

HWND OpenBare(const std::vector<WORD>& frame, const std::vector<Child>& children, HWND parent) {
    HWND dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(frame.data()), parent, BareProc, 0);
    const auto font = static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    for (const Child& c : children) {
        HWND child = CreateWindowExW(c.exStyle, c.windowClass.c_str(), c.text.c_str(), c.style, c.rect.left,
                                     c.rect.top, c.rect.right - c.rect.left, c.rect.bottom - c.rect.top,
                                     dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(c.id)),
                                     GetModuleHandleW(nullptr), nullptr);
        SendMessageW(child, WM_SETFONT, font, FALSE);
    }
    return dialog;
}

// A page of a 32 x 16 grid over the large block: 32 rows of four bytes, 16 columns of two bits.
std::wstring GridDescription() {
    std::string text = "[page]\nclass = CRegvaneBenchGrid\nformat-version = 2\n[grid g]\nrecord = large\n"
                       "rows = 32\nstep = 4\nrow-names = \"Reg %d\"\n";
    for (int column = 0; column < 16; ++column)
        text += "[field c" + std::to_string(column) + "]\ngrid = g\nlabel = \"C" + std::to_string(column) +
                "\"\nbits = " + std::to_string(column / 4) + "[" + std::to_string(column % 4 * 2 + 1) + ":" +
                std::to_string(column % 4 * 2) + "]\ncontrol = number\n";
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"CRegvaneBenchGrid.desc";
    std::ofstream(path.c_str(), std::ios::binary) << text;
    return path;
}

// The bare frame's copy of the grid's list, given the page's columns and rows (its cells stay empty:
// the bare frame answers for none).
void DrawListLike(HWND bare, HWND page) {
    for (HWND list = FindWindowExW(page, nullptr, WC_LISTVIEWW, nullptr); list;
         list = FindWindowExW(page, list, WC_LISTVIEWW, nullptr)) {
        HWND copy = GetDlgItem(bare, GetDlgCtrlID(list));
        HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
        const int columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
        for (int column = 0; column < columns; ++column) {
            LVCOLUMNW c{LVCF_WIDTH | LVCF_TEXT};
            c.cx = static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
            c.pszText = const_cast<wchar_t*>(L"C");
            SendMessageW(copy, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&c));
        }
        SendMessageW(copy, LVM_SETITEMCOUNT, static_cast<WPARAM>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)), 0);
    }
}

} // namespace

int main(int argc, char** argv) {
    // FM6126, FM6127, FM6128, FM6129, FM6126EX, FM6127EX, FM6128Ex, FM6129Ex
    std::vector<int> types{179, 184, 120, 259, 65536 + 15, 65536 + 25, 65536 + 41, 65536 + 48};
    std::vector<std::string> files{REGVANE_SOURCE_DIR "/docs/examples/CRegvaneExampleLongPage.desc"};
    const int rounds = argc > 1 ? std::max(5, std::atoi(argv[1])) : 300;
    if (argc > 2) {
        types.clear();
        files.clear();
        for (int i = 2; i < argc; ++i)
            if (std::isdigit(static_cast<unsigned char>(argv[i][0])))
                types.push_back(std::atoi(argv[i]));
            else
                files.emplace_back(argv[i]);
    }

    const RegvaneDll dll = StartRegvaneDll();
    if (!dll.module) {
        std::printf("regvane.dll did not load\n");
        return 1;
    }
    HWND host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 900, 600, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
    std::printf("%-10s %8s %10s %10s %7s\n", "page", "controls", "first ms", "page ms", "ratio");
    double worst = 0;
    auto measure = [&](const std::string& name, const auto& open) {
        const double firstStart = Now();
        HWND first = open();
        const double firstOpen = Now() - firstStart;
        const std::vector<Child> children = ChildrenOf(first);
        const std::vector<WORD> frame = BareTemplate(first);
        DestroyWindow(first);

        std::vector<double> described, bare;
        for (int round = 0; round < rounds; ++round) {
            double start = Now();
            DestroyWindow(open());
            described.push_back(Now() - start);
            start = Now();
            DestroyWindow(OpenBare(frame, children, host));
            bare.push_back(Now() - start);
        }
        const double ratio = Median(described) / Median(bare);
        worst = std::max(worst, ratio);
        std::printf("%-10s %8zu %10.3f %10.3f %7.2f\n", name.c_str(), children.size(), firstOpen * 1000,
                    Median(described) * 1000, ratio);
    };
    for (const int type : types) {
        SimulatedChip chip(static_cast<std::uint16_t>(type), 0);
        measure(std::to_string(type), [&] { return dll.create(type, &chip, L"", host); });
    }
    for (const std::string& file : files) {
        const std::wstring path(file.begin(), file.end());
        SimulatedChip chip(7, 0);
        measure(file.substr(file.find_last_of("/\\") + 1),
                [&] { return dll.createDescribed(path.c_str(), &chip, L"", host, nullptr, 0); });
    }
    std::printf("worst ratio %.2f (target at most 1.30), medians of %d openings and closings each\n", worst,
                rounds);

    // The grid page against the bare frame with its controls, and against that frame whose list view
    // also gets the grid's columns and rows.
    const auto createDescribed = reinterpret_cast<RegvaneCreateDescribedPageFn>(
        reinterpret_cast<void*>(GetProcAddress(dll.module, "RegvaneCreateDescribedPage")));
    const std::wstring gridPath = GridDescription();
    SimulatedChip gridChip(7, 0);
    auto openGrid = [&] {
        wchar_t problem[256] = {};
        return createDescribed(gridPath.c_str(), &gridChip, L"", host, problem, 256);
    };
    HWND first = openGrid();
    if (!first) {
        std::printf("the grid page did not open\n");
        return 1;
    }
    ShowWindow(first, SW_SHOW);
    const std::vector<Child> children = ChildrenOf(first);
    const std::vector<WORD> frame = BareTemplate(first);
    std::vector<double> described, bare, drawn;
    for (int round = 0; round < rounds; ++round) {
        double start = Now();
        HWND page = openGrid();
        ShowWindow(page, SW_SHOW);
        UpdateWindow(page);
        DestroyWindow(page);
        described.push_back(Now() - start);
        for (const bool withList : {false, true}) {
            start = Now();
            HWND copy = OpenBare(frame, children, host);
            if (withList)
                DrawListLike(copy, first);
            ShowWindow(copy, SW_SHOW);
            UpdateWindow(copy);
            DestroyWindow(copy);
            (withList ? drawn : bare).push_back(Now() - start);
        }
    }
    DestroyWindow(first);
    DeleteFileW(gridPath.c_str());
    std::printf("32 x 16 grid page %.3f ms: %.2f x a bare frame of its controls (target at most 1.30), %.2f x "
                "that frame with the list's columns and rows\n",
                Median(described) * 1000, Median(described) / Median(bare), Median(described) / Median(drawn));
    DestroyWindow(host);
    return 0;
}
