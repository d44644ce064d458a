#include "framework/Translate.h"
#include "framework/Wnd.h"

#include <windows.h>

#include <cwchar>
#include <set>
#include <string>

void CTranslate::TranslateDialog(HWND dialog, unsigned templateId, const wchar_t* section) const {
    if (!dialog)
        return;
    const std::wstring name = section ? std::wstring(section) : std::to_wstring(templateId);
    std::set<std::wstring> done;
    for (const LanguageFile* file : {&m_primary, &m_fallback, m_builtin}) {
        const auto* entries = file ? file->Section(name) : nullptr;
        if (!entries)
            continue;
        for (const auto& [key, text] : *entries) {
            std::wstring folded = key;
            CharLowerBuffW(folded.data(), static_cast<DWORD>(folded.size()));
            if (!done.insert(folded).second)
                continue; // the first file's text wins
            if (_wcsicmp(key.c_str(), L"Caption") == 0) {
                CWnd(dialog).SetWindowTextIfChanged(text);
                continue;
            }
            wchar_t* end = nullptr;
            const long id = std::wcstol(key.c_str(), &end, 10);
            if (end && *end == L'\0' && end != key.c_str())
                if (HWND item = GetDlgItem(dialog, static_cast<int>(id)))
                    CWnd(item).SetWindowTextIfChanged(text);
        }
    }
}
