// What an operator does to a page's controls, as the window messages the action produces, and what
// the operator sees on them. Setting a trackbar or a combo does not notify the page by itself: the
// page is sent the notification a drag or a choice would give.
#pragma once

#include "TestHost.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

using Calls = std::vector<std::string>;

inline HWND Item(HWND page, int id) {
    return GetDlgItem(page, id);
}
inline bool Checked(HWND page, int id) {
    return SendMessageW(Item(page, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}
inline int SliderPos(HWND page, int id) {
    return static_cast<int>(SendMessageW(Item(page, id), TBM_GETPOS, 0, 0));
}
// Shown by the page, whether or not the host shows the page itself yet.
inline bool Shown(HWND page, int id) {
    return (GetWindowLongPtrW(Item(page, id), GWL_STYLE) & WS_VISIBLE) != 0;
}
inline std::wstring Title(HWND page) {
    return WindowText(page);
}

// What a page posts to its host stays queued until the test pumps messages.
inline void Click(HWND page, int id) {
    SendMessageW(Item(page, id), BM_CLICK, 0, 0);
}
inline void SetCheck(HWND page, int id, bool checked) {
    if (Checked(page, id) != checked)
        Click(page, id);
}
inline void MoveSlider(HWND page, int id, int position) {
    SendMessageW(Item(page, id), TBM_SETPOS, TRUE, position);
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, position),
                 reinterpret_cast<LPARAM>(Item(page, id)));
}
inline void Select(HWND page, int id, int index) {
    SendMessageW(Item(page, id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(Item(page, id)));
}
// A number typed and committed with Enter.
inline void Enter(HWND page, int id, const wchar_t* text) {
    SetWindowTextW(Item(page, id), text);
    SendMessageW(Item(page, id), WM_KEYDOWN, VK_RETURN, 0);
}
// Click into the edit, type, move on to another control: the edit reports the focus loss itself.
inline void TypeAndLeave(HWND page, int id, const wchar_t* text, int next) {
    SetFocus(Item(page, id));
    SetWindowTextW(Item(page, id), text);
    SetFocus(Item(page, next));
    PumpMessages();
}

// A description file in the temporary folder, as a test's page opens it.
inline std::wstring WriteDescription(const std::wstring& name, const std::string& text) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + name;
    std::ofstream(path.c_str(), std::ios::binary) << text;
    return path;
}

// A host window tree for the pages a test opens, with English loaded. Pages still open when the test
// ends are closed; a test closes the pages on a chip of its own (CloseAll) before that chip goes.
class PageTest : public ::testing::Test {
protected:
    void SetUp() override { InstallHostCallback(); }
    void TearDown() override {
        CloseAll();
        InstallHostCallback();
    }

    // The page of a chip type as the host opens and shows it; the chip's log starts after the opening.
    HWND Open(int chipType, SimulatedChip* chip, const wchar_t* caption = L"") {
        return Show(RegvaneLibrary::Get().CreateRegvaneHwnd(chipType, chip, caption, host.View()), chip);
    }
    // The page a description file renders, as the designer opens it.
    HWND OpenDescribed(const std::wstring& path, SimulatedChip* chip) {
        wchar_t problem[512] = {};
        HWND page = RegvaneLibrary::Get().RegvaneCreateDescribedPage(path.c_str(), chip, L"", host.View(),
                                                                     problem, 512);
        EXPECT_NE(page, nullptr) << std::string(problem, problem + wcslen(problem));
        return Show(page, chip);
    }
    HWND Show(HWND page, SimulatedChip* chip) {
        EXPECT_NE(page, nullptr);
        opened.push_back(page);
        ShowWindow(page, SW_SHOW);
        PumpMessages();
        if (chip)
            chip->ClearLog();
        return page;
    }
    void CloseAll() {
        for (HWND page : opened)
            if (IsWindow(page))
                DestroyWindow(page);
        opened.clear();
    }

    HostFrame host;
    std::vector<HWND> opened;
};

// A page of a description the test writes, on a chip of the test's own; the file goes with the test.
class DescribedPageTest : public PageTest {
protected:
    void OpenWith(const std::wstring& name, const std::string& text) {
        path = WriteDescription(name, text);
        page = OpenDescribed(path, &chip);
    }
    void TearDown() override {
        PageTest::TearDown();
        DeleteFileW(path.c_str());
    }

    SimulatedChip chip{7, 0};
    std::wstring path;
    HWND page = nullptr;
};
