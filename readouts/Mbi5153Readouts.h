// Read-outs of the MBI5153 family's output-current gain: the gain factor as a percentage, and the
// output current that follows from the factor and the current-setting resistance. All in single
// precision, rounded before formatting, as the operator compares them with the chip maker's tables.
#pragma once

#include <string>

namespace readouts {

// The chip's 6-bit gain code has two ranges: codes below 32 scale (3g + 32) / 256, codes from 32 up
// scale (3(g - 32) + 33) / 65. The two halves use different steps on purpose.
float GainFactor(float gain);

// The driver's current-setting constant in volts: I = factor * 14.03 V / R.
inline constexpr float kReferenceVoltage = 14.03f;
// Output current in milliamperes for a resistance in ohms.
float OutputCurrentMilliamps(float factor, float resistanceOhms);

// The factor and current labels of one colour: "0.5" and "7.12 mA".
struct CurrentReadout {
    std::wstring factor;
    std::wstring current;
};
CurrentReadout ComputeCurrentReadout(float gain, float resistanceOhms);

} // namespace readouts

// "49%" for code 31, "51%" for 32, "194%" for 63.
std::wstring FormatGainPercent(int gain);
