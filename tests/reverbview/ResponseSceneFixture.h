#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "reverbview/ReverbResponseModel.h"

// Every case gets a fresh scene of the window's 20 rows, and a neutral reverb: no gains, no delays, a flat
// 1.49 s decay, no air absorption.
class ResponseSceneTest : public ::testing::Test {
protected:
  void SetUp() override { BuildResponseAxes(ResponseRows); }
  void TearDown() override { ReleaseResponseAxes(); }

  static ReverbResponseParams Neutral() {
    ReverbResponseParams p;
    p.Gain = 0;
    p.GainHF = 0;
    p.GainLF = 0;
    p.DecayTime = 1.49f;
    p.DecayHFRatio = 1.0f;
    p.DecayLFRatio = 1.0f;
    p.ReflectionsGain = 0;
    p.ReflectionsDelay = 0.0f;
    p.LateReverbGain = 0;
    p.LateReverbDelay = 0.0f;
    p.AirAbsorption = 0.0f;
    p.HFReference = 5000.0f;
    p.LFReference = 250.0f;
    p.DecayHFLimit = 0;
    return p;
  }

  static const ResponseScene& Scene() { return GetResponseScene(); }

  // Frequency of a row, in hertz.
  static double RowHz(int row) { return 20.0 * std::pow(10.0, 3.0 * Scene().FrequencyAxis[row]); }

  // The row's decay time in seconds, read back from the wedge: the decay takes 0.1 scene units a second.
  static double RowDecaySeconds(int row) {
    return (Scene().LateDecayPoint[row].x - Scene().LateStartTop[row].x) * 10.0;
  }
};
