// Rules between fields: the refusals a description check gives, with their line.
#include "descriptions/DescriptionRules.h"

#include <gtest/gtest.h>

namespace {

using namespace chipdesc;

TEST(DescriptionRules, ABadRuleIsRefusedWithItsLine) {
    const struct {
        std::string rule; // its keys start on line 13
        int line;
        ErrorCode code;
        std::string detail;
    } cases[] = {
        {"message = \"m\"\ncheck = shift < speed\n", 14, ErrorCode::UnknownField, "speed"},
        {"check = shift <\nmessage = \"m\"\n", 13, ErrorCode::BadFormula, "16"},
        {"check = level < 3\nmessage = \"m\"\n", 13, ErrorCode::BadValue, "level"},
        {"check = shift < 3\n", 12, ErrorCode::MissingKey, "message"},
    };
    for (const auto& bad : cases) {
        ParseResult result = Parse("[page]\nclass = CRegvaneExampleChip\n[field shift]\nbits = 2[3:0]\n"
                                   "control = number\nlabel = \"S\"\n[field level]\nbits = 3[3:0]\n"
                                   "colours = separate\ncontrol = slider\nlabel = \"L\"\n[rule fits]\n" +
                                       bad.rule,
                                   [](std::string_view) { return true; });
        ASSERT_TRUE(std::holds_alternative<ParseError>(result)) << bad.rule;
        const ParseError& error = std::get<ParseError>(result);
        EXPECT_EQ(std::tie(error.line, error.code, error.detail), std::tie(bad.line, bad.code, bad.detail));
    }
}

} // namespace
