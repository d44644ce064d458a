#include "paramfiles/ParamFileDialog.h"

#include "paramfiles/ParamFileFormat.h"
#include "paramfiles/RegisterParamTable.h"

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
