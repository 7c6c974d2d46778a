#include "positionview/PixelColour.h"
#include "tests/positionview/Canvas.h"

// The panner's green, red and blue, worked by hand into both 16-bit formats; 32-bit pixels keep the colour.
TEST(PixelColour, PrimitivesConvertForTheSurfacesFormat) {
  Canvas rgb555(8, 8, 16, GreenMask555);
  Canvas rgb565(8, 8, 16, 0x7E0);
  Canvas rgb32(8, 8, 32);
  for (Canvas* canvas : {&rgb555, &rgb565, &rgb32}) {
    canvas->Screen.DrawLine(1, 1, 1, 1, 0x14C814, 0);
    canvas->Screen.DrawCircle(4, 4, 0, 0xC81414, 0);
    canvas->Screen.DrawArc(4, 4, 3, 0, 0, 0x1414C8, 0);
    canvas->Screen.SetPixel(6, 6, 0x1234);  // raw, not converted
  }
  const std::uint32_t expected[3][4] = {{0x0B22, 0x6442, 0x0859, 0x1234},
                                        {0x1642, 0xC8A2, 0x10B9, 0x1234},
                                        {0x14C814, 0xC81414, 0x1414C8, 0x1234}};
  const Canvas* canvases[3] = {&rgb555, &rgb565, &rgb32};
  for (int c = 0; c < 3; ++c) {
    EXPECT_EQ(canvases[c]->At(1, 1), expected[c][0]) << "canvas " << c;
    EXPECT_EQ(canvases[c]->At(4, 4), expected[c][1]) << "canvas " << c;
    EXPECT_EQ(canvases[c]->At(4, 7), expected[c][2]) << "canvas " << c;
    EXPECT_EQ(canvases[c]->At(6, 6), expected[c][3]) << "canvas " << c;
  }
  EXPECT_EQ(ToPixel555(0x070707), 0x0000u);  // below the top five bits
  EXPECT_EQ(ToPixel565(0x000400), 0x0020u);  // green keeps a sixth bit
}
