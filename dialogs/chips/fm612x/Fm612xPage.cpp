#include "dialogs/chips/fm612x/Fm612xPage.h"

#include "dialogs/common/ChipDialog.h"
#include "module/ModuleState.h"

namespace fm612x {

int ColourOfId(const ColourIds& ids, UINT id) {
    for (const Colour colour : kColours)
        if (ids[colour] == static_cast<int>(id))
            return colour;
    return -1;
}

std::wstring ModelCaption(IRegvane* chip, std::wstring_view titleStringId) {
    return ChipModelName(chip) + L" " + Tr(titleStringId);
}

} // namespace fm612x
