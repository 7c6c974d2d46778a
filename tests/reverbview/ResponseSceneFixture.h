#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "reverbview/ReverbResponseModel.h"

// Each case gets a fresh scene of the window's 20 rows and a neutral reverb: no gains, no delays, a flat 1.49 s
// decay, no air absorption, references at 5 kHz and 250 Hz.
class ResponseSceneTest : public ::testing::Test {
protected:
  void SetUp() override { BuildResponseAxes(ResponseRows); }
  void TearDown() override { ReleaseResponseAxes(); }

  static ReverbResponseParams Neutral() {
    return {0, 0, 0, 1.49f, 1.0f, 1.0f, 0, 0.0f, 0, 0.0f, 0.0f, 5000.0f, 250.0f, 0};
  }
  static const ResponseScene& Scene() { return GetResponseScene(); }
  static double RowHz(int row) { return 20.0 * std::pow(10.0, 3.0 * Scene().FrequencyAxis[row]); }
  // The row's decay time in seconds, read back from the wedge: the decay runs at 0.1 scene units a second.
  static double RowDecaySeconds(int row) {
    return (Scene().LateDecayPoint[row].x - Scene().LateStartTop[row].x) * 10.0;
  }
};
