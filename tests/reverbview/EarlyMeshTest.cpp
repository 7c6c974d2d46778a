#include "tests/reverbview/ResponseSceneFixture.h"

using EarlyMesh = ResponseSceneTest;

TEST_F(EarlyMesh, SlabRunsFromTheReflectionsDelayOverTheLateDelayMagnified) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsDelay = 0.1f;  // 1 unit a second
  p.LateReverbDelay = 0.05f;  // 4 units a second
  BuildEarlyMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_FLOAT_EQ(s.EarlyStartTop[i].x, 0.1f) << "row " << i;
    EXPECT_FLOAT_EQ(s.EarlyEndTop[i].x, 0.3f) << "row " << i;
    EXPECT_EQ(s.EarlyEndTop[i].y, s.EarlyStartTop[i].y);
    // The bases stand under the tops, on the floor.
    const ResponsePoint& startBase = s.EarlyStartBase[i];
    const ResponsePoint& endBase = s.EarlyEndBase[i];
    EXPECT_TRUE(startBase.x == s.EarlyStartTop[i].x && startBase.y == 0.0f && startBase.z == s.FrequencyAxis[i]);
    EXPECT_TRUE(endBase.x == s.EarlyEndTop[i].x && endBase.y == 0.0f && endBase.z == s.FrequencyAxis[i]);
  }
}

// The slab stands 10 dB lower than its gains: the strongest reflections (+10 dB) with no Gain top at 0 dB.
TEST_F(EarlyMesh, TopStandsTenDecibelsBelowTheGainsAndStopsOnTheFloor) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsGain = 1000;
  BuildEarlyMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_FLOAT_EQ(Scene().EarlyStartTop[i].y, 1.0f) << "row " << i;
  p.ReflectionsGain = 0;
  p.Gain = -2000;
  BuildEarlyMesh(p);
  EXPECT_FLOAT_EQ(Scene().EarlyStartTop[7].y, 0.7f);
  p.Gain = -8999;
  BuildEarlyMesh(p);
  EXPECT_NEAR(Scene().EarlyStartTop[7].y, 0.0001f, 1e-7f);
  p.Gain = -9000;  // exactly -10000 mB with the headroom
  BuildEarlyMesh(p);
  EXPECT_EQ(Scene().EarlyStartTop[7].y, 0.0f);
  p.Gain = p.ReflectionsGain = -10000;
  BuildEarlyMesh(p);
  EXPECT_EQ(Scene().EarlyStartTop[7].y, 0.0f);
}

TEST_F(EarlyMesh, GainsAboveAndBelowTheReferencesShapeTheTop) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsGain = 1000;
  p.GainHF = -1000;
  p.GainLF = -1000;
  BuildEarlyMesh(p);
  EXPECT_NEAR(Scene().EarlyStartTop[19].y, 1.0f - 0.1966f, 2e-4f);
  EXPECT_NEAR(Scene().EarlyStartTop[0].y, 1.0f - 0.1973f, 2e-4f);
  EXPECT_GT(Scene().EarlyStartTop[10].y, 0.95f);
}

// The shelves see whole decibels only: the gains are divided by 100 in integers, in both solids.
TEST_F(EarlyMesh, GainHFCountsInWholeDecibelsInBothSolids) {
  auto topRows = [](int gainHF) {
    ReverbResponseParams p = Neutral();
    p.ReflectionsGain = 1000;
    p.GainHF = gainHF;
    BuildEarlyMesh(p);
    BuildLateMesh(p);
    return std::make_pair(Scene().EarlyStartTop[19].y, Scene().LateStartTop[19].y);
  };
  EXPECT_EQ(topRows(-150), topRows(-100));
  EXPECT_LT(topRows(-150).first, topRows(0).first);
  EXPECT_LT(topRows(-150).second, topRows(0).second);
  EXPECT_EQ(topRows(-99), topRows(0));
  EXPECT_FLOAT_EQ(topRows(-99).first, 1.0f);
}
