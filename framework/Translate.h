// The module-wide translator: a primary language file, a fallback, and the texts the module carries
// itself. A text comes from the primary file, else the fallback, else the module's own, else the id
// itself, so a missing, broken or older file never stops a dialog. Translations are plain text, never
// format strings.
#pragma once

#include "framework/LanguageFile.h"

#include <string>
#include <string_view>

struct HWND__; // the Win32 window handle type, without pulling in <windows.h>

class CTranslate {
public:
    void SetLangPath(const std::wstring& primaryPath, const std::wstring& fallbackPath);
    // Asked after both files; it must outlive the translator.
    void SetBuiltin(const LanguageFile* builtin) { m_builtin = builtin; }
    const std::wstring& PrimaryPath() const { return m_primaryPath; }
    const std::wstring& FallbackPath() const { return m_fallbackPath; }

    std::wstring TranslateString(std::wstring_view id) const;
    // The text of one key of one section, primary first; null when no file has it.
    const std::wstring* Lookup(std::wstring_view section, std::wstring_view key) const;

    // Sets the caption ("Caption") and the texts of the controls (keys are control ids) that the
    // files have for the dialog; no section means the template number's section. Windows only.
    void TranslateDialog(HWND__* dialog, unsigned templateId, const wchar_t* section = nullptr) const;

    static constexpr wchar_t kStringSection[] = L"String";

private:
    std::wstring m_primaryPath;
    std::wstring m_fallbackPath;
    LanguageFile m_primary;
    LanguageFile m_fallback;
    const LanguageFile* m_builtin = nullptr;
};
