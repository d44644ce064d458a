// RegvaneWorkbench.exe run as a child process the way a person or a script runs it, with its own
// profile folder, so tests see exactly what the command prints and leaves on disk; and what the tests
// read back from the workbench: its pictures and its call log.
#pragma once

#include "workbench/HostModule.h"
#include "workbench/MainWindow.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <memory>
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

// The pixels of an 8-bit RGB PNG as the workbench writes it; empty when it is not one.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
    COLORREF At(int x, int y) const {
        const std::uint8_t* pixel = &rgb[(static_cast<std::size_t>(y) * width + x) * 3];
        return RGB(pixel[0], pixel[1], pixel[2]);
    }
};
Picture DecodePng(const std::string& png);

// regvane.dll loaded in-process as the workbench loads it, told the host's callback and language.
struct LoadedModule {
    LoadedModule();
    HostModule module;
    SimulatedHostCallback callback;
};

// The lines of the workbench window's call log.
std::vector<std::wstring> LogLines(HWND main);

// The workbench's window made in-process on the test's own profile folder, as the workbench starts.
class WorkbenchWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        options.profile = profile.Path();
        window = std::make_unique<MainWindow>(loaded.module, callback, options);
        ASSERT_TRUE(window->Create());
        main = window->Handle();
    }

    // As the workbench's message loop does between two messages.
    void Pump() {
        PumpMessages();
        window->Refresh();
    }

    LoadedModule loaded;
    SimulatedHostCallback& callback = loaded.callback;
    TempFolder profile;
    WorkbenchOptions options;
    std::unique_ptr<MainWindow> window;
    HWND main = nullptr;
};
