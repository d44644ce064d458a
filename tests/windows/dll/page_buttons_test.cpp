// A described page's buttons clicked as an operator clicks them: a host page asked for, the chip read
// again, the defaults, and the host's chip functions when it offers them, fails them or succeeds. The
// page class, its fields and the function entries are made up for the test.
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace {

constexpr UINT kOpenHostPage = 0x0904;

const char kButtonsPage[] = R"([page]
class = CRegvaneButtonsTest
[field level]
label = "Level"
bits = 2[5:0]
control = slider
ids = 101
default = 20
[field pattern]
label = "Pattern"
record = record-a
bits = 0[7:0]
control = number
ids = 102
[button go]
label = "Page 12"
action = page 12
id = 201
[button read]
label = "Read"
action = reread
id = 202
[button defaults]
label = "Defaults"
action = defaults
id = 203
[button show]
label = "Show"
action = function 1 93
argument = value pattern
id = 204
[button absent]
label = "Absent"
action = function 3 5
id = 205
[button fails]
label = "Fails"
action = function 2 7
id = 206
)";

class PageButtons : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        path = std::wstring(folder) + L"CRegvaneButtonsTest.desc";
        std::ofstream(path.c_str(), std::ios::binary) << kButtonsPage;
        chip.regData[2] = 5;
        chip.regDataEx[0] = 9;
        chip.OfferChipFunctions();
        chip.functionTable3 = {};
        chip.failingFunction = {2, 7};
        wchar_t problem[512] = {};
        page = Show(RegvaneLibrary::Get().RegvaneCreateDescribedPage(path.c_str(), &chip, L"", host.View(),
                                                                     problem, 512),
                    &chip);
    }
    void TearDown() override {
        PageTest::TearDown();
        DeleteFileW(path.c_str());
    }

    SimulatedChip chip{7, 0};
    std::wstring path;
    HWND page = nullptr;
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
    const auto block = chip.regData;
    {
        MessageBoxWatcher boxes;
        Click(page, 205);
        Click(page, 206);
        ASSERT_EQ(boxes.Boxes().size(), 2u);
        EXPECT_EQ(boxes.Boxes()[0].text, L"The host does not offer this chip function. Nothing was changed.");
        EXPECT_EQ(boxes.Boxes()[1].text, L"The chip function failed. The chip was left as it was.");
    }
    EXPECT_EQ(chip.CallNames(false), (Calls{"FunctionTable2"})); // the failed call, and nothing written
    EXPECT_EQ(chip.regData, block);

    chip.ClearLog();
    Click(page, 204);
    EXPECT_EQ(chip.CallNames(false), (Calls{"FunctionTable", "ApplyChip", "NotifyHost", "SetModified"}));
    const auto call = [&](const char* name) {
        return std::find_if(chip.log.begin(), chip.log.end(),
                            [&](const HostCall& c) { return c.name == name; })
            ->ToString();
    };
    EXPECT_EQ(call("FunctionTable"), "FunctionTable(93, 9, 0, 0)"); // the pattern's value
    EXPECT_EQ(call("NotifyHost"), "NotifyHost(128, 1)");
    EXPECT_EQ(call("SetModified"), "SetModified(1)");
}

} // namespace
