// The virtual list in-process, on a plain window: what it shows and asks for, and how the operator
// finds and keeps a row in it.
#include "framework/VirtualList.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <windows.h>

#include <string>

namespace {

CVirtualList* g_list = nullptr;

// The parent hands the list's notifications to it, as a page does.
LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    LRESULT result = 0;
    if (message == WM_NOTIFY && g_list && g_list->OnNotify(reinterpret_cast<NMHDR*>(lParam), result))
        return result;
    return DefSubclassProc(window, message, wParam, lParam);
}

class VirtualList : public ::testing::Test {
protected:
    void SetUp() override {
        static const BOOL controls = [] {
            INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
            return InitCommonControlsEx(&classes);
        }();
        ASSERT_TRUE(controls);
        parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                 nullptr, nullptr, nullptr);
        SetWindowSubclass(parent, ParentProc, 0, 0);
        list.Attach(CreateWindowExW(0, WC_LISTVIEWW, L"",
                                    WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL, 0, 0,
                                    300, 200, parent, nullptr, nullptr, nullptr));
        g_list = &list;
        list.AddColumn(L"Row", 60);
        list.AddColumn(L"Value", 60);
    }
    void TearDown() override {
        g_list = nullptr;
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

    HWND parent = nullptr;
    int asked = 0;
    std::wstring mark;
    CVirtualList list{[this](int row, int column, std::wstring& text) {
        ++asked;
        text = (column == 0 ? L"" : L"v") + std::to_wstring(row) + mark;
    }};
};

// Only the rows in view are asked for, however many there are, and again on a refresh.
TEST_F(VirtualList, ShowsTheTextsOfTheRowsInViewWhateverTheirNumber) {
    list.SetRowCount(100000);
    EXPECT_EQ(list.ColumnCount(), 2);
    for (const wchar_t* newMark : {L"", L"!"}) {
        mark = newMark;
        asked = 0;
        list.Refresh();
        UpdateWindow(parent);
        EXPECT_GT(asked, 0);
        EXPECT_LT(asked, 1000);
    }
    EXPECT_EQ(Cell(99999, 1), L"v99999!");
    EXPECT_EQ(Cell(12345, 0, 3), L"12") << "a text is cut to the room it is asked into";
}

TEST_F(VirtualList, TypingFindsARowAndARefreshKeepsTheSelectionAndScrolling) {
    list.SetRowCount(100);
    SetFocus(list);
    for (const wchar_t typed : {L'3', L'7'})
        list.SendMessage(WM_CHAR, typed, 1);
    EXPECT_EQ(Selected(), 37);
    LVFINDINFOW find{LVFI_STRING, L"4"};
    EXPECT_EQ(ListView_FindItem(list, 50, &find), -1) << "a whole text, from row 51, without wrapping";
    find.flags |= LVFI_WRAP;
    EXPECT_EQ(ListView_FindItem(list, 50, &find), 4);
    find = {LVFI_PARTIAL, L"9"};
    EXPECT_EQ(ListView_FindItem(list, -1, &find), 9);

    list.SendMessage(WM_KEYDOWN, VK_END, 0);
    const LRESULT top = list.SendMessage(LVM_GETTOPINDEX);
    EXPECT_GT(top, 0);
    list.SetRowCount(100);
    list.Refresh();
    EXPECT_EQ(Selected(), 99);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), top);
    list.SetRowCount(50);
    EXPECT_EQ(Selected(), -1) << "the selected row is gone";
}

} // namespace
