// Typed wrappers of the common controls the chip pages use. Each is a non-owning CWnd: a dialog
// holds them as members and DDX_Control attaches them to the template's controls in OnInitDialog.
#pragma once

#include "framework/Wnd.h"

#include <commctrl.h>

#include <string>
#include <string_view>

// A trackbar. The range messages take plain ints, so ranges beyond 16 bits work too.
class CSliderCtrl : public CWnd {
public:
    void SetRange(int minimum, int maximum, BOOL redraw = FALSE) const {
        SendMessage(TBM_SETRANGEMIN, FALSE, minimum);
        SendMessage(TBM_SETRANGEMAX, redraw, maximum);
        // Some trackbars place the thumb only when the position changes: move it away and back so
        // it is drawn where the new range puts it.
        const int position = GetPos();
        SendMessage(TBM_SETPOS, FALSE, position == minimum ? maximum : minimum);
        SendMessage(TBM_SETPOS, redraw, position);
    }
    int GetRangeMin() const { return static_cast<int>(SendMessage(TBM_GETRANGEMIN)); }
    int GetRangeMax() const { return static_cast<int>(SendMessage(TBM_GETRANGEMAX)); }
    void SetPos(int position, BOOL redraw = TRUE) const { SendMessage(TBM_SETPOS, redraw, position); }
    int GetPos() const { return static_cast<int>(SendMessage(TBM_GETPOS)); }
};

// A drop-down list. Indices are those of CB_*: -1 means no selection.
class CComboBox : public CWnd {
public:
    void ResetContent() const { SendMessage(CB_RESETCONTENT); }
    int AddString(std::wstring_view text) const {
        const std::wstring item(text);
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str())));
    }
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    int SetCurSel(int index) const {
        return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)));
    }
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
};

// A push button or check box; the pages draw their check boxes with it.
class CButtonEx : public CWnd {
public:
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int state) const { SendMessage(BM_SETCHECK, static_cast<WPARAM>(state)); }
};

// A label.
class CStatic : public CWnd {};
