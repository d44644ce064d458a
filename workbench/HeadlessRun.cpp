#include "workbench/HeadlessRun.h"

#include "workbench/ChipCatalog.h"
#include "workbench/ChipStore.h"
#include "factory/ChipTypes.h"
#include "module/LanguageSelection.h"
#include "workbench/HostWindows.h"
#include "workbench/LabelFit.h"
#include "workbench/MessageBoxAnswerer.h"
#include "workbench/PageSession.h"
#include "workbench/PagesIndex.h"
#include "workbench/ScreenCapture.h"
#include "workbench/Win32Text.h"
#include "workbench/WorkbenchScript.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace {

std::wstring FullPath(const std::wstring& path) {
    wchar_t full[MAX_PATH];
    const DWORD length = GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return length > 0 && length < MAX_PATH ? std::wstring(full) : path;
}

std::wstring FolderOf(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? L"." : path.substr(0, slash);
}

bool ReadTextFile(const std::wstring& path, std::string& text) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    char buffer[4096];
    DWORD read = 0;
    while (ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read)
        text.append(buffer, read);
    CloseHandle(file);
    if (text.rfind("\xEF\xBB\xBF", 0) == 0)
        text.erase(0, 3);
    return true;
}

// Every line of the log of one step, indented under the step.
void PrintLog(PageSession& session, MessageBoxAnswerer& boxes) {
    for (const std::wstring& box : boxes.TakeAnswered())
        session.Note(Utf8(box));
    for (const std::string& line : session.TakeLog())
        std::printf("    %s\n", line.c_str());
}

void PrintImages(const PageSession& session) {
    std::printf("register images (^^ marks the bytes the last change touched):\n");
    for (const HexLine& line : session.ImageLines()) {
        std::printf("  %s\n", line.text.c_str());
        const std::string carets = CaretLine(line);
        if (!carets.empty())
            std::printf("  %s\n", carets.c_str());
    }
}

std::string PageLabel(int chipType, int subType) {
    return ChipTypeLabel(chipType) + (subType ? " sub-type " + std::to_string(subType) : "");
}

} // namespace

bool LoadScript(const WorkbenchOptions& options, std::vector<ScriptAction>& actions) {
    actions.clear();
    if (!options.scriptFile.empty()) {
        std::string text;
        if (!ReadTextFile(options.scriptFile, text)) {
            std::fprintf(stderr, "error: cannot read the script %s (%s)\n", Utf8(options.scriptFile).c_str(),
                         LastErrorText().c_str());
            return false;
        }
        const std::wstring name = options.scriptFile.substr(options.scriptFile.find_last_of(L"\\/") + 1);
        ParsedScript script = ParseScript(text, Utf8(name));
        if (script.error) {
            std::fprintf(stderr, "error: %s\n", script.error->ToString().c_str());
            return false;
        }
        actions = std::move(script.actions);
    }
    if (!options.inlineActions.empty()) {
        ParsedScript script = ParseScript(options.inlineActions, "--do", true);
        if (script.error) {
            std::fprintf(stderr, "error: %s\n", script.error->ToString().c_str());
            actions.clear();
            return false;
        }
        actions.insert(actions.end(), script.actions.begin(), script.actions.end());
    }
    return true;
}

bool WritePagePicture(HWND page, const std::wstring& path) {
    const std::wstring picture = FullPath(path);
    SIZE size{};
    bool cropped = false;
    std::string error = MakeFolders(FolderOf(picture)) ? "" : "cannot create " + Utf8(FolderOf(picture));
    if (error.empty())
        error = CaptureWindowPng(page, picture, size, cropped);
    if (!error.empty()) {
        std::fprintf(stderr, "error: no screenshot: %s\n", error.c_str());
        return false;
    }
    std::printf("screenshot %s (%ld x %ld pixels%s)\n", DisplayPath(picture).c_str(), size.cx, size.cy,
                cropped ? ", cut off at the screen's edge" : "");
    return true;
}

void PrintChipList() {
    std::printf("%-12s %-28s %-13s %s\n", "type", "page class", "page", "chip");
    for (const CatalogEntry& entry : ChipCatalog()) {
        const ChipClassInfo* info = FindChipClass(entry.className);
        std::printf("%-12s %-28s %-13s %s\n", EntryLabel(entry).c_str(), entry.className.c_str(),
                    info ? ChipPageKindName(info->kind) : "", entry.modelName.c_str());
    }
}

// The part of a headless run after the page opened: fit it, print it, run the actions, print the
// images and write the picture. Returns a WorkbenchExit.
int DriveAndPicture(PageSession& session, HeadlessFrame& frame, MessageBoxAnswerer& boxes,
                    const std::vector<ScriptAction>& actions, const std::wstring& savedFile,
                    const std::wstring& picture) {
    frame.FitPage(session.Page());
    RECT rect{};
    GetWindowRect(session.Page(), &rect);
    std::printf("page %s at screen (%ld, %ld), %ld x %ld pixels\n", session.PageClass().c_str(), rect.left,
                rect.top, rect.right - rect.left, rect.bottom - rect.top);
    PrintLog(session, boxes);
    session.AfterChange();

    int status = kExitDone;
    for (const ScriptAction& action : actions) {
        std::printf("> %s    (%s)\n", action.written.c_str(), action.where.c_str());
        const std::string error = session.Run(action);
        PumpMessages();
        if (!session.AfterChange().empty())
            status = kExitActionFailed;
        PrintLog(session, boxes);
        if (!error.empty()) {
            std::fprintf(stderr, "error: %s: %s\n", action.where.c_str(), error.c_str());
            status = kExitActionFailed;
            break;
        }
    }
    PrintImages(session);
    if (!savedFile.empty() && GetFileAttributesW(savedFile.c_str()) != INVALID_FILE_ATTRIBUTES)
        std::printf("the chip persists in %s\n", DisplayPath(savedFile).c_str());

    if (!WritePagePicture(session.Page(), picture))
        return status == kExitDone ? kExitScreenshotFailed : status;
    session.Close();
    PrintLog(session, boxes);
    return status;
}

int RunScripted(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback) {
    std::vector<ScriptAction> actions;
    if (!LoadScript(options, actions))
        return kExitBadCommandLine;
    const int chipType = *options.chipType;
    const int subType = options.subType;
    if (!FindChipType(chipType)) {
        std::fprintf(stderr, "error: there is no chip type %s (--list shows every chip type)\n",
                     ChipTypeLabel(chipType).c_str());
        return kExitBadCommandLine;
    }

    ChipStore store(options.profile);
    PageSession session(module, callback);
    HeadlessFrame frame(session, {options.areaWidth, options.areaHeight});
    MessageBoxAnswerer boxes;
    const PageSession::Opened opened =
        session.Open(chipType, subType, frame.RoomForPage(), &store, options.reset);
    if (!opened.warning.empty())
        std::fprintf(stderr, "warning: %s\n", opened.warning.c_str());
    const std::string pageClass = session.PageClass();
    std::printf("chip type %s: %s (%s), %s\n", PageLabel(chipType, subType).c_str(),
                pageClass.empty() ? "no page class" : pageClass.c_str(), session.ChipDescription().c_str(),
                opened.fromFile
                    ? ("saved images from " + DisplayPath(store.FileFor(chipType, subType))).c_str()
                    : "start values");
    if (!opened.hasPage) {
        PrintLog(session, boxes);
        std::string why = pageClass.empty() ? "" : " (" + pageClass + ")";
        if (pageClass.empty() && DependsOnSubType(chipType)) {
            why = " with this sub-type; sub-types with a page:";
            for (const CatalogEntry& entry : ChipCatalog())
                if (entry.chipType == chipType)
                    why += " " + std::to_string(entry.subType) + " (" + entry.className + ")";
        }
        std::fprintf(stderr, "error: regvane.dll gives no page for chip type %s%s\n",
                     PageLabel(chipType, subType).c_str(), why.c_str());
        return kExitNoPage;
    }
    const std::wstring picture = !options.screenshot.empty()
                                     ? options.screenshot
                                     : ProgramFolder() + L"..\\..\\screenshots\\page-" +
                                           std::to_wstring(chipType) +
                                           (subType ? L"-" + std::to_wstring(subType) : L"") + L".png";
    return DriveAndPicture(session, frame, boxes, actions, store.FileFor(chipType, subType), picture);
}

int RunDescribed(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback) {
    std::vector<ScriptAction> actions;
    if (!LoadScript(options, actions))
        return kExitBadCommandLine;
    ChipStore store(options.profile);
    PageSession session(module, callback);
    HeadlessFrame frame(session, {options.areaWidth, options.areaHeight});
    MessageBoxAnswerer boxes;
    std::vector<std::string> problems;
    const PageSession::Opened opened =
        session.OpenDescription(options.describe, frame.RoomForPage(), &store, options.reset, problems);
    if (!opened.hasPage) {
        PrintLog(session, boxes);
        for (const std::string& problem : problems)
            std::fprintf(stderr, "error: %s\n", problem.c_str());
        return kExitDescriptionUnusable;
    }
    const SimulatedChip& chip = session.Chip();
    std::printf("description %s: %s on %s\n", DisplayPath(FullPath(options.describe)).c_str(),
                session.PageClass().c_str(),
                chip.chipType ? ("chip type " + PageLabel(chip.chipType, chip.chipSubType) + " (" +
                                 chip.modelName + "), " + (opened.fromFile ? "saved images" : "start values"))
                                    .c_str()
                              : "a blank chip (the chip table has no such page class)");
    const std::wstring picture = !options.screenshot.empty() ? options.screenshot
                                                             : ProgramFolder() + L"..\\..\\screenshots\\" +
                                                                   Wide(session.PageClass()) + L".png";
    const std::wstring saved =
        chip.chipType ? store.FileFor(chip.chipType, chip.chipSubType) : std::wstring();
    return DriveAndPicture(session, frame, boxes, actions, saved, picture);
}

int CheckDescriptions(const WorkbenchOptions& options, HostModule& module) {
    if (!module.RegvaneCheckDescription) {
        std::fprintf(stderr, "error: this regvane.dll cannot check chip descriptions\n");
        return kExitModuleUnusable;
    }
    int status = kExitDone;
    for (const std::wstring& file : options.checkDescriptions) {
        std::wstring problems(kProblemChars, L'\0'); // a line each
        if (module.RegvaneCheckDescription(file.c_str(), problems.data(), kProblemChars) == 0) {
            std::printf("%s: ok\n", Utf8(file).c_str());
        } else {
            std::printf("%s\n", Utf8(problems.c_str()).c_str());
            status = kExitDescriptionUnusable;
        }
    }
    return status;
}

namespace {

// The chip table's pages, or those of the --types given; false for a type there is none of.
bool SelectPages(const WorkbenchOptions& options, std::vector<CatalogEntry>& entries) {
    entries = ChipCatalog();
    if (options.onlyTypes.empty())
        return true;
    for (const int type : options.onlyTypes)
        if (!FindChipType(type)) {
            std::fprintf(stderr, "error: --types: there is no chip type %s\n", ChipTypeLabel(type).c_str());
            return false;
        }
    std::erase_if(entries, [&](const CatalogEntry& e) {
        return std::find(options.onlyTypes.begin(), options.onlyTypes.end(), e.chipType) ==
               options.onlyTypes.end();
    });
    return true;
}

enum class PictureOutcome { Taken, NoPage, Failed };

// Opens an entry's page from its start values and writes its picture into the folder, saying so on
// the line already begun for it.
PictureOutcome PicturePage(const CatalogEntry& entry, PageSession& session, HeadlessFrame& frame,
                           MessageBoxAnswerer& boxes, const std::wstring& folder, PagePicture& picture) {
    PictureOutcome outcome = PictureOutcome::Taken;
    const PageSession::Opened opened =
        session.Open(entry.chipType, entry.subType, frame.RoomForPage(), nullptr, true);
    if (!opened.hasPage) {
        std::printf("no page\n");
        outcome = PictureOutcome::NoPage;
    } else {
        frame.FitPage(session.Page());
        const std::string file = PictureFileName(entry.chipType, entry.subType, entry.className);
        SIZE size{};
        bool cropped = false;
        const std::string error =
            CaptureWindowPng(session.Page(), folder + L"\\" + Wide(file), size, cropped);
        if (error.empty()) {
            picture.file = file;
            picture.width = size.cx;
            picture.height = size.cy;
            std::printf("%s (%ld x %ld%s)\n", file.c_str(), size.cx, size.cy, cropped ? ", cut off" : "");
        } else {
            std::printf("no picture: %s\n", error.c_str());
            outcome = PictureOutcome::Failed;
        }
    }
    std::fflush(stdout);
    session.Close();
    PumpMessages();
    for (const std::wstring& box : boxes.TakeAnswered())
        std::printf("      the page showed a %s\n", Utf8(box).c_str());
    session.TakeLog();
    return outcome;
}

bool WriteIndex(const std::wstring& index, const std::vector<PagePicture>& pictures) {
    const std::string html = PagesIndexHtml(pictures);
    HANDLE file =
        CreateFileW(index.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const bool indexWritten =
        file != INVALID_HANDLE_VALUE &&
        WriteFile(file, html.data(), static_cast<DWORD>(html.size()), &written, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    return indexWritten;
}

} // namespace

int RunAllPages(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback) {
    std::vector<CatalogEntry> entries;
    if (!SelectPages(options, entries))
        return kExitBadCommandLine;
    const std::wstring folder = FullPath(options.allPagesFolder);
    if (!MakeFolders(folder)) {
        std::fprintf(stderr, "error: cannot create %s (%s)\n", DisplayPath(folder).c_str(),
                     LastErrorText().c_str());
        return kExitScreenshotFailed;
    }
    std::printf("a picture of each of %zu chip pages into %s\n", entries.size(), DisplayPath(folder).c_str());

    // Pages start from their chips' start values and save nothing: the pictures are the same run
    // after run, whatever anyone tried in the workbench before.
    PageSession session(module, callback);
    HeadlessFrame frame(session, {options.areaWidth, options.areaHeight});
    MessageBoxAnswerer boxes;
    std::vector<PagePicture> pictures;
    int missing = 0, failed = 0;
    const int width = static_cast<int>(std::to_string(entries.size()).size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const CatalogEntry& entry = entries[i];
        PagePicture picture{EntryLabel(entry), entry.className, entry.modelName, "", 0, 0};
        std::printf("[%*zu/%zu] %-10s %-28s ", width, i + 1, entries.size(), picture.label.c_str(),
                    entry.className.c_str());
        const PictureOutcome outcome = PicturePage(entry, session, frame, boxes, folder, picture);
        missing += outcome == PictureOutcome::NoPage;
        failed += outcome == PictureOutcome::Failed;
        pictures.push_back(std::move(picture));
    }

    const std::wstring index = folder + L"\\index.html";
    const bool indexWritten = WriteIndex(index, pictures);
    const int shot = static_cast<int>(entries.size()) - missing - failed;
    std::printf("%d pictures in %s%s", shot, DisplayPath(folder).c_str(),
                indexWritten ? (", side by side in " + DisplayPath(index)).c_str() : "");
    if (missing)
        std::printf("; no page for %d of them", missing);
    if (failed)
        std::printf("; %d pictures failed", failed);
    std::printf("\n");
    if (failed || !indexWritten)
        return kExitScreenshotFailed;
    return missing ? kExitNoPage : kExitDone;
}

namespace {

struct PageToCheck {
    const CatalogEntry* entry;
    int registerKind; // 0: the chip's own
};

// One page of every class with texts of its own: the custom pages, and those laid out from a chip
// description the module ships, with the description's texts. The other generic pages are the raw
// register editor under their own template numbers, with its texts: the editor stands for them,
// under every register kind a host can give, since each kind shows other controls and names them
// differently.
std::vector<PageToCheck> PagesToCheck(const std::vector<CatalogEntry>& entries) {
    std::vector<PageToCheck> pages;
    std::set<std::string> seen;
    for (const CatalogEntry& entry : entries) {
        const ChipClassInfo* info = FindChipClass(entry.className);
        if (!info || info->kind == ChipPageKind::Raw || !seen.insert(entry.className).second)
            continue;
        const int registerKinds = entry.className == "CchipRegModify" ? 12 : 0;
        for (int kind = registerKinds ? 1 : 0; kind <= registerKinds; ++kind)
            pages.push_back({&entry, kind});
    }
    return pages;
}

} // namespace

int CheckLabels(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback) {
    std::vector<CatalogEntry> entries;
    if (!SelectPages(options, entries))
        return kExitBadCommandLine;
    const std::vector<PageToCheck> pages = PagesToCheck(entries);
    const std::vector<int> languages =
        options.language ? std::vector<int>{options.language} : LanguagesWithTheirOwnFiles();
    PageSession session(module, callback);
    HeadlessFrame frame(session);
    MessageBoxAnswerer boxes;
    int misfits = 0;
    int unopened = 0;
    for (const int language : languages) {
        callback.language = language;
        module.RegvaneLanguageChanged();
        const std::string languageName = Utf8(LanguageDisplayName(language));
        for (const PageToCheck& page : pages) {
            const CatalogEntry& entry = *page.entry;
            const std::string name =
                languageName + ": page " + EntryLabel(entry) + " (" + entry.className +
                (page.registerKind ? ", register kind " + std::to_string(page.registerKind) : "") + ")";
            if (!session
                     .Open(entry.chipType, entry.subType, frame.RoomForPage(), nullptr, true,
                           page.registerKind)
                     .hasPage) {
                std::printf("%s did not open\n", name.c_str());
                ++unopened;
                continue;
            }
            for (const std::string& misfit : PageMisfits(session.Page())) {
                std::printf("%s, %s\n", name.c_str(), misfit.c_str());
                ++misfits;
            }
        }
        session.Close();
        boxes.TakeAnswered();
    }
    std::printf("%zu pages in %zu languages checked: %d texts do not fit\n", pages.size(), languages.size(),
                misfits);
    return unopened ? kExitNoPage : misfits ? kExitTextsDoNotFit : kExitDone;
}
