// The workbench's command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

// The room a host's view gives a page unless --area says otherwise, in pixels.
inline constexpr int kDefaultAreaWidth = 990;
inline constexpr int kDefaultAreaHeight = 740;

struct WorkbenchOptions {
    bool help = false;
    bool list = false;     // print every chip page the workbench knows and stop
    bool headless = false; // run the actions, print, take the screenshot and stop; no window for a user
    std::optional<int> chipType;
    int subType = 0;
    std::wstring scriptFile;
    std::string inlineActions; // every --do, joined by ';'
    std::wstring screenshot;   // headless: where the page's picture goes
    std::wstring allPagesFolder;
    std::vector<int> onlyTypes; // --types: limit --all-pages or --check-labels to these
    std::wstring profile;       // where chips persist; empty: %APPDATA%\Regvane\Workbench
    int language = 0;           // 1..13; 0: the saved or default language
    bool reset = false;         // start the chip from its start values, forgetting what was saved
    std::wstring describe;      // a chip description to open (the designer), redrawn when it changes
    std::vector<std::wstring> checkDescriptions; // chip descriptions to check, then stop
    bool checkLabels = false;                    // check that the pages' texts fit their controls, then stop
    // The room the host's view gives a page before it opens, in pixels.
    int areaWidth = kDefaultAreaWidth;
    int areaHeight = kDefaultAreaHeight;
};

// The workbench's exit status, as --help lists it.
enum WorkbenchExit {
    kExitDone = 0,
    kExitBadCommandLine = 1, // also a bad script or an unknown chip type
    kExitModuleUnusable = 2,
    kExitNoPage = 3,
    kExitActionFailed = 4,
    kExitScreenshotFailed = 5,
    kExitDescriptionUnusable = 6,
    kExitTextsDoNotFit = 7,
};

struct ParsedOptions {
    WorkbenchOptions options;
    std::string error; // empty when the command line is good
};

ParsedOptions ParseOptions(const std::vector<std::wstring>& args);

extern const char* const kWorkbenchUsage;
