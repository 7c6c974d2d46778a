#include <cmath>

#include "tests/reverbview/ResponseSceneFixture.h"

TEST(LevelToAxis, MapsMillibelsLinearlyFromFloorToZeroDecibels) {
  EXPECT_FLOAT_EQ(LevelToAxis(0), 1.0f);
  EXPECT_FLOAT_EQ(LevelToAxis(-5000), 0.5f);
  EXPECT_FLOAT_EQ(LevelToAxis(-150), 0.985f);
  EXPECT_FLOAT_EQ(LevelToAxis(-1), 0.9999f);
}

TEST(LevelToAxis, PutsMinusHundredDecibelsAndBelowOnTheFloor) {
  EXPECT_EQ(LevelToAxis(-10000), 0.0f);
  EXPECT_EQ(LevelToAxis(-10001), 0.0f);
  EXPECT_EQ(LevelToAxis(-20000), 0.0f);
}

TEST(LevelToAxis, HasNoCeilingAboveZeroDecibels) {
  EXPECT_FLOAT_EQ(LevelToAxis(2000), 1.2f);
  EXPECT_FLOAT_EQ(LevelToAxis(9), 1.0009f);
}

TEST(FrequencyToAxis, SpansThreeDecadesFromTwentyHertz) {
  EXPECT_EQ(FrequencyToAxis(20.0f), 0.0f);
  EXPECT_EQ(FrequencyToAxis(20000.0f), 1.0f);
  EXPECT_NEAR(FrequencyToAxis(200.0f), 1.0f / 3.0f, 1e-6);
  EXPECT_NEAR(FrequencyToAxis(632.4555f), 0.5f, 1e-6);
  EXPECT_NEAR(FrequencyToAxis(5000.0f), 0.79931f, 1e-5);
}

TEST_F(ResponseSceneTest, FrequencyAxisRunsFromZeroToOneInEvenSteps) {
  const auto& axis = Scene().FrequencyAxis;
  ASSERT_EQ(axis.size(), 20u);
  EXPECT_EQ(axis.front(), 0.0f);
  EXPECT_EQ(axis.back(), 1.0f);
  for (int i = 0; i < 20; ++i) EXPECT_FLOAT_EQ(axis[i], static_cast<float>(i) / 19.0f) << "row " << i;
  EXPECT_NEAR(RowHz(15), 4671.4, 0.5);
  EXPECT_NEAR(RowHz(18), 13903.9, 0.5);
}

TEST_F(ResponseSceneTest, EveryPointArrayHasOneEntryARowAndStartsOnTheOrigin) {
  const ResponseScene& s = Scene();
  EXPECT_EQ(s.Rows, 20);
  for (const auto* points : {&s.EarlyStartTop, &s.EarlyStartBase, &s.EarlyEndTop, &s.EarlyEndBase, &s.LateStartTop,
                             &s.LateStartBase, &s.LateDecayPoint, &s.LateFloorPoint, &s.LateWallPoint,
                             &s.LateWallBase}) {
    ASSERT_EQ(points->size(), 20u);
    for (const ResponsePoint& p : *points) {
      EXPECT_EQ(p.x, 0.0f);
      EXPECT_EQ(p.y, 0.0f);
      EXPECT_EQ(p.z, 0.0f);
    }
  }
}

TEST_F(ResponseSceneTest, ReleaseEmptiesTheSceneAndMeshesThenDoNothing) {
  ReleaseResponseAxes();
  EXPECT_EQ(Scene().Rows, 0);
  EXPECT_TRUE(Scene().FrequencyAxis.empty());
  EXPECT_TRUE(Scene().LateFloorPoint.empty());
  const ReverbResponseParams p = Neutral();
  BuildEarlyMesh(p);
  BuildLateMesh(p);
  UpdateRefPlanes(p);
  EXPECT_TRUE(Scene().EarlyStartTop.empty());
  EXPECT_EQ(HighShelfMillibels(p, -10.0, 0), 0.0f);
}

TEST_F(ResponseSceneTest, SetUpAgainTakesTheNewNumberOfRows) {
  BuildResponseAxes(5);
  ASSERT_EQ(Scene().FrequencyAxis.size(), 5u);
  EXPECT_FLOAT_EQ(Scene().FrequencyAxis[1], 0.25f);
  EXPECT_EQ(Scene().LateWallBase.size(), 5u);
}

TEST_F(ResponseSceneTest, ComputingOverwritesTheArraysInPlace) {
  const ResponseScene& s = Scene();
  const float* axis = s.FrequencyAxis.data();
  const ResponsePoint* early = s.EarlyStartTop.data();
  const ResponsePoint* late = s.LateWallPoint.data();
  ReverbResponseParams p = Neutral();
  for (float t : {0.5f, 3.0f, 20.0f}) {
    p.DecayTime = t;
    BuildEarlyMesh(p);
    BuildLateMesh(p);
    UpdateRefPlanes(p);
  }
  EXPECT_EQ(s.FrequencyAxis.data(), axis);
  EXPECT_EQ(s.EarlyStartTop.data(), early);
  EXPECT_EQ(s.LateWallPoint.data(), late);
  EXPECT_EQ(s.LateWallPoint.size(), 20u);
}
