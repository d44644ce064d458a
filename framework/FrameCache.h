// A control's frame (its border and scroll bars) as the system last drew it, kept as pixels for the
// next control of the same class, size, scroll state and colours. Under Wine's default theme a list's
// scroll bar alone takes longer to draw than the dialog around it, and every table page opens a list
// of the same size scrolled to the top: from the second page on, its frame is copied instead.
//
// Both calls come from the control's WM_NCPAINT:
//   if (!DrawKeptFrame(window)) { DefaultProc(WM_NCPAINT); KeepFrame(window, region); }
#pragma once

#include <windows.h>

// True when the frame was drawn from a kept copy: the system's drawing is then not needed.
bool DrawKeptFrame(HWND window);
// Right after the system drew the frame for the update region `region` (WM_NCPAINT's wParam): keeps
// it when all of it was drawn and all of it is on screen, with the mouse elsewhere (no part of it lit).
void KeepFrame(HWND window, WPARAM region);
// After a theme or setting change: no kept frame is drawn again.
void ForgetKeptFrames();
