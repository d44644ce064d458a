// The FM6126EX page: the extended register set of the FM6126. Per colour: a 0..15 gain slider (the
// chip's high current range is always selected), the mode, the ghost level, the low-grey
// compensation and the output delay.
//
// Control ids (block 21100):
//   21101-21103 gain sliders              red, green, blue
//   21104-21106 gain labels (step, counted from 1)
//   21107-21109 mode combos               normal / enhanced
//   21110-21112 ghost-level combos        0..3
//   21113-21115 low-grey compensation edits 0..7
//   21116-21118 output delay edits        0..7
//   21119 link gains (check)
//   21120-21129 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

inline constexpr UINT kFM6126EXTemplate = 20405;

class CRegvaneFM6126EX : public CChipDialog {
public:
    static constexpr fm612x::ColourIds kGainSliderIds{21101, 21102, 21103};
    static constexpr fm612x::ColourIds kGainLabelIds{21104, 21105, 21106};
    static constexpr fm612x::ColourIds kModeComboIds{21107, 21108, 21109};
    static constexpr fm612x::ColourIds kGhostComboIds{21110, 21111, 21112};
    static constexpr fm612x::ColourIds kLowGreyEditIds{21113, 21114, 21115};
    static constexpr fm612x::ColourIds kDelayEditIds{21116, 21117, 21118};
    static constexpr int kLinkGainsId = 21119;

    CRegvaneFM6126EX(IRegvane* chip, const wchar_t* caption, HWND parent);
    const char* DialogClassName() const override { return "CRegvaneFM6126EX"; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;

private:
    void UpdateGainLabels();
    void WriteField(fm612x::Colour colour, fm612x::Fm6126ExField field, int value);

    static inline int s_linked = 0;

    std::array<CSliderCtrl, fm612x::kColourCount> m_sliders;
    std::array<CComboBox, fm612x::kColourCount> m_modeCombos;
    std::array<CComboBox, fm612x::kColourCount> m_ghostCombos;
    std::array<CNumberEdit, fm612x::kColourCount> m_lowGreyEdits;
    std::array<CNumberEdit, fm612x::kColourCount> m_delayEdits;
    std::array<int, fm612x::kColourCount> m_gain{};
    std::array<int, fm612x::kColourCount> m_mode{};
    std::array<int, fm612x::kColourCount> m_ghost{};
    int m_linked = 0;
};
