// Reading a description's lines: sections, keys through the key table, and the refusals of text that
// is no description at all.
#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>
#include <optional>

namespace chipdesc {

namespace detail {

namespace {

// A trailing comment starts with '#' after a blank, outside quotes.
std::string_view StripTrailingComment(std::string_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else if (line[i] == '#' && !quoted && (i == 0 || IsSpace(line[i - 1])))
            return line.substr(0, i);
    }
    return line;
}

// Where the first byte that is not UTF-8 text is: a control character other than tab, CR and LF, or
// a malformed sequence.
std::size_t FirstNonText(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            if (c < 0x20 && c != '\t' && c != '\r' && c != '\n')
                return i;
            if (c == 0x7F)
                return i;
            ++i;
            continue;
        }
        int length = 0;
        if ((c & 0xE0) == 0xC0 && c >= 0xC2)
            length = 2;
        else if ((c & 0xF0) == 0xE0)
            length = 3;
        else if ((c & 0xF8) == 0xF0 && c <= 0xF4)
            length = 4;
        else
            return i;
        if (i + length > text.size())
            return i;
        for (int k = 1; k < length; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80)
                return i;
        i += length;
    }
    return std::string_view::npos;
}

// The format version a "format-version = N" line states.
std::optional<int> StatedVersion(std::string_view line) {
    line = Trim(StripTrailingComment(Trim(line)));
    const std::size_t equals = line.find('=');
    int version = 0;
    if (equals == std::string_view::npos || Trim(line.substr(0, equals)) != "format-version" ||
        !ParseInt(Trim(line.substr(equals + 1)), version))
        return std::nullopt;
    return version;
}

int LineOfOffset(std::string_view text, std::size_t offset) {
    return 1 + static_cast<int>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

// "[field gain]" is the field section named gain: the name after the keyword and a blank.
std::optional<std::string_view> NamedHeader(std::string_view header, std::string_view keyword) {
    if (header.size() <= keyword.size() || header.substr(0, keyword.size()) != keyword ||
        (header[keyword.size()] != ' ' && header[keyword.size()] != '\t'))
        return std::nullopt;
    return Trim(header.substr(keyword.size() + 1));
}

} // namespace

ParseResult Parser::Run(std::string_view text) {
    if (ReadText(text))
        Finish();
    std::vector<Problem>& list = m_problems.list;
    if (list.empty())
        return std::move(m_description);
    // The checks of the whole find theirs after every line is read.
    std::stable_sort(list.begin(), list.end(), [](const Problem& a, const Problem& b) {
        return std::pair{a.line, a.column} < std::pair{b.line, b.column};
    });
    ParseError error{list.front(), {}};
    error.more.assign(list.begin() + 1, list.end());
    return error;
}

// Every problem is told once, and nothing that only follows from it: an element (the page, a field, a
// grid, a button, a rule, a register text or table) with a problem in its lines or in its own checks
// is neither finished further nor checked against the others. Another element may name it without
// an unknown name being reported, and the checks that need every field sound (a Default button's
// defaults, the records the page reads) wait until they are. A [page] with a problem stops every
// check after the reading: each field's place depends on its colours and stride.
void Parser::Finish() {
    if (m_page.broken || !CheckSections() || !ResolveCopies())
        return;
    CheckColours();
    AssignGridColumns();
    for (FieldDraft& draft : m_drafts)
        draft.broken = draft.broken || !FinishField(draft);
    ExpandGrids();
    ConnectFields();
    ConnectFormulas();
    CheckPageKeys();
    CheckOverlaps();
    CheckIds();
    for (FieldDraft& draft : m_drafts)
        m_description.fields.push_back(std::move(draft.field));
    CheckRefreshReads();
    FinishButtons();
    FinishRules();
    CompleteChangeTest();
    FinishSectionsOfVersion2();
}

bool* Parser::BrokenOfSection() {
    if (!m_section)
        return nullptr;
    switch (*m_section) {
    case Section::Page:
        return &m_page.broken;
    case Section::Field:
        return &m_drafts.back().broken;
    case Section::Button:
        return &m_buttons.back().broken;
    case Section::Grid:
        return &m_grids.back().broken;
    case Section::Rule:
        return &m_rules.back().broken;
    case Section::RegisterText:
        return &m_textDraft.broken;
    case Section::Table:
        return &m_tableDrafts.back().broken;
    }
    return nullptr;
}

bool Parser::AnyFieldBroken() const {
    return std::any_of(m_drafts.begin(), m_drafts.end(), [](const FieldDraft& d) { return d.broken; });
}

bool Parser::ReadText(std::string_view text) {
    if (text.size() > kMaxDescriptionBytes)
        return Fail(1, ErrorCode::TooLarge, std::to_string(text.size()));
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    if (const std::size_t bad = FirstNonText(text); bad != std::string_view::npos)
        return Fail(LineOfOffset(text, bad), ErrorCode::NotText, "");
    int number = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        ++number;
        start = end + 1;
        // A newer file is refused for that alone, wherever it says so: its newer keys and values
        // would otherwise read as mistakes.
        if (const auto version = StatedVersion(line); version && *version > kFormatVersion) {
            m_problems = {};
            return Fail(number, ErrorCode::NewerFormat, std::to_string(*version));
        }
        // A line with a problem is skipped, and what its section says is not checked any further.
        const int before = m_problems.count;
        if (line.size() > kMaxLineChars)
            Fail(number, ErrorCode::LineTooLong, std::to_string(line.size()));
        else
            Line(number, line);
        if (bool* broken = BrokenOfSection(); broken && m_problems.count > before)
            *broken = true;
    }
    m_lastLine = std::max(1, number);
    return true;
}

bool Parser::Line(int number, std::string_view line) {
    m_line = line;
    line = Trim(line);
    if (line.empty() || line.front() == '#' || line.front() == ';')
        return true;
    line = Trim(StripTrailingComment(line));
    if (line.empty())
        return true;
    if (line.front() == '[') {
        // The lines of a section whose header is refused are skipped: read into no section or into
        // the one before, they would only give problems of their own.
        m_section.reset();
        m_skipping = true;
        if (line.back() != ']')
            return Fail(number, ErrorCode::Syntax, line);
        m_skipping = !Header(number, Trim(line.substr(1, line.size() - 2)));
        return !m_skipping;
    }
    if (m_skipping)
        return true;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return Fail(number, ErrorCode::Syntax, line);
    const std::string_view key = Trim(line.substr(0, equals));
    const std::string_view value = Trim(line.substr(equals + 1));
    const int keyColumn = ColumnIn(m_line, key);
    if (!IsName(key))
        return Fail(number, ErrorCode::Syntax, line, keyColumn);
    if (value.empty())
        return Fail(number, ErrorCode::BadValue, key, keyColumn);
    if (!m_section)
        return Fail(number, ErrorCode::Syntax, line, keyColumn);
    auto& keyLines = *m_section == Section::Page     ? m_page.keyLines
                     : *m_section == Section::Field  ? m_drafts.back().keyLines
                     : *m_section == Section::Button ? m_buttons.back().keyLines
                     : *m_section == Section::Grid   ? m_grids.back().keyLines
                     : *m_section == Section::Rule   ? m_rules.back().keyLines
                                                     : SectionKeyLines();
    if (keyLines.count(key))
        return Fail(number, ErrorCode::DuplicateKey, key, keyColumn);
    keyLines.emplace(std::string(key), number);
    FieldDraft* draft = *m_section == Section::Field ? &m_drafts.back() : nullptr;
    const int column = static_cast<int>(value.data() - m_line.data()) + 1;
    if (draft)
        draft->keys.push_back({key, value, number, column});
    return KeyLine(number, column, *m_section, key, value, draft);
}

bool Parser::Header(int number, std::string_view name) {
    if (name == "page") {
        if (m_havePage)
            return Fail(number, ErrorCode::DuplicateKey, "[page]");
        m_havePage = true;
        m_page.line = number;
        m_section = Section::Page;
        return true;
    }
    if (const auto fieldName = NamedHeader(name, "field")) {
        if (!IsName(*fieldName))
            return Fail(number, ErrorCode::BadValue, *fieldName);
        for (const FieldDraft& draft : m_drafts)
            if (draft.field.name == *fieldName)
                return Fail(number, ErrorCode::DuplicateName, *fieldName);
        FieldDraft draft;
        draft.field.name = std::string(*fieldName);
        draft.field.line = number;
        m_drafts.push_back(std::move(draft));
        m_section = Section::Field;
        return true;
    }
    if (const auto buttonName = NamedHeader(name, "button"))
        return ButtonHeader(number, *buttonName);
    if (const auto gridName = NamedHeader(name, "grid"))
        return GridHeader(number, *gridName);
    if (const auto ruleName = NamedHeader(name, "rule"))
        return RuleHeader(number, *ruleName);
    if (IsSectionOfVersion2(name))
        return SectionHeader(number, name);
    return Fail(number, ErrorCode::UnknownSection, name);
}

bool Parser::KeyLine(int number, int column, Section section, std::string_view key, std::string_view value,
                     FieldDraft* draft) {
    KeyValue keyValue{number, value, {}, m_description.page, draft, m_known, m_problems, column};
    if (section == Section::Button)
        keyValue.button = &m_buttons.back();
    if (section == Section::Grid)
        keyValue.grid = &m_grids.back();
    if (section == Section::Rule)
        keyValue.rule = &m_rules.back();
    if (!SplitWords(value, keyValue.words))
        return Fail(number, ErrorCode::BadValue, value);
    const Key* found = FindKey(section, key);
    if (!found)
        return Fail(number, ErrorCode::UnknownKey, key, ColumnIn(m_line, key));
    return found->read(keyValue);
}

} // namespace detail

ParseResult Parse(std::string_view text, const KnownStringId& known) {
    return detail::Parser(known).Run(text);
}

} // namespace chipdesc
