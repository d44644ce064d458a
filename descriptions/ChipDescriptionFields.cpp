// What a field's control can show of a value, and the bits a page leaves as the chip holds them.
#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"

#include <algorithm>

namespace chipdesc {

int ItemOf(const Field& field, Value value) {
    const auto found = std::find(field.itemCodes.begin(), field.itemCodes.end(), value);
    return found == field.itemCodes.end() ? -1 : static_cast<int>(found - field.itemCodes.begin());
}

void CopyFieldBits(const Field& field, std::span<const std::uint8_t> from, std::span<std::uint8_t> into) {
    for (const Position& position : field.positions)
        for (const BitRun& run : position.runs)
            for (const BitCopy& copy : run.copies) {
                if (copy.byte >= from.size() || copy.byte >= into.size())
                    continue;
                const auto mask = static_cast<std::uint8_t>(((1u << run.width) - 1) << copy.lsb);
                into[copy.byte] =
                    static_cast<std::uint8_t>((into[copy.byte] & ~mask) | (from[copy.byte] & mask));
            }
}

std::wstring ValueText(const Field& field, Value value, const LayoutTexts& texts) {
    if (field.control == Control::Combo) {
        const int item = ItemOf(field, value);
        return item >= 0 ? ItemText(field.items[static_cast<std::size_t>(item)], texts)
                         : std::to_wstring(value);
    }
    if (field.control == Control::Hex) { // two digits, more where the field's values need them
        std::wstring digits;
        auto rest = static_cast<std::uint32_t>(value);
        for (auto widest = static_cast<std::uint32_t>(std::max<Value>(field.maximum, 0xFF)); widest;
             widest >>= 4, rest >>= 4)
            digits.insert(digits.begin(), L"0123456789abcdef"[rest & 0xF]);
        return digits;
    }
    std::wstring text = std::to_wstring(value);
    if (!field.unit.text.empty())
        text += L" " + ItemText(field.unit, texts);
    return text;
}

} // namespace chipdesc
