// Translated texts fit the controls that show them: every page with texts of its own, in every host
// language, as `--check-labels` finds them; and the measure itself sees a text that does not fit.
#include "WorkbenchProcess.h"
#include "module/LanguageSelection.h"
#include "workbench/LabelFit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The controls draw their texts with the font dialogs use.
HWND Control(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int width, int height) {
    HWND control = CreateWindowExW(0, kind, text, WS_CHILD | style, 0, 0, width, height, parent, nullptr,
                                   nullptr, nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    return control;
}

TEST(LabelFit, TextsTooLongForTheirControlsAreFoundAndFittingOnesAreNot) {
    HWND page =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    const wchar_t* const kLong = L"Output current of the red channel";
    Control(page, L"STATIC", kLong, SS_LEFT, 400, 16);
    Control(page, L"BUTTON", kLong, BS_AUTOCHECKBOX, 400, 16);
    HWND combo = Control(page, L"COMBOBOX", L"", CBS_DROPDOWNLIST, 400, 100);
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(kLong));
    EXPECT_EQ(PageMisfits(page), std::vector<std::string>{});

    // Two lines are too many for one line's height, a box's text runs past its edge, and so does an item.
    Control(page, L"STATIC", kLong, SS_LEFT, 90, 16);
    Control(page, L"BUTTON", kLong, BS_AUTOCHECKBOX, 90, 16);
    SendMessageW(Control(page, L"COMBOBOX", L"", CBS_DROPDOWNLIST, 90, 100), CB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(kLong));
    const std::vector<std::string> misfits = PageMisfits(page);
    ASSERT_EQ(misfits.size(), 3u);
    EXPECT_NE(misfits[0].find("pixels of height to wrap into 90 pixels of width"), std::string::npos)
        << misfits[0];
    EXPECT_NE(misfits[1].find(" reaches "), std::string::npos) << misfits[1];
    EXPECT_NE(misfits[2].find("item \"Output current"), std::string::npos) << misfits[2];
    DestroyWindow(page);
}

class TranslatedLabels : public ::testing::TestWithParam<int> {};

TEST_P(TranslatedLabels, FitTheirControlsOnEveryPage) {
    const WorkbenchRun run = RunWorkbench(L"--check-labels --language " + std::to_wstring(GetParam()));
    EXPECT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.out.find(" pages in 1 languages checked: 0 texts do not fit"), std::string::npos)
        << run.out;
}

std::string LanguageName(const ::testing::TestParamInfo<int>& info) {
    const std::wstring file = LanguageFilesForIndex(info.param).primary; // "Multi_Thai.ini" -> "Thai"
    std::string name;
    for (const wchar_t c : file.substr(6, file.size() - 10))
        if (iswalnum(c))
            name += static_cast<char>(c);
    return name;
}

INSTANTIATE_TEST_SUITE_P(Language, TranslatedLabels, ::testing::ValuesIn(LanguagesWithTheirOwnFiles()),
                         LanguageName);

} // namespace
