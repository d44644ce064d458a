// The chip pages whose registers are a parameter table. They behave alike; each keeps its own
// class name (which the host and its diagnostics see) and its own template number.
#pragma once

#include "dialogs/chips/ParamTablePageList.h"
#include "paramfiles/ParamTablePage.h"

#define REGVANE_DECLARE_PARAM_TABLE_PAGE(ClassName, templateId, table, chipName)                             \
    class ClassName final : public CParamTablePage {                                                         \
    public:                                                                                                  \
        static constexpr UINT kTemplateId = templateId;                                                      \
        ClassName(IRegvane* chip, const wchar_t* caption, HWND parent)                                       \
            : CParamTablePage(kTemplateId, chip, parent, caption, ParamTableKind::table) {}                  \
        const char* DialogClassName() const override { return #ClassName; }                                  \
    };

REGVANE_PARAM_TABLE_PAGES(REGVANE_DECLARE_PARAM_TABLE_PAGE)

#undef REGVANE_DECLARE_PARAM_TABLE_PAGE
