// A host that drives screens all day opens and closes chip pages thousands of times and switches its
// language now and then: every page must give back the heap memory and the windows it takes. The
// soak opens, shows and destroys every row of the chip catalog (every chip type, and every page a
// sub-type gives) pass after pass, switching the host's language while pages are up, and compares the
// process's heap bytes and windows with those of the same moment before. Everything the module
// allocates once (a template's first use, a language file's table, Wine's lazily made structures)
// is made by a warm-up pass first. Planted leaks prove that the comparison sees a page that keeps a
// few bytes, or a window.
//
// All tests of this program run in one process, in order, after one warm-up.
#include "TestHost.h"
#include "framework/Dialog.h"
#include "module/LanguageSelection.h"
#include "workbench/ChipCatalog.h"
#include "workbench/ChipPresets.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>

namespace {

// What a leak of this process shows in under Wine, where GetGuiResources and the private-bytes
// counter read 0: the bytes in use on every heap of the process, and every window it owns.
struct ProcessFootprint {
    std::size_t heapBytes = 0; // sum of the busy blocks of every heap of the process
    int windows = 0;           // top-level, child and message-only windows of the process
};

bool OwnWindow(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

ProcessFootprint MeasureProcessFootprint() {
    // Windows first: enumerating allocates nothing that outlives it. Every descendant of each
    // top-level window counts; message-only windows are not top-level windows EnumWindows lists.
    ProcessFootprint footprint;
    EnumWindows(
        [](HWND window, LPARAM count) {
            if (OwnWindow(window) && CountWindow(window, count))
                EnumChildWindows(window, CountWindow, count);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&footprint.windows));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));)
        footprint.windows += OwnWindow(window);
    // Room for heaps made meanwhile; the list is itself a busy block, the same in every measurement.
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr) + 8);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    for (HANDLE heap : heaps) {
        if (!HeapLock(heap))
            continue;
        for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(heap, &entry);)
            footprint.heapBytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ? entry.cbData : 0;
        HeapUnlock(heap);
    }
    return footprint;
}

// What may differ after a soak without a page keeping anything: a container of the process that
// settles on a larger capacity (after the warm-up, the figures have come back to the byte). A page
// that keeps a single byte each time it opens leaves more than this after the passes below.
constexpr std::ptrdiff_t kHeapSlackBytes = 1024;
constexpr int kMeasuredPasses = 3;

// The host switches its language every this many pages, while a page is up: 13 times a pass, each
// index in turn. Every pass follows the same course, so a row always opens in the same language:
// what a page keeps once per language (a layout made for its texts) is made in the warm-up pass.
constexpr int kPagesPerLanguage = 29;
constexpr int kLanguageStride = 5; // coprime with the 13 indices: each comes up in turn
constexpr int LanguageOfStretch(std::size_t stretch) {
    return 1 + static_cast<int>(stretch * kLanguageStride % kLanguageCount);
}
// Measurements are taken in one language: each language loads files of its own size.
constexpr int kMeasuredLanguage = 3;

struct SoakFigures {
    int pagesOpened = 0;
    int languageSwitches = 0;
    ProcessFootprint before, after;

    std::ptrdiff_t HeapGrowth() const {
        return std::ptrdiff_t(after.heapBytes) - std::ptrdiff_t(before.heapBytes);
    }
    int WindowGrowth() const { return after.windows - before.windows; }
    bool HeapCameBack() const { return HeapGrowth() <= kHeapSlackBytes; }
};

// Runs while each page is up; the planted leaks go here.
using WhileShown = std::function<void(HWND page)>;

class PageSoak : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        callback = &InstallHostCallback(kMeasuredLanguage);
        host = new HostFrame;
        view = new CWnd(host->View());
        Soak("warm-up", 1);
    }
    static void TearDownTestSuite() {
        delete view;
        delete host;
    }

    // The footprint before and after `run`, both taken in the measured language, printed for the
    // run's log under `what`.
    static SoakFigures Measure(const char* what, const std::function<void(SoakFigures&)>& run) {
        const auto start = std::chrono::steady_clock::now();
        SoakFigures f;
        f.before = Settle();
        run(f);
        f.after = Settle();
        std::printf("%s: %d pages opened, %d language switches, %.0f s; heap in use %zu -> %zu bytes (%+td); "
                    "windows %d -> %d\n",
                    what, f.pagesOpened, f.languageSwitches,
                    std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
                    f.before.heapBytes, f.after.heapBytes, f.HeapGrowth(), f.before.windows, f.after.windows);
        std::fflush(stdout);
        return f;
    }

    // Opens, shows and destroys every catalog row in turn (or the first `rows` of them), `passes` times.
    static SoakFigures Soak(const char* what, int passes, const WhileShown& whileShown = {},
                            std::size_t rows = SIZE_MAX) {
        return Measure(what, [&](SoakFigures& f) {
            const std::vector<CatalogEntry>& catalog = ChipCatalog();
            for (int pass = 0; pass < passes; ++pass) {
                SwitchLanguage(LanguageOfStretch(0));
                for (std::size_t i = 0; i < catalog.size() && i < rows && !HasFatalFailure(); ++i) {
                    // Half the pages are held as the host's objects, half as windows that free themselves.
                    const bool lastOfStretch = (i + 1) % kPagesPerLanguage == 0;
                    CycleOnePage(catalog[i], i % 2 == 1,
                                 lastOfStretch ? LanguageOfStretch((i + 1) / kPagesPerLanguage) : 0,
                                 whileShown, f);
                }
            }
        });
    }

    static void SwitchLanguage(int index) {
        callback->language = index;
        RegvaneLibrary::Get().RegvaneLanguageChanged();
        callback->log.clear(); // the host's own record of the question, not the module's memory
    }

    static ProcessFootprint Settle() {
        SwitchLanguage(kMeasuredLanguage);
        PumpMessages();
        return MeasureProcessFootprint();
    }

    // switchTo: the language the host switches to while this page is up, or 0.
    static void CycleOnePage(const CatalogEntry& row, bool hostHoldsObject, int switchTo,
                             const WhileShown& whileShown, SoakFigures& figures) {
        RegvaneLibrary& lib = RegvaneLibrary::Get();
        SimulatedChip chip;
        SetUpSimulatedChip(chip, row.chipType, row.subType);
        chip.OfferChipFunctions();
        std::unique_ptr<CDialog> object;
        if (hostHoldsObject)
            object.reset(lib.CreateRegvaneWnd(row.chipType, &chip, L"", view));
        HWND page = hostHoldsObject ? (object ? object->GetSafeHwnd() : nullptr)
                                    : lib.CreateRegvaneHwnd(row.chipType, &chip, L"", host->View());
        ASSERT_NE(page, nullptr) << EntryLabel(row) << " gave no page";
        SetWindowPos(page, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        ShowWindow(page, SW_SHOW);
        UpdateWindow(page);
        PumpMessages();
        ++figures.pagesOpened;
        if (switchTo) {
            SwitchLanguage(switchTo);
            ++figures.languageSwitches;
        }
        if (whileShown)
            whileShown(page);
        if (!object)
            DestroyWindow(page);
        object.reset();
        PumpMessages();
    }

    static inline SimulatedHostCallback* callback = nullptr;
    static inline HostFrame* host = nullptr;
    static inline CWnd* view = nullptr;
};

TEST_F(PageSoak, EveryPageGivesBackItsHeapMemoryAndWindows) {
    const SoakFigures figures = Soak("soak", kMeasuredPasses);
    EXPECT_EQ(figures.pagesOpened, kMeasuredPasses * static_cast<int>(ChipCatalog().size()));
    EXPECT_GE(figures.languageSwitches, kLanguageCount) << "every language came up at least once";
    EXPECT_TRUE(figures.HeapCameBack()) << figures.HeapGrowth() << " bytes more in use on the heaps";
    EXPECT_EQ(figures.WindowGrowth(), 0) << "windows more";
}

// The workbench's designer draws a description again each time its file changes: a chip engineer
// may save it hundreds of times in a session. Each drawing parses a new description, and nothing of
// the versions before may stay behind.
TEST_F(PageSoak, TheDesignerDrawingADescriptionAgainAndAgainKeepsNothing) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"CRegvaneSoakDesign.desc";
    auto drawAgain = [&](int version) {
        // Made up for the test: two versions of a small page, as an engineer moves a field.
        std::ofstream(path.c_str(), std::ios::binary)
            << "[page]\nclass = CRegvaneSoakDesign\nlink = IDS_LinkGains\nbuttons = default ok-cancel\n"
               "[field gain]\nlabel = IDS_CurrentGain\nbits = 3[5:0]\ncolours = linked\ncontrol = slider\n"
               "readout = gain-percent\ndefault = "
            << 20 + version % 2 << "\n[field mode]\nlabel = \"Mode\"\nbits = " << 14 + version % 2
            << "[0]\ncontrol = combo\nitems = IDS_FM6126EX_NormalMode IDS_FM6126EX_EnhancedMode\n";
        SimulatedChip chip(7, 0);
        HWND page = RegvaneLibrary::Get().RegvaneCreateDescribedPage(path.c_str(), &chip, L"", host->View(),
                                                                     nullptr, 0);
        ASSERT_NE(page, nullptr);
        ShowWindow(page, SW_SHOW);
        UpdateWindow(page);
        PumpMessages();
        DestroyWindow(page);
        PumpMessages();
    };
    for (int version = 0; version < 4; ++version)
        drawAgain(version);
    const SoakFigures figures = Measure("designer", [&](SoakFigures& f) {
        for (; f.pagesOpened < 200 && !HasFatalFailure(); ++f.pagesOpened)
            drawAgain(f.pagesOpened);
    });
    DeleteFileW(path.c_str());
    EXPECT_TRUE(figures.HeapCameBack()) << figures.HeapGrowth() << " bytes more in use on the heaps";
    EXPECT_EQ(figures.WindowGrowth(), 0);
}

// The planted leaks are given back after the measurement, so the tests do not depend on each other.

TEST_F(PageSoak, APageKeepingAFewBytesFailsTheHeapCheck) {
    constexpr std::size_t kPlantedBytes = 8;
    constexpr std::size_t kRows = 200; // 1600 bytes kept in all: more than the slack, in half a pass
    std::vector<void*> planted;
    planted.reserve(kRows);
    const SoakFigures figures = Soak(
        "soak with 8 bytes kept a page", 1, [&](HWND) { planted.push_back(std::malloc(kPlantedBytes)); },
        kRows);
    for (void* block : planted)
        std::free(block);
    EXPECT_FALSE(figures.HeapCameBack());
    EXPECT_GE(figures.HeapGrowth(), static_cast<std::ptrdiff_t>(planted.size() * kPlantedBytes));
    EXPECT_EQ(figures.WindowGrowth(), 0);
}

TEST_F(PageSoak, APageLeavingAWindowBehindFailsTheWindowCheck) {
    constexpr std::size_t kRows = 50;
    std::vector<HWND> planted;
    const SoakFigures figures = Soak(
        "soak with a window left a page", 1,
        [&](HWND) {
            planted.push_back(CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, host->View(), nullptr,
                                              nullptr, nullptr));
        },
        kRows);
    for (HWND window : planted)
        DestroyWindow(window);
    EXPECT_EQ(figures.WindowGrowth(), static_cast<int>(kRows));
}

} // namespace
