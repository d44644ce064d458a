#include "descriptions/DescriptionReadouts.h"

#include "readouts/Fm612xReadouts.h"
#include "readouts/Mbi5153Readouts.h"

#include <array>

namespace chipdesc {

namespace {

struct NamedReadout {
    std::string_view name;
    std::wstring (*format)(int value);
};

constexpr std::array<NamedReadout, 7> kReadouts{{
    {"value", [](int value) { return std::to_wstring(value); }},
    // Chips that count their steps from 1 while the register counts from 0.
    {"step-from-one", fm612x::FormatFm6126ExGain},
    // 6-bit gain code of the MBI5153 family, two ranges.
    {"gain-percent", FormatGainPercent},
    // FM6126 / FM6127 6-bit gain: (G + 1) / 64.
    {"gain6-percent", fm612x::FormatGain6Percent},
    // FM6128 7-bit gain: 0.78 % a step.
    {"gain7-percent", fm612x::FormatFm6128Gain},
    // FM6129 6-bit gain: 1.56 % up to 100 %.
    {"fm6129-percent", fm612x::FormatFm6129Percent},
    // FM6128Ex line blanking: (step + 1) x 40 ns.
    {"blanking-ns",
     [](int value) { return fm612x::FormatNanoseconds(fm612x::Fm6128ExBlankingNanoseconds(value)); }},
}};

const NamedReadout* Find(std::string_view name) {
    for (const NamedReadout& readout : kReadouts)
        if (readout.name == name)
            return &readout;
    return nullptr;
}

struct NamedCurrent {
    std::string_view name;
    fm612x::CurrentReadout (*format)(int value, float reference);
};

constexpr std::array<NamedCurrent, 2> kCurrents{{
    // FM6126 / FM6127 6-bit gain against the reference current.
    {"gain6", [](int gain, float reference) { return fm612x::Gain6Readout(gain, reference); }},
    // FM6129 6-bit gain; the reference is in percent of the chip's current.
    {"fm6129",
     [](int gain, float reference) { return fm612x::Fm6129Readout(gain, fm612x::Fm6129Divisor(reference)); }},
}};

const NamedCurrent* FindCurrent(std::string_view name) {
    for (const NamedCurrent& current : kCurrents)
        if (current.name == name)
            return &current;
    return nullptr;
}

} // namespace

std::optional<CurrentText> FormatCurrent(std::string_view name, int value, double reference) {
    const NamedCurrent* current = FindCurrent(name);
    if (!current)
        return std::nullopt;
    // The chips' read-outs work in single precision.
    fm612x::CurrentReadout readout = current->format(value, static_cast<float>(reference));
    return CurrentText{std::move(readout.fraction), std::move(readout.current)};
}

bool IsCurrentReadout(std::string_view name) {
    return FindCurrent(name) != nullptr;
}

std::optional<std::wstring> FormatReadout(std::string_view name, int value) {
    if (const NamedReadout* readout = Find(name))
        return readout->format(value);
    return std::nullopt;
}

bool IsReadout(std::string_view name) {
    return Find(name) != nullptr;
}

} // namespace chipdesc
