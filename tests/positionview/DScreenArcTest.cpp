#include <cmath>

#include "tests/positionview/Canvas.h"

namespace {

constexpr int Centre = 30;
constexpr int Radius = 20;
constexpr double Pi = 3.14159265358979323846;

// Direction of an offset in degrees, 0 up, clockwise, in [0, 360).
double AngleOf(int x, int y) {
  const double degrees = std::atan2(x, y) * 180.0 / Pi;
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double Wrapped(double angle) { return angle < 0.0 ? angle + 360.0 : angle > 360.0 ? angle - 360.0 : angle; }

bool OnSweep(double angle, double start, double end) {
  return start <= end ? angle >= start && angle <= end : angle >= start || angle <= end;
}

class ArcPixels : public BothPixelSizes {
protected:
  // One arc (or with end < 0, a circle) about the centre of a fresh 61 x 61 surface, as offsets from the centre.
  PixelSet Arc(int start, int end, int style) const {
    Canvas canvas(61, 61, Bits());
    if (end < 0) {
      EXPECT_TRUE(canvas.Screen.DrawCircle(Centre, Centre, Radius, 0xFFFFFF, style));
    } else {
      EXPECT_TRUE(canvas.Screen.DrawArc(Centre, Centre, Radius, start, end, 0xFFFFFF, style));
    }
    return canvas.Lit(Centre, Centre);
  }

  // The arc is part of the circle; every circle pixel clearly inside the sweep is on it, every one clearly
  // outside is not. "Clearly" leaves five degrees at each end: the ends are truncated toward the axes, which at
  // this radius moves them by up to a pixel (about three degrees), and a pixel lies up to half a pixel off.
  void ExpectSweep(int start, int end) const {
    SCOPED_TRACE(::testing::Message() << "arc " << start << " to " << end);
    constexpr double Slack = 5.0;
    const PixelSet arc = Arc(start, end, 0);
    const PixelSet circle = Arc(0, -1, 0);
    const double s = start % 360;
    const double e = end == 360 ? 360.0 : end % 360;
    for (const Pixel& p : arc) EXPECT_TRUE(circle.count(p)) << p.first << "," << p.second << " is off the circle";
    for (const Pixel& p : circle) {
      const double a = AngleOf(p.first, p.second);
      const bool inside = OnSweep(a, s + Slack, e - Slack) && (s > e || e - s > 2 * Slack);
      const bool outside = !OnSweep(a, Wrapped(s - Slack), Wrapped(e + Slack));
      EXPECT_FALSE(inside && !arc.count(p)) << p.first << "," << p.second << " at " << a << " degrees is missing";
      EXPECT_FALSE(outside && arc.count(p)) << p.first << "," << p.second << " at " << a << " degrees is extra";
    }
  }
};

}  // namespace

TEST_P(ArcPixels, FromAnAngleToItselfIsADot) {
  for (int angle : {0, 30, 45, 100, 180, 222, 290, 359}) {
    SCOPED_TRACE(::testing::Message() << "angle " << angle);
    const PixelSet dot = Arc(angle, angle, 0);
    ASSERT_EQ(dot.size(), 1u);
    EXPECT_LE(std::abs(dot.begin()->first - std::sin(angle * Pi / 180.0) * Radius), 1.5);
    EXPECT_LE(std::abs(dot.begin()->second - std::cos(angle * Pi / 180.0) * Radius), 1.5);
    EXPECT_EQ(Arc(angle, angle, 3).size(), 2u);
  }
}

TEST_P(ArcPixels, WithinOneOctant) {
  for (const auto& [s, e] : {std::pair{5, 40}, {95, 130}, {185, 220}, {275, 310}}) ExpectSweep(s, e);
  // Between the truncated ends (3, 19) and (11, 16), on x.
  const PixelSet arc = Arc(10, 35, 0);
  EXPECT_EQ(arc.size(), 9u);
  for (const Pixel& p : arc) EXPECT_TRUE(p.first >= 3 && p.first <= 11) << p.first;
}

TEST_P(ArcPixels, AcrossOctantsAndThroughTheTop) {
  for (const auto& [s, e] : {std::pair{10, 80}, {30, 200}, {100, 350}, {0, 270}, {300, 60}, {200, 10}, {350, 20}})
    ExpectSweep(s, e);
  // Start and end in one octant with the end first: all the circle but a gap.
  ExpectSweep(40, 10);
  ExpectSweep(220, 190);
}

TEST_P(ArcPixels, ThreeSixtyLimitsNothingAtItsEnd) {
  EXPECT_EQ(Arc(0, 360, 0), Arc(0, -1, 0));
  ExpectSweep(90, 360);
  ExpectSweep(250, 360);
  EXPECT_EQ(Arc(360, 90, 0), Arc(0, 90, 0));
  EXPECT_TRUE(Arc(360, 360, 0).empty());
}

TEST_P(ArcPixels, StylesTwoAndThreeAddRadiiAndOutwardTwins) {
  Canvas radii(61, 61, Bits());
  radii.Screen.DrawLine(Centre, Centre, 44, 44, 0xFFFFFF, 0);  // 45 degrees: 30 + 14.14 each way
  radii.Screen.DrawLine(Centre, Centre, 48, 23, 0xFFFFFF, 0);  // 110 degrees: 30 + 18.79, 30 - 6.84
  EXPECT_EQ(Arc(45, 110, 2), Union(Arc(45, 110, 0), radii.Lit(Centre, Centre)));

  const PixelSet single = Arc(20, 160, 0);
  PixelSet twins;
  for (const auto& [x, y] : single) twins.insert({x + (x < 0 ? -1 : 1), y + (y < 0 ? -1 : 1)});
  EXPECT_EQ(Arc(20, 160, 3), Union(single, twins));
  EXPECT_EQ(Arc(20, 160, 1), single);
}

INSTANTIATE_TEST_SUITE_P(Arc, ArcPixels, ::testing::Values(16, 32), BitsName);
