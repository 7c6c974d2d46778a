#pragma once

#include <cstdint>

// Colours come as 0xRRGGBB; the surface wants raw pixels in its own format.

// Green mask of 16-bit memory that holds 5 bits of each primary.
inline constexpr std::uint32_t GreenMask555 = 0x3E0;

constexpr std::uint32_t RedOf(std::uint32_t rgb) { return (rgb >> 16) & 0xFF; }
constexpr std::uint32_t GreenOf(std::uint32_t rgb) { return (rgb >> 8) & 0xFF; }
constexpr std::uint32_t BlueOf(std::uint32_t rgb) { return rgb & 0xFF; }

// 0RRRRRGG GGGBBBBB
constexpr std::uint32_t ToPixel555(std::uint32_t rgb) {
  return ((RedOf(rgb) & 0xF8) << 7) | ((GreenOf(rgb) >> 3) << 5) | (BlueOf(rgb) >> 3);
}

// RRRRRGGG GGGBBBBB
constexpr std::uint32_t ToPixel565(std::uint32_t rgb) {
  return ((RedOf(rgb) & 0xF8) << 8) | ((GreenOf(rgb) >> 2) << 5) | (BlueOf(rgb) >> 3);
}

// 4-byte pixels take the colour as it is; every other size takes 16 bits, 5-5-5 or else 5-6-5.
constexpr std::uint32_t ToRawPixel(std::uint32_t rgb, std::int32_t bytesPerPixel, std::uint32_t greenMask) {
  if (bytesPerPixel == 4) return rgb;
  return greenMask == GreenMask555 ? ToPixel555(rgb) : ToPixel565(rgb);
}

static_assert(ToPixel555(0xFFFFFF) == 0x7FFF && ToPixel565(0xFFFFFF) == 0xFFFF, "white fills every bit");
static_assert(ToPixel555(0x00FF00) == 0x03E0 && ToPixel565(0x00FF00) == 0x07E0, "green lands on the green mask");
