// CreateRegvaneWnd as the host calls it: which page a chip-type number opens, and that every page of
// the chip-type table comes up from its own template and goes away cleanly. Which class each number
// names is held to the table natively; here the DLL's exports must follow it.
#include "OperatorActions.h"
#include "factory/ChipTypes.h"
#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Factory : public PageTest {
protected:
    RegvaneLibrary& lib = RegvaneLibrary::Get();
};

// Rows of one number are tried in order, each asking the host for the sub-type afresh (the rows
// themselves are held to the table natively); a number without rows asks nothing.
TEST_F(Factory, NumbersAndSubTypesChooseThePageOrNoneAskingOncePerRowTried) {
    const struct {
        int chipType;
        std::uint16_t subType;
        const char* className; // "" for no page
        int subTypeQueries;
    } cases[] = {{11, 161, "", 4},
                 {11, 387, "CRegvaneSM16208", 3},
                 {47, 138, "CRegvane_SM16159", 1},
                 {67, 404, "", 1},
                 {0, 0, "", 0},
                 {255, 0, "", 0},
                 {549, 0, "", 0},
                 {65535, 0, "", 0},
                 {-1, 0, "", 0},
                 {65536 + 10, 0, "", 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.chipType << "/" << c.subType);
        SimulatedChip chip(static_cast<std::uint16_t>(c.chipType), c.subType);
        HWND page = lib.CreateRegvaneHwnd(c.chipType, &chip, L"", host.View());
        EXPECT_STREQ(page ? lib.RegvaneDialogClassName(page) : "", c.className);
        const Calls calls = chip.CallNames();
        int queries = 0;
        while (queries < static_cast<int>(calls.size()) && calls[queries] == "GetChipSubType")
            ++queries;
        EXPECT_EQ(queries, c.subTypeQueries);
        if (!page) {
            EXPECT_EQ(calls.size(), static_cast<std::size_t>(queries))
                << "a refused sub-type creates nothing";
        }
        DestroyWindow(page);
    }
}

// Every other page is held as the host's object (CreateRegvaneWnd), so each constructor form comes
// up both ways; the soak holds that pages give back what they take.
TEST_F(Factory, EveryTypeOpensItsPageFromItsOwnTemplateAndClosesCleanly) {
    CWnd view(host.View());
    int opened = 0;
    for (const ChipTypeInfo& type : AllChipTypes()) {
        SCOPED_TRACE(type.chipType);
        ASSERT_NE(FindResourceW(lib.module, MAKEINTRESOURCEW(type.templateId), MAKEINTRESOURCEW(5)), nullptr)
            << "template " << type.templateId << " of " << type.className << " is missing";
        SimulatedChip chip(static_cast<std::uint16_t>(type.chipType), type.chipType == 67 ? 403 : 0);
        const bool asObject = opened % 2 == 1;
        CDialog* dialog = asObject ? lib.CreateRegvaneWnd(type.chipType, &chip, L"", &view) : nullptr;
        HWND page = asObject ? (dialog ? dialog->GetSafeHwnd() : nullptr)
                             : lib.CreateRegvaneHwnd(type.chipType, &chip, L"", host.View());
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(GetParent(page), host.View());
        EXPECT_STREQ(lib.RegvaneDialogClassName(page), type.className);
        const std::wstring className(type.className, type.className + strlen(type.className));
        const bool described = FindResourceW(lib.module, className.c_str(), L"CHIPDESC") != nullptr;
        if (!FindChipClass(type.className)->custom) {
            // A raw register page: every byte is on it, read from the chip. A described page shows
            // its fields instead.
            EXPECT_EQ(ItemText(page, 8543), described ? L"" : L"00");
            EXPECT_EQ(Item(page, 8090) != nullptr, !described);
            EXPECT_EQ(GetWindowLongPtrW(page, GWL_STYLE) & WS_CAPTION, 0) << "a page has no title bar";
        }
        if (asObject)
            delete dialog;
        else
            DestroyWindow(page);
        EXPECT_FALSE(IsWindow(page));
        EXPECT_EQ(lib.RegvaneDialogClassName(page), nullptr);
        chip.ClearLog();
        PumpMessages();
        EXPECT_EQ(chip.CallNames(), Calls{}) << "a closed page still talks to the chip";
        ++opened;
    }
    EXPECT_EQ(opened, 386);
}

TEST_F(Factory, AHostCaptionTitlesAGenericPage) {
    SimulatedChip chip(96, 0);
    chip.modelName = "LS9929";
    HWND titled = lib.CreateRegvaneHwnd(96, &chip, L"Module 3: LS9929", host.View());
    HWND plain = lib.CreateRegvaneHwnd(96, &chip, L"", host.View());
    EXPECT_EQ(Title(titled), L"Module 3: LS9929");
    EXPECT_EQ(Title(plain), L"Chip registers - LS9929");
    DestroyWindow(titled);
    DestroyWindow(plain);
}

} // namespace
