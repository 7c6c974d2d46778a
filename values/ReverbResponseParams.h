#pragma once

#include <cstdint>

// One reverb as the response graph sees it. The bridge fills it from the engine's getters: every linear gain
// becomes millibels (ln(max(g, 0.00001)) * 868.589, truncated), times, ratios and reference frequencies are
// copied. A standard reverb completes it with HFReference 5000, LFReference 250, DecayLFRatio 1.0, GainLF 0.
// The first values are the engine's default EAX reverb, read back that way.
struct ReverbResponseParams {
  std::int32_t Gain = -989;             // millibels (linear 0.32)
  std::int32_t GainHF = -101;           // millibels at HFReference (linear 0.89)
  std::int32_t GainLF = 0;              // millibels at LFReference
  float DecayTime = 1.49f;              // seconds
  float DecayHFRatio = 0.83f;           // decay time at HFReference over DecayTime
  float DecayLFRatio = 1.0f;            // decay time at LFReference over DecayTime
  std::int32_t ReflectionsGain = -2602; // millibels (linear 0.05)
  float ReflectionsDelay = 0.007f;      // seconds
  std::int32_t LateReverbGain = 200;    // millibels (linear 1.26)
  float LateReverbDelay = 0.011f;       // seconds
  float AirAbsorption = -5.0f;          // millibels per metre, always a whole number (linear 0.994)
  float HFReference = 5000.0f;          // hertz
  float LFReference = 250.0f;           // hertz
  std::int32_t DecayHFLimit = 1;        // non-zero: air absorption may shorten the high-frequency decay
};
