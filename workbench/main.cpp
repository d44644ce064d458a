// RegvaneWorkbench: plays the host's part for regvane.dll.
#include "host/RegvaneExports.h"
#include "workbench/SimulatedChip.h"

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L'\\') + 1);
}

std::string FileVersion(const std::wstring& path) {
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &handle);
    std::vector<BYTE> data(size);
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    if (!size || !GetFileVersionInfoW(path.c_str(), 0, size, data.data()) ||
        !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &length))
        return "unknown";
    return std::to_string(HIWORD(info->dwFileVersionMS)) + "." +
           std::to_string(LOWORD(info->dwFileVersionMS)) + "." +
           std::to_string(HIWORD(info->dwFileVersionLS));
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring dllPath = ProgramFolder() + L"regvane.dll";
    HMODULE module = LoadLibraryW(dllPath.c_str());
    if (!module) {
        std::fprintf(stderr, "error: regvane.dll did not load (error %lu)\n", GetLastError());
        return 1;
    }
    auto init =
        reinterpret_cast<InitRegvaneFn>(reinterpret_cast<void*>(GetProcAddress(module, "InitRegvane")));
    auto languageChanged = reinterpret_cast<RegvaneLanguageChangedFn>(
        reinterpret_cast<void*>(GetProcAddress(module, "RegvaneLanguageChanged")));
    if (!init || !languageChanged) {
        std::fprintf(stderr, "error: regvane.dll lacks InitRegvane or RegvaneLanguageChanged\n");
        return 1;
    }
    SimulatedHostCallback callback;
    init(&callback);
    languageChanged();
    std::printf("regvane.dll %s loaded; InitRegvane and RegvaneLanguageChanged called; language index %d\n",
                FileVersion(dllPath).c_str(), callback.language);
    for (const HostCall& call : callback.log)
        std::printf("host call: %s\n", call.ToString().c_str());
    return 0;
}
