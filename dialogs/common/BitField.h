// Bit fields of a chip's register block. A field is (byte, shift, width); an RGB chip keeps one copy
// of each register per colour, red, green, blue, two bytes apart, and a page writes a field into
// all three copies. Values are cut to the field's width, never rejected: the chips take only the
// low bits, and the controls keep values in range before they get here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace bitfield {

// Mask of a field of the given width, built bit by bit and kept to 8 bits (6 -> 0x3F).
constexpr std::uint8_t Mask(unsigned width) {
    std::uint8_t mask = 0;
    for (unsigned i = 0; i < width; ++i)
        mask = static_cast<std::uint8_t>((mask << 1) | 1);
    return mask;
}

constexpr int Read(std::uint8_t byte, unsigned shift, unsigned width) {
    return (byte >> shift) & Mask(width);
}

// (byte and not mask) or (value and mask), the mask moved to the field.
constexpr std::uint8_t Write(std::uint8_t byte, unsigned shift, unsigned width, int value) {
    const unsigned mask = (static_cast<unsigned>(Mask(width)) << shift) & 0xFFu;
    return static_cast<std::uint8_t>((byte & ~mask) | ((static_cast<unsigned>(value) << shift) & mask));
}

// A field of one register byte.
struct Field {
    std::uint8_t byte;
    std::uint8_t shift;
    std::uint8_t width;

    int ReadFrom(std::span<const std::uint8_t> block) const {
        return byte < block.size() ? Read(block[byte], shift, width) : 0;
    }
    void WriteTo(std::span<std::uint8_t> block, int value) const {
        if (byte < block.size())
            block[byte] = Write(block[byte], shift, width, value);
    }
};

// A field repeated per colour: red at `red`, green and blue `stride` bytes further each.
struct ColourField {
    std::uint8_t red;
    std::uint8_t shift;
    std::uint8_t width;
    std::uint8_t stride = 2;

    static constexpr int kColours = 3;

    constexpr Field Of(int colour) const {
        return {static_cast<std::uint8_t>(red + colour * stride), shift, width};
    }
    // The red copy stands for all three when a page shows one value.
    int ReadFrom(std::span<const std::uint8_t> block) const { return Of(0).ReadFrom(block); }
    void WriteAll(std::span<std::uint8_t> block, int value) const {
        for (int colour = 0; colour < kColours; ++colour)
            Of(colour).WriteTo(block, value);
    }
};

} // namespace bitfield
