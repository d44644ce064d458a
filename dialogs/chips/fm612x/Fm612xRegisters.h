// Register model of the FM6128 and FM6128Ex LED drivers, whose settings live in the host's large
// block. (The other FM612x pages are chip descriptions.) Every setting exists once per colour: the
// module carries a red, a green and a blue driver chip.
//
// Values are never rejected: every write is cut to its field's width and leaves the other bits of the
// byte as they were, because the host sends the whole block and bits a page does not show belong to
// other settings of the chip.
#pragma once

#include "host/RegvaneTypes.h"

#include <array>
#include <cstdint>
#include <span>

namespace fm612x {

using Block = std::span<std::uint8_t>;
using ConstBlock = std::span<const std::uint8_t>;

enum Colour : int { kRed = 0, kGreen = 1, kBlue = 2 };
inline constexpr int kColourCount = 3;
inline constexpr std::array<Colour, kColourCount> kColours{kRed, kGreen, kBlue};

// 7-bit gain, kept three times over plus a triple low bit: the chip reads whichever copy belongs to
// the output group being driven, so all copies must always agree.
inline constexpr int kFm6128GainMax = 127;
int ReadFm6128Gain(ConstBlock large, Colour colour);
void WriteFm6128Gain(Block large, Colour colour, int gain);

// The number of scan lines the host drives, stored as count - 1.
int ReadFm6128ExScanCount(ConstBlock large);
void WriteFm6128ExScanCount(Block large, std::uint32_t count);

// Line blanking time: a 4-bit step of the large block, (step + 1) x 40 ns.
inline constexpr int kFm6128ExBlankingMax = 15;
int ReadFm6128ExBlanking(ConstBlock large);
void WriteFm6128ExBlanking(Block large, int step);

} // namespace fm612x
