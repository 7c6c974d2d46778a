#include <cmath>

#include "reverbview/ResponseSceneState.h"

float LevelToAxis(std::int32_t levelMillibels) {
  if (levelMillibels < responsemodel::FloorMillibels) return 0.0f;
  // 100 mB a decibel, 100 dB from the floor to 0 dB.
  return static_cast<float>(levelMillibels) / 100.0f / 100.0f + 1.0f;
}

float FrequencyToAxis(float frequencyHz) {
  // Three decades from 20 Hz to 20 kHz.
  return std::log10(frequencyHz / 20.0f) / 3.0f;
}
