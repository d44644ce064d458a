// regvane.dll's entry points as the host calls them: which page a chip-type number opens, that every
// page of the chip-type table comes up from its own template without writing the chip and goes away
// cleanly, and which host callback the module asks. Which class each number names is the chip-type
// table's; here the DLL's exports must follow it. That every entry point is found by its plain name
// is held by every test: the test host loads them so, and the C host links them so.
#include "OperatorActions.h"
#include "factory/ChipTypes.h"
#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>

namespace {

class Factory : public PageTest {
protected:
    RegvaneLibrary& lib = RegvaneLibrary::Get();
};

// Rows of one number are tried in order, each asking the host for the sub-type afresh; a number
// without rows asks nothing.
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

// The host's rules for calling the module, and what a call that breaks them gets: nothing, rather
// than half a page or an exception in a host that may not be written in C++.
TEST_F(Factory, ACallFromAnotherThreadForADeadParentOrFromAFailingHostGetsNoPage) {
    SimulatedChip chip(47, 0);
    HWND fromOtherThread = host.View();
    std::thread([&] { fromOtherThread = lib.CreateRegvaneHwnd(47, &chip, L"", host.View()); }).join();
    EXPECT_EQ(fromOtherThread, nullptr);
    EXPECT_TRUE(chip.CallNames().empty());

    HWND gone =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, host.View(), nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    EXPECT_EQ(lib.CreateRegvaneHwnd(47, &chip, L"", gone), nullptr);
    EXPECT_TRUE(chip.CallNames().empty());

    struct FailingHost : SimulatedChip {
        using SimulatedChip::SimulatedChip;
        std::uint16_t REGVANE_CALL GetChipSubType() override { throw std::runtime_error("host failed"); }
    } failing(11, 0);
    EXPECT_EQ(lib.CreateRegvaneHwnd(11, &failing, L"", host.View()), nullptr);
    EXPECT_NE(lib.CreateRegvaneHwnd(47, &chip, L"", host.View()), nullptr) << "the module still works";
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
        EXPECT_EQ(chip.CallNames(false), Calls{}) << "opening a page changed the chip";
        EXPECT_EQ(GetParent(page), host.View());
        EXPECT_STREQ(lib.RegvaneDialogClassName(page), type.className);
        const bool described = FindChipClass(type.className)->kind == ChipPageKind::Described;
        if (FindChipClass(type.className)->MadeFromTable()) {
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
    EXPECT_EQ(lib.RegvaneDialogClassName(host.View()), nullptr) << "a window that is no page";
    EXPECT_EQ(lib.RegvaneDialogClassName(nullptr), nullptr);
}

TEST_F(Factory, LanguageChangeAsksTheLatestCallbackOnce) {
    SimulatedHostCallback first, second;
    lib.InitRegvane(&first);
    lib.InitRegvane(&second);
    lib.RegvaneLanguageChanged();
    EXPECT_TRUE(first.log.empty());
    ASSERT_EQ(second.log.size(), 1u);
    EXPECT_EQ(second.log[0].name, "GetLanguage");
}

} // namespace
