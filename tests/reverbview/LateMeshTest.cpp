#include "tests/reverbview/ResponseSceneFixture.h"

namespace {

constexpr int Row20Hz = 0;
constexpr int Row4671Hz = 15;
constexpr int Row13904Hz = 18;

}  // namespace

using LateMesh = ResponseSceneTest;

TEST_F(LateMesh, DecayTimesFollowTheHighFrequencyRatio) {
  ReverbResponseParams p = Neutral();
  p.DecayTime = 1.49f;
  p.DecayHFRatio = 0.83f;
  p.DecayLFRatio = 1.0f;
  p.HFReference = 5000.0f;
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(Row20Hz), 1.49, 0.001);
  EXPECT_NEAR(RowDecaySeconds(Row4671Hz), 1.252, 0.003);
  EXPECT_NEAR(RowDecaySeconds(Row13904Hz), 1.077, 0.003);
  for (int i = 1; i < 20; ++i) EXPECT_LT(RowDecaySeconds(i), RowDecaySeconds(i - 1)) << "row " << i;
}

TEST_F(LateMesh, LowFrequencyRatioLengthensTheBottomRows) {
  ReverbResponseParams p = Neutral();
  p.DecayTime = 2.0f;
  p.DecayLFRatio = 1.5f;
  p.LFReference = static_cast<float>(RowHz(6));
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(6), 3.0, 0.005);
  EXPECT_GT(RowDecaySeconds(0), 3.0);
  EXPECT_NEAR(RowDecaySeconds(19), 2.0, 0.005);
}

class AirAbsorptionLimit : public ResponseSceneTest {
protected:
  // A 20 s decay, the same at every frequency unless the air shortens it; the HF reference on row 15.
  static ReverbResponseParams LongDecay() {
    ReverbResponseParams p = Neutral();
    p.DecayTime = 20.0f;
    p.DecayHFRatio = 1.0f;
    p.HFReference = static_cast<float>(RowHz(15));
    p.DecayHFLimit = 1;
    return p;
  }
};

TEST_F(AirAbsorptionLimit, FiveMillibelsAMetreCutsTheReferenceRowToAboutThreeAndAHalfSeconds) {
  ReverbResponseParams p = LongDecay();
  p.AirAbsorption = -5.0f;  // a linear 0.994
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(15), 60.0 / 17.0, 0.003);
  for (int i = 16; i < 20; ++i) EXPECT_LT(RowDecaySeconds(i), RowDecaySeconds(i - 1)) << "row " << i;
  EXPECT_NEAR(RowDecaySeconds(0), 20.0, 0.1);
}

TEST_F(AirAbsorptionLimit, NoAbsorptionSwitchesTheLimitOff) {
  ReverbResponseParams p = LongDecay();
  p.AirAbsorption = 0.0f;
  BuildLateMesh(p);
  for (int i = 0; i < 20; ++i) EXPECT_NEAR(RowDecaySeconds(i), 20.0, 0.001) << "row " << i;
}

TEST_F(AirAbsorptionLimit, FlagOffIgnoresTheAbsorption) {
  ReverbResponseParams p = LongDecay();
  p.AirAbsorption = -5.0f;
  p.DecayHFLimit = 0;
  BuildLateMesh(p);
  EXPECT_NEAR(RowDecaySeconds(15), 20.0, 0.001);
}

TEST_F(AirAbsorptionLimit, LimitLongerThanTheHighDecayChangesNothing) {
  ReverbResponseParams p = Neutral();
  p.DecayHFRatio = 0.83f;  // 1.24 s at 5 kHz, well inside the air's 3.53 s
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
  p.LateReverbGain = 2000;
  p.DecayTime = 1.49f;  // -10 log10(ln 10 * 6 / 1.49) truncates to -9
  BuildLateMesh(p);
  EXPECT_NEAR(Scene().LateStartTop[0].y, 1.2009f, 1e-6f);

  p.LateReverbGain = 0;
  p.DecayTime = 20.0f;  // truncates to +1
  BuildLateMesh(p);
  EXPECT_NEAR(Scene().LateStartTop[0].y, 0.9999f, 1e-6f);

  p.Gain = -3000;
  BuildLateMesh(p);
  EXPECT_NEAR(Scene().LateStartTop[0].y, 0.6999f, 1e-6f);
}

TEST_F(LateMesh, GainHFCountsInWholeDecibelsAsInTheEarlySlab) {
  auto topRow = [](int gainHF) {
    ReverbResponseParams p = Neutral();
    p.GainHF = gainHF;
    BuildLateMesh(p);
    return Scene().LateStartTop[19].y;
  };
  EXPECT_EQ(topRow(-150), topRow(-100));
  EXPECT_LT(topRow(-150), topRow(0));
  EXPECT_EQ(topRow(-99), topRow(0));
}

TEST_F(LateMesh, DecayLineFallsSixtyDecibelsOverTheRowsDecayTime) {
  ReverbResponseParams p = Neutral();
  p.LateReverbGain = -1000;
  p.DecayHFRatio = 0.5f;
  BuildLateMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    const ResponsePoint& start = s.LateStartTop[i];
    const ResponsePoint& decay = s.LateDecayPoint[i];
    EXPECT_NEAR(decay.y, start.y - 0.6f, 1e-6f) << "row " << i;
    EXPECT_EQ(decay.z, start.z);
    // Carried on down: a start y0 above the floor reaches it y0 / 0.6 decay times out.
    EXPECT_EQ(s.LateFloorPoint[i].y, 0.0f);
    EXPECT_NEAR(s.LateFloorPoint[i].x - start.x, (decay.x - start.x) * start.y / 0.6f, 1e-5f) << "row " << i;
    EXPECT_EQ(s.LateFloorPoint[i].z, start.z);
  }
  // -10 dB, +9 mB for the 1.49 s decay: the start stands 90.09 dB up and the floor is 1.5015 decay times out.
  EXPECT_NEAR(s.LateFloorPoint[0].x - s.LateStartTop[0].x, 0.149f * 1.5015f, 1e-4f);
}

TEST_F(LateMesh, ShortDecaysMeetTheRightWallBelowTheFloor) {
  BuildLateMesh(Neutral());
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(s.LateWallPoint[i].x, 2.0f);
    EXPECT_NEAR(s.LateWallPoint[i].y, 1.0009f - 0.6f * 2.0f / 0.149f, 1e-3f) << "row " << i;
    EXPECT_EQ(s.LateWallBase[i].x, 2.0f);
    EXPECT_EQ(s.LateWallBase[i].y, 0.0f);
    EXPECT_EQ(s.LateWallBase[i].z, s.LateWallPoint[i].z);
    EXPECT_LT(s.LateFloorPoint[i].x, 2.0f);
  }
}

TEST_F(LateMesh, LongDecaysLeaveThroughTheRightWallAboveTheFloor) {
  ReverbResponseParams p = Neutral();
  p.DecayTime = 20.0f;  // 2.0 units to fall 60 dB
  BuildLateMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_NEAR(s.LateWallPoint[i].y, 0.9999f - 0.6f, 1e-4f) << "row " << i;
    EXPECT_NEAR(s.LateFloorPoint[i].x, 0.9999f / 0.6f * 2.0f, 1e-3f) << "row " << i;
  }
}

TEST_F(LateMesh, RowStartingOnTheFloorEndsWhereItStarts) {
  ReverbResponseParams p = Neutral();
  p.Gain = -10000;
  p.LateReverbGain = -10000;
  p.ReflectionsDelay = 0.01f;
  p.LateReverbDelay = 0.02f;
  BuildLateMesh(p);
  const ResponseScene& s = Scene();
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(s.LateStartTop[i].y, 0.0f) << "row " << i;
    EXPECT_EQ(s.LateFloorPoint[i].x, s.LateStartTop[i].x) << "row " << i;
    EXPECT_NEAR(s.LateDecayPoint[i].y, -0.6f, 1e-6f);
  }
}
