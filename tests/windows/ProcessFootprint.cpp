#include "ProcessFootprint.h"

#include <windows.h>

#include <vector>

namespace {

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

} // namespace

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
