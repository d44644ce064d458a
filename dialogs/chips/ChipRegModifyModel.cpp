#include "dialogs/chips/ChipRegModifyModel.h"

#include <cwchar>

std::optional<std::size_t> RawByteFieldOf(int editId) {
    for (std::size_t i = 0; i < kRawByteFields.size(); ++i)
        if (kRawByteFields[i].editId == editId)
            return i;
    return std::nullopt;
}

std::optional<std::uint8_t> ParseRawByte(std::wstring_view text) {
    constexpr std::wstring_view digits = L"0123456789abcdefABCDEF";
    if (text.empty() || text.size() > 2)
        return std::nullopt;
    for (const wchar_t c : text)
        if (digits.find(c) == std::wstring_view::npos)
            return std::nullopt;
    const std::wstring terminated(text);
    return static_cast<std::uint8_t>(std::wcstol(terminated.c_str(), nullptr, 16) & 0xFF);
}

std::wstring FormatRawByte(std::uint8_t value) {
    constexpr wchar_t digits[] = L"0123456789abcdef";
    return {digits[value >> 4], digits[value & 0x0F]};
}

RawEditorLayout LayoutForRegisterKind(int kind) {
    RawEditorLayout layout;
    switch (kind) {
    case 1: // one 8-bit register per colour
        layout.hideX = layout.hideY = true;
        layout.disableFirstRegisterLow = true;
        break;
    case 2:
        layout.hideX = layout.hideY = true;
        break;
    case 3:
        layout.hideY = true;
        break;
    case 5:
        layout.showZ = layout.showRegister4Caption = true;
        break;
    case 9: // one register, with a known good setting
        layout.hideX = layout.hideY = true;
        layout.showPreset = true;
        break;
    case 11: // chips whose data sheets call the four registers CFG1 to CFG4
        layout.showZ = layout.showRegister4Caption = layout.showRegister1Caption = true;
        layout.configCaptions = true;
        break;
    case 12:
        layout.showZ = layout.showRegister4Caption = true;
        layout.colourRegister4Labels = true;
        break;
    default: // 4, 6, 7, 8, 10 and anything unknown keep the default layout
        break;
    }
    return layout;
}
