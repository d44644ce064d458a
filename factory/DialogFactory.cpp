#include "factory/DialogFactory.h"

#include "dialogs/chips/AllChipDialogs.h"
#include "factory/ChipTypeTable.h"
#include "factory/ChipTypes.h"
#include "factory/GenericChipPages.h"

#include <iterator>

namespace {

using PageMaker = CDialog* (*)(IRegvane* chip, const wchar_t* caption, HWND parent);

// The one page class that takes a mode is the high-mode register grid; the host's pages open it in
// mode 1.
constexpr int kHighModeGridMode = 1;

#define REGVANE_NEW_CHIP(name) new name(chip)
#define REGVANE_NEW_CHIP_PARENT(name) new name(chip, parent)
#define REGVANE_NEW_CHIP_CAPTION_PARENT(name) new name(chip, caption, parent)
#define REGVANE_NEW_CHIP_MODE_CAPTION_PARENT(name) new name(chip, kHighModeGridMode, caption, parent)
#define REGVANE_PAGE_MAKER(name, chipName, templateId, form, kind)                                           \
    [](IRegvane* chip, const wchar_t* caption, HWND parent) -> CDialog* { return REGVANE_NEW_##form(name); },

// In the order of the table's class list, as AllChipClasses() is.
constexpr PageMaker kPageMakers[] = {REGVANE_CHIP_CLASSES(REGVANE_PAGE_MAKER, REGVANE_PAGE_MAKER)};

#undef REGVANE_PAGE_MAKER
#undef REGVANE_NEW_CHIP
#undef REGVANE_NEW_CHIP_PARENT
#undef REGVANE_NEW_CHIP_CAPTION_PARENT
#undef REGVANE_NEW_CHIP_MODE_CAPTION_PARENT

} // namespace

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    SubTypeQuery querySubType;
    if (chip)
        querySubType = [chip] { return chip->GetChipSubType(); };
    const ChipChoice choice = ChooseChipClass(chipType, querySubType);
    if (!choice || choice.classIndex >= std::size(kPageMakers))
        return nullptr;
    CDialog* dialog = kPageMakers[choice.classIndex](chip, caption, parent);
    // The host owns the page from here, even one whose window could not be made (CreateRegvaneHwnd
    // frees such a page itself).
    dialog->Create(choice.chipClass->templateId, parent);
    return dialog;
}
