// The virtual list and the grid on it in-process, on a plain window: what they show and ask for, how
// the operator finds and keeps a row, and moves through and edits a made-up grid of byte cells behind
// a name column, each cell taking a decimal or 0x number up to 255.
#include "framework/FrameCache.h"
#include "framework/VirtualGrid.h"
#include "framework/VirtualList.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <windows.h>

#include <cwchar>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

// The parent hands the list's notifications to it, as a page does.
std::function<bool(NMHDR*, LRESULT&)> g_notify;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    LRESULT result = 0;
    if (message == WM_NOTIFY && g_notify && g_notify(reinterpret_cast<NMHDR*>(lParam), result))
        return result;
    return DefSubclassProc(window, message, wParam, lParam);
}

class VirtualList : public ::testing::Test {
protected:
    void SetUp() override {
        static const BOOL controls = [] {
            INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
            return InitCommonControlsEx(&classes);
        }();
        ASSERT_TRUE(controls);
        parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                 nullptr, nullptr, nullptr);
        SetWindowSubclass(parent, ParentProc, 0, 0);
        list.Attach(CreateWindowExW(0, WC_LISTVIEWW, L"",
                                    WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL, 0, 0,
                                    300, 200, parent, nullptr, nullptr, nullptr));
        g_notify = [this](NMHDR* header, LRESULT& result) { return list.OnNotify(header, result); };
        list.AddColumns({{L"Row", 60}, {L"Value", 60}});
    }
    void TearDown() override {
        g_notify = nullptr;
        DestroyWindow(parent);
    }

    std::wstring Cell(int row, int column, int room = 64) const {
        std::wstring text(static_cast<std::size_t>(room), L'?');
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text.data();
        item.cchTextMax = room;
        list.SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text.c_str();
    }
    int Selected() const { return ListView_GetNextItem(list, -1, LVNI_SELECTED); }
    int Find(int after, UINT flags, const wchar_t* text) const {
        LVFINDINFOW find{};
        find.flags = flags;
        find.psz = text;
        return ListView_FindItem(list, after, &find);
    }

    HWND parent = nullptr;
    int asked = 0;
    std::wstring mark;
    CVirtualList list{[this](int row, int column, std::wstring& text) {
        ++asked;
        text = (column == 0 ? L"" : L"v") + std::to_wstring(row) + mark;
    }};
};

TEST_F(VirtualList, ShowsTheTextsOfTheRowsInViewWhateverTheirNumber) {
    list.SetRowCount(100000);
    UpdateWindow(parent);
    EXPECT_GT(asked, 0) << "the rows in view are drawn";
    EXPECT_LT(asked, 1000) << "rows out of view are never asked for";
    EXPECT_EQ(Cell(99999, 1), L"v99999");
    EXPECT_EQ(Cell(12345, 0, 3), L"12") << "a text is cut to the room it is asked into";

    // A refresh draws the rows in view again with their new texts.
    mark = L"!";
    asked = 0;
    list.Refresh();
    UpdateWindow(parent);
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 1000);
    EXPECT_EQ(Cell(3, 1), L"v3!");
}

TEST_F(VirtualList, TypingFindsARowAndARefreshKeepsTheSelectionAndScrolling) {
    list.SetRowCount(100);
    SetFocus(list);
    for (const wchar_t typed : {L'3', L'7'})
        list.SendMessage(WM_CHAR, typed, 1);
    EXPECT_EQ(Selected(), 37);
    EXPECT_EQ(Find(50, LVFI_STRING, L"4"), -1) << "a whole text, from row 51, without wrapping";
    EXPECT_EQ(Find(50, LVFI_STRING | LVFI_WRAP, L"4"), 4);
    EXPECT_EQ(Find(-1, LVFI_PARTIAL, L"9"), 9);

    list.SendMessage(WM_KEYDOWN, VK_END, 0);
    const LRESULT top = list.SendMessage(LVM_GETTOPINDEX);
    EXPECT_EQ(Selected(), 99);
    EXPECT_GT(top, 0);
    list.SetRowCount(100);
    list.Refresh();
    EXPECT_EQ(Selected(), 99);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), top);

    list.SetRowCount(50);
    EXPECT_EQ(Selected(), -1) << "the selected row is gone";
}

// The frame right of the rows (the scroll bar), every third line of it, as the screen shows it.
std::vector<COLORREF> BarPixels(HWND window) {
    RECT outer{}, client{};
    GetWindowRect(window, &outer);
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    std::vector<COLORREF> pixels;
    HDC dc = GetWindowDC(window);
    for (int y = 0; y < outer.bottom - outer.top; y += 3)
        for (int x = client.right - outer.left; x < outer.right - outer.left; ++x)
            pixels.push_back(GetPixel(dc, x, y));
    ReleaseDC(window, dc);
    return pixels;
}

void RedrawFrame(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_UPDATENOW);
}

TEST_F(VirtualList, ItsFrameIsCopiedOnlyWhereTheSystemWouldDrawTheSame) {
    ForgetKeptFrames();
    list.SetRowCount(500);
    RedrawFrame(list);
    const std::vector<COLORREF> drawn = BarPixels(list);
    ASSERT_TRUE(DrawKeptFrame(list)) << "a frame drawn whole and all on screen is kept";

    // Painted over, the copy brings the frame back as the system drew it, and leaves the rows alone.
    HDC dc = GetWindowDC(list);
    RECT everything{0, 0, 1000, 1000};
    HBRUSH magenta = CreateSolidBrush(RGB(255, 0, 255));
    FillRect(dc, &everything, magenta);
    DeleteObject(magenta);
    ASSERT_TRUE(DrawKeptFrame(list));
    EXPECT_EQ(BarPixels(list), drawn);
    EXPECT_EQ(GetPixel(dc, 30, 60), RGB(255, 0, 255)) << "the rows are not part of the frame";
    ReleaseDC(list, dc);

    // Scrolled to the end, or disabled, the list looks otherwise: its frame is the system's to draw.
    list.SendMessage(WM_KEYDOWN, VK_END, 0);
    EXPECT_FALSE(DrawKeptFrame(list));
    RedrawFrame(list);
    EXPECT_NE(BarPixels(list), drawn) << "the thumb moved down";
    EXPECT_TRUE(DrawKeptFrame(list));
    EnableWindow(list, FALSE);
    EXPECT_FALSE(DrawKeptFrame(list));
    EnableWindow(list, TRUE);

    // Partly covered by another window, what the screen shows there is not the frame's.
    ForgetKeptFrames();
    HWND cover = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 280, 0, 40, 40, parent, nullptr,
                                 nullptr, nullptr);
    SetWindowPos(cover, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    RedrawFrame(list);
    EXPECT_FALSE(DrawKeptFrame(list));
    DestroyWindow(cover);
}

constexpr int kColumns = 3;

// The grid takes the list window over, with two more columns: a name column and three of cells.
class VirtualGrid : public VirtualList {
protected:
    void SetUp() override {
        VirtualList::SetUp();
        grid.Attach(list, 1);
        g_notify = [this](NMHDR* header, LRESULT& result) { return grid.OnNotify(header, result); };
        grid.List().AddColumns({{L"F2", 50}, {L"F3", 50}});
    }

    void Rows(int count) {
        values.assign(static_cast<std::size_t>(count) * kColumns, 0x10);
        grid.List().SetRowCount(count);
        UpdateWindow(parent);
    }
    int& Value(int row, int column) { return values[static_cast<std::size_t>(row * kColumns + column - 1)]; }
    HWND List() { return grid.List(); }
    HWND Edit() { return FindWindowExW(List(), nullptr, L"EDIT", nullptr); }
    void Key(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 1); }
    void Type(const wchar_t* text) { SetWindowTextW(Edit(), text); }
    std::wstring EditText() { return CWnd(Edit()).GetWindowText(); }
    std::pair<int, int> Current() const { return {grid.Row(), grid.Column()}; }
    void Click(UINT message, int row, int column) {
        RECT cell{LVIR_BOUNDS, column, 0, 0};
        SendMessageW(List(), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        SendMessageW(List(), message, MK_LBUTTON, MAKELPARAM(cell.left + 2, (cell.top + cell.bottom) / 2));
    }

    std::vector<int> values;
    int commits = 0;
    CVirtualGrid grid{[this](int row, int column, std::wstring& text) {
                          ++asked;
                          wchar_t hex[8] = L"";
                          if (column > 0)
                              std::swprintf(hex, 8, L"0x%02X", Value(row, column));
                          text = hex;
                      },
                      [this](int row, int column, const std::wstring& typed) -> CVirtualGrid::Verdict {
                          ++commits;
                          wchar_t* end = nullptr;
                          const long value = std::wcstol(typed.c_str(), &end, 0);
                          if (typed.empty() || *end || value < 0 || value > 255)
                              return {false, L"0 to 255"};
                          Value(row, column) = static_cast<int>(value);
                          return {true, {}};
                      }};
};

TEST_F(VirtualGrid, KeysMoveBetweenCellsAndEditOneInPlaceAskingOnlyForCellsInView) {
    Rows(100000);
    SetFocus(List());
    EXPECT_EQ(grid.Column(), 1) << "the name column is never current";
    for (const WPARAM key : {VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_DOWN, VK_DOWN, VK_LEFT})
        Key(List(), key);
    EXPECT_EQ(Current(), std::make_pair(2, 2)) << "the last column stops the cell";
    Key(List(), VK_HOME);
    Key(List(), VK_NEXT);
    const int row = grid.Row();
    EXPECT_EQ(grid.Column(), 1);
    EXPECT_GT(row, 3);

    // F2 edits the cell's text; Enter hands the typed text over and only that row is drawn again.
    Key(List(), VK_F2);
    ASSERT_TRUE(grid.IsEditing());
    EXPECT_EQ(EditText(), L"0x10");
    Type(L"0x1f");
    asked = 0;
    Key(Edit(), VK_RETURN);
    UpdateWindow(parent);
    EXPECT_LE(asked, 2 * (kColumns + 1));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(Value(row, 1), 0x1F);
    EXPECT_EQ(GetFocus(), List());

    // A refused Enter keeps the edit open and says why; Escape then leaves the cell as it was.
    Key(List(), VK_RETURN);
    Type(L"300");
    Key(Edit(), VK_RETURN);
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.Refusal(), L"0 to 255");
    Key(Edit(), VK_ESCAPE);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(Value(row, 1), 0x1F);
    EXPECT_EQ(commits, 2) << "Escape hands nothing over";

    // Typing starts an edit with what was typed; leaving it commits.
    SendMessageW(List(), WM_CHAR, L'9', 1);
    EXPECT_EQ(EditText(), L"9");
    SendMessageW(Edit(), WM_CHAR, L'9', 1);
    SetFocus(parent);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(Value(row, 1), 99);
}

TEST_F(VirtualGrid, ClicksPickCellsADoubleClickEditsAndARefusedLeaveKeepsTheCell) {
    Rows(8);
    Click(WM_LBUTTONDOWN, 3, 2);
    EXPECT_EQ(GetFocus(), List());
    EXPECT_EQ(Current(), std::make_pair(3, 2));
    Click(WM_LBUTTONDOWN, 5, 0);
    EXPECT_EQ(Current(), std::make_pair(5, 2)) << "a click on a row's name keeps the column";

    Click(WM_LBUTTONDBLCLK, 4, 3);
    ASSERT_TRUE(grid.IsEditing());
    Type(L"twelve");
    Click(WM_LBUTTONDOWN, 1, 1); // leaves the edit
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Refusal(), L"0 to 255");
    EXPECT_EQ(Value(4, 3), 0x10);
    EXPECT_EQ(grid.Row(), 1);
}

} // namespace
