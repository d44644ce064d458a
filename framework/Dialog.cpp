#include "framework/Dialog.h"

#include "framework/ModuleInstance.h"

#include <commctrl.h>

#include <cstdint>
#include <vector>

namespace {

// Marks windows created by this framework; the value is the dialog object.
constexpr wchar_t kDialogProperty[] = L"Regvane.CDialog";

} // namespace

void DDX_Control(CDataExchange* dx, int id, CWnd& control) {
    if (!control.GetSafeHwnd())
        control.Attach(dx->Item(id));
}

void DDX_Text(CDataExchange* dx, int id, std::wstring& value) {
    HWND item = dx->Item(id);
    if (dx->Saving()) {
        value = CWnd(item).GetWindowText();
    } else {
        ::SetWindowTextW(item, value.c_str());
    }
}

void DDX_Check(CDataExchange* dx, int id, int& value) {
    if (dx->Saving())
        value = static_cast<int>(::SendMessageW(dx->Item(id), BM_GETCHECK, 0, 0));
    else
        ::SendMessageW(dx->Item(id), BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_CBIndex(CDataExchange* dx, int id, int& value) {
    if (dx->Saving())
        value = static_cast<int>(::SendMessageW(dx->Item(id), CB_GETCURSEL, 0, 0));
    else
        ::SendMessageW(dx->Item(id), CB_SETCURSEL, static_cast<WPARAM>(value), 0);
}

void DDX_Slider(CDataExchange* dx, int id, int& value) {
    if (dx->Saving())
        value = static_cast<int>(::SendMessageW(dx->Item(id), TBM_GETPOS, 0, 0));
    else
        ::SendMessageW(dx->Item(id), TBM_SETPOS, TRUE, value);
}

CDialog::~CDialog() {
    if (m_hWnd) {
        // Detach first: no handler of a half-destroyed object may run while the window goes.
        HWND window = Detach();
        ::RemovePropW(window, kDialogProperty);
        ::SetWindowLongPtrW(window, DWLP_USER, 0);
        ::DestroyWindow(window);
    }
}

void CDialog::RegisterCommonControls() {
    static const bool controlsRegistered = [] {
        INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES | ICC_UPDOWN_CLASS |
                                                                       ICC_STANDARD_CLASSES |
                                                                       ICC_LISTVIEW_CLASSES};
        return ::InitCommonControlsEx(&classes) != FALSE;
    }();
    (void)controlsRegistered;
}

BOOL CDialog::Create(UINT templateId, HWND parent) {
    RegisterCommonControls();
    m_templateId = templateId;
    if (!parent)
        parent = m_parentAtConstruction;
    HWND window = ::CreateDialogParamW(ResourceInstance(), MAKEINTRESOURCEW(templateId), parent, DialogProc,
                                       reinterpret_cast<LPARAM>(this));
    return window != nullptr;
}

BOOL CDialog::CreateFrame(UINT templateId, HWND parent) {
    RegisterCommonControls();
    m_templateId = templateId;
    if (!parent)
        parent = m_parentAtConstruction;
    HRSRC found = ::FindResourceW(ResourceInstance(), MAKEINTRESOURCEW(templateId), RT_DIALOG);
    HGLOBAL loaded = found ? ::LoadResource(ResourceInstance(), found) : nullptr;
    const auto* bytes = loaded ? static_cast<const std::uint8_t*>(::LockResource(loaded)) : nullptr;
    const DWORD size = found ? ::SizeofResource(ResourceInstance(), found) : 0;
    if (!bytes || size < 18)
        return FALSE;
    // The same template with a control count of 0: DLGTEMPLATEEX keeps the count at byte 16,
    // DLGTEMPLATE at byte 8. Everything after the header is then never read.
    std::vector<std::uint8_t> frame(bytes, bytes + size);
    const bool extended = frame[2] == 0xFF && frame[3] == 0xFF;
    const std::size_t countOffset = extended ? 16 : 8;
    frame[countOffset] = 0;
    frame[countOffset + 1] = 0;
    HWND window =
        ::CreateDialogIndirectParamW(ResourceInstance(), reinterpret_cast<LPCDLGTEMPLATEW>(frame.data()),
                                     parent, DialogProc, reinterpret_cast<LPARAM>(this));
    return window != nullptr;
}

CDialog* CDialog::FromHandle(HWND window) {
    if (!window || !::IsWindow(window))
        return nullptr;
    return static_cast<CDialog*>(::GetPropW(window, kDialogProperty));
}

std::wstring CDialog::GetItemText(int id) const {
    CWnd item(GetItem(id));
    return item.GetWindowText();
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
    if (!m_hWnd)
        return FALSE;
    CDataExchange dx(m_hWnd, saveAndValidate != FALSE);
    DoDataExchange(&dx);
    return dx.Failed() ? FALSE : TRUE;
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnCancel() {
    if (m_hWnd)
        ::DestroyWindow(m_hWnd);
}

INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CDialog* dialog = nullptr;
    if (message == WM_INITDIALOG) {
        dialog = reinterpret_cast<CDialog*>(lParam);
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        ::SetPropW(window, kDialogProperty, dialog);
        dialog->m_hWnd = window;
    } else {
        dialog = reinterpret_cast<CDialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    }
    if (!dialog)
        return FALSE; // messages before WM_INITDIALOG, and after the object let go of the window
    try {
        return dialog->HandleMessage(message, wParam, lParam);
    } catch (...) {
        // Nothing may unwind through user32; the operator keeps a working dialog.
        return FALSE;
    }
}

INT_PTR CDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: {
        m_initializing = true;
        struct Guard {
            bool& flag;
            ~Guard() { flag = false; }
        } guard{m_initializing};
        return OnInitDialog();
    }
    case WM_COMMAND: {
        const UINT id = LOWORD(wParam);
        if (OnCommand(HIWORD(wParam), id, reinterpret_cast<HWND>(lParam)))
            return TRUE;
        if (id == IDOK) {
            OnOK();
            return TRUE;
        }
        if (id == IDCANCEL) {
            OnCancel();
            return TRUE;
        }
        return FALSE;
    }
    case WM_HSCROLL:
        return OnHScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)) ? TRUE : FALSE;
    case WM_VSCROLL:
        return OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)) ? TRUE : FALSE;
    case WM_SHOWWINDOW:
        OnShowWindow(wParam != 0, static_cast<UINT>(lParam));
        return FALSE;
    case WM_NOTIFY: {
        LRESULT result = 0;
        if (!OnNotify(reinterpret_cast<NMHDR*>(lParam), result))
            return FALSE;
        ::SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, result);
        return TRUE;
    }
    case WM_DESTROY:
        OnDestroy();
        return FALSE;
    case WM_NCDESTROY: {
        ::RemovePropW(m_hWnd, kDialogProperty);
        ::SetWindowLongPtrW(m_hWnd, DWLP_USER, 0);
        m_hWnd = nullptr;
        if (m_deleteOnDestroy)
            delete this;
        return FALSE;
    }
    default:
        break;
    }
    if (message >= WM_USER && message < 0xC000 + 0x4000) {
        LRESULT result = 0;
        if (OnUserMessage(message, wParam, lParam, result)) {
            ::SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, result);
            return TRUE;
        }
        return FALSE;
    }
    INT_PTR result = FALSE;
    return OnOtherMessage(message, wParam, lParam, result) ? result : FALSE;
}
