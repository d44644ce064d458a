// The dialog base every chip page derives from: a modeless child created from one of this module's
// templates, data exchange between controls and members, and messages routed to named handlers.
#pragma once

#include "framework/Wnd.h"

#include <cstdint>
#include <string>
#include <string_view>

// Data exchange between a dialog's controls and its members, in one direction per call.
class CDataExchange {
public:
    CDataExchange(HWND dialog, bool saveAndValidate) : m_dialog(dialog), m_saveAndValidate(saveAndValidate) {}
    HWND Dialog() const { return m_dialog; }
    HWND Item(int id) const { return ::GetDlgItem(m_dialog, id); }
    bool Saving() const { return m_saveAndValidate; }
    // A DDX routine that finds a control's content unusable marks the exchange failed.
    void Fail() { m_failed = true; }
    bool Failed() const { return m_failed; }

private:
    HWND m_dialog;
    bool m_saveAndValidate;
    bool m_failed = false;
};

void DDX_Control(CDataExchange* dx, int id, CWnd& control);
void DDX_Text(CDataExchange* dx, int id, std::wstring& value);
void DDX_Check(CDataExchange* dx, int id, int& value);
void DDX_CBIndex(CDataExchange* dx, int id, int& value);
void DDX_Slider(CDataExchange* dx, int id, int& value);

class CDialog : public CWnd {
public:
    CDialog(UINT templateId, HWND parent) : m_templateId(templateId), m_parentAtConstruction(parent) {}
    ~CDialog() override;

    // Creates the window from this module's template as a child of parent; FALSE when that fails.
    virtual BOOL Create(UINT templateId, HWND parent);
    // Creates the window from the template's frame only (style, size, caption, font), without its
    // controls: for pages that lay out their own controls in their class's frame.
    BOOL CreateFrame(UINT templateId, HWND parent);
    UINT TemplateId() const { return m_templateId; }

    // The class name of the chip page, for diagnostics and for hosts that list pages.
    virtual const char* DialogClassName() const { return "CDialog"; }

    // TRUE copies control states into members, FALSE the other way; FALSE result when a control
    // held something unusable.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // The object deletes itself when its window is destroyed (for hosts that hold only the HWND).
    void DeleteOnDestroy() { m_deleteOnDestroy = true; }

    // The dialog object behind a window of this module's dialogs, or null for any other window.
    static CDialog* FromHandle(HWND window);

    // Helpers by control id.
    HWND GetItem(int id) const { return ::GetDlgItem(m_hWnd, id); }
    void EnableItem(int id, bool enable) const { ::EnableWindow(GetItem(id), enable); }
    void ShowItem(int id, int command) const { ::ShowWindow(GetItem(id), command); }
    void ShowItem(int id, bool show) const { ShowItem(id, show ? SW_SHOW : SW_HIDE); }
    void SetItemText(int id, std::wstring_view text) const {
        ::SetDlgItemTextW(m_hWnd, id, std::wstring(text).c_str());
    }
    std::wstring GetItemText(int id) const;
    void CheckButton(int id, bool checked) const {
        ::CheckDlgButton(m_hWnd, id, checked ? BST_CHECKED : BST_UNCHECKED);
    }
    bool IsButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id) == BST_CHECKED; }
    LRESULT SendItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendDlgItemMessageW(m_hWnd, id, message, wParam, lParam);
    }

protected:
    virtual void DoDataExchange(CDataExchange* dx) {}
    virtual BOOL OnInitDialog();
    // Enter: does nothing unless a dialog says otherwise.
    virtual void OnOK() {}
    // Closes the dialog.
    virtual void OnCancel();

    // Named handlers; each returns true when it handled the message.
    virtual bool OnCommand(UINT notifyCode, UINT id, HWND control) { return false; }
    virtual bool OnHScroll(UINT code, UINT position, HWND scrollBar) { return false; }
    virtual bool OnVScroll(UINT code, UINT position, HWND scrollBar) { return false; }
    virtual void OnShowWindow(bool show, UINT status) {}
    virtual bool OnNotify(NMHDR* header, LRESULT& result) { return false; }
    // WM_USER and above, and registered messages.
    virtual bool OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) { return false; }
    virtual void OnDestroy() {}

    // Anything not routed above.
    virtual bool OnOtherMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) { return false; }

    // True while OnInitDialog runs: handlers keep quiet while controls are being filled.
    bool Initializing() const { return m_initializing; }

private:
    static void RegisterCommonControls();
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    UINT m_templateId;
    HWND m_parentAtConstruction;
    bool m_deleteOnDestroy = false;
    bool m_initializing = false;
};
