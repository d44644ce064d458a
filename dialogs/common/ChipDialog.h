// The skeleton every chip page follows.
//
// A page is a modeless child dialog that edits one chip's registers through the host's IRegvane.
// CChipDialog keeps the host pointer (never owned), snapshots the chip when the page is constructed,
// translates the template, reloads the view when the host shows the page again, answers the host's
// "read the chip again" message, routes numeric-edit changes, and runs the change test that tells
// the host whether the chip now differs from the snapshot.
//
// How a page derives from it:
//
//   class CRegvaneFoo : public CChipDialog {
//   public:
//       CRegvaneFoo(IRegvane* chip, const wchar_t* caption, HWND parent)
//           : CChipDialog(kFooTemplate, chip, parent, caption) { /* decode Changes().Snapshot(...) */ }
//       const char* DialogClassName() const override { return "CRegvaneFoo"; }
//   protected:
//       void DoDataExchange(CDataExchange* dx) override;  // DDX_Control / DDX_Check / ... per control
//       void OnInitControls() override;                   // title, edit ranges (after translation)
//       void RefreshFromChip() override;                  // ReadBlock(), decode into members,
//       UpdateData(FALSE) bool OnCommand(UINT code, UINT id, HWND control) override;
//   };
//
// A field handler is the same four lines everywhere:
//
//       if (!CanWrite()) return true;
//       UpdateData(TRUE);
//       RegBlock block = ReadBlock();  kFooField.WriteAll(block, m_foo);  WriteBlock(block);
//       NotifyIfChanged();
//
// The page's OK (8570) and Cancel (8571) buttons are handled here: a page's OnCommand ends with
// `return CChipDialog::OnCommand(code, id, control);`. OK runs CloseAfterChangeTest(), Cancel
// RestoreSnapshotAndClose(); a page button
// RequestHostPage(n). A page whose change test covers other host records than the block and the
// 20-byte record names them to the constructor; one whose test covers more than host records
// overrides ChipDiffersFromSnapshot() and RestoreSnapshot(); nothing else changes.
#pragma once

#include "dialogs/common/ChangeTracker.h"
#include "framework/Dialog.h"
#include "framework/NumberEdit.h"
#include "host/IRegvane.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// The host asks a page to read the chip again (result 0).
inline constexpr UINT kRefreshFromChipMessage = 0x0903;
// Every chip page's own OK and Cancel buttons.
inline constexpr int kChipOkButtonId = 8570;
inline constexpr int kChipCancelButtonId = 8571;
// A page button asks the host frame (the parent of the page's parent) to open a page:
// wParam = the page number, lParam = 1.
inline constexpr UINT kOpenHostPageMessage = 0x0904;

// The chip model the host reports (narrow text in the system code page), as wide text; empty without
// a host or a name.
std::wstring ChipModelName(IRegvane* chip);

using RegBlock = std::array<std::uint8_t, kRegDataBytes>;
// 16 bytes followed by a 32-bit word, read and written whole.
using Record20 = std::array<std::uint8_t, kRegData4Bytes>;

class CChipDialog : public CDialog {
public:
    // The snapshot of the records the change test covers is read here, in their order, before the
    // window exists. A null chip gives a page that shows zeros and never calls the host.
    CChipDialog(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption = nullptr,
                std::vector<CoveredRecord> changeTest = {HostRecord::Block, HostRecord::Record20});

    IRegvane* Chip() const { return m_chip; }
    const std::wstring& Caption() const { return m_caption; }
    bool Initialized() const { return m_initialized; }

    // The change test: MarkModified when the chip differs from the snapshot, then
    // UpdateHostState(1, 1) in any case. Returns what UpdateHostState returned (0 without a host).
    int NotifyIfChanged();

    // Host access that does nothing (and reads zeros) without a host.
    RegBlock ReadBlock() const;
    void WriteBlock(RegBlock& block) const;
    Record20 ReadRecord() const;
    void WriteRecord(Record20& record) const;
    // The host's gain minimum and maximum, each as a byte, as the host gives them.
    std::pair<int, int> HostGainBytes() const;
    // The same, lowest first (a host that gives them the other way round still gets a usable slider).
    std::pair<int, int> HostGainRange() const;

protected:
    const CChangeTracker& Changes() const { return m_changes; }

    // Translates the template, then OnInitControls, ReloadView, and marks the page initialized.
    BOOL OnInitDialog() override;
    // Title and control ranges: everything set once, after the template is translated.
    virtual void OnInitControls() {}
    // The host's caption (when one was given) as the window text, host ranges, RefreshFromChip,
    // UpdateData(FALSE). Runs at initialization and whenever the host shows the page again.
    virtual void ReloadView();
    // Ranges that come from the host (slider ranges): read at every reload.
    virtual void ApplyHostRanges() {}
    // Decodes the chip into members and controls.
    virtual void RefreshFromChip() {}
    // A numeric edit of the page reported a new value (the edit's id and window).
    virtual void OnNumberEditChanged(UINT id, HWND edit) {}

    // What the change test compares, and what Cancel puts back.
    virtual bool ChipDiffersFromSnapshot();
    virtual void RestoreSnapshot();

    // OK: the change test, then close. Cancel: the snapshot back to the host, then close.
    void CloseAfterChangeTest();
    void RestoreSnapshotAndClose();
    // Page buttons.
    void RequestHostPage(int page) const;

    // Handlers write to the chip only once the page is initialized, and only with a host.
    bool CanWrite() const { return m_chip && m_initialized; }

    // OK and Cancel; pages pass on what they do not handle themselves.
    bool OnCommand(UINT notifyCode, UINT id, HWND control) override;
    void OnShowWindow(bool show, UINT status) override;
    bool OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    IRegvane* m_chip;
    CChangeTracker m_changes;
    std::wstring m_caption;
    bool m_initialized = false;
};
