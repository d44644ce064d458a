// The page classes of the chips that have no page of their own yet: one real class per GENERIC row of
// the chip-type table, with the row's exact name, constructor form and template, each showing the
// chip's registers in the raw register editor.
#pragma once

#include "dialogs/chips/ChipRegModify.h"
#include "factory/ChipTypeTable.h"

#include <string>

class CGenericChipPage : public CchipRegModify {
public:
    // What the host passed, kept for the page that will replace the generic one.
    const std::wstring& Caption() const { return m_caption; }
    int Mode() const { return m_mode; }

protected:
    CGenericChipPage(IRegvane* chip, HWND parent, UINT templateId, const wchar_t* caption = nullptr,
                     int mode = 0)
        : CchipRegModify(chip, parent, templateId), m_caption(caption ? caption : L""), m_mode(mode) {}

    // A caption from the host names the page better than the chip model does.
    BOOL OnInitDialog() override {
        CchipRegModify::OnInitDialog();
        if (!m_caption.empty())
            SetWindowText(m_caption);
        return TRUE;
    }

private:
    std::wstring m_caption;
    int m_mode;
};

// clang-format off
#define REGVANE_GENERIC_CONSTRUCTOR_CHIP(name, templateId) \
    explicit name(IRegvane* chip) : CGenericChipPage(chip, nullptr, templateId) {}
#define REGVANE_GENERIC_CONSTRUCTOR_CHIP_PARENT(name, templateId) \
    name(IRegvane* chip, HWND parent) : CGenericChipPage(chip, parent, templateId) {}
#define REGVANE_GENERIC_CONSTRUCTOR_CHIP_CAPTION_PARENT(name, templateId) \
    name(IRegvane* chip, const wchar_t* caption, HWND parent) : CGenericChipPage(chip, parent, templateId, caption) {}
#define REGVANE_GENERIC_CONSTRUCTOR_CHIP_MODE_CAPTION_PARENT(name, templateId) \
    name(IRegvane* chip, int mode, const wchar_t* caption, HWND parent) \
        : CGenericChipPage(chip, parent, templateId, caption, mode) {}

#define REGVANE_GENERIC_PAGE_GENERIC(name, templateId, form) \
    class name final : public CGenericChipPage { \
    public: \
        static constexpr UINT kTemplateId = templateId; \
        REGVANE_GENERIC_CONSTRUCTOR_##form(name, templateId) \
        const char* DialogClassName() const override { return #name; } \
    };
#define REGVANE_GENERIC_PAGE_DESCRIBED(name, templateId, form) REGVANE_GENERIC_PAGE_GENERIC(name, templateId, form)
#define REGVANE_GENERIC_PAGE_TABLE(name, templateId, form)
#define REGVANE_GENERIC_PAGE_CUSTOM(name, templateId, form)
#define REGVANE_GENERIC_PAGE(name, chip, templateId, form, kind) REGVANE_GENERIC_PAGE_##kind(name, templateId, form)

REGVANE_CHIP_CLASSES(REGVANE_GENERIC_PAGE, REGVANE_GENERIC_PAGE)

#undef REGVANE_GENERIC_PAGE
#undef REGVANE_GENERIC_PAGE_CUSTOM
#undef REGVANE_GENERIC_PAGE_TABLE
#undef REGVANE_GENERIC_PAGE_DESCRIBED
#undef REGVANE_GENERIC_PAGE_GENERIC
#undef REGVANE_GENERIC_CONSTRUCTOR_CHIP
#undef REGVANE_GENERIC_CONSTRUCTOR_CHIP_PARENT
#undef REGVANE_GENERIC_CONSTRUCTOR_CHIP_CAPTION_PARENT
#undef REGVANE_GENERIC_CONSTRUCTOR_CHIP_MODE_CAPTION_PARENT
// clang-format on
