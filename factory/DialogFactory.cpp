#include "factory/DialogFactory.h"

#include "dialogs/chips/AllChipDialogs.h"

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    constexpr std::uint16_t kSm16159SubType = 138; // type 47 with this sub-type has a page of its own
    const bool mbi5153 =
        chipType == 196 || (chipType == 47 && (!chip || chip->GetChipSubType() != kSm16159SubType));
    if (!mbi5153)
        return nullptr;
    auto* dialog = new CRegvaneMbi5153(chip, caption, parent);
    dialog->Create(CRegvaneMbi5153::kTemplateId, parent);
    return dialog;
}
