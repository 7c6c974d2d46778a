#pragma once

// Which pixels of a circle belong to an arc from startAngle clockwise to endAngle, in degrees, 0 up.

#include <array>
#include <cstdint>

class ArcRange {
public:
  ArcRange(std::int32_t radius, std::int32_t startAngle, std::int32_t endAngle);

  // Whether the pixel at (dx, dy) from the centre, y up, of the given octant (1 to 8) is on the arc.
  bool Includes(std::int32_t octant, std::int32_t dx, std::int32_t dy) const;

  static constexpr double DegreesToRadians = 3.14159265358979323846 / 180.0;

  // Octant of an angle: 1 to 8 clockwise from 0; 360 is octant 9, which matches none.
  static std::int32_t OctantOf(std::int32_t angle) { return angle / 45 + 1; }

private:
  enum class Rule : std::uint8_t { None, Whole, FromStart, ToEnd, Both, Either };

  bool AtOrAfterStart(std::int32_t octant, std::int32_t dx, std::int32_t dy) const;
  bool AtOrBeforeEnd(std::int32_t octant, std::int32_t dx, std::int32_t dy) const;

  std::array<Rule, 10> Rules{};  // by octant; 0 and 9 stay None
  std::int32_t StartX, StartY;   // start point from the centre, truncated
  std::int32_t EndX, EndY;       // end point from the centre, truncated
};
