// Read-out formulas and the expressions under them: results worked out by hand from each formula, the
// refusals a description check gives with their line and column, and "-" for a division by zero.
#include "descriptions/DescriptionFormula.h"

#include <gtest/gtest.h>

namespace {

using namespace chipdesc;

// A page whose gain read-out is `readout`, on line 10; `level` is a per-colour field, `mode` one value.
std::string Page(const std::string& readout) {
    return "[page]\nclass = CRegvaneExampleChip\n\n[field level]\nbits = 3[3:0]\ncolours = separate\n"
           "control = slider\nlabel = IDS_Level\n[field gain]\nreadout = " +
           readout +
           "\nbits = 2[5:0]\ncolours = separate\ncontrol = slider\nlabel = IDS_Gain\n"
           "[field hidden]\nbits = 8[1]\ncontrol = none\n[field mode]\nbits = 8[0]\ncontrol = check\n"
           "label = IDS_Mode\n";
}

ParseResult ParsePage(const std::string& readout) {
    return Parse(Page(readout), [](std::string_view) { return true; });
}

std::wstring Shown(const std::string& readout, int value, int level = 0) {
    ParseResult result = ParsePage(readout);
    if (const auto* error = std::get_if<ParseError>(&result)) {
        ADD_FAILURE() << readout << ": " << ReasonStringId(error->code) << " " << error->detail;
        return {};
    }
    return *ReadoutText(std::get<Description>(result).fields[1], value,
                        [&](int) { return std::optional<std::int64_t>(level); });
}

std::optional<double> Exact(const std::string& text, std::vector<std::int64_t> values = {}) {
    return std::get<Expression>(Expression::Parse(text)).Evaluate(values);
}

TEST(DescriptionFormula, ReadoutsShowWhatTheFormulaGivesRoundedToTheFormat) {
    EXPECT_EQ(Shown(R"("%.1f%%" (value + 1) * 100 / 64)", 9), L"15.6%"); // 15.625
    EXPECT_EQ(Shown(R"("%d%%" (value + 1) * 100 / 64)", 7), L"13%");     // 12.5, halves away from 0
    EXPECT_EQ(Shown(R"("x %d" 2 + 3 * value - -4)", 5), L"x 21");
    EXPECT_EQ(Shown(R"("%d" value % 0x10 * 2)", 53), L"10");
    EXPECT_EQ(Shown(R"("%d" -value % 16)", 53), L"-5");
    EXPECT_EQ(Shown(R"("%.2f mA" value * level / 4)", 10, 3), L"7.50 mA");
    EXPECT_EQ(Shown(R"("%d" mode + value)", 1, 1), L"2");
    EXPECT_EQ(Shown(R"("%.1f" value / -100)", 4), L"0.0"); // -0.04: no "-0.0"
    EXPECT_EQ(Shown(R"("%.3f" 0.1 * value)", 3), L"0.300");
    EXPECT_EQ(Shown(R"("%d" value * 1000000 * 1000000 * 1000000)", 63), L"-");
    // A division by zero at run time shows "-", whatever the format.
    EXPECT_EQ(Shown(R"("%.2f%%" 100 / (value - 3))", 3), L"-");
    EXPECT_EQ(Shown(R"("%d" value % level)", 3, 0), L"-");
    EXPECT_EQ(Shown(R"("%d" value % level)", 3, 1), L"0");

    // Conditions: 1 or 0, exact for 32-bit values; an and/or one side settles stays settled.
    EXPECT_EQ(Exact("0xFFFFFFFF % 7"), 3.0);
    EXPECT_EQ(Exact("0xFFFFFFFF * 0xFFFF - 0xFFFFFFFF * 0xFFFE"), 4294967295.0);
    EXPECT_EQ(Exact("a < b and not (c == 0) or a >= 10", {3, 4, 0}), 0.0);
    EXPECT_EQ(Exact("a < b and not (c == 0) or a >= 10", {3, 4, 2}), 1.0);
    EXPECT_EQ(Exact("x == 0 or 10 / x > 2", {0}), 1.0);
    EXPECT_EQ(Exact("x != 0 and 10 / x > 2", {0}), 0.0);
    EXPECT_EQ(Exact("10 / x > 2", {0}), std::nullopt);
    const auto names = std::get<Expression>(Expression::Parse("clk-div * 2 + clk % clk-div")).Names();
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(names[0].name, "clk-div");
    EXPECT_EQ(names[1].column, 15);
}

TEST(DescriptionFormula, ABadFormulaIsRefusedAtItsLineAndColumn) {
    // The value starts in column 11 of line 10.
    const struct {
        std::string readout;
        ErrorCode code;
        std::string detail;
    } cases[] = {
        {R"("%.1f" (value + 1)", ErrorCode::BadFormula, "28"},
        {R"("%x" value)", ErrorCode::BadFormula, "12"},
        {R"("%d %d" value)", ErrorCode::BadFormula, "15"},
        {R"("%.1f%%")", ErrorCode::BadValue, R"("%.1f%%")"},
        {R"("%d" value * 2 / (3 - 3))", ErrorCode::DivisionByZero, "26"},
        {R"("%d" value % 0.0)", ErrorCode::DivisionByZero, "22"},
        {R"("%d" a < b < c)", ErrorCode::BadFormula, "22"},
        {R"("%d" 1.5.2)", ErrorCode::BadFormula, "16"},
        {R"("%d" 2value)", ErrorCode::BadFormula, "16"},
        {R"("%d" value and)", ErrorCode::BadFormula, "25"},
        {"\"%d\" " + std::string(33, '(') + "1" + std::string(33, ')'), ErrorCode::BadFormula, "48"},
        {R"("%d" value + speed)", ErrorCode::UnknownField, "speed"},
        {R"("%d" value-1)", ErrorCode::UnknownField, "value-1"},
        {R"("%d" hidden)", ErrorCode::BadValue, "hidden"},
        {"gain99-percent", ErrorCode::BadValue, "gain99-percent"},
    };
    for (const auto& bad : cases) {
        SCOPED_TRACE(bad.readout);
        ParseResult result = ParsePage(bad.readout);
        const auto* error = std::get_if<ParseError>(&result);
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->line, 10);
        EXPECT_EQ(error->code, bad.code);
        EXPECT_EQ(error->detail, bad.detail);
    }
    // A single-valued read-out cannot pick a colour of a per-colour field.
    std::string page = Page(R"("%d" 1)") + "readout = \"%d\" level\n";
    ParseResult result = Parse(page, [](std::string_view) { return true; });
    ASSERT_TRUE(std::holds_alternative<ParseError>(result));
    EXPECT_EQ(std::get<ParseError>(result).line, 22);
}

} // namespace
