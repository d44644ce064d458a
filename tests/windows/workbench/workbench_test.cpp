// RegvaneWorkbench.exe as people and scripts run it: a script drives the MBI5153 page, chips
// persist in the profile across runs, damaged save files and bad scripts are reported, the pictures
// of the pages are written, an extended page runs on the chip it extends, and descriptions are checked
// and drawn as a chip engineer's designer does (the layouts are made up; none describes a real chip).
#include "WorkbenchProcess.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::wstring Quote(const std::wstring& path) {
    return L"\"" + path + L"\"";
}

// A headless run of the MBI5153 page (chip type 47) with the test's profile.
std::wstring OnMbi5153(const TempFolder& profile) {
    return L"--headless --type 47 --profile " + Quote(profile.Path()) + L" --screenshot " +
           Quote(profile.File(L"page.png"));
}

// A register image as the run prints it, with the mark under the byte the last action changed.
std::string Marked(const std::string& image, int byte) {
    return image + "\r\n  " + std::string(13 + byte * 3, ' ') + "^^\r\n";
}

TEST(Workbench, AScriptDrivesTheMbi5153PageAndPrintsTheRegisterImages) {
    TempFolder profile;
    const WorkbenchRun run = RunWorkbench(
        OnMbi5153(profile) +
        L" --do \"slider 8123 20; click 8296; combo 8572 \\\"35ns\\\"; edit 1040 200; click 8055\"");
    ASSERT_EQ(run.status, 0u) << run.out << run.err;

    // Red gain 20 into byte 3, flag 8296 cleared in bytes 2, 4, 6, delay step 7 in bytes 9, 11, 13.
    EXPECT_EQ(run.Line("regData "), "regData      00 00 5f 14 5f 2b 5f 2b 42 0e 62 0e 62 0e 00 21");
    // Edit 1040 is byte 9 of the 20-byte record, and was the last change.
    EXPECT_NE(run.out.find(Marked("regData4     00 00 00 00 00 00 00 00 00 c8 02 01 02 01 00 00", 9)),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("> slider 8123 20    (--do action 1)"), std::string::npos);
    EXPECT_NE(run.out.find("    SetRegData 00 00 df 14 df 2b df 2b 42 00 62 00 62 00 00 21"),
              std::string::npos);
    EXPECT_NE(run.out.find("    frame received 0x0904(12, 1)"), std::string::npos) << run.out;

    EXPECT_GT(PngWidth(ReadFileBytes(profile.File(L"page.png"))), 100) << "the page's picture";
}

TEST(Workbench, TheChipPersistsAcrossRunsUntilResetAndTheHostsChangesReachThePage) {
    TempFolder profile;
    const WorkbenchRun first = RunWorkbench(OnMbi5153(profile) + L" --do \"slider 8124 10\"");
    ASSERT_EQ(first.status, 0u) << first.out << first.err;
    EXPECT_NE(first.out.find("start values"), std::string::npos);
    // Saved whole and put in place: no temporary file is left behind.
    EXPECT_EQ(profile.Files(L"chip-47*"), std::vector<std::wstring>{L"chip-47.txt"});

    // The host changes a byte behind the page's back, then tells it to read the chip again.
    const WorkbenchRun second = RunWorkbench(OnMbi5153(profile) + L" --do \"poke regData 9 0e; reread\"");
    ASSERT_EQ(second.status, 0u) << second.out << second.err;
    EXPECT_NE(second.out.find("saved images from"), std::string::npos) << second.out;
    const std::size_t poked = second.out.find("    host wrote 0e into regData at 9");
    const std::size_t sent = second.out.find("    host sent 0x0903 (read the chip again)", poked);
    EXPECT_NE(sent, std::string::npos) << second.out;
    EXPECT_NE(second.out.find("    GetRegData 00 00 df 2b df 0a df 2b 42 0e", sent), std::string::npos);
    EXPECT_NE(second.out.find(Marked("regData      00 00 df 2b df 0a df 2b 42 0e 62 00 62 00 00 21", 9)),
              std::string::npos)
        << second.out;

    const WorkbenchRun reset = RunWorkbench(OnMbi5153(profile) + L" --reset");
    ASSERT_EQ(reset.status, 0u) << reset.out << reset.err;
    EXPECT_EQ(reset.Line("regData "), "regData      00 00 df 2b df 2b df 2b 42 00 62 00 62 00 00 21");
}

TEST(Workbench, ADamagedSaveFileIsReportedAndSetAsideAndTheChipStartsOver) {
    TempFolder profile;
    const std::string damaged = "format 1\ntype 47\nregData zz\n";
    WriteFileBytes(profile.File(L"chip-47.txt"), damaged);
    const WorkbenchRun run = RunWorkbench(OnMbi5153(profile) + L" --do \"slider 8123 21\"");
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(
        run.err.find("chip-47.txt is damaged (line 3: 'zz' in regData is not a two-digit hexadecimal byte)"),
        std::string::npos)
        << run.err;
    EXPECT_NE(run.err.find("set aside as chip-47.txt.damaged-"), std::string::npos) << run.err;
    const std::vector<std::wstring> setAside = profile.Files(L"chip-47.txt.damaged-*");
    ASSERT_EQ(setAside.size(), 1u);
    EXPECT_EQ(ReadFileBytes(profile.File(setAside[0])), damaged);

    EXPECT_EQ(run.Line("regData "), "regData      00 00 df 15 df 2b df 2b 42 00 62 00 62 00 00 21");
    EXPECT_NE(ReadFileBytes(profile.File(L"chip-47.txt")).find("regData 00 00 df 15"), std::string::npos);
}

TEST(Workbench, ABadScriptOptionOrChipTypeStopsTheRunBeforeAnythingHappens) {
    TempFolder profile;
    WriteFileBytes(profile.File(L"bad.txt"), "slider 8123 20\nslidr 8124 20\n");
    const struct {
        std::wstring arguments;
        const char* error;
    } runs[] = {
        {OnMbi5153(profile) + L" --script " + Quote(profile.File(L"bad.txt")),
         "error: bad.txt line 2: unknown action 'slidr'"},
        {L"--headless --type 2 --profile " + Quote(profile.Path()), "there is no chip type 2"},
        {OnMbi5153(profile) + L" --colour red", "unknown option --colour"},
    };
    for (const auto& bad : runs) {
        const WorkbenchRun run = RunWorkbench(bad.arguments);
        EXPECT_EQ(run.status, 1u);
        EXPECT_NE(run.err.find(bad.error), std::string::npos) << run.err;
    }
    EXPECT_EQ(profile.Files(L"chip-*").size() + profile.Files(L"*.png").size(), 0u); // line 1 did not run
}

TEST(Workbench, AnActionThePageCannotTakeStopsTheRunWithItsReason) {
    TempFolder profile;
    const struct {
        const wchar_t* actions;
        const char* error;
    } runs[] = {
        {L"slider 8123 30; click 4242; slider 8124 30", "--do action 2: the page has no control 4242"},
        {L"slider 8025 3", "control 8025 is a button, not a slider"},
        {L"combo 8572 \\\"40ns\\\"", "has no item \"40ns\" (items: \"0ns\", \"5ns\""},
    };
    for (const auto& bad : runs) {
        const WorkbenchRun run = RunWorkbench(OnMbi5153(profile) + L" --do \"" + bad.actions + L"\"");
        EXPECT_EQ(run.status, 4u);
        EXPECT_NE(run.err.find(bad.error), std::string::npos) << run.err;
        // What ran before the bad action stays done and saved; nothing after it runs.
        EXPECT_EQ(run.Line("regData "), "regData      00 00 df 1e df 2b df 2b 42 00 62 00 62 00 00 21");
    }
}

TEST(Workbench, AllPagesWritesAPictureOfEveryPageAndAnIndex) {
    TempFolder folder;
    const WorkbenchRun run = RunWorkbench(L"--all-pages " + Quote(folder.Path()) + L" --types 196,47");
    EXPECT_EQ(run.status, 0u) << run.out << run.err;
    // Type 47 lists two pages (most sub-types, and 138), type 196 one.
    const std::string index = ReadFileBytes(folder.File(L"index.html"));
    for (const std::string name :
         {"00047-CRegvaneMbi5153.png", "00047-138-CRegvane_SM16159.png", "00196-CRegvaneMbi5153.png"}) {
        EXPECT_GT(PngWidth(ReadFileBytes(folder.File(std::wstring(name.begin(), name.end())))), 100) << name;
        EXPECT_NE(index.find("src=\"" + name + "\""), std::string::npos) << name;
    }
    for (const char* line : {"[1/3] 47 ", "[2/3] 47/138 ", "[3/3] 196 ", "3 pictures in "})
        EXPECT_NE(run.out.find(line), std::string::npos) << line << "\n" << run.out;
    EXPECT_EQ(run.out.find(" no page"), std::string::npos) << run.out;
}

// The ICN2055EX page is opened for an ICN2055 (chip type 193): its Export proposes the ICN2055's
// file, which holds the 45 rows of that chip's table, not an unknown chip's.
TEST(Workbench, TheIcn2055ExPageRunsOnAnIcn2055AndExportsItsTable) {
    TempFolder work;
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 65536+13 --profile \"" + work.Path() + L"\" --screenshot \"" +
                         work.File(L"page.png") + L"\" --do \"click 8701\"",
                     work.Path());
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.out.find("CRegvaneICN2055EX (ICN2055 of chip type 193)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("The parameter file has been saved."), std::string::npos) << run.out;

    // Headless, the save dialog is answered with the name it proposes, in the working folder.
    std::istringstream file(ReadFileBytes(work.File(L"ChipICN2055Param.csv")));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    // What the file's lines hold is the parameter-file tests'; here the rows are the ICN2055's.
    ASSERT_EQ(lines.size(), 2u + 45u);
    // The simulated chip starts from a table with a value in every cell.
    for (std::size_t row = 2; row < lines.size(); ++row)
        EXPECT_EQ(lines[row].find(",0x00"), std::string::npos) << lines[row];
}

// The page class of the SUM2018 (chip type 7), which has no description of its own.
std::string Description(int byte, int id) {
    return "[page]\nclass = CRegvane_SUM2018\n\n[field test]\nlabel = \"Test byte\"\nbits = " +
           std::to_string(byte) + "[7:0]\ncontrol = number\nids = " + std::to_string(id) + "\n";
}

TEST(Workbench, ChecksDescriptionsAndDrawsOneHeadlessOnTheChipOfItsClass) {
    TempFolder folder;
    const std::wstring good = folder.File(L"CRegvane_SUM2018.desc");
    const std::wstring bad = folder.File(L"bad.desc");
    WriteFileBytes(good, Description(4, 500));
    // Byte 16 of a 16-byte block, and a control there is none of: each told on a line of its own.
    WriteFileBytes(bad,
                   Description(16, 500) + "[field more]\nlabel = \"More\"\nbits = 5[7:0]\ncontrol = knob\n");
    const WorkbenchRun check = RunWorkbench(L"--check-description \"" + good + L"\" \"" + bad + L"\"");
    EXPECT_EQ(check.status, 6u) << check.out << check.err;
    EXPECT_NE(check.out.find("CRegvane_SUM2018.desc: ok"), std::string::npos) << check.out;
    const auto second = check.out.find("bad.desc:12:11: \"knob\"", check.out.find("bad.desc:6: byte 16"));
    EXPECT_NE(second, std::string::npos) << check.out;
    EXPECT_EQ(RunWorkbench(L"--check-description \"" + good + L"\"").status, 0u);

    const WorkbenchRun run =
        RunWorkbench(L"--headless --describe \"" + good + L"\" --profile \"" + folder.Path() +
                     L"\" --screenshot \"" + folder.File(L"page.png") + L"\" --do \"edit 500 9\"");
    EXPECT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.Line("description ").find("CRegvane_SUM2018 on chip type 7"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("SetRegData 00 00 00 2b 09 2b"), std::string::npos) << run.out;
    EXPECT_GT(PngWidth(ReadFileBytes(folder.File(L"page.png"))), 0);
}

} // namespace
