// The reference planes: one upright plane at the z of HFReference and one at LFReference, each running from the
// time origin to where the decay of the nearest row at or below that frequency meets the floor. Nothing stops
// them at the right wall: a plane pokes through it when that decay ends beyond x = 2.0.

#include "reverbview/ResponseSceneState.h"

namespace {

// The row at or below z, truncated in single precision. A reference outside 20 Hz .. 20 kHz would index outside
// the rows (or convert a non-finite float); the nearest end row stands in for it.
std::size_t RowAtOrBelow(std::int32_t rows, float z) {
  const float position = static_cast<float>(rows - 1) * z;
  if (!(position > 0.0f)) return 0;
  if (position >= static_cast<float>(rows - 1)) return static_cast<std::size_t>(rows - 1);
  return static_cast<std::size_t>(static_cast<std::int32_t>(position));
}

void PlaceOnReference(ResponseScene::RefPlane& plane, const ResponseScene& scene, float referenceHz) {
  const float zp = FrequencyToAxis(referenceHz);
  for (ResponsePoint& corner : plane) corner.z = zp;
  if (scene.Rows < 1) return;
  const float floorX = scene.LateFloorPoint[RowAtOrBelow(scene.Rows, zp)].x;
  plane[1].x = floorX;
  plane[2].x = floorX;
}

}  // namespace

void UpdateRefPlanes(const ReverbResponseParams& params) {
  ResponseScene& scene = responsemodel::MutableScene();
  PlaceOnReference(scene.HFRefPlane, scene, params.HFReference);
  PlaceOnReference(scene.LFRefPlane, scene, params.LFReference);
}
