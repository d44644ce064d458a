#include "readouts/Fm612xReadouts.h"

#include <cmath>
#include <cstdio>

namespace fm612x {

namespace {

// Every read-out text is plain ASCII.
std::wstring Widen(const char* text) {
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

std::wstring FormatFraction(float fraction) {
    char text[48];
    std::snprintf(text, sizeof text, "%.1f", static_cast<double>(fraction));
    return Widen(text);
}

std::wstring FormatMilliamps(float current) {
    char text[48];
    std::snprintf(text, sizeof text, "%.2f mA", static_cast<double>(std::roundf(current * 100.0f) / 100.0f));
    return Widen(text);
}

float Gain6Step(int gain) {
    return static_cast<float>(gain + 1) * 1.5625f;
}

} // namespace

std::wstring FormatGain6Percent(int gain) {
    char text[32];
    std::snprintf(text, sizeof text, "%d%%", static_cast<int>(std::roundf(Gain6Step(gain))));
    return Widen(text);
}

CurrentReadout Gain6Readout(int gain, float reference) {
    const float fraction = std::roundf(Gain6Step(gain) / 100.0f * 1000.0f) / 1000.0f;
    const float current = reference != 0.0f ? fraction / reference * 1000.0f : 0.0f;
    return {FormatFraction(fraction), FormatMilliamps(current)};
}

std::wstring FormatFm6126ExGain(int gain) {
    return std::to_wstring(gain + 1);
}

std::wstring FormatFm6128Gain(int gain) {
    char text[32];
    std::snprintf(text, sizeof text, "%0.2f%%", static_cast<double>(static_cast<float>(gain) * 0.78f));
    return Widen(text);
}

int Fm6128ExBlankingNanoseconds(int step) {
    return (step + 1) * 40;
}

std::wstring FormatNanoseconds(int nanoseconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%dns", nanoseconds);
    return Widen(text);
}

double Fm6129Percent(int gain) {
    return gain * 98.44 / 63 + 1.56;
}

std::wstring FormatFm6129Percent(int gain) {
    char text[32];
    std::snprintf(text, sizeof text, "%.0f%%", Fm6129Percent(gain));
    return Widen(text);
}

CurrentReadout Fm6129Readout(int gain, float divisor) {
    const float percent = static_cast<float>(gain) * 98.44f / 63.0f + 1.56f;
    const float current = divisor != 0.0f ? percent * 18.0f / divisor * 1000.0f : 0.0f;
    return {FormatFraction(std::roundf(percent * 1000.0f) / 1000.0f), FormatMilliamps(current)};
}

} // namespace fm612x
