#include "positionview/PositionPlanes.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr AxisMark kAxisMarks[] = {
    {"+X", {30, -10}, "+Z", {-10, 40}, 21, 20},
    {"+Z", {-30, -10}, "+Y", {-10, -40}, -21, -20},
    {"+X", {30, -10}, "+Y", {-10, -40}, 21, -20},
};

// An unknown plane draws and drags as the top one: the radios only ever set the three.
std::int32_t Known(std::int32_t plane)
{
    return plane == PlaneSide || plane == PlaneRear ? plane : PlaneTop;
}

// Truncation toward zero, as a conversion to int does, for values an int can hold; a position far out
// of the window (or not a number) would make that conversion undefined, so it stops at the edge of
// what a screen could ever show, which is just as invisible.
int Truncate(float value)
{
    constexpr float kFar = 1.0e8f;
    if (!(value > -kFar))
        return -static_cast<int>(kFar);
    if (value > kFar)
        return static_cast<int>(kFar);
    return static_cast<int>(value);
}

} // namespace

ViewPixel WorldToScreen(std::int32_t plane, float scale, const float position[3], const ViewBox& box)
{
    const int cx = box.width / 2;
    const int cy = box.height / 2;
    float x = 0;
    float y = 0;
    switch (Known(plane)) {
    case PlaneTop:
        x = static_cast<float>(cx) + scale * position[0];
        y = static_cast<float>(cy) + scale * position[2];
        break;
    case PlaneSide:
        x = static_cast<float>(cx) - scale * position[2];
        y = static_cast<float>(cy) - scale * position[1];
        break;
    case PlaneRear:
        x = static_cast<float>(cx) + scale * position[0];
        y = static_cast<float>(cy) - scale * position[1];
        break;
    }
    return {box.left + Truncate(x), box.top + Truncate(y)};
}

void ScreenToWorld(std::int32_t plane, float scale, ViewPixel point, const ViewBox& box, const float oldPosition[3],
                   float newPosition[3])
{
    const int dx = point.x - box.width / 2 - box.left;
    const int dy = box.height / 2 - (point.y - box.top);
    for (int axis = 0; axis < 3; ++axis)
        newPosition[axis] = oldPosition[axis];
    switch (Known(plane)) {
    case PlaneTop:
        newPosition[0] = static_cast<float>(dx) / scale;
        newPosition[2] = -(static_cast<float>(dy) / scale);
        break;
    case PlaneSide:
        newPosition[1] = static_cast<float>(dy) / scale;
        newPosition[2] = static_cast<float>(-dx) / scale;
        break;
    case PlaneRear:
        newPosition[0] = static_cast<float>(dx) / scale;
        newPosition[1] = static_cast<float>(dy) / scale;
        break;
    }
}

ViewPixel OrientationHandle(std::int32_t plane, const float at[3], ViewPixel listener)
{
    constexpr float kLength = kOrientationHandleLength;
    switch (Known(plane)) {
    case PlaneTop:
        listener.x += Truncate(at[0] * kLength);
        listener.y += Truncate(at[2] * kLength);
        break;
    case PlaneSide:
        listener.x += Truncate(at[2] * -kLength);
        listener.y += Truncate(at[1] * -kLength);
        break;
    case PlaneRear:
        listener.x += Truncate(at[0] * kLength);
        listener.y += Truncate(at[1] * -kLength);
        break;
    }
    return listener;
}

bool HitsPixel(ViewPixel press, ViewPixel object)
{
    return std::abs(press.x - object.x) < kHitDistance && std::abs(press.y - object.y) < kHitDistance;
}

void TurnOrientation(std::int32_t plane, int ex, int ey, const float at[3], float newAt[3])
{
    const double d = std::sqrt(static_cast<double>(ex) * ex + static_cast<double>(ey) * ey);
    const auto length = [](float a, float b) { return std::sqrt(static_cast<double>(a) * a + static_cast<double>(b) * b); };
    for (int axis = 0; axis < 3; ++axis)
        newAt[axis] = at[axis];
    switch (Known(plane)) {
    case PlaneTop: {
        const double l = length(at[0], at[2]);
        newAt[0] = static_cast<float>(ex / d * l);
        newAt[2] = static_cast<float>(-(ey / d * l));
        break;
    }
    case PlaneSide: {
        const double l = length(at[1], at[2]);
        newAt[1] = static_cast<float>(ey / d * l);
        newAt[2] = static_cast<float>(-(ex / d * l));
        break;
    }
    case PlaneRear: {
        const double l = length(at[0], at[1]);
        newAt[0] = static_cast<float>(ex / d * l);
        newAt[1] = static_cast<float>(ey / d * l);
        break;
    }
    }
}

const AxisMark& AxisMarkOf(std::int32_t plane)
{
    return kAxisMarks[Known(plane)];
}
