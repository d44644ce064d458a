#include "factory/DialogFactory.h"

#include "dialogs/chips/AllChipDialogs.h"
#include "dialogs/described/DescribedPage.h"
#include "dialogs/described/DescriptionRegistry.h"
#include "factory/ChipTypeTable.h"
#include "factory/ChipTypes.h"
#include "factory/GenericChipPages.h"

#include <iterator>
#include <optional>

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

// A page class without behaviour of its own opens its description when it has one. A description
// that cannot be used leaves the module's own description of the class or else the raw register
// editor, and the operator is told once why.
CDialog* DescribedPageOf(const ChipClassInfo& chipClass, IRegvane* chip, const wchar_t* caption, HWND parent,
                         std::optional<DescriptionProblem>& problem) {
    if (!chipClass.MadeFromTable())
        return nullptr;
    DescriptionLookup lookup = DescriptionRegistry::Module().Find(chipClass.className);
    problem = std::move(lookup.problem);
    if (!lookup.description)
        return nullptr;
    // Only the constructors that take a caption hand it on.
    const bool takesCaption = chipClass.constructor == ChipConstructor::ChipCaptionParent ||
                              chipClass.constructor == ChipConstructor::ChipModeCaptionParent;
    return new CDescribedPage(std::move(lookup.description), chip, takesCaption ? caption : nullptr, parent);
}

} // namespace

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    SubTypeQuery querySubType;
    if (chip)
        querySubType = [chip] { return chip->GetChipSubType(); };
    const ChipChoice choice = ChooseChipClass(chipType, querySubType);
    if (!choice || choice.classIndex >= std::size(kPageMakers))
        return nullptr;
    std::optional<DescriptionProblem> problem;
    CDialog* dialog = DescribedPageOf(*choice.chipClass, chip, caption, parent, problem);
    const bool described = dialog != nullptr;
    if (!dialog)
        dialog = kPageMakers[choice.classIndex](chip, caption, parent);
    // The host owns the page from here, even one whose window could not be made (CreateRegvaneHwnd
    // frees such a page itself).
    dialog->Create(choice.chipClass->templateId, parent);
    if (problem)
        DescriptionRegistry::Module().TellOnce(*problem, dialog->GetSafeHwnd() ? dialog->GetSafeHwnd() : parent,
                                               described);
    return dialog;
}
