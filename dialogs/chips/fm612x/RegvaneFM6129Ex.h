// The FM6129Ex page: the extended register set of the FM6129, five settings per colour as numeric
// edits: three switches (ghost elimination off, low-grey enhancement, open-circuit detection), the
// ghost level (0..15) and the grey-scale compensation (0..7). The host keeps a second buffer with
// this chip; it counts as part of the chip when the page tells the host whether anything changed.
//
// Control ids (block 21500):
//   21501-21515 edits: 21501 + 3 x setting + colour, the settings in the order of kFm6129ExFields,
//               the colours red, green, blue
//   21520-21529 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/NumberEdit.h"

inline constexpr UINT kFM6129ExTemplate = 20417;

class CRegvaneFM6129Ex : public CChipDialog {
public:
    static constexpr int kFirstFieldEditId = 21501;
    static constexpr int FieldEditId(std::size_t setting, fm612x::Colour colour) {
        return kFirstFieldEditId + static_cast<int>(setting) * fm612x::kColourCount + colour;
    }

    // The title names the chip model, so a caption from the host is not shown.
    CRegvaneFM6129Ex(IRegvane* chip, const wchar_t* caption, HWND parent);
    const char* DialogClassName() const override { return "CRegvaneFM6129Ex"; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    void OnNumberEditChanged(UINT id, HWND edit) override;
    bool ChipDiffersFromSnapshot() override;

private:
    using ExRecord = std::array<std::uint8_t, kRegDataExBytes>;
    static constexpr std::size_t kSettings = fm612x::kFm6129ExFields.size();

    ExRecord ReadExRecord() const;

    std::array<std::array<CNumberEdit, fm612x::kColourCount>, kSettings> m_edits;
    ExRecord m_snapshotEx{};
};
