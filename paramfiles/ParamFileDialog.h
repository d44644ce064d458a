// The operator picks a parameter file: the Win32 save and open dialogs with the filter, default
// extension and flags the host suite's parameter files use.
#pragma once

#include "paramfiles/RegisterParamTable.h"

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

class CDialog;

// False when the operator cancels (or the dialog cannot be shown); `path` is then untouched.
bool AskExportPath(HWND owner, const std::wstring& defaultName, std::wstring& path);
bool AskImportPath(HWND owner, std::wstring& path);
// Any file to open: filter as "Text|*.txt|...||", the extension added to a name typed without one.
bool AskOpenPath(HWND owner, std::wstring_view filter, const wchar_t* extension, std::wstring& path);

// What a page's Export button does: the button greyed while it runs, the save dialog proposing the
// table's file name, the file written, the operator told how it went. Nothing when they cancel.
void ExportAsked(const CDialog& page, int buttonId, RegisterParamTable* table);
// What its Import button does, the same way: the file read into the chip, then `changeTest` when the
// file was the chip's. True when the operator chose a file: the page then shows the chip again.
bool ImportAsked(const CDialog& page, int buttonId, ParamTableKind kind, RegisterParamTable* table,
                 const std::function<void()>& changeTest);
