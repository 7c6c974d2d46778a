#pragma once

// For the model's own files only: write access to the one scene, and the fixed numbers its formulas share.

#include "reverbview/ReverbResponseModel.h"

namespace responsemodel {

ResponseScene& MutableScene();

// The decay's time axis spans 20 seconds across ResponseTimeExtent.
inline constexpr float GraphSeconds = 20.0f;
// Levels below this many millibels (-100 dB) lie on the floor.
inline constexpr std::int32_t FloorMillibels = -10000;
// The early slab sits 10 dB (1000 mB) lower, so that Gain 0 with the strongest reflections (+10 dB) tops at 0 dB.
inline constexpr float EarlyHeadroomMillibels = 1000.0f;
// 60 dB on the level axis: one decay time down from the start of the wedge.
inline constexpr float SixtyDecibelsOnAxis = 0.6f;

}  // namespace responsemodel
