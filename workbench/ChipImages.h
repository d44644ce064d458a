// The register images a simulated chip holds, each under one name: what the workbench shows, marks
// and saves. Fixed-size images always appear; the ICND3065/3069 row lists only when they hold rows.
#pragma once

#include "workbench/SimulatedChip.h"

#include <cstdint>
#include <string>
#include <vector>

struct NamedImage {
    std::string name; // "regData", "regDataEx", "regData2", "regData3", "regData4", "icnd3065Rows", ...
    std::vector<std::uint8_t> bytes;
};
using ChipImageSnapshot = std::vector<NamedImage>;

// Every image of the chip, in a fixed order.
ChipImageSnapshot TakeSnapshot(const SimulatedChip& chip, bool includeEmptyRowLists = false);

// Stores one named image back into the chip. False for an unknown name or a size the image cannot
// take (fixed images need their exact size; row lists whole rows, at most the host's capacity).
bool StoreImage(SimulatedChip& chip, const std::string& name, const std::vector<std::uint8_t>& bytes);

// One line of the hexadecimal view, with the character ranges of bytes the last change touched.
struct HexLine {
    std::string text;
    struct Range {
        std::size_t begin;
        std::size_t length;
    };
    std::vector<Range> marked;
};

// "regData    00 00 df 2b ..." lines, 16 bytes a line; longer images continue on lines that show
// the offset ("    +10 ..."). A byte is marked when it differs from the same byte in before (an
// image missing from before, or shorter there, counts as changed).
std::vector<HexLine> FormatImages(const ChipImageSnapshot& now, const ChipImageSnapshot& before);
// Characters of the longest line: the image's name, then 16 bytes of two digits and a blank.
inline constexpr std::size_t kHexLineChars = 13 + 16 * 3;

// The marks of a line drawn as carets under it ("      ^^    ^^"), empty when nothing is marked.
std::string CaretLine(const HexLine& line);

// Two hexadecimal digits per byte, separated by single spaces.
std::string HexBytes(const std::vector<std::uint8_t>& bytes);
