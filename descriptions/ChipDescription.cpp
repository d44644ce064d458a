#include "descriptions/ChipDescription.h"

#include "descriptions/DescriptionReadouts.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace chipdesc {

namespace {

struct SourceInfo {
    Source source;
    std::string_view name;
    std::size_t bytes;
};
// Sizes are the host's buffer sizes of each get/set pair.
constexpr std::array<SourceInfo, kSourceCount> kSources{{
    {Source::Block, "block", 16},
    {Source::RecordA, "record-a", 16},
    {Source::RecordB, "record-b", 16},
    {Source::Large, "large", 128},
    {Source::Record20, "record20", 20},
    {Source::SliderValue, "slider-value", 0},
}};

constexpr int kMaxFieldBits = 16;

std::optional<Source> SourceNamed(std::string_view name) {
    for (const SourceInfo& info : kSources)
        if (info.name == name)
            return info.source;
    return std::nullopt;
}

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// Decimal, or hexadecimal after 0x; an optional minus sign.
bool ParseInt(std::string_view text, int& value) {
    bool negative = false;
    if (!text.empty() && text.front() == '-') {
        negative = true;
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    if (text.empty())
        return false;
    long long parsed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed, base);
    if (error != std::errc() || end != text.data() + text.size() || parsed > 0xFFFFFF)
        return false;
    value = static_cast<int>(negative ? -parsed : parsed);
    return true;
}

bool ParseStep(std::string_view text, double& value) {
    // A step is a small positive decimal: digits, at most one point.
    int whole = 0;
    const std::size_t point = text.find('.');
    if (!ParseInt(text.substr(0, point), whole) || whole < 0)
        return false;
    double fraction = 0;
    if (point != std::string_view::npos) {
        std::string_view decimals = text.substr(point + 1);
        if (decimals.empty() || decimals.size() > 6)
            return false;
        double scale = 0.1;
        for (const char c : decimals) {
            if (c < '0' || c > '9')
                return false;
            fraction += (c - '0') * scale;
            scale /= 10;
        }
    }
    value = whole + fraction;
    return value > 0;
}

bool IsNameChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

bool IsName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsNameChar);
}

// Words separated by blanks; a "quoted text" is one word, kept with its quotes.
bool SplitWords(std::string_view text, std::vector<std::string_view>& words) {
    words.clear();
    std::size_t i = 0;
    while (i < text.size()) {
        if (IsSpace(text[i])) {
            ++i;
            continue;
        }
        const std::size_t start = i;
        if (text[i] == '"') {
            const std::size_t close = text.find('"', i + 1);
            if (close == std::string_view::npos)
                return false;
            i = close + 1;
            if (i < text.size() && !IsSpace(text[i]))
                return false;
        } else {
            while (i < text.size() && !IsSpace(text[i]))
                ++i;
        }
        words.push_back(text.substr(start, i - start));
    }
    return true;
}

bool IsQuoted(std::string_view word) {
    return word.size() >= 2 && word.front() == '"' && word.back() == '"';
}

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

// The id lists of a current read-out, each with the key that gives it.
std::array<std::pair<const char*, const std::vector<int>*>, 3> CurrentIdLists(const Field& field) {
    return {{{"reference-ids", &field.referenceIds},
             {"fraction-ids", &field.fractionIds},
             {"current-ids", &field.currentIds}}};
}

int LineOfOffset(std::string_view text, std::size_t offset) {
    return 1 + static_cast<int>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

// One colour alternative of a bits value: "2[7:3]", "9[1:0] 3[0]", "79[5:0]=85[5:0] 73[0]=73[1]".
bool ParseCopy(std::string_view text, BitCopy& copy, int& width) {
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos || text.back() != ']')
        return false;
    int byte = 0;
    if (!ParseInt(text.substr(0, open), byte) || byte < 0 || byte > 0xFFFF)
        return false;
    const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
    const std::size_t colon = inside.find(':');
    int msb = 0;
    int lsb = 0;
    if (!ParseInt(inside.substr(0, colon), msb))
        return false;
    lsb = msb;
    if (colon != std::string_view::npos && !ParseInt(inside.substr(colon + 1), lsb))
        return false;
    if (lsb < 0 || msb > 7 || msb < lsb)
        return false;
    copy = {static_cast<std::uint16_t>(byte), static_cast<std::uint8_t>(lsb)};
    width = msb - lsb + 1;
    return true;
}

bool ParsePosition(std::string_view text, Position& position) {
    std::vector<std::string_view> runs;
    if (!SplitWords(text, runs) || runs.empty())
        return false;
    for (std::string_view runText : runs) {
        BitRun run;
        while (true) {
            const std::size_t equals = runText.find('=');
            BitCopy copy;
            int width = 0;
            if (!ParseCopy(runText.substr(0, equals), copy, width))
                return false;
            if (run.copies.empty())
                run.width = static_cast<std::uint8_t>(width);
            else if (run.width != width)
                return false;
            run.copies.push_back(copy);
            if (equals == std::string_view::npos)
                break;
            runText.remove_prefix(equals + 1);
        }
        position.runs.push_back(std::move(run));
    }
    return true;
}

// What a field's keys said, with the line of each key, until the whole file is read.
struct FieldDraft {
    Field field;
    std::map<std::string, int, std::less<>> keyLines;
    std::vector<Position> alternatives; // from bits: one, or one per colour
    int fieldStride = -1;
    std::string showIfName;

    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : field.line;
    }
    bool Has(std::string_view key) const { return keyLines.find(key) != keyLines.end(); }
};

struct PageDraft {
    int line = 0;
    std::map<std::string, int, std::less<>> keyLines;
    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : line;
    }
};

class Parser {
public:
    explicit Parser(const KnownStringId& known) : m_known(known) {}

    ParseResult Run(std::string_view text);

private:
    bool Fail(int line, ErrorCode code, std::string_view detail) {
        if (!m_error)
            m_error = ParseError{line, code, std::string(detail)};
        return false;
    }
    bool Known(int line, std::string_view id) {
        if (m_known && !m_known(id))
            return Fail(line, ErrorCode::UnknownStringId, id);
        return true;
    }
    bool StringId(int line, std::string_view value, std::string& out) {
        if (!IsName(value))
            return Fail(line, ErrorCode::BadValue, value);
        out = std::string(value);
        return Known(line, value);
    }
    // A string id, or a "quoted text" shown as written (for drafts: what we ship is translated).
    bool Text(int line, std::string_view value, Item& out) {
        if (IsQuoted(value)) {
            out = {std::string(value.substr(1, value.size() - 2)), true};
            return !out.text.empty() || Fail(line, ErrorCode::BadValue, value);
        }
        out.literal = false;
        return StringId(line, value, out.text);
    }
    bool Id(int line, std::string_view value, int& out) {
        if (!ParseInt(value, out) || out < 1 || out > 0xFFFF)
            return Fail(line, ErrorCode::BadValue, value);
        return true;
    }
    bool Ids(int line, std::string_view value, std::vector<int>& out) {
        std::vector<std::string_view> words;
        SplitWords(value, words);
        if (words.empty())
            return Fail(line, ErrorCode::BadValue, value);
        for (std::string_view word : words) {
            int id = 0;
            if (!Id(line, word, id))
                return false;
            out.push_back(id);
        }
        return true;
    }
    bool YesNo(int line, std::string_view value, bool& out) {
        if (value != "yes" && value != "no")
            return Fail(line, ErrorCode::BadValue, value);
        out = value == "yes";
        return true;
    }
    bool Sources(int line, std::string_view value, bool hostValuesToo, std::vector<Source>& out) {
        std::vector<std::string_view> words;
        SplitWords(value, words);
        out.clear();
        for (std::string_view word : words) {
            const auto source = SourceNamed(word);
            if (!source || (!hostValuesToo && IsHostValue(*source)) ||
                std::find(out.begin(), out.end(), *source) != out.end())
                return Fail(line, ErrorCode::BadValue, word);
            out.push_back(*source);
        }
        return true;
    }

    // The name of one of the module's read-out routines.
    bool Routine(int line, std::string_view value, bool (*known)(std::string_view), std::string& out) {
        if (!known(value))
            return Fail(line, ErrorCode::BadValue, value);
        out = std::string(value);
        return true;
    }

    bool Line(int number, std::string_view line);
    bool Header(int number, std::string_view name);
    bool PageKey(int number, std::string_view key, std::string_view value);
    bool FieldKey(int number, std::string_view key, std::string_view value);
    bool FinishField(FieldDraft& draft);
    bool CheckOverlaps();
    bool CheckIds();

    const KnownStringId& m_known;
    std::optional<ParseError> m_error;
    Description m_description;
    enum class Section { None, Page, Field } m_section = Section::None;
    bool m_havePage = false;
    PageDraft m_page;
    std::vector<FieldDraft> m_drafts;
    int m_lastLine = 1;
};

ParseResult Parser::Run(std::string_view text) {
    if (text.size() > kMaxDescriptionBytes) {
        Fail(1, ErrorCode::TooLarge, std::to_string(text.size()));
        return *m_error;
    }
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    if (const std::size_t bad = FirstNonText(text); bad != std::string_view::npos) {
        Fail(LineOfOffset(text, bad), ErrorCode::NotText, "");
        return *m_error;
    }
    int number = 0;
    std::size_t start = 0;
    while (start < text.size() && !m_error) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        ++number;
        if (line.size() > kMaxLineChars) {
            Fail(number, ErrorCode::LineTooLong, std::to_string(line.size()));
            break;
        }
        Line(number, line);
        start = end + 1;
    }
    m_lastLine = std::max(1, number);
    if (m_error)
        return *m_error;

    if (!m_havePage || m_drafts.empty()) {
        Fail(m_lastLine, ErrorCode::NoFields, "");
        return *m_error;
    }
    Page& page = m_description.page;
    if (page.className.empty()) {
        Fail(m_page.line, ErrorCode::MissingKey, "class");
        return *m_error;
    }
    for (FieldDraft& draft : m_drafts)
        if (!FinishField(draft))
            return *m_error;
    for (std::size_t i = 0; i < m_drafts.size(); ++i) {
        FieldDraft& draft = m_drafts[i];
        if (!draft.showIfName.empty()) {
            const auto found = std::find_if(m_drafts.begin(), m_drafts.end(), [&](const FieldDraft& d) {
                return d.field.name == draft.showIfName;
            });
            if (found == m_drafts.end() || found == m_drafts.begin() + static_cast<std::ptrdiff_t>(i)) {
                Fail(draft.LineOf("show-if"), ErrorCode::UnknownField, draft.showIfName);
                return *m_error;
            }
            draft.field.showIf = static_cast<int>(found - m_drafts.begin());
        }
        if (draft.field.colours == Colours::Linked && page.link.empty()) {
            Fail(draft.LineOf("colours"), ErrorCode::MissingKey, "link");
            return *m_error;
        }
    }
    if (page.defaultButton && std::none_of(m_drafts.begin(), m_drafts.end(),
                                           [](const FieldDraft& d) { return d.field.defaultValue; })) {
        Fail(m_page.LineOf("buttons"), ErrorCode::MissingKey, "default");
        return *m_error;
    }
    if (std::count_if(m_drafts.begin(), m_drafts.end(),
                      [](const FieldDraft& d) { return d.Has("current"); }) > 1) {
        const auto second = std::find_if(m_drafts.rbegin(), m_drafts.rend(),
                                         [](const FieldDraft& d) { return d.Has("current"); });
        Fail(second->LineOf("current"), ErrorCode::DuplicateKey, "current");
        return *m_error;
    }
    if (page.defaultId && !page.defaultButton) {
        Fail(m_page.LineOf("default-id"), ErrorCode::MissingKey, "buttons");
        return *m_error;
    }
    if (!CheckOverlaps() || !CheckIds())
        return *m_error;
    for (FieldDraft& draft : m_drafts)
        m_description.fields.push_back(std::move(draft.field));
    // A fill from the chip must read every record a field shows.
    for (const Source source : m_description.RecordsInUse())
        if (!page.refreshReads.empty() && std::find(page.refreshReads.begin(), page.refreshReads.end(),
                                                    source) == page.refreshReads.end()) {
            Fail(m_page.LineOf("refresh-reads"), ErrorCode::MissingKey, std::string(SourceName(source)));
            return *m_error;
        }
    // Unless the page says otherwise, the change test covers the skeleton's two records and every
    // other record a field writes.
    if (!m_page.keyLines.count("change-test"))
        for (const Source source : m_description.RecordsInUse())
            if (std::find(page.changeTest.begin(), page.changeTest.end(), source) == page.changeTest.end())
                page.changeTest.push_back(source);
    return std::move(m_description);
}

bool Parser::Line(int number, std::string_view line) {
    line = Trim(line);
    if (line.empty() || line.front() == '#' || line.front() == ';')
        return true;
    line = Trim(StripTrailingComment(line));
    if (line.empty())
        return true;
    if (line.front() == '[') {
        if (line.back() != ']')
            return Fail(number, ErrorCode::Syntax, line);
        return Header(number, Trim(line.substr(1, line.size() - 2)));
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return Fail(number, ErrorCode::Syntax, line);
    const std::string_view key = Trim(line.substr(0, equals));
    const std::string_view value = Trim(line.substr(equals + 1));
    if (!IsName(key))
        return Fail(number, ErrorCode::Syntax, line);
    if (value.empty())
        return Fail(number, ErrorCode::BadValue, key);
    switch (m_section) {
    case Section::Page:
        if (m_page.keyLines.count(key))
            return Fail(number, ErrorCode::DuplicateKey, key);
        m_page.keyLines.emplace(std::string(key), number);
        return PageKey(number, key, value);
    case Section::Field: {
        FieldDraft& draft = m_drafts.back();
        if (draft.keyLines.count(key))
            return Fail(number, ErrorCode::DuplicateKey, key);
        draft.keyLines.emplace(std::string(key), number);
        return FieldKey(number, key, value);
    }
    case Section::None:
        break;
    }
    return Fail(number, ErrorCode::Syntax, line);
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
    if (name.substr(0, 6) == "field " || name.substr(0, 6) == "field\t") {
        const std::string_view fieldName = Trim(name.substr(6));
        if (!IsName(fieldName))
            return Fail(number, ErrorCode::BadValue, fieldName);
        for (const FieldDraft& draft : m_drafts)
            if (draft.field.name == fieldName)
                return Fail(number, ErrorCode::DuplicateName, fieldName);
        FieldDraft draft;
        draft.field.name = std::string(fieldName);
        draft.field.line = number;
        m_drafts.push_back(std::move(draft));
        m_section = Section::Field;
        return true;
    }
    return Fail(number, ErrorCode::UnknownSection, name);
}

bool Parser::PageKey(int number, std::string_view key, std::string_view value) {
    Page& page = m_description.page;
    std::vector<std::string_view> words;
    if (!SplitWords(value, words))
        return Fail(number, ErrorCode::BadValue, value);
    if (key == "class") {
        if (words.size() != 1 || !IsName(value) || value.find('-') != std::string_view::npos)
            return Fail(number, ErrorCode::BadValue, value);
        page.className = std::string(value);
        return true;
    }
    if (key == "title") {
        if (words.size() == 1 && words[0] == "caption") {
            page.title = Title::Caption;
            return true;
        }
        if (words.size() == 2 && words[0] == "model") {
            page.title = Title::Model;
            return StringId(number, words[1], page.titleString);
        }
        return Fail(number, ErrorCode::BadValue, value);
    }
    if (key == "colour-labels") {
        if (words.size() != kColourCount)
            return Fail(number, ErrorCode::BadValue, value);
        for (int colour = 0; colour < kColourCount; ++colour)
            if (!StringId(number, words[colour], page.colourLabels[colour]))
                return false;
        return true;
    }
    if (key == "stride") {
        if (!ParseInt(value, page.stride) || page.stride < 1 || page.stride > 64)
            return Fail(number, ErrorCode::BadValue, value);
        return true;
    }
    if (key == "link")
        return StringId(number, value, page.link);
    if (key == "link-id")
        return Id(number, value, page.linkId);
    if (key == "change-test")
        return Sources(number, value, true, page.changeTest) &&
               (!page.changeTest.empty() || Fail(number, ErrorCode::BadValue, value));
    if (key == "carry")
        return Sources(number, value, false, page.carry);
    if (key == "notice") {
        if (value != "always" && value != "either")
            return Fail(number, ErrorCode::BadValue, value);
        page.notice = value == "always" ? Notice::Always : Notice::Either;
        return true;
    }
    if (key == "refresh-after-change")
        return YesNo(number, value, page.refreshAfterChange);
    if (key == "refresh-reads")
        return Sources(number, value, false, page.refreshReads) &&
               (!page.refreshReads.empty() || Fail(number, ErrorCode::BadValue, value));
    if (key == "default-id")
        return Id(number, value, page.defaultId);
    if (key == "switches") {
        if (value != "class" && value != "page")
            return Fail(number, ErrorCode::BadValue, value);
        page.switchesPerClass = value == "class";
        return true;
    }
    if (key == "buttons") {
        for (std::string_view word : words) {
            if (word == "default")
                page.defaultButton = true;
            else if (word == "ok-cancel")
                page.okCancel = true;
            else
                return Fail(number, ErrorCode::BadValue, word);
        }
        return true;
    }
    return Fail(number, ErrorCode::UnknownKey, key);
}

bool Parser::FieldKey(int number, std::string_view key, std::string_view value) {
    FieldDraft& draft = m_drafts.back();
    Field& field = draft.field;
    std::vector<std::string_view> words;
    if (!SplitWords(value, words))
        return Fail(number, ErrorCode::BadValue, value);
    if (key == "label")
        return Text(number, value, field.label);
    if (key == "label-id")
        return Id(number, value, field.labelId);
    if (key == "record") {
        const auto source = SourceNamed(value);
        if (!source)
            return Fail(number, ErrorCode::BadValue, value);
        field.source = *source;
        return true;
    }
    if (key == "bits") {
        std::size_t start = 0;
        while (true) {
            const std::size_t bar = value.find('|', start);
            Position position;
            if (!ParsePosition(Trim(value.substr(start, bar - start)), position))
                return Fail(number, ErrorCode::BadBits, Trim(value.substr(start, bar - start)));
            draft.alternatives.push_back(std::move(position));
            if (bar == std::string_view::npos)
                break;
            start = bar + 1;
        }
        if (draft.alternatives.size() != 1 && draft.alternatives.size() != kColourCount)
            return Fail(number, ErrorCode::BadBits, value);
        return true;
    }
    if (key == "colours") {
        static constexpr std::pair<std::string_view, Colours> kModes[] = {{"none", Colours::None},
                                                                          {"equal", Colours::Equal},
                                                                          {"separate", Colours::Separate},
                                                                          {"linked", Colours::Linked}};
        for (const auto& [name, mode] : kModes)
            if (value == name) {
                field.colours = mode;
                return true;
            }
        return Fail(number, ErrorCode::BadValue, value);
    }
    if (key == "stride") {
        if (!ParseInt(value, draft.fieldStride) || draft.fieldStride < 1 || draft.fieldStride > 64)
            return Fail(number, ErrorCode::BadValue, value);
        return true;
    }
    if (key == "coding") {
        static constexpr std::pair<std::string_view, Coding> kCodings[] = {{"plain", Coding::Plain},
                                                                           {"invert", Coding::Invert},
                                                                           {"xor", Coding::Xor},
                                                                           {"offset", Coding::Offset},
                                                                           {"set", Coding::Set}};
        for (const auto& [name, coding] : kCodings) {
            if (words[0] != name)
                continue;
            field.coding = coding;
            const bool takesArgument =
                coding == Coding::Xor || coding == Coding::Offset || coding == Coding::Set;
            if (words.size() != (takesArgument ? 2u : 1u))
                return Fail(number, ErrorCode::BadValue, value);
            if (takesArgument && (!ParseInt(words[1], field.codingArgument) ||
                                  (coding != Coding::Offset && field.codingArgument < 0) ||
                                  field.codingArgument > 0xFFFF || field.codingArgument < -0xFFFF))
                return Fail(number, ErrorCode::BadValue, words[1]);
            return true;
        }
        return Fail(number, ErrorCode::BadValue, value);
    }
    if (key == "range") {
        const std::size_t dots = value.find("..");
        if (dots == std::string_view::npos || !ParseInt(Trim(value.substr(0, dots)), field.minimum) ||
            !ParseInt(Trim(value.substr(dots + 2)), field.maximum) || field.minimum > field.maximum)
            return Fail(number, ErrorCode::BadValue, value);
        return true;
    }
    if (key == "cut-to-width")
        return YesNo(number, value, field.cutToWidth);
    if (key == "host-range") {
        if (value != "gain")
            return Fail(number, ErrorCode::BadValue, value);
        field.hostRange = std::string(value);
        return true;
    }
    if (key == "default") {
        int parsed = 0;
        if (!ParseInt(value, parsed))
            return Fail(number, ErrorCode::BadValue, value);
        field.defaultValue = parsed;
        return true;
    }
    if (key == "control") {
        static constexpr std::pair<std::string_view, Control> kControls[] = {
            {"none", Control::None},   {"slider", Control::Slider}, {"check", Control::Check},
            {"combo", Control::Combo}, {"number", Control::Number}, {"hex", Control::Hex}};
        for (const auto& [name, control] : kControls)
            if (value == name) {
                field.control = control;
                return true;
            }
        return Fail(number, ErrorCode::BadValue, value);
    }
    if (key == "items") {
        for (std::string_view word : words) {
            Item item;
            if (!Text(number, word, item))
                return false;
            field.items.push_back(std::move(item));
        }
        return true;
    }
    if (key == "step")
        return ParseStep(value, field.step) || Fail(number, ErrorCode::BadValue, value);
    if (key == "unit")
        return Text(number, value, field.unit);
    if (key == "readout")
        return Routine(number, value, IsReadout, field.readout);
    if (key == "ids")
        return Ids(number, value, field.ids);
    if (key == "readout-ids")
        return Ids(number, value, field.readoutIds);
    if (key == "current")
        return Routine(number, value, IsCurrentReadout, field.current);
    if (key == "current-switch-id")
        return Id(number, value, field.currentSwitchId);
    if (key == "reference-ids")
        return Ids(number, value, field.referenceIds);
    if (key == "fraction-ids")
        return Ids(number, value, field.fractionIds);
    if (key == "current-ids")
        return Ids(number, value, field.currentIds);
    if (key == "group")
        return Text(number, value, field.group);
    if (key == "on-fill") {
        if (value == "rewrite")
            field.onFill = OnFill::Rewrite;
        else if (value == "count")
            field.onFill = OnFill::HostCount;
        else
            return Fail(number, ErrorCode::BadValue, value);
        return true;
    }
    if (key == "show-if") {
        if (!IsName(value))
            return Fail(number, ErrorCode::BadValue, value);
        draft.showIfName = std::string(value);
        return true;
    }
    return Fail(number, ErrorCode::UnknownKey, key);
}

bool Parser::FinishField(FieldDraft& draft) {
    Field& field = draft.field;
    if (!draft.Has("control"))
        return Fail(field.line, ErrorCode::MissingKey, "control");
    if (field.control != Control::None && field.label.text.empty())
        return Fail(field.line, ErrorCode::MissingKey, "label");

    if (IsHostValue(field.source)) {
        if (draft.Has("bits"))
            return Fail(draft.LineOf("bits"), ErrorCode::BadValue, "bits");
        if (field.colours != Colours::None)
            return Fail(draft.LineOf("colours"), ErrorCode::BadValue, "colours");
        if (field.control != Control::Slider && field.control != Control::Number &&
            field.control != Control::None)
            return Fail(draft.LineOf("control"), ErrorCode::BadValue, "control");
        if (!draft.Has("range"))
            return Fail(field.line, ErrorCode::MissingKey, "range");
    } else {
        if (draft.alternatives.empty())
            return Fail(field.line, ErrorCode::MissingKey, "bits");
        const int bitsLine = draft.LineOf("bits");
        if (field.colours == Colours::None) {
            if (draft.alternatives.size() != 1)
                return Fail(bitsLine, ErrorCode::BadBits, "|");
            field.positions = draft.alternatives;
        } else if (draft.alternatives.size() == kColourCount) {
            field.positions = draft.alternatives;
        } else {
            const int stride = draft.fieldStride > 0 ? draft.fieldStride : m_description.page.stride;
            for (int colour = 0; colour < kColourCount; ++colour) {
                Position position = draft.alternatives[0];
                for (BitRun& run : position.runs)
                    for (BitCopy& copy : run.copies)
                        copy.byte = static_cast<std::uint16_t>(copy.byte + colour * stride);
                field.positions.push_back(std::move(position));
            }
        }
        int width = -1;
        const std::size_t bytes = SourceBytes(field.source);
        for (const Position& position : field.positions) {
            int positionWidth = 0;
            for (const BitRun& run : position.runs) {
                positionWidth += run.width;
                for (const BitCopy& copy : run.copies)
                    if (copy.byte >= bytes)
                        return Fail(bitsLine, ErrorCode::OutsideRecord,
                                    std::to_string(copy.byte) + " (" + std::string(SourceName(field.source)) +
                                        ", " + std::to_string(bytes) + " bytes)");
            }
            if (positionWidth > kMaxFieldBits || (width >= 0 && positionWidth != width))
                return Fail(bitsLine, ErrorCode::BadBits, std::to_string(positionWidth) + " bits");
            width = positionWidth;
        }
        const int mask = (1 << width) - 1;
        if ((field.coding == Coding::Xor || field.coding == Coding::Set) && (field.codingArgument & ~mask))
            return Fail(draft.LineOf("coding"), ErrorCode::RangeDoesNotFit,
                        std::to_string(field.codingArgument));
    }

    const auto [low, high] =
        IsHostValue(field.source) ? std::pair{field.minimum, field.maximum} : CodableRange(field);
    const std::string rangeText = std::to_string(field.minimum) + ".." + std::to_string(field.maximum);
    switch (field.control) {
    case Control::Combo:
        if (field.items.empty())
            return Fail(field.line, ErrorCode::MissingKey, "items");
        if (low != 0 || static_cast<int>(field.items.size()) - 1 > high)
            return Fail(draft.LineOf("items"), ErrorCode::ItemsDoNotFit, std::to_string(field.Width()));
        field.minimum = 0;
        field.maximum = static_cast<int>(field.items.size()) - 1;
        break;
    case Control::Check:
        if (low != 0 || high < 1)
            return Fail(draft.LineOf("bits"), ErrorCode::RangeDoesNotFit, "0..1");
        field.minimum = 0;
        field.maximum = 1;
        break;
    case Control::Hex:
        if (field.Width() != 8 || field.coding != Coding::Plain)
            return Fail(draft.LineOf("bits"), ErrorCode::RangeDoesNotFit, "0..255");
        field.minimum = 0;
        field.maximum = 255;
        break;
    default:
        if (!draft.Has("range")) {
            field.minimum = low;
            field.maximum = high;
        } else if (!field.cutToWidth && !IsHostValue(field.source) &&
                   (field.minimum < low || field.maximum > high)) {
            return Fail(draft.LineOf("range"), ErrorCode::RangeDoesNotFit, rangeText);
        }
        break;
    }
    if (!field.items.empty() && field.control != Control::Combo)
        return Fail(draft.LineOf("items"), ErrorCode::BadValue, "items");
    if (field.defaultValue && (*field.defaultValue < field.minimum || *field.defaultValue > field.maximum))
        return Fail(draft.LineOf("default"), ErrorCode::RangeDoesNotFit, std::to_string(*field.defaultValue));
    if (field.defaultValue && !field.Editable())
        return Fail(draft.LineOf("default"), ErrorCode::BadValue, "default");
    const std::size_t controls = static_cast<std::size_t>(field.ControlCount());
    if (draft.Has("ids") && (field.ids.size() != controls || field.control == Control::None))
        return Fail(draft.LineOf("ids"), ErrorCode::BadValue, "ids");
    if (draft.Has("readout-ids") && (field.readoutIds.size() != controls || field.readout.empty()))
        return Fail(draft.LineOf("readout-ids"), ErrorCode::BadValue, "readout-ids");
    if (draft.Has("readout") && field.control == Control::None)
        return Fail(draft.LineOf("readout"), ErrorCode::BadValue, "readout");
    // A host value has no place of its own to write; the host's count is one value, shown at most.
    const bool countFits = field.colours == Colours::None &&
                           (field.control == Control::None || field.control == Control::Number);
    if (draft.Has("on-fill") &&
        (IsHostValue(field.source) || (field.onFill == OnFill::HostCount && !countFits)))
        return Fail(draft.LineOf("on-fill"), ErrorCode::BadValue, "on-fill");
    if ((draft.Has("step") || draft.Has("unit")) && field.control != Control::Number)
        return Fail(draft.LineOf(draft.Has("step") ? "step" : "unit"), ErrorCode::BadValue, "number");
    // The current read-out belongs to a value per colour that the operator sets.
    if (draft.Has("host-range") &&
        (!field.Editable() || (field.control != Control::Slider && field.control != Control::Number)))
        return Fail(draft.LineOf("host-range"), ErrorCode::BadValue, "host-range");
    if (draft.Has("current") && (controls != kColourCount || !field.Editable()))
        return Fail(draft.LineOf("current"), ErrorCode::BadValue, "current");
    for (const char* key : {"current-switch-id", "reference-ids", "fraction-ids", "current-ids"})
        if (draft.Has(key) && field.current.empty())
            return Fail(draft.LineOf(key), ErrorCode::MissingKey, "current");
    for (const auto& [key, ids] : CurrentIdLists(field))
        if (!ids->empty() && ids->size() != kColourCount)
            return Fail(draft.LineOf(key), ErrorCode::BadValue, key);
    return true;
}

bool Parser::CheckOverlaps() {
    // Per record, which field owns each bit (index + 1).
    std::array<std::vector<int>, kSourceCount> owners;
    for (std::size_t i = 0; i < m_drafts.size(); ++i) {
        const Field& field = m_drafts[i].field;
        std::vector<int>& bits = owners[static_cast<std::size_t>(field.source)];
        bits.resize(SourceBytes(field.source) * 8, 0);
        for (const Position& position : field.positions) {
            for (const BitRun& run : position.runs) {
                for (const BitCopy& copy : run.copies) {
                    for (int bit = copy.lsb; bit < copy.lsb + run.width; ++bit) {
                        int& owner = bits[copy.byte * 8u + static_cast<unsigned>(bit)];
                        if (owner != 0)
                            return Fail(m_drafts[i].LineOf("bits"), ErrorCode::Overlap,
                                        m_drafts[static_cast<std::size_t>(owner - 1)].field.name);
                        owner = static_cast<int>(i) + 1;
                    }
                }
            }
        }
    }
    return true;
}

bool Parser::CheckIds() {
    std::vector<int> seen;
    auto claim = [&](int id, int line) {
        if (id == 0)
            return true;
        if (std::find(seen.begin(), seen.end(), id) != seen.end())
            return Fail(line, ErrorCode::DuplicateId, std::to_string(id));
        seen.push_back(id);
        return true;
    };
    if (!claim(m_description.page.linkId, m_page.LineOf("link-id")) ||
        !claim(m_description.page.defaultId, m_page.LineOf("default-id")))
        return false;
    for (const FieldDraft& draft : m_drafts) {
        if (!claim(draft.field.labelId, draft.LineOf("label-id")))
            return false;
        for (const int id : draft.field.ids)
            if (!claim(id, draft.LineOf("ids")))
                return false;
        for (const int id : draft.field.readoutIds)
            if (!claim(id, draft.LineOf("readout-ids")))
                return false;
        if (!claim(draft.field.currentSwitchId, draft.LineOf("current-switch-id")))
            return false;
        for (const auto& [key, ids] : CurrentIdLists(draft.field))
            for (const int id : *ids)
                if (!claim(id, draft.LineOf(key)))
                    return false;
    }
    return true;
}

} // namespace

std::string_view SourceName(Source source) {
    return kSources[static_cast<std::size_t>(source)].name;
}

std::size_t SourceBytes(Source source) {
    return kSources[static_cast<std::size_t>(source)].bytes;
}

int Field::Width() const {
    int width = 0;
    if (!positions.empty())
        for (const BitRun& run : positions.front().runs)
            width += run.width;
    return width;
}

std::vector<Source> Description::RecordsInUse() const {
    std::vector<Source> records;
    for (const SourceInfo& info : kSources) {
        if (IsHostValue(info.source))
            continue;
        if (std::any_of(fields.begin(), fields.end(),
                        [&](const Field& f) { return f.source == info.source; }))
            records.push_back(info.source);
    }
    return records;
}

std::vector<Source> Description::RefreshReads() const {
    return page.refreshReads.empty() ? RecordsInUse() : page.refreshReads;
}

int Description::CurrentField() const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!fields[i].current.empty())
            return static_cast<int>(i);
    return -1;
}

int Description::FieldIndex(std::string_view name) const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name == name)
            return static_cast<int>(i);
    return -1;
}

std::string_view ReasonStringId(ErrorCode code) {
    // In the order of ErrorCode.
    static constexpr std::array<std::string_view, kErrorCodeCount> kIds{
        "IDS_DescError_TooLarge",      "IDS_DescError_NotText",         "IDS_DescError_LineTooLong",
        "IDS_DescError_Syntax",        "IDS_DescError_UnknownSection",  "IDS_DescError_UnknownKey",
        "IDS_DescError_DuplicateKey",  "IDS_DescError_MissingKey",      "IDS_DescError_BadValue",
        "IDS_DescError_BadBits",       "IDS_DescError_OutsideRecord",   "IDS_DescError_Overlap",
        "IDS_DescError_ItemsDoNotFit", "IDS_DescError_RangeDoesNotFit", "IDS_DescError_UnknownStringId",
        "IDS_DescError_UnknownField",  "IDS_DescError_DuplicateName",   "IDS_DescError_DuplicateId",
        "IDS_DescError_NoFields",
    };
    return kIds[static_cast<std::size_t>(code)];
}

ParseResult Parse(std::string_view text, const KnownStringId& known) {
    return Parser(known).Run(text);
}

int ReadStored(const Position& position, std::span<const std::uint8_t> record) {
    int stored = 0;
    for (const BitRun& run : position.runs) {
        const BitCopy& copy = run.copies.front();
        const int bits =
            copy.byte < record.size() ? (record[copy.byte] >> copy.lsb) & ((1 << run.width) - 1) : 0;
        stored = (stored << run.width) | bits;
    }
    return stored;
}

void WriteStored(const Position& position, std::span<std::uint8_t> record, int stored) {
    auto remaining = static_cast<unsigned>(stored);
    for (auto run = position.runs.rbegin(); run != position.runs.rend(); ++run) {
        const unsigned mask = (1u << run->width) - 1;
        for (const BitCopy& copy : run->copies) {
            if (copy.byte >= record.size())
                continue;
            const unsigned placed = mask << copy.lsb;
            record[copy.byte] =
                static_cast<std::uint8_t>((record[copy.byte] & ~placed) | ((remaining & mask) << copy.lsb));
        }
        remaining >>= run->width;
    }
}

int Decode(const Field& field, int stored) {
    const int mask = (1 << field.Width()) - 1;
    switch (field.coding) {
    case Coding::Invert:
        return ~stored & mask;
    case Coding::Xor:
        return (stored ^ field.codingArgument) & mask;
    case Coding::Offset:
        return stored + field.codingArgument;
    case Coding::Set:
        return stored & ~field.codingArgument & mask;
    case Coding::Plain:
        break;
    }
    return stored & mask;
}

int Encode(const Field& field, int shown) {
    const int mask = (1 << field.Width()) - 1;
    switch (field.coding) {
    case Coding::Invert:
        return ~shown & mask;
    case Coding::Xor:
        return (shown ^ field.codingArgument) & mask;
    case Coding::Offset:
        return (shown - field.codingArgument) & mask;
    case Coding::Set:
        return (shown | field.codingArgument) & mask;
    case Coding::Plain:
        break;
    }
    return shown & mask;
}

std::pair<int, int> CodableRange(const Field& field) {
    const int mask = (1 << field.Width()) - 1;
    switch (field.coding) {
    case Coding::Offset:
        return {field.codingArgument, mask + field.codingArgument};
    case Coding::Set:
        return {0, mask & ~field.codingArgument};
    default:
        break;
    }
    return {0, mask};
}

int ReadValue(const Field& field, std::span<const std::uint8_t> record, int colour) {
    if (field.positions.empty())
        return 0;
    const std::size_t index =
        std::min(static_cast<std::size_t>(std::max(colour, 0)), field.positions.size() - 1);
    return Decode(field, ReadStored(field.positions[index], record));
}

void WriteValue(const Field& field, std::span<std::uint8_t> record, int colour, int value) {
    if (field.positions.empty())
        return;
    const std::size_t index =
        std::min(static_cast<std::size_t>(std::max(colour, 0)), field.positions.size() - 1);
    WriteStored(field.positions[index], record, Encode(field, value));
}

} // namespace chipdesc
