// The numeric edit in-process, on a plain window: what the operator types, the keys and the spin
// buttons become a clamped value and one message to the parent.
#include "framework/NumberEdit.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <windows.h>

#include <memory>
#include <vector>

namespace {

struct Notice {
    WPARAM id;
    LPARAM edit;
};
std::vector<Notice> g_notices;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kNumberEditValueChanged)
        g_notices.push_back({wParam, lParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

class NumberEdit : public ::testing::Test {
protected:
    void SetUp() override {
        static const ATOM registered = [] {
            INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
            InitCommonControlsEx(&classes);
            WNDCLASSW wc{};
            wc.lpfnWndProc = ParentProc;
            wc.hInstance = GetModuleHandleW(nullptr);
            wc.lpszClassName = L"NumberEditTestParent";
            return RegisterClassW(&wc);
        }();
        ASSERT_NE(registered, 0);
        parent = CreateWindowExW(0, L"NumberEditTestParent", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        window = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 10, 80, 20, parent,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(1042)),
                                 GetModuleHandleW(nullptr), nullptr);
        other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 40, 80, 20, parent,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
        g_notices.clear();
    }
    void TearDown() override { DestroyWindow(parent); }

    // As the operator does it: click in, type, leave.
    void Type(const wchar_t* text) {
        SetFocus(window);
        SetWindowTextW(window, text);
        SetFocus(other);
    }
    std::wstring Text() const {
        wchar_t text[64] = {};
        GetWindowTextW(window, text, 64);
        return text;
    }

    HWND parent = nullptr;
    HWND window = nullptr;
    HWND other = nullptr;
};

TEST_F(NumberEdit, TypedValuesAreClampedReformattedAndReportedOnceWhenTheyChange) {
    CNumberEdit edit;
    edit.SetRange(63, 0); // given the wrong way round
    edit.SetValue(5);
    ASSERT_TRUE(edit.SubclassWindow(window));
    EXPECT_EQ(Text(), L"5");
    EXPECT_TRUE(g_notices.empty()) << "values set by code are not reported";

    Type(L"  40");
    ASSERT_EQ(g_notices.size(), 1u);
    EXPECT_EQ(g_notices[0].id, 1042u);
    EXPECT_EQ(g_notices[0].edit, reinterpret_cast<LPARAM>(window));
    EXPECT_EQ(edit.GetValueInt(), 40);
    EXPECT_EQ(Text(), L"40");

    Type(L"300");
    EXPECT_EQ(edit.GetValueInt(), 63);
    EXPECT_EQ(Text(), L"63");
    EXPECT_EQ(g_notices.size(), 2u);

    Type(L"999"); // clamps to the value it already has
    EXPECT_EQ(Text(), L"63");
    EXPECT_EQ(g_notices.size(), 2u);

    Type(L"abc");
    EXPECT_EQ(Text(), L"63") << "text without a number puts the value back";
    EXPECT_EQ(g_notices.size(), 2u);

    Type(L"-7");
    EXPECT_EQ(edit.GetValueInt(), 0);
    EXPECT_EQ(g_notices.size(), 3u);
}

TEST_F(NumberEdit, EnterAndArrowKeysCommitAndStep) {
    CNumberEdit edit;
    edit.SetRange(0, 10);
    edit.SetStep(0.5);
    edit.SetPrecision(1);
    edit.SetUnit(L"V");
    ASSERT_TRUE(edit.SubclassWindow(window));
    EXPECT_EQ(Text(), L"0.0 V");

    SetFocus(window);
    SetWindowTextW(window, L"2.26");
    SendMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 2.3);
    EXPECT_EQ(Text(), L"2.3 V");
    ASSERT_EQ(g_notices.size(), 1u);

    SendMessageW(window, WM_KEYDOWN, VK_UP, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 2.8);
    SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 1.8);
    EXPECT_EQ(g_notices.size(), 4u);
    SetFocus(other);
    EXPECT_EQ(g_notices.size(), 4u) << "leaving without a change reports nothing";
}

TEST_F(NumberEdit, SpinButtonsStepTheValueAndFollowTheEdit) {
    CNumberEdit edit;
    edit.SetRange(1, 5);
    edit.SetValue(4);
    edit.EnableSpin(true);
    ASSERT_TRUE(edit.SubclassWindow(window));
    HWND spin = FindWindowExW(parent, nullptr, UPDOWN_CLASSW, nullptr);
    ASSERT_NE(spin, nullptr);

    NMUPDOWN up{{spin, 0, static_cast<UINT>(UDN_DELTAPOS)}, 1, 1};
    EXPECT_NE(SendMessageW(parent, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&up)), 0);
    EXPECT_EQ(edit.GetValueInt(), 5);
    EXPECT_NE(SendMessageW(parent, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&up)), 0);
    EXPECT_EQ(edit.GetValueInt(), 5) << "the range holds against the spin too";
    NMUPDOWN down{{spin, 0, static_cast<UINT>(UDN_DELTAPOS)}, 1, -1};
    SendMessageW(parent, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&down));
    EXPECT_EQ(edit.GetValueInt(), 4);
    EXPECT_EQ(g_notices.size(), 2u);

    // A real press on the lower arrow.
    RECT box{};
    GetClientRect(spin, &box);
    const LPARAM lowerArrow = MAKELPARAM(box.right / 2, box.bottom * 3 / 4);
    SendMessageW(spin, WM_LBUTTONDOWN, MK_LBUTTON, lowerArrow);
    SendMessageW(spin, WM_LBUTTONUP, 0, lowerArrow);
    EXPECT_EQ(edit.GetValueInt(), 3);
    EXPECT_EQ(g_notices.size(), 3u);

    ShowWindow(window, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(spin));
    ShowWindow(window, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(spin));
}

TEST_F(NumberEdit, LetsGoOfItsWindowsWhenTheyAreDestroyedFirst) {
    auto edit = std::make_unique<CNumberEdit>();
    edit->EnableSpin(true);
    ASSERT_TRUE(edit->SubclassWindow(window));
    DestroyWindow(parent);
    EXPECT_EQ(edit->GetSafeHwnd(), nullptr);
    edit.reset(); // nothing left to unhook
    parent = CreateWindowExW(0, L"NumberEditTestParent", L"", 0, 0, 0, 10, 10, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
}

TEST_F(NumberEdit, RefusesWindowsThatAreNoEdit) {
    CNumberEdit edit;
    EXPECT_FALSE(edit.SubclassWindow(parent));
    EXPECT_FALSE(edit.SubclassWindow(nullptr));
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr);
}

} // namespace
