#include "module/LanguageSelection.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

std::wstring Primary(int index) {
    return LanguageFilesForIndex(index).primary;
}
std::wstring Fallback(int index) {
    return LanguageFilesForIndex(index).fallback;
}

TEST(LanguageSelection, EveryIndexOfTheHostPicksItsFilePair) {
    const struct {
        int index;
        const wchar_t* primary;
        const wchar_t* fallback;
    } rows[] = {
        {1, L"Multi_chi.ini", L"Multi_chi.ini"},
        {2, L"Multi_chi_fanti.ini", L"Multi_chi.ini"},
        {3, L"Multi_eng.ini", L"Multi_eng.ini"},
        {4, L"Multi_French.ini", L"Multi_eng.ini"},
        {5, L"Multi_Japanese.ini", L"Multi_eng.ini"},
        {6, L"Multi_Korean.ini", L"Multi_eng.ini"},
        {7, L"Multi_Russian.ini", L""},
        {8, L"Multi_Thai.ini", L"Multi_eng.ini"},
        {9, L"Multi_Spanish.ini", L"Multi_eng.ini"},
        {10, L"Multi_Polish.ini", L"Multi_eng.ini"},
        {11, L"Multi_Swedish.ini", L"Multi_eng.ini"},
        {12, L"Multi_Portuguese.ini", L"Multi_eng.ini"},
        {13, L"Multi_Polish.ini", L"Multi_eng.ini"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.index);
        EXPECT_EQ(Primary(row.index), row.primary);
        EXPECT_EQ(Fallback(row.index), row.fallback);
    }
}

TEST(LanguageSelection, IndicesOutsideOneToThirteenFallBackToEnglish) {
    for (const int index : {0, 14, 15, 255, -1, -12, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(Primary(index), L"Multi_eng.ini");
        EXPECT_EQ(Fallback(index), L"Multi_eng.ini");
    }
}

TEST(LanguageSelection, PathsLieTwoLevelsAboveTheExecutableFolder) {
    const LanguagePaths paths = LanguagePathsFor(L"C:\\Suite\\App\\Bin\\Host.exe", 13);
    EXPECT_EQ(paths.primary, L"C:\\Suite\\App\\Bin\\..\\..\\Language\\Hw\\Regvane\\Multi_Polish.ini");
    EXPECT_EQ(paths.fallback, L"C:\\Suite\\App\\Bin\\..\\..\\Language\\Hw\\Regvane\\Multi_eng.ini");
}

TEST(LanguageSelection, RussianFallbackIsTheBareLanguageFolder) {
    const LanguagePaths paths = LanguagePathsFor(L"D:\\x\\Host.exe", 7);
    EXPECT_EQ(paths.primary, L"D:\\x\\..\\..\\Language\\Hw\\Regvane\\Multi_Russian.ini");
    EXPECT_EQ(paths.fallback, L"D:\\x\\..\\..\\Language\\Hw\\Regvane\\");
}

TEST(LanguageSelection, FolderIsCutAfterTheLastBackslash) {
    EXPECT_EQ(ExecutableFolder(L"C:\\a b\\c.d\\Host.exe"), L"C:\\a b\\c.d\\");
    EXPECT_EQ(ExecutableFolder(L"Host.exe"), L"");
    EXPECT_EQ(LanguageFilePath(L"Host.exe", L"Multi_eng.ini"),
              L"..\\..\\Language\\Hw\\Regvane\\Multi_eng.ini");
}

} // namespace
