#include "descriptions/RegisterText.h"

#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace chipdesc {

namespace {

enum class Slot : std::uint8_t { Record, Address, Hex, Binary, Fields };
constexpr std::size_t kSlotCount = 5;
constexpr std::pair<std::string_view, Slot> kSlots[] = {{"{record}", Slot::Record},
                                                        {"{address}", Slot::Address},
                                                        {"{hex}", Slot::Hex},
                                                        {"{binary}", Slot::Binary},
                                                        {"{fields}", Slot::Fields}};

// A format is literal text and placeholders, in turn.
struct Piece {
    std::optional<Slot> slot;
    std::string_view literal;
};

using detail::IsSpace;
using detail::Trim;

// The characters a placeholder's value is made of: it takes as many as the line has in a row.
bool InSlot(Slot slot, char c) {
    const bool digit = c >= '0' && c <= '9';
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    switch (slot) {
    case Slot::Record:
        return digit || letter || c == '-';
    case Slot::Address:
        return digit;
    case Slot::Hex:
        return digit || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    case Slot::Binary:
        return c == '0' || c == '1';
    case Slot::Fields:
        return digit || letter || c == '-' || c == '_' || c == ',';
    }
    return false;
}

bool SplitFormat(std::string_view format, std::vector<Piece>& pieces) {
    pieces.clear();
    while (!format.empty()) {
        const std::size_t open = format.find('{');
        if (open != 0) {
            pieces.push_back({std::nullopt, format.substr(0, open)});
            format.remove_prefix(std::min(open, format.size()));
            continue;
        }
        const auto known = std::find_if(std::begin(kSlots), std::end(kSlots),
                                        [&](const auto& slot) { return format.starts_with(slot.first); });
        if (known == std::end(kSlots))
            return false;
        pieces.push_back({known->second, {}});
        format.remove_prefix(known->first.size());
    }
    return true;
}

std::string HexByte(std::uint8_t value) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return {kDigits[value >> 4], kDigits[value & 0xF]};
}

std::string FormatLine(const std::vector<Piece>& pieces, const TextRegister& reg, std::uint8_t value) {
    std::string line;
    for (const Piece& piece : pieces) {
        if (!piece.slot) {
            line += piece.literal;
            continue;
        }
        switch (*piece.slot) {
        case Slot::Record:
            line += SourceName(reg.source);
            break;
        case Slot::Address:
            line += std::to_string(reg.address);
            break;
        case Slot::Hex:
            line += HexByte(value);
            break;
        case Slot::Binary:
            for (int bit = 7; bit >= 0; --bit)
                line += (value >> bit) & 1 ? '1' : '0';
            break;
        case Slot::Fields:
            line += reg.fields;
            break;
        }
    }
    return std::string(Trim(line));
}

// What one line gives for each placeholder of the format.
struct LineValues {
    std::array<std::optional<std::string_view>, kSlotCount> text;
    std::string_view Of(Slot slot) const { return text[static_cast<std::size_t>(slot)].value_or(""); }
    bool Has(Slot slot) const { return text[static_cast<std::size_t>(slot)].has_value(); }
};

// A run of blanks in the format matches any run of blanks in the line: mail and chat programs change
// spacing and tabs.
bool MatchLiteral(std::string_view literal, std::string_view line, std::size_t& at) {
    std::size_t i = 0;
    while (i < literal.size()) {
        if (IsSpace(literal[i])) {
            if (at >= line.size() || !IsSpace(line[at]))
                return false;
            while (i < literal.size() && IsSpace(literal[i]))
                ++i;
            while (at < line.size() && IsSpace(line[at]))
                ++at;
            continue;
        }
        if (at >= line.size() || line[at] != literal[i])
            return false;
        ++at;
        ++i;
    }
    return true;
}

bool MatchLine(const std::vector<Piece>& pieces, std::string_view line, LineValues& values) {
    std::size_t at = 0;
    for (const Piece& piece : pieces) {
        if (!piece.slot) {
            if (!MatchLiteral(piece.literal, line, at))
                return false;
            continue;
        }
        const std::size_t start = at;
        while (at < line.size() && InSlot(*piece.slot, line[at]))
            ++at;
        if (at == start)
            return false;
        values.text[static_cast<std::size_t>(*piece.slot)] = line.substr(start, at - start);
    }
    return at == line.size();
}

std::optional<int> ParseDigits(std::string_view text, int base, std::size_t maxDigits) {
    if (text.empty() || text.size() > maxDigits)
        return std::nullopt;
    int value = 0;
    for (const char c : text) {
        const int digit = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
        value = value * base + digit;
    }
    return value;
}

// The byte a line gives: from its hex digits or its bits, and the two must agree.
std::optional<std::uint8_t> LineValue(const LineValues& values) {
    std::optional<int> value;
    if (values.Has(Slot::Hex))
        value = ParseDigits(values.Of(Slot::Hex), 16, 2);
    if (values.Has(Slot::Binary)) {
        const std::string_view bits = values.Of(Slot::Binary);
        const std::optional<int> fromBits = bits.size() == 8 ? ParseDigits(bits, 2, 8) : std::nullopt;
        if (!fromBits || (value && *value != *fromBits))
            return std::nullopt;
        value = fromBits;
    }
    if (!value)
        return std::nullopt;
    return static_cast<std::uint8_t>(*value);
}

std::string Excerpt(std::string_view line) {
    constexpr std::size_t kShown = 60;
    return line.size() <= kShown ? std::string(line) : std::string(line.substr(0, kShown)) + "...";
}

const std::string& FormatOf(const Description& description) {
    static const RegisterTextSpec kDefault;
    return description.page.registerText ? description.page.registerText->format : kDefault.format;
}

} // namespace

std::vector<Source> TextRecords(const Description& description) {
    const auto& text = description.page.registerText;
    return text && !text->records.empty() ? text->records : description.RecordsInUse();
}

std::vector<TextRegister> TextRegisters(const Description& description) {
    std::vector<TextRegister> registers;
    for (const Source source : TextRecords(description)) {
        std::map<std::uint16_t, std::string> names;
        for (const Field& field : description.fields) {
            if (field.source != source)
                continue;
            std::vector<std::uint16_t> bytes;
            for (const Position& position : field.positions)
                for (const BitRun& run : position.runs)
                    for (const BitCopy& copy : run.copies)
                        bytes.push_back(copy.byte);
            std::sort(bytes.begin(), bytes.end());
            bytes.erase(std::unique(bytes.begin(), bytes.end()), bytes.end());
            for (const std::uint16_t byte : bytes) {
                std::string& joined = names[byte];
                joined += (joined.empty() ? "" : ",") + field.name;
            }
        }
        for (auto& [address, fields] : names)
            registers.push_back({source, address, std::move(fields)});
    }
    return registers;
}

std::string LineFormatProblem(std::string_view format, bool severalRecords) {
    std::vector<Piece> pieces;
    if (!SplitFormat(format, pieces))
        return "unknown placeholder";
    std::array<int, kSlotCount> uses{};
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!pieces[i].slot)
            continue;
        ++uses[static_cast<std::size_t>(*pieces[i].slot)];
        if (i + 1 < pieces.size() &&
            (pieces[i + 1].slot || InSlot(*pieces[i].slot, pieces[i + 1].literal[0])))
            return "placeholders need text between them";
    }
    if (std::any_of(uses.begin(), uses.end(), [](int n) { return n > 1; }))
        return "a placeholder is used twice";
    const auto used = [&](Slot slot) { return uses[static_cast<std::size_t>(slot)] > 0; };
    if (!used(Slot::Address) || (!used(Slot::Hex) && !used(Slot::Binary)))
        return "{address} and {hex} or {binary} are needed";
    if (severalRecords && !used(Slot::Record))
        return "{record} is needed";
    return {};
}

std::string FormatRegisterText(const Description& description,
                               const std::function<std::span<const std::uint8_t>(Source)>& recordBytes) {
    std::vector<Piece> pieces;
    SplitFormat(FormatOf(description), pieces);
    std::string text = "class " + description.page.className;
    std::optional<Source> read;
    std::span<const std::uint8_t> bytes;
    for (const TextRegister& reg : TextRegisters(description)) {
        if (read != reg.source) {
            bytes = recordBytes(reg.source);
            read = reg.source;
        }
        const std::uint8_t value = reg.address < bytes.size() ? bytes[reg.address] : 0;
        text += "\r\n" + FormatLine(pieces, reg, value);
    }
    return text;
}

PasteResult ParseRegisterText(const Description& description, std::string_view text) {
    if (text.size() > kMaxPastedBytes)
        return PasteProblem{PasteError::NoText, 0, {}};
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::vector<Piece> pieces;
    SplitFormat(FormatOf(description), pieces);
    const std::vector<Source> records = TextRecords(description);
    const std::vector<TextRegister> registers = TextRegisters(description);
    std::vector<bool> given(registers.size(), false);
    std::map<Source, std::vector<std::pair<std::uint16_t, std::uint8_t>>> written;
    bool classSeen = false;
    int number = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        start = end + 1;
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        line = Trim(line);
        if (line.empty())
            continue;
        if (!classSeen) {
            if (!line.starts_with("class") || line.size() < 7 || !IsSpace(line[5]))
                return PasteProblem{PasteError::NoText, number, Excerpt(line)};
            const std::string_view name = Trim(line.substr(6));
            if (name != description.page.className)
                return PasteProblem{PasteError::OtherClass, number, Excerpt(name)};
            classSeen = true;
            continue;
        }
        LineValues values;
        const std::optional<std::uint8_t> value =
            line.size() <= kMaxLineChars && MatchLine(pieces, line, values) ? LineValue(values)
                                                                            : std::nullopt;
        const std::optional<int> address = ParseDigits(values.Of(Slot::Address), 10, 5);
        if (!value || !address)
            return PasteProblem{PasteError::BadLine, number, Excerpt(line)};
        const auto source =
            values.Has(Slot::Record)
                ? std::find_if(records.begin(), records.end(),
                               [&](Source s) { return SourceName(s) == values.Of(Slot::Record); })
                : records.begin();
        const auto found = std::find_if(registers.begin(), registers.end(), [&](const TextRegister& reg) {
            return source != records.end() && reg.source == *source && reg.address == *address;
        });
        const auto index = static_cast<std::size_t>(found - registers.begin());
        if (found == registers.end() || given[index] ||
            (values.Has(Slot::Fields) && values.Of(Slot::Fields) != found->fields))
            return PasteProblem{PasteError::NotOfPage, number, Excerpt(line)};
        given[index] = true;
        written[found->source].emplace_back(found->address, *value);
    }
    if (written.empty())
        return PasteProblem{PasteError::NoText, number, {}};
    std::vector<PastedRecord> result;
    for (const Source source : records)
        if (auto bytes = written.find(source); bytes != written.end())
            result.push_back({source, std::move(bytes->second)});
    return result;
}

} // namespace chipdesc
