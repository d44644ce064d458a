// Rules between fields: the refusals a description check gives with their line, and which rules a
// set of values breaks.
#include "descriptions/DescriptionRules.h"

#include <gtest/gtest.h>

namespace {

using namespace chipdesc;

// `rule` is the body of a rule section whose keys start on line 8.
ParseResult ParseRule(const std::string& rule) {
    return Parse(
        "[page]\nclass = CRegvaneExampleChip\n[field shift]\nbits = 2[3:0]\ncontrol = number\nlabel = \"S\"\n"
        "[field level]\nbits = 3[3:0]\ncolours = separate\ncontrol = slider\nlabel = \"L\"\n"
        "[rule fits]\n" +
            rule,
        [](std::string_view) { return true; });
}

TEST(DescriptionRules, ABadRuleIsRefusedWithItsLineAndABrokenOneIsFound) {
    const struct {
        std::string rule;
        int line;
        ErrorCode code;
        std::string detail;
    } cases[] = {
        {"message = \"m\"\ncheck = shift < speed\n", 14, ErrorCode::UnknownField, "speed"},
        {"check = shift <\nmessage = \"m\"\n", 13, ErrorCode::BadFormula, "16"},
        {"check = shift % (2 - 2) == 0\nmessage = \"m\"\n", 13, ErrorCode::DivisionByZero, "15"},
        {"check = level < 3\nmessage = \"m\"\n", 13, ErrorCode::BadValue, "level"},
        {"check = shift < 3\n", 12, ErrorCode::MissingKey, "message"},
        {"check = shift < 3\nmessage = \"m\"\non-break = ask\n", 15, ErrorCode::BadValue, "ask"},
    };
    for (const auto& bad : cases) {
        SCOPED_TRACE(bad.rule);
        ParseResult result = ParseRule(bad.rule);
        ASSERT_TRUE(std::holds_alternative<ParseError>(result));
        const ParseError& error = std::get<ParseError>(result);
        EXPECT_EQ(std::tie(error.line, error.code, error.detail), std::tie(bad.line, bad.code, bad.detail));
    }
    ParseResult result = ParseRule("check = 12 % shift == 0\nmessage = \"m\"\non-break = warn\n");
    const Description& page = std::get<Description>(result);
    ASSERT_EQ(page.rules.size(), 1u);
    EXPECT_EQ(page.rules[0]->onBreak, OnBreak::Warn);
    const auto broken = [&](std::int64_t shift, int changed) {
        return BrokenRules(
                   page, [&](int) { return std::optional(shift); }, changed)
            .size();
    };
    EXPECT_EQ(broken(4, 0), 0u);
    EXPECT_EQ(broken(5, 0), 1u);
    EXPECT_EQ(broken(0, 0), 1u); // no value: not shown to hold
    EXPECT_EQ(broken(5, 1), 0u); // a change of a field it does not name
}

} // namespace
