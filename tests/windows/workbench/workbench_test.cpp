// RegvaneWorkbench.exe as people and scripts run it: a script drives the MBI5153 page, chips
// persist in the profile across runs, damaged save files and bad scripts are reported, and the
// pictures of the pages are written.
#include "WorkbenchProcess.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>

namespace {

// The MBI5153 page comes from another part of the module; without it there is nothing to drive.
#define SKIP_IF_NO_PAGE(run)                                                                                 \
    if ((run).status == 3 && (run).err.find("gives no page") != std::string::npos)                           \
    GTEST_SKIP()                                                                                             \
        << "regvane.dll gives no page for chip type 47 yet, so the workbench has no page to drive: "         \
        << (run).err

std::wstring Quote(const std::wstring& path) {
    return L"\"" + path + L"\"";
}

// Width and height from a PNG's header.
std::pair<std::uint32_t, std::uint32_t> PngSize(const std::string& png) {
    auto word = [&](std::size_t at) {
        return (std::uint32_t(std::uint8_t(png[at])) << 24) |
               (std::uint32_t(std::uint8_t(png[at + 1])) << 16) |
               (std::uint32_t(std::uint8_t(png[at + 2])) << 8) | std::uint32_t(std::uint8_t(png[at + 3]));
    };
    if (png.size() < 24 || png.compare(0, 8, "\x89PNG\r\n\x1A\n") != 0 || png.compare(12, 4, "IHDR") != 0)
        return {0, 0};
    return {word(16), word(20)};
}

TEST(Workbench, AScriptDrivesTheMbi5153PageAndPrintsTheRegisterImages) {
    TempFolder profile;
    const std::wstring picture = profile.File(L"page.png");
    const WorkbenchRun run = RunWorkbench(
        L"--headless --type 47 --profile " + Quote(profile.Path()) + L" --screenshot " + Quote(picture) +
        L" --do \"slider 8123 20; click 8296; combo 8572 \\\"35ns\\\"; edit 1040 200; click 8055\"");
    SKIP_IF_NO_PAGE(run);
    ASSERT_EQ(run.status, 0u) << run.out << run.err;

    // Red gain 20 into byte 3, flag 8296 cleared in bytes 2, 4, 6, delay step 7 in bytes 9, 11, 13.
    EXPECT_EQ(run.Line("regData "), "regData      00 00 5f 14 5f 2b 5f 2b 42 0e 62 0e 62 0e 00 21");
    // Edit 1040 is byte 9 of the 20-byte record, and was the last change.
    EXPECT_EQ(run.Line("regData4 "), "regData4     00 00 00 00 00 00 00 00 00 c8 02 01 02 01 00 00");
    EXPECT_NE(run.out.find("regData4     00 00 00 00 00 00 00 00 00 c8 02 01 02 01 00 00\r\n  " +
                           std::string(13 + 9 * 3, ' ') + "^^\r\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("> slider 8123 20    (--do action 1)"), std::string::npos);
    EXPECT_NE(run.out.find("    SetRegData 00 00 df 14 df 2b df 2b 42 00 62 00 62 00 00 21"),
              std::string::npos);
    EXPECT_NE(run.out.find("    MarkModified\r\n    UpdateHostState(1, 1)"), std::string::npos);
    EXPECT_NE(run.out.find("    frame received 0x0904(12, 1)"), std::string::npos) << run.out;

    // The picture is a PNG of the size the run reports.
    std::smatch size;
    ASSERT_TRUE(
        std::regex_search(run.out, size, std::regex(R"(screenshot .*page\.png \((\d+) x (\d+) pixels)")))
        << run.out;
    const auto [width, height] = PngSize(ReadFileBytes(picture));
    EXPECT_EQ(width, std::stoul(size[1]));
    EXPECT_EQ(height, std::stoul(size[2]));
    EXPECT_GT(width, 100u);
    EXPECT_GT(height, 100u);
}

TEST(Workbench, DefaultBringsBackTheChipAfterAGainMoveAsTheReadmeShows) {
    TempFolder profile;
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 47 --profile " + Quote(profile.Path()) + L" --screenshot " +
                     Quote(profile.File(L"page.png")) + L" --do \"slider 8123 20; click 8025\"");
    SKIP_IF_NO_PAGE(run);
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_NE(run.out.find("SetRegData 00 00 df 14 df 2b"), std::string::npos);
    // Default writes gain 43 back: the byte the gain move changed is the one marked.
    EXPECT_NE(run.out.find("regData      00 00 df 2b df 2b df 2b 42 00 62 00 62 00 00 21\r\n  " +
                           std::string(13 + 3 * 3, ' ') + "^^\r\n"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(run.Line("regDataEx "), "regDataEx    00 21 00 21 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(Workbench, AHostSideChangeReachesThePageWhenTheHostAsksItToReadAgain) {
    TempFolder profile;
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 47 --profile " + Quote(profile.Path()) + L" --screenshot " +
                     Quote(profile.File(L"page.png")) + L" --do \"poke regData 9 0e; reread\"");
    SKIP_IF_NO_PAGE(run);
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    const std::size_t poked = run.out.find("    host wrote 0e into regData at 9");
    const std::size_t sent = run.out.find("    host sent 0x0903 (read the chip again)", poked);
    const std::size_t read = run.out.find("    GetRegData 00 00 df 2b df 2b df 2b 42 0e", sent);
    EXPECT_NE(poked, std::string::npos) << run.out;
    EXPECT_NE(sent, std::string::npos) << run.out;
    EXPECT_NE(read, std::string::npos) << run.out;
    EXPECT_NE(run.out.find("regData      00 00 df 2b df 2b df 2b 42 0e 62 00 62 00 00 21\r\n  " +
                           std::string(13 + 9 * 3, ' ') + "^^\r\n"),
              std::string::npos)
        << run.out;
}

TEST(Workbench, TheChipPersistsAcrossRunsUntilReset) {
    TempFolder profile;
    const std::wstring common = L"--headless --type 47 --profile " + Quote(profile.Path()) +
                                L" --screenshot " + Quote(profile.File(L"page.png"));
    const WorkbenchRun first = RunWorkbench(common + L" --do \"slider 8124 10\"");
    SKIP_IF_NO_PAGE(first);
    ASSERT_EQ(first.status, 0u) << first.out << first.err;
    EXPECT_NE(first.out.find("start values"), std::string::npos);
    // Saved whole and put in place: no temporary file is left behind.
    EXPECT_EQ(profile.Files(L"chip-47*"), std::vector<std::wstring>{L"chip-47.txt"});

    const WorkbenchRun second = RunWorkbench(common);
    ASSERT_EQ(second.status, 0u) << second.out << second.err;
    EXPECT_NE(second.out.find("saved images from"), std::string::npos) << second.out;
    EXPECT_EQ(second.Line("regData "), "regData      00 00 df 2b df 0a df 2b 42 00 62 00 62 00 00 21");

    const WorkbenchRun reset = RunWorkbench(common + L" --reset");
    ASSERT_EQ(reset.status, 0u) << reset.out << reset.err;
    EXPECT_EQ(reset.Line("regData "), "regData      00 00 df 2b df 2b df 2b 42 00 62 00 62 00 00 21");
}

TEST(Workbench, ADamagedSaveFileIsReportedAndSetAsideAndTheChipStartsOver) {
    TempFolder profile;
    const std::string damaged = "format 1\ntype 47\nregData zz\n";
    WriteFileBytes(profile.File(L"chip-47.txt"), damaged);
    const WorkbenchRun run =
        RunWorkbench(L"--headless --type 47 --profile " + Quote(profile.Path()) + L" --screenshot " +
                     Quote(profile.File(L"page.png")) + L" --do \"slider 8123 21\"");
    // The file is dealt with before any page opens.
    EXPECT_NE(
        run.err.find("chip-47.txt is damaged (line 3: 'zz' in regData is not a two-digit hexadecimal byte)"),
        std::string::npos)
        << run.err;
    EXPECT_NE(run.err.find("set aside as chip-47.txt.damaged-"), std::string::npos) << run.err;
    const std::vector<std::wstring> setAside = profile.Files(L"chip-47.txt.damaged-*");
    ASSERT_EQ(setAside.size(), 1u);
    EXPECT_EQ(ReadFileBytes(profile.File(setAside[0])), damaged);

    SKIP_IF_NO_PAGE(run);
    ASSERT_EQ(run.status, 0u) << run.out << run.err;
    EXPECT_EQ(run.Line("regData "), "regData      00 00 df 15 df 2b df 2b 42 00 62 00 62 00 00 21");
    EXPECT_NE(ReadFileBytes(profile.File(L"chip-47.txt")).find("regData 00 00 df 15"), std::string::npos);
}

TEST(Workbench, ABadScriptOrChipTypeStopsTheRunBeforeAnythingHappens) {
    TempFolder profile;
    WriteFileBytes(profile.File(L"bad.txt"), "slider 8123 20\nslidr 8124 20\n");
    const WorkbenchRun badLine = RunWorkbench(L"--headless --type 47 --profile " + Quote(profile.Path()) +
                                              L" --script " + Quote(profile.File(L"bad.txt")));
    EXPECT_EQ(badLine.status, 1u);
    EXPECT_NE(badLine.err.find("error: bad.txt line 2: unknown action 'slidr'"), std::string::npos)
        << badLine.err;
    EXPECT_TRUE(profile.Files(L"chip-*").empty()); // line 1 did not run either

    const WorkbenchRun badType = RunWorkbench(L"--headless --type 2 --profile " + Quote(profile.Path()));
    EXPECT_EQ(badType.status, 1u);
    EXPECT_NE(badType.err.find("there is no chip type 2"), std::string::npos) << badType.err;

    const WorkbenchRun badOption = RunWorkbench(L"--headless --type 47 --colour red");
    EXPECT_EQ(badOption.status, 1u);
    EXPECT_NE(badOption.err.find("unknown option --colour"), std::string::npos) << badOption.err;
}

TEST(Workbench, AnActionThePageCannotTakeStopsTheRunWithItsReason) {
    TempFolder profile;
    const std::wstring common = L"--headless --type 47 --profile " + Quote(profile.Path()) +
                                L" --screenshot " + Quote(profile.File(L"page.png"));
    const WorkbenchRun noControl =
        RunWorkbench(common + L" --do \"slider 8123 30; click 4242; slider 8124 30\"");
    SKIP_IF_NO_PAGE(noControl);
    EXPECT_EQ(noControl.status, 4u);
    EXPECT_NE(noControl.err.find("--do action 2: the page has no control 4242"), std::string::npos)
        << noControl.err;
    // What ran before the bad action stays done and saved; nothing after it runs.
    EXPECT_EQ(noControl.Line("regData "), "regData      00 00 df 1e df 2b df 2b 42 00 62 00 62 00 00 21");

    const WorkbenchRun wrongKind = RunWorkbench(common + L" --do \"slider 8025 3\"");
    EXPECT_EQ(wrongKind.status, 4u);
    EXPECT_NE(wrongKind.err.find("control 8025 is a button, not a slider"), std::string::npos)
        << wrongKind.err;

    const WorkbenchRun noItem = RunWorkbench(common + L" --do \"combo 8572 \\\"40ns\\\"\"");
    EXPECT_EQ(noItem.status, 4u);
    EXPECT_NE(noItem.err.find("has no item \"40ns\" (items: \"0ns\", \"5ns\""), std::string::npos)
        << noItem.err;
}

TEST(Workbench, AllPagesWritesAPictureOfEveryPageAndAnIndex) {
    TempFolder folder;
    const WorkbenchRun run = RunWorkbench(L"--all-pages " + Quote(folder.Path()) + L" --types 196,47");
    const std::string index = ReadFileBytes(folder.File(L"index.html"));
    // Type 47 lists two pages (most sub-types, and 138), type 196 one: each has a picture or says why not.
    std::size_t pictures = 0, missing = 0;
    for (const std::wstring name :
         {L"00047-CRegvaneMbi5153.png", L"00047-138-CRegvane_SM16159.png", L"00196-CRegvaneMbi5153.png"}) {
        const std::string file(name.begin(), name.end());
        const std::string png = ReadFileBytes(folder.File(name));
        if (png.empty()) {
            ++missing;
            EXPECT_EQ(index.find(file), std::string::npos);
            continue;
        }
        ++pictures;
        EXPECT_GT(PngSize(png).first, 100u) << file;
        EXPECT_NE(index.find("src=\"" + file + "\""), std::string::npos) << file;
    }
    if (pictures == 0)
        GTEST_SKIP() << "regvane.dll gives none of these pages yet: " << run.out;
    EXPECT_NE(run.out.find("[1/3] 47 "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("[2/3] 47/138 "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("[3/3] 196 "), std::string::npos) << run.out;
    std::size_t noPageLines = 0;
    for (std::size_t at = run.out.find(" no page\r\n"); at != std::string::npos;
         at = run.out.find(" no page\r\n", at + 1))
        ++noPageLines;
    EXPECT_EQ(noPageLines, missing) << run.out;
    EXPECT_NE(run.out.find(std::to_string(pictures) + " pictures in "), std::string::npos) << run.out;
    EXPECT_EQ(run.status, missing ? 3u : 0u) << run.out << run.err;
}

} // namespace
