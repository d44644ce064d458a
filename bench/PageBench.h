// What the Windows page benchmarks share: a clock, medians, and regvane.dll loaded from beside the
// program and started as a host starts it.
#pragma once

#include "host/RegvaneDesignerExports.h"
#include "host/RegvaneExports.h"
#include "workbench/SimulatedChip.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

inline double Now() {
    LARGE_INTEGER counter, frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

inline double Median(std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

struct RegvaneDll {
    HMODULE module = nullptr; // null when regvane.dll did not load
    CreateRegvaneHwndFn create = nullptr;
    RegvaneCreateDescribedPageFn createDescribed = nullptr;
};

// regvane.dll from the program's folder, initialised with a simulated host and its language read.
inline RegvaneDll StartRegvaneDll() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path);
    folder.resize(folder.find_last_of(L'\\') + 1);
    RegvaneDll dll;
    dll.module = LoadLibraryW((folder + L"regvane.dll").c_str());
    if (!dll.module)
        return dll;
    const auto entry = [&](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(dll.module, name));
    };
    static SimulatedHostCallback callback;
    reinterpret_cast<InitRegvaneFn>(entry("InitRegvane"))(&callback);
    reinterpret_cast<RegvaneLanguageChangedFn>(entry("RegvaneLanguageChanged"))();
    dll.create = reinterpret_cast<CreateRegvaneHwndFn>(entry("CreateRegvaneHwnd"));
    dll.createDescribed = reinterpret_cast<RegvaneCreateDescribedPageFn>(entry("RegvaneCreateDescribedPage"));
    return dll;
}
