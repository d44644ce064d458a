#include "WorkbenchProcess.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

std::string WorkbenchRun::Line(const std::string& prefix) const {
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        line.erase(0, line.find_first_not_of(' '));
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.rfind(prefix, 0) == 0)
            return line;
    }
    return {};
}

TempFolder::TempFolder() {
    static int counter = 0;
    m_path = (std::filesystem::temp_directory_path() /
              ("regvane-workbench-test-" + std::to_string(GetCurrentProcessId()) + "-" +
               std::to_string(++counter)))
                 .wstring();
    std::filesystem::remove_all(m_path);
    std::filesystem::create_directory(m_path);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::wstring> TempFolder::Files(const std::wstring& pattern) const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(File(pattern).c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found))
        names.push_back(found.cFileName);
    if (search != INVALID_HANDLE_VALUE)
        FindClose(search);
    return names;
}

WorkbenchRun RunWorkbench(const std::wstring& arguments, const std::wstring& workingFolder) {
    TempFolder outputs;
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    auto create = [&](const wchar_t* name) {
        return CreateFileW(outputs.File(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit,
                           CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = create(L"out.txt");
    startup.hStdError = create(L"err.txt");
    std::wstring commandLine = L"\"" + ProgramFolder() + L"RegvaneWorkbench.exe\" " + arguments;
    PROCESS_INFORMATION process{};
    const bool started =
        CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                       workingFolder.empty() ? nullptr : workingFolder.c_str(), &startup, &process);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    if (!started)
        throw std::runtime_error("RegvaneWorkbench.exe did not start");
    WaitForSingleObject(process.hProcess, INFINITE);
    WorkbenchRun run;
    GetExitCodeProcess(process.hProcess, &run.status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    run.out = ReadFileBytes(outputs.File(L"out.txt"));
    run.err = ReadFileBytes(outputs.File(L"err.txt"));
    return run;
}

std::string ReadFileBytes(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFileBytes(const std::wstring& path, const std::string& bytes) {
    std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
}

int PngWidth(const std::string& png) {
    if (png.size() < 24 || png.compare(0, 8, "\x89PNG\r\n\x1A\n") != 0 || png.compare(12, 4, "IHDR") != 0)
        return 0;
    int width = 0;
    for (std::size_t i = 16; i < 20; ++i)
        width = (width << 8) | static_cast<std::uint8_t>(png[i]);
    return width;
}
