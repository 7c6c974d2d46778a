// The primitives of DScreen: lines, circles and arcs, one SetPixel a pixel. No clipping beyond SetPixel's own
// test; the panels this draws are a few hundred pixels across.

#include <cmath>

#include "positionview/ArcRange.h"
#include "positionview/CircleWalk.h"
#include "positionview/DScreen.h"
#include "positionview/LineWalk.h"

namespace {

// Style 3 doubles each pixel of a circle or arc, so that the rings of a band of neighbouring radii close up.
constexpr std::int32_t DoubledStyle = 3;
// Style 2 draws an arc's two radii first.
constexpr std::int32_t RadiiStyle = 2;

}  // namespace

void DScreen::PlotRound(std::int32_t x, std::int32_t y, std::int32_t outX, std::int32_t outY, std::uint32_t pixel,
                        std::int32_t style) {
  SetPixel(x, y, pixel);
  if (style == DoubledStyle) SetPixel(x + outX, y + outY, pixel);
}

bool DScreen::DrawLine(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::uint32_t colour,
                       std::int32_t style) {
  if (!Locked) return false;
  const std::uint32_t pixel = RawColour(colour);
  linewalk::WalkLine(x1, y1, x2, y2, style, [&](std::int32_t x, std::int32_t y) { SetPixel(x, y, pixel); });
  return true;
}

bool DScreen::DrawCircle(std::int32_t x, std::int32_t y, std::int32_t radius, std::uint32_t colour,
                         std::int32_t style) {
  if (!Locked) return false;
  const std::uint32_t pixel = RawColour(colour);
  circlewalk::WalkCircle(radius, [&](std::int32_t, std::int32_t dx, std::int32_t dy, std::int32_t outX,
                                     std::int32_t outY) { PlotRound(x + dx, y + dy, outX, outY, pixel, style); });
  return true;
}

bool DScreen::DrawArc(std::int32_t x, std::int32_t y, std::int32_t radius, std::int32_t startAngle,
                      std::int32_t endAngle, std::uint32_t colour, std::int32_t style) {
  if (!Locked) return false;
  const std::uint32_t pixel = RawColour(colour);
  if (style == RadiiStyle) {
    for (const std::int32_t angle : {startAngle, endAngle}) {
      const double a = angle * ArcRange::DegreesToRadians;
      DrawLine(x, y, static_cast<std::int32_t>(x + std::sin(a) * radius),
               static_cast<std::int32_t>(y + std::cos(a) * radius), colour, 0);
    }
  }
  const ArcRange range(radius, startAngle, endAngle);
  circlewalk::WalkCircle(radius, [&](std::int32_t octant, std::int32_t dx, std::int32_t dy, std::int32_t outX,
                                     std::int32_t outY) {
    if (range.Includes(octant, dx, dy)) PlotRound(x + dx, y + dy, outX, outY, pixel, style);
  });
  return true;
}
