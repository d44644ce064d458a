#include "paramfiles/ParamFileDialog.h"

#include "framework/Dialog.h"
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/ParamFileFormat.h"

#include <commdlg.h>

#include <vector>

namespace {

// Long enough for any path the file dialog can return.
constexpr std::size_t kPathChars = 32768;

bool AskPath(HWND owner, bool save, const std::wstring& defaultName, DWORD flags,
             std::wstring_view filterText, const wchar_t* extension, std::wstring& path) {
    const std::wstring filter = FileDialogFilter(filterText);
    std::vector<wchar_t> file(kPathChars, L'\0');
    defaultName.copy(file.data(), std::min(defaultName.size(), kPathChars - 1));

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.lpstrDefExt = extension;
    dialog.Flags = flags;
    const BOOL chosen = save ? ::GetSaveFileNameW(&dialog) : ::GetOpenFileNameW(&dialog);
    if (!chosen)
        return false;
    path = file.data();
    return true;
}

// The button stays disabled while its operation runs, and is enabled again however it ends.
class DisabledWhileRunning {
public:
    DisabledWhileRunning(const CDialog& page, int id) : m_page(page), m_id(id) {
        m_page.EnableItem(m_id, false);
    }
    ~DisabledWhileRunning() { m_page.EnableItem(m_id, true); }
    DisabledWhileRunning(const DisabledWhileRunning&) = delete;
    DisabledWhileRunning& operator=(const DisabledWhileRunning&) = delete;

private:
    const CDialog& m_page;
    int m_id;
};

} // namespace

bool AskExportPath(HWND owner, const std::wstring& defaultName, std::wstring& path) {
    return AskPath(owner, true, defaultName, OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST,
                   kParamFileFilter, kParamFileExtension, path);
}

bool AskImportPath(HWND owner, std::wstring& path) {
    return AskOpenPath(owner, kParamFileFilter, kParamFileExtension, path);
}

bool AskOpenPath(HWND owner, std::wstring_view filter, const wchar_t* extension, std::wstring& path) {
    return AskPath(owner, false, L"", OFN_FILEMUSTEXIST | OFN_HIDEREADONLY, filter, extension, path);
}

void ExportAsked(const CDialog& page, int buttonId, RegisterParamTable* table) {
    const DisabledWhileRunning busy(page, buttonId);
    const std::wstring defaultName = table ? table->DefaultFileName() : std::wstring();
    std::wstring path;
    if (!AskExportPath(page.GetSafeHwnd(), defaultName, path))
        return;
    const ParamFileResult result = table ? table->Export(path) : kParamFileFailed;
    MsgBox(page.GetSafeHwnd(), Tr(result >= 0 ? L"IDS_Export_Success" : L"IDS_Export_Failed"),
           ApplicationName(), MB_ICONINFORMATION);
}

bool ImportAsked(const CDialog& page, int buttonId, ParamTableKind kind, RegisterParamTable* table,
                 const std::function<void()>& changeTest) {
    const DisabledWhileRunning busy(page, buttonId);
    std::wstring path;
    if (!AskImportPath(page.GetSafeHwnd(), path))
        return false;
    ParamImportResult imported;
    if (table)
        imported = table->Import(path);
    if (imported.result >= 0)
        changeTest();
    if (kind == ParamTableKind::Mbi5292 && imported.status == ParamReadStatus::WrongTag)
        MsgBox(page.GetSafeHwnd(), Tr(L"IDS_FILE_TAG_ERROR"), ApplicationName(), MB_ICONERROR);
    else
        MsgBox(page.GetSafeHwnd(), Tr(imported.result >= 0 ? L"IDS_Import_Success" : L"IDS_Import_Failed"),
               ApplicationName(), MB_ICONINFORMATION);
    return true;
}
