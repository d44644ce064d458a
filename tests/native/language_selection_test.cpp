// The language file each of the host's language indices picks. Where the files lie and how a missing
// text falls through is held by the Windows language-switch tests.
#include "module/LanguageSelection.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(LanguageSelection, EveryIndexOfTheHostPicksItsFilePairAndOthersGetEnglish) {
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
        EXPECT_STREQ(LanguageFilesForIndex(row.index).primary, row.primary);
        EXPECT_STREQ(LanguageFilesForIndex(row.index).fallback, row.fallback);
    }
    for (const int index : {0, 14, -1, INT_MIN, INT_MAX}) {
        EXPECT_STREQ(LanguageFilesForIndex(index).primary, L"Multi_eng.ini") << index;
        EXPECT_STREQ(LanguageFilesForIndex(index).fallback, L"Multi_eng.ini") << index;
    }
}

} // namespace
