// CreateRegvaneWnd as the host calls it: which page each chip-type number opens, and that every page of
// the chip-type table comes up from its own template and goes away cleanly.
#include "TestHost.h"
#include "factory/ChipTypes.h"
#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The sub-type questions the factory asked: those before the page's constructor first reads the chip
// (a page may ask again for its own title).
int FactoryQueries(const SimulatedChip& chip) {
    int queries = 0;
    for (const HostCall& call : chip.log) {
        if (call.name != "GetChipSubType")
            break;
        ++queries;
    }
    return queries;
}

class Factory : public ::testing::Test {
protected:
    void SetUp() override { InstallHostCallback(); }

    // The class name of the page the host gets, or "" for none; the page is closed again.
    std::string OpenedClass(int chipType, SimulatedChip& chip) {
        HWND page = lib.CreateRegvaneHwnd(chipType, &chip, L"", host.View());
        if (!page)
            return "";
        const char* name = lib.RegvaneDialogClassName(page);
        std::string result = name ? name : "(not a page)";
        DestroyWindow(page);
        return result;
    }

    RegvaneLibrary& lib = RegvaneLibrary::Get();
    HostFrame host;
};

TEST_F(Factory, NumbersWithoutAPageGiveNullWithoutAskingTheHost) {
    for (int chipType :
         {0, 1, 2, 3, 254, 255, 549, 1000, 65535, 65653, 100000, -1, 29, 32, 65536 + 10, 65536 + 23}) {
        SimulatedChip chip(static_cast<std::uint16_t>(chipType), 0);
        EXPECT_EQ(lib.CreateRegvaneWnd(chipType, &chip, L"", nullptr), nullptr) << chipType;
        EXPECT_EQ(lib.CreateRegvaneHwnd(chipType, &chip, L"", host.View()), nullptr) << chipType;
        EXPECT_TRUE(chip.log.empty()) << chipType << ": " << chip.log.front().ToString();
    }
}

TEST_F(Factory, SubTypesChooseThePageOrNoneAskingOncePerRowTested) {
    const struct {
        int chipType;
        std::uint16_t subType;
        const char* className; // "" for no page
        int subTypeQueries;
    } cases[] = {
        {4, 160, "", 1},
        {5, 169, "", 1},
        {6, 170, "", 1},
        {13, 312, "CRegvaneRT5938", 2},
        {4, 0, "CRegvane_MBI5124", 2},
        {9, 85, "CRegvane_SUM2017T", 1},
        {9, 86, "CchipRegModify", 1},
        {11, 173, "CRegvaneSM16227", 1},
        {11, 63, "CRegvaneFM6182", 2},
        {11, 387, "CRegvaneSM16208", 3},
        {11, 161, "", 4},
        {11, 167, "", 4},
        {11, 1, "CRegvane_MY9862", 4},
        {46, 82, "CRegvaneMBI5043", 1},
        {46, 83, "CRegvane5041B", 1},
        {47, 138, "CRegvane_SM16159", 1},
        {47, 212, "CRegvaneMbi5153", 1},
        {67, 403, "CRegvaneWS2816A", 1},
        {67, 404, "", 1},
        {91, 329, "CRegvane_H8106", 1},
        {91, 0, "CRegvaneGW6803", 1},
        {129, 230, "CRegvaneCS2033", 1},
        {129, 265, "CRegvaneCS2033", 1},
        {129, 266, "CRegvaneSum2033", 1},
        {349, 360, "CRegvaneDP3153", 1},
        {349, 0, "CRegvaneDP3254", 1},
    };
    for (const auto& c : cases) {
        SimulatedChip chip(static_cast<std::uint16_t>(c.chipType), c.subType);
        EXPECT_EQ(OpenedClass(c.chipType, chip), c.className) << c.chipType << "/" << c.subType;
        EXPECT_EQ(FactoryQueries(chip), c.subTypeQueries) << c.chipType << "/" << c.subType;
        if (!*c.className) {
            EXPECT_EQ(chip.CallNames(), std::vector<std::string>(c.subTypeQueries, "GetChipSubType"))
                << "a refused sub-type creates nothing";
        }
    }
}

TEST_F(Factory, PlainNumbersOpenTheirClassWithoutAskingTheSubType) {
    const struct {
        int chipType;
        const char* className;
    } samples[] = {
        {7, "CRegvane_SUM2018"},        {10, "CMY9868SetDlgEx"},       {81, "CchipRegModify"},
        {96, "CRegvaneLS9929"},         {159, "CRegvaneLS9929"},       {538, "CRegvaneLS9929"},
        {134, "CRegvaneUCS9812"},       {209, "CRegvaneHBS1920"},      {211, "CRegvaneSM16813P"},
        {376, "CRegvane_VM0622"},       {396, "CRegvane_VM0622F"},     {196, "CRegvaneMbi5153"},
        {253, "CRegvane_SM16380"},      {256, "CRegvaneRT5965"},       {548, "CRegvaneICND2163S"},
        {65536, "CchipRegModify"},      {65537, "CChip5153Extension"}, {65536 + 17, "CRegvaneHighMode"},
        {65652, "CRegvaneICND2163SEx"},
    };
    for (const auto& sample : samples) {
        SimulatedChip chip(static_cast<std::uint16_t>(sample.chipType), 312);
        EXPECT_EQ(OpenedClass(sample.chipType, chip), sample.className) << sample.chipType;
        EXPECT_EQ(FactoryQueries(chip), 0) << sample.chipType;
    }
}

// The sub-type that opens a sub-type number's listed page.
std::uint16_t SubTypeFor(const ChipTypeInfo& type) {
    return type.chipType == 67 ? 403 : 0;
}

TEST_F(Factory, EveryTypeOpensItsPageFromItsOwnTemplateAndClosesCleanly) {
    int opened = 0;
    for (const ChipTypeInfo& type : AllChipTypes()) {
        SCOPED_TRACE(type.chipType);
        ASSERT_NE(FindResourceW(lib.module, MAKEINTRESOURCEW(type.templateId), MAKEINTRESOURCEW(5)), nullptr)
            << "template " << type.templateId << " of " << type.className << " is missing";
        SimulatedChip chip(static_cast<std::uint16_t>(type.chipType), SubTypeFor(type));
        HWND page = lib.CreateRegvaneHwnd(type.chipType, &chip, L"", host.View());
        ASSERT_NE(page, nullptr);
        EXPECT_TRUE(IsWindow(page));
        EXPECT_EQ(GetParent(page), host.View());
        EXPECT_STREQ(lib.RegvaneDialogClassName(page), type.className);
        const ChipClassInfo* info = FindChipClass(type.className);
        ASSERT_NE(info, nullptr);
        const std::wstring className(type.className, type.className + strlen(type.className));
        const bool described = FindResourceW(lib.module, className.c_str(), L"CHIPDESC") != nullptr;
        if (!info->custom) {
            // A raw register page: every byte is on it, read from the chip. A described page shows
            // its fields instead.
            EXPECT_EQ(GetDlgItem(page, 8543) != nullptr, !described);
            EXPECT_EQ(GetDlgItem(page, 8090) != nullptr, !described);
            if (!described) {
                EXPECT_EQ(ItemText(page, 8543), L"00");
            }
            EXPECT_EQ(GetWindowLongPtrW(page, GWL_STYLE) & WS_CAPTION, 0) << "a page has no title bar";
        }
        DestroyWindow(page);
        EXPECT_FALSE(IsWindow(page));
        EXPECT_EQ(lib.RegvaneDialogClassName(page), nullptr);
        ++opened;
    }
    EXPECT_EQ(opened, 386);
}

TEST_F(Factory, PagesTheHostHoldsAsObjectsAreDeletedWithTheirWindow) {
    CWnd view(host.View());
    // One page of each constructor form, the raw editor itself and a page on a shared template.
    for (int chipType : {10, 81, 96, 65536 + 8, 65536 + 17, 209}) {
        SCOPED_TRACE(chipType);
        SimulatedChip chip(static_cast<std::uint16_t>(chipType), 0);
        CDialog* dialog = lib.CreateRegvaneWnd(chipType, &chip, L"Page", &view);
        ASSERT_NE(dialog, nullptr);
        HWND page = dialog->GetSafeHwnd();
        ASSERT_TRUE(IsWindow(page));
        EXPECT_EQ(GetParent(page), host.View());
        EXPECT_STREQ(lib.RegvaneDialogClassName(page), FindChipType(chipType)->className);
        delete dialog;
        EXPECT_FALSE(IsWindow(page));
        chip.ClearLog();
        PumpMessages();
        EXPECT_TRUE(chip.log.empty()) << "a deleted page still talks to the chip";
    }
}

TEST_F(Factory, AHostCaptionTitlesAGenericPage) {
    SimulatedChip chip(96, 0);
    chip.modelName = "LS9929";
    HWND titled = lib.CreateRegvaneHwnd(96, &chip, L"Module 3: LS9929", host.View());
    HWND plain = lib.CreateRegvaneHwnd(96, &chip, L"", host.View());
    ASSERT_NE(titled, nullptr);
    ASSERT_NE(plain, nullptr);
    wchar_t text[128] = {};
    GetWindowTextW(titled, text, 128);
    EXPECT_STREQ(text, L"Module 3: LS9929");
    GetWindowTextW(plain, text, 128);
    EXPECT_STREQ(text, L"Chip registers - LS9929");
    DestroyWindow(titled);
    DestroyWindow(plain);
}

} // namespace
