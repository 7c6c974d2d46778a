// The late reverberation: a wedge from the end of the early slab whose top falls 60 dB over each row's decay
// time, a straight line on the decibel axis, carried on to the floor and to the right wall.

#include <cmath>

#include "reverbview/ResponseLevels.h"
#include "reverbview/ResponseSceneState.h"

namespace {

using responsemodel::GraphSeconds;
using responsemodel::SixtyDecibelsOnAxis;

// What every row of the wedge shares.
struct LateCommon {
  float startX;     // scene units, where the early slab ends
  double base;      // millibels before the shelves
  float hfRate;     // change of decay rate at HFReference, 1/s
  float lfRate;     // change of decay rate at LFReference, 1/s
};

float LateStartX(const ReverbResponseParams& params) {
  return ResponseTimeExtent * ((params.LateReverbDelay / GraphSeconds) * static_cast<float>(LateDelayMagnify) +
                               (params.ReflectionsDelay / GraphSeconds) * static_cast<float>(ReflectionsDelayMagnify));
}

// A longer decay spreads the same energy over more time. The correction is formed in decibels and added to
// millibels as it stands, so it moves the level by a few millibels: that is the scale wanted here.
double LateBase(const ReverbResponseParams& params) {
  const auto energy = static_cast<std::int32_t>(
      -10.0 * std::log10(std::log(10.0) * 6.0 / static_cast<double>(params.DecayTime)));
  return static_cast<double>(params.LateReverbGain - energy + params.Gain);
}

float HFRate(const ReverbResponseParams& params) {
  const float t = params.DecayTime;
  float thf = t * params.DecayHFRatio;
  const bool limited = params.DecayHFLimit != 0 && params.AirAbsorption != 0.0f;
  if (limited) {
    // Seconds for air absorption to take 60 dB off a sound travelling at 340 m/s.
    const float lim = -60.0f / ((params.AirAbsorption / 100.0f) * SpeedOfSound);
    if (!(lim > thf)) thf = lim;
    return 1.0f / thf - 1.0f / t;
  }
  return 1.0f / (t * params.DecayHFRatio) - 1.0f / t;
}

LateCommon CommonOf(const ReverbResponseParams& params) {
  const float t = params.DecayTime;
  return {LateStartX(params), LateBase(params), HFRate(params), 1.0f / (t * params.DecayLFRatio) - 1.0f / t};
}

// The shelves carry decay rates in place of decibels: near 1/T between the references, 1/(T * ratio) at each
// reference and further beyond it. Seconds.
float RowDecayTime(const ReverbResponseParams& params, const LateCommon& common, std::int32_t row) {
  const float lf = LowShelfMillibels(params, static_cast<double>(common.lfRate), row) / 100.0f;
  const float hf = HighShelfMillibels(params, static_cast<double>(common.hfRate), row) / 100.0f;
  return 1.0f / (lf + (hf + 1.0f / params.DecayTime));
}

void PlaceStart(ResponseScene& scene, const ReverbResponseParams& params, const LateCommon& common, std::int32_t i) {
  const responsemodel::ShelfLevels shelves = responsemodel::GainShelvesAt(params, i);
  const auto level =
      static_cast<std::int32_t>(static_cast<double>(shelves.lf) + (static_cast<double>(shelves.hf) + common.base));
  const auto row = static_cast<std::size_t>(i);
  scene.LateStartTop[row] = {common.startX, LevelToAxis(level), scene.FrequencyAxis[row]};
  scene.LateStartBase[row].x = common.startX;
  scene.LateStartBase[row].z = scene.FrequencyAxis[row];
}

void PlaceDecay(ResponseScene& scene, const ReverbResponseParams& params, const LateCommon& common, std::int32_t i) {
  const auto row = static_cast<std::size_t>(i);
  const ResponsePoint start = scene.LateStartTop[row];
  const float tf = RowDecayTime(params, common, i);
  // T60 of the row along the time axis, 60 dB down the level axis.
  const float decayX = (tf / GraphSeconds) * ResponseTimeExtent * static_cast<float>(LateDecayMagnify) + start.x;
  const ResponsePoint decay = {decayX, start.y - SixtyDecibelsOnAxis, start.z};
  scene.LateDecayPoint[row] = decay;

  // The decay line carried on down to the floor, and across to the right wall (below the floor if it gets
  // there first).
  scene.LateFloorPoint[row].x = start.x + (start.x - decay.x) / (decay.y - start.y) * start.y;
  scene.LateFloorPoint[row].z = start.z;
  const float wallY = (decay.y - start.y) / (decay.x - start.x) * (ResponseTimeExtent - start.x) + start.y;
  scene.LateWallPoint[row] = {ResponseTimeExtent, wallY, start.z};
  scene.LateWallBase[row].x = ResponseTimeExtent;
  scene.LateWallBase[row].z = start.z;
}

}  // namespace

void BuildLateMesh(const ReverbResponseParams& params) {
  ResponseScene& scene = responsemodel::MutableScene();
  const LateCommon common = CommonOf(params);
  for (std::int32_t i = 0; i < scene.Rows; ++i) PlaceStart(scene, params, common, i);
  for (std::int32_t i = 0; i < scene.Rows; ++i) PlaceDecay(scene, params, common, i);
}
