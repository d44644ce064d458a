// FM612x read-outs: the texts an operator compares with the chip documentation.
#include "dialogs/chips/fm612x/Fm612xReadouts.h"

#include <gtest/gtest.h>

namespace {

using namespace fm612x;

TEST(Fm612xReadouts, GainSliderPagesShowPercentFractionAndCurrent) {
    EXPECT_EQ(FormatGain6Percent(63), L"100%");
    EXPECT_EQ(FormatGain6Percent(60), L"95%");
    EXPECT_EQ(FormatGain6Percent(15), L"25%");
    EXPECT_EQ(FormatGain6Percent(0), L"2%");

    CurrentReadout full = Gain6Readout(63, 1000.0f);
    EXPECT_EQ(full.fraction, L"1.0");
    EXPECT_EQ(full.current, L"1.00 mA");
    CurrentReadout half = Gain6Readout(31, 250.0f);
    EXPECT_EQ(half.fraction, L"0.5");
    EXPECT_EQ(half.current, L"2.00 mA");
    // 61 x 1.5625 % = 0.953125, kept to three places before the current is taken from it.
    EXPECT_EQ(Gain6Readout(60, 0.3f).current, L"3176.67 mA");
    EXPECT_EQ(Gain6Readout(60, 0.0f).current, L"0.00 mA");
}

TEST(Fm612xReadouts, ExtendedAndLargeBlockPagesFormatTheirSteps) {
    EXPECT_EQ(FormatFm6126ExGain(0), L"1");
    EXPECT_EQ(FormatFm6126ExGain(15), L"16");
    EXPECT_EQ(FormatFm6128Gain(127), L"99.06%");
    EXPECT_EQ(FormatFm6128Gain(0), L"0.00%");
    EXPECT_EQ(FormatFm6128Gain(64), L"49.92%");
    EXPECT_EQ(FormatNanoseconds(Fm6128ExBlankingNanoseconds(0)), L"40ns");
    EXPECT_EQ(FormatNanoseconds(Fm6128ExBlankingNanoseconds(15)), L"640ns");
}

TEST(Fm612xReadouts, Fm6129RunsFromOneAndAHalfToOneHundredPercent) {
    EXPECT_EQ(FormatFm6129Percent(0), L"2%");
    EXPECT_EQ(FormatFm6129Percent(32), L"52%");
    EXPECT_EQ(FormatFm6129Percent(63), L"100%");
    EXPECT_NEAR(Fm6129Percent(63), 100.0, 1e-9);

    const CurrentReadout full = Fm6129Readout(63, Fm6129Divisor(1000.0f));
    EXPECT_EQ(full.fraction, L"100.0");
    EXPECT_EQ(full.current, L"18.00 mA");
    const CurrentReadout low = Fm6129Readout(10, Fm6129Divisor(2000.0f));
    EXPECT_EQ(low.fraction, L"17.2"); // 10 x 98.44 / 63 + 1.56 = 17.185
    EXPECT_EQ(low.current, L"1.55 mA");
    EXPECT_EQ(Fm6129Readout(63, 0.0f).current, L"0.00 mA");
}

} // namespace
