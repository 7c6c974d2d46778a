#include "tests/reverbview/ResponseSceneFixture.h"

namespace {

constexpr int FirstRow = 0;   // 20 Hz
constexpr int LastRow = 19;   // 20 kHz

}  // namespace

class ResponseShelves : public ResponseSceneTest {
protected:
  // A reverb whose references sit exactly on the frequency of `row`.
  static ReverbResponseParams ReferencesOnRow(int row) {
    ReverbResponseParams p = Neutral();
    p.HFReference = static_cast<float>(RowHz(row));
    p.LFReference = static_cast<float>(RowHz(row));
    return p;
  }
};

TEST_F(ResponseShelves, NoGainIsFlatEverywhere) {
  const ReverbResponseParams p = Neutral();
  for (int row = 0; row < 20; ++row) {
    EXPECT_EQ(HighShelfMillibels(p, 0.0, row), 0.0f) << "row " << row;
    EXPECT_EQ(LowShelfMillibels(p, 0.0, row), 0.0f) << "row " << row;
  }
}

TEST_F(ResponseShelves, EachShelfGivesItsGainAtItsReference) {
  for (int row : {8, 11, 15}) {
    const ReverbResponseParams p = ReferencesOnRow(row);
    EXPECT_NEAR(HighShelfMillibels(p, -10.0, row), -1000.0, 0.5) << "row " << row;
    EXPECT_NEAR(LowShelfMillibels(p, -10.0, row), -1000.0, 0.5) << "row " << row;
    EXPECT_NEAR(HighShelfMillibels(p, 6.0, row), 600.0, 0.5) << "row " << row;
  }
}

TEST_F(ResponseShelves, HighShelfIsFlatBelowAndNearlyDoubleAtTwentyKilohertz) {
  const ReverbResponseParams p = Neutral();  // 5 kHz
  EXPECT_NEAR(HighShelfMillibels(p, -10.0, FirstRow), 0.0, 0.2);
  const float top = HighShelfMillibels(p, -10.0, LastRow);
  EXPECT_LT(top, -1900.0f);
  EXPECT_GT(top, -2000.0f);
  for (int row = 1; row < 20; ++row)
    EXPECT_LT(HighShelfMillibels(p, -10.0, row), HighShelfMillibels(p, -10.0, row - 1)) << "row " << row;
}

TEST_F(ResponseShelves, LowShelfIsNearlyDoubleAtTwentyHertzAndFlatAbove) {
  const ReverbResponseParams p = Neutral();  // 250 Hz
  const float bottom = LowShelfMillibels(p, -10.0, FirstRow);
  EXPECT_LT(bottom, -1950.0f);
  EXPECT_GT(bottom, -2000.0f);
  EXPECT_NEAR(LowShelfMillibels(p, -10.0, LastRow), 0.0, 0.2);
  for (int row = 1; row < 20; ++row)
    EXPECT_GT(LowShelfMillibels(p, -10.0, row), LowShelfMillibels(p, -10.0, row - 1)) << "row " << row;
}

TEST_F(ResponseShelves, BoostAndCutOfTheSameSizeMirrorEachOther) {
  const ReverbResponseParams p = Neutral();
  for (int row = 0; row < 20; ++row) {
    EXPECT_NEAR(HighShelfMillibels(p, 7.0, row), -HighShelfMillibels(p, -7.0, row), 0.01) << "row " << row;
    EXPECT_NEAR(LowShelfMillibels(p, 7.0, row), -LowShelfMillibels(p, -7.0, row), 0.01) << "row " << row;
  }
}

TEST_F(ResponseShelves, FollowTheirOwnReferenceOnly) {
  ReverbResponseParams p = Neutral();
  const float highAt5k = HighShelfMillibels(p, -10.0, 12);
  const float lowAt250 = LowShelfMillibels(p, -10.0, 12);
  p.LFReference = 1000.0f;
  EXPECT_EQ(HighShelfMillibels(p, -10.0, 12), highAt5k);
  EXPECT_LT(LowShelfMillibels(p, -10.0, 12), lowAt250);
  p.HFReference = 1000.0f;
  EXPECT_LT(HighShelfMillibels(p, -10.0, 12), highAt5k);
}

TEST_F(ResponseShelves, RowOutsideTheSceneGivesNothing) {
  const ReverbResponseParams p = Neutral();
  EXPECT_EQ(HighShelfMillibels(p, -10.0, -1), 0.0f);
  EXPECT_EQ(LowShelfMillibels(p, -10.0, 20), 0.0f);
}
