// Pictures of pages for people to look at. Wine paints only the background into PrintWindow, so
// the picture is read from the window as it is drawn: the page must be shown.
#pragma once

#include <windows.h>

#include <string>

// Writes the screen rectangle of window as a PNG file, once the window and every visible control in
// it have painted. Empty on success, else what went wrong. The part of a window that lies off the
// screen is cut off; cropped says whether that happened.
std::string CaptureWindowPng(HWND window, const std::wstring& path, SIZE& size, bool& cropped);
