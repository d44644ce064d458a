// A [page] line with a problem: the key it stands for is taken as absent, and only a key that fields
// are placed or checked by stops the checks after the reading.
#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>

namespace chipdesc::detail {

namespace {

// Each field's place depends on the colours and the stride, a linked one on the link; a missing class
// and the sections of version 2 would be told for what the broken line may have said.
constexpr std::string_view kKeysFieldsDependOn[] = {"class", "format-version", "colours", "stride", "link"};

// Letters changed, added, dropped or swapped with the next one.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i)
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                d[i][j] = i + j;
                continue;
            }
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    return d[a.size()][b.size()];
}

} // namespace

bool ReadPageKey(const Key& key, KeyValue& value) {
    Page before = value.page;
    if (key.read(value))
        return true;
    value.page = std::move(before); // a value read in part
    return false;
}

// The line's key is its leading name, even where the line is no "key = value"; a name the page does
// not take stands for each key it is a slip of the pen from.
void Parser::RefusePageLine(std::string_view line) {
    line = Trim(line);
    std::size_t length = 0;
    while (length < line.size() && IsName(line.substr(length, 1)))
        ++length;
    const std::string_view word = line.substr(0, length);
    constexpr std::size_t kSlips = 2;
    for (const Key& key : DescriptionKeys()) {
        if (key.section != Section::Page || word.empty() || word.size() > key.name.size() + kSlips ||
            Distance(word, key.name) > kSlips)
            continue;
        m_refusedPageKeys.emplace(key.name);
        const auto* end = std::end(kKeysFieldsDependOn);
        m_page.broken = m_page.broken || std::find(std::begin(kKeysFieldsDependOn), end, key.name) != end;
    }
}

} // namespace chipdesc::detail
