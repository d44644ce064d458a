// The numeric edit in-process, on a plain window: what the operator types, the keys and the spin
// buttons become a clamped value and one message to the parent.
#include "framework/NumberEdit.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <windows.h>

#include <vector>

namespace {

constexpr int kEditId = 1042;
int g_notices = 0;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == kNumberEditValueChanged) {
        EXPECT_EQ(wParam, WPARAM(kEditId));
        EXPECT_EQ(GetDlgItem(window, kEditId), reinterpret_cast<HWND>(lParam));
        ++g_notices;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

class NumberEdit : public ::testing::Test {
protected:
    void SetUp() override {
        static const BOOL controls = [] {
            INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
            return InitCommonControlsEx(&classes);
        }();
        ASSERT_TRUE(controls);
        parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                 nullptr, nullptr, nullptr);
        SetWindowSubclass(parent, ParentProc, 0, 0);
        window = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 80, 20, parent,
                                 reinterpret_cast<HMENU>(INT_PTR(kEditId)), nullptr, nullptr);
        other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 40, 80, 20, parent, nullptr,
                                nullptr, nullptr);
        g_notices = 0;
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
        return {text, static_cast<std::size_t>(GetWindowTextW(window, text, 64))};
    }

    HWND parent = nullptr, window = nullptr, other = nullptr;
};

TEST_F(NumberEdit, TypedAndKeyedValuesAreClampedShownInFormatAndReportedOnceWhenTheyChange) {
    CNumberEdit edit;
    edit.SetRange(10, 0); // given the wrong way round
    edit.SetStep(0.5);
    edit.SetPrecision(1);
    edit.SetUnit(L"V");
    edit.SetValue(5);
    ASSERT_TRUE(edit.SubclassWindow(window));
    EXPECT_EQ(Text(), L"5.0 V");
    EXPECT_EQ(g_notices, 0) << "values set by code are not reported";

    const struct {
        const wchar_t* typed;
        const wchar_t* shown;
        int notices; // in all, so far
    } steps[] = {{L"  4", L"4.0 V", 1},  {L"2.26", L"2.3 V", 2},
                 {L"300", L"10.0 V", 3}, {L"999", L"10.0 V", 3}, // clamps to the value it has
                 {L"abc", L"10.0 V", 3},                         // no number: the value comes back
                 {L"-7", L"0.0 V", 4}};
    for (const auto& step : steps) {
        Type(step.typed);
        EXPECT_EQ(Text(), step.shown) << step.typed;
        EXPECT_EQ(g_notices, step.notices) << step.typed;
    }

    // Enter commits without leaving the edit; Up and Down step.
    SetFocus(window);
    SetWindowTextW(window, L"2.26");
    SendMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 2.3);
    SendMessageW(window, WM_KEYDOWN, VK_UP, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 2.8);
    SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_DOUBLE_EQ(edit.GetValue(), 1.8);
    EXPECT_EQ(Text(), L"1.8 V");
    SetFocus(other);
    EXPECT_EQ(g_notices, 8) << "leaving without a change reports nothing";
}

TEST_F(NumberEdit, SpinButtonsStepTheValueWithinTheRangeAndFollowTheEdit) {
    CNumberEdit edit;
    edit.SetRange(1, 5);
    edit.SetValue(4);
    edit.EnableSpin(true);
    ASSERT_TRUE(edit.SubclassWindow(window));
    HWND spin = FindWindowExW(parent, nullptr, UPDOWN_CLASSW, nullptr);
    ASSERT_NE(spin, nullptr);
    RECT box{};
    GetClientRect(spin, &box);
    auto press = [&](int y) {
        SendMessageW(spin, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(box.right / 2, y));
        SendMessageW(spin, WM_LBUTTONUP, 0, MAKELPARAM(box.right / 2, y));
        return edit.GetValueInt();
    };
    EXPECT_EQ(press(box.bottom / 4), 5);
    EXPECT_EQ(press(box.bottom / 4), 5) << "the range holds against the spin too";
    EXPECT_EQ(press(box.bottom * 3 / 4), 4);
    EXPECT_EQ(g_notices, 2);

    ShowWindow(window, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(spin)) << "the spin hides with its edit";
}

} // namespace
