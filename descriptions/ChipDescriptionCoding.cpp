// A field's value in a record's bytes: its bits read and written in every copy, and its coding.
#include "descriptions/ChipDescription.h"

#include <algorithm>

namespace chipdesc {

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
