// A described page's register text: the bytes of the records it uses, one a line, in the format its
// description gives, headed by the page class. Copied out, it goes back into a page of the same class
// by Paste: the whole text is read first, and one line that cannot be read, or that names a register
// the page does not show, refuses all of it.
//
// Portable: the page hands in the records' bytes and writes what a paste gives.
#pragma once

#include "descriptions/ChipDescription.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chipdesc {

// A byte of a record that at least one field lives in, and the names of those fields.
struct TextRegister {
    Source source = Source::Block;
    std::uint16_t address = 0;
    std::string fields; // joined by ','
};

// The records the text shows, in order: those the description lists, or every record a field lives in.
std::vector<Source> TextRecords(const Description& description);
// The registers the text shows, record by record, in address order.
std::vector<TextRegister> TextRegisters(const Description& description);

// Why a line format cannot be used ("" when it can). It needs {address} and {hex} or {binary},
// {record} when the text shows more than one record, each placeholder at most once, and text between
// two placeholders that cannot be taken for part of the first.
std::string LineFormatProblem(std::string_view format, bool severalRecords);

// "class NAME", then a line per register, separated by CR LF as the clipboard and edits keep them.
std::string FormatRegisterText(const Description& description,
                               const std::function<std::span<const std::uint8_t>(Source)>& recordBytes);

inline constexpr std::size_t kMaxPastedBytes = 64 * 1024;

enum class PasteError : std::uint8_t {
    NoText,     // empty, too large, or no "class" line first
    OtherClass, // the text of another page class (detail: its name)
    BadLine,    // a line that cannot be read in the page's format
    NotOfPage,  // a register the page does not show, with other fields, or given twice
};
struct PasteProblem {
    PasteError error = PasteError::NoText;
    int line = 0;
    std::string detail;
};
// What a pasted text writes: each record once, in the order the text shows them, with its bytes.
struct PastedRecord {
    Source source = Source::Block;
    std::vector<std::pair<std::uint16_t, std::uint8_t>> bytes;
};
using PasteResult = std::variant<std::vector<PastedRecord>, PasteProblem>;

PasteResult ParseRegisterText(const Description& description, std::string_view text);

} // namespace chipdesc
