// The two first-order shelves that give the graph all of its frequency dependence. Each is the filter
// (b + a z^-1) / (e + d z^-1) of a bilinear design at 48 kHz; the quotient below is its squared magnitude at
// the row's frequency, so 1000 * log10 of it is millibels.

#include <cmath>

#include "reverbview/ResponseSceneState.h"

namespace {

// 2 * pi * 20 Hz: the row's z becomes radians a sample through 20 * 10^(3z) Hz.
constexpr float TwoPiTimesLowestHz = 125.66371f;
constexpr float PiSingle = 3.1415927f;
constexpr float SampleRate = static_cast<float>(ResponseSampleRate);

struct ShelfPoint {
  double c;  // cos of the row's angular frequency, radians a sample
  double g;  // the shelf's gain, linear
};

bool RowInScene(std::int32_t row) {
  return row >= 0 && row < static_cast<std::int32_t>(responsemodel::MutableScene().FrequencyAxis.size());
}

ShelfPoint AtRow(double gainDb, std::int32_t row) {
  const float z = responsemodel::MutableScene().FrequencyAxis[static_cast<std::size_t>(row)];
  const float w = std::pow(10.0f, z * 3.0f) * TwoPiTimesLowestHz / SampleRate;
  return {std::cos(static_cast<double>(w)), std::pow(10.0, gainDb / 20.0)};
}

// Pre-warped corner of the shelf, in single precision as the graph has always drawn it.
double Corner(float referenceHz) {
  return static_cast<double>(std::tan(referenceHz * PiSingle / SampleRate));
}

float SquaredMagnitudeMillibels(double a, double b, double d, double e, double c) {
  const double numerator = a * a + b * b + 2.0 * a * b * c;
  const double denominator = d * d + e * e + 2.0 * d * e * c;
  return static_cast<float>(1000.0 * std::log10(numerator / denominator));
}

}  // namespace

float HighShelfMillibels(const ReverbResponseParams& params, double gainDb, std::int32_t row) {
  if (!RowInScene(row)) return 0.0f;
  const ShelfPoint p = AtRow(gainDb, row);
  const double t = Corner(params.HFReference);
  return SquaredMagnitudeMillibels(t - p.g, t + p.g, t - 1.0 / p.g, t + 1.0 / p.g, p.c);
}

float LowShelfMillibels(const ReverbResponseParams& params, double gainDb, std::int32_t row) {
  if (!RowInScene(row)) return 0.0f;
  const ShelfPoint p = AtRow(gainDb, row);
  const double t = Corner(params.LFReference);
  return SquaredMagnitudeMillibels(p.g * t - 1.0, p.g * t + 1.0, t / p.g - 1.0, t / p.g + 1.0, p.c);
}
