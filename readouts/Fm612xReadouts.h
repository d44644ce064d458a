// What the FM612x pages show next to their gain controls: percentages, gain fractions and output
// currents. The chips' data sheets give these in single precision, rounded before formatting, and
// the pages must show exactly what the host suite's other tools show for the same register value.
#pragma once

#include <string>

namespace fm612x {

struct CurrentReadout {
    std::wstring fraction; // "%.1f"
    std::wstring current;  // "%.2f mA"
};

// FM6126 / FM6127: the 6-bit gain G selects (G + 1) / 64 of the full output current.
std::wstring FormatGain6Percent(int gain);
// reference: the per-colour reference value the operator entered; 0 shows a current of 0.
CurrentReadout Gain6Readout(int gain, float reference);

// FM6126EX: the chip counts its gain steps from 1.
std::wstring FormatFm6126ExGain(int gain);

// FM6128 / FM6128Ex: 0.78 % per step of the 7-bit gain.
std::wstring FormatFm6128Gain(int gain);
// FM6128Ex line blanking time of a blanking step.
int Fm6128ExBlankingNanoseconds(int step);
std::wstring FormatNanoseconds(int nanoseconds);

// FM6129: 1.56 % at gain 0 up to 100 % at gain 63.
double Fm6129Percent(int gain);
std::wstring FormatFm6129Percent(int gain);
// divisor: what the current is scaled by; 0 shows a current of 0.
CurrentReadout Fm6129Readout(int gain, float divisor);
// The FM6129 page divides by its reference value scaled from percent to a fraction.
inline float Fm6129Divisor(float reference) {
    return reference * 100.0f;
}

} // namespace fm612x
