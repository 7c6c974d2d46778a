#include "tests/reverbview/ResponseSceneFixture.h"

using EarlyMesh = ResponseSceneTest;

TEST_F(EarlyMesh, SlabRunsFromTheReflectionsDelayToTheLateDelayMagnified) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsDelay = 0.1f;   // drawn at 1 unit a second
  p.LateReverbDelay = 0.05f;   // drawn at 4 units a second
  BuildEarlyMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_FLOAT_EQ(s.EarlyStartTop[i].x, 0.1f) << "row " << i;
    EXPECT_FLOAT_EQ(s.EarlyEndTop[i].x, 0.3f) << "row " << i;
    EXPECT_EQ(s.EarlyStartBase[i].x, s.EarlyStartTop[i].x);
    EXPECT_EQ(s.EarlyEndBase[i].x, s.EarlyEndTop[i].x);
  }
}

TEST_F(EarlyMesh, EveryCornerSitsOnItsRowAndTheBasesOnTheFloor) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsDelay = 0.02f;
  p.LateReverbDelay = 0.03f;
  BuildEarlyMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    const float z = s.FrequencyAxis[i];
    EXPECT_EQ(s.EarlyStartTop[i].z, z);
    EXPECT_EQ(s.EarlyStartBase[i].z, z);
    EXPECT_EQ(s.EarlyEndTop[i].z, z);
    EXPECT_EQ(s.EarlyEndBase[i].z, z);
    EXPECT_EQ(s.EarlyEndTop[i].y, s.EarlyStartTop[i].y);
    EXPECT_EQ(s.EarlyStartBase[i].y, 0.0f);
    EXPECT_EQ(s.EarlyEndBase[i].y, 0.0f);
  }
}

TEST_F(EarlyMesh, StrongestReflectionsWithoutGainTopAtZeroDecibels) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsGain = 1000;  // +10 dB, cancelled by the slab's 10 dB of headroom
  BuildEarlyMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_FLOAT_EQ(Scene().EarlyStartTop[i].y, 1.0f) << "row " << i;

  p.ReflectionsGain = 0;
  p.Gain = -2000;
  BuildEarlyMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_FLOAT_EQ(Scene().EarlyStartTop[i].y, 0.7f) << "row " << i;
}

TEST_F(EarlyMesh, LevelsAtAndBelowMinusHundredDecibelsLieOnTheFloor) {
  ReverbResponseParams p = Neutral();
  p.Gain = -9000;  // -90 dB, less the 10 dB of headroom: exactly -10000 mB
  BuildEarlyMesh(p);
  EXPECT_EQ(Scene().EarlyStartTop[0].y, 0.0f);
  p.Gain = -8999;
  BuildEarlyMesh(p);
  EXPECT_NEAR(Scene().EarlyStartTop[0].y, 0.0001f, 1e-7f);
  p.Gain = -10000;
  p.ReflectionsGain = -10000;
  BuildEarlyMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(Scene().EarlyStartTop[i].y, 0.0f) << "row " << i;
}

TEST_F(EarlyMesh, HighAndLowGainsShapeTheTopAcrossFrequency) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsGain = 1000;
  p.GainHF = -1200;
  p.GainLF = -600;
  BuildEarlyMesh(p);
  const ResponseScene& s = Scene();
  // The shelves land on whole millibels: -12 dB at 20 kHz nearly doubles, -6 dB at 20 Hz nearly doubles.
  EXPECT_NEAR(s.EarlyStartTop[19].y, 1.0f - 0.236f, 0.003f);
  EXPECT_NEAR(s.EarlyStartTop[0].y, 1.0f - 0.118f, 0.003f);
  float lowest = 1.0f;
  for (int i = 0; i < 20; ++i) lowest = std::min(lowest, s.EarlyStartTop[i].y);
  EXPECT_EQ(lowest, s.EarlyStartTop[19].y);
}

// The shelves see whole decibels only: the gains are divided by 100 in integers.
TEST_F(EarlyMesh, GainHFCountsInWholeDecibelsTruncatedTowardZero) {
  auto topRow = [](int gainHF) {
    ReverbResponseParams p = Neutral();
    p.ReflectionsGain = 1000;
    p.GainHF = gainHF;
    BuildEarlyMesh(p);
    return Scene().EarlyStartTop[19].y;
  };
  EXPECT_EQ(topRow(-150), topRow(-100));
  EXPECT_LT(topRow(-150), topRow(0));
  EXPECT_EQ(topRow(-99), topRow(0));
  EXPECT_FLOAT_EQ(topRow(-99), 1.0f);
}
