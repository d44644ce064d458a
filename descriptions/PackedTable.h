// A table the operator loads for a chip: a text file of numbers (docs/chip-descriptions.md, "Table
// files"), laid out as the chip reads it (each value big-endian, in as many bytes as the description's
// value bits), and packed with zlib's compress into the fixed block the chip function takes: the
// compressed size as 4 big-endian bytes, then the compressed bytes, at most 2024 of them, the rest of
// the block zero.
//
// Portable: the page reads the file and hands the block to the host.
#pragma once

#include "descriptions/ChipDescription.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chipdesc {

inline constexpr std::size_t kMaxPackedBytes = 2024;
inline constexpr std::size_t kPackedBlockBytes = 4 + kMaxPackedBytes;
inline constexpr std::size_t kMaxTableFileBytes = 1024 * 1024;
inline constexpr int kMaxTableValues = 65536;
using PackedBlock = std::array<std::uint8_t, kPackedBlockBytes>;

enum class TableError : std::uint8_t {
    TooLarge,   // the file is larger than kMaxTableFileBytes
    NotANumber, // detail: the word
    OutOfRange, // detail: the number, beyond the value bits
    Count,      // detail: how many values the file holds, too many or too few
};
struct TableProblem {
    TableError error = TableError::NotANumber;
    int line = 0;
    std::string detail;
};
using TableValues = std::vector<std::uint32_t>;

std::variant<TableValues, TableProblem> ParseTableFile(const TableSpec& table, std::string_view text);
// The values as the chip reads them.
std::vector<std::uint8_t> TableBytes(const TableSpec& table, const TableValues& values);
// The block, or the compressed size when that is more than the block takes.
std::variant<PackedBlock, std::size_t> PackTable(std::span<const std::uint8_t> bytes);

} // namespace chipdesc
