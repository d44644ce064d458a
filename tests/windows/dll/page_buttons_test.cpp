// A described page's buttons clicked as an operator clicks them: a host page asked for, the chip read
// again, the defaults, and the host's chip functions when it offers them, fails them or succeeds. The
// page class, its fields and the function entries are made up for the test.
#include "OperatorActions.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kOpenHostPage = 0x0904;

// A level the defaults and the reread show, and buttons 201 to 206 doing what `kActions` says.
const char* const kActions[] = {
    "page 12", "reread", "defaults", "function 1 93\nargument = value level", "function 3 5", "function 2 7"};
std::string ButtonsPage() {
    std::string text = "[page]\nclass = CRegvaneButtonsTest\n[field level]\nlabel = \"Level\"\nbits = "
                       "2[5:0]\ncontrol = slider\nids = 101\ndefault = 20\n";
    for (int i = 0; i < 6; ++i)
        text += "[button b" + std::to_string(i) + "]\nlabel = \"B\"\nid = " + std::to_string(201 + i) +
                "\naction = " + kActions[i] + "\n";
    return text;
}

class PageButtons : public DescribedPageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        chip.regData[2] = 9;
        chip.OfferChipFunctions();
        chip.functionTable3 = {};
        chip.failingFunction = {2, 7};
        OpenWith(L"CRegvaneButtonsTest.desc", ButtonsPage());
    }
};

TEST_F(PageButtons, AskTheHostFrameForAPageReadTheChipAgainAndWriteTheDefaults) {
    Click(page, 201);
    MSG posted{};
    ASSERT_TRUE(PeekMessageW(&posted, host.Frame(), kOpenHostPage, kOpenHostPage, PM_REMOVE));
    EXPECT_EQ(posted.wParam, 12u);
    EXPECT_EQ(posted.lParam, 1);

    chip.regData[2] = 33; // the host changed the chip
    Click(page, 202);
    EXPECT_EQ(SliderPos(page, 101), 33);
    EXPECT_TRUE(chip.CallNames(false).empty());

    Click(page, 203);
    EXPECT_EQ(chip.regData[2], 20);
    EXPECT_EQ(SliderPos(page, 101), 20);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData", "MarkModified", "UpdateHostState"}));
}

TEST_F(PageButtons, AChipFunctionRunsOnlyWhenOfferedAndSendsTheChipOnlyWhenItSucceeds) {
    {
        MessageBoxWatcher boxes;
        Click(page, 205);
        Click(page, 206);
        ASSERT_EQ(boxes.Boxes().size(), 2u);
        EXPECT_EQ(boxes.Boxes()[0].text, L"The host does not offer this chip function. Nothing was changed.");
        EXPECT_EQ(boxes.Boxes()[1].text, L"The chip function failed. The chip was left as it was.");
    }
    EXPECT_EQ(chip.CallNames(false), (Calls{"FunctionTable2"})); // the failed call, and nothing written

    chip.ClearLog();
    Click(page, 204);
    Calls sent; // what changes the chip or the host, with its arguments
    for (const HostCall& call : chip.log)
        if (call.name.rfind("Get", 0) != 0)
            sent.push_back(call.ToString());
    EXPECT_EQ(sent,
              (Calls{"FunctionTable(93, 9, 0, 0)", "ApplyChip", "NotifyHost(128, 1)", "SetModified(1)"}));
}

} // namespace
