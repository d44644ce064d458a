// UTF-8 <-> UTF-16 for the workbench's console output and its UTF-8 scripts.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

inline std::string Utf8(std::wstring_view text) {
    if (text.empty())
        return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0,
                                         nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size, nullptr,
                        nullptr);
    return out;
}

inline std::wstring Wide(std::string_view text) {
    if (text.empty())
        return {};
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring out(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size);
    return out;
}

// "error 5: Access is denied." for the last Win32 error.
inline std::string LastErrorText(DWORD error = GetLastError()) {
    wchar_t* message = nullptr;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                       FORMAT_MESSAGE_IGNORE_INSERTS,
                   nullptr, error, 0, reinterpret_cast<wchar_t*>(&message), 0, nullptr);
    std::wstring text = message ? message : L"";
    LocalFree(message);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    return "error " + std::to_string(error) + (text.empty() ? "" : ": " + Utf8(text));
}

// A path as the person running the workbench finds it: under Wine the Unix path of the file
// (Wine's kernel32 tells it), on Windows the path itself.
inline std::string DisplayPath(const std::wstring& path) {
    using UnixFileName = char*(__cdecl*)(const wchar_t*);
    static const auto unixFileName = reinterpret_cast<UnixFileName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (unixFileName)
        if (char* unixPath = unixFileName(path.c_str())) {
            std::string text = unixPath;
            HeapFree(GetProcessHeap(), 0, unixPath);
            return text;
        }
    return Utf8(path);
}
