// The workbench's window in-process: the chip list and its search, a page opened as a child of the
// host view, the call log and register view following the page, the Language menu and re-reading.
#include "WorkbenchProcess.h"
#include "workbench/ChipCatalog.h"
#include "workbench/WorkbenchResources.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

bool LogHas(HWND main, const std::wstring& text) {
    const std::vector<std::wstring> lines = LogLines(main);
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::wstring& l) { return l.find(text) != l.npos; });
}

TEST_F(WorkbenchWindowTest, ListsEveryChipPageAndFindNarrowsTheList) {
    HWND list = GetDlgItem(main, IDC_CHIP_LIST);
    EXPECT_EQ(ListView_GetItemCount(list), static_cast<int>(ChipCatalog().size()));
    SetWindowTextW(GetDlgItem(main, IDC_SEARCH), L"sm16159");
    ASSERT_EQ(ListView_GetItemCount(list), 1);
    wchar_t cell[64] = {};
    ListView_GetItemText(list, 0, 0, cell, 64);
    EXPECT_STREQ(cell, L"47/138");
    SetWindowTextW(GetDlgItem(main, IDC_SEARCH), L"no such chip anywhere");
    EXPECT_EQ(ListView_GetItemCount(list), 0);
}

TEST_F(WorkbenchWindowTest, APageOpensInTheHostViewAndItsCallsAndBytesShow) {
    ASSERT_TRUE(window->OpenPage(47, 0));
    HWND page = window->Session().Page();
    EXPECT_TRUE(IsWindowVisible(page));
    // The host nests pages as frame > view > page: page requests go to the frame, this window.
    EXPECT_EQ(GetParent(GetParent(page)), main);

    HWND slider = GetDlgItem(page, 8123);
    SendMessageW(slider, TBM_SETPOS, TRUE, 20);
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 20), reinterpret_cast<LPARAM>(slider));
    SendMessageW(GetDlgItem(page, 8055), BM_CLICK, 0, 0);
    Pump();
    EXPECT_TRUE(LogHas(main, L"SetRegData 00 00 df 14 df 2b")) << "the page's write is logged";
    wchar_t images[8192] = {};
    GetDlgItemTextW(main, IDC_IMAGES, images, 8192);
    EXPECT_NE(std::wstring(images).find(L"regData      00 00 df 14 df 2b"), std::wstring::npos);
    // Saved at once, as the change happened.
    EXPECT_NE(ReadFileBytes(profile.File(L"chip-47.txt")).find("regData 00 00 df 14 df 2b"),
              std::string::npos);

    // What the page reads when told to read the chip again is held by the scripted run's reread.
    SendMessageW(main, WM_COMMAND, MAKEWPARAM(IDC_REREAD, BN_CLICKED), 0);
    Pump();
    EXPECT_TRUE(LogHas(main, L"host sent 0x0903 (read the chip again)"));
}

TEST_F(WorkbenchWindowTest, TheLanguageMenuSwitchesTheModuleAndOpensThePageAgain) {
    HMENU languages = GetSubMenu(GetMenu(main), 2);
    ASSERT_EQ(GetMenuItemCount(languages), 13);
    ASSERT_TRUE(window->OpenPage(47, 0));
    HWND before = window->Session().Page();
    callback.log.clear();

    SendMessageW(main, WM_COMMAND, MAKEWPARAM(IDM_LANGUAGE_FIRST, 0), 0); // 1: Simplified Chinese
    Pump();
    EXPECT_EQ(callback.language, 1);
    ASSERT_FALSE(callback.log.empty());
    EXPECT_EQ(callback.log[0].name, "GetLanguage");
    EXPECT_EQ(GetMenuState(languages, IDM_LANGUAGE_FIRST, MF_BYCOMMAND) & MF_CHECKED, UINT(MF_CHECKED));
    EXPECT_EQ(GetMenuState(languages, IDM_LANGUAGE_FIRST + 2, MF_BYCOMMAND) & MF_CHECKED, 0u);
    EXPECT_TRUE(LogHas(main, L"---- language 1"));
    // The next start of the workbench comes back in the same language.
    EXPECT_NE(ReadFileBytes(profile.File(L"workbench-settings.txt")).find("language 1\n"), std::string::npos);
    EXPECT_FALSE(IsWindow(before)); // pages take their texts when they open
    EXPECT_NE(window->Session().Page(), nullptr);
}

} // namespace
