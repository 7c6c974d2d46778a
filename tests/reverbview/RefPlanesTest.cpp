#include "tests/reverbview/ResponseSceneFixture.h"

class RefPlanes : public ResponseSceneTest {
protected:
  // A decay that shortens steadily from the bottom rows to the top ones, so that every row meets the floor at a
  // different time.
  static ReverbResponseParams Sloping() {
    ReverbResponseParams p = Neutral();
    p.DecayTime = 4.0f;
    p.DecayLFRatio = 2.0f;
    p.DecayHFRatio = 0.3f;
    return p;
  }

  static void Compute(const ReverbResponseParams& p) {
    BuildLateMesh(p);
    UpdateRefPlanes(p);
  }

  static void ExpectPlane(const std::array<ResponsePoint, 4>& plane, float z, float floorX) {
    const float xs[4] = {0.0f, floorX, floorX, 0.0f};
    const float ys[4] = {0.0f, 0.0f, 1.0f, 1.0f};
    for (int c = 0; c < 4; ++c) {
      EXPECT_EQ(plane[c].x, xs[c]) << "corner " << c;
      EXPECT_EQ(plane[c].y, ys[c]) << "corner " << c;
      EXPECT_FLOAT_EQ(plane[c].z, z) << "corner " << c;
    }
  }
};

TEST_F(RefPlanes, TwentyKilohertzTakesTheTopRowAndTwentyHertzTheBottomOne) {
  ReverbResponseParams p = Sloping();
  p.HFReference = 20000.0f;
  p.LFReference = 20.0f;
  Compute(p);
  ASSERT_NE(Scene().LateFloorPoint[19].x, Scene().LateFloorPoint[18].x);
  ASSERT_NE(Scene().LateFloorPoint[0].x, Scene().LateFloorPoint[1].x);
  ExpectPlane(Scene().HFRefPlane, 1.0f, Scene().LateFloorPoint[19].x);
  ExpectPlane(Scene().LFRefPlane, 0.0f, Scene().LateFloorPoint[0].x);
}

TEST_F(RefPlanes, ReferenceBetweenRowsTakesTheRowAtOrBelowIt) {
  ReverbResponseParams p = Sloping();  // 5 kHz lies between rows 15 (4671 Hz) and 16 (6720 Hz)
  p.LFReference = 250.0f;              // between rows 7 (255 Hz) and 6 (177 Hz)
  Compute(p);
  ExpectPlane(Scene().HFRefPlane, FrequencyToAxis(5000.0f), Scene().LateFloorPoint[15].x);
  ExpectPlane(Scene().LFRefPlane, FrequencyToAxis(250.0f), Scene().LateFloorPoint[6].x);
}

TEST_F(RefPlanes, PlaneFollowsTheDecayThroughTheRightWall) {
  ReverbResponseParams p = Neutral();
  p.DecayTime = 20.0f;
  Compute(p);
  EXPECT_GT(Scene().HFRefPlane[1].x, 2.0f);
  EXPECT_EQ(Scene().HFRefPlane[1].x, Scene().HFRefPlane[2].x);
  p.DecayTime = 1.0f;
  Compute(p);
  EXPECT_LT(Scene().HFRefPlane[1].x, 2.0f);
}

TEST_F(RefPlanes, ReferenceOutsideTheGraphTakesTheNearestEndRow) {
  ReverbResponseParams p = Sloping();
  p.HFReference = 24000.0f;
  p.LFReference = 10.0f;
  Compute(p);
  EXPECT_EQ(Scene().HFRefPlane[1].x, Scene().LateFloorPoint[19].x);
  EXPECT_EQ(Scene().LFRefPlane[1].x, Scene().LateFloorPoint[0].x);
  EXPECT_GT(Scene().HFRefPlane[0].z, 1.0f);
  EXPECT_LT(Scene().LFRefPlane[0].z, 0.0f);
}
