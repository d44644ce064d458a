// A numeric edit: a range, a step, a number of decimals, an optional unit shown after the number and
// optional spin buttons (an up-down control placed at the edit's right edge).
//
// The operator changes the value by typing and leaving the edit (focus loss), by Enter, by the Up
// and Down keys or by the spin buttons. The edit then clamps the value to its range, shows it in
// its own format and, when the value differs from the one before, sends its parent
//     kNumberEditValueChanged   wParam = the edit's control id, lParam = the edit's HWND
// with SendMessage. Text that holds no number puts the previous value back, without a message.
// Setting the value from code (SetValue) never sends the message.
//
// Settings made before the edit is attached to its window are kept and applied when it is. Attach
// with the DDX_Control overload below (or SubclassWindow): the edit watches its window and, for the
// spin buttons, its parent through comctl32 window subclassing, and lets go of both when either is
// destroyed or the object goes.
#pragma once

#include "framework/Dialog.h"

#include <string>
#include <string_view>

inline constexpr UINT kNumberEditValueChanged = 0x0746;

class CNumberEdit : public CWnd {
public:
    CNumberEdit() = default;
    ~CNumberEdit() override;

    // Takes over an existing edit window. Returns false when the window is no edit control.
    bool SubclassWindow(HWND edit);

    // A minimum above the maximum is read as the same range the other way round.
    void SetRange(double minimum, double maximum);
    double GetMin() const { return m_min; }
    double GetMax() const { return m_max; }
    void SetStep(double step) { m_step = step; }
    void SetPrecision(int decimals);
    void SetUnit(std::wstring_view unit);
    // Adds (or removes) the spin buttons; takes effect when the window exists.
    void EnableSpin(bool enable);

    // Clamps to the range, rounds to the precision and shows the value; no notification.
    void SetValue(double value);
    void SetValue(int value) { SetValue(static_cast<double>(value)); }
    double GetValue() const { return m_value; }
    int GetValueInt() const;

    // The text the edit shows for a value: the number with the set decimals, then " unit".
    std::wstring Format(double value) const;

private:
    static LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                     DWORD_PTR self);
    static LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR self);
    double Normalize(double value) const;
    void ShowValue();
    // Reads the typed text; commits and notifies when it gives a new value.
    void CommitText();
    void StepBy(int steps);
    void Commit(double value);
    void CreateSpin();
    void LeaveParent();
    void Release();

    double m_value = 0;
    double m_min = 0;
    double m_max = 100;
    double m_step = 1;
    int m_precision = 0;
    std::wstring m_unit;
    bool m_spinWanted = false;
    HWND m_spin = nullptr;
    HWND m_parent = nullptr;
};

// Attaching a numeric edit subclasses its window; DDX_Control picks this overload for it.
void DDX_Control(CDataExchange* dx, int id, CNumberEdit& edit);
