#include "framework/Translate.h"

void CTranslate::SetLangPath(const std::wstring& primaryPath, const std::wstring& fallbackPath) {
    m_primaryPath = primaryPath;
    m_fallbackPath = fallbackPath;
    m_primary.Load(primaryPath);
    m_fallback.Load(fallbackPath);
}

const std::wstring* CTranslate::Lookup(std::wstring_view section, std::wstring_view key) const {
    if (const std::wstring* text = m_primary.Find(section, key))
        return text;
    if (const std::wstring* text = m_fallback.Find(section, key))
        return text;
    return m_builtin ? m_builtin->Find(section, key) : nullptr;
}

std::wstring CTranslate::TranslateString(std::wstring_view id) const {
    const std::wstring* text = Lookup(kStringSection, id);
    return text ? *text : std::wstring(id);
}
