#include "workbench/ChipStore.h"

#include "workbench/ChipSaveFile.h"
#include "workbench/Win32Text.h"

#include <shlobj.h>

#include <cwchar>

namespace {

std::wstring DefaultFolder() {
    wchar_t appData[MAX_PATH] = {};
    if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, appData)))
        return std::wstring(appData) + L"\\Regvane\\Workbench";
    return L".\\RegvaneWorkbench";
}

bool ReadWholeFile(const std::wstring& path, std::string& text) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    LARGE_INTEGER size{};
    bool ok = GetFileSizeEx(file, &size) && size.QuadPart < (16 << 20);
    if (ok) {
        text.resize(static_cast<std::size_t>(size.QuadPart));
        DWORD read = 0;
        ok = text.empty() || (ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr) &&
                              read == text.size());
    }
    CloseHandle(file);
    return ok;
}

std::wstring TimeStamp() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t stamp[32];
    swprintf(stamp, 32, L"%04u%02u%02u-%02u%02u%02u", now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute,
             now.wSecond);
    return stamp;
}

} // namespace

bool MakeFolders(const std::wstring& folder) {
    if (folder.empty() || GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES)
        return true;
    const std::size_t slash = folder.find_last_of(L"\\/");
    if (slash != std::wstring::npos && slash > 0 && folder[slash - 1] != L':')
        MakeFolders(folder.substr(0, slash));
    return CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
}

ChipStore::ChipStore(std::wstring folder) : m_folder(folder.empty() ? DefaultFolder() : std::move(folder)) {
    wchar_t full[MAX_PATH];
    const DWORD length = GetFullPathNameW(m_folder.c_str(), MAX_PATH, full, nullptr);
    if (length > 0 && length < MAX_PATH)
        m_folder = full;
    while (m_folder.size() > 3 && (m_folder.back() == L'\\' || m_folder.back() == L'/'))
        m_folder.pop_back();
}

std::wstring ChipStore::FileFor(int chipType, int subType) const {
    std::wstring name = L"\\chip-" + std::to_wstring(chipType);
    if (subType)
        name += L"-" + std::to_wstring(subType);
    return m_folder + name + L".txt";
}

ChipStore::Loaded ChipStore::Load(SimulatedChip& chip, int chipType, int subType) const {
    Loaded loaded;
    const std::wstring path = FileFor(chipType, subType);
    std::string text;
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES)
        return loaded;
    std::string problem;
    if (!ReadWholeFile(path, text))
        problem = "cannot be read (" + LastErrorText() + ")";
    else if (const auto error = ReadChipSaveFile(text, chip))
        problem = "is damaged (" + error->ToString() + ")";
    if (problem.empty()) {
        loaded.fromFile = true;
        return loaded;
    }
    std::wstring aside = path + L".damaged-" + TimeStamp();
    for (int n = 2; GetFileAttributesW(aside.c_str()) != INVALID_FILE_ATTRIBUTES; ++n)
        aside = path + L".damaged-" + TimeStamp() + L"-" + std::to_wstring(n);
    loaded.warning = DisplayPath(path) + " " + problem + "; ";
    if (MoveFileExW(path.c_str(), aside.c_str(), MOVEFILE_WRITE_THROUGH))
        loaded.warning += "set aside as " + Utf8(aside.substr(aside.find_last_of(L'\\') + 1));
    else
        loaded.warning += "it could not be set aside (" + LastErrorText() + ") and will be replaced";
    loaded.warning += "; the chip starts from its start values";
    return loaded;
}

std::string ChipStore::Save(const SimulatedChip& chip, int chipType, int subType) const {
    const std::wstring path = FileFor(chipType, subType);
    return WriteFile(path.substr(path.find_last_of(L'\\') + 1), FormatChipSaveFile(chip));
}

std::string ChipStore::WriteFile(const std::wstring& name, const std::string& text) const {
    if (!MakeFolders(m_folder))
        return "cannot create " + Utf8(m_folder) + " (" + LastErrorText() + ")";
    const std::wstring path = m_folder + L"\\" + name;
    const std::wstring temporary = path + L".tmp";
    HANDLE file = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return "cannot write " + Utf8(temporary) + " (" + LastErrorText() + ")";
    DWORD written = 0;
    // The bytes must be on the disk before the rename makes them the saved file.
    const bool ok = ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
                    written == text.size() && FlushFileBuffers(file);
    const DWORD writeError = GetLastError();
    CloseHandle(file);
    if (!ok) {
        DeleteFileW(temporary.c_str());
        return "cannot write " + Utf8(temporary) + " (" + LastErrorText(writeError) + ")";
    }
    if (!MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD moveError = GetLastError();
        DeleteFileW(temporary.c_str());
        return "cannot replace " + Utf8(path) + " (" + LastErrorText(moveError) + ")";
    }
    return {};
}

std::string ChipStore::ReadFile(const std::wstring& name) const {
    std::string text;
    ReadWholeFile(m_folder + L"\\" + name, text);
    return text;
}
