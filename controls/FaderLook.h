#pragma once

#include <cstdint>

// The look and range of a fader.
struct CFaderSpec {
    std::int32_t vertical = 0;   // non-zero: positions count up from the bottom
    std::int32_t rangeCode = 1;  // 0: 256 positions, 1: 128, 2: 64, 3: positions
    std::int32_t positions = 128;
    std::int32_t trackBitmap = 134;
    std::int32_t thumbBitmap = 129;
    std::int32_t thumbX = 0;     // offset of the thumb's line in the window
    std::int32_t thumbY = 0;
    std::int32_t useSkin = 0;    // drawing from a shared skin bitmap; the pop-up sets it to 0
    std::int32_t skinTrackX = 0, skinTrackY = 0, skinThumbX = 0, skinThumbY = 0;
    std::int32_t thumbBehindTrack = 0;

    int PositionCount() const
    {
        switch (rangeCode) {
        case 0: return 256;
        case 2: return 64;
        case 3: return positions;
        default: return 128;
        }
    }
};
