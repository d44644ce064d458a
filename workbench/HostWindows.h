// The host's window tree around a page: a frame, a view inside it, the page inside the view. Pages
// post requests (0x0904) to the parent of their parent, the frame, which hands them to the session.
#pragma once

#include "workbench/WorkbenchOptions.h"

#include <windows.h>

class PageSession;

// The view a page lives in: a plain child that lets the keyboard move through the page's controls.
HWND CreateHostView(HWND frame, int x, int y, int width, int height);

// A borderless frame at the screen's top left corner, above other windows, for scripted runs and
// pictures: nothing of the workbench covers the page. User messages it receives go to the session.
class HeadlessFrame {
public:
    // area: the room the view gives a page as it opens.
    explicit HeadlessFrame(PageSession& session, SIZE area = {kDefaultAreaWidth, kDefaultAreaHeight});
    ~HeadlessFrame();
    HeadlessFrame(const HeadlessFrame&) = delete;
    HeadlessFrame& operator=(const HeadlessFrame&) = delete;

    HWND Frame() const { return m_frame; }
    HWND View() const { return m_view; }
    // The view made the host's room again, for the next page to open in.
    HWND RoomForPage() const;
    // Makes view and frame the size of the page and shows them.
    void FitPage(HWND page);

private:
    HWND m_frame = nullptr;
    HWND m_view = nullptr;
    SIZE m_area{};
};

// For a frame's window procedure: a page's request to the host, logged in the session.
bool IsPageRequest(UINT message);
