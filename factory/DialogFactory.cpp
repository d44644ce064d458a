#include "factory/DialogFactory.h"

#include "dialogs/chips/AllChipDialogs.h"

// Parameter-table pages until the chip-type table dispatches them.
template <class Page>
static CDialog* CreateParamTablePage(IRegvane* chip, const wchar_t* caption, HWND parent) {
    auto* dialog = new Page(chip, caption, parent);
    dialog->Create(Page::kTemplateId, parent);
    return dialog;
}

CDialog* CreateChipDialog(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent) {
    switch (chipType) {
    case 65536 + 12:
        return CreateParamTablePage<CRegvaneICN2055>(chip, caption, parent);
    case 65536 + 13:
        return CreateParamTablePage<CRegvaneICN2055EX>(chip, caption, parent);
    case 65536 + 57:
        return CreateParamTablePage<CRegvaneICND2165Ex>(chip, caption, parent);
    case 65536 + 63:
        return CreateParamTablePage<CRegvaneICND2168Ex>(chip, caption, parent);
    case 65536 + 64:
        return CreateParamTablePage<CRegvaneICND2169Ex>(chip, caption, parent);
    case 65536 + 65:
        return CreateParamTablePage<CRegvaneCNS7363Ex>(chip, caption, parent);
    case 65536 + 84:
        return CreateParamTablePage<CRegvaneICND1065SEx>(chip, caption, parent);
    case 65536 + 90:
        return CreateParamTablePage<CRegvaneICND2153SEx>(chip, caption, parent);
    case 65536 + 98:
        return CreateParamTablePage<CRegvaneICND1068Ex>(chip, caption, parent);
    case 65536 + 99:
        return CreateParamTablePage<CRegvaneFM6373EX>(chip, caption, parent);
    case 65536 + 107:
        return CreateParamTablePage<CRegvaneMBI5292EX>(chip, caption, parent);
    case 65536 + 108:
        return CreateParamTablePage<CRegvaneFM6373CEX>(chip, caption, parent);
    case 65536 + 116:
        return CreateParamTablePage<CRegvaneICND2163SEx>(chip, caption, parent);
    }
    constexpr std::uint16_t kSm16159SubType = 138; // type 47 with this sub-type has a page of its own
    const bool mbi5153 =
        chipType == 196 || (chipType == 47 && (!chip || chip->GetChipSubType() != kSm16159SubType));
    if (!mbi5153)
        return nullptr;
    auto* dialog = new CRegvaneMbi5153(chip, caption, parent);
    dialog->Create(CRegvaneMbi5153::kTemplateId, parent);
    return dialog;
}
