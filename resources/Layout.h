// Layout macros shared by the dialog templates, so every chip page looks alike: a child page with
// the dialog font, and one macro per kind of row. Units are dialog units.
#pragma once

// A page is a child without a title bar; windres gives a template with a CAPTION a title bar unless
// the CAPTION line comes first and STYLE then says RV_PAGE_STYLE | NOT WS_CAPTION.
#define RV_PAGE_STYLE DS_SETFONT | DS_CONTROL | DS_3DLOOK | WS_CHILD | WS_CLIPSIBLINGS
#define RV_PAGE_EXSTYLE WS_EX_CONTROLPARENT
#define RV_PAGE_FONT FONT 8, "MS Shell Dlg", 400, 0, 0x1

#define RV_MARGIN 7
#define RV_ROW 16

#define RV_LABEL(text, id, x, y, w) LTEXT text, id, x, y + 2, w, 9
#define RV_RLABEL(text, id, x, y, w) RTEXT text, id, x, y + 2, w, 9
#define RV_CHECK(text, id, x, y, w) CONTROL text, id, "Button", BS_AUTOCHECKBOX | WS_TABSTOP, x, y + 1, w, 10
#define RV_COMBO(id, x, y, w) COMBOBOX id, x, y, w, 120, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP
#define RV_SLIDER(id, x, y, w) CONTROL "", id, "msctls_trackbar32", TBS_HORZ | TBS_BOTTOM | TBS_NOTICKS | WS_TABSTOP, x, y, w, 14
#define RV_EDIT(id, x, y, w) EDITTEXT id, x, y, w, 12, ES_AUTOHSCROLL | WS_TABSTOP
#define RV_NUMBER(id, x, y, w) EDITTEXT id, x, y, w, 12, ES_AUTOHSCROLL | ES_NUMBER | WS_TABSTOP
#define RV_BUTTON(text, id, x, y, w) PUSHBUTTON text, id, x, y, w, 14, WS_TABSTOP
#define RV_GROUP(text, id, x, y, w, h) GROUPBOX text, id, x, y, w, h
