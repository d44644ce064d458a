// What a parameter-table page costs to open, show, paint and close, against floors opened, shown,
// painted and closed alike in the same run (same parent), as ratios that hold from machine to machine
// where absolute times do not:
//   bare   the page's template with an empty dialog procedure: its list has no columns and no rows;
//   drawn  the same template whose list gets the page's columns and row count, the texts of the cells
//          written by the dialog procedure: what drawing the table costs, whatever fills it.
// Also what the host's "read the chip again" message (0x0903) costs, with the repaint it causes.
//
// Every parameter-table page class opens through regvane.dll as a host opens it, on the first chip
// type that gives it. Made-up tables of 16, 64 and 4,096 rows open on the same page in-process (the
// module library and the table templates are linked in): a table's length must not change what its
// page costs. Targets: every page at most 1.3 times its bare template, the 4,096-row table at most
// 1.3 times the 16-row one. 16 rows fit the list; 64 and 4,096 need its scroll bar, whose drawing
// alone costs a good part of a page.
//
// Run under Wine, from the build (rounds per page, default 40):
//   xvfb-run -a cmake/wine-run.sh build/windows/App/Bin/regvane_table_bench.exe [40]
#include "bench/PageBench.h"
#include "dialogs/chips/ParamTablePageList.h"
#include "factory/ChipTypes.h"
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
        for (std::size_t i = 0; i < shape.columns.size(); ++i) {
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
            column.fmt = LVCFMT_LEFT;
            column.cx = shape.columns[i].second;
            column.pszText = const_cast<wchar_t*>(shape.columns[i].first.c_str());
            SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
        SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(shape.rows), 0);
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
    std::function<HWND()> OpenDrawn() const {
        return [this] {
            return CreateDialogParamW(templates, MAKEINTRESOURCEW(templateId), host, DrawnProc,
                                      reinterpret_cast<LPARAM>(&shape));
        };
    }
};

Subject MakeSubject(std::function<HWND()> open, HINSTANCE templates, UINT templateId, HWND host) {
    HWND first = open();
    Subject subject{std::move(open), templates, templateId, host, ShapeOf(first)};
    DestroyWindow(first);
    return subject;
}

void Print(const char* name, const Subject& subject, double page, double bare, double drawn, double refresh) {
    std::printf("%-20s %5d %8.2f %8.2f %6.2f %8.2f %6.2f %9.2f\n", name, subject.shape.rows, page * 1000,
                bare * 1000, page / bare, drawn * 1000, page / drawn, refresh * 1000);
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
    std::printf("%-20s %5s %8s %8s %6s %8s %6s %8s\n", "page", "rows", "page ms", "bare ms", "ratio",
                "drawn ms", "ratio", "0x0903 ms");
    double worst = 0;
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
            MedianOpenings({page.open, page.OpenBare(), page.OpenDrawn()}, rounds, chip);
        worst = std::max(worst, m[0] / m[1]);
        Print(chipClass.className, page, m[0], m[1], m[2], MedianRefresh(page.open(), rounds, chip));
    }
    std::printf("worst ratio to the bare template %.2f (target at most 1.30)\n", worst);

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
    std::vector<std::function<HWND()>> openers{tables[0].OpenBare()};
    for (const Subject& table : tables) {
        openers.push_back(table.open);
        openers.push_back(table.OpenDrawn());
    }
    const std::vector<double> m = MedianOpenings(openers, rounds, chip);
    for (std::size_t i = 0; i < std::size(tables); ++i)
        Print("made-up table", tables[i], m[1 + 2 * i], m[0], m[2 + 2 * i],
              MedianRefresh(tables[i].open(), rounds, chip));
    std::printf(
        "4096 rows against 16: %.2f, against 64: %.2f (target at most 1.30); medians of %d openings and "
        "closings each\n",
        m[5] / m[1], m[5] / m[3], rounds);
    DestroyWindow(host);
    return 0;
}
