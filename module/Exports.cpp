// The module's exported entry points.
#include "dialogs/described/DescribedPage.h"
#include "dialogs/described/DescriptionRegistry.h"
#include "factory/ChipTypes.h"
#include "factory/DialogFactory.h"
#include "framework/TextEncoding.h"
#include "framework/Dialog.h"
#include "host/RegvaneDesignerExports.h"
#include "host/RegvaneExports.h"
#include "module/LanguageSwitch.h"
#include "module/ModuleState.h"

#include <algorithm>
#include <cassert>
#include <memory>
#include <string>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}

namespace {

// Everything the module holds (the translator, the caches, the pages' class-wide settings) belongs
// to the host's user-interface thread, the one that calls InitRegvane. A call from another thread
// would race with it and could leave half a page behind: such a call is refused (a debug build
// stops at once) and gets what the function gives for "nothing".
DWORD g_hostThread = 0;

bool OnHostThread() {
    const bool same = g_hostThread == 0 || g_hostThread == ::GetCurrentThreadId();
    assert(same && "regvane is called on the host's user-interface thread only");
    return same;
}

// No C++ exception may reach the host, which may not even be written in C++: a failure inside an
// entry point gives the documented "nothing" instead.
template <typename Result, typename Body>
Result Guarded(Result nothing, Body body) {
    if (!OnHostThread())
        return nothing;
    try {
        return body();
    } catch (...) {
        return nothing;
    }
}

bool UsableParent(HWND parent) {
    return parent == nullptr || ::IsWindow(parent);
}

} // namespace

extern "C" void InitRegvane(IRegvaneCallback* callback) {
    g_hostThread = ::GetCurrentThreadId();
    SetHostCallback(callback);
}

extern "C" void RegvaneLanguageChanged() {
    Guarded(0, [] {
        SwitchLanguage();
        return 0;
    });
}

extern "C" CDialog* CreateRegvaneWnd(int chipType, IRegvane* chip, const wchar_t* caption, CWnd* parent) {
    return Guarded<CDialog*>(nullptr, [&]() -> CDialog* {
        const HWND parentWindow = parent ? parent->GetSafeHwnd() : nullptr;
        if (!UsableParent(parentWindow))
            return nullptr;
        return CreateChipDialog(chipType, chip, caption, parentWindow);
    });
}

extern "C" HWND CreateRegvaneHwnd(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    return Guarded<HWND>(nullptr, [&]() -> HWND {
        if (!UsableParent(parent))
            return nullptr;
        std::unique_ptr<CDialog> dialog(CreateChipDialog(chipType, chip, caption, parent));
        HWND window = dialog ? dialog->GetSafeHwnd() : nullptr;
        if (!window)
            return nullptr; // the template could not be created: nothing for the host to hold
        dialog.release()->DeleteOnDestroy();
        return window;
    });
}

extern "C" const char* RegvaneDialogClassName(HWND window) {
    return Guarded<const char*>(nullptr, [&]() -> const char* {
        const CDialog* dialog = CDialog::FromHandle(window);
        return dialog ? dialog->DialogClassName() : nullptr;
    });
}

namespace {

// Every problem on a line of its own, "file:line: reason" or "file:line:column: reason" as compilers
// say it, for a chip engineer's tools.
void TellProblem(const DescriptionLookup& lookup, wchar_t* problem, int problemChars) {
    if (!problem || problemChars <= 0)
        return;
    std::wstring text;
    if (lookup.problem) {
        const chipdesc::ParseError& error = lookup.problem->error;
        auto tell = [&](const chipdesc::Problem& one) {
            text += (text.empty() ? L"" : L"\n") + lookup.problem->file + L":" + std::to_wstring(one.line) +
                    (one.column ? L":" + std::to_wstring(one.column) : L"") + L": " +
                    DescriptionRegistry::ReasonText(one);
        };
        tell(error);
        for (const chipdesc::Problem& more : error.more)
            tell(more);
    }
    const auto room = static_cast<std::size_t>(problemChars - 1);
    std::size_t length = text.size();
    if (length > room) { // the problems that fit whole, unless not even the first does
        const std::size_t lineEnd = text.rfind(L'\n', room);
        length = lineEnd != std::wstring::npos ? lineEnd : room;
    }
    text.copy(problem, length);
    problem[length] = L'\0';
}

} // namespace

extern "C" int RegvaneCheckDescription(const wchar_t* path, wchar_t* problem, int problemChars) {
    return Guarded(1, [&] {
        const DescriptionLookup lookup = DescriptionRegistry::Module().Load(path ? path : L"");
        TellProblem(lookup, problem, problemChars);
        return lookup.description ? 0 : 1;
    });
}

extern "C" HWND RegvaneCreateDescribedPage(const wchar_t* path, IRegvane* chip, const wchar_t* caption,
                                           HWND parent, wchar_t* problem, int problemChars) {
    return Guarded<HWND>(nullptr, [&]() -> HWND {
        DescriptionLookup lookup = DescriptionRegistry::Module().Load(path ? path : L"");
        TellProblem(lookup, problem, problemChars);
        if (!lookup.description || !UsableParent(parent))
            return nullptr;
        // The page class's own frame when the chip table knows the class, else a plain one.
        const ChipClassInfo* chipClass = FindChipClass(lookup.description->page.className);
        const UINT frame = chipClass ? chipClass->templateId : CDescribedPage::kFallbackFrameTemplate;
        auto page = std::make_unique<CDescribedPage>(std::move(lookup.description), chip, caption, parent);
        page->Create(frame, parent);
        HWND window = page->GetSafeHwnd();
        if (!window)
            return nullptr;
        page.release()->DeleteOnDestroy();
        return window;
    });
}
