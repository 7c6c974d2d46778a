#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <utility>

#include "positionview/DScreen.h"
#include "positionview/MemoryPresenter.h"

using Pixel = std::pair<int, int>;  // x, y in the surface's coordinates: y up
using PixelSet = std::set<Pixel>;

// A small surface in memory, filled with 0 and locked, ready for primitives.
struct Canvas {
  Canvas(int width, int height, int bits, std::uint32_t greenMask = 0x7E0, int padBytes = 0)
      : Presenter(width, height, bits, greenMask, padBytes) {
    EXPECT_TRUE(Screen.Init(&Presenter) && Screen.FloodFill(0) && Screen.Lock());
  }

  // The raw pixel at (x, y): the surface puts y on row Height - y.
  std::uint32_t At(int x, int y) const {
    const std::uint8_t* row = Presenter.BackMemory().data() + (Screen.GetHeight() - y) * Presenter.RowPitch();
    if (Screen.GetBytesPerPixel() == 2) return row[2 * x] | (row[2 * x + 1] << 8);
    std::uint32_t word;
    std::memcpy(&word, row + 4 * x, sizeof word);
    return word;
  }

  // Every pixel that is not 0, as offsets from (cx, cy).
  PixelSet Lit(int cx = 0, int cy = 0) const {
    PixelSet lit;
    for (int y = 1; y <= Screen.GetHeight(); ++y)
      for (int x = 0; x < Screen.GetWidth(); ++x)
        if (At(x, y) != 0) lit.insert({x - cx, y - cy});
    return lit;
  }

  MemoryPresenter Presenter;
  DScreen Screen;
};

// Cases that run in both pixel sizes a surface draws in. Each file derives its own suite and instantiates it
// with ::testing::Values(16, 32), BitsName.
class BothPixelSizes : public ::testing::TestWithParam<int> {
protected:
  int Bits() const { return GetParam(); }
};

inline std::string BitsName(const ::testing::TestParamInfo<int>& info) { return std::to_string(info.param) + "Bits"; }

inline PixelSet Union(PixelSet a, const PixelSet& b) {
  a.insert(b.begin(), b.end());
  return a;
}
