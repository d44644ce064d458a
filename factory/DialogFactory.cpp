#include "factory/DialogFactory.h"

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) { return nullptr; }
