// RegvaneWorkbench.exe as people and scripts run it: a script drives the MBI5153 page, chips
// persist in the profile across runs, damaged save files and bad scripts are reported, and the
// pictures of the pages are written.
#include "WorkbenchProcess.h"

#include <gtest/gtest.h>

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

    EXPECT_GT(DecodePng(ReadFileBytes(profile.File(L"page.png"))).width, 100) << "the page's picture";
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
        EXPECT_GT(DecodePng(ReadFileBytes(folder.File(std::wstring(name.begin(), name.end())))).width, 100)
            << name;
        EXPECT_NE(index.find("src=\"" + name + "\""), std::string::npos) << name;
    }
    for (const char* line : {"[1/3] 47 ", "[2/3] 47/138 ", "[3/3] 196 ", "3 pictures in "})
        EXPECT_NE(run.out.find(line), std::string::npos) << line << "\n" << run.out;
    EXPECT_EQ(run.out.find(" no page"), std::string::npos) << run.out;
}

} // namespace
