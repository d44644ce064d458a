// What a parameter-table page costs to open, show, paint and close, against floors opened, shown,
// painted and closed alike in the same run (same parent), as ratios that hold from machine to machine
// where absolute times do not:
//   bare   the page's template with an empty dialog procedure: its list, framed and empty;
//   drawn  the same template whose list view draws the page's columns and rows itself, the texts of
//          the cells written by the dialog procedure: what the page cost before its list drew its rows
//          itself;
//   scroll the bare template with its list's vertical scroll bar shown: what any list longer than
//          its view pays for the scroll bar when the system draws it. Under Wine's default theme that
//          is a third of the bare template or more; the page's list draws its frame from the copy it
//          kept of the last one drawn alike.
// Also what the host's "read the chip again" message (0x0903) costs, with the repaint it causes.
//
// Every parameter-table page class opens through regvane.dll as a host opens it, on the first chip
// type that gives it. Made-up tables of 16, 64 and 4,096 rows open on the same page in-process (the
// module library and the table templates are linked in): a table's length must not change what its
// page costs. Targets: every page at most 1.3 times its bare template, the 4,096-row table at most
// 1.3 times the 16-row one. 16 rows fit the list; 64 and 4,096 need its scroll bar.
//
// Last, a register grid of 32 rows of 16 byte cells (CVirtualGrid) against a bare frame holding the
// same list control, empty, and against the same list view drawing the same cells itself.
//
// Run under Wine, from the build (rounds per page, default 40):
//   xvfb-run -a cmake/wine-run.sh build/windows/App/Bin/regvane_table_bench.exe [40]
#include "bench/PageBench.h"
#include "dialogs/chips/ParamTablePageList.h"
#include "factory/ChipTypes.h"
#include "framework/VirtualGrid.h"
#include "paramfiles/ParamTablePage.h"
#include "workbench/ChipPresets.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr UINT kRefreshMessage = 0x0903;
// The template of the made-up tables' page: the ICN2055's, whose table has an address column.
constexpr UINT kMadeUpTemplate = 20000;

INT_PTR CALLBACK BareProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

// The list as a page shows it: what the drawn floor gives the template's list.
struct ListShape {
    DWORD extendedStyle = 0;
    std::vector<std::pair<std::wstring, int>> columns; // title, width
    int rows = 0;
    bool scrollBar = false; // shown, whatever the rows
};

ListShape ShapeOf(HWND page) {
    HWND list = GetDlgItem(page, RV_PARAM_TABLE_LIST);
    ListShape shape;
    shape.extendedStyle = static_cast<DWORD>(SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    wchar_t title[64] = {};
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = title;
    column.cchTextMax = 64;
    while (SendMessageW(list, LVM_GETCOLUMNW, shape.columns.size(), reinterpret_cast<LPARAM>(&column)))
        shape.columns.emplace_back(title, column.cx);
    shape.rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    return shape;
}

INT_PTR CALLBACK DrawnProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& shape = *reinterpret_cast<const ListShape*>(lParam);
        HWND list = GetDlgItem(dialog, RV_PARAM_TABLE_LIST);
        SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, shape.extendedStyle, shape.extendedStyle);
        // As cheaply as the page's list gets there: columns laid out once, rows measured while hidden.
        SendMessageW(list, WM_SETREDRAW, FALSE, 0);
        for (std::size_t i = 0; i < shape.columns.size(); ++i) {
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
            column.fmt = LVCFMT_LEFT;
            column.cx = shape.columns[i].second;
            column.pszText = const_cast<wchar_t*>(shape.columns[i].first.c_str());
            SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
        SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(shape.rows), 0);
        if (shape.scrollBar)
            ShowScrollBar(list, SB_VERT, TRUE);
        HDC nowhere = CreateCompatibleDC(nullptr);
        IntersectClipRect(nowhere, 0, 0, 0, 0);
        SendMessageW(list, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nowhere), PRF_CLIENT);
        DeleteDC(nowhere);
        return TRUE;
    }
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if (item.mask & LVIF_TEXT)
            std::swprintf(item.pszText, static_cast<std::size_t>(item.cchTextMax), L"0x%02x",
                          (item.iItem + item.iSubItem) & 0xFF);
        return TRUE;
    }
    return FALSE;
}

// A table longer than any chip's: rows of address, red, green and blue, varied enough to draw
// different texts. Nothing reaches the chip.
class MadeUpTable final : public RegisterParamTable {
public:
    MadeUpTable(IRegvane* chip, int rows) : RegisterParamTable(chip, 4, rows), m_rows(rows) {
        LoadFromChip();
        TakeSnapshot();
    }
    std::vector<std::wstring> ColumnTitles() const override { return {L"Addr", L"RReg", L"GReg", L"BReg"}; }
    bool HasAddressColumn() const override { return true; }
    std::wstring DefaultFileName() override { return L"MadeUp.csv"; }

protected:
    void LoadFromChip() override {
        std::span<std::uint8_t> block = Block();
        for (std::size_t i = 0; i < block.size(); ++i)
            block[i] = static_cast<std::uint8_t>(i * 7 + i / 4);
        SetRowCount(m_rows);
    }
    void StoreToChip() override {}
    ParamFileLayout Layout() override { return {}; }

private:
    int m_rows;
};

class MadeUpTablePage final : public CParamTablePage {
public:
    MadeUpTablePage(IRegvane* chip, HWND parent, int rows)
        : CParamTablePage(kMadeUpTemplate, chip, parent, nullptr, ParamTableKind::Chip,
                          std::make_unique<MadeUpTable>(chip, rows)) {}
    const char* DialogClassName() const override { return "MadeUpTablePage"; }
};

// Shows a page as the host does and paints it, the list's rows in view included.
void ShowAndPaint(HWND window) {
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
}

// Opens each window by turns, `rounds` times each, after one opening of each that is not counted;
// the median of each.
std::vector<double> MedianOpenings(const std::vector<std::function<HWND()>>& openers, int rounds,
                                   SimulatedChip& chip) {
    std::vector<std::vector<double>> samples(openers.size());
    for (const auto& open : openers)
        DestroyWindow(open());
    for (int round = 0; round < rounds; ++round) {
        chip.ClearLog();
        for (std::size_t i = 0; i < openers.size(); ++i) {
            const double start = Now();
            HWND window = openers[i]();
            ShowAndPaint(window);
            DestroyWindow(window);
            samples[i].push_back(Now() - start);
        }
    }
    std::vector<double> medians;
    for (const auto& s : samples)
        medians.push_back(Median(s));
    return medians;
}

// The refresh message sent to one shown page `rounds` times, with the repaint it causes.
double MedianRefresh(HWND page, int rounds, SimulatedChip& chip) {
    ShowAndPaint(page);
    std::vector<double> samples;
    for (int round = 0; round < rounds; ++round) {
        chip.ClearLog();
        const double start = Now();
        SendMessageW(page, kRefreshMessage, 0, 0);
        UpdateWindow(page);
        samples.push_back(Now() - start);
    }
    DestroyWindow(page);
    return Median(samples);
}

// A page, and the two floors made of its template.
struct Subject {
    std::function<HWND()> open;
    HINSTANCE templates;
    UINT templateId;
    HWND host;
    ListShape shape;

    std::function<HWND()> OpenBare() const {
        return
            [this] { return CreateDialogParamW(templates, MAKEINTRESOURCEW(templateId), host, BareProc, 0); };
    }
    ListShape scroll;

    std::function<HWND()> OpenDrawn() const { return OpenShaped(shape); }
    std::function<HWND()> OpenScrolled() const { return OpenShaped(scroll); }

private:
    std::function<HWND()> OpenShaped(const ListShape& drawn) const {
        return [this, &drawn] {
            return CreateDialogParamW(templates, MAKEINTRESOURCEW(templateId), host, DrawnProc,
                                      reinterpret_cast<LPARAM>(&drawn));
        };
    }
};

Subject MakeSubject(std::function<HWND()> open, HINSTANCE templates, UINT templateId, HWND host) {
    HWND first = open();
    Subject subject{std::move(open), templates, templateId, host, ShapeOf(first), {}};
    DestroyWindow(first);
    subject.scroll.scrollBar = true;
    return subject;
}

// Medians in seconds: the page, its floors, and the refresh message.
struct Figures {
    double page, bare, drawn, scroll, refresh;
};

void Print(const char* name, const Subject& subject, const Figures& f) {
    std::printf("%-20s %5d %8.2f %8.2f %6.2f %8.2f %6.2f %6.2f %9.2f\n", name, subject.shape.rows,
                f.page * 1000, f.bare * 1000, f.page / f.bare, f.drawn * 1000, f.page / f.drawn,
                f.scroll / f.bare, f.refresh * 1000);
}

// A frame holding one owner-data list as a grid page holds it, bare or with a grid on it of
// kGridRows rows of kGridColumns byte cells behind a column of row names.
constexpr int kGridRows = 32;
constexpr int kGridColumns = 16;

enum class GridFrame { Bare, Drawn, Grid };

void GridCellText(int row, int column, std::wstring& text) {
    wchar_t cell[16];
    if (column == 0)
        std::swprintf(cell, 16, L"Reg %d", row);
    else
        std::swprintf(cell, 16, L"0x%02X", (row * kGridColumns + column) * 7 & 0xFF);
    text = cell;
}

LRESULT CALLBACK GridFrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* grid = reinterpret_cast<CVirtualGrid*>(GetWindowLongPtrW(frame, GWLP_USERDATA));
    LRESULT result = 0;
    if (message == WM_NOTIFY && grid && grid->OnNotify(reinterpret_cast<NMHDR*>(lParam), result))
        return result;
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        std::wstring text;
        GridCellText(item.iItem, item.iSubItem, text);
        if (item.mask & LVIF_TEXT)
            lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
        return 0;
    }
    if (message == WM_NCDESTROY)
        delete grid;
    return DefWindowProcW(frame, message, wParam, lParam);
}

// Bare: the list empty. Drawn: its columns and rows, the texts given by the frame. Grid: a grid on it.
HWND OpenGridFrame(HWND host, GridFrame kind) {
    static const ATOM frameClass = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = GridFrameProc;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        windowClass.lpszClassName = L"RegvaneBenchGridFrame";
        return RegisterClassW(&windowClass);
    }();
    HWND frame = CreateWindowExW(WS_EX_CONTROLPARENT, MAKEINTATOM(frameClass), L"", WS_CHILD, 0, 0, 660, 480,
                                 host, nullptr, GetModuleHandleW(nullptr), nullptr);
    // Made as a described page makes a grid's list.
    HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                                WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN | LVS_REPORT |
                                    LVS_OWNERDATA | LVS_NOSORTHEADER | LVS_NOCOLUMNHEADER,
                                10, 10, 640, 400, frame, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    if (kind == GridFrame::Bare)
        return frame;
    std::vector<CVirtualList::Column> columns{{L"Register", 56}};
    for (int column = 0; column < kGridColumns; ++column)
        columns.push_back({std::to_wstring(column), 32});
    if (kind == GridFrame::Drawn) {
        // The list view draws the cells itself, the frame answering for their texts.
        for (std::size_t i = 0; i < columns.size(); ++i) {
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH;
            column.cx = columns[i].minimumWidth;
            column.pszText = columns[i].title.data();
            SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
        SendMessageW(list, LVM_SETITEMCOUNT, kGridRows, 0);
        return frame;
    }
    auto* grid = new CVirtualGrid(GridCellText, [](int, int, const std::wstring&) {
        return CVirtualGrid::Verdict{true, {}};
    });
    grid->Attach(list, 1);
    grid->List().AddColumns(columns);
    grid->List().SetRowCount(kGridRows);
    SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(grid));
    return frame;
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(5, std::atoi(argv[1])) : 40;

    const RegvaneDll dll = StartRegvaneDll();
    if (!dll.module) {
        std::printf("regvane.dll did not load\n");
        return 1;
    }

    // A shown host window, so that showing a page paints it.
    HWND host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
    std::printf("%-20s %5s %8s %8s %6s %8s %6s %6s %8s\n", "page", "rows", "page ms", "bare ms", "ratio",
                "drawn ms", "ratio", "scroll", "0x0903 ms");
    double worst = 0, leastScroll = 1e9;
    for (const ChipClassInfo& chipClass : AllChipClasses()) {
        if (chipClass.kind != ChipPageKind::ParamTable)
            continue;
        const auto types = AllChipTypes();
        const auto type = std::find_if(types.begin(), types.end(), [&](const ChipTypeInfo& t) {
            return !t.dependsOnSubType && std::string_view(t.className) == chipClass.className;
        });
        if (type == types.end()) {
            std::printf("%-20s no chip type gives it\n", chipClass.className);
            continue;
        }
        SimulatedChip chip;
        SetUpSimulatedChip(chip, type->chipType, 0);
        const Subject page = MakeSubject([&] { return dll.create(type->chipType, &chip, L"", host); },
                                         dll.module, chipClass.templateId, host);
        const std::vector<double> m =
            MedianOpenings({page.open, page.OpenBare(), page.OpenDrawn(), page.OpenScrolled()}, rounds, chip);
        worst = std::max(worst, m[0] / m[1]);
        leastScroll = std::min(leastScroll, m[3] / m[1]);
        Print(chipClass.className, page, {m[0], m[1], m[2], m[3], MedianRefresh(page.open(), rounds, chip)});
    }
    std::printf(
        "worst ratio to the bare template %.2f (target at most 1.30); the system's scroll bar alone at "
        "least %.2f\n",
        worst, leastScroll);

    // The made-up tables, on the module linked into this program and its own copy of the templates,
    // opened by turns with their floors.
    SimulatedChip chip;
    const auto madeUp = [&](int rows) {
        return MakeSubject(
            [&chip, host, rows] {
                auto* page = new MadeUpTablePage(&chip, host, rows);
                page->DeleteOnDestroy();
                page->Create(kMadeUpTemplate, host);
                return page->GetSafeHwnd();
            },
            GetModuleHandleW(nullptr), kMadeUpTemplate, host);
    };
    // 16 rows fit the list; 64 rows are the shortest here that need its scroll bar, as 4,096 do.
    const Subject tables[] = {madeUp(16), madeUp(64), madeUp(4096)};
    std::vector<std::function<HWND()>> openers{tables[0].OpenBare(), tables[0].OpenScrolled()};
    for (const Subject& table : tables) {
        openers.push_back(table.open);
        openers.push_back(table.OpenDrawn());
    }
    const std::vector<double> m = MedianOpenings(openers, rounds, chip);
    for (std::size_t i = 0; i < std::size(tables); ++i)
        Print("made-up table", tables[i],
              {m[2 + 2 * i], m[0], m[3 + 2 * i], m[1], MedianRefresh(tables[i].open(), rounds, chip)});
    std::printf(
        "4096 rows against 16: %.2f, against 64: %.2f (target at most 1.30); medians of %d openings and "
        "closings each\n",
        m[6] / m[2], m[6] / m[4], rounds);

    const std::vector<double> grid = MedianOpenings({[host] { return OpenGridFrame(host, GridFrame::Bare); },
                                                     [host] { return OpenGridFrame(host, GridFrame::Drawn); },
                                                     [host] { return OpenGridFrame(host, GridFrame::Grid); }},
                                                    rounds, chip);
    std::printf(
        "register grid %dx%d: %.2f ms; bare frame %.2f ms, ratio %.2f (target at most 1.30); the list view "
        "drawing the same cells itself %.2f ms, ratio %.2f\n",
        kGridRows, kGridColumns, grid[2] * 1000, grid[0] * 1000, grid[2] / grid[0], grid[1] * 1000,
        grid[2] / grid[1]);
    DestroyWindow(host);
    return 0;
}
