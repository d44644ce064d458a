// A small PNG encoder for screenshots: 8-bit RGB, no interlace, one zlib stream.
#pragma once

#include <cstdint>
#include <vector>

// rgb holds height rows of width pixels, 3 bytes each (red, green, blue), top row first.
std::vector<std::uint8_t> EncodePng(int width, int height, const std::vector<std::uint8_t>& rgb);
