#include "WorkbenchProcess.h"

#include "workbench/WorkbenchResources.h"

#include <zlib.h>

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

namespace {

std::uint32_t BigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = (value << 8) | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

} // namespace

Picture DecodePng(const std::string& png) {
    Picture picture;
    if (png.compare(0, 8, "\x89PNG\r\n\x1A\n") != 0)
        return {};
    std::string packed;
    for (std::size_t at = 8; at + 12 <= png.size(); at += 12 + BigEndian(png, at)) {
        const std::uint32_t length = BigEndian(png, at);
        if (at + 12 + length > png.size())
            return {};
        if (png.compare(at + 4, 4, "IHDR") == 0) {
            picture.width = static_cast<int>(BigEndian(png, at + 8));
            picture.height = static_cast<int>(BigEndian(png, at + 12));
            if (png[at + 16] != 8 || png[at + 17] != 2)
                return {};
        } else if (png.compare(at + 4, 4, "IDAT") == 0) {
            packed += png.substr(at + 8, length);
        }
    }
    const std::size_t stride = static_cast<std::size_t>(picture.width) * 3;
    std::vector<std::uint8_t> rows((stride + 1) * picture.height);
    uLongf size = static_cast<uLongf>(rows.size());
    if (uncompress(rows.data(), &size, reinterpret_cast<const Bytef*>(packed.data()),
                   static_cast<uLong>(packed.size())) != Z_OK ||
        size != rows.size())
        return {};
    // Rows are stored plain (filter 0) or as differences from the pixel to the left (filter 1).
    picture.rgb.resize(stride * picture.height);
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t filter = rows[y * (stride + 1)];
        if (filter > 1)
            return {};
        std::uint8_t* out = &picture.rgb[y * stride];
        for (std::size_t x = 0; x < stride; ++x)
            out[x] = static_cast<std::uint8_t>(rows[y * (stride + 1) + 1 + x] +
                                               (filter && x >= 3 ? out[x - 3] : 0));
    }
    return picture;
}

LoadedModule::LoadedModule() {
    const std::string error = module.Load();
    if (!error.empty())
        throw std::runtime_error("regvane.dll: " + error);
    module.InitRegvane(&callback);
    module.RegvaneLanguageChanged();
}

std::vector<std::wstring> LogLines(HWND main) {
    HWND log = GetDlgItem(main, IDC_CALL_LOG);
    std::vector<std::wstring> lines;
    for (int i = 0, count = static_cast<int>(SendMessageW(log, LB_GETCOUNT, 0, 0)); i < count; ++i) {
        std::wstring line(static_cast<std::size_t>(SendMessageW(log, LB_GETTEXTLEN, i, 0)) + 1, L'\0');
        line.resize(static_cast<std::size_t>(
            SendMessageW(log, LB_GETTEXT, i, reinterpret_cast<LPARAM>(line.data()))));
        lines.push_back(line);
    }
    return lines;
}
