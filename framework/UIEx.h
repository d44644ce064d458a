// The user-interface extension layer: the language of the control library and the module's
// message box.
#pragma once

#include <windows.h>

#include <string_view>

// The control library follows the host's language index (1..13, as the host reports it).
void UIEx_LanguageChanged(int languageIndex);
int UIEx_Language();

// A message box owned by a dialog. The text is shown as it is, never used as a format.
int MsgBox(HWND owner, std::wstring_view text, std::wstring_view caption, UINT type);
