// RegvaneWorkbench: plays the host's part for regvane.dll with simulated chips, in a window or,
// with --headless, driven by a script.
#include "module/LanguageSelection.h"
#include "workbench/HeadlessRun.h"
#include "workbench/HostModule.h"
#include "workbench/MainWindow.h"
#include "workbench/Win32Text.h"
#include "workbench/WorkbenchOptions.h"

#include <cstdio>
#include <string>
#include <vector>

int wmain(int argc, wchar_t** argv) {
    // Every line reaches a pipe at once, so a reader sees how far a run got.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const ParsedOptions parsed = ParseOptions(std::vector<std::wstring>(argv + 1, argv + argc));
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "error: %s\n", parsed.error.c_str());
        return kExitBadCommandLine;
    }
    const WorkbenchOptions& options = parsed.options;
    if (options.help) {
        std::fputs(kWorkbenchUsage, stdout);
        return kExitDone;
    }
    if (options.list) {
        PrintChipList();
        return kExitDone;
    }

    HostModule module;
    if (const std::string error = module.Load(); !error.empty()) {
        std::fprintf(stderr, "error: %s\n", error.c_str());
        return kExitModuleUnusable;
    }
    // The module keeps the callback for as long as it is loaded.
    static SimulatedHostCallback callback;
    callback.language = options.language ? options.language : 3;
    module.InitRegvane(&callback);
    module.RegvaneLanguageChanged();
    std::printf("regvane.dll %s loaded from %s; language %d (%s)\n", module.Version().c_str(),
                DisplayPath(module.path).c_str(), callback.language,
                Utf8(LanguageDisplayName(callback.language)).c_str());

    if (!options.checkDescriptions.empty())
        return CheckDescriptions(options, module);
    if (options.checkLabels)
        return CheckLabels(options, module, callback);
    if (!options.allPagesFolder.empty())
        return RunAllPages(options, module, callback);
    if (options.headless && !options.describe.empty())
        return RunDescribed(options, module, callback);
    if (options.headless)
        return RunScripted(options, module, callback);
    return RunWindow(options, module, callback);
}
