#pragma once

// What a rendered impulse response says about a reverb: its energy decay curve by Schroeder's
// backward integration, and the decay time read from it (T30: the line through -5 and -35 dB,
// extrapolated to -60 dB).

#include <cstddef>
#include <vector>

// The energy decay curve of interleaved frames in dB against its start, one value per frame: the
// energy of all channels from each frame to the end, over the whole energy. Empty for silence.
std::vector<double> EnergyDecayCurve(const std::vector<float>& frames, int channels);

// The decay time in seconds that the curve's fall from -5 to -35 dB gives, by a least-squares line;
// 0 if the curve never falls that far.
double DecayTimeT30(const std::vector<double>& curve, int frequency);
