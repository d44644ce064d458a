// Register models of the FM612x LED drivers (FM6126, FM6127, FM6128, FM6129 and their extended
// register sets). Every setting exists once per colour: the module carries a red, a green and a blue
// driver chip, and each chip's copy of a register sits at a fixed, parallel position in the block.
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

// The four register bytes of one colour in the main block. Every FM612x page addresses per-colour
// fields through this one pattern.
enum class ColourByte { W, X, Y, Z };
struct ColourBytes {
    std::uint8_t w, x, y, z;
};
inline constexpr std::array<ColourBytes, kColourCount> kColourBytes{{
    {2, 3, 8, 9},   // red
    {4, 5, 10, 11}, // green
    {6, 7, 12, 13}, // blue
}};
std::uint8_t ByteOf(Colour colour, ColourByte which);

// ---- FM6126 / FM6127: 6-bit current gain on a slider ----------------------------------------------

// The FM6126 stores the two low gain bits inverted, the FM6127 does not; the chips differ there and
// the pages must keep the difference.
enum class GainCoding { LowBitsInverted, Plain };
inline constexpr GainCoding kFm6126GainCoding = GainCoding::LowBitsInverted;
inline constexpr GainCoding kFm6127GainCoding = GainCoding::Plain;
inline constexpr int kGainSliderMin = 15;
inline constexpr int kGainSliderMax = 63;
inline constexpr int kGainDefault = 60;

int ReadGain6(ConstBlock block, Colour colour, GainCoding coding);
void WriteGain6(Block block, Colour colour, GainCoding coding, int gain);

// ---- FM6126EX ------------------------------------------------------------------------------------

enum class Fm6126ExField {
    Gain,        // slider 0..15
    Mode,        // combo: normal (0) or enhanced (1)
    GhostLevel,  // combo 0..3
    LowGreyComp, // edit 0..7, stored XOR 2
    OutputDelay, // edit 0..7, split over two bytes
};
inline constexpr int kFm6126ExGainMax = 15;
int ReadFm6126Ex(ConstBlock block, Colour colour, Fm6126ExField field);
void WriteFm6126Ex(Block block, Colour colour, Fm6126ExField field, int value);

// ---- FM6127EX ------------------------------------------------------------------------------------

enum class Fm6127ExField {
    Gain,         // field 1: 0..15
    GhostOff,     // field 2: 0..1
    LowGreyComp,  // field 3: shown 1..8
    PreCharge,    // field 4: 0..15 over three bytes
    OutputDelay,  // field 5: 0..7 over two bytes
    GhostLevel,   // field 6: the edit offers 0..7, the chip keeps two bits
    EnhancedMode, // state only: kept per colour, not edited on this page
};
inline constexpr std::array<Fm6127ExField, 6> kFm6127ExEditedFields{
    Fm6127ExField::Gain,      Fm6127ExField::GhostOff,    Fm6127ExField::LowGreyComp,
    Fm6127ExField::PreCharge, Fm6127ExField::OutputDelay, Fm6127ExField::GhostLevel};
struct EditRange {
    int min, max;
};
// What the page's edit for a field allows (not always what the field can hold).
EditRange Fm6127ExEditRange(Fm6127ExField field);
int ReadFm6127Ex(ConstBlock block, Colour colour, Fm6127ExField field);
void WriteFm6127Ex(Block block, Colour colour, Fm6127ExField field, int value);

// Settings of the whole module rather than of one colour.
enum class Fm6127ExGlobal {
    RefreshMode,   // combo 1
    GreyMode,      // combo 2
    ScanDirection, // combo 3
    ExtendedShown, // state: the chip revision offers the grey mode and scan direction
    Reserved,      // state: kept, never edited
};
int ReadFm6127ExGlobal(ConstBlock block, Fm6127ExGlobal field);
void WriteFm6127ExGlobal(Block block, Fm6127ExGlobal field, int value);

// ---- FM6128 / FM6128Ex: the large block ------------------------------------------------------------

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

// ---- FM6129 / FM6129Ex ---------------------------------------------------------------------------

int ReadFm6129Gain(ConstBlock block, Colour colour);
void WriteFm6129Gain(Block block, Colour colour, int gain);

// Low-grey compensation, one 0..3 step per colour.
inline constexpr int kFm6129LowGreyMax = 3;
int ReadFm6129LowGrey(ConstBlock block, Colour colour);
void WriteFm6129LowGrey(Block block, Colour colour, int step);

// The extended register set: five settings per colour, fifteen edits in all.
enum class Fm6129ExField {
    GhostOff,        // one bit
    LowGreyEnhance,  // one bit
    OpenDetect,      // one bit
    GhostLevel,      // 4 bits, 0..15
    GreyCompensation // 3 bits, 0..7
};
inline constexpr std::array<Fm6129ExField, 5> kFm6129ExFields{
    Fm6129ExField::GhostOff, Fm6129ExField::LowGreyEnhance, Fm6129ExField::OpenDetect,
    Fm6129ExField::GhostLevel, Fm6129ExField::GreyCompensation};
int Fm6129ExFieldMax(Fm6129ExField field);
int ReadFm6129Ex(ConstBlock block, Colour colour, Fm6129ExField field);
void WriteFm6129Ex(Block block, Colour colour, Fm6129ExField field, int value);

} // namespace fm612x
