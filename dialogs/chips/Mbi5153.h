// The MBI5153 page, also shown for the chips that share its registers (FM6153 by chip type, MBI5252
// by sub-type): per-colour gain sliders with percentage and output-current read-outs, three flags,
// the delay step, two bytes of the 20-byte record, and the chip maker's defaults.
#pragma once

#include "dialogs/chips/Mbi5153Registers.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

#include <cstdint>
#include <span>

class CRegvaneMbi5153 : public CChipDialog {
public:
    static constexpr UINT kTemplateId = 8229;

    CRegvaneMbi5153(IRegvane* chip, const wchar_t* caption, HWND parent);
    const char* DialogClassName() const override { return "CRegvaneMbi5153"; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void ApplyHostRanges() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT notifyCode, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;

private:
    void OnGainSliderMoved(HWND scrollBar);
    void OnFlagBit6Clicked();
    void OnFlagBit2Clicked();
    void OnFlagBit7Clicked();
    void OnDelayStepChanged();
    void OnLinkGainsClicked();
    void OnShowCurrentClicked();
    void OnDefault();
    void OnRecordByteChanged(CNumberEdit& edit, const bitfield::Field& field, bool validateFirst);
    void TakeSettings(std::span<const std::uint8_t> block);
    void UpdateAllCurrentLabels();
    float ResistanceOf(int colour) const;

    CSliderCtrl m_sliderRed;
    CSliderCtrl m_sliderGreen;
    CSliderCtrl m_sliderBlue;
    int m_gainRed = 0;
    int m_gainGreen = 0;
    int m_gainBlue = 0;
    int m_flagBit7 = 0;    // check box 8296
    int m_flagBit6 = 0;    // check box 8026
    int m_linkGains = 0;   // check box 8021
    int m_flagBit2 = 0;    // check box 9000
    int m_showCurrent = 0; // check box 8022
    int m_delayIndex = 0;  // combo 8572
    CButtonEx m_checkFlagBit6;
    CButtonEx m_checkFlagBit7;
    CButtonEx m_checkLinkGains;
    CButtonEx m_checkShowCurrent;
    CButtonEx m_checkFlagBit2;
    CComboBox m_comboDelay;
    CNumberEdit m_editResistanceRed;
    CNumberEdit m_editResistanceGreen;
    CNumberEdit m_editResistanceBlue;
    CNumberEdit m_editRecordByte9;
    CNumberEdit m_editRecordByte7;

    // Kept for the whole session, shared by every MBI5153 page: the operator sets them once.
    static inline int s_linkGains = 0;
    static inline int s_showCurrent = 0;
    static inline int s_resistanceOhms[3] = {1000, 1000, 1000};
};
