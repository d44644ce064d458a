#include "descriptions/PackedTable.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace chipdesc {

namespace {

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == '\r' || c == '\n';
}

// Decimal, or hexadecimal after 0x; nothing that would not fit 32 bits.
std::optional<std::uint64_t> ParseNumber(std::string_view word) {
    int base = 10;
    if (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
        base = 16;
        word.remove_prefix(2);
    }
    if (word.empty() || word.size() > 10)
        return std::nullopt;
    std::uint64_t value = 0;
    for (const char c : word) {
        int digit = -1;
        if (c >= '0' && c <= '9')
            digit = c - '0';
        else if (base == 16 && (c | 0x20) >= 'a' && (c | 0x20) <= 'f')
            digit = (c | 0x20) - 'a' + 10;
        if (digit < 0)
            return std::nullopt;
        value = value * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
    }
    return value;
}

std::string Excerpt(std::string_view word) {
    constexpr std::size_t kShown = 40;
    return word.size() <= kShown ? std::string(word) : std::string(word.substr(0, kShown)) + "...";
}

} // namespace

std::variant<TableValues, TableProblem> ParseTableFile(const TableSpec& table, std::string_view text) {
    if (text.size() > kMaxTableFileBytes)
        return TableProblem{TableError::TooLarge, 1, std::to_string(text.size())};
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    const std::uint64_t largest = (std::uint64_t{1} << table.valueBits) - 1;
    TableValues values;
    int count = 0;
    int firstExtraLine = 0;
    int line = 1;
    std::size_t at = 0;
    while (at < text.size()) {
        const char c = text[at];
        if (c == '#') {
            at = std::min(text.find('\n', at), text.size());
            continue;
        }
        if (IsSeparator(c)) {
            line += c == '\n';
            ++at;
            continue;
        }
        const std::size_t start = at;
        while (at < text.size() && !IsSeparator(text[at]) && text[at] != '#')
            ++at;
        const std::string_view word = text.substr(start, at - start);
        const std::optional<std::uint64_t> value = ParseNumber(word);
        if (!value)
            return TableProblem{TableError::NotANumber, line, Excerpt(word)};
        if (*value > largest)
            return TableProblem{TableError::OutOfRange, line, std::string(word)};
        // Counted on past the largest count, so the operator hears how many the file holds.
        if (++count == table.maximumCount + 1)
            firstExtraLine = line;
        if (count <= table.maximumCount)
            values.push_back(static_cast<std::uint32_t>(*value));
    }
    if (count > table.maximumCount || count < table.minimumCount)
        return TableProblem{TableError::Count, count > table.maximumCount ? firstExtraLine : line,
                            std::to_string(count)};
    return values;
}

std::vector<std::uint8_t> TableBytes(const TableSpec& table, const TableValues& values) {
    const int width = table.valueBits / 8;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values.size() * static_cast<std::size_t>(width));
    for (const std::uint32_t value : values)
        for (int shift = (width - 1) * 8; shift >= 0; shift -= 8)
            bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    return bytes;
}

std::variant<PackedBlock, std::size_t> PackTable(std::span<const std::uint8_t> bytes) {
    // compress needs room for its worst case; only a result that fits the block is kept.
    std::vector<Bytef> packed(compressBound(static_cast<uLong>(bytes.size())));
    uLongf size = static_cast<uLongf>(packed.size());
    if (compress(packed.data(), &size, bytes.data(), static_cast<uLong>(bytes.size())) != Z_OK)
        return std::size_t{packed.size()};
    if (size > kMaxPackedBytes)
        return std::size_t{size};
    PackedBlock block{};
    for (int i = 0; i < 4; ++i)
        block[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(size >> (24 - 8 * i));
    std::copy_n(packed.begin(), size, block.begin() + 4);
    return block;
}

} // namespace chipdesc
