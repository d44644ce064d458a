// The module's exported entry points.
#include "factory/DialogFactory.h"
#include "framework/Dialog.h"
#include "host/RegvaneExports.h"
#include "module/LanguageSwitch.h"
#include "module/ModuleState.h"

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
