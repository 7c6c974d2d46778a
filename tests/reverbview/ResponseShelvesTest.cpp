#include "tests/reverbview/ResponseSceneFixture.h"

using ResponseShelves = ResponseSceneTest;

TEST_F(ResponseShelves, NoGainIsFlatAndBoostMirrorsCut) {
  const ReverbResponseParams p = Neutral();
  for (int row = 0; row < 20; ++row) {
    EXPECT_EQ(HighShelfMillibels(p, 0.0, row), 0.0f) << "row " << row;
    EXPECT_EQ(LowShelfMillibels(p, 0.0, row), 0.0f) << "row " << row;
    EXPECT_NEAR(HighShelfMillibels(p, 7.0, row), -HighShelfMillibels(p, -7.0, row), 0.01) << "row " << row;
    EXPECT_NEAR(LowShelfMillibels(p, 7.0, row), -LowShelfMillibels(p, -7.0, row), 0.01) << "row " << row;
  }
}

// Flat on one side, the gain at the reference, nearly twice the gain at the far end of the graph.
TEST_F(ResponseShelves, HighAndLowShelvesPassTheirReferenceTowardsOppositeEnds) {
  ReverbResponseParams p = Neutral();
  EXPECT_NEAR(HighShelfMillibels(p, -10.0, 0), 0.0, 0.2);
  EXPECT_NEAR(HighShelfMillibels(p, -10.0, 19), -1966.0, 1.0);
  EXPECT_NEAR(LowShelfMillibels(p, -10.0, 0), -1973.3, 1.0);
  EXPECT_NEAR(LowShelfMillibels(p, -10.0, 19), 0.0, 0.2);
  for (int row : {8, 15}) {
    p.HFReference = p.LFReference = static_cast<float>(RowHz(row));
    EXPECT_NEAR(HighShelfMillibels(p, -10.0, row), -1000.0, 0.5) << "row " << row;
    EXPECT_NEAR(LowShelfMillibels(p, 6.0, row), 600.0, 0.5) << "row " << row;
  }
}
