// The MBI5153 register layout as the host hands it out (also used by the chips that share it).
// Bytes 2-3, 4-5, 6-7 are the red, green, blue copies of the first configuration register, bytes
// 8-9, 10-11, 12-13 those of the second. The page shows the red copy for the flags and the delay.
#pragma once

#include "dialogs/common/BitField.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace mbi5153 {

inline constexpr bitfield::ColourField kGain{3, 0, 6};      // sliders 8123-8125, 0..63
inline constexpr bitfield::ColourField kFlagBit6{3, 6, 1};  // check box 8026
inline constexpr bitfield::ColourField kFlagBit7{2, 7, 1};  // check box 8296
inline constexpr bitfield::ColourField kFlagBit2{8, 2, 1};  // check box 9000
inline constexpr bitfield::ColourField kDelayStep{9, 1, 3}; // combo 8572

inline constexpr int kDelaySteps = 8;
inline constexpr int kDelayStepNanoseconds = 5;
// "0ns" .. "35ns".
std::wstring DelayStepText(int step);

// What the page shows of a block.
struct Settings {
    int gainRed = 0;
    int gainGreen = 0;
    int gainBlue = 0;
    int flagBit7 = 0;
    int flagBit6 = 0;
    int flagBit2 = 0;
    int delayStep = 0;
};
Settings Decode(std::span<const std::uint8_t> block);

// The 20-byte record: two bytes the page edits, and a word the host needs to match flags 8026 and
// 9000, stored little-endian at offset 10.
inline constexpr bitfield::Field kRecordByte9{9, 0, 8}; // edit 1040, 0..255
inline constexpr bitfield::Field kRecordByte7{7, 0, 8}; // edit 1042, 0..63
inline constexpr std::size_t kRecordWordOffset = 10;
std::uint32_t RecordWordFor(int flagBit6, int flagBit2);
void WriteRecordWord(std::span<std::uint8_t> record, std::uint32_t word);

// "Default": bytes 2..15 of the block (bytes 0 and 1 belong to the host), every gain 43, and the
// first word of record A. Green and blue get another second register than red on purpose.
inline constexpr int kDefaultGain = 43;
inline constexpr std::array<std::uint8_t, 14> kDefaultBytes2To15{0xDF, 0x2B, 0xDF, 0x2B, 0xDF, 0x2B, 0x42,
                                                                 0x00, 0x62, 0x00, 0x62, 0x00, 0x00, 0x21};
inline constexpr std::uint32_t kDefaultRecordAWord = 0x21002100;
void ApplyDefaults(std::span<std::uint8_t> block, std::span<std::uint8_t> recordA);

} // namespace mbi5153
