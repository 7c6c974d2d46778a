#pragma once

// The frequency-dependent part of a row's level, shared by the early slab and the late wedge.

#include "reverbview/ReverbResponseModel.h"

namespace responsemodel {

struct ShelfLevels {
  float hf;  // millibels
  float lf;  // millibels
};

// The shelves of GainHF and GainLF at one row. Both gains are divided by 100 in integers first, so the shelves
// see whole decibels only: -150 mB counts as -1 dB, -99 mB as 0 dB.
inline ShelfLevels GainShelvesAt(const ReverbResponseParams& params, std::int32_t row) {
  return {HighShelfMillibels(params, static_cast<double>(params.GainHF / 100), row),
          LowShelfMillibels(params, static_cast<double>(params.GainLF / 100), row)};
}

}  // namespace responsemodel
