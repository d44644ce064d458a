// The FM6127 page: per-colour gain sliders (layout and ids in Fm612xGainSliderPage.h), the gain
// stored as it is, and the host's model name in the title.
#pragma once

#include "dialogs/chips/fm612x/Fm612xGainSliderPage.h"

inline constexpr UINT kFM6127Template = 20039;

class CRegvaneFM6127 : public fm612x::CGainSliderPage {
public:
    // The title names the chip model, so a caption from the host is not shown.
    CRegvaneFM6127(IRegvane* chip, const wchar_t* caption, HWND parent)
        : CGainSliderPage(kFM6127Template, chip, parent, nullptr, fm612x::kFm6127GainCoding, s_settings) {}
    const char* DialogClassName() const override { return "CRegvaneFM6127"; }

protected:
    void OnInitControls() override {
        CGainSliderPage::OnInitControls();
        SetWindowText(fm612x::ModelCaption(Chip(), L"IDS_Chip_Param_Setting"));
    }

private:
    static inline fm612x::GainSliderClassSettings s_settings;
};
