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
#include <functional>
#include <memory>
#include <vector>

namespace {

// What a leak of this process shows in under Wine, where GetGuiResources and the private-bytes
// counter read 0: the bytes in use on every heap of the process, and every window it owns.
struct ProcessFootprint {
    std::size_t heapBytes = 0;  // sum of the busy blocks of every heap of the process
    std::size_t heapBlocks = 0; // how many busy blocks that sum holds
    int windows = 0;            // top-level, child and message-only windows of the process
};

std::vector<HANDLE> ProcessHeaps() {
    std::vector<HANDLE> heaps(16);
    for (;;) {
        const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
        if (count <= heaps.size()) {
            heaps.resize(count);
            return heaps;
        }
        heaps.resize(count + 8); // a heap was created meanwhile: ask again with room to spare
    }
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountOwnTopLevel(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) {
        ++*reinterpret_cast<int*>(count);
        EnumChildWindows(window, CountChild, count); // every descendant, not only direct children
    }
    return TRUE;
}

int CountOwnWindows() {
    int count = 0;
    EnumWindows(CountOwnTopLevel, reinterpret_cast<LPARAM>(&count));
    // Message-only windows are not top-level windows of the desktop: EnumWindows never lists them.
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == GetCurrentProcessId())
            ++count;
    }
    return count;
}

ProcessFootprint MeasureProcessFootprint() {
    ProcessFootprint footprint;
    // Counted first: enumerating allocates nothing that outlives it, and the heap list below is
    // itself a busy block, the same one in every measurement.
    footprint.windows = CountOwnWindows();
    const std::vector<HANDLE> heaps = ProcessHeaps();
    for (HANDLE heap : heaps) {
        if (!HeapLock(heap))
            continue;
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry)) {
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
                footprint.heapBytes += entry.cbData;
                ++footprint.heapBlocks;
            }
        }
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
    ProcessFootprint before;
    ProcessFootprint after;
    double seconds = 0;

    std::ptrdiff_t HeapGrowth() const {
        return static_cast<std::ptrdiff_t>(after.heapBytes) - static_cast<std::ptrdiff_t>(before.heapBytes);
    }
    int WindowGrowth() const { return after.windows - before.windows; }
    bool HeapCameBack() const { return HeapGrowth() <= kHeapSlackBytes; }
    bool WindowsCameBack() const { return WindowGrowth() == 0; }
};

void Print(const char* what, const SoakFigures& f) {
    std::printf("%s: %d pages opened, %d language switches, %.0f s; heap in use %zu -> %zu bytes (%+td) in "
                "%zu -> %zu blocks; windows %d -> %d\n",
                what, f.pagesOpened, f.languageSwitches, f.seconds, f.before.heapBytes, f.after.heapBytes,
                f.HeapGrowth(), f.before.heapBlocks, f.after.heapBlocks, f.before.windows, f.after.windows);
    std::fflush(stdout);
}

// Runs while each page is up; the planted leaks go here.
using WhileShown = std::function<void(HWND page)>;

class Soaker {
public:
    Soaker() : m_callback(InstallHostCallback(kMeasuredLanguage)) {}

    // Opens, shows and destroys every catalog row in turn (or the first `rows` of them).
    void Pass(const WhileShown& whileShown = {}, std::size_t rows = SIZE_MAX) {
        const std::vector<CatalogEntry>& catalog = ChipCatalog();
        SwitchLanguage(LanguageOfStretch(0));
        for (std::size_t i = 0; i < catalog.size() && i < rows; ++i) {
            // Half the pages are held as the host's objects, half as windows that free themselves.
            const bool lastOfStretch = (i + 1) % kPagesPerLanguage == 0;
            CycleOnePage(catalog[i], i % 2 == 1,
                         lastOfStretch ? LanguageOfStretch((i + 1) / kPagesPerLanguage) : 0, whileShown);
            if (::testing::Test::HasFatalFailure())
                return;
        }
    }

    // The footprint before and after `passes` passes, both taken in the measured language.
    SoakFigures Soak(int passes, const WhileShown& whileShown = {}, std::size_t rows = SIZE_MAX) {
        const auto start = std::chrono::steady_clock::now();
        SoakFigures figures;
        const int pagesBefore = m_pagesOpened;
        const int switchesBefore = m_languageSwitches;
        figures.before = Settle();
        for (int pass = 0; pass < passes && !::testing::Test::HasFatalFailure(); ++pass)
            Pass(whileShown, rows);
        figures.after = Settle();
        figures.pagesOpened = m_pagesOpened - pagesBefore;
        figures.languageSwitches = m_languageSwitches - switchesBefore;
        figures.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return figures;
    }

    HWND View() const { return m_host.View(); }

private:
    void SwitchLanguage(int index) {
        m_callback.language = index;
        RegvaneLibrary::Get().RegvaneLanguageChanged();
        m_callback.log.clear(); // the host's own record of the question, not the module's memory
    }

    ProcessFootprint Settle() {
        SwitchLanguage(kMeasuredLanguage);
        PumpMessages();
        return MeasureProcessFootprint();
    }

    // switchTo: the language the host switches to while this page is up, or 0.
    void CycleOnePage(const CatalogEntry& row, bool hostHoldsObject, int switchTo,
                      const WhileShown& whileShown) {
        RegvaneLibrary& lib = RegvaneLibrary::Get();
        SimulatedChip chip;
        SetUpSimulatedChip(chip, row.chipType, row.subType);
        chip.OfferChipFunctions();
        std::unique_ptr<CDialog> object;
        HWND page = nullptr;
        if (hostHoldsObject) {
            object.reset(lib.CreateRegvaneWnd(row.chipType, &chip, L"", &m_view));
            page = object ? object->GetSafeHwnd() : nullptr;
        } else {
            page = lib.CreateRegvaneHwnd(row.chipType, &chip, L"", m_host.View());
        }
        ASSERT_NE(page, nullptr) << EntryLabel(row) << " gave no page";
        SetWindowPos(page, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        ShowWindow(page, SW_SHOW);
        UpdateWindow(page);
        PumpMessages();
        ++m_pagesOpened;
        if (switchTo) {
            SwitchLanguage(switchTo);
            ++m_languageSwitches;
        }
        if (whileShown)
            whileShown(page);
        if (object)
            object.reset();
        else
            DestroyWindow(page);
        PumpMessages();
    }

    SimulatedHostCallback& m_callback;
    HostFrame m_host;
    CWnd m_view{m_host.View()};
    int m_pagesOpened = 0;
    int m_languageSwitches = 0;
};

class PageSoak : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        soaker = new Soaker;
        soaker->Pass();
    }
    static void TearDownTestSuite() {
        delete soaker;
        soaker = nullptr;
    }
    static Soaker* soaker;
};
Soaker* PageSoak::soaker = nullptr;

TEST_F(PageSoak, EveryPageGivesBackItsHeapMemoryAndWindows) {
    const SoakFigures figures = soaker->Soak(kMeasuredPasses);
    Print("soak", figures);
    EXPECT_EQ(figures.pagesOpened, kMeasuredPasses * static_cast<int>(ChipCatalog().size()));
    EXPECT_GE(figures.languageSwitches, kLanguageCount) << "every language came up at least once";
    EXPECT_TRUE(figures.HeapCameBack()) << figures.HeapGrowth() << " bytes more in use on the heaps";
    EXPECT_TRUE(figures.WindowsCameBack()) << figures.WindowGrowth() << " windows more";
}

// The planted leaks are given back after the measurement, so the tests do not depend on each other.

TEST_F(PageSoak, APageKeepingAFewBytesFailsTheHeapCheck) {
    constexpr std::size_t kPlantedBytes = 8;
    constexpr std::size_t kRows = 200; // 1600 bytes kept in all: more than the slack, in half a pass
    std::vector<void*> planted;
    planted.reserve(kRows);
    const SoakFigures figures = soaker->Soak(
        1, [&](HWND) { planted.push_back(std::malloc(kPlantedBytes)); }, kRows);
    Print("soak with 8 bytes kept a page", figures);
    for (void* block : planted)
        std::free(block);
    EXPECT_FALSE(figures.HeapCameBack());
    EXPECT_GE(figures.HeapGrowth(), static_cast<std::ptrdiff_t>(planted.size() * kPlantedBytes));
    EXPECT_TRUE(figures.WindowsCameBack());
}

TEST_F(PageSoak, APageLeavingAWindowBehindFailsTheWindowCheck) {
    constexpr std::size_t kRows = 50;
    std::vector<HWND> planted;
    const SoakFigures figures = soaker->Soak(
        1,
        [&](HWND) {
            planted.push_back(CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, soaker->View(),
                                              nullptr, GetModuleHandleW(nullptr), nullptr));
        },
        kRows);
    Print("soak with a window left a page", figures);
    for (HWND window : planted)
        DestroyWindow(window);
    EXPECT_FALSE(figures.WindowsCameBack());
    EXPECT_EQ(figures.WindowGrowth(), static_cast<int>(kRows));
}

} // namespace
