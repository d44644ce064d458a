// Subclassing a window as comctl32's SetWindowSubclass does, with the chain of procedures kept in
// this module's memory. Under Wine comctl32 looks its chain up in a window property on every message
// the window gets, a round trip to the window server each time (about 0.1 ms): a list view asked a
// few things per row while twenty rows are drawn took longer than the whole dialog around it.
//
//   AddSubclass(list, ListProc, kId, reinterpret_cast<DWORD_PTR>(this));
//   LRESULT CALLBACK ListProc(HWND w, UINT m, WPARAM wp, LPARAM lp, UINT_PTR, DWORD_PTR data) {
//       ...; return NextSubclass(w, m, wp, lp); }
#pragma once

#include <windows.h>

using SubclassProcedure = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM, UINT_PTR id, DWORD_PTR data);

// `procedure` sees the window's messages before the procedures it already has; added again with the
// same id, it keeps its place and takes the new data. False for a window this process cannot
// subclass.
bool AddSubclass(HWND window, SubclassProcedure procedure, UINT_PTR id, DWORD_PTR data);
// Also from inside the procedure itself, while it handles a message. A destroyed window takes its
// procedures with it: nothing needs removing on WM_NCDESTROY.
void RemoveSubclass(HWND window, SubclassProcedure procedure, UINT_PTR id);
// Inside a procedure: the message on to the next procedure, last to the window's own.
LRESULT NextSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
