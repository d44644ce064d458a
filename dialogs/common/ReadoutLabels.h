// The gain and current read-outs of the pages with red, green and blue gain sliders. The control ids
// are shared by every page of that layout: percentage labels beside the sliders, and a current
// group with one resistance edit, one factor label and one current label per colour.
#pragma once

#include "framework/Dialog.h"

// Gain sliders.
inline constexpr int kRedGainSliderId = 8123;
inline constexpr int kGreenGainSliderId = 8124;
inline constexpr int kBlueGainSliderId = 8125;
// Percentage labels beside them.
inline constexpr int kRedGainPercentId = 1054;
inline constexpr int kGreenGainPercentId = 1055;
inline constexpr int kBlueGainPercentId = 1056;

// Shows the gain codes as percentages in the three percentage labels.
void UpdateGainPercentLabels(const CDialog& dialog, int redGain, int greenGain, int blueGain);

// Factor and current labels of the colour of one gain slider (8123 red, 8124 green, 8125 blue);
// any other id changes nothing.
void UpdateCurrentLabels(const CDialog& dialog, int sliderId, float gain, float resistanceOhms);

// Shows (SW_SHOW) or hides (SW_HIDE) every control of the current group.
void ShowCurrentGroup(const CDialog& dialog, int showCommand);
