// Turns a host chip-type number into its settings page.
#pragma once

#include "host/IRegvane.h"

#include <windows.h>

class CDialog;

// The created page, or null when the type (or its sub-type) has no page.
CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent);
