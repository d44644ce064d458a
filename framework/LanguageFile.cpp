#include "framework/LanguageFile.h"

#include "framework/StdioFileEx.h"

namespace {

std::wstring FoldCase(std::wstring_view s) {
    std::wstring out(s);
    for (auto& c : out)
        if (c >= L'A' && c <= L'Z')
            c = static_cast<wchar_t>(c - L'A' + L'a');
    return out;
}

std::wstring_view Trim(std::wstring_view s) {
    const auto isSpace = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == 0xFEFF; };
    while (!s.empty() && isSpace(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isSpace(s.back()))
        s.remove_suffix(1);
    return s;
}

std::wstring Unescape(std::wstring_view value) {
    std::wstring out;
    out.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == L'\\' && i + 1 < value.size() && value[i + 1] == L'n') {
            out.push_back(L'\n');
            ++i;
        } else {
            out.push_back(value[i]);
        }
    }
    return out;
}

} // namespace

bool LanguageFile::Load(const std::wstring& path) {
    Clear();
    std::FILE* file = OpenFileWide(path, L"rb");
    if (!file)
        return false;
    std::string bytes;
    char buffer[64 * 1024];
    std::size_t got = 0;
    while (bytes.size() < kMaxLanguageFileBytes && (got = std::fread(buffer, 1, sizeof buffer, file)) > 0)
        bytes.append(buffer, got);
    std::fclose(file);
    Parse(DecodeText(bytes));
    return !Empty();
}

void LanguageFile::Parse(std::wstring_view text) {
    SectionEntries* current = nullptr;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(L'\n', start);
        if (end == std::wstring_view::npos)
            end = text.size();
        const std::wstring_view line = Trim(text.substr(start, end - start));
        start = end + 1;
        if (line.empty() || line.front() == L';')
            continue;
        if (line.front() == L'[') {
            const std::size_t close = line.find(L']');
            if (close == std::wstring_view::npos) {
                current = nullptr; // keys under a broken header belong to no section
                continue;
            }
            current = &m_sections[FoldCase(Trim(line.substr(1, close - 1)))];
            continue;
        }
        const std::size_t eq = line.find(L'=');
        if (!current || eq == std::wstring_view::npos)
            continue;
        std::wstring key(Trim(line.substr(0, eq)));
        std::wstring_view value = Trim(line.substr(eq + 1));
        if (value.size() >= 2 && value.front() == L'"' && value.back() == L'"')
            value = value.substr(1, value.size() - 2);
        if (key.empty())
            continue;
        if (current->indexByFoldedKey.emplace(FoldCase(key), current->entries.size()).second)
            current->entries.emplace_back(std::move(key), Unescape(value));
    }
}

const std::vector<std::pair<std::wstring, std::wstring>>*
LanguageFile::Section(std::wstring_view section) const {
    const auto it = m_sections.find(FoldCase(section));
    return it == m_sections.end() ? nullptr : &it->second.entries;
}

const std::wstring* LanguageFile::Find(std::wstring_view section, std::wstring_view key) const {
    const auto it = m_sections.find(FoldCase(section));
    if (it == m_sections.end())
        return nullptr;
    const auto found = it->second.indexByFoldedKey.find(FoldCase(key));
    return found == it->second.indexByFoldedKey.end() ? nullptr : &it->second.entries[found->second].second;
}
