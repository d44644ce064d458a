// Whether a picture of a page shows every control: a control that has painted leaves at least one
// pixel of its area different from the page's bare background. Portable, so it is tested natively.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

// 32-bit pixels, top row first; whatever the encoding, equal pixels compare equal.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    std::uint32_t At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

// A control's visible part, in picture coordinates (right and bottom exclusive).
struct PictureArea {
    int controlId;
    int left, top, right, bottom;
};

// The ids of the areas in which the picture equals the bare background at every pixel. `bare` is
// the page's background as it looks with no control on it, the same size as the picture. Parts of
// an area outside the picture are not looked at; an area entirely outside counts as painted.
std::vector<int> BareAreas(const PixelImage& picture, const PixelImage& bare,
                           std::span<const PictureArea> areas);
