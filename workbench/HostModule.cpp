#include "workbench/HostModule.h"

#include "workbench/Win32Text.h"

#include <vector>

std::wstring ProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

std::string HostModule::Load() {
    path = ProgramFolder() + L"regvane.dll";
    module = LoadLibraryW(path.c_str());
    if (!module)
        return Utf8(path) + " did not load (" + LastErrorText() + ")";
    auto find = [&](const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); };
    InitRegvane = reinterpret_cast<InitRegvaneFn>(find("InitRegvane"));
    RegvaneLanguageChanged = reinterpret_cast<RegvaneLanguageChangedFn>(find("RegvaneLanguageChanged"));
    CreateRegvaneHwnd = reinterpret_cast<CreateRegvaneHwndFn>(find("CreateRegvaneHwnd"));
    RegvaneDialogClassName = reinterpret_cast<RegvaneDialogClassNameFn>(find("RegvaneDialogClassName"));
    RegvaneCheckDescription = reinterpret_cast<RegvaneCheckDescriptionFn>(find("RegvaneCheckDescription"));
    RegvaneCreateDescribedPage =
        reinterpret_cast<RegvaneCreateDescribedPageFn>(find("RegvaneCreateDescribedPage"));
    std::string missing;
    if (!InitRegvane)
        missing += " InitRegvane";
    if (!RegvaneLanguageChanged)
        missing += " RegvaneLanguageChanged";
    if (!CreateRegvaneHwnd)
        missing += " CreateRegvaneHwnd";
    return missing.empty() ? "" : Utf8(path) + " does not export" + missing;
}

std::string HostModule::Version() const {
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
