#include "module/LanguageSelection.h"

namespace {

struct LanguageRow {
    const wchar_t* primary;
    const wchar_t* fallback;
    const wchar_t* displayName;
};

// Indexed by language index - 1. Index 13 reuses the Polish file and Russian keeps an empty
// fallback: both are how the host suite ships its languages.
constexpr LanguageRow kLanguages[kLanguageCount] = {
    {L"Multi_chi.ini", L"Multi_chi.ini", L"\u7b80\u4f53\u4e2d\u6587"},
    {L"Multi_chi_fanti.ini", L"Multi_chi.ini", L"\u7e41\u9ad4\u4e2d\u6587"},
    {L"Multi_eng.ini", L"Multi_eng.ini", L"English"},
    {L"Multi_French.ini", L"Multi_eng.ini", L"Fran\u00e7ais"},
    {L"Multi_Japanese.ini", L"Multi_eng.ini", L"\u65e5\u672c\u8a9e"},
    {L"Multi_Korean.ini", L"Multi_eng.ini", L"\ud55c\uad6d\uc5b4"},
    {L"Multi_Russian.ini", L"", L"\u0420\u0443\u0441\u0441\u043a\u0438\u0439"},
    {L"Multi_Thai.ini", L"Multi_eng.ini", L"\u0e44\u0e17\u0e22"},
    {L"Multi_Spanish.ini", L"Multi_eng.ini", L"Espa\u00f1ol"},
    {L"Multi_Polish.ini", L"Multi_eng.ini", L"Polski"},
    {L"Multi_Swedish.ini", L"Multi_eng.ini", L"Svenska"},
    {L"Multi_Portuguese.ini", L"Multi_eng.ini", L"Portugu\u00eas"},
    {L"Multi_Polish.ini", L"Multi_eng.ini", L"Polski (2)"},
};

constexpr LanguageFileNames kEnglish = {L"Multi_eng.ini", L"Multi_eng.ini"};

} // namespace

LanguageFileNames LanguageFilesForIndex(int index) {
    // One unsigned comparison covers 0, negatives and everything above 13.
    const unsigned slot = static_cast<unsigned>(index) - 1u;
    if (slot >= static_cast<unsigned>(kLanguageCount))
        return kEnglish;
    return {kLanguages[slot].primary, kLanguages[slot].fallback};
}

const wchar_t* LanguageDisplayName(int index) {
    const unsigned slot = static_cast<unsigned>(index) - 1u;
    return slot < static_cast<unsigned>(kLanguageCount) ? kLanguages[slot].displayName : L"English";
}

std::wstring_view ExecutableFolder(std::wstring_view executablePath) {
    const std::size_t slash = executablePath.find_last_of(L'\\');
    return slash == std::wstring_view::npos ? std::wstring_view() : executablePath.substr(0, slash + 1);
}

std::wstring LanguageFilePath(std::wstring_view executablePath, std::wstring_view fileName) {
    std::wstring path(ExecutableFolder(executablePath));
    path += L"..\\..\\Language\\Hw\\Regvane\\";
    path += fileName;
    return path;
}

LanguagePaths LanguagePathsFor(std::wstring_view executablePath, int index) {
    const LanguageFileNames names = LanguageFilesForIndex(index);
    return {LanguageFilePath(executablePath, names.primary),
            LanguageFilePath(executablePath, names.fallback)};
}
