// The operator picks a parameter file: the Win32 save and open dialogs with the filter, default
// extension and flags the host suite's parameter files use.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// False when the operator cancels (or the dialog cannot be shown); `path` is then untouched.
bool AskExportPath(HWND owner, const std::wstring& defaultName, std::wstring& path);
bool AskImportPath(HWND owner, std::wstring& path);
// Any file to open: filter as "Text|*.txt|...||", the extension added to a name typed without one.
bool AskOpenPath(HWND owner, std::wstring_view filter, const wchar_t* extension, std::wstring& path);
