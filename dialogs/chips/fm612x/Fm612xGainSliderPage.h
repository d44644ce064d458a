// The FM6126 and FM6127 pages: one 6-bit current gain per colour on a slider (15..63), an optional
// link that moves all three sliders together, the gain as a percentage, and, when the operator asks
// for it, the gain fraction and the output current against a reference value per colour.
//
// Both chips use one layout. Control ids (block 21000):
//   21001-21003 gain sliders            red, green, blue
//   21004-21006 percentage labels
//   21007-21009 reference-value edits
//   21010-21012 gain-fraction labels
//   21013-21015 output-current labels
//   21016 link gains (check)   21017 show output current (check)   21018 Default (button)
//   21020-21027 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

namespace fm612x {

inline constexpr ColourIds kGainSliderIds{21001, 21002, 21003};
inline constexpr ColourIds kGainPercentIds{21004, 21005, 21006};
inline constexpr ColourIds kReferenceEditIds{21007, 21008, 21009};
inline constexpr ColourIds kGainFractionIds{21010, 21011, 21012};
inline constexpr ColourIds kGainCurrentIds{21013, 21014, 21015};
inline constexpr int kLinkGainsId = 21016;
inline constexpr int kShowCurrentId = 21017;
inline constexpr int kDefaultGainId = 21018;

// Kept per page class for the life of the module: the operator's choices survive closing the page
// and apply to the next chip of that kind.
struct GainSliderClassSettings {
    int linked = 0;
    int showCurrent = 0;
    std::array<int, kColourCount> reference{1000, 1000, 1000};
};

class CGainSliderPage : public CChipDialog {
protected:
    CGainSliderPage(UINT templateId, IRegvane* chip, HWND parent, const wchar_t* caption, GainCoding coding,
                    GainSliderClassSettings& settings);

    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;

private:
    void WriteGains();
    void UpdatePercentLabels();
    void UpdateCurrentReadout(Colour colour);
    void UpdateCurrentGroup();
    void SetDefaultGains();

    GainCoding m_coding;
    GainSliderClassSettings& m_settings;
    std::array<CSliderCtrl, kColourCount> m_sliders;
    std::array<CNumberEdit, kColourCount> m_references;
    std::array<int, kColourCount> m_gain{};
    int m_linked = 0;
    int m_showCurrent = 0;
};

} // namespace fm612x
