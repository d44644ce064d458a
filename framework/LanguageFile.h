// One language file: INI text in UTF-16LE (BOM), UTF-8 (BOM) or UTF-8. Section [String] maps string
// ids to texts; a section named by a dialog template number maps "Caption" and control ids to the
// texts of that dialog. ";" starts a comment line, "\n" in a value is a line break. Section and key
// names compare without regard to ASCII case, as Windows profile files do; the first of two equal
// keys wins.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

class LanguageFile {
public:
    // A missing or unreadable file leaves the table empty; that is not an error for the caller.
    bool Load(const std::wstring& path);
    void Parse(std::wstring_view text);
    void Clear() { m_sections.clear(); }

    const std::wstring* Find(std::wstring_view section, std::wstring_view key) const;
    // Keys and values of one section in file order.
    const std::vector<std::pair<std::wstring, std::wstring>>* Section(std::wstring_view section) const;
    bool Empty() const { return m_sections.empty(); }

private:
    struct SectionEntries {
        std::vector<std::pair<std::wstring, std::wstring>> entries;
        std::map<std::wstring, std::size_t, std::less<>> indexByFoldedKey;
    };
    std::map<std::wstring, SectionEntries, std::less<>> m_sections;
};

// Language files are small; anything much larger is not one and is not read.
inline constexpr std::size_t kMaxLanguageFileBytes = 16 * 1024 * 1024;
