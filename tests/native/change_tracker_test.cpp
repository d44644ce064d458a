// The change test the chip pages share, against the simulated host: what it reads each time, which
// bytes count, what Cancel puts back, and how the host is told. Which records each page covers is held
// by the pages' own tests and traces.
#include "dialogs/common/ChangeTracker.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Calls = std::vector<std::string>;

TEST(ChangeTracker, ReadsEveryCoveredRecordAndComparesAndRestoresOnlyTheCoveredBytes) {
    SimulatedChip chip;
    chip.regDataEx.fill(0x11);
    chip.sliderValue = 5;
    const CChangeTracker changes(&chip,
                                 {HostRecord::Block, {HostRecord::RecordA, 4}, HostRecord::SliderValue});
    const Calls reads{"GetRegData", "GetRegDataEx", "GetSliderValue"};
    EXPECT_EQ(chip.CallNames(), reads);

    // Record A beyond its first four bytes, and a record not covered at all.
    chip.regDataEx[4] = 0x22;
    chip.regData3[0] = 0x33;
    chip.ClearLog();
    EXPECT_FALSE(changes.ChipDiffers());
    EXPECT_EQ(chip.CallNames(), reads);

    // The first record differing does not spare the host the other reads.
    chip.regData[0] = 0x44;
    chip.ClearLog();
    EXPECT_TRUE(changes.ChipDiffers());
    EXPECT_EQ(chip.CallNames(), reads);
    chip.regData[0] = 0;
    chip.sliderValue = 6;
    EXPECT_TRUE(changes.ChipDiffers());

    // The block goes back whole, record A's first bytes into what it holds now; the host value is
    // never written.
    chip.regDataEx[1] = 0x55;
    chip.regData[0] = 0x44;
    chip.ClearLog();
    changes.Restore();
    EXPECT_EQ(chip.CallNames(), (Calls{"SetRegData", "GetRegDataEx", "SetRegDataEx"}));
    EXPECT_EQ(chip.regData[0], 0);
    EXPECT_EQ(chip.regDataEx[1], 0x11);
    EXPECT_EQ(chip.regDataEx[4], 0x22);
}

// A change is marked, and the host's state updated always or (either-one pages) only when nothing changed.
TEST(ChangeTracker, TellsTheHostOfAChangeAsThePageAsks) {
    SimulatedChip chip;
    const CChangeTracker changes(&chip, {HostRecord::Block});
    const struct {
        bool differs, eitherOne;
        Calls heard;
    } cases[] = {{true, false, {"MarkModified", "UpdateHostState"}},
                 {false, false, {"UpdateHostState"}},
                 {true, true, {"MarkModified"}},
                 {false, true, {"UpdateHostState"}}};
    for (const auto& c : cases) {
        chip.ClearLog();
        changes.Notify(c.differs, c.eitherOne);
        EXPECT_EQ(chip.CallNames(), c.heard) << c.differs << c.eitherOne;
    }
}

} // namespace
