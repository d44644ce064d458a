// The raw register editor: the chip's register bytes as two-digit hexadecimal texts, one edit box per
// byte, each written back as soon as its edit loses the focus. It serves every chip that has no
// field-level page, and is the base of the generic chip pages of the chip-type table.
#pragma once

#include "dialogs/chips/ChipRegModifyModel.h"
#include "dialogs/common/ChangeTracker.h"
#include "framework/Dialog.h"
#include "host/IRegvane.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

class CchipRegModify : public CDialog {
public:
    static constexpr UINT kTemplateId = 8224;

    CchipRegModify(IRegvane* chip, HWND parent);
    const char* DialogClassName() const override { return "CchipRegModify"; }

protected:
    // For the chip pages that reuse this editor under their own template.
    CchipRegModify(IRegvane* chip, HWND parent, UINT templateId);

    void DoDataExchange(CDataExchange* dx) override;
    BOOL OnInitDialog() override;
    bool OnCommand(UINT notifyCode, UINT id, HWND control) override;
    bool OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    // Every record buffer is large enough for any of the three get/set pairs it is handed to.
    static constexpr std::size_t kRecordBytes = std::max({kRegDataBytes, kRegDataExBytes, kRegData3Bytes});
    using Record = std::array<std::uint8_t, kRecordBytes>;
    // Indexed by the host record; the editor's bytes live in the first three.
    using Records = std::array<Record, kHostRecordCount>;

    Records ReadRecords() const;
    void Refresh();
    void OnByteEdited(std::size_t field);
    void OnPreset();
    void OnRestore();
    void ApplyRegisterKind(int kind);
    void SetTitle();

    IRegvane* m_chip;
    // The block and the first four bytes of record A: record B and the rest of record A are not
    // part of the change test.
    CChangeTracker m_changes;
    std::array<std::wstring, kRawByteFields.size()> m_texts;
    bool m_initialized = false;
};
