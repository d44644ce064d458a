#include "WorkbenchProcess.h"

#include <stdexcept>

namespace {

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L'\\') + 1);
}

HANDLE InheritableFile(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

void RemoveTree(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = found.cFileName;
            if (name == L"." || name == L"..")
                continue;
            const std::wstring path = folder + L"\\" + name;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(path);
            else
                DeleteFileW(path.c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    RemoveDirectoryW(folder.c_str());
}

} // namespace

std::string WorkbenchRun::Line(const std::string& prefix) const {
    std::size_t start = 0;
    while (start < out.size()) {
        const std::size_t end = out.find('\n', start);
        std::string line = out.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::size_t text = line.find_first_not_of(' ');
        if (text != std::string::npos && line.compare(text, prefix.size(), prefix) == 0)
            return line.substr(text);
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return {};
}

TempFolder::TempFolder() {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    static LONG counter = 0;
    m_path = std::wstring(temp) + L"regvane-workbench-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
             std::to_wstring(InterlockedIncrement(&counter));
    RemoveTree(m_path);
    CreateDirectoryW(m_path.c_str(), nullptr);
}

TempFolder::~TempFolder() {
    RemoveTree(m_path);
}

std::vector<std::wstring> TempFolder::Files(const std::wstring& pattern) const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((m_path + L"\\" + pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            names.push_back(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

WorkbenchRun RunWorkbench(const std::wstring& arguments, const std::wstring& workingFolder) {
    TempFolder outputs;
    const std::wstring outPath = outputs.File(L"out.txt"), errPath = outputs.File(L"err.txt");
    HANDLE out = InheritableFile(outPath), err = InheritableFile(errPath);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = out;
    startup.hStdError = err;
    std::wstring commandLine = L"\"" + ProgramFolder() + L"RegvaneWorkbench.exe\" " + arguments;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        workingFolder.empty() ? nullptr : workingFolder.c_str(), &startup, &process))
        throw std::runtime_error("RegvaneWorkbench.exe did not start");
    CloseHandle(out);
    CloseHandle(err);
    WaitForSingleObject(process.hProcess, INFINITE);
    WorkbenchRun run;
    GetExitCodeProcess(process.hProcess, &run.status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    run.out = ReadFileBytes(outPath);
    run.err = ReadFileBytes(errPath);
    return run;
}

std::string ReadFileBytes(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    std::string bytes;
    char buffer[4096];
    DWORD read = 0;
    while (ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read)
        bytes.append(buffer, read);
    CloseHandle(file);
    return bytes;
}

void WriteFileBytes(const std::wstring& path, const std::string& bytes) {
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}
