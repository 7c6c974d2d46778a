#pragma once

// The pixels of a circle by the midpoint method, each tagged with its octant, for circles and arcs alike.
// Pure: the caller sets each pixel it is handed.

#include <array>
#include <cstdint>

namespace circlewalk {

// One of the eight mirrored plots of the loop. Octants are 45 degrees, numbered 1 to 8 clockwise from 0 (up).
// The plot is (signX * a, signY * b) from the centre, where (a, b) is (i, r) when not swapped and (r, i) when
// swapped; the signs also say which way is outward, for the doubled pixels of style 3.
struct OctantPlot {
  std::int32_t octant;
  std::int32_t signX;
  std::int32_t signY;
  bool swapped;
};

// Plotted before the step of the loop: (x ± i, y ± r), near the top and bottom.
inline constexpr std::array<OctantPlot, 4> TopAndBottom{{
    {1, +1, +1, false}, {8, -1, +1, false}, {4, +1, -1, false}, {5, -1, -1, false}}};
// Plotted after it: (x ± r, y ± i), near the sides.
inline constexpr std::array<OctantPlot, 4> Sides{{
    {2, +1, +1, true}, {7, -1, +1, true}, {3, +1, -1, true}, {6, -1, -1, true}}};

// Calls emit(octant, dx, dy, signX, signY) for each plot, (dx, dy) from the centre with y up.
//
// The loop is kept as the surface has always drawn it: the side plots use i after its step, so the first of
// them is at i = 1 and a circle never sets its two side points (x ± radius, y).
// A circle of radius 0 is its centre alone: the side plots are skipped once r has fallen below 0, which only
// that radius reaches.
template <typename Emit>
void WalkCircle(std::int32_t radius, Emit emit) {
  if (radius < 0) return;
  std::int32_t i = 0;
  std::int32_t r = radius;
  std::int32_t e = 0;
  std::int32_t l = 2 * r - 1;
  auto plot = [&](const std::array<OctantPlot, 4>& plots) {
    for (const OctantPlot& p : plots) {
      const std::int32_t a = p.swapped ? r : i;
      const std::int32_t b = p.swapped ? i : r;
      emit(p.octant, p.signX * a, p.signY * b, p.signX, p.signY);
    }
  };
  while (i <= r) {
    plot(TopAndBottom);
    e += 2 * i + 1;
    ++i;
    if (l < 2 * e) {
      e -= l;
      l -= 2;
      --r;
    }
    if (r >= 0) plot(Sides);
  }
}

}  // namespace circlewalk
