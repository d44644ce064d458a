// The FM6128 and FM6128Ex pages. The FM6128 keeps its settings in the host's large block: a 7-bit
// gain per colour on a 0..127 slider, shown as 0.78 % per step, with an optional link of the three
// sliders. The FM6128Ex page adds the scan count the host drives (written into the chip whenever the
// page is filled, together with the gain copies made equal again) and the line blanking time.
//
// Control ids (block 21300, the Ex page uses the same ids and adds its own):
//   21301-21303 gain sliders            red, green, blue
//   21304-21306 gain labels
//   21307 link gains (check)
//   21310 scan count (label)   21311 blanking step (edit 0..15)   21312 blanking time (label)
//   21320-21329 captions of the rows and columns
#pragma once

#include "dialogs/chips/fm612x/Fm612xPage.h"
#include "dialogs/common/ChipDialog.h"
#include "framework/Controls.h"
#include "framework/NumberEdit.h"

inline constexpr UINT kFM6128Template = 20080;
inline constexpr UINT kFM6128ExTemplate = 20081;

class CRegvaneFM6128 : public CChipDialog {
public:
    using LargeBlock = std::array<std::uint8_t, kRegData2Bytes>;

    static constexpr fm612x::ColourIds kGainSliderIds{21301, 21302, 21303};
    static constexpr fm612x::ColourIds kGainLabelIds{21304, 21305, 21306};
    static constexpr int kLinkGainsId = 21307;

    CRegvaneFM6128(IRegvane* chip, const wchar_t* caption, HWND parent)
        : CRegvaneFM6128(kFM6128Template, chip, caption, parent, s_linked) {}
    const char* DialogClassName() const override { return "CRegvaneFM6128"; }

protected:
    CRegvaneFM6128(UINT templateId, IRegvane* chip, const wchar_t* caption, HWND parent, int& linkedSwitch);

    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    bool ChipDiffersFromSnapshot() override;

    LargeBlock ReadLarge() const;
    void WriteLarge(LargeBlock& block) const;
    const std::array<int, fm612x::kColourCount>& Gains() const { return m_gain; }

private:
    void UpdateGainLabels();

    static inline int s_linked = 0;

    int& m_linkedSwitch;
    LargeBlock m_snapshotLarge{};
    std::array<CSliderCtrl, fm612x::kColourCount> m_sliders;
    std::array<int, fm612x::kColourCount> m_gain{};
    int m_linked = 0;
};

class CRegvaneFM6128Ex : public CRegvaneFM6128 {
public:
    static constexpr int kScanCountId = 21310;
    static constexpr int kBlankingEditId = 21311;
    static constexpr int kBlankingTimeId = 21312;

    CRegvaneFM6128Ex(IRegvane* chip, const wchar_t* caption, HWND parent)
        : CRegvaneFM6128(kFM6128ExTemplate, chip, caption, parent, s_linked) {}
    const char* DialogClassName() const override { return "CRegvaneFM6128Ex"; }

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* dx) override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    void OnNumberEditChanged(UINT id, HWND edit) override;

private:
    // The chip wants its gain copies equal and the host's scan count: written once the page is
    // loaded, and whenever it is filled again.
    void WriteNormalizedChip();
    void UpdateBlankingTime();

    static inline int s_linked = 0;

    CNumberEdit m_blanking;
};
