#include "tests/reverbview/ResponseSceneFixture.h"

TEST(ResponseAxes, LevelRunsFromTheFloorAtMinusHundredDecibelsWithNoCeiling) {
  EXPECT_EQ(LevelToAxis(-20000), 0.0f);
  EXPECT_EQ(LevelToAxis(-10001), 0.0f);
  EXPECT_EQ(LevelToAxis(-10000), 0.0f);
  EXPECT_FLOAT_EQ(LevelToAxis(-5000), 0.5f);
  EXPECT_FLOAT_EQ(LevelToAxis(-150), 0.985f);
  EXPECT_FLOAT_EQ(LevelToAxis(0), 1.0f);
  EXPECT_FLOAT_EQ(LevelToAxis(2000), 1.2f);
}

TEST(ResponseAxes, FrequencySpansThreeDecadesFromTwentyHertz) {
  EXPECT_EQ(FrequencyToAxis(20.0f), 0.0f);
  EXPECT_EQ(FrequencyToAxis(20000.0f), 1.0f);
  EXPECT_NEAR(FrequencyToAxis(632.4555f), 0.5f, 1e-6);
  EXPECT_NEAR(FrequencyToAxis(5000.0f), 0.79931f, 1e-5);
}

TEST_F(ResponseSceneTest, RowsStepEvenlyFromTwentyHertzToTwentyKilohertz) {
  const ResponseScene& s = Scene();
  ASSERT_EQ(s.FrequencyAxis.size(), 20u);
  for (int i = 0; i < 20; ++i) EXPECT_FLOAT_EQ(s.FrequencyAxis[i], i / 19.0f) << "row " << i;
  EXPECT_EQ(s.FrequencyAxis.back(), 1.0f);
  EXPECT_NEAR(RowHz(15), 4671.4, 0.5);
  EXPECT_NEAR(RowHz(18), 13903.9, 0.5);
  for (const auto* points : {&s.EarlyStartTop, &s.EarlyEndBase, &s.LateStartTop, &s.LateWallBase})
    EXPECT_EQ(points->size(), 20u);
}

TEST_F(ResponseSceneTest, ReleasedSceneIsEmptyUntilSetUpAgain) {
  ReleaseResponseAxes();
  const ReverbResponseParams p = Neutral();
  BuildEarlyMesh(p);
  BuildLateMesh(p);
  UpdateRefPlanes(p);
  EXPECT_TRUE(Scene().FrequencyAxis.empty());
  EXPECT_TRUE(Scene().LateFloorPoint.empty());
  EXPECT_EQ(HighShelfMillibels(p, -10.0, 0), 0.0f);
  BuildResponseAxes(5);
  EXPECT_FLOAT_EQ(Scene().FrequencyAxis[1], 0.25f);
  EXPECT_EQ(Scene().LateWallBase.size(), 5u);
}
