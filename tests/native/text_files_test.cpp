// Text encodings, line reading and writing, and the language files built on them.
#include "framework/LanguageFile.h"
#include "framework/StdioFileEx.h"
#include "framework/TextEncoding.h"
#include "framework/Translate.h"
#include "module/LanguageSelection.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class TempFolder {
public:
    TempFolder() {
        m_path = fs::temp_directory_path() /
                 ("regvane_text_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "_" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~TempFolder() { fs::remove_all(m_path); }
    std::wstring File(const char* name) const { return (m_path / name).wstring(); }
    void Write(const char* name, const std::string& bytes) const {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }
    std::string Read(const char* name) const {
        std::ifstream in(m_path / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    fs::path m_path;
};

std::string Utf16Le(const std::u16string& text, bool bom = true) {
    std::string bytes = bom ? std::string("\xFF\xFE", 2) : std::string();
    for (const char16_t c : text) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

std::vector<std::wstring> ReadAllLines(const std::wstring& path) {
    CStdioFileEx file;
    EXPECT_TRUE(file.Open(path, CStdioFileEx::modeRead | CStdioFileEx::typeText));
    std::vector<std::wstring> lines;
    std::wstring line;
    while (file.ReadString(line))
        lines.push_back(line);
    return lines;
}

// The section names of a language file, in file order.
std::vector<std::wstring> SectionNames(const fs::path& file) {
    std::vector<std::wstring> names;
    for (std::wstring line : ReadAllLines(file.wstring())) {
        while (!line.empty() && (line.back() == L' ' || line.back() == L'\t'))
            line.pop_back();
        if (line.size() > 2 && line.front() == L'[' && line.back() == L']')
            names.push_back(line.substr(1, line.size() - 2));
    }
    return names;
}

// The numbers a text names: bit and byte positions, ranges, chip models.
std::set<std::wstring> DigitRuns(const std::wstring& text) {
    std::set<std::wstring> runs;
    std::wstring run;
    for (const wchar_t c : text + L' ') {
        if (c >= L'0' && c <= L'9') {
            run.push_back(c);
        } else if (!run.empty()) {
            runs.insert(run);
            run.clear();
        }
    }
    return runs;
}

TEST(TextEncoding, Utf8RoundTripsEveryPlaneAndReplacesBrokenBytes) {
    const std::wstring text = L"A\u00e9\u4e2d\U0001F600z";
    EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
    EXPECT_EQ(WideToUtf8(L"\u00e9"), "\xC3\xA9");
    EXPECT_EQ(Utf8ToWide("a\xFF"
                         "b"),
              L"a\uFFFDb");
    EXPECT_EQ(Utf8ToWide("\xE4\xB8"), L"\uFFFD");     // cut short
    EXPECT_EQ(Utf8ToWide("\xC0\xAF"), L"\uFFFD");     // overlong
    EXPECT_EQ(Utf8ToWide("\xED\xA0\x80"), L"\uFFFD"); // encoded surrogate
}

TEST(TextEncoding, BomDecidesTheEncoding) {
    EXPECT_EQ(DecodeText(Utf16Le(u"\u4e2dx")), L"\u4e2dx");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBFhi"), L"hi");
    EXPECT_EQ(DecodeText("hi"), L"hi");
    EXPECT_EQ(DecodeText(Utf16Le(u"\U0001F600")), L"\U0001F600");
    EXPECT_EQ(DecodeText("\xFF\xFE"
                         "a"),
              L"\uFFFD"); // odd byte after a UTF-16 BOM
}

TEST(StdioFileEx, ReadsLinesOfAllThreeEncodingsWithEitherLineEnd) {
    TempFolder dir;
    dir.Write("utf8.txt", "one\r\ntwo\nthree");
    dir.Write("bom.txt", "\xEF\xBB\xBF\xE4\xB8\xAD\r\nx\r\n");
    dir.Write("utf16.txt", Utf16Le(u"\u00e9t\u00e9\r\n\r\nend\n"));
    EXPECT_EQ(ReadAllLines(dir.File("utf8.txt")), (std::vector<std::wstring>{L"one", L"two", L"three"}));
    EXPECT_EQ(ReadAllLines(dir.File("bom.txt")), (std::vector<std::wstring>{L"\u4e2d", L"x"}));
    EXPECT_EQ(ReadAllLines(dir.File("utf16.txt")),
              (std::vector<std::wstring>{L"\u00e9t\u00e9", L"", L"end"}));
}

TEST(StdioFileEx, WritesUtf8WithCrLfAndReadsItBack) {
    TempFolder dir;
    {
        CStdioFileEx file;
        ASSERT_TRUE(file.Open(dir.File("out.csv"),
                              CStdioFileEx::modeCreate | CStdioFileEx::modeWrite | CStdioFileEx::typeText));
        EXPECT_TRUE(file.WriteString(L"TAG\r\n"));
        EXPECT_TRUE(file.WriteString(L"a,b\n\u00e9"));
        EXPECT_TRUE(file.WriteString(L"\r"));
        EXPECT_TRUE(file.WriteString(L"\n"));
        EXPECT_TRUE(file.Close());
    }
    EXPECT_EQ(dir.Read("out.csv"), "TAG\r\na,b\r\n\xC3\xA9\r\n");
    EXPECT_EQ(ReadAllLines(dir.File("out.csv")), (std::vector<std::wstring>{L"TAG", L"a,b", L"\u00e9"}));
}

TEST(StdioFileEx, MissingFilesAndWrongDirectionsFailQuietly) {
    TempFolder dir;
    CStdioFileEx file;
    EXPECT_FALSE(file.Open(dir.File("absent.txt"), CStdioFileEx::modeRead));
    std::wstring line = L"old";
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_TRUE(line.empty());
    EXPECT_FALSE(
        file.Open(dir.File("no/such/folder/x.txt"), CStdioFileEx::modeCreate | CStdioFileEx::modeWrite));
    ASSERT_TRUE(file.Open(dir.File("w.txt"), CStdioFileEx::modeCreate | CStdioFileEx::modeWrite));
    EXPECT_FALSE(file.ReadString(line));
}

TEST(StdioFileEx, AnEndlessLineIsHandedOutInBoundedPieces) {
    TempFolder dir;
    dir.Write("long.txt", std::string(CStdioFileEx::kMaxLineChars * 2 + 5, 'x') + "\nnext");
    const auto lines = ReadAllLines(dir.File("long.txt"));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].size(), CStdioFileEx::kMaxLineChars);
    EXPECT_EQ(lines[2], L"xxxxx");
    EXPECT_EQ(lines[3], L"next");
}

TEST(StdioFileEx, OpensPathsWithNonAsciiNames) {
    TempFolder dir;
    const std::wstring path = dir.File("") + L"\u53c2\u6570-\u00e9.csv";
    CStdioFileEx out;
    ASSERT_TRUE(out.Open(path, CStdioFileEx::modeCreate | CStdioFileEx::modeWrite));
    out.WriteString(L"ok\n");
    ASSERT_TRUE(out.Close());
    EXPECT_EQ(ReadAllLines(path), std::vector<std::wstring>{L"ok"});
}

TEST(LanguageFile, ParsesSectionsCommentsEscapesAndKeepsTheFirstOfEqualKeys) {
    LanguageFile file;
    file.Parse(L"; comment\n[String]\nIDS_A = Hello\\nWorld \nids_b=\"quoted\"\nIDS_A=second\n"
               L"no equals sign\n[8229]\nCaption=MBI5153\n8021=Link\n[broken\nx=y\n");
    ASSERT_NE(file.Find(L"String", L"IDS_A"), nullptr);
    EXPECT_EQ(*file.Find(L"string", L"ids_a"), L"Hello\nWorld");
    EXPECT_EQ(*file.Find(L"String", L"IDS_B"), L"quoted");
    EXPECT_EQ(*file.Find(L"8229", L"caption"), L"MBI5153");
    EXPECT_EQ(file.Section(L"8229")->size(), 2u);
    EXPECT_EQ(file.Find(L"String", L"; comment"), nullptr);
    EXPECT_EQ(file.Find(L"8229", L"x"), nullptr)
        << "a line of a broken section header must not start a section";
}

TEST(Translate, FallsThroughPrimaryThenFallbackThenTheId) {
    TempFolder dir;
    dir.Write("fr.ini", Utf16Le(u"[String]\r\nIDS_ONE=Un\r\n[8224]\r\nCaption=Registres\r\n"));
    dir.Write("en.ini", "\xEF\xBB\xBF[String]\nIDS_ONE=One\nIDS_TWO=Two %s\n");
    CTranslate translate;
    translate.SetLangPath(dir.File("fr.ini"), dir.File("en.ini"));
    EXPECT_EQ(translate.TranslateString(L"IDS_ONE"), L"Un");
    EXPECT_EQ(translate.TranslateString(L"IDS_TWO"), L"Two %s");
    EXPECT_EQ(translate.TranslateString(L"IDS_THREE"), L"IDS_THREE");
    EXPECT_EQ(*translate.Lookup(L"8224", L"Caption"), L"Registres");

    translate.SetLangPath(dir.File("missing.ini"), dir.File(""));
    EXPECT_EQ(translate.TranslateString(L"IDS_ONE"), L"IDS_ONE")
        << "switching languages forgets the old texts";
}

// Every string id the code asks for (a wide literal L"IDS_..." or L"IDD_...") is in every shipped
// language file, so no operator ever sees a bare id.
TEST(Translate, EveryStringIdOfTheCodeIsInEveryShippedLanguageFile) {
    const fs::path root(REGVANE_SOURCE_DIR);
    std::set<std::string> ids;
    const std::regex literal(R"re(L"(ID[SD]_[A-Za-z0-9_]+)")re");
    for (const char* folder : {"dialogs", "factory", "framework", "module", "paramfiles"}) {
        if (!fs::exists(root / folder))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            const auto ext = entry.path().extension();
            if (ext != ".cpp" && ext != ".h")
                continue;
            std::ifstream in(entry.path());
            const std::string code((std::istreambuf_iterator<char>(in)), {});
            for (std::sregex_iterator it(code.begin(), code.end(), literal), end; it != end; ++it)
                ids.insert((*it)[1]);
        }
    }
    int files = 0;
    for (const auto& entry : fs::directory_iterator(root / "resources" / "lang")) {
        LanguageFile language;
        ASSERT_TRUE(language.Load(entry.path().wstring())) << entry.path();
        ++files;
        for (const std::string& id : ids)
            EXPECT_NE(language.Find(L"String", std::wstring(id.begin(), id.end())), nullptr)
                << id << " is missing from " << entry.path().filename();
    }
    EXPECT_GE(files, 2);
}

// Every language the host can select ships its file, and every file has every text the English
// one has, with the same numbers in it. A text added to English but forgotten elsewhere fails here:
// Russian has no fallback file, so there a gap would show the template's English or a bare id.
// English, in turn, holds every key any language has, so it is the complete list.
TEST(Translate, EveryLanguageOfTheHostShipsEveryTextOfTheEnglishFile) {
    const fs::path folder = fs::path(REGVANE_SOURCE_DIR) / "resources" / "lang";
    std::set<std::wstring> fileNames;
    for (int index = 1; index <= kLanguageCount; ++index) {
        const LanguageFileNames names = LanguageFilesForIndex(index);
        fileNames.insert(names.primary);
        if (*names.fallback)
            fileNames.insert(names.fallback);
    }

    const fs::path englishPath = folder / "Multi_eng.ini";
    LanguageFile english;
    ASSERT_TRUE(english.Load(englishPath.wstring()));
    const std::vector<std::wstring> englishSections = SectionNames(englishPath);
    ASSERT_NE(english.Section(CTranslate::kStringSection), nullptr);

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
        for (const std::wstring& section : englishSections) {
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
        for (const std::wstring& section : SectionNames(path))
            if (const auto* entries = language.Section(section))
                for (const auto& entry : *entries)
                    EXPECT_NE(english.Find(section, entry.first), nullptr)
                        << "[" << section << "] " << entry.first << " is missing from Multi_eng.ini";
    }
}

} // namespace
