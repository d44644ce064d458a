// What the FM6128 pages share on the Win32 side: a control per colour, red, green, blue.
#pragma once

#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include <windows.h>

#include <array>

namespace fm612x {

// Control ids of one row kind, red, green, blue.
using ColourIds = std::array<int, kColourCount>;

// The colour whose window this is among three controls, or -1 (a scroll bar that is no gain slider).
template <typename Control>
int ColourOfWindow(const std::array<Control, kColourCount>& controls, HWND window) {
    for (const Colour colour : kColours)
        if (window && controls[colour].GetSafeHwnd() == window)
            return colour;
    return -1;
}

} // namespace fm612x
