// The factory in-process: each page class gets the constructor arguments and the template its table
// row gives. This program has no dialog templates, so the windows themselves are not made here.
#include "factory/ChipTypes.h"
#include "factory/DialogFactory.h"
#include "factory/GenericChipPages.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

std::unique_ptr<CDialog> Make(int chipType, IRegvane* chip, const wchar_t* caption) {
    return std::unique_ptr<CDialog>(CreateChipDialog(chipType, chip, caption, nullptr));
}

TEST(FactoryForms, EveryTypeGetsItsClassAndTemplate) {
    for (const ChipTypeInfo& type : AllChipTypes()) {
        SimulatedChip chip(static_cast<std::uint16_t>(type.chipType), type.chipType == 67 ? 403 : 0);
        const auto dialog = Make(type.chipType, &chip, L"");
        ASSERT_NE(dialog, nullptr) << type.chipType;
        EXPECT_STREQ(dialog->DialogClassName(), type.className) << type.chipType;
        EXPECT_EQ(dialog->TemplateId(), type.templateId) << type.chipType;
        EXPECT_EQ(dialog->GetSafeHwnd(), nullptr) << "no templates in this program";
    }
}

TEST(FactoryForms, CaptionAndModeReachTheClassesThatTakeThem) {
    SimulatedChip chip(0, 0);
    const auto grid = Make(65536 + 17, &chip, L"Grid");
    auto* highMode = dynamic_cast<CRegvaneHighMode*>(grid.get());
    ASSERT_NE(highMode, nullptr);
    EXPECT_EQ(highMode->Mode(), 1);
    EXPECT_EQ(highMode->Caption(), L"Grid");

    const auto main = Make(96, &chip, L"Module 3");
    auto* ls9929 = dynamic_cast<CRegvaneLS9929*>(main.get());
    ASSERT_NE(ls9929, nullptr);
    EXPECT_EQ(ls9929->Caption(), L"Module 3");
    EXPECT_EQ(ls9929->Mode(), 0);

    // Pages built without a caption ignore the host's.
    const auto rawIcn2053 = Make(65536 + 8, &chip, L"ignored");
    ASSERT_NE(dynamic_cast<CChipRegModifyICN2053*>(rawIcn2053.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CGenericChipPage*>(rawIcn2053.get())->Caption(), L"");
    const auto auxiliary = Make(10, &chip, L"ignored");
    ASSERT_NE(dynamic_cast<CMY9868SetDlgEx*>(auxiliary.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CGenericChipPage*>(auxiliary.get())->Caption(), L"");
}

TEST(FactoryForms, WithoutAChipPlainNumbersStillGiveAPageButSubTypeNumbersCannot) {
    EXPECT_NE(Make(96, nullptr, L""), nullptr);
    EXPECT_NE(Make(81, nullptr, L""), nullptr);
    EXPECT_EQ(Make(4, nullptr, L""), nullptr);
    EXPECT_EQ(Make(47, nullptr, L""), nullptr);
}

} // namespace
