// Exports of regvane.dll for tools rather than hosts: the workbench's chip-description designer
// opens a description file directly and checks files for a chip engineer's CI.
#pragma once

#include "IRegvane.h"

#if defined(_WIN32)
#include <windows.h>
#else
typedef struct HWND__* HWND;
#endif

extern "C" {
// 0 when the description file can be used; otherwise non-zero, and problem (when given) receives
// every problem of the file, one a line ("file:line: reason", or "file:line:column: reason"), as many
// whole lines as fit in problemChars including the terminating zero.
int RegvaneCheckDescription(const wchar_t* path, wchar_t* problem, int problemChars);
// The page a description file renders, as a modeless child of parent that frees itself when its
// window is destroyed; null, with the problem as above, when the file cannot be used.
HWND RegvaneCreateDescribedPage(const wchar_t* path, IRegvane* chip, const wchar_t* caption, HWND parent,
                                wchar_t* problem, int problemChars);
}

typedef int (*RegvaneCheckDescriptionFn)(const wchar_t*, wchar_t*, int);
typedef HWND (*RegvaneCreateDescribedPageFn)(const wchar_t*, IRegvane*, const wchar_t*, HWND, wchar_t*, int);
