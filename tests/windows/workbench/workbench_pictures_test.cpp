// Pictures of pages as the workbench takes them: every control the page shows is in the picture, and
// a page of the extended range runs on the chip it extends, as a host would hand it over.
#include "WorkbenchProcess.h"
#include "workbench/HostWindows.h"
#include "workbench/PageSession.h"
#include "workbench/ScreenCapture.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// These pages came out with rows of sliders, a percentage, or the list's buttons missing when a run
// of every page took their pictures on a busy machine: pictured before the display had them. Here
// each page is shown and pictured at once, which is when that happens.
TEST(WorkbenchPictures, EveryControlAPageShowsIsInItsPicture) {
    LoadedModule loaded;
    TempFolder folder;
    for (const int type : {179, 65536 + 15, 120, 65536 + 13}) {
        SCOPED_TRACE("chip type " + std::to_string(type));
        PageSession session(loaded.module, loaded.callback);
        HeadlessFrame frame(session);
        ASSERT_TRUE(session.Open(type, 0, frame.View(), nullptr, true).hasPage);
        HWND page = session.Page();
        frame.FitPage(page);
        ShowWindow(page, SW_HIDE);
        PumpMessages();
        ShowWindow(page, SW_SHOW);

        SIZE size{};
        bool cropped = false;
        ASSERT_EQ(CaptureWindowPng(page, folder.File(L"page.png"), size, cropped), "");
        const Picture picture = DecodePng(ReadFileBytes(folder.File(L"page.png")));
        ASSERT_EQ(picture.width, size.cx);
        ASSERT_EQ(picture.height, size.cy);

        // Much of a page is its background: the picture decodes to what the page drew.
        const COLORREF background = GetSysColor(COLOR_BTNFACE);
        int backgroundPixels = 0;
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                backgroundPixels += picture.At(x, y) == background;
        EXPECT_GT(backgroundPixels, picture.width * picture.height / 10);

        // Each visible control but an empty label (which shows only the background) leaves a pixel.
        RECT pageRect{};
        GetWindowRect(page, &pageRect);
        std::vector<HWND> controls;
        EnumChildWindows(
            page,
            [](HWND c, LPARAM all) { return reinterpret_cast<std::vector<HWND>*>(all)->push_back(c), TRUE; },
            reinterpret_cast<LPARAM>(&controls));
        int looked = 0;
        for (HWND control : controls) {
            wchar_t className[16] = {};
            GetClassNameW(control, className, 16);
            if (!IsWindowVisible(control) ||
                (_wcsicmp(className, L"Static") == 0 && !GetWindowTextLengthW(control)))
                continue;
            RECT rect{};
            GetWindowRect(control, &rect);
            OffsetRect(&rect, -pageRect.left, -pageRect.top);
            bool shown = false;
            for (int y = std::max<int>(rect.top, 0); y < std::min<int>(rect.bottom, picture.height) && !shown;
                 ++y)
                for (int x = std::max<int>(rect.left, 0);
                     x < std::min<int>(rect.right, picture.width) && !shown; ++x)
                    shown = picture.At(x, y) != background;
            EXPECT_TRUE(shown) << "control " << GetDlgCtrlID(control) << " is missing from the picture";
            ++looked;
        }
        EXPECT_GE(looked, 4);
    }
}

// The ICN2055EX page is opened for an ICN2055 (chip type 193): its Export proposes the ICN2055's
// file, which holds the 45 rows of that chip's table, not an unknown chip's.
TEST(WorkbenchPictures, TheIcn2055ExPageRunsOnAnIcn2055AndExportsItsTable) {
    TempFolder work;
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 65536+13 --profile \"" + work.Path() + L"\" --screenshot \"" +
                         work.File(L"page.png") + L"\" --do \"click 8701\"",
                     work.Path());
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.out.find("CRegvaneICN2055EX (ICN2055 of chip type 193)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("The parameter file has been saved."), std::string::npos) << run.out;

    // Headless, the save dialog is answered with the name it proposes, in the working folder.
    std::istringstream file(ReadFileBytes(work.File(L"ChipICN2055Param.csv")));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    // What the file's lines hold is the parameter-file tests'; here the rows are the ICN2055's.
    ASSERT_EQ(lines.size(), 2u + 45u);
    // The simulated chip starts from a table with a value in every cell.
    for (std::size_t row = 2; row < lines.size(); ++row)
        EXPECT_EQ(lines[row].find(",0x00"), std::string::npos) << lines[row];
}

} // namespace
