// The knob's linear law, the millibels of the response record and the position window's range.

#include "values/CConvertNumeric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

TEST(LinearRange, FractionsAndValuesMapBothWaysStopAtTheEndsAndEqualEndsGiveNotANumber)
{
    CConvertNumericToLinearRange converter;
    converter.Low = -180;
    converter.High = 180;
    EXPECT_DOUBLE_EQ(converter.ToLinear(0), 0.5);
    EXPECT_DOUBLE_EQ(converter.ToLinear(-90), 0.25);
    EXPECT_DOUBLE_EQ(converter.ToLinear(-181), 0.0);
    EXPECT_DOUBLE_EQ(converter.ToLinear(181), 1.0);
    EXPECT_DOUBLE_EQ(converter.FromLinear(0.75), 90);
    EXPECT_DOUBLE_EQ(converter.FromLinear(-0.5), -180);
    EXPECT_DOUBLE_EQ(converter.FromLinear(1.5), 180);

    converter.Low = 0.126;
    converter.High = 7.943;
    for (double fraction : {0.0, 0.3, 0.61, 1.0})
        EXPECT_NEAR(converter.ToLinear(converter.FromLinear(fraction)), fraction, 1e-12);

    // Equal ends give not a number, inside and outside.
    converter.Low = 2;
    converter.High = 2;
    for (double value : {1, 2, 3})
        EXPECT_TRUE(std::isnan(converter.ToLinear(value))) << value;
    EXPECT_DOUBLE_EQ(converter.FromLinear(0.4), 2);
}

// Truncated, not rounded: ln(0.32) * 868.589 is -989.6, ln(3.5) * 868.589 is 1088.1.
TEST(Millibels, GainsBecomeTruncatedMillibelsWithAFloorAtMinusTenThousand)
{
    const std::pair<float, int> cases[] = {
        {1.0f, 0}, {0.1f, -2000}, {10.0f, 2000}, {0.0f, -10000}, {0.00001f, -10000}, {-3.0f, -10000},
        {0.32f, -989}, {3.5f, 1088}, {0.994f, -5},
    };
    for (const auto& [level, millibels] : cases)
        EXPECT_EQ(LevelToMillibels(level), millibels) << level;
}

TEST(PositionRange, TheScaleOfThePositionWindowGivesTheExtent)
{
    EXPECT_DOUBLE_EQ(PositionRangeExtent(20), 20);
    EXPECT_DOUBLE_EQ(PositionRangeExtent(100), 4);
    EXPECT_DOUBLE_EQ(PositionRangeExtent(1), 400);
    EXPECT_NEAR(PositionRangeExtent(30), 13.3333, 1e-4);
}
