#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include "dialogs/common/BitField.h"

namespace fm612x {

namespace {

// A run of bits of one byte: (byte, shift, width).
using bitfield::Field;

// FM6128 gain in the large block: V6..V1 in bits 5..0 of three bytes, V0 in bits 0..2 of a fourth.
struct Fm6128GainBytes {
    std::array<std::uint8_t, 3> highCopies;
    std::uint8_t lowBitByte;
};
constexpr std::array<Fm6128GainBytes, kColourCount> kFm6128GainBytes{{
    {{79, 85, 91}, 73}, // red
    {{81, 87, 93}, 75}, // green
    {{83, 89, 95}, 77}, // blue
}};

// Fields of the large block that the FM6128Ex page adds, placed clear of the gain copies (bytes
// 73..95): the scan count in byte 31, the blanking step in the low nibble of byte 33.
constexpr Field kFm6128ExScanCountRun{31, 0, 6};
constexpr Field kFm6128ExBlankingRun{33, 0, 4};

} // namespace

int ReadFm6128Gain(ConstBlock large, Colour colour) {
    const Fm6128GainBytes& bytes = kFm6128GainBytes[static_cast<std::size_t>(colour)];
    return (Field{bytes.highCopies[0], 0, 6}.ReadFrom(large) << 1) |
           Field{bytes.lowBitByte, 0, 1}.ReadFrom(large);
}

void WriteFm6128Gain(Block large, Colour colour, int gain) {
    const Fm6128GainBytes& bytes = kFm6128GainBytes[static_cast<std::size_t>(colour)];
    for (const std::uint8_t copy : bytes.highCopies)
        Field{copy, 0, 6}.WriteTo(large, gain >> 1);
    Field{bytes.lowBitByte, 0, 3}.WriteTo(large, (gain & 1) ? 0b111 : 0);
}

int ReadFm6128ExScanCount(ConstBlock large) {
    return kFm6128ExScanCountRun.ReadFrom(large) + 1;
}

void WriteFm6128ExScanCount(Block large, std::uint32_t count) {
    kFm6128ExScanCountRun.WriteTo(large, static_cast<int>(count - 1));
}

int ReadFm6128ExBlanking(ConstBlock large) {
    return kFm6128ExBlankingRun.ReadFrom(large);
}

void WriteFm6128ExBlanking(Block large, int step) {
    kFm6128ExBlankingRun.WriteTo(large, step);
}

} // namespace fm612x
