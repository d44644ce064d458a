// Pictures of pages for people to look at. Wine paints only the background into PrintWindow, so
// the picture is read back from the screen, where the page really is: the page must be shown and
// not covered.
#pragma once

#include <windows.h>

#include <string>

// Writes the screen rectangle of window as a PNG file. Empty on success, else what went wrong.
// The part of a window that lies off the screen is cut off; cropped says whether that happened.
std::string CaptureWindowPng(HWND window, const std::wstring& path, SIZE& size, bool& cropped);
