// The text file a simulated chip persists in: its register images and the host values the pages
// ask for, one "key value" line each, ending in an "end" line so a cut-off file is recognised.
//
//   format 1
//   type 47
//   subtype 0
//   model MBI5153
//   gain 0 63
//   kind 4
//   count 1
//   param 0
//   slider 0
//   regData 00 00 df 2b df 2b df 2b 42 00 62 00 62 00 00 21
//   ... regDataEx, regData2, regData3, regData4, and icnd3065Rows/icnd3069Rows when they hold rows
//   end
//
// Blank lines and lines starting with '#' are ignored, so the file can be edited by hand while the
// workbench is closed; the host values are optional there and keep their start values when missing.
#pragma once

#include "workbench/SimulatedChip.h"

#include <optional>
#include <string>
#include <string_view>

inline constexpr int kChipSaveFormat = 1;

std::string FormatChipSaveFile(const SimulatedChip& chip);

struct SaveFileError {
    int line; // 1-based; 0 when the problem is the file as a whole (a missing line)
    std::string reason;
    // "line 4: regData needs 16 bytes, found 15"
    std::string ToString() const;
};

// Reads a saved chip into chip. The file must be for the chip's own type and sub-type. On any error
// the chip is left exactly as it was.
std::optional<SaveFileError> ReadChipSaveFile(std::string_view text, SimulatedChip& chip);
