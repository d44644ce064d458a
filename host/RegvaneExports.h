// The functions regvane.dll exports, by plain name. A host may link the import library or look
// them up with GetProcAddress; the typedefs match both.
#pragma once

#include "IRegvane.h"
#include "IRegvaneCallback.h"

#if defined(_WIN32)
#include <windows.h>
#else
typedef struct HWND__* HWND;
#endif

class CDialog; // the module's dialog class; hosts built with the same framework use it directly
class CWnd;

extern "C" {
// Every function runs on the host's user-interface thread, the one that calls InitRegvane: a call
// from another thread does nothing and returns null (a debug build of the module stops on it). No
// exception leaves a function; a failure inside gives null or does nothing.
//
// Hands the module the host's callback; the module keeps it and never releases it.
void InitRegvane(IRegvaneCallback* callback);
// Re-reads the host's language and loads the matching language files.
void RegvaneLanguageChanged();
// The settings page of one chip type as a modeless child of parent; null for unknown types and
// for a parent that is not a window.
// The host owns the returned dialog.
CDialog* CreateRegvaneWnd(int chipType, IRegvane* chip, const wchar_t* caption, CWnd* parent);
// The same page for hosts that hold plain window handles; the page frees itself when its window is
// destroyed. Null where CreateRegvaneWnd gives null.
HWND CreateRegvaneHwnd(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent);
// The class name of a chip page of this module ("CRegvaneMbi5153"), null for any other window.
const char* RegvaneDialogClassName(HWND dialog);
}

typedef void (*InitRegvaneFn)(IRegvaneCallback*);
typedef void (*RegvaneLanguageChangedFn)();
typedef CDialog* (*CreateRegvaneWndFn)(int, IRegvane*, const wchar_t*, CWnd*);
typedef HWND (*CreateRegvaneHwndFn)(int, IRegvane*, const wchar_t*, HWND);
typedef const char* (*RegvaneDialogClassNameFn)(HWND);
