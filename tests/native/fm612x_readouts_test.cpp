// FM612x read-outs at the ends of their ranges and where rounding decides; the values in between are
// held by the Windows FM612x page tests.
#include "descriptions/DescriptionReadouts.h"
#include "readouts/Fm612xReadouts.h"

#include <gtest/gtest.h>

namespace {

using namespace fm612x;

TEST(Fm612xReadouts, RangesEndsRoundingAndAZeroReference) {
    EXPECT_EQ(chipdesc::FormatReadout("gain6-percent", 0), L"2%"); // a description names it so
    EXPECT_EQ(FormatGain6Percent(15), L"25%");
    // 61 x 1.5625 % = 0.953125, kept to three places before the current is taken from it.
    EXPECT_EQ(Gain6Readout(60, 0.3f).current, L"3176.67 mA");
    EXPECT_EQ(Gain6Readout(60, 0.0f).current, L"0.00 mA");
    const CurrentReadout half = Gain6Readout(31, 250.0f);
    EXPECT_EQ(half.fraction, L"0.5");
    EXPECT_EQ(half.current, L"2.00 mA");

    EXPECT_EQ(FormatFm6126ExGain(15), L"16");
    EXPECT_EQ(FormatFm6128Gain(0), L"0.00%");
    EXPECT_EQ(FormatNanoseconds(Fm6128ExBlankingNanoseconds(0)), L"40ns");
    EXPECT_EQ(FormatNanoseconds(Fm6128ExBlankingNanoseconds(15)), L"640ns");

    EXPECT_EQ(FormatFm6129Percent(0), L"2%");
    const CurrentReadout low = Fm6129Readout(10, Fm6129Divisor(2000.0f));
    EXPECT_EQ(low.current, L"1.55 mA"); // (10 x 98.44 / 63 + 1.56) x 18 / 200000 x 1000 = 1.547
    EXPECT_EQ(chipdesc::FormatCurrent("fm6129", 63, 0)->current, L"0.00 mA");
}

} // namespace
