// How a planned page fits the room its host gives it: the bands of rows flow into as many columns,
// side by side, as the page needs to be no taller than the room, and as the room's width allows;
// what still does not fit is left for the page to scroll. A band (a group box with its rows) is never
// split, so a column may end early. The link switch and the colour names stay on top, the colour
// names over every column, and the buttons below the columns, OK and Cancel at the right edge.
//
// Portable: pixels in, pixels out, in the plan's order (the tab order runs down each column in turn).
#pragma once

#include "descriptions/DescriptionLayout.h"

namespace chipdesc {

// The host's room for the page, in pixels; 0: no limit that way.
struct PageArea {
    int width = 0;
    int height = 0;
    int scrollBarWidth = 0; // what a vertical scroll bar takes from the width
};

struct FlowedPlan {
    LayoutPlan plan; // width and height: all of the page's content, columns side by side
    int columns = 1;
    bool scrolls = false; // the content is taller than the room: the page shows part of it at a time
};

FlowedPlan FlowIntoColumns(const LayoutPlan& plan, PageArea area);

} // namespace chipdesc
