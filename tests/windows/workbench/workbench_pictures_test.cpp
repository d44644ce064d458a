// Pictures of pages as the workbench takes them: every control the page shows is in the picture, and
// a page of the extended range runs on the chip it extends, as a host would hand it over.
#include "WorkbenchProcess.h"
#include "workbench/HostWindows.h"
#include "workbench/PageSession.h"
#include "workbench/ScreenCapture.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// The pixels of an 8-bit RGB PNG, whatever row filters it uses.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
    COLORREF At(int x, int y) const {
        const std::uint8_t* pixel = &rgb[(static_cast<std::size_t>(y) * width + x) * 3];
        return RGB(pixel[0], pixel[1], pixel[2]);
    }
};

std::uint32_t BigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = (value << 8) | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

Picture DecodePng(const std::string& png) {
    Picture picture;
    if (png.size() < 8 || png.compare(0, 8, "\x89PNG\r\n\x1A\n") != 0)
        return {};
    std::string packed;
    for (std::size_t at = 8; at + 12 <= png.size();) {
        const std::uint32_t length = BigEndian(png, at);
        const std::string type = png.substr(at + 4, 4);
        if (at + 12 + length > png.size())
            return {};
        if (type == "IHDR") {
            picture.width = static_cast<int>(BigEndian(png, at + 8));
            picture.height = static_cast<int>(BigEndian(png, at + 12));
            if (png[at + 16] != 8 || png[at + 17] != 2)
                return {};
        } else if (type == "IDAT") {
            packed += png.substr(at + 8, length);
        }
        at += 12 + length;
    }
    const std::size_t stride = static_cast<std::size_t>(picture.width) * 3;
    std::vector<std::uint8_t> rows((stride + 1) * picture.height);
    uLongf size = static_cast<uLongf>(rows.size());
    if (uncompress(rows.data(), &size, reinterpret_cast<const Bytef*>(packed.data()),
                   static_cast<uLong>(packed.size())) != Z_OK ||
        size != rows.size())
        return {};
    picture.rgb.resize(stride * picture.height);
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t filter = rows[y * (stride + 1)];
        const std::uint8_t* in = &rows[y * (stride + 1) + 1];
        std::uint8_t* out = &picture.rgb[y * stride];
        const std::uint8_t* above = y ? out - stride : nullptr;
        for (std::size_t x = 0; x < stride; ++x) {
            const int a = x >= 3 ? out[x - 3] : 0, b = above ? above[x] : 0,
                      c = x >= 3 && above ? above[x - 3] : 0;
            const int p = a + b - c, pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
            const int predicted = filter == 1   ? a
                                  : filter == 2 ? b
                                  : filter == 3 ? (a + b) / 2
                                  : filter == 4 ? (pa <= pb && pa <= pc ? a
                                                   : pb <= pc           ? b
                                                                        : c)
                                                : 0;
            out[x] = static_cast<std::uint8_t>(in[x] + predicted);
        }
    }
    return picture;
}

std::vector<HWND> VisibleControls(HWND page) {
    std::vector<HWND> controls;
    EnumChildWindows(
        page,
        [](HWND control, LPARAM param) {
            if (IsWindowVisible(control))
                reinterpret_cast<std::vector<HWND>*>(param)->push_back(control);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::wstring ClassOf(HWND control) {
    wchar_t name[64] = {};
    GetClassNameW(control, name, 64);
    return name;
}

// A label with no text shows the page's background, and nothing else, wherever it is drawn.
bool IsEmptyLabel(HWND control) {
    return _wcsicmp(ClassOf(control).c_str(), L"Static") == 0 && GetWindowTextLengthW(control) == 0;
}

class WorkbenchPictures : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(module.Load(), "");
        module.InitRegvane(&callback);
        module.RegvaneLanguageChanged();
    }

    HostModule module;
    SimulatedHostCallback callback;
    TempFolder folder;
};

// These pages came out with rows of sliders, a percentage, or the list's buttons missing when a run
// of every page took their pictures on a busy machine: pictured before the display had them. Here
// each page is shown and pictured at once, which is when that happens.
TEST_F(WorkbenchPictures, EveryControlAPageShowsIsInItsPicture) {
    for (const int type : {179, 65536 + 15, 120, 65536 + 13}) {
        SCOPED_TRACE("chip type " + std::to_string(type));
        PageSession session(module, callback);
        HeadlessFrame frame(session);
        ASSERT_TRUE(session.Open(type, 0, frame.View(), nullptr, true).hasPage);
        HWND page = session.Page();
        frame.FitPage(page);
        ShowWindow(page, SW_HIDE);
        PumpMessages();
        ShowWindow(page, SW_SHOW);

        const std::wstring file = folder.File(L"page.png");
        SIZE size{};
        bool cropped = false;
        ASSERT_EQ(CaptureWindowPng(page, file, size, cropped), "");
        const Picture picture = DecodePng(ReadFileBytes(file));
        ASSERT_EQ(picture.width, size.cx);
        ASSERT_EQ(picture.height, size.cy);

        // Much of a page is its background: the picture decodes to what the page drew.
        const COLORREF background = GetSysColor(COLOR_BTNFACE);
        int backgroundPixels = 0;
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                backgroundPixels += picture.At(x, y) == background;
        EXPECT_GT(backgroundPixels, picture.width * picture.height / 10);

        RECT pageRect{};
        GetWindowRect(page, &pageRect);
        int looked = 0;
        for (HWND control : VisibleControls(page)) {
            if (IsEmptyLabel(control))
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
TEST_F(WorkbenchPictures, TheIcn2055ExPageRunsOnAnIcn2055AndExportsItsTable) {
    TempFolder work;
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 65536+13 --profile \"" + work.Path() + L"\" --screenshot \"" +
                         work.File(L"page.png") + L"\" --do \"click 8701\"",
                     work.Path());
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.out.find("CRegvaneICN2055EX (ICN2055 of chip type 193)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("The parameter file has been saved."), std::string::npos) << run.out;

    // Headless, the save dialog is answered with the name it proposes, in the working folder.
    const std::string file = ReadFileBytes(work.File(L"ChipICN2055Param.csv"));
    std::vector<std::string> lines;
    for (std::size_t start = 0, end; (end = file.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(file.substr(start, end - start));
    ASSERT_EQ(lines.size(), 2u + 45u) << file;
    EXPECT_EQ(lines[0], "CHIP_ICN2055_PARAMETER_FILE");
    EXPECT_EQ(lines[1], "Addr,RReg,GReg,BReg");
    // The simulated chip starts from a table with a value in every cell.
    for (std::size_t row = 2; row < lines.size(); ++row)
        EXPECT_EQ(lines[row].find(",0x00"), std::string::npos) << lines[row];
}

} // namespace
