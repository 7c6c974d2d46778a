#pragma once

#include <cstdint>

// The look of a knob, shared by all knobs of one look; knobs point to it and do not own it.
struct CPotSpec {
    std::int32_t frames = 31;          // frames in the strip
    std::int32_t popupHorizontal = 1;  // the pop-up fader lies horizontally if non-zero
    std::int32_t faderTrackBitmap = 134;
    std::int32_t faderThumbBitmap = 129;
    std::int32_t faderThumbX = 0;
    std::int32_t faderThumbY = 0;
    std::int32_t popupSide = 1;        // non-zero: the pop-up opens above the knob
    std::int32_t useBlit = 0;          // other drawing modes, which no look uses
    std::int32_t useBlitReserved = 0;
    std::int32_t keyIndex = 253;       // the mask key of those modes
    std::int32_t stripBitmap = 136;    // the frame strip, frames side by side, lowest value at the left
};
