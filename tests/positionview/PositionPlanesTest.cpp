// The position window's geometry, plane by plane: where a world point lands (single precision, then
// truncated, around integer halves), the way back with the third axis untouched, and the turn of "at"
// by a drag of its handle. The window's own suite reads the drawing, the handle and the hits.
#include "positionview/PositionPlanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace {

constexpr ViewBox kBox{8, 8, 420, 420}; // centre (218, 218) on the screen

struct PlaneCase {
    std::int32_t plane;
    ViewPixel source;    // where (2, 1, 1) lands at 20 pixels a unit
    int untouchedAxis;   // the axis a drag leaves as it was
};

constexpr PlaneCase kPlanes[] = {
    {PlaneTop, {218 + 40, 218 + 20}, 1},
    {PlaneSide, {218 - 20, 218 - 20}, 0},
    {PlaneRear, {218 + 40, 218 - 20}, 2},
};

TEST(PositionPlanes, EachPlaneMapsThereAndBackAndLeavesItsThirdAxisBitForBit)
{
    for (const PlaneCase& c : kPlanes) {
        SCOPED_TRACE(c.plane);
        const float source[3] = {2, 1, 1};
        const ViewPixel at = WorldToScreen(c.plane, 20.0f, source, kBox);
        EXPECT_EQ(at.x, c.source.x);
        EXPECT_EQ(at.y, c.source.y);

        // Back from that pixel: the plane's two axes come back, the third is copied as it was, even a
        // negative zero that any arithmetic would turn positive.
        float old[3] = {7, 7, 7};
        old[c.untouchedAxis] = -0.0f;
        float back[3] = {};
        ScreenToWorld(c.plane, 20.0f, at, kBox, old, back);
        for (int axis = 0; axis < 3; ++axis) {
            if (axis == c.untouchedAxis)
                EXPECT_EQ(std::memcmp(&back[axis], &old[axis], sizeof(float)), 0);
            else
                EXPECT_FLOAT_EQ(back[axis], source[axis]) << axis;
        }
    }
}

TEST(PositionPlanes, PixelsAreTruncatedAfterTheCentreIsAddedAndTheCentreIsAnIntegerHalf)
{
    // The centre of 421 is 210; 210 - 1.2 = 208.8 is truncated as a whole, to 208 (not 210 - 1).
    const float left[3] = {-0.06f, 0, 0};
    EXPECT_EQ(WorldToScreen(PlaneTop, 20.0f, left, {0, 0, 421, 421}).x, 208);
    const float right[3] = {0.06f, 0, 0};
    EXPECT_EQ(WorldToScreen(PlaneTop, 20.0f, right, {0, 0, 421, 421}).x, 211);
    // A handle offset of 0.9 pixel is none; -0.9 is none either.
    const float slight[3] = {0.036f, 0, -0.036f};
    const ViewPixel handle = OrientationHandle(PlaneTop, slight, {50, 50});
    EXPECT_EQ(handle.x, 50);
    EXPECT_EQ(handle.y, 50);
    // A position no screen could show stays a finite pixel far outside.
    const float far[3] = {3e38f, NAN, 0};
    EXPECT_GT(WorldToScreen(PlaneRear, 100.0f, far, kBox).x, 100000);
    EXPECT_LT(WorldToScreen(PlaneRear, 100.0f, far, kBox).y, -100000);
}

TEST(PositionPlanes, TurningTheHandleKeepsTheInPlaneLengthAndTheComponentAcross)
{
    struct TurnCase {
        std::int32_t plane;
        int ex, ey;
        float at[3];
        float expected[3];
    };
    const TurnCase cases[] = {
        {PlaneTop, 30, 0, {0, 0, -1}, {1, 0, 0}},
        {PlaneTop, 0, 10, {0, 0.5f, 2}, {0, 0.5f, -2}},         // up the screen is -z
        {PlaneSide, -5, 0, {0.25f, 0, -1}, {0.25f, 0, 1}},       // left is +z
        {PlaneRear, 3, 4, {0, 5, 0.75f}, {3, 4, 0.75f}},
    };
    for (const TurnCase& c : cases) {
        SCOPED_TRACE(c.plane);
        float turned[3] = {};
        TurnOrientation(c.plane, c.ex, c.ey, c.at, turned);
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(turned[axis], c.expected[axis], 1e-6) << axis;
    }
    // On the listener's own pixel the direction is 0 / 0: not a number, passed on as it is.
    const float at[3] = {0, 0, -1};
    float turned[3] = {};
    TurnOrientation(PlaneTop, 0, 0, at, turned);
    EXPECT_TRUE(std::isnan(turned[0]) && std::isnan(turned[2]));
    EXPECT_EQ(turned[1], 0.0f);
}

} // namespace
