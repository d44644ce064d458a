// The FM6127EX page: the extended register set of the FM6127. Six settings per colour as numeric
// edits, three settings of the whole module as combos, and the host's brightness step shown on a
// slider. The chip is edited together with the host's second buffer (its extended configuration),
// which the page hands back with every write so that the host sends both together.
//
// Control ids (block 21200):
//   21201-21218 per-colour edits: 21201 + 3 x setting + colour, the settings in the order of
//               kFm6127ExEditedFields (gain, ghost elimination off, low-grey compensation,
//               pre-charge, output delay, ghost level), the colours red, green, blue
//   21220-21222 refresh mode, grey mode, scan direction (combos)
//   21223-21225 their captions
//   21226 brightness step (slider, the host's value)   21227 its value
//   21230-21239 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

inline constexpr UINT kFM6127EXTemplate = 20040;

class CRegvaneFM6127EX : public CChipDialog {
public:
    static constexpr int kFirstFieldEditId = 21201;
    static constexpr int FieldEditId(std::size_t setting, fm612x::Colour colour) {
        return kFirstFieldEditId + static_cast<int>(setting) * fm612x::kColourCount + colour;
    }
    static constexpr std::array<int, 3> kGlobalComboIds{21220, 21221, 21222};
    static constexpr std::array<int, 3> kGlobalCaptionIds{21223, 21224, 21225};
    static constexpr int kHostSliderId = 21226;
    static constexpr int kHostSliderValueId = 21227;

    // The title names the chip model, so a caption from the host is not shown.
    CRegvaneFM6127EX(IRegvane* chip, const wchar_t* caption, HWND parent);
    const char* DialogClassName() const override { return "CRegvaneFM6127EX"; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;
    bool ChipDiffersFromSnapshot() override;

private:
    using ExRecord = std::array<std::uint8_t, kRegDataExBytes>;
    static constexpr std::size_t kSettings = fm612x::kFm6127ExEditedFields.size();

    ExRecord ReadExRecord() const;
    // Reads the block and the second buffer, lets patch change the block, writes both back, refills
    // the page and reports the change state.
    template <typename Patch> void ChangeChip(Patch patch);
    // This chip's host wants either "unchanged" or "changed", never both.
    void ReportChangeState();

    std::array<std::array<CNumberEdit, fm612x::kColourCount>, kSettings> m_edits;
    std::array<CComboBox, 3> m_globalCombos;
    std::array<int, 3> m_globalIndex{};
    CSliderCtrl m_hostSlider;
    int m_hostSliderValue = 0;

    // What the chip looked like when the page opened.
    RegBlock m_initialBlock{};
    ExRecord m_initialEx{};
    int m_initialSliderValue = 0;
};
