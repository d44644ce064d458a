#include "workbench/PngWriter.h"

#include <zlib.h>

#include <stdexcept>

namespace {

void PutBigEndian(std::vector<std::uint8_t>& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

// Length, type, data and the CRC of type and data.
void PutChunk(std::vector<std::uint8_t>& out, const char (&type)[5], const std::vector<std::uint8_t>& data) {
    PutBigEndian(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t typeAt = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    const uLong crc = crc32(0L, out.data() + typeAt, static_cast<uInt>(4 + data.size()));
    PutBigEndian(out, static_cast<std::uint32_t>(crc));
}

} // namespace

std::vector<std::uint8_t> EncodePng(int width, int height, const std::vector<std::uint8_t>& rgb) {
    if (width <= 0 || height <= 0 || rgb.size() != static_cast<std::size_t>(width) * height * 3)
        throw std::invalid_argument("EncodePng: the pixels do not match the size");

    std::vector<std::uint8_t> out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

    std::vector<std::uint8_t> header;
    PutBigEndian(header, static_cast<std::uint32_t>(width));
    PutBigEndian(header, static_cast<std::uint32_t>(height));
    header.insert(header.end(), {8, 2, 0, 0, 0}); // 8 bits, RGB, deflate, adaptive filters, no interlace
    PutChunk(out, "IHDR", header);

    // Every row starts with its filter; "Sub" (each byte minus the one a pixel to the left) makes the
    // flat areas of dialogs mostly zeros, which deflate packs well.
    const std::size_t stride = static_cast<std::size_t>(width) * 3;
    std::vector<std::uint8_t> filtered;
    filtered.reserve((stride + 1) * height);
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = rgb.data() + stride * y;
        filtered.push_back(1);
        for (std::size_t x = 0; x < stride; ++x)
            filtered.push_back(static_cast<std::uint8_t>(row[x] - (x >= 3 ? row[x - 3] : 0)));
    }
    uLongf packedSize = compressBound(static_cast<uLong>(filtered.size()));
    std::vector<std::uint8_t> packed(packedSize);
    if (compress2(packed.data(), &packedSize, filtered.data(), static_cast<uLong>(filtered.size()), 6) !=
        Z_OK)
        throw std::runtime_error("EncodePng: zlib could not compress the pixels");
    packed.resize(packedSize);
    PutChunk(out, "IDAT", packed);
    PutChunk(out, "IEND", {});
    return out;
}
