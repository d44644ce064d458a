// The FM6129 page: a 6-bit gain per colour on sliders whose range the host gives, shown from 1.56 %
// to 100 %, an optional link of the three sliders, an optional output-current read-out against a
// reference value per colour, and the low-grey compensation step of each colour. Unlike the FM6126
// family, the link and the read-out switch belong to the open page only.
//
// Control ids (block 21400):
//   21401-21403 gain sliders            red, green, blue
//   21404-21406 percentage labels
//   21407-21409 low-grey compensation edits 0..3
//   21410-21412 reference-value edits
//   21413-21415 gain labels of the read-out
//   21416-21418 output-current labels
//   21419 link gains (check)   21420 show output current (check)
//   21430-21439 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

inline constexpr UINT kFM6129Template = 20418;

class CRegvane_FM6129 : public CChipDialog {
public:
    static constexpr fm612x::ColourIds kGainSliderIds{21401, 21402, 21403};
    static constexpr fm612x::ColourIds kGainPercentIds{21404, 21405, 21406};
    static constexpr fm612x::ColourIds kLowGreyEditIds{21407, 21408, 21409};
    static constexpr fm612x::ColourIds kReferenceEditIds{21410, 21411, 21412};
    static constexpr fm612x::ColourIds kReadoutGainIds{21413, 21414, 21415};
    static constexpr fm612x::ColourIds kReadoutCurrentIds{21416, 21417, 21418};
    static constexpr int kLinkGainsId = 21419;
    static constexpr int kShowCurrentId = 21420;

    CRegvane_FM6129(IRegvane* chip, const wchar_t* caption, HWND parent);
    const char* DialogClassName() const override { return "CRegvane_FM6129"; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void ApplyHostRanges() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;

private:
    void UpdatePercentLabels();
    void UpdateCurrentReadout(fm612x::Colour colour);
    void UpdateCurrentGroup();

    std::array<CSliderCtrl, fm612x::kColourCount> m_sliders;
    std::array<CNumberEdit, fm612x::kColourCount> m_lowGreyEdits;
    std::array<CNumberEdit, fm612x::kColourCount> m_references;
    std::array<int, fm612x::kColourCount> m_gain{};
    int m_linked = 0;
    int m_showCurrent = 0;
};
