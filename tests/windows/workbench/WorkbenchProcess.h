// RegvaneWorkbench.exe run as a child process the way a person or a script runs it, with its own
// profile folder, so tests see exactly what the command prints and leaves on disk.
#pragma once

#include "workbench/HostModule.h"

#include <windows.h>

#include <string>
#include <vector>

struct WorkbenchRun {
    DWORD status = 0;
    std::string out;
    std::string err;
    // The printed line that starts with prefix (after leading spaces), or empty.
    std::string Line(const std::string& prefix) const;
};

// A fresh folder under %TEMP%, removed with everything in it at the end of the test.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::wstring& Path() const { return m_path; }
    std::wstring File(const std::wstring& name) const { return m_path + L"\\" + name; }
    // Names of the files in the folder matching a pattern such as L"chip-47.txt*".
    std::vector<std::wstring> Files(const std::wstring& pattern = L"*") const;

private:
    std::wstring m_path;
};

// Runs the workbench beside the test program with these arguments (quoted as given), in the
// working folder given (the test's own when empty).
WorkbenchRun RunWorkbench(const std::wstring& arguments, const std::wstring& workingFolder = L"");

std::string ReadFileBytes(const std::wstring& path);
void WriteFileBytes(const std::wstring& path, const std::string& bytes);

// The width of a PNG picture from its header, 0 when the file is no PNG. Its pixels are the
// encoder's, held natively.
int PngWidth(const std::string& png);
