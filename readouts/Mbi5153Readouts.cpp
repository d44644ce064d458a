#include "readouts/Mbi5153Readouts.h"

#include <cmath>
#include <cstdio>

namespace {

std::wstring Widen(const char* text) {
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

template <class... Args> std::wstring FormatNarrow(const char* format, Args... args) {
    char text[64] = {};
    std::snprintf(text, sizeof text, format, args...);
    return Widen(text);
}

} // namespace

namespace readouts {

float GainFactor(float gain) {
    if (gain < 32.0f)
        return (3.0f * gain + 32.0f) / 256.0f;
    return (3.0f * (gain - 32.0f) + 33.0f) / 65.0f;
}

float OutputCurrentMilliamps(float factor, float resistanceOhms) {
    return factor * kReferenceVoltage / resistanceOhms * 1000.0f;
}

CurrentReadout ComputeCurrentReadout(float gain, float resistanceOhms) {
    const float factor = GainFactor(gain);
    const float current = OutputCurrentMilliamps(factor, resistanceOhms);
    const float shownFactor = std::round(factor * 1000.0f) / 1000.0f;
    const float shownCurrent = std::round(current * 100.0f) / 100.0f;
    return {FormatNarrow("%.1f", static_cast<double>(shownFactor)),
            FormatNarrow("%.2f mA", static_cast<double>(shownCurrent))};
}

} // namespace readouts

std::wstring FormatGainPercent(int gain) {
    const float percent = readouts::GainFactor(static_cast<float>(gain)) * 100.0f;
    return FormatNarrow("%.0f%%", static_cast<double>(percent));
}
