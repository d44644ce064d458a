// Which language file pair the host's language index selects, and where those files lie: the
// host suite keeps them in "Language\Hw\Regvane\" two levels above its executable.
#pragma once

#include <string>
#include <string_view>

struct LanguageFileNames {
    const wchar_t* primary;
    const wchar_t* fallback; // empty for Russian: that language has no fallback file
};

LanguageFileNames LanguageFilesForIndex(int index);

// The folder of an executable path, up to and including its last backslash.
std::wstring_view ExecutableFolder(std::wstring_view executablePath);
// executable folder + "..\..\Language\Hw\Regvane\" + file name.
std::wstring LanguageFilePath(std::wstring_view executablePath, std::wstring_view fileName);

struct LanguagePaths {
    std::wstring primary;
    std::wstring fallback;
};
LanguagePaths LanguagePathsFor(std::wstring_view executablePath, int index);

inline constexpr int kLanguageCount = 13;
// The host's own name of a language index, as its language menu shows it (1..13).
const wchar_t* LanguageDisplayName(int index);
