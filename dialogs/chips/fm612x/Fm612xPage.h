// Pieces every FM612x page shares on the Win32 side: the red, green, blue rows of controls and the
// caption built from the host's model name.
#pragma once

#include "dialogs/chips/fm612x/Fm612xRegisters.h"
#include "host/IRegvane.h"

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

namespace fm612x {

// Control ids of one row kind, red, green, blue.
using ColourIds = std::array<int, kColourCount>;

// The colour whose control has this id, or -1 for any other control.
int ColourOfId(const ColourIds& ids, UINT id);
// The colour whose window this is among three controls, or -1 (a scroll bar that is no gain slider).
template <typename Control>
int ColourOfWindow(const std::array<Control, kColourCount>& controls, HWND window) {
    for (const Colour colour : kColours)
        if (window && controls[colour].GetSafeHwnd() == window)
            return colour;
    return -1;
}

// "<model name the host reports> <translated setting title>".
std::wstring ModelCaption(IRegvane* chip, std::wstring_view titleStringId);

} // namespace fm612x
