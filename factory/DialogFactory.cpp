#include "factory/DialogFactory.h"

#include "dialogs/chips/AllChipDialogs.h"

namespace {

// Until the chip-type table lands: the FM612x pages by their numbers.
template <typename Page> CDialog* CreatePage(Page* page, UINT templateId, HWND parent) {
    page->Create(templateId, parent);
    return page;
}

CDialog* CreateFm612xPage(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    switch (chipType) {
    case 179:
        return CreatePage(new CRegvaneFM6126(chip, caption, parent), kFM6126Template, parent);
    case 184:
        return CreatePage(new CRegvaneFM6127(chip, caption, parent), kFM6127Template, parent);
    case 65536 + 15:
        return CreatePage(new CRegvaneFM6126EX(chip, parent), kFM6126EXTemplate, parent);
    case 65536 + 25:
        return CreatePage(new CRegvaneFM6127EX(chip, parent), kFM6127EXTemplate, parent);
    case 120:
        return CreatePage(new CRegvaneFM6128(chip, caption, parent), kFM6128Template, parent);
    case 65536 + 41:
        return CreatePage(new CRegvaneFM6128Ex(chip, parent), kFM6128ExTemplate, parent);
    case 259:
        return CreatePage(new CRegvane_FM6129(chip, caption, parent), kFM6129Template, parent);
    case 65536 + 48:
        return CreatePage(new CRegvaneFM6129Ex(chip, parent), kFM6129ExTemplate, parent);
    default:
        return nullptr;
    }
}

} // namespace

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    if (CDialog* page = CreateFm612xPage(chipType, chip, caption, parent))
        return page;
    constexpr std::uint16_t kSm16159SubType = 138; // type 47 with this sub-type has a page of its own
    const bool mbi5153 =
        chipType == 196 || (chipType == 47 && (!chip || chip->GetChipSubType() != kSm16159SubType));
    if (!mbi5153)
        return nullptr;
    auto* dialog = new CRegvaneMbi5153(chip, caption, parent);
    dialog->Create(CRegvaneMbi5153::kTemplateId, parent);
    return dialog;
}
