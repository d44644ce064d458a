// regvane.dll as the host suite loads it: by path with LoadLibraryW, entry points by plain name.
#pragma once

#include "host/RegvaneDesignerExports.h"
#include "host/RegvaneExports.h"

#include <string>

struct HostModule {
    std::wstring path;
    HMODULE module = nullptr;
    InitRegvaneFn InitRegvane = nullptr;
    RegvaneLanguageChangedFn RegvaneLanguageChanged = nullptr;
    CreateRegvaneHwndFn CreateRegvaneHwnd = nullptr;
    RegvaneDialogClassNameFn RegvaneDialogClassName = nullptr; // optional: only for showing class names
    // Optional: the chip-description designer's entry points.
    RegvaneCheckDescriptionFn RegvaneCheckDescription = nullptr;
    RegvaneCreateDescribedPageFn RegvaneCreateDescribedPage = nullptr;

    // Loads the module beside the workbench; the reason when it cannot be used, else empty.
    std::string Load();
    // The module's version from its version resource, "1.0.0".
    std::string Version() const;
};

// Room for what RegvaneCheckDescription says of a file: every problem, a line each.
inline constexpr int kProblemChars = 32 * 1024;

// The folder of the workbench's executable, with a trailing backslash.
std::wstring ProgramFolder();
