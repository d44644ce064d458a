// The workbench as a chip engineer's designer: a description opened on a simulated chip and drawn again
// when its file changes, mistakes shown with file, line and reason, and descriptions checked from the
// command line. The layouts are made up for the test; nothing here describes a real chip.
#include "WorkbenchProcess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The page class of the SUM2018 (chip type 7), which has no description of its own.
std::string Description(int byte, int id) {
    return "[page]\nclass = CRegvane_SUM2018\n\n[field test]\nlabel = \"Test byte\"\nbits = " +
           std::to_string(byte) + "[7:0]\ncontrol = number\nids = " + std::to_string(id) + "\n";
}

class WorkbenchDesignerWindow : public WorkbenchWindowTest {
protected:
    // Lets the designer's watch of the file see a change.
    void WaitForRedraw() {
        for (int i = 0; i < 40; ++i) {
            Sleep(50);
            Pump();
        }
    }
};

TEST_F(WorkbenchDesignerWindow, DrawsTheDescriptionAgainWhenItChangesOnTheSameChip) {
    const std::wstring file = profile.File(L"CRegvane_SUM2018.desc");
    WriteFileBytes(file, Description(4, 500));

    ASSERT_TRUE(window->OpenDescription(file));
    EXPECT_EQ(window->Session().Chip().chipType, 7);
    HWND edit = GetDlgItem(window->Session().Page(), 500);
    ASSERT_NE(edit, nullptr);
    SetWindowTextW(edit, L"77");
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(window->Session().Chip().regData[4], 77);

    // Another byte, another id: the page follows the file, the chip keeps what it holds.
    WriteFileBytes(file, Description(5, 501));
    WaitForRedraw();
    HWND page = window->Session().Page();
    ASSERT_NE(GetDlgItem(page, 501), nullptr);
    EXPECT_EQ(GetDlgItem(page, 500), nullptr);
    EXPECT_EQ(window->Session().Chip().regData[4], 77);

    // A mistake: the log says where and why, and the last good page stays.
    WriteFileBytes(file, Description(5, 501) + "colour = red\n");
    WaitForRedraw();
    const std::wstring last = LogLines(main).back();
    EXPECT_NE(last.find(L"CRegvane_SUM2018.desc:9: unknown key \"colour\""), std::wstring::npos)
        << std::string(last.begin(), last.end());
    EXPECT_EQ(window->Session().Page(), page);
    EXPECT_TRUE(IsWindow(page));
}

TEST(WorkbenchDesigner, ChecksDescriptionsAndDrawsOneHeadlessOnTheChipOfItsClass) {
    TempFolder folder;
    const std::wstring good = folder.File(L"CRegvane_SUM2018.desc");
    const std::wstring bad = folder.File(L"bad.desc");
    WriteFileBytes(good, Description(4, 500));
    WriteFileBytes(bad, Description(16, 500)); // byte 16 of a 16-byte block
    const WorkbenchRun check = RunWorkbench(L"--check-description \"" + good + L"\" \"" + bad + L"\"");
    EXPECT_EQ(check.status, 6u) << check.out << check.err;
    EXPECT_NE(check.out.find("CRegvane_SUM2018.desc: ok"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("bad.desc:6: byte 16"), std::string::npos) << check.out;
    EXPECT_EQ(RunWorkbench(L"--check-description \"" + good + L"\"").status, 0u);

    const WorkbenchRun run =
        RunWorkbench(L"--headless --describe \"" + good + L"\" --profile \"" + folder.Path() +
                     L"\" --screenshot \"" + folder.File(L"page.png") + L"\" --do \"edit 500 9\"");
    EXPECT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.Line("description ").find("CRegvane_SUM2018 on chip type 7"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("SetRegData 00 00 00 2b 09 2b"), std::string::npos) << run.out;
    EXPECT_GT(DecodePng(ReadFileBytes(folder.File(L"page.png"))).width, 0);
}

} // namespace
