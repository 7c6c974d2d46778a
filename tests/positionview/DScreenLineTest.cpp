#include <cmath>
#include <cstdlib>

#include "tests/positionview/Canvas.h"

namespace {

class LinePixels : public BothPixelSizes {
protected:
  PixelSet Line(int x1, int y1, int x2, int y2, int style) const {
    Canvas canvas(32, 32, Bits());
    EXPECT_TRUE(canvas.Screen.DrawLine(x1, y1, x2, y2, 0xFFFFFF, style));
    return canvas.Lit();
  }

  // The pixels of the solid line whose place in the walk passes the dash cycle; `counted` gives a pixel's place
  // (negative: not counted, always set).
  template <typename Place>
  PixelSet Dashed(int x1, int y1, int x2, int y2, Place counted) const {
    PixelSet kept;
    for (const Pixel& p : Line(x1, y1, x2, y2, 0))
      if (counted(p) < 0 || counted(p) % 9 < 4) kept.insert(p);
    return kept;
  }
};

}  // namespace

TEST_P(LinePixels, EqualEndsAreOnePixelInEveryStyle) {
  for (int style = 0; style < 4; ++style) EXPECT_EQ(Line(7, 9, 7, 9, style), (PixelSet{{7, 9}})) << "style " << style;
}

// Four on, five off, counted from the smaller coordinate whichever end comes first.
TEST_P(LinePixels, StraightDashesStartAtTheSmallerCoordinate) {
  const PixelSet dashes{{1, 2}, {2, 2}, {3, 2}, {4, 2}, {10, 2}, {11, 2}, {12, 2}, {13, 2}, {19, 2}, {20, 2}};
  for (int style = 1; style < 4; ++style) {
    EXPECT_EQ(Line(1, 2, 20, 2, style), dashes) << "style " << style;
    EXPECT_EQ(Line(20, 2, 1, 2, style), dashes) << "style " << style;
  }
  EXPECT_EQ(Line(5, 30, 5, 8, 1), Dashed(5, 8, 5, 30, [](const Pixel& p) { return p.second - 8; }));
  EXPECT_EQ(Line(8, 5, 3, 5, 0).size(), 6u);
}

// The first pixel of a sloping line is set outside the dash count, so its first dash is five long. The walk
// starts from the smaller x on a flat line and from the greater y on a steep one.
TEST_P(LinePixels, SlopingDashesStartFromTheSmallerXOrTheGreaterY) {
  const PixelSet flat = Dashed(0, 1, 20, 5, [](const Pixel& p) { return p.first - 1; });
  EXPECT_EQ(Line(0, 1, 20, 5, 1), flat);
  EXPECT_EQ(Line(20, 5, 0, 1, 1), flat);
  const PixelSet steep = Dashed(2, 1, 6, 21, [](const Pixel& p) { return 20 - p.second; });
  EXPECT_EQ(Line(2, 1, 6, 21, 3), steep);
  EXPECT_EQ(Line(6, 21, 2, 1, 3), steep);
}

// Bresenham: one pixel a step of the major axis, both ends, never more than half a pixel off the true line.
TEST_P(LinePixels, SlopingLinesStayOnTheTrueLine) {
  const int ends[][4] = {{1, 1, 30, 12}, {30, 12, 1, 1}, {2, 28, 29, 3}, {5, 2, 9, 30}, {28, 1, 3, 29}, {1, 1, 30, 30}};
  for (const auto& e : ends) {
    SCOPED_TRACE(::testing::Message() << e[0] << "," << e[1] << " to " << e[2] << "," << e[3]);
    const PixelSet pixels = Line(e[0], e[1], e[2], e[3], 0);
    const int dx = e[2] - e[0], dy = e[3] - e[1];
    const bool xMajor = std::abs(dx) >= std::abs(dy);
    EXPECT_EQ(pixels.size(), static_cast<std::size_t>(std::max(std::abs(dx), std::abs(dy)) + 1));
    EXPECT_TRUE(pixels.count({e[0], e[1]}) && pixels.count({e[2], e[3]}));
    std::set<int> majors;
    for (const auto& [x, y] : pixels) {
      majors.insert(xMajor ? x : y);
      const double off = xMajor ? y - (e[1] + double(dy) * (x - e[0]) / dx) : x - (e[0] + double(dx) * (y - e[1]) / dy);
      EXPECT_LE(std::abs(off), 0.5) << x << "," << y;
    }
    EXPECT_EQ(majors.size(), pixels.size());
  }
}

// On a tie the minor axis steps at once: the error term is tested for "not negative".
TEST_P(LinePixels, TieStepsTheMinorAxisEarly) {
  EXPECT_EQ(Line(2, 2, 0, 1, 0), (PixelSet{{0, 1}, {1, 2}, {2, 2}}));
  EXPECT_EQ(Line(1, 1, 0, 3, 0), (PixelSet{{0, 3}, {1, 2}, {1, 1}}));
}

INSTANTIATE_TEST_SUITE_P(Line, LinePixels, ::testing::Values(16, 32), BitsName);
