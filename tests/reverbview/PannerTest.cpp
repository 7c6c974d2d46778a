// The pan vector on the round display: angles from points, lengths from distances, vectors both ways,
// and the ends of the arc.
#include "reverbview/Panner.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A display of 140 pixels: centre 70, 70, hub 7, rim 70; a span of 63 pixels.
Panner Make()
{
    return Panner(70, 70, 7, 70);
}

TEST(Panner, AnglesFromPointsRunClockwiseFromUpInWholeDegrees)
{
    struct Case {
        int dx, dy, angle;
    };
    const Case cases[] = {
        {0, -10, 0},  {0, 10, 180},   {10, 0, 90},   {-10, 0, 270}, {0, 0, 0},      {10, -10, 45},
        {10, 10, 135}, {-10, 10, 225}, {-10, -10, 315}, {10, -1, 85},  {-30, 1, 269},
    };
    for (const Case& c : cases) {
        Panner panner = Make();
        panner.SetAngleFromPoint(70 + c.dx, 70 + c.dy);
        EXPECT_EQ(panner.Angle, c.angle) << c.dx << ", " << c.dy;
        EXPECT_EQ(panner.LastX, c.dx);
        EXPECT_EQ(panner.LastY, c.dy);
    }
}

TEST(Panner, LengthIsTheDistanceBeyondTheHubOverTheSpanHeldToZeroAndOne)
{
    struct Case {
        int distance;
        int offset;
        int arcWidth;
    };
    const Case cases[] = {{0, 0, 360}, {7, 0, 360}, {38, 31, 182}, {70, 63, 0}, {200, 63, 0}};
    for (const Case& c : cases) {
        Panner panner = Make();
        panner.SetMagnitudeFromPoint(70, 70 - c.distance);
        EXPECT_EQ(panner.Offset, c.offset) << c.distance;
        EXPECT_DOUBLE_EQ(panner.Magnitude, c.offset / 63.0);
        EXPECT_EQ(panner.ArcWidth, c.arcWidth);
    }
    // A new panner stands beyond its rim: length 1.
    EXPECT_DOUBLE_EQ(Make().Magnitude, 1.0);
}

TEST(Panner, VectorsFromTheEngineGiveAngleAndWidthWithTheirTruncations)
{
    struct Case {
        float x, z;
        int angle, arcWidth;
    };
    const Case cases[] = {
        {0, 0, 0, 360},  // no direction: a closed ring pointing up
        {0, 1, 1, 0},    // up, but the float pi leaves 89.99 degrees, cut to 89
        {1, 0, 90, 0},   {-1, 0, 270, 0}, {0, -1, 179, 0}, {0.5f, 0, 90, 180},
        {1, 1, 46, -149}, // longer than 1, as two pan knobs at 1 make it: what the arithmetic gives
    };
    for (const Case& c : cases) {
        Panner panner = Make();
        const float vector[3] = {c.x, 0.7f, c.z}; // y plays no part
        panner.SetVector(vector);
        EXPECT_EQ(panner.Angle, c.angle) << c.x << ", " << c.z;
        EXPECT_EQ(panner.ArcWidth, c.arcWidth) << c.x << ", " << c.z;
    }
}

TEST(Panner, TheVectorSentPointsAlongTheAngleWithTheLengthAndARoundTripMayLoseADegree)
{
    Panner panner = Make();
    panner.SetMagnitudeFromPoint(70 + 38, 70);
    panner.SetAngleFromPoint(70 + 10, 70 - 10);
    float vector[3];
    panner.GetVector(vector);
    const double m = 31 / 63.0;
    EXPECT_NEAR(vector[0], std::sin(45 * 3.1415926535 / 180) * m, 1e-6);
    EXPECT_EQ(vector[1], 0.0f);
    EXPECT_NEAR(vector[2], std::cos(45 * 3.1415926535 / 180) * m, 1e-6);

    int lost = 0;
    for (int angle = 0; angle < 360; angle += 7) {
        Panner there = Make();
        there.Angle = angle;
        there.GetVector(vector);
        there.SetVector(vector);
        EXPECT_LE(std::abs(there.Angle - angle) % 359, 1) << angle;
        lost += there.Angle != angle;
    }
    EXPECT_GT(lost, 0);
}

TEST(Panner, ArcEndsComeBackIntoTheCircleButThreeSixtyStays)
{
    struct Case {
        int angle, width, start, end;
    };
    const Case cases[] = {{10, 40, 350, 30}, {350, 40, 330, 10}, {180, 360, 0, 360}, {90, 0, 90, 90}, {0, 1, 0, 0}};
    for (const Case& c : cases) {
        Panner panner = Make();
        panner.Angle = c.angle;
        panner.ArcWidth = c.width;
        int start = -1;
        int end = -1;
        panner.GetArcEnds(start, end);
        EXPECT_EQ(start, c.start) << c.angle << " " << c.width;
        EXPECT_EQ(end, c.end) << c.angle << " " << c.width;
    }
}

} // namespace
