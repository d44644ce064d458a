// The 60-field example page in a host's room: in a wide room its groups flow into columns, in a short
// one it scrolls, and no control ever lies outside what the page shows or scrolls over; the keyboard
// and the wheel reach every control. In the languages with the longest and widest texts, at the
// screen resolution of the run: 96 DPI, and 144 DPI in the run with REGVANE_LOG_PIXELS=144.
#include "OperatorActions.h"
#include "workbench/Win32Text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace {

// Where the page is scrolled to, and how much it scrolls over (0: it shows everything).
std::pair<int, int> ScrollOf(HWND page) {
    SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
    const bool scrolls =
        (GetWindowLongPtrW(page, GWL_STYLE) & WS_VSCROLL) && GetScrollInfo(page, SB_VERT, &info);
    return scrolls ? std::pair{info.nPos, info.nMax + 1} : std::pair{0, 0};
}

RECT InParent(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

class LongPage : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        InstallHostCallback(GetParam());
        HDC screen = GetDC(nullptr);
        dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        const char* wanted = std::getenv("REGVANE_LOG_PIXELS");
        ASSERT_EQ(dpi, wanted ? std::atoi(wanted) : 96) << "the run's screen resolution";
    }

    // The page opened in a room of this size at 96 DPI, and as much larger as the screen's resolution.
    HWND Open(int width, int height) {
        MoveWindow(host.View(), 0, 0, width * dpi / 96, height * dpi / 96, FALSE);
        const wchar_t* file = L"" REGVANE_SOURCE_DIR "/docs/examples/CRegvaneExampleLongPage.desc";
        wchar_t problem[512] = {};
        HWND page =
            RegvaneLibrary::Get().RegvaneCreateDescribedPage(file, &chip, L"", host.View(), problem, 512);
        EXPECT_NE(page, nullptr) << Utf8(problem);
        ShowWindow(page, SW_SHOW);
        PumpMessages();
        return page;
    }

    // The page inside its room, and every child inside the page's width and the height it shows or
    // scrolls over (a combo box's rectangle is its closed one).
    void ExpectNothingClipped(HWND page) {
        RECT room{}, client{};
        GetClientRect(host.View(), &room);
        GetClientRect(page, &client);
        EXPECT_TRUE(InParent(page).right <= room.right && InParent(page).bottom <= room.bottom);
        const auto [position, content] = ScrollOf(page);
        const int top = -position, bottom = content ? top + content : client.bottom;
        for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const RECT r = InParent(child);
            EXPECT_TRUE(r.left >= 0 && r.right <= client.right && r.top >= top && r.bottom <= bottom)
                << "control " << GetDlgCtrlID(child) << " at " << r.left << ", " << r.top << " below " << top;
        }
    }

    HostFrame host;
    SimulatedChip chip{7, 0};
    int dpi = 96;
};

TEST_P(LongPage, FlowsIntoColumnsInAWideRoomAndScrollsInAShortOneWithNothingClipped) {
    HWND page = Open(1600, 900); // wide: groups side by side, the whole page in view
    std::set<LONG> columns;
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if ((GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX)
            columns.insert(InParent(child).left);
    EXPECT_GE(columns.size(), 2u);
    EXPECT_EQ(ScrollOf(page).second, 0);
    ExpectNothingClipped(page);
    DestroyWindow(page);

    page = Open(420, 300); // short and narrow: one column that scrolls
    RECT client{};
    GetClientRect(page, &client);
    ASSERT_GT(ScrollOf(page).second, client.bottom);
    ExpectNothingClipped(page);

    // Tab from control to control down to the last: each comes into view as it takes the focus.
    std::vector<HWND> stops;
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_TABSTOP) && IsWindowVisible(child) &&
            IsWindowEnabled(child))
            stops.push_back(child);
    ASSERT_GT(stops.size(), 60u);
    SetFocus(stops.front());
    for (std::size_t i = 1; i < stops.size(); ++i) {
        SendMessageW(page, WM_NEXTDLGCTL, 0, FALSE);
        ASSERT_EQ(GetFocus(), stops[i]) << i;
        const RECT r = InParent(stops[i]);
        EXPECT_TRUE(r.top >= 0 && r.bottom <= client.bottom) << "control " << GetDlgCtrlID(stops[i]);
    }

    // Home, a page down and a wheel turn down, and the bottom, with the page holding the keyboard.
    SendMessageW(page, WM_KEYDOWN, VK_HOME, 0);
    EXPECT_EQ(ScrollOf(page).first, 0);
    SendMessageW(page, WM_KEYDOWN, VK_NEXT, 0);
    const int pagedDown = ScrollOf(page).first;
    EXPECT_GT(pagedDown, client.bottom / 2);
    SendMessageW(page, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_GT(ScrollOf(page).first, pagedDown);
    SendMessageW(page, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_LE(InParent(stops.back()).bottom, client.bottom);
    ExpectNothingClipped(page);
    DestroyWindow(page);
}

std::string LanguageName(const ::testing::TestParamInfo<int>& info) {
    return info.param == 8 ? "Thai" : info.param == 1 ? "SimplifiedChinese" : "TraditionalChinese";
}

INSTANTIATE_TEST_SUITE_P(Language, LongPage, ::testing::Values(8, 1, 2), LanguageName);

} // namespace
