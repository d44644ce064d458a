// The file a simulated chip persists in: everything round-trips, and a damaged file is refused
// with its line and reason while the chip keeps its values.
#include "workbench/ChipPresets.h"
#include "workbench/ChipSaveFile.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

SimulatedChip ChangedChip() {
    SimulatedChip chip(309, 0);
    SetUpSimulatedChip(chip, 309, 0);
    chip.modelName = "ICND3065 rev B";
    chip.gainMin = -3;
    chip.gainMax = 255;
    chip.registerKind = 11;
    chip.count = 4000000000u;
    chip.chipParam = 65535;
    chip.sliderValue = -7;
    for (std::size_t i = 0; i < chip.regData.size(); ++i)
        chip.regData[i] = static_cast<std::uint8_t>(0xF0 + i);
    chip.regDataEx[15] = 0x01;
    chip.regData2[127] = 0xFF;
    chip.regData3[0] = 0x80;
    chip.regData4[19] = 0x7E;
    chip.icnd3069Rows = {{1, 2, 3, 4}};
    return chip;
}

// Everything the host can ask a chip for.
auto HostState(const SimulatedChip& c) {
    return std::tie(c.modelName, c.gainMin, c.gainMax, c.registerKind, c.count, c.chipParam, c.sliderValue,
                    c.regData, c.regDataEx, c.regData2, c.regData3, c.regData4, c.icnd3065Rows,
                    c.icnd3069Rows);
}

TEST(WorkbenchSaveFile, EveryImageAndHostValueRoundTrips) {
    const SimulatedChip saved = ChangedChip();
    const std::string text = FormatChipSaveFile(saved);

    SimulatedChip loaded(309, 0);
    SetUpSimulatedChip(loaded, 309, 0);
    loaded.icnd3069Rows.clear();
    const auto error = ReadChipSaveFile(text, loaded);
    ASSERT_FALSE(error) << error->ToString();
    EXPECT_EQ(HostState(saved), HostState(loaded));

    // Windows line ends, comments and blank lines, as an editor may leave them, read the same.
    std::string edited = "# edited by hand\r\n\r\n";
    for (char c : text)
        edited += c == '\n' ? std::string("\r\n") : std::string(1, c);
    SimulatedChip fromEdited(309, 0);
    ASSERT_FALSE(ReadChipSaveFile(edited, fromEdited));
    EXPECT_EQ(HostState(saved), HostState(fromEdited));
}

TEST(WorkbenchSaveFile, DamagedFilesAreRefusedWithLineAndReasonAndChangeNothing) {
    const std::string good = FormatChipSaveFile(ChangedChip());
    auto lineOf = [&](const std::string& start) {
        const std::size_t at = good.find("\n" + start);
        return 1 + static_cast<int>(std::count(good.begin(), good.begin() + at + 1, '\n'));
    };
    const std::string regData = "regData f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe ff";
    const struct {
        std::string from, to;
        int line;
        const char* reason;
    } damages[] = {
        {regData, "regData f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe", lineOf("regData "),
         "regData needs 16 bytes, found 15"},
        {regData, "regData f0 1", lineOf("regData "), "'1' in regData"},
        {"icnd3069Rows 01 02 03 04", "icnd3069Rows 01 02 03", lineOf("icnd3069Rows"),
         "whole rows of 4 bytes"},
        {"kind 11", "colour 11", lineOf("kind"), "unknown line 'colour'"},
        {"param 65535", "param 65536", lineOf("param"), "param needs one whole number"},
        {"type 309", "type 47", lineOf("type"), "for chip type 47, not 309"},
        {"kind 11\n", "kind 11\nkind 11\n", lineOf("kind") + 1, "kind appears twice"},
        {"\nend\n", "\n", 0, "ends early"},
        {"\nregData2 ", "\n# regData2 ", 0, "no regData2 line"},
        {"format 1", "format 2", lineOf("format"), "format 2 is not the format 1"},
        {"format 1", "<html>", lineOf("format"), "not a workbench chip file"},
        {"end\n", "end\nregData 00\n", lineOf("end") + 1, "after the 'end' line"},
    };
    for (const auto& damage : damages) {
        SCOPED_TRACE(damage.reason);
        std::string text = good;
        const std::size_t at = text.find(damage.from);
        ASSERT_NE(at, std::string::npos);
        text.replace(at, damage.from.size(), damage.to);

        SimulatedChip chip(309, 0);
        SetUpSimulatedChip(chip, 309, 0);
        const SimulatedChip before = chip;
        const auto error = ReadChipSaveFile(text, chip);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->line, damage.line) << error->ToString();
        EXPECT_NE(error->reason.find(damage.reason), std::string::npos) << error->ToString();
        EXPECT_EQ(HostState(before), HostState(chip));
    }
    SimulatedChip chip(309, 0);
    const auto empty = ReadChipSaveFile("", chip);
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->ToString(), "the file is empty");
}

} // namespace
