// Scripts of operator actions: every kind of good line, and each kind of bad line refused with
// where it is and why.
#include "workbench/WorkbenchScript.h"

#include <gtest/gtest.h>

namespace {

TEST(WorkbenchScript, ReadsEveryActionWithCommentsQuotesAndHexIds) {
    const ParsedScript script = ParseScript("# red gain up, then the defaults\n"
                                            "slider 8123 -1   # red\n"
                                            "\n"
                                            "click 0x1F59\n"
                                            "check 8021 off\n"
                                            "combo 8572 3\n"
                                            "combo 8572 \"35ns # not a comment\"\n"
                                            "edit 8543 \"\"\n"
                                            "reread\n"
                                            "poke regData 9 0e 0x1\r\n",
                                            "demo.txt");
    ASSERT_FALSE(script.error) << script.error->ToString();
    ASSERT_EQ(script.actions.size(), 8u);
    const auto& a = script.actions;
    EXPECT_EQ(a[0].value, -1);
    EXPECT_EQ(a[0].where, "demo.txt line 2");
    EXPECT_EQ(a[0].written, "slider 8123 -1");
    EXPECT_EQ(a[1].controlId, 8025);
    EXPECT_EQ(a[2].value, 0);
    EXPECT_EQ(a[3].value, 3);
    EXPECT_EQ(a[4].value, -1);
    EXPECT_EQ(a[4].text, "35ns # not a comment");
    EXPECT_EQ(a[5].kind, ScriptActionKind::Edit);
    EXPECT_EQ(a[5].text, "");
    EXPECT_EQ(a[7].bytes, (std::vector<std::uint8_t>{0x0e, 0x01}));

    // On the command line ';' separates actions outside quotes, and they are counted as actions.
    const ParsedScript line = ParseScript("slider 8123 20; click 8025;; edit 1 \"a;b\";", "--do", true);
    ASSERT_FALSE(line.error) << line.error->ToString();
    ASSERT_EQ(line.actions.size(), 3u);
    EXPECT_EQ(line.actions[2].text, "a;b");
    EXPECT_EQ(line.actions[2].where, "--do action 3");
}

TEST(WorkbenchScript, EachKindOfBadLineNamesItsLineAndReason) {
    const struct {
        const char* line;
        const char* reason;
    } bad[] = {
        {"\"click\" 8025", "unknown action 'click'"},
        {"slider 8123", "slider needs a position"},
        {"slider abc 20", "control id 'abc' is not a number"},
        {"click 0", "control id 0 is outside 1..65535"},
        {"slider 8123 20 30", "too much on the line after '20'"},
        {"slider 8123 x", "slider position 'x' is not a number"},
        {"slider 8123 40000", "from -32768 to 32767"},
        {"check 8021 yes", "check takes on or off, not 'yes'"},
        {"combo 8572 -1", "neither an index from 0 nor a quoted item text"},
        {"edit 1040 two words", "put text with spaces in quotes"},
        {"edit 1040 \"open", "a quote is not closed"},
        {"reread now", "reread takes nothing more"},
        {"poke regData 9", "poke needs an image, an offset and at least one byte"},
        {"poke regDatum 0 01", "unknown image 'regDatum' (images: regData, regDataEx"},
        {"poke regData 16 01", "offset '16' is not a byte of regData (0 to 15)"},
        {"poke regData 15 01 02", "the bytes run past the end of regData (16 bytes)"},
        {"poke regData 0 100", "'100' is not a hexadecimal byte"},
    };
    for (const auto& b : bad) {
        SCOPED_TRACE(b.line);
        const ParsedScript script =
            ParseScript(std::string("click 8025\n# fine so far\n") + b.line + "\nreread\n", "s.txt");
        ASSERT_TRUE(script.error);
        EXPECT_TRUE(script.actions.empty()); // nothing of a bad script runs
        EXPECT_EQ(script.error->where, "s.txt line 3");
        EXPECT_NE(script.error->reason.find(b.reason), std::string::npos) << script.error->reason;
    }
}

} // namespace
