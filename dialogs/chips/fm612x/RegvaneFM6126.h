// The FM6126 page: per-colour gain sliders (layout and ids in Fm612xGainSliderPage.h). The FM6126
// stores the two low gain bits inverted.
#pragma once

#include "dialogs/chips/fm612x/Fm612xGainSliderPage.h"

inline constexpr UINT kFM6126Template = 20404;

class CRegvaneFM6126 : public fm612x::CGainSliderPage {
public:
    CRegvaneFM6126(IRegvane* chip, const wchar_t* caption, HWND parent)
        : CGainSliderPage(kFM6126Template, chip, parent, caption, fm612x::kFm6126GainCoding, s_settings) {}
    const char* DialogClassName() const override { return "CRegvaneFM6126"; }

private:
    static inline fm612x::GainSliderClassSettings s_settings;
};
