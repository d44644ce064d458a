#include "framework/UIEx.h"

#include <string>

namespace {
int g_languageIndex = 3; // English until the host says otherwise
}

void UIEx_LanguageChanged(int languageIndex) {
    g_languageIndex = languageIndex;
}

int UIEx_Language() {
    return g_languageIndex;
}

int MsgBox(HWND owner, std::wstring_view text, std::wstring_view caption, UINT type) {
    return ::MessageBoxW(owner, std::wstring(text).c_str(), std::wstring(caption).c_str(), type);
}
