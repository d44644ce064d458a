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
#include <string>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}

extern "C" void InitRegvane(IRegvaneCallback* callback) {
    SetHostCallback(callback);
}

extern "C" void RegvaneLanguageChanged() {
    SwitchLanguage();
}

extern "C" CDialog* CreateRegvaneWnd(int chipType, IRegvane* chip, const wchar_t* caption, CWnd* parent) {
    return CreateChipDialog(chipType, chip, caption, parent ? parent->GetSafeHwnd() : nullptr);
}

extern "C" HWND CreateRegvaneHwnd(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    CDialog* dialog = CreateChipDialog(chipType, chip, caption, parent);
    if (!dialog)
        return nullptr;
    HWND window = dialog->GetSafeHwnd();
    if (!window) {
        delete dialog; // the template could not be created: nothing for the host to hold
        return nullptr;
    }
    dialog->DeleteOnDestroy();
    return window;
}

extern "C" const char* RegvaneDialogClassName(HWND window) {
    const CDialog* dialog = CDialog::FromHandle(window);
    return dialog ? dialog->DialogClassName() : nullptr;
}

namespace {

// "file:line: reason", as compilers say it, for a chip engineer's tools.
void TellProblem(const DescriptionLookup& lookup, wchar_t* problem, int problemChars) {
    if (!problem || problemChars <= 0)
        return;
    std::wstring text;
    if (lookup.problem) {
        const chipdesc::ParseError& error = lookup.problem->error;
        text = lookup.problem->file + L":" + std::to_wstring(error.line) + L": " +
               DescriptionRegistry::ReasonText(error);
    }
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(problemChars - 1));
    text.copy(problem, length);
    problem[length] = L'\0';
}

} // namespace

extern "C" int RegvaneCheckDescription(const wchar_t* path, wchar_t* problem, int problemChars) {
    const DescriptionLookup lookup = DescriptionRegistry::Module().Load(path ? path : L"");
    TellProblem(lookup, problem, problemChars);
    return lookup.description ? 0 : 1;
}

extern "C" HWND RegvaneCreateDescribedPage(const wchar_t* path, IRegvane* chip, const wchar_t* caption,
                                           HWND parent, wchar_t* problem, int problemChars) {
    DescriptionLookup lookup = DescriptionRegistry::Module().Load(path ? path : L"");
    TellProblem(lookup, problem, problemChars);
    if (!lookup.description)
        return nullptr;
    // The page class's own frame when the chip table knows the class, else a plain one.
    const ChipClassInfo* chipClass = FindChipClass(lookup.description->page.className);
    const UINT frame = chipClass ? chipClass->templateId : CDescribedPage::kFallbackFrameTemplate;
    auto* page = new CDescribedPage(std::move(lookup.description), chip, caption, parent);
    page->Create(frame, parent);
    HWND window = page->GetSafeHwnd();
    if (!window) {
        delete page;
        return nullptr;
    }
    page->DeleteOnDestroy();
    return window;
}
