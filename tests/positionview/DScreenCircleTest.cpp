#include <cmath>

#include "tests/positionview/Canvas.h"

namespace {

class CirclePixels : public BothPixelSizes {
protected:
  // One circle about (20, 20) on a fresh 41 x 41 surface, as offsets from its centre.
  PixelSet Circle(int radius, int style) const {
    Canvas canvas(41, 41, Bits());
    EXPECT_TRUE(canvas.Screen.DrawCircle(20, 20, radius, 0xFFFFFF, style));
    return canvas.Lit(20, 20);
  }
};

PixelSet Mirrored(std::initializer_list<Pixel> offsets) {
  PixelSet all;
  for (const auto& [x, y] : offsets)
    for (int sx : {-1, 1})
      for (int sy : {-1, 1}) all.insert({sx * x, sy * y});
  return all;
}

}  // namespace

TEST_P(CirclePixels, RadiusZeroIsItsCentreAndBelowZeroIsNothing) {
  for (int style = 0; style < 3; ++style) EXPECT_EQ(Circle(0, style), (PixelSet{{0, 0}})) << "style " << style;
  EXPECT_TRUE(Circle(-1, 0).empty());
}

// Worked by hand through the loop: (0, 3), (1, 3), (2, 2) before each step and (3, 1), (2, 2), (1, 3) after it.
// The side points (3, 0) are never plotted: the first plot after a step already has i = 1.
TEST_P(CirclePixels, RadiusThreeFollowsTheMidpointLoop) {
  EXPECT_EQ(Circle(3, 0), Mirrored({{0, 3}, {1, 3}, {2, 2}, {3, 1}}));
  EXPECT_EQ(Circle(3, 1), Circle(3, 0));
  EXPECT_EQ(Circle(3, 2), Circle(3, 0));
}

TEST_P(CirclePixels, LargerCirclesLieOnTheirRadiusWithTheSidePointsOpen) {
  for (int radius : {5, 8, 13, 19}) {
    SCOPED_TRACE(::testing::Message() << "radius " << radius);
    const PixelSet pixels = Circle(radius, 0);
    EXPECT_TRUE(pixels.count({0, radius}) && pixels.count({0, -radius}));
    EXPECT_FALSE(pixels.count({radius, 0}) || pixels.count({-radius, 0}));
    std::set<int> columns;
    for (const auto& [x, y] : pixels) {
      EXPECT_LE(std::abs(std::hypot(x, y) - radius), 0.5) << x << "," << y;
      EXPECT_TRUE(pixels.count({-x, y}) && pixels.count({x, -y})) << x << "," << y;
      columns.insert(x);
    }
    EXPECT_EQ(columns.size(), static_cast<std::size_t>(2 * radius + 1));
  }
}

// Each plot gets a twin one step further out in x and in y; at x = 0 the plots of both sides give one each.
TEST_P(CirclePixels, StyleThreeDoublesEachPixelOutward) {
  EXPECT_EQ(Circle(3, 3), Union(Circle(3, 0), Mirrored({{1, 4}, {2, 4}, {3, 3}, {4, 2}})));
  EXPECT_EQ(Circle(0, 3), Union({{0, 0}}, Mirrored({{1, 1}})));
}

INSTANTIATE_TEST_SUITE_P(Circle, CirclePixels, ::testing::Values(16, 32), BitsName);
