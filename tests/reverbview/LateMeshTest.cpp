#include <vector>

#include "tests/reverbview/ResponseSceneFixture.h"

using LateMesh = ResponseSceneTest;

TEST_F(LateMesh, DecayTimesFollowTheHighFrequencyRatio) {
  ReverbResponseParams p = Neutral();
  p.DecayHFRatio = 0.83f;  // 1.49 s, 5 kHz reference, no limit
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(0), 1.49, 0.001);    // 20 Hz
  EXPECT_NEAR(RowDecaySeconds(15), 1.252, 0.003);  // 4671 Hz
  EXPECT_NEAR(RowDecaySeconds(18), 1.077, 0.003);  // 13904 Hz
  for (int i = 1; i < 20; ++i) EXPECT_LT(RowDecaySeconds(i), RowDecaySeconds(i - 1)) << "row " << i;
  p.DecayTime = 2.0f;
  p.DecayHFRatio = 1.0f;
  p.DecayLFRatio = 1.5f;
  p.LFReference = static_cast<float>(RowHz(6));
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(6), 3.0, 0.005);
  EXPECT_GT(RowDecaySeconds(0), 3.0);
  EXPECT_NEAR(RowDecaySeconds(19), 2.0, 0.005);
}

// Air absorbing 5 mB a metre (a linear 0.994) takes 60 dB in 60 / 17 s at 340 m/s.
TEST_F(LateMesh, AirAbsorptionLimitsTheHighDecayOnlyWhenSetAndShorter) {
  ReverbResponseParams p = Neutral();
  p.DecayTime = 20.0f;
  p.HFReference = static_cast<float>(RowHz(15));
  p.DecayHFLimit = 1;
  p.AirAbsorption = -5.0f;
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(15), 60.0 / 17.0, 0.003);
  for (int i = 16; i < 20; ++i) EXPECT_LT(RowDecaySeconds(i), RowDecaySeconds(i - 1)) << "row " << i;
  EXPECT_NEAR(RowDecaySeconds(0), 20.0, 0.1);

  p.AirAbsorption = 0.0f;  // no absorption switches the limit off
  BuildLateMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_NEAR(RowDecaySeconds(i), 20.0, 0.001) << "row " << i;
  p.AirAbsorption = -5.0f;
  p.DecayHFLimit = 0;
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(15), 20.0, 0.001);

  p = Neutral();
  p.DecayHFRatio = 0.83f;  // 1.24 s at 5 kHz, inside the air's 3.53 s
  BuildLateMesh(p);
  std::vector<double> unlimited;
  for (int i = 0; i < 20; ++i) unlimited.push_back(RowDecaySeconds(i));
  p.DecayHFLimit = 1;
  p.AirAbsorption = -5.0f;
  BuildLateMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(RowDecaySeconds(i), unlimited[i]) << "row " << i;
}

TEST_F(LateMesh, WedgeStartsWhereTheEarlySlabEnds) {
  ReverbResponseParams p = Neutral();
  p.ReflectionsDelay = 0.037f;
  p.LateReverbDelay = 0.061f;
  BuildEarlyMesh(p);
  BuildLateMesh(p);
  for (int i = 0; i < 20; ++i) {
    EXPECT_FLOAT_EQ(Scene().LateStartTop[i].x, Scene().EarlyEndTop[i].x) << "row " << i;
    EXPECT_EQ(Scene().LateStartBase[i].x, Scene().LateStartTop[i].x);
    EXPECT_EQ(Scene().LateStartBase[i].y, 0.0f);
  }
  EXPECT_NEAR(Scene().LateStartTop[0].x, 0.037f + 4.0f * 0.061f, 1e-6f);
}

// The decay-time correction is formed in decibels and added to millibels as it stands: a few millibels only.
TEST_F(LateMesh, StartLevelCarriesTheDecayTimeCorrectionInMillibels) {
  ReverbResponseParams p = Neutral();
  p.LateReverbGain = 2000;  // above 0 dB, above the rear panel
  BuildLateMesh(p);         // 1.49 s: -10 log10(ln 10 * 6 / 1.49) truncates to -9
  EXPECT_NEAR(Scene().LateStartTop[0].y, 1.2009f, 1e-6f);
  p.LateReverbGain = 0;
  p.Gain = -3000;
  p.DecayTime = 20.0f;  // truncates to +1
  BuildLateMesh(p);
  EXPECT_NEAR(Scene().LateStartTop[0].y, 0.6999f, 1e-6f);
}

// Start (x0, y0), 60 dB down one decay time later, on to the floor y0 / 0.6 decay times out, and to x = 2.0.
TEST_F(LateMesh, DecayLineRunsOnToTheFloorAndTheRightWall) {
  ReverbResponseParams p = Neutral();
  p.LateReverbGain = -1000;  // 90.09 dB up with the correction
  BuildLateMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_NEAR(s.LateDecayPoint[i].y, 0.9009f - 0.6f, 1e-6f) << "row " << i;
    EXPECT_NEAR(s.LateFloorPoint[i].x, 0.149f * 0.9009f / 0.6f, 1e-4f) << "row " << i;
    EXPECT_EQ(s.LateFloorPoint[i].y, 0.0f);
    EXPECT_EQ(s.LateWallPoint[i].x, 2.0f);
    EXPECT_NEAR(s.LateWallPoint[i].y, 0.9009f - 0.6f * 2.0f / 0.149f, 1e-3f) << "row " << i;
    EXPECT_EQ(s.LateWallBase[i].x, 2.0f);
    EXPECT_EQ(s.LateWallBase[i].y, 0.0f);
    EXPECT_TRUE(s.LateFloorPoint[i].z == s.FrequencyAxis[i] && s.LateWallBase[i].z == s.FrequencyAxis[i]);
  }
  p.DecayTime = 20.0f;  // 2.0 units for 60 dB: out through the wall above the floor
  BuildLateMesh(p);
  EXPECT_NEAR(s.LateWallPoint[3].y, 0.8999f - 0.6f, 1e-4f);
  EXPECT_NEAR(s.LateFloorPoint[3].x, 0.8999f / 0.6f * 2.0f, 1e-3f);
}

TEST_F(LateMesh, RowStartingOnTheFloorMeetsItAtTheStart) {
  ReverbResponseParams p = Neutral();
  p.Gain = p.LateReverbGain = -10000;
  p.ReflectionsDelay = 0.01f;
  BuildLateMesh(p);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(Scene().LateStartTop[i].y, 0.0f) << "row " << i;
    EXPECT_EQ(Scene().LateFloorPoint[i].x, Scene().LateStartTop[i].x) << "row " << i;
  }
}
