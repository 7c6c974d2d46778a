#pragma once

// What a slot's effect really does to a unit impulse: the impulse rendered through a copy of the
// slot on a loopback device (wet only), its energy decay curve and its measured decay time.

#include "engine/SceneSnapshot.h"

#include <atomic>
#include <vector>

struct MeasuredDecay {
    bool ok = false;
    // The energy decay curve in dB, one point per millisecond from the impulse on.
    std::vector<double> curveMs;
    // T30 extrapolated to -60 dB, in seconds; 0 when the response never fell 35 dB.
    double t30 = 0;
};

// Renders the impulse through `slot` for `seconds` at `frequency`; a set `cancel` stops it early
// (the result is then not ok).
MeasuredDecay MeasureImpulseDecay(const SlotSnapshot& slot, int frequency, double seconds,
                                  const std::atomic<bool>* cancel = nullptr);
