#include "framework/NumberEdit.h"

#include "framework/ModuleInstance.h"
#include "framework/Subclass.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cwchar>
#include <map>
#include <vector>
#include <utility>

namespace {

// The spin buttons never move: every press is a step, and the up-down stays in the middle of its
// range so both arrows keep working.
constexpr int kSpinRest = 1;

// The numeric edits whose spin buttons live in each parent window. All of them share one subclass
// of the parent: a page with many edits would otherwise pass every one of its messages through one
// subclass procedure per edit.
std::map<HWND, std::vector<CNumberEdit*>>& SpinEditsOf() {
    static std::map<HWND, std::vector<CNumberEdit*>> edits;
    return edits;
}
constexpr UINT_PTR kParentSubclassId = 0x0746;

} // namespace

CNumberEdit::~CNumberEdit() {
    Release();
}

bool CNumberEdit::SubclassWindow(HWND edit) {
    wchar_t className[16] = {};
    if (!edit || !::GetClassNameW(edit, className, 16) || _wcsicmp(className, L"Edit") != 0)
        return false;
    Release();
    Attach(edit);
    // The value first: the edit's own procedure answers faster before the hook is in place.
    ShowValue();
    AddSubclass(edit, EditProc, reinterpret_cast<UINT_PTR>(this), reinterpret_cast<DWORD_PTR>(this));
    m_parent = ::GetParent(edit);
    if (m_spinWanted)
        CreateSpin();
    return true;
}

void CNumberEdit::SetRange(double minimum, double maximum) {
    if (minimum > maximum)
        std::swap(minimum, maximum);
    m_min = minimum;
    m_max = maximum;
    m_value = Normalize(m_value);
    ShowValue();
}

void CNumberEdit::SetPrecision(int decimals) {
    m_precision = std::clamp(decimals, 0, 9);
    m_value = Normalize(m_value);
    ShowValue();
}

void CNumberEdit::SetUnit(std::wstring_view unit) {
    m_unit = unit;
    ShowValue();
}

void CNumberEdit::EnableSpin(const RECT& place) {
    m_spinPlaced = true;
    m_spinPlace = place;
    EnableSpin(true);
}

void CNumberEdit::EnableSpin(bool enable) {
    m_spinWanted = enable;
    if (!m_hWnd)
        return;
    if (enable && !m_spin) {
        CreateSpin();
    } else if (!enable && m_spin) {
        ::DestroyWindow(m_spin);
        m_spin = nullptr;
        LeaveParent();
    }
}

void CNumberEdit::SetValue(double value) {
    m_value = Normalize(value);
    ShowValue();
}

int CNumberEdit::GetValueInt() const {
    const long long rounded = std::llround(m_value);
    return static_cast<int>(std::clamp<long long>(rounded, INT_MIN, INT_MAX));
}

std::wstring CNumberEdit::Format(double value) const {
    wchar_t text[64] = {};
    std::swprintf(text, 64, L"%.*f", m_precision, value);
    std::wstring shown(text);
    if (!m_unit.empty())
        shown += L' ' + m_unit;
    return shown;
}

double CNumberEdit::Normalize(double value) const {
    if (std::isnan(value))
        return m_value;
    const double scale = std::pow(10.0, m_precision);
    if (std::isfinite(value) && std::fabs(value) * scale < 1e15)
        value = std::round(value * scale) / scale;
    value = std::clamp(value, m_min, m_max);
    return value == 0 ? 0.0 : value; // never show "-0"
}

void CNumberEdit::ShowValue() {
    if (!m_hWnd)
        return;
    SetWindowTextIfChanged(Format(m_value));
}

void CNumberEdit::CommitText() {
    const std::wstring text = GetWindowText();
    const wchar_t* begin = text.c_str();
    wchar_t* end = nullptr;
    const double typed = std::wcstod(begin, &end);
    if (end == begin || std::isnan(typed)) {
        ShowValue(); // no number: the previous value stays
        return;
    }
    Commit(typed);
}

void CNumberEdit::StepBy(int steps) {
    const std::wstring text = GetWindowText();
    wchar_t* end = nullptr;
    double current = std::wcstod(text.c_str(), &end);
    if (end == text.c_str() || !std::isfinite(current))
        current = m_value;
    Commit(current + steps * m_step);
}

void CNumberEdit::Commit(double value) {
    const double previous = m_value;
    m_value = Normalize(value);
    ShowValue();
    if (m_value != previous && m_parent)
        ::SendMessageW(m_parent, kNumberEditValueChanged, static_cast<WPARAM>(::GetDlgCtrlID(m_hWnd)),
                       reinterpret_cast<LPARAM>(m_hWnd));
}

void CNumberEdit::CreateSpin() {
    if (!m_hWnd || !m_parent || m_spin)
        return;
    RECT place = m_spinPlace;
    if (!m_spinPlaced) {
        // The right end of the edit's place, as an up-down aligned to its buddy takes it; placing
        // it ourselves spares the buddy's rounds of moving both windows.
        RECT edit{};
        ::GetWindowRect(m_hWnd, &edit);
        ::MapWindowPoints(nullptr, m_parent, reinterpret_cast<POINT*>(&edit), 2);
        const int width = std::min<int>(::GetSystemMetrics(SM_CXVSCROLL), (edit.right - edit.left) / 2);
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, edit.right - edit.left - width, edit.bottom - edit.top,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        place = {edit.right - width, edit.top, edit.right, edit.bottom};
    }
    const DWORD visible = (::GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_VISIBLE) ? WS_VISIBLE : 0;
    m_spin = ::CreateWindowExW(WS_EX_NOPARENTNOTIFY, UPDOWN_CLASSW, nullptr, WS_CHILD | visible, place.left,
                               place.top, place.right - place.left, place.bottom - place.top, m_parent,
                               nullptr, ResourceInstance(), nullptr);
    if (!m_spin)
        return;
    // Right after the edit in the tab and drawing order, as a buddy's up-down is.
    if (::GetWindow(m_hWnd, GW_HWNDNEXT) != m_spin)
        ::SetWindowPos(m_spin, m_hWnd, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SendMessageW(m_spin, UDM_SETRANGE32, kSpinRest - 1, kSpinRest + 1);
    ::SendMessageW(m_spin, UDM_SETPOS32, 0, kSpinRest);
    std::vector<CNumberEdit*>& edits = SpinEditsOf()[m_parent];
    if (edits.empty())
        AddSubclass(m_parent, ParentProc, kParentSubclassId, 0);
    edits.push_back(this);
}

void CNumberEdit::LeaveParent() {
    auto found = SpinEditsOf().find(m_parent);
    if (found == SpinEditsOf().end())
        return;
    std::vector<CNumberEdit*>& edits = found->second;
    edits.erase(std::remove(edits.begin(), edits.end(), this), edits.end());
    if (edits.empty()) {
        if (::IsWindow(m_parent))
            RemoveSubclass(m_parent, ParentProc, kParentSubclassId);
        SpinEditsOf().erase(found);
    }
}

void CNumberEdit::Release() {
    if (m_hWnd && ::IsWindow(m_hWnd))
        RemoveSubclass(m_hWnd, EditProc, reinterpret_cast<UINT_PTR>(this));
    if (m_parent)
        LeaveParent();
    Detach();
    m_parent = nullptr;
    m_spin = nullptr;
}

LRESULT CALLBACK CNumberEdit::EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR data) {
    auto* self = reinterpret_cast<CNumberEdit*>(data);
    switch (message) {
    case WM_KILLFOCUS: {
        const LRESULT result = NextSubclass(window, message, wParam, lParam);
        self->CommitText();
        return result;
    }
    case WM_GETDLGCODE: {
        // Enter belongs to the edit (it commits the value), not to the dialog's default button.
        const auto* msg = reinterpret_cast<const MSG*>(lParam);
        LRESULT code = NextSubclass(window, message, wParam, lParam);
        if (msg && msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN)
            code |= DLGC_WANTALLKEYS;
        return code;
    }
    case WM_KEYDOWN:
        if (wParam == VK_RETURN) {
            self->CommitText();
            return 0;
        }
        if (wParam == VK_UP || wParam == VK_DOWN) {
            self->StepBy(wParam == VK_UP ? 1 : -1);
            return 0;
        }
        break;
    case WM_CHAR:
        if (wParam == L'\r')
            return 0; // already handled on key down; a single-line edit would only beep
        break;
    case WM_SHOWWINDOW:
        if (self->m_spin && lParam == 0)
            ::ShowWindow(self->m_spin, wParam ? SW_SHOWNA : SW_HIDE);
        break;
    case WM_WINDOWPOSCHANGED: {
        // The spin buttons follow the edit when a page shows or hides it.
        const auto* pos = reinterpret_cast<const WINDOWPOS*>(lParam);
        if (self->m_spin && (pos->flags & SWP_SHOWWINDOW))
            ::ShowWindow(self->m_spin, SW_SHOWNA);
        if (self->m_spin && (pos->flags & SWP_HIDEWINDOW))
            ::ShowWindow(self->m_spin, SW_HIDE);
        break;
    }
    case WM_ENABLE:
        if (self->m_spin)
            ::EnableWindow(self->m_spin, static_cast<BOOL>(wParam));
        break;
    case WM_NCDESTROY:
        self->Release();
        break;
    default:
        break;
    }
    return NextSubclass(window, message, wParam, lParam);
}

LRESULT CALLBACK CNumberEdit::ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR) {
    if (message == WM_NOTIFY || message == WM_VSCROLL) {
        const HWND from = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->hwndFrom
                                               : reinterpret_cast<HWND>(lParam);
        const auto found = SpinEditsOf().find(window);
        CNumberEdit* self = nullptr;
        if (from && found != SpinEditsOf().end())
            for (CNumberEdit* edit : found->second)
                if (edit->m_spin == from)
                    self = edit;
        if (self && message == WM_VSCROLL)
            return 0; // a spin press is a value change, not a scroll of the page
        if (self && reinterpret_cast<const NMHDR*>(lParam)->code == UDN_DELTAPOS) {
            const auto* change = reinterpret_cast<const NMUPDOWN*>(lParam);
            if (change->iDelta != 0)
                self->StepBy(change->iDelta > 0 ? 1 : -1);
            return 1; // keep the up-down at rest
        }
    }
    if (message == WM_NCDESTROY) {
        if (const auto found = SpinEditsOf().find(window); found != SpinEditsOf().end()) {
            for (CNumberEdit* edit : found->second) {
                edit->m_parent = nullptr;
                edit->m_spin = nullptr;
            }
            SpinEditsOf().erase(found);
        }
    }
    return NextSubclass(window, message, wParam, lParam);
}

void DDX_Control(CDataExchange* dx, int id, CNumberEdit& edit) {
    if (!edit.GetSafeHwnd())
        edit.SubclassWindow(dx->Item(id));
}
