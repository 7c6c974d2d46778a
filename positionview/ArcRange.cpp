#include "positionview/ArcRange.h"

#include <cmath>

namespace {

// Within one octant, clockwise travel moves one coordinate monotonically: x in octants 1, 4, 5, 8 and y in
// 2, 3, 6, 7. Sign +1 when that coordinate grows clockwise, -1 when it falls. Indexed by octant.
struct OctantMotion {
  bool onX;
  std::int32_t clockwise;
};
constexpr std::array<OctantMotion, 9> Motion{{
    {true, 0}, {true, +1}, {false, -1}, {false, -1}, {true, -1}, {true, -1}, {false, +1}, {false, +1}, {true, +1}}};
static_assert(Motion.size() == 9, "octants 1 to 8 after an unused 0");

// Point at `angle` degrees on the circle, each offset truncated toward zero.
void PointAt(std::int32_t radius, std::int32_t angle, std::int32_t& x, std::int32_t& y) {
  const double a = angle * ArcRange::DegreesToRadians;
  x = static_cast<std::int32_t>(std::sin(a) * radius);
  y = static_cast<std::int32_t>(std::cos(a) * radius);
}

// How far clockwise the pixel lies past the reference point, along its octant's moving coordinate.
std::int32_t ClockwiseFrom(std::int32_t octant, std::int32_t dx, std::int32_t dy, std::int32_t refX,
                           std::int32_t refY) {
  const OctantMotion& m = Motion[static_cast<std::size_t>(octant)];
  return m.clockwise * (m.onX ? dx - refX : dy - refY);
}

}  // namespace

ArcRange::ArcRange(std::int32_t radius, std::int32_t startAngle, std::int32_t endAngle) {
  PointAt(radius, startAngle, StartX, StartY);
  PointAt(radius, endAngle, EndX, EndY);
  const std::int32_t s = OctantOf(startAngle);
  const std::int32_t e = OctantOf(endAngle);
  auto set = [this](std::int32_t octant, Rule rule) {
    if (octant >= 1 && octant <= 8) Rules[static_cast<std::size_t>(octant)] = rule;
  };
  if (s < e) {
    for (std::int32_t o = s + 1; o < e; ++o) set(o, Rule::Whole);
    set(s, Rule::FromStart);
    set(e, Rule::ToEnd);
  } else if (s == e && startAngle <= endAngle) {
    set(s, Rule::Both);
  } else {
    // Through 360: on from the start to the top, and from the top to the end.
    for (std::int32_t o = s + 1; o <= 8; ++o) set(o, Rule::Whole);
    for (std::int32_t o = 1; o < e; ++o) set(o, Rule::Whole);
    if (s == e) {
      set(s, Rule::Either);
    } else {
      set(s, Rule::FromStart);
      set(e, Rule::ToEnd);
    }
  }
}

bool ArcRange::AtOrAfterStart(std::int32_t octant, std::int32_t dx, std::int32_t dy) const {
  return ClockwiseFrom(octant, dx, dy, StartX, StartY) >= 0;
}

bool ArcRange::AtOrBeforeEnd(std::int32_t octant, std::int32_t dx, std::int32_t dy) const {
  return ClockwiseFrom(octant, dx, dy, EndX, EndY) <= 0;
}

bool ArcRange::Includes(std::int32_t octant, std::int32_t dx, std::int32_t dy) const {
  if (octant < 1 || octant > 8) return false;
  switch (Rules[static_cast<std::size_t>(octant)]) {
    case Rule::Whole: return true;
    case Rule::FromStart: return AtOrAfterStart(octant, dx, dy);
    case Rule::ToEnd: return AtOrBeforeEnd(octant, dx, dy);
    case Rule::Both: return AtOrAfterStart(octant, dx, dy) && AtOrBeforeEnd(octant, dx, dy);
    case Rule::Either: return AtOrAfterStart(octant, dx, dy) || AtOrBeforeEnd(octant, dx, dy);
    case Rule::None: break;
  }
  return false;
}
