#include "reverbview/ResponseSceneState.h"

namespace {

// The one response scene of the process. Only the user interface thread touches it.
ResponseScene Scene;

void AllocateRows(std::vector<ResponsePoint>& points, std::int32_t rows) {
  points.assign(static_cast<std::size_t>(rows), ResponsePoint{});
}

template <typename Action>
void ForEachPointArray(ResponseScene& scene, Action action) {
  for (auto* points : {&scene.EarlyStartTop, &scene.EarlyStartBase, &scene.EarlyEndTop, &scene.EarlyEndBase,
                       &scene.LateStartTop, &scene.LateStartBase, &scene.LateDecayPoint, &scene.LateFloorPoint,
                       &scene.LateWallPoint, &scene.LateWallBase}) {
    action(*points);
  }
}

}  // namespace

namespace responsemodel {
ResponseScene& MutableScene() { return Scene; }
}  // namespace responsemodel

const ResponseScene& GetResponseScene() { return Scene; }

void BuildResponseAxes(std::int32_t rows) {
  ReleaseResponseAxes();
  if (rows < 1) return;
  Scene.Rows = rows;
  Scene.FrequencyAxis.reserve(static_cast<std::size_t>(rows));
  Scene.FrequencyAxis.push_back(0.0f);
  for (std::int32_t i = 1; i < rows; ++i) {
    Scene.FrequencyAxis.push_back(static_cast<float>(i) / static_cast<float>(rows - 1));
  }
  // Every point starts at 0, which also puts the y of the base and floor points on the floor for good:
  // the meshes never write those y again.
  ForEachPointArray(Scene, [rows](std::vector<ResponsePoint>& points) { AllocateRows(points, rows); });
}

void ReleaseResponseAxes() {
  Scene.Rows = 0;
  Scene.FrequencyAxis.clear();
  Scene.FrequencyAxis.shrink_to_fit();
  ForEachPointArray(Scene, [](std::vector<ResponsePoint>& points) {
    points.clear();
    points.shrink_to_fit();
  });
}
