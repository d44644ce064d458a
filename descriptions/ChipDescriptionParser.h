// The chip-description parser's insides, shared by its files: reading words and numbers, the drafts
// a file's sections fill, and the parser that reads the lines, then finishes and checks the whole.
#pragma once

#include "descriptions/ChipDescription.h"
#include "descriptions/ChipDescriptionKeys.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace chipdesc::detail {

inline constexpr int kMaxFieldBits = 32;

std::optional<Source> SourceNamed(std::string_view name);

bool IsSpace(char c);
std::string_view Trim(std::string_view text);
// Decimal, or hexadecimal after 0x; an optional minus sign.
bool ParseInt(std::string_view text, int& value);
// A field's value: as ParseInt, up to 0xFFFFFFFF either side of zero.
bool ParseValue(std::string_view text, Value& value);
// A small positive decimal: digits, at most one point.
bool ParseStep(std::string_view text, double& value);
// Letters, digits, '-' and '_'.
bool IsName(std::string_view text);
// Words separated by blanks; a "quoted text" is one word, kept with its quotes. False for a quote
// not closed or not followed by a blank.
bool SplitWords(std::string_view text, std::vector<std::string_view>& words);
bool IsQuoted(std::string_view word);
// The parts between separators that are not inside a "quoted text".
std::vector<std::string_view> SplitOutsideQuotes(std::string_view text, char separator);
// One colour's bits: runs, most significant first, each "BYTE[MSB:LSB]" or several joined by '='.
bool ParsePosition(std::string_view text, Position& position);

// Where word lies in line, from 1; 0 when it is not a part of it.
int ColumnIn(std::string_view line, std::string_view word);

// Every problem found, the first kMaxProblems of them kept; count goes on past them.
struct Problems {
    std::vector<Problem> list;
    int count = 0;
};
// Keeps the problem while there is room; always false.
bool Refuse(Problems& problems, int line, ErrorCode code, std::string_view detail, int column = 0);

// One "key = value" line of a field, kept so that a field like it can read it again.
struct KeyText {
    std::string_view key;
    std::string_view value;
    int line = 0;
    int column = 0; // of the value in its line, from 1
};

// What a field's keys said, with the line of each key, until the whole file is read.
struct FieldDraft {
    Field field;
    std::map<std::string, int, std::less<>> keyLines;
    // As written, in order; once a copy is resolved, with what it takes from its base.
    std::vector<KeyText> keys;
    std::vector<Position> alternatives; // from bits: one, or one per colour
    int fieldStride = -1;
    std::string showIfName;
    std::string gridName; // a column of this grid
    std::string likeName;
    int offset = 0; // bytes added to every byte the bits name
    int repeatCount = 0;
    int repeatEvery = 0;
    bool broken = false; // a problem was reported: not checked further, nor against others

    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : field.line;
    }
    bool Has(std::string_view key) const { return keyLines.find(key) != keyLines.end(); }
};

struct PageDraft {
    int line = 0;
    std::map<std::string, int, std::less<>> keyLines;
    bool broken = false;
    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : line;
    }
};

// What a button's keys said, until the fields it names are known.
struct ButtonDraft {
    Button button;
    std::map<std::string, int, std::less<>> keyLines;
    std::string fieldName; // of the value handed to a function
    bool broken = false;

    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : button.line;
    }
};

// What a grid's keys said, until its columns are known.
struct GridDraft {
    Grid grid;
    std::map<std::string, int, std::less<>> keyLines;
    bool broken = false;
    int LineOf(std::string_view key) const {
        const auto found = keyLines.find(key);
        return found != keyLines.end() ? found->second : grid.line;
    }
};

// A rule's keys, until the fields its check names are known (DescriptionRules.cpp).
struct RuleDraft {
    std::shared_ptr<Rule> rule;
    std::map<std::string, int, std::less<>> keyLines;
    bool broken = false;
    int LineOf(std::string_view key) const;
};

// One "key = value" line, while its value is read into the page or the field being read.
struct KeyValue {
    int line = 0;
    std::string_view value;
    std::vector<std::string_view> words; // of the value
    Page& page;
    FieldDraft* draft; // null in [page]
    const KnownStringId& known;
    Problems& problems;
    int column;                    // of the value in its line, from 1
    ButtonDraft* button = nullptr; // in [button NAME]
    GridDraft* grid = nullptr;     // in [grid NAME]
    RuleDraft* rule = nullptr;     // in [rule NAME]

    // At the word of the value that detail is, else at the value.
    bool Fail(std::string_view detail, ErrorCode code = ErrorCode::BadValue);
    // A formula's problem at a column of the line, which is also its detail.
    bool FailAt(int at, ErrorCode code) { return Refuse(problems, line, code, std::to_string(at), at); }
    bool StringId(std::string_view word, std::string& out);
    // A string id, or a "quoted text" shown as written (for drafts: what we ship is translated).
    bool Text(std::string_view word, Item& out);
    // A control id.
    bool Id(std::string_view word, int& out);
};

// A [page] key's value, or none of it when refused (DescriptionPageKeys.cpp).
bool ReadPageKey(const Key& key, KeyValue& value);

// A button's action and its function's argument (DescriptionButtons.cpp).
bool ReadAction(KeyValue& value);
bool ReadArgument(KeyValue& value);

class Parser {
public:
    explicit Parser(const KnownStringId& known) : m_known(known) {}

    ParseResult Run(std::string_view text);

private:
    bool Fail(int line, ErrorCode code, std::string_view detail, int column = 0) {
        return Refuse(m_problems, line, code, detail, column);
    }
    // The second reading: each element finished and checked on its own (ChipDescriptionParser.cpp).
    void Finish();
    bool* BrokenOfSection(); // of the section being read
    // A [page] line with a problem: its key taken as absent (DescriptionPageKeys.cpp).
    void RefusePageLine(std::string_view line);
    bool PageKeyRefused(std::string_view key) const { return m_refusedPageKeys.count(key) != 0; }
    bool AnyFieldBroken() const;

    // Reading the lines (ChipDescriptionParser.cpp).
    bool ReadText(std::string_view text);
    bool Line(int number, std::string_view line);
    bool Header(int number, std::string_view name);
    bool KeyLine(int number, int column, Section section, std::string_view key, std::string_view value,
                 FieldDraft* draft);

    // Fields declared once and used again (DescriptionReuse.cpp).
    bool ResolveCopies();
    bool Inherit(std::size_t index, std::size_t baseIndex);
    bool ExpandRepeats();
    // Colours, signs and what a control holds (DescriptionWideChecks.cpp).
    bool CheckColours();
    bool CheckSign(FieldDraft& draft);
    bool CheckControlHolds(FieldDraft& draft);

    // Finishing and checking what they said (ChipDescriptionChecks.cpp).
    bool CheckSections();
    bool FinishField(FieldDraft& draft);
    bool FinishHostValue(FieldDraft& draft);
    bool PlaceBits(FieldDraft& draft);
    bool CheckBits(FieldDraft& draft);
    bool FitRange(FieldDraft& draft);
    bool CheckKeysAgree(FieldDraft& draft);
    bool CheckCurrentKeys(FieldDraft& draft);
    bool CheckReadOnly(FieldDraft& draft);
    bool ConnectFields();
    bool ConnectFormulas(); // DescriptionFormula.cpp
    bool CheckPageKeys();
    bool CheckOverlaps();
    bool CheckIds();
    bool CheckRefreshReads();
    void CompleteChangeTest();
    // The page's buttons (DescriptionButtons.cpp): a section header, then what each asks for.
    bool ButtonHeader(int number, std::string_view name);
    void FinishButtons();
    bool FinishButton(ButtonDraft& draft);
    // The page's grids (DescriptionGrids.cpp): a section header, the columns that name each grid,
    // then a field per cell in place of each column.
    bool GridHeader(int number, std::string_view name);
    bool AssignGridColumns();
    bool CheckGrid(const GridDraft& draft);
    bool CheckGridColumn(FieldDraft& draft, const GridDraft& grid);
    bool ExpandGrids();
    bool ExpandGrid(GridDraft& draft, std::vector<FieldDraft>& cells);
    // The page's rules (DescriptionRules.cpp).
    bool RuleHeader(int number, std::string_view name);
    void FinishRules();
    bool FinishRule(RuleDraft& draft);

    // The register text and the tables (DescriptionSections.cpp).
    static bool IsSectionOfVersion2(std::string_view name);
    bool SectionHeader(int number, std::string_view name);
    std::map<std::string, int, std::less<>>& SectionKeyLines();
    bool ClaimSectionIds(const std::function<bool(int id, int line)>& claim) const;
    bool FinishSectionsOfVersion2();
    bool CheckRegisterText();

    const KnownStringId& m_known;
    Problems m_problems;
    Description m_description;
    std::optional<Section> m_section; // none after a header that was refused: its lines are skipped
    bool m_havePage = false;
    PageDraft m_page;
    std::set<std::string, std::less<>> m_refusedPageKeys;
    std::vector<FieldDraft> m_drafts;
    std::vector<ButtonDraft> m_buttons;
    std::vector<GridDraft> m_grids;
    std::vector<RuleDraft> m_rules;
    PageDraft m_textDraft;
    std::vector<PageDraft> m_tableDrafts;
    std::string_view m_line; // being read
    bool m_skipping = false; // the lines of a refused section
    int m_lastLine = 1;
};

} // namespace chipdesc::detail
