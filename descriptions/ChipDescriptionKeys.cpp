// The key table and the kinds of value its keys take.
#include "descriptions/ChipDescriptionKeys.h"

#include "descriptions/ChipDescriptionParser.h"
#include "descriptions/DescriptionFormula.h"
#include "descriptions/DescriptionReadouts.h"
#include "descriptions/DescriptionRules.h"
#include "descriptions/DescriptionSections.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <type_traits>
#include <utility>

namespace chipdesc {

namespace detail {

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

bool ParseValue(std::string_view text, Value& value) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint32_t parsed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed, base);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return false;
    value = negative ? -static_cast<Value>(parsed) : static_cast<Value>(parsed);
    return true;
}

bool ParseStep(std::string_view text, double& value) {
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

namespace {

bool IsNameChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

} // namespace

bool IsName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsNameChar);
}

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
            // A comma may follow: it separates the entries of a list of items with codes.
            if (i < text.size() && !IsSpace(text[i]) && text[i] != ',')
                return false;
        } else {
            while (i < text.size() && !IsSpace(text[i]))
                ++i;
        }
        words.push_back(text.substr(start, i - start));
    }
    return true;
}

std::vector<std::string_view> SplitOutsideQuotes(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            quoted = !quoted;
        else if (text[i] == separator && !quoted) {
            parts.push_back(text.substr(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(text.substr(start));
    return parts;
}

bool IsQuoted(std::string_view word) {
    return word.size() >= 2 && word.front() == '"' && word.back() == '"';
}

namespace {

// One copy of a run: "2[7:3]" or "3[0]".
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

} // namespace

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

int ColumnIn(std::string_view line, std::string_view word) {
    const std::less<const char*> before;
    if (before(word.data(), line.data()) || before(line.data() + line.size(), word.data() + word.size()))
        return 0;
    return static_cast<int>(word.data() - line.data()) + 1;
}

bool Refuse(Problems& problems, int line, ErrorCode code, std::string_view detail, int column) {
    if (problems.list.size() < kMaxProblems)
        problems.list.push_back({line, code, std::string(detail), column});
    ++problems.count;
    return false;
}

bool KeyValue::Fail(std::string_view detail, ErrorCode code) {
    const int at = ColumnIn(value, detail);
    return Refuse(problems, line, code, detail, at ? column + at - 1 : column);
}

bool KeyValue::StringId(std::string_view word, std::string& out) {
    if (!IsName(word))
        return Fail(word);
    out = std::string(word);
    if (known && !known(word))
        return Fail(word, ErrorCode::UnknownStringId);
    return true;
}

bool KeyValue::Text(std::string_view word, Item& out) {
    if (IsQuoted(word)) {
        out = {std::string(word.substr(1, word.size() - 2)), true};
        return !out.text.empty() || Fail(word);
    }
    out.literal = false;
    return StringId(word, out.text);
}

bool KeyValue::Id(std::string_view word, int& out) {
    if (!ParseInt(word, out) || out < 1 || out > 0xFFFF)
        return Fail(word);
    return true;
}

namespace {

// ---- the kinds of value, each read into the member it is given ----------------------------------

// The member in the page, in the field being read or in its draft.
template <class Owner, class T> T& Into(KeyValue& v, T Owner::*member) {
    if constexpr (std::is_same_v<Owner, Page>)
        return v.page.*member;
    else if constexpr (std::is_same_v<Owner, RegisterTextSpec>)
        return *v.page.registerText.*member;
    else if constexpr (std::is_same_v<Owner, TableSpec>)
        return v.page.tables.back().*member;
    else if constexpr (std::is_same_v<Owner, Field>)
        return v.draft->field.*member;
    else if constexpr (std::is_same_v<Owner, Button>)
        return v.button->button.*member;
    else if constexpr (std::is_same_v<Owner, Grid>)
        return v.grid->grid.*member;
    else
        return v.draft->*member;
}

// A name of letters, digits, '_' and (unless refused) '-'.
template <auto member, bool dashes = true> bool Name(KeyValue& v) {
    if (!IsName(v.value) || (!dashes && v.value.find('-') != std::string_view::npos))
        return v.Fail(v.value);
    Into(v, member) = std::string(v.value);
    return true;
}

template <auto member> bool Text(KeyValue& v) {
    return v.Text(v.value, Into(v, member));
}

// Texts in value order from 0 ("IDS_A IDS_B"), or each after its value, in any order and with gaps
// ("0 "Off", 2 "Slow", 3 "Fast"").
template <auto items, auto codes> bool Items(KeyValue& v) {
    int code = 0;
    if (!ParseInt(v.words[0], code)) {
        for (std::string_view word : v.words) {
            Item item;
            if (!v.Text(word, item))
                return false;
            Into(v, codes).push_back(static_cast<int>(Into(v, items).size()));
            Into(v, items).push_back(std::move(item));
        }
        return true;
    }
    std::vector<std::string_view> words;
    for (std::string_view entry : SplitOutsideQuotes(v.value, ',')) {
        Item item;
        if (!SplitWords(Trim(entry), words) || words.size() != 2 || !ParseInt(words[0], code))
            return v.Fail(Trim(entry).empty() ? v.value : Trim(entry));
        if (!v.Text(words[1], item))
            return false;
        std::vector<int>& taken = Into(v, codes);
        if (std::find(taken.begin(), taken.end(), code) != taken.end())
            return v.Fail(words[0], ErrorCode::DuplicateKey);
        taken.push_back(code);
        Into(v, items).push_back(std::move(item));
    }
    return true;
}

template <auto member, int lowest = INT_MIN, int highest = INT_MAX> bool Number(KeyValue& v) {
    int parsed = 0;
    if (!ParseInt(v.value, parsed) || parsed < lowest || parsed > highest)
        return v.Fail(v.value);
    Into(v, member) = parsed;
    return true;
}

// A field's value: as wide as 32 bits, or as far below zero.
template <auto member> bool FieldValue(KeyValue& v) {
    Value parsed = 0;
    if (!ParseValue(v.value, parsed))
        return v.Fail(v.value);
    Into(v, member) = parsed;
    return true;
}

template <auto member> bool Step(KeyValue& v) {
    return ParseStep(v.value, Into(v, member)) || v.Fail(v.value);
}

// "MIN..MAX".
template <auto minimum, auto maximum> bool Range(KeyValue& v) {
    const std::size_t dots = v.value.find("..");
    Value& low = Into(v, minimum);
    Value& high = Into(v, maximum);
    if (dots == std::string_view::npos || !ParseValue(Trim(v.value.substr(0, dots)), low) ||
        !ParseValue(Trim(v.value.substr(dots + 2)), high) || low > high)
        return v.Fail(v.value);
    return true;
}

template <auto member> bool Id(KeyValue& v) {
    return v.Id(v.value, Into(v, member));
}

template <auto member> bool Ids(KeyValue& v) {
    if (v.words.empty())
        return v.Fail(v.value);
    for (std::string_view word : v.words) {
        int id = 0;
        if (!v.Id(word, id))
            return false;
        Into(v, member).push_back(id);
    }
    return true;
}

// One of the words a table lists, stored as what the table gives for it.
template <auto member, const auto& words> bool Word(KeyValue& v) {
    for (const auto& [word, meaning] : words)
        if (v.value == word) {
            Into(v, member) = meaning;
            return true;
        }
    return v.Fail(v.value);
}

// Any of a table's words, each setting its flag.
template <const auto& flags> bool Flags(KeyValue& v) {
    for (std::string_view word : v.words) {
        const auto found = std::find_if(std::begin(flags), std::end(flags),
                                        [&](const auto& flag) { return flag.first == word; });
        if (found == std::end(flags))
            return v.Fail(word);
        Into(v, found->second) = true;
    }
    return true;
}

// The name of one of the module's read-out routines.
template <auto member, bool (*known)(std::string_view)> bool Routine(KeyValue& v) {
    if (!known(v.value))
        return v.Fail(v.value);
    Into(v, member) = std::string(v.value);
    return true;
}

// A record, or a host value.
template <auto member> bool Record(KeyValue& v) {
    const auto source = SourceNamed(v.value);
    if (!source)
        return v.Fail(v.value);
    Into(v, member) = *source;
    return true;
}

// Records, each once, in order; host values too where they may be.
template <auto member, bool hostValues, bool required> bool Records(KeyValue& v) {
    std::vector<Source>& out = Into(v, member);
    out.clear();
    for (std::string_view word : v.words) {
        const auto source = SourceNamed(word);
        if (!source || (!hostValues && IsHostValue(*source)) ||
            std::find(out.begin(), out.end(), *source) != out.end())
            return v.Fail(word);
        out.push_back(*source);
    }
    return !required || !out.empty() || v.Fail(v.value);
}

// A kind of host range, then "as-given" when the control takes it as the host gives it.
template <auto kind, auto asGiven, const auto& kinds> bool HostRange(KeyValue& v) {
    const bool given = v.words.size() == 2 && v.words[1] == "as-given";
    if (v.words.size() != 1 && !given)
        return v.Fail(v.value);
    for (const auto& [word, meaning] : kinds)
        if (v.words[0] == word) {
            Into(v, kind) = meaning;
            Into(v, asGiven) = given;
            return true;
        }
    return v.Fail(v.words[0]);
}

// "caption", or "model" and the string id shown after the model.
template <auto title, auto text> bool PageTitle(KeyValue& v) {
    if (v.words.size() == 1 && v.words[0] == "caption") {
        Into(v, title) = Title::Caption;
        return true;
    }
    if (v.words.size() == 2 && v.words[0] == "model") {
        Into(v, title) = Title::Model;
        return v.StringId(v.words[1], Into(v, text));
    }
    return v.Fail(v.value);
}

// A coding's word, then its argument for those that take one.
template <auto coding, auto argument> bool CodingWithArgument(KeyValue& v) {
    static constexpr std::pair<std::string_view, Coding> kCodings[] = {{"plain", Coding::Plain},
                                                                       {"invert", Coding::Invert},
                                                                       {"xor", Coding::Xor},
                                                                       {"offset", Coding::Offset},
                                                                       {"set", Coding::Set}};
    for (const auto& [name, code] : kCodings) {
        if (v.words[0] != name)
            continue;
        Into(v, coding) = code;
        const bool takesArgument = code == Coding::Xor || code == Coding::Offset || code == Coding::Set;
        if (v.words.size() != (takesArgument ? 2u : 1u))
            return v.Fail(v.value);
        Value& value = Into(v, argument);
        if (takesArgument && (!ParseValue(v.words[1], value) || (code != Coding::Offset && value < 0)))
            return v.Fail(v.words[1]);
        return true;
    }
    return v.Fail(v.value);
}

// Positions: one, or one per colour copy separated by '|' (counted once the page is read).
template <auto member> bool Bits(KeyValue& v) {
    std::vector<Position>& alternatives = Into(v, member);
    std::size_t start = 0;
    while (true) {
        const std::size_t bar = v.value.find('|', start);
        const std::string_view text = Trim(v.value.substr(start, bar - start));
        Position position;
        if (!ParsePosition(text, position))
            return v.Fail(text, ErrorCode::BadBits);
        alternatives.push_back(std::move(position));
        if (bar == std::string_view::npos)
            break;
        start = bar + 1;
    }
    return true;
}

// The colours' names, each a string id or a quoted text; as many as the page's colours, counted once
// the page is read.
template <auto member> bool ColourTexts(KeyValue& v) {
    std::vector<Item>& labels = Into(v, member);
    labels.clear();
    for (std::string_view word : v.words) {
        Item label;
        if (!v.Text(word, label))
            return false;
        labels.push_back(std::move(label));
    }
    return true;
}

// "COUNT every BYTES": the field stands for COUNT fields, each BYTES further on than the one before.
template <auto count, auto every> bool Repeat(KeyValue& v) {
    int times = 0;
    int bytes = 0;
    if (v.words.size() != 3 || v.words[1] != "every" || !ParseInt(v.words[0], times) || times < 1 ||
        times > 64 || !ParseInt(v.words[2], bytes) || bytes < -0xFFFF || bytes > 0xFFFF)
        return v.Fail(v.value);
    Into(v, count) = times;
    Into(v, every) = bytes;
    return true;
}

constexpr std::pair<std::string_view, bool> kYesNo[] = {{"yes", true}, {"no", false}};
constexpr std::pair<std::string_view, Notice> kNotices[] = {{"always", Notice::Always},
                                                            {"either", Notice::Either}};
constexpr std::pair<std::string_view, bool> kSwitchesPerClass[] = {{"class", true}, {"page", false}};
constexpr std::pair<std::string_view, bool Page::*> kButtons[] = {{"default", &Page::defaultButton},
                                                                  {"ok-cancel", &Page::okCancel}};
constexpr std::pair<std::string_view, Colours> kColours[] = {{"none", Colours::None},
                                                             {"equal", Colours::Equal},
                                                             {"separate", Colours::Separate},
                                                             {"linked", Colours::Linked}};
constexpr std::pair<std::string_view, Control> kControls[] = {
    {"none", Control::None},   {"slider", Control::Slider}, {"check", Control::Check},
    {"combo", Control::Combo}, {"number", Control::Number}, {"hex", Control::Hex}};
constexpr std::pair<std::string_view, std::string_view> kHostRanges[] = {{"gain", "gain"}};
constexpr std::pair<std::string_view, Signedness> kSignedness[] = {
    {"twos-complement", Signedness::TwosComplement}, {"sign-magnitude", Signedness::SignMagnitude}};
constexpr std::pair<std::string_view, bool> kAccess[] = {{"read-write", false}, {"read-only", true}};
constexpr std::pair<std::string_view, OnFill> kOnFill[] = {{"rewrite", OnFill::Rewrite},
                                                           {"count", OnFill::HostCount}};

constexpr std::pair<std::string_view, int> kValueBits[] = {{"8", 8}, {"16", 16}, {"32", 32}};

constexpr Section P = Section::Page;
constexpr Section F = Section::Field;
constexpr Section B = Section::Button;
constexpr Section G = Section::Grid;
constexpr Section R = Section::Rule;
constexpr Section Txt = Section::RegisterText;
constexpr Section Tab = Section::Table;

// A new key is a row here and one in docs/chip-descriptions.md (a test compares the two), and a check
// in ChipDescriptionChecks.cpp when it depends on other keys.
constexpr Key kKeys[] = {
    {"class", P, Name<&Page::className, false>, "the page class described"},
    {"title", P, PageTitle<&Page::title, &Page::titleString>, "the caption, or the chip model and a text"},
    {"colours", P, Number<&Page::colourCount, 1, kMaxColours>, "how many colour copies the registers have"},
    {"colour-labels", P, ColourTexts<&Page::colourLabels>, "the texts above the colours' columns, in order"},
    {"stride", P, Number<&Page::stride, 1, 64>, "bytes from one colour's copy of a register to the next"},
    {"link", P, Text<&Page::link>, "the link switch's text; linked controls move together with it on"},
    {"link-id", P, Id<&Page::linkId>, "the link switch's control id"},
    {"change-test", P, Records<&Page::changeTest, true, true>, "what the change test compares, in order"},
    {"carry", P, Records<&Page::carry, false, false>, "records handed back unchanged with every write"},
    {"notice", P, Word<&Page::notice, kNotices>, "how the host hears that the chip changed"},
    {"refresh-after-change", P, Word<&Page::refreshAfterChange, kYesNo>,
     "every control read again after a change"},
    {"refresh-reads", P, Records<&Page::refreshReads, true, true>,
     "what a fill from the chip reads, in order, host values too"},
    {"default-id", P, Id<&Page::defaultId>, "the Default button's control id"},
    {"switches", P, Word<&Page::switchesPerClass, kSwitchesPerClass>,
     "switches kept for the class or the page"},
    {"buttons", P, Flags<kButtons>, "the page's Default, OK and Cancel buttons"},
    {"format-version", P, Number<&Page::formatVersion, 1, kFormatVersion>,
     "the format version the description is written for"},

    {"label", F, Text<&Field::label>, "the row's text"},
    {"label-id", F, Id<&Field::labelId>, "the label's control id"},
    {"record", F, Record<&Field::source>, "the record the field lives in, or the host value it shows"},
    {"bits", F, Bits<&FieldDraft::alternatives>, "the field's bits in its record"},
    {"colours", F, Word<&Field::colours, kColours>, "one value, or one per colour, and how they move"},
    {"stride", F, Number<&FieldDraft::fieldStride, 1, 64>, "the field's own colour stride"},
    {"coding", F, CodingWithArgument<&Field::coding, &Field::codingArgument>,
     "how the chip stores the value"},
    {"range", F, Range<&Field::minimum, &Field::maximum>, "the values the control offers"},
    {"cut-to-width", F, Word<&Field::cutToWidth, kYesNo>,
     "a range wider than the field, its low bits stored"},
    {"host-range", F, HostRange<&Field::hostRange, &Field::hostRangeAsGiven, kHostRanges>,
     "the range the host gives, within the field's or as given"},
    {"signed", F, Word<&Field::signedness, kSignedness>, "how the bits hold a negative value"},
    {"default", F, FieldValue<&Field::defaultValue>, "what the Default button writes"},
    {"control", F, Word<&Field::control, kControls>, "the control that edits the field"},
    {"items", F, Items<&Field::items, &Field::itemCodes>,
     "the combo's items, in value order or with their values"},
    {"step", F, Step<&Field::step>, "the numeric edit's step"},
    {"unit", F, Text<&Field::unit>, "the unit shown after the number"},
    {"readout", F, ReadReadout, "the read-out shown next to each control: a formula, or a routine's name"},
    {"ids", F, Ids<&Field::ids>, "the controls' ids"},
    {"readout-ids", F, Ids<&Field::readoutIds>, "the read-outs' control ids"},
    {"current", F, Routine<&Field::current, IsCurrentReadout>, "the output-current read-out routine"},
    {"current-switch-id", F, Id<&Field::currentSwitchId>, "the output-current switch's control id"},
    {"reference-ids", F, Ids<&Field::referenceIds>, "the reference edits' control ids"},
    {"fraction-ids", F, Ids<&Field::fractionIds>, "the gain fractions' control ids"},
    {"current-ids", F, Ids<&Field::currentIds>, "the output currents' control ids"},
    {"reference-decimals", F, Number<&Field::referenceDecimals, 0, 3>, "the reference edits' decimals"},
    {"group", F, Text<&Field::group>, "the title of the box around consecutive fields of a group"},
    {"on-fill", F, Word<&Field::onFill, kOnFill>, "what each fill from the chip writes into the field"},
    {"show-if", F, Name<&FieldDraft::showIfName>, "the field whose non-zero value shows this one"},
    {"like", F, Name<&FieldDraft::likeName>, "the field this one copies, its own keys overriding"},
    {"offset", F, Number<&FieldDraft::offset, -0xFFFF, 0xFFFF>,
     "bytes the field lies further on than its bits say"},
    {"repeat", F, Repeat<&FieldDraft::repeatCount, &FieldDraft::repeatEvery>,
     "the field stands for this many, each so many bytes on"},
    {"help", F, Text<&Field::help>, "the help shown over the row's label and controls"},
    {"access", F, Word<&Field::readOnly, kAccess>, "read-write, or read-only: shown and never written"},
    {"grid", F, Name<&FieldDraft::gridName>, "the grid this field is a column of"},

    {"label", B, Text<&Button::label>, "the button's text"},
    {"action", B, ReadAction, "what the button does"},
    {"argument", B, ReadArgument, "what a chip function is handed: a field's value or a record"},
    {"id", B, Id<&Button::id>, "the button's control id"},

    {"label", G, Text<&Grid::label>, "the text above the grid"},
    {"record", G, Record<&Grid::source>, "the record the grid's registers live in"},
    {"rows", G, Number<&Grid::rows, 1, 1024>, "how many times the registers repeat"},
    {"step", G, Number<&Grid::byteStep, 0, 128>, "bytes from one row's registers to the next"},
    {"bit-step", G, Number<&Grid::bitStep, 0, 64>, "bits more from one row to the next, where registers pack"},
    {"row-names", G, Text<&Grid::rowNames>, "the rows' names, %d standing for the row's number"},
    {"first", G, Number<&Grid::first, 0, 65535>, "the first row's number"},
    {"per", G, Number<&Grid::perGroup, 1, 1024>, "rows per first number of a name with two %d"},
    {"id", G, Id<&Grid::id>, "the grid's control id"},
    {"line", Txt, ReadLineFormat, "the format of each register's line"},
    {"records", Txt, Records<&RegisterTextSpec::records, false, true>,
     "the records the text shows, in order"},
    {"ids", Txt, Ids<&RegisterTextSpec::ids>, "the text's, Copy's and Paste's control ids"},

    {"label", Tab, Text<&TableSpec::label>, "the text before the table's Load button"},
    {"values", Tab, Word<&TableSpec::valueBits, kValueBits>, "the bits of each value"},
    {"count", Tab, ReadTableCount, "how many values the table takes"},
    {"function", Tab, ReadChipFunction, "the chip function the packed table goes to"},
    {"id", Tab, Id<&TableSpec::id>, "the Load button's control id"},

    {"check", R, ReadRuleCheck, "the condition the page's field values must meet"},
    {"message", R, ReadRuleMessage, "what the operator is told when a value breaks the rule"},
    {"on-break", R, ReadOnBreak, "a change that breaks the rule: refused, or written with a warning"},
};

} // namespace

} // namespace detail

std::span<const Key> DescriptionKeys() {
    return detail::kKeys;
}

const Key* FindKey(Section section, std::string_view name) {
    for (const Key& key : detail::kKeys)
        if (key.section == section && key.name == name)
            return &key;
    return nullptr;
}

} // namespace chipdesc
