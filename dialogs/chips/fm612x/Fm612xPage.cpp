#include "dialogs/chips/fm612x/Fm612xPage.h"

#include "module/ModuleState.h"

namespace fm612x {

int ColourOfId(const ColourIds& ids, UINT id) {
    for (const Colour colour : kColours)
        if (ids[colour] == static_cast<int>(id))
            return colour;
    return -1;
}

std::wstring ModelCaption(IRegvane* chip, std::wstring_view titleStringId) {
    std::wstring caption;
    if (const char* model = chip ? chip->GetChipModelName() : nullptr) {
        // The host's model names are narrow text in the system code page.
        const int length = ::MultiByteToWideChar(CP_ACP, 0, model, -1, nullptr, 0);
        if (length > 1) {
            caption.resize(static_cast<std::size_t>(length));
            ::MultiByteToWideChar(CP_ACP, 0, model, -1, caption.data(), length);
            caption.resize(static_cast<std::size_t>(length - 1));
        }
    }
    return caption + L" " + Tr(titleStringId);
}

std::optional<FieldEditSlot> FieldEditAt(UINT id, int firstId, std::size_t settings) {
    if (id < static_cast<UINT>(firstId))
        return std::nullopt;
    const std::size_t index = id - static_cast<UINT>(firstId);
    if (index >= settings * kColourCount)
        return std::nullopt;
    return FieldEditSlot{index / kColourCount, static_cast<Colour>(index % kColourCount)};
}

} // namespace fm612x
