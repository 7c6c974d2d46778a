// The early reflections: a slab from the reflections' start to the start of the late part, as high as the
// frequency-dependent gain of the reflections.

#include "reverbview/ResponseLevels.h"
#include "reverbview/ResponseSceneState.h"

namespace {

using responsemodel::EarlyHeadroomMillibels;
using responsemodel::GraphSeconds;

std::int32_t EarlyLevel(const ReverbResponseParams& params, std::int32_t row) {
  const responsemodel::ShelfLevels shelves = responsemodel::GainShelvesAt(params, row);
  const float level =
      shelves.lf + (shelves.hf + static_cast<float>(params.Gain + params.ReflectionsGain)) - EarlyHeadroomMillibels;
  return static_cast<std::int32_t>(level);
}

}  // namespace

void BuildEarlyMesh(const ReverbResponseParams& params) {
  ResponseScene& scene = responsemodel::MutableScene();
  // The reflections delay at 1 unit a second, the late delay at 4 units a second.
  const float startX = (params.ReflectionsDelay / GraphSeconds) *
                       (static_cast<float>(ReflectionsDelayMagnify) * ResponseTimeExtent);
  const float width =
      (params.LateReverbDelay / GraphSeconds) * (static_cast<float>(LateDelayMagnify) * ResponseTimeExtent);
  for (std::int32_t i = 0; i < scene.Rows; ++i) {
    const auto row = static_cast<std::size_t>(i);
    const float z = scene.FrequencyAxis[row];
    const float y = LevelToAxis(EarlyLevel(params, i));
    scene.EarlyStartTop[row] = {startX, y, z};
    scene.EarlyStartBase[row].x = startX;
    scene.EarlyStartBase[row].z = z;
    scene.EarlyEndTop[row] = {width + startX, y, z};
    scene.EarlyEndBase[row].x = width + startX;
    scene.EarlyEndBase[row].z = z;
  }
}
