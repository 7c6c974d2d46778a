#pragma once

// The pixels of a straight line between two points, by Bresenham's method, with the surface's dash pattern.
// Pure: the caller sets each pixel it is handed.

#include <cstdint>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace linewalk {

// Dashes run in a cycle of nine pixels, four on and five off, counted from the first counted pixel.
inline constexpr std::int32_t DashCycle = 9;
inline constexpr std::int32_t DashOn = 4;

class DashCounter {
public:
  explicit DashCounter(std::int32_t style) : Solid(style == 0) {}
  // Whether the next pixel of the line is set.
  bool Next() {
    const bool on = Solid || Count < DashOn;
    Count = (Count + 1) % DashCycle;
    return on;
  }

private:
  bool Solid;
  std::int32_t Count = 0;
};

// Horizontal and vertical lines run from the smaller coordinate to the larger, every pixel counted.
template <typename Emit>
void WalkStraight(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t style,
                  Emit emit) {
  DashCounter dash(style);
  if (y1 == y2) {
    for (std::int32_t x = std::min(x1, x2); x <= std::max(x1, x2); ++x)
      if (dash.Next()) emit(x, y1);
  } else {
    for (std::int32_t y = std::min(y1, y2); y <= std::max(y1, y2); ++y)
      if (dash.Next()) emit(x1, y);
  }
}

// One step along the major axis per pixel; the minor axis steps when the error term is not negative. The first
// pixel is always set and is not counted in the dash cycle.
template <typename Emit>
void WalkMajor(std::int32_t major1, std::int32_t minor1, std::int32_t major2, std::int32_t minor2,
               std::int32_t majorStep, std::int32_t style, Emit emitMajorMinor) {
  const std::int32_t majorLength = std::abs(major2 - major1);
  const std::int32_t minorLength = std::abs(minor2 - minor1);
  const std::int32_t minorStep = minor2 > minor1 ? 1 : -1;
  std::int32_t error = 2 * minorLength - majorLength;
  std::int32_t minor = minor1;
  emitMajorMinor(major1, minor);
  DashCounter dash(style);
  for (std::int32_t major = major1; major != major2;) {
    if (error >= 0) {
      minor += minorStep;
      error -= 2 * majorLength;
    }
    error += 2 * minorLength;
    major += majorStep;
    if (dash.Next()) emitMajorMinor(major, minor);
  }
}

// A line that is neither horizontal nor vertical runs along its major axis: from the smaller x when x is the
// major axis, from the greater y when y is (a tie goes to x).
template <typename Emit>
void WalkGeneral(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t style,
                 Emit emit) {
  if (std::abs(x2 - x1) >= std::abs(y2 - y1)) {
    if (x1 > x2) {
      std::swap(x1, x2);
      std::swap(y1, y2);
    }
    WalkMajor(x1, y1, x2, y2, 1, style, [&](std::int32_t x, std::int32_t y) { emit(x, y); });
  } else {
    if (y1 < y2) {
      std::swap(x1, x2);
      std::swap(y1, y2);
    }
    WalkMajor(y1, x1, y2, x2, -1, style, [&](std::int32_t y, std::int32_t x) { emit(x, y); });
  }
}

template <typename Emit>
void WalkLine(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t style, Emit emit) {
  if (x1 == x2 || y1 == y2) {
    WalkStraight(x1, y1, x2, y2, style, emit);
  } else {
    WalkGeneral(x1, y1, x2, y2, style, emit);
  }
}

}  // namespace linewalk
