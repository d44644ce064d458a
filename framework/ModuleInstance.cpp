#include "framework/ModuleInstance.h"

HINSTANCE ResourceInstance() {
    static HINSTANCE instance = [] {
        HMODULE module = nullptr;
        ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                 GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                             reinterpret_cast<LPCWSTR>(&ResourceInstance), &module);
        return module;
    }();
    return instance;
}

std::wstring HostExecutablePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(::GetModuleHandleW(nullptr), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::wstring ApplicationName() {
    std::wstring name = HostExecutablePath();
    name.erase(0, name.find_last_of(L"\\/") + 1);
    const std::size_t dot = name.find_last_of(L'.');
    if (dot != std::wstring::npos && dot > 0)
        name.erase(dot);
    return name;
}
