// A chip page as data: the fields of a chip's registers, where each one lives in the host's records,
// how the chip codes it, and which control edits it. One description per page class; the described
// page renders it and runs the chip-page cycle (read the record, patch the field into every colour
// copy, write it back, change test) for every field.
//
// The text format is documented for chip engineers in docs/chip-descriptions.md. This is the portable
// half: the model, the parser (which refuses a bad file with its line and reason) and the field
// coding. No Win32 here.
#pragma once

#include "host/HostRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chipdesc {

struct ReadoutFormula;
struct Rule; // DescriptionRules.h

// Where a field lives: one of the host's register records, read and written whole, or the value the
// host reports, which the page only shows.
using Source = HostRecord;
inline constexpr std::size_t kSourceCount = kHostRecordCount;

std::string_view SourceName(Source source);
// Bytes of a record (0 for a host value, which has no bytes).
inline std::size_t SourceBytes(Source source) {
    return HostRecordBytes(source);
}

// Bits [lsb, lsb + width) of one byte.
struct BitCopy {
    std::uint16_t byte = 0;
    std::uint8_t lsb = 0;
};
// One run of a field's value: read from its first copy, written into every copy (a chip that keeps a
// bit in several places reads whichever its output group needs, so all copies must agree).
struct BitRun {
    std::uint8_t width = 0;
    std::vector<BitCopy> copies;
};
// A field's bits in one colour copy: its runs, most significant first.
struct Position {
    std::vector<BitRun> runs;
};

// A field's value as shown: wide enough for every value of a 32-bit field, signed or not.
using Value = std::int64_t;

enum class Colours : std::uint8_t {
    None,     // one value at one position
    Equal,    // one control; the value goes into every colour copy
    Separate, // a control per colour, each writing its own copy
    Linked,   // a control per colour; every change writes every colour, and with the page's link switch
              // on the moved control's value goes to all of them
};
// A page has one to kMaxColours colour copies of its registers; three unless it says otherwise.
inline constexpr int kMaxColours = 8;
inline constexpr int kDefaultColours = 3;

enum class Coding : std::uint8_t {
    Plain,  // shown = stored
    Invert, // shown = NOT stored
    Xor,    // shown = stored XOR argument
    Offset, // shown = stored + argument
    Set,    // the argument's bits are always written 1 and never shown
};

// How a field's bits hold a negative value (before an offset coding adds its argument).
enum class Signedness : std::uint8_t { Unsigned, TwosComplement, SignMagnitude };

enum class Control : std::uint8_t { None, Slider, Check, Combo, Number, Hex };

// What the page writes into a field each time it fills itself from the chip, before the operator
// touches anything.
enum class OnFill : std::uint8_t {
    Nothing,
    Rewrite,   // the value read, written back into every place the chip keeps it, so the copies agree
    HostCount, // the count the host reports (the scan lines it drives); the operator cannot edit it
};

struct Item {
    std::string text;
    bool literal = false; // shown as written, not translated
};

struct Field {
    std::string name;
    int line = 0; // of its section header
    Item label;
    int labelId = 0;
    Source source = Source::Block;
    Colours colours = Colours::None;
    // One position for None; one per colour copy of the page for the colour modes.
    std::vector<Position> positions;
    Coding coding = Coding::Plain;
    Value codingArgument = 0;
    Signedness signedness = Signedness::Unsigned;
    Value minimum = 0;
    Value maximum = 0;
    bool cutToWidth = false;
    // The control offers the range the host gives for this kind of value (within the field's own,
    // unless taken as the host gives it); empty: the field's range.
    std::string hostRange;
    bool hostRangeAsGiven = false;
    std::optional<Value> defaultValue;
    Control control = Control::None;
    std::vector<Item> items;
    std::vector<int> itemCodes; // the value each item stands for, in the items' order
    double step = 1;
    Item unit;
    // A routine's name, or a formula's text and the formula read from it (DescriptionFormula.h).
    std::string readout;
    std::shared_ptr<const ReadoutFormula> formula;
    std::vector<int> ids;
    std::vector<int> readoutIds;
    // The output current this field's value gives against a reference the operator enters per
    // colour, shown on request; the name is the chip's read-out routine (see DescriptionReadouts.h).
    std::string current;
    int currentSwitchId = 0;
    std::vector<int> referenceIds;
    std::vector<int> fractionIds;
    std::vector<int> currentIds;
    int referenceDecimals = 0; // the reference edits' decimals
    OnFill onFill = OnFill::Nothing;
    Item group;      // consecutive fields of one group share a box titled with it
    int showIf = -1; // index of the field whose non-zero value shows this one
    // Of one of the fields a repeated field stands for, its number from 1; "{n}" in its label and
    // group title stands for it.
    int copyNumber = 0;

    Item help;             // shown over the row's label and controls
    bool readOnly = false; // shown, never written: a status bit, a chip revision
    int grid = -1;         // a cell of this grid (Description::grids), drawn in it, not in a row

    int Width() const;
    bool PerColour() const { return colours == Colours::Separate || colours == Colours::Linked; }
    // Controls this field has on the page: one per colour copy for Separate and Linked, else one.
    int ControlCount() const { return PerColour() ? static_cast<int>(positions.size()) : 1; }
    bool Editable() const {
        return control != Control::None && !IsHostValue(source) && onFill != OnFill::HostCount && !readOnly;
    }
};

enum class Title : std::uint8_t {
    Caption, // the host's caption when it gives one, else the template's
    Model,   // the chip model the host reports, a space, then the translated title string
};
enum class Notice : std::uint8_t {
    Always, // MarkModified when the chip differs from the snapshot, then UpdateHostState(1, 1) always
    Either, // MarkModified when it differs, otherwise UpdateHostState(1, 1)
};

// The newest description format this module reads; a file states its own with format-version.
inline constexpr int kFormatVersion = 2;

// A read-only text of the page's registers, one byte a line, that the operator copies and pastes back
// (descriptions/RegisterText.h).
struct RegisterTextSpec {
    int line = 0;                                                       // of its section header
    std::string format = "{record} {address}: {hex} {binary} {fields}"; // of each register's line
    std::vector<Source> records; // empty: every record a field lives in
    std::vector<int> ids;        // the text's, Copy's and Paste's control ids; empty: automatic
};

// A table the operator loads from a file, packed for the chip and handed to a chip function
// (descriptions/PackedTable.h).
struct TableSpec {
    std::string name;
    int line = 0; // of its section header
    Item label;
    int valueBits = 8;
    int minimumCount = 0;
    int maximumCount = 0;
    int functionTable = 0; // 1, 2 or 3: the table of GetFunctionTable, GetFunctionTable2 or 3
    int entry = -1;
    int id = 0; // the Load button's control id; 0: automatic
};

struct Page {
    std::string className;
    int formatVersion = 1;
    Title title = Title::Caption;
    std::string titleString;
    int colourCount = kDefaultColours;
    std::vector<Item> colourLabels{{"IDS_Red"}, {"IDS_Green"}, {"IDS_Blue"}};
    int stride = 2;
    Item link; // label of the link switch; empty: the page has none
    int linkId = 0;
    // By default the block, the 20-byte record and every other record a field lives in.
    std::vector<Source> changeTest{Source::Block, Source::Record20};
    Notice notice = Notice::Always;
    std::vector<Source> carry; // records handed back unchanged with every write
    bool refreshAfterChange = false;
    // What the page reads, in this order, each time it fills itself from the chip; empty: the records
    // its fields live in.
    std::vector<Source> refreshReads;
    // The link switch, the read-out switch and the references: kept for the page class while the host
    // runs, or each page's own, starting afresh.
    bool switchesPerClass = true;
    bool defaultButton = false;
    int defaultId = 0; // 0: the id every chip page's Default button has
    bool okCancel = false;
    std::optional<RegisterTextSpec> registerText;
    std::vector<TableSpec> tables;
};

// What a page button does.
enum class Action : std::uint8_t {
    GoToPage, // asks the host's frame for one of its pages
    Reread,   // fills the page from the chip, as the host's "read the chip again" does
    Defaults, // writes every field's default
    Export,   // the parameter file of the page class's table, as its parameter-table page writes it
    Import,
    Function, // calls an entry of one of the host's chip-function tables
};
// What a chip function is handed: nothing, a field's value, or a pointer to a record as read.
enum class Argument : std::uint8_t { None, Value, Record };

struct Button {
    std::string name;
    int line = 0; // of its section header
    Item label;
    int id = 0; // 0: automatic
    Action action = Action::GoToPage;
    int page = 0;  // GoToPage
    int table = 1; // Function: 1, 2 or 3, the host's GetFunctionTable, GetFunctionTable2, GetFunctionTable3
    int entry = 0;
    Argument argument = Argument::None;
    int field = -1; // Value: the field's index
    Source record = Source::Block;
};
// A block of registers repeated at a step, drawn as a grid: a row per repeat, a column per field that
// names the grid. Each cell is a field of its own, so it is read, written, checked and restored as
// every field is (DescriptionGrids.h).
struct Grid {
    std::string name;
    int line = 0; // of its section header
    Item label;
    Source source = Source::Block;
    int rows = 0;
    int byteStep = 0; // from one row's registers to the next
    int bitStep = 0;  // and bits more, where registers pack
    Item rowNames;    // "Channel %d"; "Reg %d-%d" numbers groups of `perGroup` rows
    int first = 1;    // the first row's number
    int perGroup = 0;
    int id = 0; // the list's control id; 0: automatic
    int columns = 0;
    std::vector<int> cells; // the field of row r, column c at r * columns + c
    int Cell(int row, int column) const { return cells[static_cast<std::size_t>(row * columns + column)]; }
};

// The page numbers a button may ask for.
inline constexpr int kMaxHostPage = 255;

struct Description {
    Page page;
    std::vector<Field> fields;
    std::vector<Button> buttons; // in the order of the page's row of buttons
    std::vector<Grid> grids;
    std::vector<std::shared_ptr<const Rule>> rules;

    // The records the fields read (not host values), in Source order.
    std::vector<Source> RecordsInUse() const;
    // The records a fill from the chip reads, in order.
    std::vector<Source> RefreshReads() const;
    // The field with an output-current read-out, or -1.
    int CurrentField() const;
    int FieldIndex(std::string_view name) const;
};

enum class ErrorCode : std::uint8_t {
    TooLarge,
    NotText,
    LineTooLong,
    Syntax,
    UnknownSection,
    UnknownKey,
    DuplicateKey,
    MissingKey,
    BadValue,
    BadBits,
    OutsideRecord,
    Overlap,
    ItemsDoNotFit,
    RangeDoesNotFit,
    UnknownStringId,
    UnknownField,
    DuplicateName,
    DuplicateId,
    NoFields,
    OutOfRange,
    NoParamTable,
    NewerFormat,
    BadFormula,     // detail: the column where a formula stops making sense
    DivisionByZero, // detail: the column of a division by a constant zero
    CopyCycle,
    ControlCannotHold,
};
inline constexpr std::size_t kErrorCodeCount = 26;

struct Problem {
    int line = 0;
    ErrorCode code = ErrorCode::Syntax;
    std::string detail; // the offending word, key or value
    int column = 0;     // from 1; 0 for a problem of a whole line, section or file
};
// Why a description cannot be used: its first problem, and the others in the order of their lines
// (at most kMaxProblems in all).
struct ParseError : Problem {
    std::vector<Problem> more;
};
inline constexpr std::size_t kMaxProblems = 50;
// The string id of a reason's text, in which "{detail}" stands for the error's detail.
std::string_view ReasonStringId(ErrorCode code);

// The module knows a string id; the parser refuses a description that names one it does not.
using KnownStringId = std::function<bool(std::string_view id)>;

inline constexpr std::size_t kMaxDescriptionBytes = 64 * 1024;
inline constexpr std::size_t kMaxLineChars = 1000;

using ParseResult = std::variant<Description, ParseError>;
ParseResult Parse(std::string_view text, const KnownStringId& known);

// ---- the values of fields ---------------------------------------------------------------------

// The stored bits of a field's value, runs concatenated most significant first.
std::uint32_t ReadStored(const Position& position, std::span<const std::uint8_t> record);
void WriteStored(const Position& position, std::span<std::uint8_t> record, std::uint32_t stored);

Value Decode(const Field& field, std::uint32_t stored);
// A value outside the codable range keeps its low bits (its magnitude's, for sign and magnitude).
std::uint32_t Encode(const Field& field, Value shown);
// The values a field can show, lowest and highest, before any range of its own.
std::pair<Value, Value> CodableRange(const Field& field);
// The combo item standing for a value, or -1: a code the chip holds that no item names, which the
// page shows as its number and never writes.
int ItemOf(const Field& field, Value value);
// Every bit of the field, in every copy, taken from `from` into `into`.
void CopyFieldBits(const Field& field, std::span<const std::uint8_t> from, std::span<std::uint8_t> into);

// Colour 0 stands for the field when it has one position.
Value ReadValue(const Field& field, std::span<const std::uint8_t> record, int colour);
void WriteValue(const Field& field, std::span<std::uint8_t> record, int colour, Value value);

// A hex control shows a field's bits as this many lower-case digits, and takes one to as many.
int HexDigits(const Field& field);
std::wstring FormatHex(std::uint32_t value, int digits);
std::optional<std::uint32_t> ParseHex(std::wstring_view text, int digits);

} // namespace chipdesc
