// Chip descriptions: the parser refuses every kind of bad file with its line and reason, every coding
// keeps every value, the descriptions we ship are valid and translated, and the layout gives every
// text the room its language needs. What the shipped FM612x pages write is held by the Windows page
// tests and the accepted host-call traces.
#include "descriptions/ChipDescription.h"
#include "descriptions/ChipDescriptionKeys.h"
#include "descriptions/DescriptionFlow.h"
#include "descriptions/DescriptionLayout.h"
#include "framework/LanguageFile.h"
#include "framework/TextEncoding.h"
#include "resources/BuiltinEnglish.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <tuple>

namespace {

using namespace chipdesc;

bool AnyId(std::string_view id) {
    return id.rfind("IDS_", 0) == 0;
}

const char* const kGoodPage = R"([page]
class = CRegvaneExampleChip
link = IDS_Link

[field gain]
label = IDS_Gain
bits = 2[5:0]
colours = linked
control = slider

[field mode]
label = IDS_Mode
bits = 8[0]
colours = separate
control = combo
items = IDS_A "B"
)";

ParseError ErrorOf(std::string_view text) {
    ParseResult result = Parse(text, AnyId);
    if (auto* error = std::get_if<ParseError>(&result))
        return *error;
    ADD_FAILURE() << "accepted:\n" << text;
    return {};
}

TEST(ChipDescription, EveryBadDescriptionIsRefusedAtItsLineWithItsReason) {
    const std::string good = kGoodPage;
    auto replace = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    const std::string version2 =
        replace("class = CRegvaneExampleChip", "class = CRegvaneExampleChip\nformat-version = 2");
    auto button = [&](const std::string& action) {
        return good + "[button b]\nlabel = IDS_B\naction = " + action + "\n";
    };
    const struct {
        std::string text;
        int line;
        ErrorCode code;
        std::string detail = {}; // checked when given: the field a refusal names
    } cases[] = {
        {replace("control = combo", "control = combo\nlabel = IDS_Mode"), 16, ErrorCode::DuplicateKey},
        {replace("bits = 8[0]", "bits = 14[0]"), 13, ErrorCode::OutsideRecord}, // blue's copy at 18 of 16
        {replace("bits = 8[0]", "bits = 8[8:7]"), 13, ErrorCode::BadBits},
        {replace("items = IDS_A \"B\"", "items = IDS_A \"B\" IDS_C"), 16, ErrorCode::ItemsDoNotFit},
        {replace("items = IDS_A", "items = Mode_A"), 16, ErrorCode::UnknownStringId},
        {replace("items = IDS_A \"B\"", "items = 1 IDS_A, 1 \"B\""), 16, ErrorCode::DuplicateKey},
        {replace("items = IDS_A \"B\"", "items = 1 IDS_A, 0"), 16, ErrorCode::BadValue},
        {replace("bits = 8[0]", "bits = 8[0]\ncoding = xor -1"), 14, ErrorCode::BadValue}, // bits to flip
        {replace("[field mode]", "[field mode.1]"), 11, ErrorCode::BadValue}, // the name of a grid's cell
        {good + "[field c]\nlabel = \"C\"\nbits = 9[1:0]\nsigned = twos-complement\ncontrol = check\n", 19,
         ErrorCode::RangeDoesNotFit}, // a check holds 0 and 1, not -2..1
        // Shown, never written: no slider, and nothing that writes it.
        {replace("control = slider", "control = slider\naccess = read-only"), 10, ErrorCode::BadValue},
        {replace("control = combo", "control = combo\naccess = read-only\non-fill = rewrite"), 17,
         ErrorCode::BadValue},
        // A newer file is refused as newer, not for a key of its own that comes first.
        {replace("link = IDS_Link", "shape = round\nformat-version = 3"), 4, ErrorCode::NewerFormat},
        {replace("control = slider", "control = slider\nrange = 0..64"), 10, ErrorCode::RangeDoesNotFit},
        {replace("control = slider", "control = slider\ndefault = 70"), 10, ErrorCode::RangeDoesNotFit},
        {replace("link = IDS_Link\n", ""), 7, ErrorCode::MissingKey}, // linked gains need the switch
        {replace("class = CRegvaneExampleChip\n", ""), 1, ErrorCode::MissingKey},
        {replace("control = combo\n", ""), 11, ErrorCode::MissingKey},
        {replace("control = slider", "control = slider\nids = 100 101"), 10, ErrorCode::BadValue},
        {replace("control = slider", "control = slider\nids = 100 101 101"), 10, ErrorCode::DuplicateId},
        {replace("control = combo", "control = combo\nshow-if = speed"), 16, ErrorCode::UnknownField},
        // The output-current read-out: a routine the module has, on a value per colour, ids for it.
        {replace("control = slider", "control = slider\ncurrent = ohm"), 10, ErrorCode::BadValue},
        {replace("control = slider", "control = slider\ncurrent = gain6") +
             "[field m2]\nlabel = IDS_M\nbits = 9[0]\ncolours = separate\ncontrol = slider\ncurrent = "
             "gain6\n",
         23, ErrorCode::DuplicateKey},
        {replace("control = slider", "control = slider\nfraction-ids = 1 2 3"), 10, ErrorCode::MissingKey},
        {replace("control = slider", "control = slider\ncurrent = gain6\ncurrent-ids = 1 2"), 11,
         ErrorCode::BadValue},
        {replace("bits = 8[0]\ncolours = separate", "bits = 8[0]\ncolours = equal\ncurrent = gain6"), 15,
         ErrorCode::BadValue},
        {replace("link = IDS_Link", "link = IDS_Link\ndefault-id = 9"), 4, ErrorCode::MissingKey},
        {replace("control = slider", "control = slider\nhost-range = count"), 10, ErrorCode::BadValue},
        // Written on every fill: the value read again, or the host's count into one value.
        {replace("control = combo", "control = combo\non-fill = count"), 16, ErrorCode::BadValue},
        {replace("control = combo", "control = combo\nhost-range = gain"), 16, ErrorCode::BadValue},
        {replace("link = IDS_Link", "link = IDS_Link\nrefresh-reads = record20 record-a"), 4,
         ErrorCode::MissingKey}, // the fields' block is not read
        // Copies: of a field that exists, not of themselves, inside the record and on bits of their own.
        {replace("control = combo", "control = combo\nlike = speed"), 16, ErrorCode::UnknownField},
        {good + "[field a]\nlike = b\n[field b]\nlike = a\n", 18, ErrorCode::CopyCycle},
        {good + "[field m2]\nlike = mode\noffset = 7\n", 19, ErrorCode::OutsideRecord},
        {good + "[field m2]\nlike = mode\n", 18, ErrorCode::Overlap, "mode"},
        {good + "[field m2]\nlike = mode\noffset = 1\nrepeat = 2 every 6\n", 20, ErrorCode::OutsideRecord},
        // Wide, signed, and more colours.
        {good + "[field w]\nlabel = \"W\"\nrecord = record-a\nbits = 0[7:0] 1[7:0] 2[7:0] 3[7:0]\ncontrol = "
                "slider\n",
         21, ErrorCode::ControlCannotHold},
        {replace("bits = 8[0]", "bits = 8[0]\nsigned = sign-magnitude"), 14, ErrorCode::BadValue},
        {replace("link = IDS_Link", "link = IDS_Link\ncolours = 4\nstride = 1"), 4, ErrorCode::MissingKey},
        {replace("link = IDS_Link", "link = IDS_Link\ncolour-labels = \"R\" \"G\""), 4, ErrorCode::BadValue},
        // The register text and the tables: format version 2, a format that can be read back, a function.
        {good + "[register-text]\n", 17, ErrorCode::MissingKey},
        {version2 + "[register-text]\nline = \"{address} {fields}\"\n", 19, ErrorCode::BadValue},
        {version2 + "[table t]\nlabel = \"T\"\ncount = 4\n", 18, ErrorCode::MissingKey},
        {version2 + "[table t]\nfunction = 2 64\n", 19, ErrorCode::BadValue},
        {"[page]\nclass = CRegvaneExampleChip\n", 2, ErrorCode::NoFields},
        {std::string(kGoodPage) + "\nnote = \x01\x02", 18, ErrorCode::NotText},
        {std::string(kGoodPage) + "\n# " + std::string(1200, 'x'), 18, ErrorCode::LineTooLong},
        {std::string(kMaxDescriptionBytes + 1, '#'), 1, ErrorCode::TooLarge},
        // Buttons: an action the page can do, on what the page has.
        {button("function 2 64"), 19, ErrorCode::OutOfRange},
        {button("export"), 19, ErrorCode::NoParamTable},
        {button("defaults"), 19, ErrorCode::MissingKey},
        {button("function 1 93\nargument = value speed"), 20, ErrorCode::UnknownField},
        {button("function 1 93\nargument = value gain"), 20, ErrorCode::BadValue}, // a value per colour
        {button("reread\nid = 7\n[button c]\nlabel = IDS_C\naction = reread\nid = 7"), 24,
         ErrorCode::DuplicateId},
        {button("reread\n[button b]"), 20, ErrorCode::DuplicateKey},
        {version2 + "[table t]\nlabel = \"T\"\nvalues = 16\ncount = 4\nfunction = 1 200\nid = 7\n[button c]\n"
                    "label = IDS_C\naction = reread\nid = 7\n",
         27, ErrorCode::DuplicateId}, // a table's id is the page's like any other
        {std::string(kGoodPage) + "[button b]\nlabel = IDS_B\n", 17, ErrorCode::MissingKey},
    };
    for (const auto& bad : cases) {
        const ParseError error = ErrorOf(bad.text);
        SCOPED_TRACE(std::string(ReasonStringId(error.code)) + " " + error.detail + "\n" + bad.text);
        EXPECT_EQ(error.line, bad.line);
        EXPECT_EQ(error.code, bad.code);
        if (!bad.detail.empty())
            EXPECT_EQ(error.detail, bad.detail);
        for (const Problem& more : error.more) // one fault, told once
            ADD_FAILURE() << "also line " << more.line << ": " << ReasonStringId(more.code);
    }
}

// Every problem of a file is told, in line order, each once: what only follows from one told already
// (a name of a refused field, a column of a refused grid, the keys of a refused section) is not. A
// rule names a field the page has, of one value, and gives its message.
TEST(ChipDescription, EveryProblemIsToldAtItsLineAndNothingThatOnlyFollowsFromOne) {
    // The good page's 16 lines, a misspelt key that places no field for its blank line, then a field
    // refused, and what other sections do with that.
    std::string page = kGoodPage;
    page.replace(page.find("\n\n"), 2, "\nbuttonz = ok-cancel\n");
    const ParseError error = ErrorOf(page + R"([field tint]
label = IDS_Tint
control = knob
colour = linked
this is prose
[field speed]
label = IDS_Speed
bits = 9[3:0]
colours = separate
control = number # a comment after a value
show-if = tint
[field fast]
label = IDS_Fast
bits = 11[3]
control = check
[field tint2]
like = tint
[feild spare]
[grid regs]
row-names = "Reg %d"
[field level]
grid = regs
label = IDS_Level
bits = 14[3:0]
control = number
[button go]
label = IDS_Go
action = jump 3
[button call]
label = IDS_Call
action = function 1 93
argument = value tint
[rule small]
check = tint < 3
message = IDS_Small
[field speed]
label = IDS_Speed
[rule r1]
check = speed < 3
message = "m"
[rule r2]
check = speed <
message = "m"
[rule r3]
check = speed2 < 3
message = "m"
[rule r4]
check = speed < 3
)");
    std::vector<std::tuple<int, int, ErrorCode>> told{{error.line, error.column, error.code}};
    for (const Problem& more : error.more)
        told.emplace_back(more.line, more.column, more.code);
    const std::vector<std::tuple<int, int, ErrorCode>> expected{
        {4, 1, ErrorCode::UnknownKey},  {19, 11, ErrorCode::BadValue},   {20, 1, ErrorCode::UnknownKey},
        {21, 0, ErrorCode::Syntax},     {30, 0, ErrorCode::Overlap},     {34, 0, ErrorCode::UnknownSection},
        {35, 0, ErrorCode::MissingKey}, {44, 10, ErrorCode::BadValue},   {52, 0, ErrorCode::DuplicateName},
        {55, 0, ErrorCode::BadValue},   {58, 16, ErrorCode::BadFormula}, {61, 0, ErrorCode::UnknownField},
        {63, 0, ErrorCode::MissingKey}};
    EXPECT_EQ(told, expected);
    // A file of nothing but faults gives a list of a bounded length.
    std::string prose;
    for (int line = 0; line < 500; ++line)
        prose += "prose\n";
    EXPECT_EQ(ErrorOf(prose).more.size() + 1, kMaxProblems);
}

// The description `text` parses to, reporting why when it does not.
Description Parsed(const std::string& text, const KnownStringId& isStringId, const std::string& what) {
    ParseResult result = Parse(text, isStringId);
    if (auto* error = std::get_if<ParseError>(&result)) {
        ADD_FAILURE() << what << " line " << error->line << ": " << ReasonStringId(error->code) << " "
                      << error->detail;
        return {};
    }
    return std::get<Description>(result);
}

// A field of the given bits and coding, on its own page.
Field FieldOf(const std::string& bits, const std::string& coding) {
    return Parsed("[page]\nclass = CRegvaneExampleChip\n[field f]\nlabel = IDS_F\ncontrol = number\nbits = " +
                      bits + "\ncoding = " + coding + "\n",
                  AnyId, bits + " " + coding)
        .fields.at(0);
}

// The bits of the register block a field's runs take, in every copy.
std::array<std::uint8_t, 16> BitsOf(const Field& field) {
    std::array<std::uint8_t, 16> bits{};
    for (const Position& position : field.positions)
        for (const BitRun& run : position.runs)
            for (const BitCopy& copy : run.copies)
                bits.at(copy.byte) |= static_cast<std::uint8_t>(((1 << run.width) - 1) << copy.lsb);
    return bits;
}

TEST(ChipDescription, EveryCodingKeepsEveryValueAndNoOtherBit) {
    std::mt19937 random(5153);
    const struct {
        std::string bits, coding;
        Value lowest, highest;
    } fields[] = {
        {"3[0]", "plain", 0, 1},
        {"3[6:4]", "xor 2", 0, 7},
        {"2[7:3]", "set 0x10", 0, 15},
        {"3[6:4]", "offset 1", 1, 8},
        {"5[7:0]", "invert", 0, 255},
        {"2[2:0] 3[7] 3[3:2]", "xor 3", 0, 63},                    // the FM6126 gain
        {"2[7] 8[2:1] 9[4]", "plain", 0, 15},                      // a value over three bytes
        {"9[7:0] 8[7:0]", "plain", 0, 65535},                      // a 16-bit register, high byte first
        {"7[5:0]=9[5:0]=11[5:0] 1[0]=1[1]=1[2]", "plain", 0, 127}, // kept three times over
    };
    for (const auto& coded : fields) {
        SCOPED_TRACE(coded.bits + " " + coded.coding);
        const Field field = FieldOf(coded.bits, coded.coding);
        EXPECT_EQ(CodableRange(field), std::make_pair(coded.lowest, coded.highest));
        for (Value value = coded.lowest; value <= coded.highest; ++value) {
            std::array<std::uint8_t, 16> block;
            for (auto& byte : block)
                byte = static_cast<std::uint8_t>(random());
            const auto before = block;
            WriteValue(field, block, 0, value);
            ASSERT_EQ(ReadValue(field, block, 0), value);
            for (const BitRun& run : field.positions[0].runs)
                for (const BitCopy& copy : run.copies)
                    ASSERT_EQ(ReadStored({{BitRun{run.width, {copy}}}}, block),
                              ReadStored({{BitRun{run.width, {run.copies[0]}}}}, block))
                        << "copies disagree";
            // Bits no run names are as they were.
            const auto fieldBits = BitsOf(field);
            for (std::size_t i = 0; i < block.size(); ++i)
                ASSERT_EQ(block[i] & ~fieldBits[i], before[i] & ~fieldBits[i]) << "byte " << i;
        }
    }
    // A set bit is written whatever the value.
    const Field forced = FieldOf("2[7:3]", "set 0x10");
    std::array<std::uint8_t, 16> block{};
    WriteValue(forced, block, 0, 0);
    EXPECT_EQ(block[2], 0x80);
    // What an operator types into a hex control: either case, no other letter.
    EXPECT_EQ(ParseHex(L"aF", 2), 0xAFu);
    EXPECT_EQ(ParseHex(L"g", 2), std::nullopt);
}

TEST(ChipDescription, ItemsWithGapsAreStoredByTheirValueAndAValueNoItemNamesShowsAsItsNumber) {
    const Field speed =
        Parsed("[page]\nclass = CRegvaneExampleChip\n[field s]\nlabel = IDS_S\nbits = 4[1:0]=6[3:2]\n"
               "coding = xor 1\ncontrol = combo\nitems = 2 \"Slow #1\", 3 \"Fast\", 0 IDS_Off # a comment\n",
               AnyId, "items")
            .fields.at(0);
    std::array<std::uint8_t, 16> block;
    block.fill(0xFF);
    WriteValue(speed, block, 0, speed.itemCodes[1]); // "Fast", 3: stored 2, in both places
    EXPECT_EQ(block[4], 0xFE);
    EXPECT_EQ(block[6], 0xFB);
    block[4] = 0xF0; // stored 0: 1, which no item names
    EXPECT_EQ(ValueText(speed, ReadValue(speed, block, 0), {}), L"1");
    EXPECT_EQ(ValueText(speed, 2, {}), L"Slow #1"); // a '#' inside quotes is text
}

std::string ReadSourceFile(const std::string& relative) {
    std::ifstream file(std::string(REGVANE_SOURCE_DIR) + "/" + relative, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// A description we ship, or one of the guide's examples.
Description Shipped(const std::string& className) {
    const std::string folder =
        className.starts_with("CRegvaneExample") ? "docs/examples/" : "descriptions/chips/";
    return Parsed(ReadSourceFile(folder + className + ".desc"), IsModuleStringId, className);
}

TEST(ChipDescription, EveryShippedDescriptionIsValidNamedForItsClassAndTranslated) {
    const std::filesystem::path folder = std::filesystem::path(REGVANE_SOURCE_DIR) / "descriptions" / "chips";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".desc")
            continue;
        ++count;
        const Description description = Shipped(entry.path().stem().string());
        EXPECT_EQ(description.page.className, entry.path().stem().string());
        for (const Field& field : description.fields) {
            EXPECT_FALSE(field.label.literal) << field.name << ": a shipped label is a string id";
            EXPECT_FALSE(field.group.literal) << field.name << ": a shipped group title is a string id";
        }
    }
    EXPECT_GE(count, 3);
    // The documentation's examples are valid descriptions too.
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(REGVANE_SOURCE_DIR) / "docs" / "examples"))
        if (entry.path().extension() == ".desc") // beside them, a table file for one of them
            Parsed(ReadSourceFile("docs/examples/" + entry.path().filename().string()), IsModuleStringId,
                   entry.path().filename().string());
}

// The names in backquotes in the first column of the tables under a heading of the guide.
std::set<std::string> KeysInGuideUnder(const std::string& guide, const std::string& heading) {
    std::set<std::string> keys;
    std::istringstream lines(guide);
    std::string line, section;
    while (std::getline(lines, line)) {
        if (line.rfind('#', 0) == 0)
            section = line;
        else if (section == heading && line.rfind("| `", 0) == 0) {
            const std::string cell = line.substr(0, line.find('|', 1));
            for (std::size_t open = cell.find('`'); open != std::string::npos;) {
                const std::size_t close = cell.find('`', open + 1);
                keys.insert(cell.substr(open + 1, close - open - 1));
                open = cell.find('`', close + 1);
            }
        }
    }
    return keys;
}

TEST(ChipDescription, TheGuideDocumentsEveryKeyOfEachSectionAndNoOther) {
    const std::string guide = ReadSourceFile("docs/chip-descriptions.md");
    const struct {
        Section section;
        std::string heading;
    } sections[] = {
        {Section::Page, "### `[page]`"},          {Section::Field, "### `[field NAME]`"},
        {Section::Button, "### `[button NAME]`"}, {Section::RegisterText, "### `[register-text]`"},
        {Section::Table, "### `[table NAME]`"},   {Section::Grid, "### `[grid NAME]`"},
        {Section::Rule, "### `[rule NAME]`"}};
    for (const auto& [section, heading] : sections) {
        std::set<std::string> taken;
        for (const Key& key : DescriptionKeys())
            if (key.section == section)
                taken.insert(std::string(key.name));
        EXPECT_EQ(KeysInGuideUnder(guide, heading), taken) << heading;
    }
}

// The bits of the register block a description's fields take, in every colour copy.
std::array<std::uint8_t, 16> BlockBitsOf(const Description& description) {
    std::array<std::uint8_t, 16> bits{};
    for (const Field& field : description.fields)
        for (std::size_t i = 0; field.source == Source::Block && i < bits.size(); ++i)
            bits[i] |= BitsOf(field)[i];
    return bits;
}

// The FM6129 has two pages on one chip: the extended page's fields must not take a bit of the plain
// page's gain or low-grey step.
TEST(ChipDescription, Fm6129AndItsExtendedSetShareNoBits) {
    const auto plain = BlockBitsOf(Shipped("CRegvane_FM6129"));
    const auto extended = BlockBitsOf(Shipped("CRegvaneFM6129Ex"));
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_EQ(plain[i] & extended[i], 0) << "byte " << i;
    EXPECT_EQ(plain[3], 0x3F);     // red's gain, bits 5..0 of byte 3
    EXPECT_NE(extended[10], 0x00); // green's ghost level and grey compensation
}

TEST(ChipDescription, TheLayoutGivesEveryTextItsRoomAndNoTwoControlsOverlap) {
    for (const auto& [className, area] : // in one column, and flowed in a wide room too short for one
         {std::pair{"CRegvaneFM6127EX", PageArea{}}, std::pair{"CRegvaneFM6126", PageArea{}},
          std::pair{"CRegvaneFM6127EX", PageArea{2000, 150, 17}},
          std::pair{"CRegvaneFM6126", PageArea{2000, 150, 17}},
          std::pair{"CRegvaneExampleGrid", PageArea{2000, 150, 17}}}) {
        SCOPED_TRACE(std::string(className) + (area.height ? " in a short room" : ""));
        const Description description = Shipped(className);
        // Every character 6 pixels; a label, the read-out switch and Default three times as long as
        // in English.
        LayoutTexts texts;
        texts.translate = [](std::string_view id) {
            std::wstring text = Utf8ToWide(id);
            const bool longer =
                id == "IDS_FM6127EX_PreCharge" || id == "IDS_ShowOutputCurrent" || id == "IDS_Default";
            return longer ? text + text + text : text;
        };
        texts.measure = [](std::wstring_view text) { return static_cast<int>(text.size()) * 6; };
        const FlowedPlan flowed = FlowIntoColumns(PlanLayout(description, texts, {6, 13}), area);
        const LayoutPlan& plan = flowed.plan;
        EXPECT_EQ(flowed.columns > 1, area.height && std::string(className) != "CRegvaneFM6126");
        std::vector<const PlannedWindow*> controls;
        for (const PlannedWindow& window : plan.windows) {
            if (window.role == Role::Label || window.role == Role::ColourHeader ||
                window.role == Role::LinkSwitch || window.role == Role::CurrentSwitch ||
                window.role == Role::DefaultButton) {
                EXPECT_GE(window.rect.Width(), texts.measure(window.text)) << window.text.size();
            }
            if (window.role == Role::Control &&
                description.fields[static_cast<std::size_t>(window.field)].control == Control::Combo)
                for (const Item& item : description.fields[static_cast<std::size_t>(window.field)].items)
                    EXPECT_GE(window.rect.Width(), texts.measure(ItemText(item, texts)));
            // In columns, OK and Cancel stay at the right.
            if (window.role == Role::OkButton)
                EXPECT_GT(window.rect.left, plan.width - plan.width / flowed.columns);
            EXPECT_LE(window.rect.right, plan.width);
            EXPECT_LE(window.role == Role::Control ? window.rect.top : window.rect.bottom, plan.height);
            if (window.role != Role::GroupBox)
                controls.push_back(&window);
        }
        for (std::size_t i = 0; i < controls.size(); ++i)
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                const Rect& a = controls[i]->rect;
                const Rect& b = controls[j]->rect;
                // A combo's rectangle includes its drop-down list, which may hang over the rows below.
                const int aBottom =
                    controls[i]->role == Role::Control &&
                            description.fields[static_cast<std::size_t>(controls[i]->field)].control ==
                                Control::Combo
                        ? a.top + 20
                        : a.bottom;
                const bool apart =
                    a.right <= b.left || b.right <= a.left || aBottom <= b.top || b.bottom <= a.top;
                EXPECT_TRUE(apart) << "windows " << i << " and " << j;
            }
    }
}

// A read-out's cell holds the longest text over its range, wherever in the range it lies, and each
// colour's controls stand under that colour's header.
TEST(ChipDescription, ReadoutCellsHoldTheirLongestTextUnderTheirColoursHeader) {
    const Description description =
        Parsed("[page]\nclass = CRegvaneExampleChip\n[field g]\nlabel = \"G\"\nbits = 2[5:0]\n"
               "colours = separate\ncontrol = slider\nreadout = \"%.1f x\" 100 / (value - 20)\n",
               AnyId, "readout");
    LayoutTexts texts;
    texts.measure = [](std::wstring_view text) { return static_cast<int>(text.size()) * 6; };
    std::map<int, Rect> headers;
    int readouts = 0;
    const LayoutPlan plan = PlanLayout(description, texts, {6, 13});
    for (const PlannedWindow& window : plan.windows)
        if (window.role == Role::ColourHeader)
            headers[window.colour] = window.rect;
    for (const PlannedWindow& window : plan.windows) {
        if (window.role == Role::Readout) {
            ++readouts;
            EXPECT_GE(window.rect.Width(), 6 * 8) << "\"-100.0 x\", at 19";
        }
        if (window.role == Role::Control)
            EXPECT_EQ(window.rect.left, headers.at(window.colour).left) << window.colour;
        if (window.role == Role::Readout)
            EXPECT_LE(window.rect.right, headers.at(window.colour).right) << window.colour;
    }
    EXPECT_EQ(headers.size(), 3u);
    EXPECT_EQ(readouts, 3);
    EXPECT_EQ(Shipped("CRegvaneFM6126").CurrentField(), 0); // its gain's output current
    EXPECT_EQ(description.CurrentField(), -1);
}

} // namespace
