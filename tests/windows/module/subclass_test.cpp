// The framework's own window subclassing: the order procedures see a message in, procedures that come
// and go while messages are under way, a window subclassed again by someone else, and destruction.
#include "framework/Subclass.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

namespace {

constexpr UINT kProbe = WM_APP + 7;
constexpr UINT kNested = WM_APP + 8;

std::wstring g_seen;

LRESULT CALLBACK OwnProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kProbe || message == kNested) {
        g_seen += L"own ";
        return 40;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Writes its data as a letter, then passes the message on and adds one to the answer.
LRESULT CALLBACK Letter(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    if (message == kProbe || message == kNested)
        g_seen += static_cast<wchar_t>(data) + std::wstring(L" ");
    return NextSubclass(window, message, wParam, lParam) + (message == kProbe ? 1 : 0);
}

// Removes itself while it handles the probe, and sends the window a message of its own first.
LRESULT CALLBACK Leaver(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
    if (message == kProbe) {
        g_seen += L"leaver[ ";
        SendMessageW(window, kNested, 0, 0);
        g_seen += L"] ";
        RemoveSubclass(window, Leaver, id);
    }
    return NextSubclass(window, message, wParam, lParam);
}

WNDPROC g_underneath = nullptr;
LRESULT CALLBACK Stranger(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kProbe)
        g_seen += L"stranger ";
    return CallWindowProcW(g_underneath, window, message, wParam, lParam);
}

HWND OwnWindow() {
    static const ATOM windowClass = [] {
        WNDCLASSW description{};
        description.lpfnWndProc = OwnProc;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"RegvaneSubclassProbe";
        return RegisterClassW(&description);
    }();
    return CreateWindowExW(0, MAKEINTATOM(windowClass), L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

LRESULT Probe(HWND window) {
    g_seen.clear();
    return SendMessageW(window, kProbe, 0, 0);
}

TEST(Subclass, ProceduresRunLastAddedFirstAndMayLeaveWhileAMessageIsUnderWay) {
    HWND window = OwnWindow();
    ASSERT_TRUE(AddSubclass(window, Letter, 1, L'a'));
    ASSERT_TRUE(AddSubclass(window, Leaver, 2, 0));
    ASSERT_TRUE(AddSubclass(window, Letter, 3, L'b'));
    EXPECT_EQ(Probe(window), 42);
    // The nested message runs the whole chain while the outer one waits in the middle of it.
    EXPECT_EQ(g_seen, L"b leaver[ b a own ] a own ");
    EXPECT_EQ(Probe(window), 42);
    EXPECT_EQ(g_seen, L"b a own ");

    // Added again: same place, new data.
    ASSERT_TRUE(AddSubclass(window, Letter, 1, L'c'));
    Probe(window);
    EXPECT_EQ(g_seen, L"b c own ");

    RemoveSubclass(window, Letter, 1);
    RemoveSubclass(window, Letter, 3);
    EXPECT_EQ(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)), OwnProc);
    EXPECT_EQ(Probe(window), 40);
    DestroyWindow(window);
}

TEST(Subclass, ASubclassAddedOverOursKeepsWorkingAfterOursLeaves) {
    HWND window = OwnWindow();
    ASSERT_TRUE(AddSubclass(window, Letter, 1, L'a'));
    g_underneath = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Stranger)));
    EXPECT_EQ(Probe(window), 41);
    EXPECT_EQ(g_seen, L"stranger a own ");
    RemoveSubclass(window, Letter, 1);
    EXPECT_EQ(Probe(window), 40);
    EXPECT_EQ(g_seen, L"stranger own ");
    DestroyWindow(window);
}

TEST(Subclass, ADestroyedWindowTakesItsChainWithIt) {
    HWND window = OwnWindow();
    ASSERT_TRUE(AddSubclass(window, Letter, 1, L'a'));
    DestroyWindow(window);
    EXPECT_FALSE(AddSubclass(window, Letter, 1, L'a'));
    // A new window, whatever handle it gets, starts with no procedures of ours.
    HWND next = OwnWindow();
    EXPECT_EQ(Probe(next), 40);
    EXPECT_EQ(g_seen, L"own ");
    DestroyWindow(next);
}

} // namespace
