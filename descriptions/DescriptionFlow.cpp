#include "descriptions/DescriptionFlow.h"

#include <algorithm>
#include <numeric>

namespace chipdesc {

namespace {

// Where each column starts (a band's index) when the bands fill columns of at most `limit` pixels in
// their order; a band taller than the limit has a column of its own.
std::vector<std::size_t> ColumnStarts(const std::vector<int>& heights, int limit) {
    std::vector<std::size_t> starts{0};
    int used = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        if (used > 0 && used + heights[i] > limit) {
            starts.push_back(i);
            used = 0;
        }
        used += heights[i];
    }
    return starts;
}

// The lowest column height at which the bands fill no more than `columns` columns.
int ShortestColumns(const std::vector<int>& heights, std::size_t columns) {
    int low = *std::max_element(heights.begin(), heights.end());
    int high = std::accumulate(heights.begin(), heights.end(), 0);
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (ColumnStarts(heights, middle).size() <= columns)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

// The height of the columns the bands fill: the fewest columns (each `pitch` wide) that fit the
// room's height with `around` pixels above and below them; else as many as fit beside a scroll bar.
int ColumnHeight(const std::vector<int>& heights, PageArea area, int pitch, int around) {
    auto columnsIn = [&](int width) {
        std::size_t columns = 1;
        while (columns < heights.size() && (width <= 0 || static_cast<int>(columns + 1) * pitch <= width))
            ++columns;
        return columns;
    };
    const std::size_t most = columnsIn(area.width);
    std::size_t columns = 1;
    int height = ShortestColumns(heights, columns);
    while (around + height > area.height && columns < most)
        height = ShortestColumns(heights, ++columns);
    if (around + height > area.height)
        height = ShortestColumns(heights, columnsIn(area.width - area.scrollBarWidth));
    return height;
}

// Each band's place once they fill columns of `height` pixels from `top`: its column, and how far it
// moves down (or up).
struct BandPlaces {
    std::vector<int> column, shift;
    std::size_t columns = 0;
    int contentBottom = 0;
};

BandPlaces PlaceBands(const std::vector<Band>& bands, const std::vector<int>& heights, int top, int height) {
    const std::vector<std::size_t> starts = ColumnStarts(heights, height);
    BandPlaces places{std::vector<int>(bands.size()), std::vector<int>(bands.size()), starts.size(), top};
    for (std::size_t column = 0; column < starts.size(); ++column) {
        int y = top;
        const std::size_t end = column + 1 < starts.size() ? starts[column + 1] : bands.size();
        for (std::size_t i = starts[column]; i < end; ++i) {
            places.column[i] = static_cast<int>(column);
            places.shift[i] = y - bands[i].top;
            y += heights[i];
        }
        places.contentBottom = std::max(places.contentBottom, y);
    }
    return places;
}

} // namespace

FlowedPlan FlowIntoColumns(const LayoutPlan& plan, PageArea area) {
    FlowedPlan flowed{plan, 1, area.height > 0 && plan.height > area.height};
    if (!flowed.scrolls || plan.bands.empty())
        return flowed;
    const std::vector<Band>& bands = plan.bands;
    const int top = bands.front().top;
    const int below = plan.height - bands.back().bottom; // the buttons and the margin
    std::vector<int> heights;
    for (const Band& band : bands)
        heights.push_back(band.bottom - band.top);
    // Columns keep the plan's margins, and twice a margin between them.
    int margin = plan.width;
    for (const PlannedWindow& window : plan.windows)
        margin = std::min(margin, window.rect.left);
    const int columnWidth = plan.width - 2 * margin;
    const int pitch = columnWidth + 2 * margin;
    const int height = ColumnHeight(heights, area, pitch, top + below);
    const BandPlaces places = PlaceBands(bands, heights, top, height);
    const int lastColumn = static_cast<int>(places.columns) - 1;
    const int contentBottom = places.contentBottom;

    LayoutPlan& out = flowed.plan;
    out.windows.clear();
    auto add = [&](PlannedWindow window, int dx, int dy) {
        window.rect = {window.rect.left + dx, window.rect.top + dy, window.rect.right + dx,
                       window.rect.bottom + dy};
        out.windows.push_back(std::move(window));
    };
    for (const PlannedWindow& window : plan.windows) {
        if (window.rect.top < top) {
            add(window, 0, 0);
            if (window.role == Role::ColourHeader)
                for (int column = 1; column <= lastColumn; ++column)
                    add(window, column * pitch, 0);
        } else if (window.rect.top >= bands.back().bottom) {
            const bool right = window.role == Role::OkButton || window.role == Role::CancelButton;
            add(window, right ? lastColumn * pitch : 0, contentBottom - bands.back().bottom);
        } else {
            const auto band =
                static_cast<std::size_t>(std::upper_bound(bands.begin(), bands.end(), window.rect.top,
                                                          [](int y, const Band& b) { return y < b.top; }) -
                                         bands.begin() - 1);
            add(window, places.column[band] * pitch, places.shift[band]);
        }
    }
    out.bands.clear();
    out.width = plan.width + lastColumn * pitch;
    out.height = contentBottom + below;
    flowed.columns = lastColumn + 1;
    flowed.scrolls = area.height > 0 && out.height > area.height;
    return flowed;
}

} // namespace chipdesc
