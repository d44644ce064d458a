// The workbench without a person at the screen: one page driven by a script, or a picture of
// every page. Both print what happened to stdout and problems to stderr.
#pragma once

#include "workbench/HostModule.h"
#include "workbench/SimulatedChip.h"
#include "workbench/WorkbenchOptions.h"

// Opens the page of options.chipType, runs the script, prints the calls and register images and
// writes the page's picture. Returns a WorkbenchExit.
int RunScripted(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback);

// The designer without a window: opens the page options.describe renders, runs the script, prints
// and writes the picture. Returns a WorkbenchExit.
int RunDescribed(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback);

// --check-description: "FILE: ok" or "FILE:LINE: reason" for each file; kExitDone when all are usable.
int CheckDescriptions(const WorkbenchOptions& options, HostModule& module);

// --check-labels: each text that does not fit its control, page by page, language by language.
// Returns kExitTextsDoNotFit when there is one.
int CheckLabels(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback);

// A picture of every chip page (or of options.onlyTypes) in options.allPagesFolder, with an
// index.html to see them side by side. Returns a WorkbenchExit.
int RunAllPages(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback);

// Writes the picture of a page to path (made absolute, its folder created) and prints where it went,
// or prints why not. True when the picture was written.
bool WritePagePicture(HWND page, const std::wstring& path);

// --list: every chip page the workbench knows.
void PrintChipList();

// The script of --script and --do together; false (with the reason printed) when it is bad.
bool LoadScript(const WorkbenchOptions& options, std::vector<struct ScriptAction>& actions);
