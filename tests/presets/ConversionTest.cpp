// The level conversions and the EAX reverb record's conversions, against values worked out by hand.
#include "presets/ByteOrder.h"
#include "presets/EAXReverbRecord.h"
#include "presets/Millibels.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace preset_bytes;

TEST(Millibels, SilenceIsMinusTenThousandBothWays)
{
    EXPECT_EQ(MillibelsToGain(-10000.0f), 0.0f);
    EXPECT_EQ(GainToMillibels(0.0f), -10000.0f);
    EXPECT_EQ(GainToMillibelsInt(0.0f), -10000);
    // Anything at or below the floor of 0.00001 (negative gains too) lands on -10000 as well.
    EXPECT_NEAR(GainToMillibels(-1.0f), -10000.0f, 0.01f);
    EXPECT_NEAR(GainToMillibels(1e-9f), -10000.0f, 0.01f);
    // -9999 is not silence.
    EXPECT_NEAR(MillibelsToGain(-9999.0f), 1.00115e-5f, 1e-9f);
}

TEST(Millibels, LevelsAreTwoThousandToAFactorOfTenCutTowardsZero)
{
    EXPECT_EQ(GainToMillibelsInt(1.0f), 0);
    EXPECT_EQ(GainToMillibelsInt(0.5f), -602);  // -602.06
    EXPECT_EQ(GainToMillibelsInt(2.0f), 602);   // 602.06
    EXPECT_EQ(GainToMillibelsInt(0.3f), -1045); // -1045.76: cut, not rounded
    EXPECT_EQ(GainToMillibelsInt(50.0f), 3397); // 3397.94
    EXPECT_EQ(GainToMillibelsInt(0.1f), -2000);
    EXPECT_NEAR(GainToMillibels(0.95f), -44.5528f, 0.001f);

    EXPECT_FLOAT_EQ(MillibelsToGain(0.0f), 1.0f);
    EXPECT_NEAR(MillibelsToGain(-2000.0f), 0.1f, 1e-7f);
    EXPECT_NEAR(MillibelsToGain(-602.0f), 0.5000345f, 1e-6f);
    EXPECT_NEAR(MillibelsToGain(602.0f), 1.9998618f, 1e-6f);
}

TEST(Millibels, HugeGainsFitTheIntegerRange)
{
    EXPECT_EQ(GainToMillibelsInt(std::numeric_limits<float>::infinity()), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(GainToMillibelsInt(std::numeric_limits<float>::quiet_NaN()), -10000);
}

EAXReverbValues SomeReverb()
{
    using namespace eax_value;
    EAXReverbValues v{};
    v[kDensity] = 0.5f;
    v[kDiffusion] = 0.7f;
    v[kGain] = 0.5f;
    v[kGainHF] = 0.25f;
    v[kGainLF] = 2.0f;
    v[kDecayTime] = 3.0f;
    v[kDecayHFRatio] = 1.25f;
    v[kDecayLFRatio] = 0.75f;
    v[kReflectionsGain] = 0.1f;
    v[kReflectionsDelay] = 0.125f;
    v[kReflectionsPan + 0] = 0.1f;
    v[kReflectionsPan + 1] = 0.2f;
    v[kReflectionsPan + 2] = 0.3f;
    v[kLateReverbGain] = 0.0f;
    v[kLateReverbDelay] = 0.03125f;
    v[kLateReverbPan + 0] = -0.4f;
    v[kLateReverbPan + 1] = -0.5f;
    v[kLateReverbPan + 2] = -0.6f;
    v[kEchoTime] = 0.25f;
    v[kEchoDepth] = 0.5f;
    v[kModulationTime] = 1.5f;
    v[kModulationDepth] = 0.375f;
    v[kAirAbsorptionGainHF] = 0.95f;
    v[kHFReference] = 4000.0f;
    v[kLFReference] = 200.0f;
    v[kRoomRolloffFactor] = 1.5f;
    v[kDecayHFLimit] = 1.0f;
    return v;
}

TEST(EAXReverbRecord, EngineValuesGoToTheirFieldsInTheRecordsUnits)
{
    std::uint8_t record[kEAXReverbRecordSize];
    std::memset(record, 0xAB, sizeof record);
    EFXToEAXReverb(SomeReverb(), record);

    EXPECT_EQ(LoadLE32(record + 0), 0xABABABABu) << "Environment is not written";
    EXPECT_NEAR(LoadLEF32(record + 4), 1.9986142f, 1e-6f); // (0.5 x 16)^0.333
    EXPECT_EQ(LoadLEF32(record + 8), 0.7f);
    EXPECT_EQ(LoadLEI32(record + 12), -602);
    EXPECT_EQ(LoadLEI32(record + 16), -1204);
    EXPECT_EQ(LoadLEI32(record + 20), 602);
    EXPECT_EQ(LoadLEF32(record + 24), 3.0f);
    EXPECT_EQ(LoadLEF32(record + 28), 1.25f);
    EXPECT_EQ(LoadLEF32(record + 32), 0.75f);
    EXPECT_EQ(LoadLEI32(record + 36), -2000);
    EXPECT_EQ(LoadLEF32(record + 40), 0.125f);
    EXPECT_EQ(LoadLEF32(record + 44), 0.1f);
    EXPECT_EQ(LoadLEF32(record + 48), 0.2f);
    EXPECT_EQ(LoadLEF32(record + 52), 0.3f);
    EXPECT_EQ(LoadLEI32(record + 56), -10000);
    EXPECT_EQ(LoadLEF32(record + 60), 0.03125f);
    EXPECT_EQ(LoadLEF32(record + 64), -0.4f);
    EXPECT_EQ(LoadLEF32(record + 68), -0.5f);
    EXPECT_EQ(LoadLEF32(record + 72), -0.6f);
    EXPECT_EQ(LoadLEF32(record + 76), 0.25f);
    EXPECT_EQ(LoadLEF32(record + 80), 0.5f);
    EXPECT_EQ(LoadLEF32(record + 84), 1.5f);
    EXPECT_EQ(LoadLEF32(record + 88), 0.375f);
    EXPECT_NEAR(LoadLEF32(record + 92), -44.5528f, 0.001f) << "kept as float, not cut";
    EXPECT_EQ(LoadLEF32(record + 96), 4000.0f);
    EXPECT_EQ(LoadLEF32(record + 100), 200.0f);
    EXPECT_EQ(LoadLEF32(record + 104), 1.5f);
    EXPECT_EQ(LoadLE32(record + 108), 32u);
}

TEST(EAXReverbRecord, RecordGoesBackToEngineValuesThroughTheOneMillibelScale)
{
    using namespace eax_value;
    std::uint8_t record[kEAXReverbRecordSize] = {};
    EFXToEAXReverb(SomeReverb(), record);
    const EAXReverbValues v = EAXToEFXReverb(record);
    EXPECT_NEAR(v[kDensity], 0.49896136f, 1e-6f);
    EXPECT_NEAR(v[kGain], 0.5000345f, 1e-6f);
    EXPECT_NEAR(v[kGainHF], 0.2500345f, 1e-6f);
    EXPECT_NEAR(v[kGainLF], 1.9998618f, 1e-6f);
    EXPECT_NEAR(v[kReflectionsGain], 0.1f, 1e-7f);
    EXPECT_EQ(v[kLateReverbGain], 0.0f);
    EXPECT_NEAR(v[kAirAbsorptionGainHF], 0.95f, 1e-6f);
    EXPECT_EQ(v[kLateReverbPan + 2], -0.6f);
    EXPECT_EQ(v[kDecayHFLimit], 1.0f);
}

TEST(EAXReverbRecord, DensityKeepsItsRoomSizeQuirks)
{
    using namespace eax_value;
    std::uint8_t record[kEAXReverbRecordSize] = {};
    EAXReverbValues v = SomeReverb();
    const auto densityBack = [&](float density) {
        v[kDensity] = density;
        EFXToEAXReverb(v, record);
        return EAXToEFXReverb(record)[kDensity];
    };
    EXPECT_NEAR(densityBack(1.0f), 0.99723f, 1e-5f) << "0.333 is not a third";
    EXPECT_EQ(densityBack(0.01f), 0.0625f) << "the room size's floor of 1.0";
    EXPECT_EQ(densityBack(0.0f), 0.0625f);
    EXPECT_EQ(densityBack(2.0f), 1.0f);
    EXPECT_EQ(LoadLEF32(record + 4), 10000000.0f);
    EXPECT_FLOAT_EQ(densityBack(-0.5f), -6.25e19f) << "held only from above";
    EXPECT_EQ(LoadLEF32(record + 4), -10000000.0f);
}

// Loading reads only bit five of the flags, and the environment not at all.
TEST(EAXReverbRecord, OnlyBitFiveOfFlagsIsTheHighFrequencyLimitAndTheEnvironmentIsNotRead)
{
    std::uint8_t record[kEAXReverbRecordSize] = {};
    StoreLE32(record + 108, ~32u);
    EXPECT_EQ(EAXToEFXReverb(record)[eax_value::kDecayHFLimit], 0.0f);
    StoreLE32(record + 108, 32u);
    EXPECT_EQ(EAXToEFXReverb(record)[eax_value::kDecayHFLimit], 1.0f);

    EAXReverbValues v = SomeReverb();
    v[eax_value::kDecayHFLimit] = 0.0f;
    EFXToEAXReverb(v, record);
    EXPECT_EQ(LoadLE32(record + 108), 0u);

    std::uint8_t other[kEAXReverbRecordSize] = {};
    EFXToEAXReverb(v, other);
    StoreLE32(other, 26);
    EXPECT_EQ(EAXToEFXReverb(record), EAXToEFXReverb(other));
}

} // namespace
