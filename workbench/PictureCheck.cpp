#include "workbench/PictureCheck.h"

#include <algorithm>

std::vector<int> BareAreas(const PixelImage& picture, const PixelImage& bare,
                           std::span<const PictureArea> areas) {
    std::vector<int> unpainted;
    const int width = std::min(picture.width, bare.width);
    const int height = std::min(picture.height, bare.height);
    for (const PictureArea& area : areas) {
        const int left = std::max(area.left, 0), right = std::min(area.right, width);
        const int top = std::max(area.top, 0), bottom = std::min(area.bottom, height);
        bool painted = left >= right || top >= bottom;
        for (int y = top; y < bottom && !painted; ++y)
            for (int x = left; x < right && !painted; ++x)
                painted = picture.At(x, y) != bare.At(x, y);
        if (!painted)
            unpainted.push_back(area.controlId);
    }
    return unpainted;
}
