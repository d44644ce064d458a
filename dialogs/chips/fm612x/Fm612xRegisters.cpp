#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include "dialogs/common/BitField.h"

namespace fm612x {

namespace {

// A run of bits of one byte: (byte, shift, width).
using bitfield::Field;

int ReadRun(ConstBlock block, Field run) {
    return run.ReadFrom(block);
}

void WriteRun(Block block, Field run, int value) {
    run.WriteTo(block, value);
}

// A value whose bits are spread over several runs, most significant run first.
template <std::size_t N> using SplitField = std::array<Field, N>;

template <std::size_t N> int ReadSplit(ConstBlock block, const SplitField<N>& runs) {
    int value = 0;
    for (const Field& run : runs)
        value = (value << run.width) | ReadRun(block, run);
    return value;
}

template <std::size_t N> void WriteSplit(Block block, const SplitField<N>& runs, int value) {
    for (std::size_t i = N; i-- > 0;) {
        WriteRun(block, runs[i], value);
        value = static_cast<int>(static_cast<unsigned>(value) >> runs[i].width);
    }
}

Field Run(Colour colour, ColourByte which, int shift, int width) {
    return {ByteOf(colour, which), static_cast<std::uint8_t>(shift), static_cast<std::uint8_t>(width)};
}

// FM6126/FM6127 gain G5..G0: G5..G3 in W bits 2..0, G2 in X bit 7, G1..G0 in X bits 3..2.
SplitField<3> Gain6Runs(Colour c) {
    return {Run(c, ColourByte::W, 0, 3), Run(c, ColourByte::X, 7, 1), Run(c, ColourByte::X, 2, 2)};
}
int Gain6StorageXor(GainCoding coding) {
    return coding == GainCoding::LowBitsInverted ? 0b11 : 0;
}

// Shared by FM6126EX and FM6127EX: the high two bits in Z bits 1..0, the low bit in X bit 0.
SplitField<2> OutputDelayRuns(Colour c) {
    return {Run(c, ColourByte::Z, 0, 2), Run(c, ColourByte::X, 0, 1)};
}
Field LowGreyCompRun(Colour c) {
    return Run(c, ColourByte::X, 4, 3);
}
Field GhostLevelRun(Colour c) {
    return Run(c, ColourByte::Y, 3, 2);
}
Field ModeRun(Colour c) {
    return Run(c, ColourByte::Y, 0, 1);
}

// FM6126EX gain: a 5-bit field whose top bit selects the chip's high current range, which this page
// always uses; only the low four bits are the operator's.
Field Fm6126ExGainRun(Colour c) {
    return Run(c, ColourByte::W, 3, 5);
}
constexpr int kFm6126ExHighRange = 0x10;
// The chip's coding of the low-grey compensation: step 2 is its register value 0.
constexpr int kLowGreyCompXor = 0b010;

// FM6127EX pre-charge level: bit 3 in W bit 7, bits 2..1 in Y bits 2..1, bit 0 in Z bit 4.
SplitField<3> PreChargeRuns(Colour c) {
    return {Run(c, ColourByte::W, 7, 1), Run(c, ColourByte::Y, 1, 2), Run(c, ColourByte::Z, 4, 1)};
}

Field GlobalRun(Fm6127ExGlobal field) {
    switch (field) {
    case Fm6127ExGlobal::RefreshMode:
        return {3, 1, 1};
    case Fm6127ExGlobal::GreyMode:
        return {9, 6, 1};
    case Fm6127ExGlobal::ScanDirection:
        return {9, 2, 1};
    case Fm6127ExGlobal::ExtendedShown:
        return {14, 6, 1};
    case Fm6127ExGlobal::Reserved:
        break;
    }
    return {15, 7, 1};
}

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

Field Fm6129GainRun(Colour c) {
    return Run(c, ColourByte::X, 0, 6);
}
// FM6129 low-grey compensation: Z bits 1..0, clear of the gain (X bits 5..0) and of every field of
// the extended set below.
Field Fm6129LowGreyRun(Colour c) {
    return Run(c, ColourByte::Z, 0, 2);
}

// FM6129 extended set, per colour: the switches at bits 7 and 6 of W and bit 7 of Z, the ghost level
// in the high nibble of Y and the grey compensation in Y bits 2..0.
Field Fm6129ExRun(Colour c, Fm6129ExField field) {
    switch (field) {
    case Fm6129ExField::GhostOff:
        return Run(c, ColourByte::W, 7, 1);
    case Fm6129ExField::LowGreyEnhance:
        return Run(c, ColourByte::W, 6, 1);
    case Fm6129ExField::OpenDetect:
        return Run(c, ColourByte::Z, 7, 1);
    case Fm6129ExField::GhostLevel:
        return Run(c, ColourByte::Y, 4, 4);
    case Fm6129ExField::GreyCompensation:
        break;
    }
    return Run(c, ColourByte::Y, 0, 3);
}

} // namespace

std::uint8_t ByteOf(Colour colour, ColourByte which) {
    const ColourBytes& bytes = kColourBytes[static_cast<std::size_t>(colour)];
    switch (which) {
    case ColourByte::W:
        return bytes.w;
    case ColourByte::X:
        return bytes.x;
    case ColourByte::Y:
        return bytes.y;
    case ColourByte::Z:
        break;
    }
    return bytes.z;
}

int ReadGain6(ConstBlock block, Colour colour, GainCoding coding) {
    return ReadSplit(block, Gain6Runs(colour)) ^ Gain6StorageXor(coding);
}

void WriteGain6(Block block, Colour colour, GainCoding coding, int gain) {
    WriteSplit(block, Gain6Runs(colour), gain ^ Gain6StorageXor(coding));
}

int ReadFm6126Ex(ConstBlock block, Colour colour, Fm6126ExField field) {
    switch (field) {
    case Fm6126ExField::Gain:
        return ReadRun(block, Fm6126ExGainRun(colour)) & kFm6126ExGainMax;
    case Fm6126ExField::Mode:
        return ReadRun(block, ModeRun(colour));
    case Fm6126ExField::GhostLevel:
        return ReadRun(block, GhostLevelRun(colour));
    case Fm6126ExField::LowGreyComp:
        return ReadRun(block, LowGreyCompRun(colour)) ^ kLowGreyCompXor;
    case Fm6126ExField::OutputDelay:
        return ReadSplit(block, OutputDelayRuns(colour));
    }
    return 0;
}

void WriteFm6126Ex(Block block, Colour colour, Fm6126ExField field, int value) {
    switch (field) {
    case Fm6126ExField::Gain:
        return WriteRun(block, Fm6126ExGainRun(colour), value | kFm6126ExHighRange);
    case Fm6126ExField::Mode:
        return WriteRun(block, ModeRun(colour), value);
    case Fm6126ExField::GhostLevel:
        return WriteRun(block, GhostLevelRun(colour), value);
    case Fm6126ExField::LowGreyComp:
        return WriteRun(block, LowGreyCompRun(colour), value ^ kLowGreyCompXor);
    case Fm6126ExField::OutputDelay:
        return WriteSplit(block, OutputDelayRuns(colour), value);
    }
}

EditRange Fm6127ExEditRange(Fm6127ExField field) {
    switch (field) {
    case Fm6127ExField::Gain:
    case Fm6127ExField::PreCharge:
        return {0, 15};
    case Fm6127ExField::GhostOff:
    case Fm6127ExField::EnhancedMode:
        return {0, 1};
    case Fm6127ExField::LowGreyComp:
        return {1, 8};
    case Fm6127ExField::OutputDelay:
    case Fm6127ExField::GhostLevel: // wider than the field on purpose: the chip keeps the low two bits
        break;
    }
    return {0, 7};
}

int ReadFm6127Ex(ConstBlock block, Colour colour, Fm6127ExField field) {
    switch (field) {
    case Fm6127ExField::Gain:
        return ReadRun(block, Run(colour, ColourByte::W, 3, 4));
    case Fm6127ExField::GhostOff:
        return ReadRun(block, Run(colour, ColourByte::Z, 3, 1));
    case Fm6127ExField::LowGreyComp:
        return ReadRun(block, LowGreyCompRun(colour)) + 1;
    case Fm6127ExField::PreCharge:
        return ReadSplit(block, PreChargeRuns(colour));
    case Fm6127ExField::OutputDelay:
        return ReadSplit(block, OutputDelayRuns(colour));
    case Fm6127ExField::GhostLevel:
        return ReadRun(block, GhostLevelRun(colour));
    case Fm6127ExField::EnhancedMode:
        return ReadRun(block, ModeRun(colour));
    }
    return 0;
}

void WriteFm6127Ex(Block block, Colour colour, Fm6127ExField field, int value) {
    switch (field) {
    case Fm6127ExField::Gain:
        return WriteRun(block, Run(colour, ColourByte::W, 3, 4), value);
    case Fm6127ExField::GhostOff:
        return WriteRun(block, Run(colour, ColourByte::Z, 3, 1), value);
    case Fm6127ExField::LowGreyComp:
        return WriteRun(block, LowGreyCompRun(colour), value - 1);
    case Fm6127ExField::PreCharge:
        return WriteSplit(block, PreChargeRuns(colour), value);
    case Fm6127ExField::OutputDelay:
        return WriteSplit(block, OutputDelayRuns(colour), value);
    case Fm6127ExField::GhostLevel:
        return WriteRun(block, GhostLevelRun(colour), value);
    case Fm6127ExField::EnhancedMode:
        return WriteRun(block, ModeRun(colour), value);
    }
}

int ReadFm6127ExGlobal(ConstBlock block, Fm6127ExGlobal field) {
    return ReadRun(block, GlobalRun(field));
}

void WriteFm6127ExGlobal(Block block, Fm6127ExGlobal field, int value) {
    WriteRun(block, GlobalRun(field), value);
}

int ReadFm6128Gain(ConstBlock large, Colour colour) {
    const Fm6128GainBytes& bytes = kFm6128GainBytes[static_cast<std::size_t>(colour)];
    return (ReadRun(large, {bytes.highCopies[0], 0, 6}) << 1) | ReadRun(large, {bytes.lowBitByte, 0, 1});
}

void WriteFm6128Gain(Block large, Colour colour, int gain) {
    const Fm6128GainBytes& bytes = kFm6128GainBytes[static_cast<std::size_t>(colour)];
    for (const std::uint8_t copy : bytes.highCopies)
        WriteRun(large, {copy, 0, 6}, gain >> 1);
    WriteRun(large, {bytes.lowBitByte, 0, 3}, (gain & 1) ? 0b111 : 0);
}

int ReadFm6128ExScanCount(ConstBlock large) {
    return ReadRun(large, kFm6128ExScanCountRun) + 1;
}

void WriteFm6128ExScanCount(Block large, std::uint32_t count) {
    WriteRun(large, kFm6128ExScanCountRun, static_cast<int>(count - 1));
}

int ReadFm6128ExBlanking(ConstBlock large) {
    return ReadRun(large, kFm6128ExBlankingRun);
}

void WriteFm6128ExBlanking(Block large, int step) {
    WriteRun(large, kFm6128ExBlankingRun, step);
}

int ReadFm6129Gain(ConstBlock block, Colour colour) {
    return ReadRun(block, Fm6129GainRun(colour));
}

void WriteFm6129Gain(Block block, Colour colour, int gain) {
    WriteRun(block, Fm6129GainRun(colour), gain);
}

int ReadFm6129LowGrey(ConstBlock block, Colour colour) {
    return ReadRun(block, Fm6129LowGreyRun(colour));
}

void WriteFm6129LowGrey(Block block, Colour colour, int step) {
    WriteRun(block, Fm6129LowGreyRun(colour), step);
}

int Fm6129ExFieldMax(Fm6129ExField field) {
    return bitfield::Mask(Fm6129ExRun(kRed, field).width);
}

int ReadFm6129Ex(ConstBlock block, Colour colour, Fm6129ExField field) {
    return ReadRun(block, Fm6129ExRun(colour, field));
}

void WriteFm6129Ex(Block block, Colour colour, Fm6129ExField field, int value) {
    WriteRun(block, Fm6129ExRun(colour, field), value);
}

} // namespace fm612x
