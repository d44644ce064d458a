// Text encodings, line reading, the language file format, which language files the host's index
// picks, the language files we ship, and how a description's text is read (its byte-order mark, its
// numbers). Where the files lie and how a missing text falls through is held by the Windows
// host-language tests.
#include "TempFolder.h"
#include "descriptions/ChipDescription.h"
#include "framework/LanguageFile.h"
#include "framework/StdioFileEx.h"
#include "framework/Translate.h"
#include "module/LanguageSelection.h"

#include <gtest/gtest.h>

#include <climits>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

std::string Utf16Le(const std::u16string& text) {
    std::string bytes("\xFF\xFE", 2);
    for (const char16_t c : text)
        bytes += std::string{static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    return bytes;
}

std::vector<std::wstring> ReadAllLines(const std::wstring& path) {
    CStdioFileEx file;
    EXPECT_TRUE(file.Open(path, CStdioFileEx::modeRead | CStdioFileEx::typeText));
    std::vector<std::wstring> lines;
    for (std::wstring line; file.ReadString(line);)
        lines.push_back(line);
    return lines;
}

TEST(TextEncoding, Utf8RoundTripsEveryPlaneReplacesBrokenBytesAndTheBomDecides) {
    const std::wstring text = L"A\u00e9\u4e2d\U0001F600z";
    EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
    EXPECT_EQ(WideToUtf8(L"\u00e9"), "\xC3\xA9");
    EXPECT_EQ(Utf8ToWide("a\x80\xFF"
                         "b"),
              L"a\uFFFD\uFFFDb");
    EXPECT_EQ(Utf8ToWide("\xE4\xB8"), L"\uFFFD"); // cut short
    EXPECT_EQ(Utf8ToWide("\xC0\xAF"), L"\uFFFD"); // overlong
    EXPECT_EQ(Utf8ToWide("\xC2\x80\xE0\xA0\x80\xF0\x90\x80\x80"), L"\u0080\u0800\U00010000")
        << "the lowest of each length";
    EXPECT_EQ(Utf8ToWide("\xED\xA0\x80"), L"\uFFFD"); // encoded surrogate
    EXPECT_EQ(Utf8ToWide("\xF4\x8F\xBF\xBF\xF4\x90\x80\x80"), L"\U0010FFFF\uFFFD") << "the last, one beyond";
    // Either side of the surrogates, and their ends, in every direction.
    EXPECT_EQ(Utf8ToWide("\xED\x9F\xBF\xEE\x80\x80\xED\xBF\xBF"), L"\uD7FF\uE000\uFFFD");
    EXPECT_EQ(WideToUtf8(L"\uD7FF\uE000"), "\xED\x9F\xBF\xEE\x80\x80");
    EXPECT_EQ(DecodeText(Utf16Le(u"\uD7FF\uE000\xDBFF\xDFFF\xDBFF\uE000")),
              L"\uD7FF\uE000\U0010FFFF\uFFFD\uE000");
    EXPECT_EQ(DecodeText(Utf16Le(u"\xD800\xDC00")), L"\U00010000") << "the first pair";
    EXPECT_EQ(DecodeText(Utf16Le(u"\u4e2d\U0001F600\U0010FFFF")), L"\u4e2d\U0001F600\U0010FFFF");
    EXPECT_EQ(DecodeText("\xFF\xFE"), L"");
    EXPECT_EQ(DecodeText(Utf16Le(u"\xDC00"
                                 u"a\xD800")),
              L"\uFFFDa\uFFFD")
        << "lone surrogates";
    EXPECT_EQ(DecodeText("\xEF\xBB\xBFhi"), L"hi");
    EXPECT_EQ(DecodeText("\xE3\xBB\xBF"), L"\u3EFF") << "ends like a byte-order mark, is none";
    EXPECT_EQ(DecodeText("\xFF\xFE"
                         "a"),
              L"\uFFFD"); // odd byte after a UTF-16 BOM
}

// Writing, and failing to open, are held by the parameter files' exports and imports.
TEST(StdioFileEx, ReadsEveryEncodingAndLineEnd) {
    TempFolder dir;
    dir.Write("utf8.txt", "one\r\ntwo\nthree");
    dir.Write("bom.txt", "\xEF\xBB\xBF\xE4\xB8\xAD\r\nx\r\n");
    dir.Write("utf16.txt", Utf16Le(u"\u00e9t\u4e2d\r\n\r\nend\n"));
    EXPECT_EQ(ReadAllLines(dir.File("utf8.txt")), (std::vector<std::wstring>{L"one", L"two", L"three"}));
    EXPECT_EQ(ReadAllLines(dir.File("bom.txt")), (std::vector<std::wstring>{L"\u4e2d", L"x"}));
    EXPECT_EQ(ReadAllLines(dir.File("utf16.txt")),
              (std::vector<std::wstring>{L"\u00e9t\u4e2d", L"", L"end"}));
}

TEST(LanguageFile, ParsesSectionsCommentsEscapesAndKeepsTheFirstOfEqualKeys) {
    LanguageFile file;
    file.Parse(L"; comment\n[String]\nIDS_A = Hello\\nWorld \nids_b=\"quoted\\n\"\nIDS_A=second\n"
               L"no equals sign\n[8229]\nCaption=MBI5153\n8021=Link\n[broken\nx=y\n");
    ASSERT_NE(file.Find(L"String", L"IDS_A"), nullptr);
    EXPECT_EQ(*file.Find(L"string", L"ids_a"), L"Hello\nWorld");
    EXPECT_EQ(*file.Find(L"String", L"IDS_B"), L"quoted\n");
    EXPECT_EQ(*file.Find(L"8229", L"caption"), L"MBI5153");
    EXPECT_EQ(file.Section(L"8229")->size(), 2u);
    EXPECT_EQ(file.Find(L"String", L"; comment"), nullptr);
    EXPECT_EQ(file.Find(L"8229", L"x"), nullptr)
        << "a line of a broken section header must not start a section";
    EXPECT_EQ(file.Section(L"broken"), nullptr);
}

// A file is read whole however its reads fall (here one byte past 64 KiB), but not beyond 16 MiB.
TEST(LanguageFile, LoadsTheWholeFileUpToItsCap) {
    TempFolder dir;
    dir.Write("small.ini", "[S]\nA=" + std::string(65536 - 6, 'a') + "b");
    dir.Write("big.ini", "[S]\nA=a\n" + std::string(kMaxLanguageFileBytes, 'x') + "\nB=b\n");
    LanguageFile file;
    ASSERT_TRUE(file.Load(dir.File("small.ini")));
    EXPECT_EQ(file.Find(L"S", L"A")->back(), L'b');
    ASSERT_TRUE(file.Load(dir.File("big.ini")));
    EXPECT_EQ(*file.Find(L"S", L"A"), L"a");
    EXPECT_EQ(file.Find(L"S", L"B"), nullptr);
}

// The host's language index names the file pair the suite ships for it; anything else is English.
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
        {0, L"Multi_eng.ini", L"Multi_eng.ini"},
        {14, L"Multi_eng.ini", L"Multi_eng.ini"},
        {INT_MIN, L"Multi_eng.ini", L"Multi_eng.ini"},
    };
    for (const auto& row : rows) {
        EXPECT_STREQ(LanguageFilesForIndex(row.index).primary, row.primary) << row.index;
        EXPECT_STREQ(LanguageFilesForIndex(row.index).fallback, row.fallback) << row.index;
    }
}

// A description saved by an editor that puts a byte-order mark first reads as without one, and its
// numbers may be written in hexadecimal with either case of prefix.
TEST(Translate, APlaceholderIsFilledOnceEvenWithAValueThatNamesIt) {
    EXPECT_EQ(ReplaceAll(L"{detail} or {detail}", L"{detail}", L"\"{detail}\""),
              L"\"{detail}\" or \"{detail}\"");
}

TEST(DescriptionText, AByteOrderMarkIsSkippedAndHexadecimalTakesEitherPrefix) {
    const std::string page =
        "[page]\nclass = CRegvaneTextTest\n[field gain]\nlabel = \"Gain\"\nbits = 2[5:0]\n"
        "control = slider\ndefault = ";
    for (const std::string& text : {page + "0X2B", "\xEF\xBB\xBF" + page + "0x2b",
                                    page + "43\nrange = 0..50\nhelp = \"\xF0\x9F\x98\x80\""}) {
        const chipdesc::ParseResult result = chipdesc::Parse(text, [](std::string_view) { return true; });
        const auto* description = std::get_if<chipdesc::Description>(&result);
        ASSERT_NE(description, nullptr) << std::get<chipdesc::ParseError>(result).line;
        EXPECT_EQ(description->fields.at(0).defaultValue, 43);
    }
    // A number with more after it, a control character and a byte that begins no UTF-8 character
    // are refused.
    for (const auto& [text, code] :
         {std::pair{page + "43x", chipdesc::ErrorCode::BadValue},
          std::pair{page + "4\x7F", chipdesc::ErrorCode::NotText},
          std::pair{page + "43\nunit = \"\xC0\xAF\"", chipdesc::ErrorCode::NotText}}) {
        const chipdesc::ParseResult result = chipdesc::Parse(text, [](std::string_view) { return true; });
        ASSERT_TRUE(std::holds_alternative<chipdesc::ParseError>(result)) << text;
        EXPECT_EQ(std::get<chipdesc::ParseError>(result).code, code) << text;
    }
}

// The section names of a language file, in file order.
std::vector<std::wstring> SectionNames(const fs::path& file) {
    std::vector<std::wstring> names;
    for (std::wstring line : ReadAllLines(file.wstring())) {
        line.erase(line.find_last_not_of(L" \t") + 1);
        if (line.size() > 2 && line.front() == L'[' && line.back() == L']')
            names.push_back(line.substr(1, line.size() - 2));
    }
    return names;
}

// The numbers a text names: bit and byte positions, ranges, chip models.
std::set<std::wstring> DigitRuns(const std::wstring& text) {
    std::set<std::wstring> runs;
    const std::wregex digits(L"[0-9]+");
    for (std::wsregex_iterator it(text.begin(), text.end(), digits), end; it != end; ++it)
        runs.insert(it->str());
    return runs;
}

// Every string id the code asks for: a wide literal L"IDS_..." or L"IDD_...".
std::set<std::string> CodeStringIds() {
    std::set<std::string> ids;
    const std::regex literal(R"re(L"(ID[SD]_[A-Za-z0-9_]+)")re");
    for (const char* folder : {"dialogs", "factory", "framework", "module", "paramfiles"}) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(REGVANE_SOURCE_DIR) / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
                continue;
            std::ifstream in(entry.path());
            const std::string code((std::istreambuf_iterator<char>(in)), {});
            for (std::sregex_iterator it(code.begin(), code.end(), literal), end; it != end; ++it)
                ids.insert((*it)[1]);
        }
    }
    return ids;
}

// Every language the host can select ships its file, and every file has every text the English
// one has, with the same numbers in it. A text added to English but forgotten elsewhere fails here:
// Russian has no fallback file, so there a gap would show the template's English or a bare id.
// English, in turn, holds every key any language has and every string id the code asks for, so it
// is the complete list and no operator ever sees a bare id.
TEST(Translate, EveryLanguageOfTheHostShipsEveryTextOfTheEnglishFile) {
    const fs::path folder = fs::path(REGVANE_SOURCE_DIR) / "resources" / "lang";
    std::set<std::wstring> fileNames;
    for (int index = 1; index <= kLanguageCount; ++index) {
        const LanguageFileNames names = LanguageFilesForIndex(index);
        fileNames.insert(names.primary);
        if (*names.fallback)
            fileNames.insert(names.fallback);
    }
    LanguageFile english;
    ASSERT_TRUE(english.Load((folder / "Multi_eng.ini").wstring()));
    const std::set<std::string> codeIds = CodeStringIds();
    EXPECT_GT(codeIds.size(), 10u);
    for (const std::string& id : codeIds)
        EXPECT_NE(english.Find(CTranslate::kStringSection, Utf8ToWide(id)), nullptr) << id;

    for (const std::wstring& fileName : fileNames) {
        const fs::path path = folder / fileName;
        SCOPED_TRACE(path.filename().string());
        ASSERT_TRUE(fs::exists(path)) << "the host can select this language but no file ships for it";
        std::ifstream raw(path, std::ios::binary);
        std::string bom(3, '\0');
        raw.read(bom.data(), 3);
        EXPECT_EQ(bom, "\xEF\xBB\xBF") << "language files are UTF-8 with a byte-order mark";

        LanguageFile language;
        ASSERT_TRUE(language.Load(path.wstring()));
        for (const std::wstring& section : SectionNames(folder / "Multi_eng.ini")) {
            const auto* englishEntries = english.Section(section);
            if (!englishEntries)
                continue; // a header with no keys
            for (const auto& [key, englishText] : *englishEntries) {
                const std::wstring* text = language.Find(section, key);
                if (!text) {
                    ADD_FAILURE() << "[" << section << "] " << key << " is missing";
                    continue;
                }
                EXPECT_FALSE(text->empty()) << "[" << section << "] " << key << " is empty";
                const std::set<std::wstring> numbers = DigitRuns(*text);
                for (const std::wstring& number : DigitRuns(englishText))
                    EXPECT_TRUE(numbers.count(number))
                        << "[" << section << "] " << key << "=" << *text << " lost the number " << number;
            }
        }
        for (const std::wstring& section : SectionNames(path)) {
            if (const auto* entries = language.Section(section)) {
                for (const auto& entry : *entries)
                    EXPECT_NE(english.Find(section, entry.first), nullptr)
                        << "[" << section << "] " << entry.first << " is missing from Multi_eng.ini";
            }
        }
    }
}

} // namespace
