#include "tests/reverbview/ResponseSceneFixture.h"

class RefPlanes : public ResponseSceneTest {
protected:
  // A decay that shortens from the bottom rows to the top ones, so every row meets the floor at its own time.
  static void Compute(float hfReference, float lfReference) {
    ReverbResponseParams p = Neutral();
    p.DecayTime = 4.0f;
    p.DecayLFRatio = 2.0f;
    p.DecayHFRatio = 0.3f;
    p.HFReference = hfReference;
    p.LFReference = lfReference;
    BuildLateMesh(p);
    UpdateRefPlanes(p);
  }

  static void ExpectPlane(const ResponseScene::RefPlane& plane, float z, int row) {
    const float floorX = Scene().LateFloorPoint[row].x;
    const float xs[4] = {0.0f, floorX, floorX, 0.0f};
    const float ys[4] = {0.0f, 0.0f, 1.0f, 1.0f};
    for (int c = 0; c < 4; ++c) {
      EXPECT_EQ(plane[c].x, xs[c]) << "corner " << c;
      EXPECT_EQ(plane[c].y, ys[c]) << "corner " << c;
      EXPECT_FLOAT_EQ(plane[c].z, z) << "corner " << c;
    }
  }
};

TEST_F(RefPlanes, RunToTheFloorOfTheRowAtOrBelowTheReferenceEvenPastTheRightWall) {
  Compute(20000.0f, 20.0f);
  ASSERT_NE(Scene().LateFloorPoint[19].x, Scene().LateFloorPoint[18].x);
  ASSERT_NE(Scene().LateFloorPoint[0].x, Scene().LateFloorPoint[1].x);
  ExpectPlane(Scene().HFRefPlane, 1.0f, 19);
  ExpectPlane(Scene().LFRefPlane, 0.0f, 0);
  Compute(5000.0f, 250.0f);  // between rows 15 and 16, and between rows 6 and 7
  ExpectPlane(Scene().HFRefPlane, FrequencyToAxis(5000.0f), 15);
  ExpectPlane(Scene().LFRefPlane, FrequencyToAxis(250.0f), 6);
  Compute(24000.0f, 10.0f);  // outside the graph: the nearest end row
  ExpectPlane(Scene().HFRefPlane, FrequencyToAxis(24000.0f), 19);
  ExpectPlane(Scene().LFRefPlane, FrequencyToAxis(10.0f), 0);

  // A long decay meets the floor beyond the right wall, and the plane pokes through it.
  ReverbResponseParams p = Neutral();
  p.DecayTime = 20.0f;
  BuildLateMesh(p);
  UpdateRefPlanes(p);
  EXPECT_GT(Scene().HFRefPlane[1].x, 2.0f);
  ExpectPlane(Scene().HFRefPlane, FrequencyToAxis(5000.0f), 15);
}
