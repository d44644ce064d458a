// A field's value in a record's bytes: its bits read and written in every copy, its coding and its
// sign.
#include "descriptions/ChipDescription.h"

#include <algorithm>

namespace chipdesc {

namespace {

std::uint32_t MaskOf(int width) {
    return static_cast<std::uint32_t>((std::uint64_t{1} << width) - 1);
}

// The value a field's bits (after its bit coding) stand for.
Value FromBits(const Field& field, std::uint32_t bits) {
    const int width = field.Width();
    if (width < 2 || field.signedness == Signedness::Unsigned)
        return bits;
    const std::uint32_t sign = std::uint32_t{1} << (width - 1);
    const Value magnitude = bits & (sign - 1);
    if (!(bits & sign))
        return magnitude;
    return field.signedness == Signedness::TwosComplement ? magnitude - static_cast<Value>(sign) : -magnitude;
}

std::uint32_t ToBits(const Field& field, Value value) {
    const int width = field.Width();
    if (width >= 2 && field.signedness == Signedness::SignMagnitude) {
        const std::uint32_t sign = std::uint32_t{1} << (width - 1);
        const auto magnitude = static_cast<std::uint32_t>(value < 0 ? -value : value) & (sign - 1);
        return value < 0 && magnitude ? sign | magnitude : magnitude;
    }
    // Two's complement and unsigned alike keep the low bits.
    return static_cast<std::uint32_t>(value) & MaskOf(width);
}

} // namespace

std::uint32_t ReadStored(const Position& position, std::span<const std::uint8_t> record) {
    std::uint64_t stored = 0;
    for (const BitRun& run : position.runs) {
        const BitCopy& copy = run.copies.front();
        const unsigned bits =
            copy.byte < record.size() ? (record[copy.byte] >> copy.lsb) & ((1u << run.width) - 1) : 0;
        stored = (stored << run.width) | bits;
    }
    return static_cast<std::uint32_t>(stored);
}

void WriteStored(const Position& position, std::span<std::uint8_t> record, std::uint32_t stored) {
    std::uint64_t remaining = stored;
    for (auto run = position.runs.rbegin(); run != position.runs.rend(); ++run) {
        const unsigned mask = (1u << run->width) - 1;
        for (const BitCopy& copy : run->copies) {
            if (copy.byte >= record.size())
                continue;
            const unsigned placed = mask << copy.lsb;
            record[copy.byte] = static_cast<std::uint8_t>(
                (record[copy.byte] & ~placed) | ((static_cast<unsigned>(remaining) & mask) << copy.lsb));
        }
        remaining >>= run->width;
    }
}

Value Decode(const Field& field, std::uint32_t stored) {
    const std::uint32_t mask = MaskOf(field.Width());
    const auto argument = static_cast<std::uint32_t>(field.codingArgument);
    std::uint32_t bits = stored & mask;
    switch (field.coding) {
    case Coding::Invert:
        bits = ~bits & mask;
        break;
    case Coding::Xor:
        bits = (bits ^ argument) & mask;
        break;
    case Coding::Set:
        bits &= ~argument;
        break;
    case Coding::Offset:
        return FromBits(field, bits) + field.codingArgument;
    case Coding::Plain:
        break;
    }
    return FromBits(field, bits);
}

std::uint32_t Encode(const Field& field, Value shown) {
    const std::uint32_t mask = MaskOf(field.Width());
    const auto argument = static_cast<std::uint32_t>(field.codingArgument);
    switch (field.coding) {
    case Coding::Invert:
        return ~ToBits(field, shown) & mask;
    case Coding::Xor:
        return (ToBits(field, shown) ^ argument) & mask;
    case Coding::Offset:
        return ToBits(field, shown - field.codingArgument);
    case Coding::Set:
        return (ToBits(field, shown) | argument) & mask;
    case Coding::Plain:
        break;
    }
    return ToBits(field, shown);
}

std::pair<Value, Value> CodableRange(const Field& field) {
    const int width = field.Width();
    Value low = 0;
    Value high = MaskOf(width);
    if (width >= 2 && field.signedness != Signedness::Unsigned) {
        high = MaskOf(width - 1);
        low = field.signedness == Signedness::TwosComplement ? -high - 1 : -high;
    }
    switch (field.coding) {
    case Coding::Offset:
        return {low + field.codingArgument, high + field.codingArgument};
    case Coding::Set:
        return {low, high & ~field.codingArgument};
    default:
        break;
    }
    return {low, high};
}

Value ReadValue(const Field& field, std::span<const std::uint8_t> record, int colour) {
    if (field.positions.empty())
        return 0;
    const std::size_t index =
        std::min(static_cast<std::size_t>(std::max(colour, 0)), field.positions.size() - 1);
    return Decode(field, ReadStored(field.positions[index], record));
}

void WriteValue(const Field& field, std::span<std::uint8_t> record, int colour, Value value) {
    if (field.positions.empty())
        return;
    const std::size_t index =
        std::min(static_cast<std::size_t>(std::max(colour, 0)), field.positions.size() - 1);
    WriteStored(field.positions[index], record, Encode(field, value));
}

int HexDigits(const Field& field) {
    return std::max(1, (field.Width() + 3) / 4);
}

std::wstring FormatHex(std::uint32_t value, int digits) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    std::wstring text(static_cast<std::size_t>(digits), L'0');
    for (auto place = text.rbegin(); place != text.rend(); ++place, value >>= 4)
        *place = kDigits[value & 0x0F];
    return text;
}

std::optional<std::uint32_t> ParseHex(std::wstring_view text, int digits) {
    if (text.empty() || text.size() > static_cast<std::size_t>(digits))
        return std::nullopt;
    std::uint32_t value = 0;
    for (const wchar_t c : text) {
        const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                          : c >= L'a' && c <= L'f' ? c - L'a' + 10
                          : c >= L'A' && c <= L'F' ? c - L'A' + 10
                                                   : -1;
        if (digit < 0)
            return std::nullopt;
        value = (value << 4) | static_cast<std::uint32_t>(digit);
    }
    return value;
}

} // namespace chipdesc
