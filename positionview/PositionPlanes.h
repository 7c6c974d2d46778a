#pragma once

#include <cstdint>

// The geometry of the position window: how a point of the 3D world lands on one of three orthographic
// planes and back, where the listener's orientation handle stands, and how dragging that handle turns
// the listener's "at" vector. No window system: the window draws and reads the mouse, this decides
// where. Screen x grows to the right and y downwards.

enum PositionPlane : std::int32_t {
    PlaneTop = 0,  // (X, Z): +z down the screen
    PlaneSide = 1, // (Y, Z): +z to the left, +y up
    PlaneRear = 2, // (X, Y): +x to the right, +y up
};

struct ViewPixel {
    int x = 0;
    int y = 0;
};

// A rectangle of the screen: its left and top, its width and height.
struct ViewBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// Pixels per unit of the "at" vector between the listener and its orientation handle.
constexpr int kOrientationHandleLength = 25;
// A press hits an object when both distances are below this many pixels.
constexpr int kHitDistance = 5;

// The pixel of a world position: the centre of box (integer halves) plus scale times the plane's two
// coordinates, in single precision and truncated, offset by the box's left and top.
ViewPixel WorldToScreen(std::int32_t plane, float scale, const float position[3], const ViewBox& box);

// The inverse for a pixel of box: the two coordinates of the plane from the pixel, the third copied
// bit for bit from oldPosition.
void ScreenToWorld(std::int32_t plane, float scale, ViewPixel point, const ViewBox& box, const float oldPosition[3],
                   float newPosition[3]);

// The handle's pixel: the listener's pixel plus 25 pixels a unit of "at" along the plane, each offset
// truncated.
ViewPixel OrientationHandle(std::int32_t plane, const float at[3], ViewPixel listener);

bool HitsPixel(ViewPixel press, ViewPixel object);

// The new "at" for a pointer at (ex, ey) pixels from the listener, ey upward: its direction within the
// plane turns to the pointer, its length within the plane and its component across the plane stay.
// A pointer on the listener's own pixel divides by zero and gives not-a-number components, unguarded.
void TurnOrientation(std::int32_t plane, int ex, int ey, const float at[3], float newAt[3]);

// The axis mark at the centre: two labels with the top left of their text at an offset from the
// centre, and a line from (lineX, 0) to the centre and on to (0, lineY).
struct AxisMark {
    const char* firstLabel;
    ViewPixel firstAt;
    const char* secondLabel;
    ViewPixel secondAt;
    int lineX;
    int lineY;
};
const AxisMark& AxisMarkOf(std::int32_t plane);
