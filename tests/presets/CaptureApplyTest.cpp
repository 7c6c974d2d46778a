// Capturing live effect slots into preset records and applying records back, through the real
// OpenAL Soft (null output). A spy on OpenAL's effect calls shows the order of the getters and
// setters, and a factory that counts its slot hand-outs shows that each call takes the slot anew.
#include "PresetTestSupport.h"

#include "engine/EFX_EffectSlot.h"
#include "engine/ProcAddress.h"
#include "presets/ByteOrder.h"
#include "presets/Millibels.h"
#include "presets/PresetCapture.h"
#include "presets/PresetLookups.h"
#include "presets/SlotProperty.h"

#include "tests/engine/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

using namespace preset_test;
using namespace preset_bytes;

namespace {

// Records the token of every effect property call, sets and gets apart, on its way to OpenAL.
class EffectCallSpy {
public:
    EffectCallSpy()
    {
        s_self = this;
        efx_proc::SetResolver(&Resolve);
    }
    ~EffectCallSpy()
    {
        efx_proc::SetResolver(nullptr);
        s_self = nullptr;
    }
    void Clear()
    {
        sets.clear();
        gets.clear();
    }

    std::vector<ALenum> sets;
    std::vector<ALenum> gets;

private:
    inline static EffectCallSpy* s_self = nullptr;
    // The six entry points it sees through: the three setters, then the three getters.
    static constexpr const char* kNames[] = {"alEffecti",    "alEffectf",    "alEffectfv",
                                             "alGetEffecti", "alGetEffectf", "alGetEffectfv"};
    template <int N, typename Value>
    static void AL_APIENTRY Call(ALuint effect, ALenum token, Value value)
    {
        (N < 3 ? s_self->sets : s_self->gets).push_back(token);
        using Real = void(AL_APIENTRY*)(ALuint, ALenum, Value);
        reinterpret_cast<Real>(alGetProcAddress(kNames[N]))(effect, token, value);
    }
    static void* Resolve(const char* name)
    {
        void* const calls[] = {
            reinterpret_cast<void*>(&Call<0, ALint>),    reinterpret_cast<void*>(&Call<1, ALfloat>),
            reinterpret_cast<void*>(&Call<2, const ALfloat*>), reinterpret_cast<void*>(&Call<3, ALint*>),
            reinterpret_cast<void*>(&Call<4, ALfloat*>), reinterpret_cast<void*>(&Call<5, ALfloat*>)};
        for (int n = 0; n < 6; ++n)
            if (std::string(name) == kNames[n])
                return calls[n];
        return alGetProcAddress(name);
    }
};

// A factory that counts how often a slot is asked for.
class CountingFactory : public EFX_Factory {
public:
    EFX_EffectSlot* GetEffectSlot(std::uint32_t index) override
    {
        ++takes;
        return EFX_Factory::GetEffectSlot(index);
    }
    int takes = 0;
};

namespace sp = slot_property;

// One property of a round trip: the value set before the capture, and what OpenAL holds after the
// record is applied to the effect's defaults (a level comes back through whole millibels). A vector
// property takes its three values instead.
struct Field {
    SlotAccessor property;
    float set;
    float back;
    float tolerance = 0.0f;
    std::array<float, 3> setVector{};
    std::array<float, 3> backVector{};
};
struct RoundTrip {
    const char* name;
    int type;
    std::vector<Field> fields; // in the order of the getter and setter calls
    Bytes record;
    const char* refused = nullptr; // a property that applying refuses, and the slot's log names
};

SlotValue ValueOf(const Field& field)
{
    SlotValue value;
    value.f[0] = field.set;
    value.i = static_cast<int>(field.set);
    if (field.property.kind == PropertyKind::Vector)
        std::copy(field.setVector.begin(), field.setVector.end(), value.f);
    return value;
}

class CaptureApply : public ::testing::Test {
protected:
    void SetUp() override
    {
        EFX_Factory::SelectDevice("");
        m_factory = std::make_unique<CountingFactory>();
        ASSERT_EQ(m_factory->Initialize(0, 4), 1) << m_factory->GetLog();
        m_slot = m_factory->CreateEffectSlot(0);
        ASSERT_NE(m_slot, nullptr) << m_factory->GetLog();
    }
    void TearDown() override
    {
        m_factory->Shutdown();
        m_factory.reset();
    }

    void Load(int type)
    {
        ASSERT_EQ(m_slot->LoadEffect(type), 1) << m_slot->GetLog();
        m_slot->ClearLog();
        m_spy.Clear();
    }
    Bytes Capture(int type)
    {
        m_factory->takes = 0;
        m_spy.Clear();
        return CaptureRecord(*m_factory, 0, type);
    }
    void Apply(int type, const Bytes& record)
    {
        EffectGuid guid;
        EffectTypeToGuid(type, guid);
        m_factory->takes = 0;
        m_spy.Clear();
        m_slot->ClearLog();
        ApplyPreset(*m_factory, 0, guid, record.data(), static_cast<std::uint32_t>(record.size()));
    }

    // The trip's values go into a record and back onto the effect's defaults, with one getter or
    // setter call and one slot hand-out per field, in the trip's order of calls.
    void GoAndBack(const RoundTrip& trip, Bytes& record)
    {
        SCOPED_TRACE(trip.name);
        Load(trip.type);
        std::vector<ALenum> tokens;
        for (const Field& field : trip.fields) {
            ASSERT_EQ(SetSlotProperty(*m_slot, field.property, ValueOf(field)), 1);
            tokens.push_back(field.property.token);
        }
        record = Capture(trip.type);
        EXPECT_EQ(m_factory->takes, static_cast<int>(trip.fields.size()));
        EXPECT_EQ(m_spy.gets, tokens);

        Load(kEffectNone);
        Load(trip.type); // back to the effect's defaults
        Apply(trip.type, record);
        EXPECT_EQ(m_factory->takes, static_cast<int>(trip.fields.size()));
        EXPECT_EQ(m_spy.sets, tokens);
        // No setter is refused, or only the one the trip names, and the log says so.
        const std::string refusal =
            trip.refused ? std::string("Error setting ") + trip.refused + " in EFX Effect object" : "Error setting";
        EXPECT_EQ(std::string(m_slot->GetLog()).find(refusal) != std::string::npos, trip.refused != nullptr)
            << m_slot->GetLog();
        for (const Field& field : trip.fields) {
            SlotValue value;
            ASSERT_EQ(GetSlotProperty(*m_slot, field.property, value), 1);
            if (field.property.kind == PropertyKind::Vector) {
                for (int axis = 0; axis < 3; ++axis)
                    EXPECT_EQ(value.f[axis], field.backVector[axis]) << field.property.token << " " << axis;
                continue;
            }
            const float back = field.property.kind == PropertyKind::Float ? value.f[0] : static_cast<float>(value.i);
            EXPECT_NEAR(back, field.back, field.tolerance) << field.property.token;
        }
    }

    EffectCallSpy m_spy; // in place before the slot resolves its entry points
    std::unique_ptr<CountingFactory> m_factory;
    EFX_EffectSlot* m_slot = nullptr;
};

using S = EFX_EffectSlot;
using engine_test::Got;

const RoundTrip kRoundTrips[] = {
    {"echo: floats go over unchanged", kEffectEcho,
     {{sp::kEchoDelay, 0.2f, 0.2f}, {sp::kEchoLrdelay, 0.3f, 0.3f}, {sp::kEchoDamping, 0.7f, 0.7f},
      {sp::kEchoFeedback, 0.4f, 0.4f}, {sp::kEchoSpread, 0.5f, 0.5f}},
     Cat({F32(0.2f), F32(0.3f), F32(0.7f), F32(0.4f), F32(0.5f)})},
    {"compressor off is 0", kEffectCompressor, {{sp::kCompressorOnoff, 0, 0}}, Le32(0)},
    {"compressor on is 1", kEffectCompressor, {{sp::kCompressorOnoff, 1, 1}}, Le32(1)},
    {"auto wah: levels are cut to whole millibels", kEffectAutowah,
     {{sp::kAutowahAttackTime, 0.1f, 0.1f}, {sp::kAutowahReleaseTime, 0.2f, 0.2f},
      {sp::kAutowahResonance, 50.0f, 49.94592f, 1e-4f}, {sp::kAutowahPeakGain, 2.0f, 1.9998618f, 1e-6f}},
     Cat({F32(0.1f), F32(0.2f), Le32(3397), Le32(602)})},
    {"chorus: the waveform applies", kEffectChorus,
     {{sp::kChorusWaveform, 0, 0}, {sp::kChorusPhase, -45, -45}, {sp::kChorusRate, 2.5f, 2.5f},
      {sp::kChorusDepth, 0.3f, 0.3f}, {sp::kChorusFeedback, -0.5f, -0.5f}, {sp::kChorusDelay, 0.01f, 0.01f}},
     Cat({Le32(0), I32(-45), F32(2.5f), F32(0.3f), F32(-0.5f), F32(0.01f)})},
    {"distortion: the gain is a level", kEffectDistortion,
     {{sp::kDistortionEdge, 0.5f, 0.5f}, {sp::kDistortionGain, 0.5f, 0.5000345f, 1e-6f},
      {sp::kDistortionLowpassCutoff, 5000, 5000}, {sp::kDistortionEqcenter, 2000, 2000},
      {sp::kDistortionEqbandwidth, 1000, 1000}},
     Cat({F32(0.5f), I32(-602), F32(5000.0f), F32(2000.0f), F32(1000.0f)})},
    {"equalizer: its four gains are read and set first", kEffectEqualizer,
     {{sp::kEqualizerLowGain, 0.5f, 0.5000345f, 1e-6f}, {sp::kEqualizerMid1Gain, 2.0f, 1.9998618f, 1e-6f},
      {sp::kEqualizerMid2Gain, 0.25f, 0.2500345f, 1e-6f}, {sp::kEqualizerHighGain, 4.0f, 3.9994476f, 1e-5f},
      {sp::kEqualizerLowCutoff, 100, 100}, {sp::kEqualizerMid1Center, 400, 400},
      {sp::kEqualizerMid1Width, 0.5f, 0.5f}, {sp::kEqualizerMid2Center, 2000, 2000},
      {sp::kEqualizerMid2Width, 0.75f, 0.75f}, {sp::kEqualizerHighCutoff, 8000, 8000}},
     Cat({I32(-602), F32(100.0f), Le32(602), F32(400.0f), F32(0.5f), I32(-1204),
          F32(2000.0f), F32(0.75f), Le32(1204), F32(8000.0f)})},
    {"frequency shifter", kEffectFrequencyShifter,
     {{sp::kFrequencyShifterFrequency, 100, 100}, {sp::kFrequencyShifterLeftDirection, 1, 1},
      {sp::kFrequencyShifterRightDirection, 2, 2}},
     Cat({F32(100.0f), Le32(1), Le32(2)})},
    {"pitch shifter", kEffectPitchShifter,
     {{sp::kPitchShifterCoarseTune, -5, -5}, {sp::kPitchShifterFineTune, 30, 30}},
     Cat({I32(-5), Le32(30)})},
    {"ring modulator", kEffectRingModulator,
     {{sp::kRingModulatorFrequency, 1000, 1000}, {sp::kRingModulatorHighpassCutoff, 500, 500},
      {sp::kRingModulatorWaveform, 2, 2}},
     Cat({F32(1000.0f), F32(500.0f), Le32(2)})},
    // The air absorption's level is kept as a float (GainToMillibels(0.95) is -44.5528, see the
    // Millibels suite); the high frequency limit is off, away from its default.
    {"reverb: levels pass through the one millibel scale", kEffectReverb,
     {{sp::kReverbDensity, 0.5f, 0.5f}, {sp::kReverbDiffusion, 0.6f, 0.6f},
      {sp::kReverbGain, 0.5f, 0.5000345f, 1e-6f}, {sp::kReverbGainhf, 0.25f, 0.2500345f, 1e-6f},
      {sp::kReverbDecayTime, 2.5f, 2.5f}, {sp::kReverbDecayHfratio, 1.5f, 1.5f},
      {sp::kReverbReflectionsGain, 2.0f, 1.9998618f, 1e-6f}, {sp::kReverbReflectionsDelay, 0.05f, 0.05f},
      {sp::kReverbLateReverbGain, 0.1f, 0.1f, 1e-7f}, {sp::kReverbLateReverbDelay, 0.02f, 0.02f},
      {sp::kReverbAirAbsorptionGainhf, 0.95f, 0.95f, 1e-6f}, {sp::kReverbRoomRolloffFactor, 2.0f, 2.0f},
      {sp::kReverbDecayHflimit, 0, 0}},
     Cat({F32(0.5f), F32(0.6f), I32(-602), I32(-1204), F32(2.5f), F32(1.5f), Le32(602), F32(0.05f), I32(-2000),
          F32(0.02f), F32(GainToMillibels(0.95f)), F32(2.0f), Le32(0)})},
    // The flanger's waveform setter is still called on applying; OpenAL refuses it, the slot keeps its
    // default triangle (1) and the log says which property failed.
    {"flanger: the waveform stays as the slot has it", kEffectFlanger,
     {{sp::kFlangerWaveform, 0, 1}, {sp::kFlangerPhase, 45, 45}, {sp::kFlangerRate, 1.5f, 1.5f},
      {sp::kFlangerDepth, 0.5f, 0.5f}, {sp::kFlangerFeedback, 0.3f, 0.3f}, {sp::kFlangerDelay, 0.003f, 0.003f}},
     Cat({Le32(0), Le32(45), F32(1.5f), F32(0.5f), F32(0.3f), F32(0.003f)}), "AL_FLANGER_WAVEFORM"},
    {"vocal morpher, where the library takes it", kEffectVocalMorpher,
     {{sp::kVocalMorpherPhonemea, 5, 5}, {sp::kVocalMorpherPhonemeaCoarseTuning, -3, -3},
      {sp::kVocalMorpherPhonemeb, 12, 12}, {sp::kVocalMorpherPhonemebCoarseTuning, 4, 4},
      {sp::kVocalMorpherWaveform, 1, 1}, {sp::kVocalMorpherRate, 3.0f, 3.0f}},
     Cat({Le32(5), I32(-3), Le32(12), Le32(4), Le32(1), F32(3.0f)})},
};

// Each effect's values go into its record, byte for byte, and back.
TEST_F(CaptureApply, EffectsGoOverAndBackOneCallAndOneSlotPerField)
{
    for (const RoundTrip& trip : kRoundTrips) {
        if (trip.type == kEffectVocalMorpher && !engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER))
            continue; // see VocalMorpherTheLibraryRefusesCapturesZeros
        Bytes record;
        ASSERT_NO_FATAL_FAILURE(GoAndBack(trip, record));
        EXPECT_EQ(record, trip.record) << trip.name;
    }
}

// The density goes through the record's room size and comes back a little less; the reflections
// pan is not kept and the late reverb pan's place holds the reflections pan's z.
TEST_F(CaptureApply, EAXReverbGoesThroughRoomSizeAndLeavesThePansAsCaptureLeftThem)
{
    const RoundTrip eax = {
        "EAX reverb", kEffectEAXReverb,
        {{sp::kEAXReverbDensity, 0.5f, 0.49896136f, 1e-6f}, {sp::kEAXReverbDiffusion, 0.7f, 0.7f},
         {sp::kEAXReverbGain, 0.5f, 0.5000345f, 1e-6f}, {sp::kEAXReverbGainhf, 0.25f, 0.2500345f, 1e-6f},
         {sp::kEAXReverbGainlf, 0.5f, 0.5000345f, 1e-6f}, {sp::kEAXReverbDecayTime, 3.0f, 3.0f},
         {sp::kEAXReverbDecayHfratio, 1.25f, 1.25f}, {sp::kEAXReverbDecayLfratio, 0.75f, 0.75f},
         {sp::kEAXReverbReflectionsGain, 2.0f, 1.9998618f, 1e-6f}, {sp::kEAXReverbReflectionsDelay, 0.125f, 0.125f},
         {sp::kEAXReverbReflectionsPan, 0, 0, 0, {0.1f, 0.2f, 0.3f}, {0.0f, 0.0f, 0.0f}},
         {sp::kEAXReverbLateReverbGain, 0.1f, 0.1f, 1e-7f}, {sp::kEAXReverbLateReverbDelay, 0.03125f, 0.03125f},
         {sp::kEAXReverbLateReverbPan, 0, 0, 0, {-0.4f, -0.5f, -0.6f}, {0.3f, 0.0f, 0.0f}},
         {sp::kEAXReverbEchoTime, 0.25f, 0.25f}, {sp::kEAXReverbEchoDepth, 0.5f, 0.5f},
         {sp::kEAXReverbModulationTime, 1.5f, 1.5f}, {sp::kEAXReverbModulationDepth, 0.375f, 0.375f},
         {sp::kEAXReverbAirAbsorptionGainhf, 0.95f, 0.95f, 1e-6f}, {sp::kEAXReverbHfreference, 4000, 4000},
         {sp::kEAXReverbLfreference, 200, 200}, {sp::kEAXReverbRoomRolloffFactor, 1.5f, 1.5f},
         {sp::kEAXReverbDecayHflimit, 0, 0}},
        {}}; // the record is looked at below

    Bytes record;
    ASSERT_NO_FATAL_FAILURE(GoAndBack(eax, record));
    ASSERT_EQ(record.size(), 112u);
    EXPECT_EQ(LoadLE32(&record[0]), 0u);
    EXPECT_NEAR(LoadLEF32(&record[4]), 1.9986142f, 1e-6f);
    EXPECT_EQ(LoadLEI32(&record[12]), -602);
    EXPECT_EQ(LoadLEI32(&record[36]), 602);
    EXPECT_EQ(LoadLEI32(&record[56]), -2000);
    // ReflectionsPan and ReverbPan's y and z carry nothing; ReverbPan's x is the reflections pan's z.
    EXPECT_EQ(Bytes(record.begin() + 44, record.begin() + 56), Bytes(12, 0));
    EXPECT_EQ(LoadLEF32(&record[64]), 0.3f);
    EXPECT_EQ(Bytes(record.begin() + 68, record.begin() + 76), Bytes(8, 0));
    EXPECT_EQ(LoadLEF32(&record[60]), 0.03125f);
    EXPECT_EQ(LoadLEF32(&record[76]), 0.25f);
    EXPECT_EQ(LoadLEF32(&record[80]), 0.5f);
    EXPECT_EQ(LoadLEF32(&record[84]), 1.5f);
    EXPECT_EQ(LoadLE32(&record[108]), 0u);
}

// OpenAL Soft 1.19 refuses the vocal morpher: each of its six getters is still called, and fails.
TEST_F(CaptureApply, VocalMorpherTheLibraryRefusesCapturesZeros)
{
    if (engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER))
        GTEST_SKIP() << "this OpenAL Soft takes the vocal morpher: the round trips cover it";
    EXPECT_EQ(m_slot->LoadEffect(kEffectVocalMorpher), 0);
    EXPECT_EQ(Capture(kEffectVocalMorpher), Bytes(24, 0)) << "every getter failed";
    EXPECT_EQ(m_spy.gets.size(), 6u);
}

TEST_F(CaptureApply, RecordSizeIsNotLookedAtLongRecordsApplyTheirFirstBytesShortOnesReadZero)
{
    Load(kEffectFrequencyShifter);
    // A Vocal Morpher's 24 bytes under a Frequency Shifter identifier: the first twelve apply.
    Apply(kEffectFrequencyShifter, Cat({F32(250.0f), Le32(1), Le32(2), Bytes(12, 0xEE)}));
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterFrequency), 250.0f);
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterLeftDirection), 1);
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterRightDirection), 2);

    Apply(kEffectFrequencyShifter, F32(125.0f));
    EXPECT_EQ(m_spy.sets.size(), 3u);
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterFrequency), 125.0f);
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterLeftDirection), 0);
    EXPECT_EQ(Got(*m_slot, &S::GetFrequencyShifterRightDirection), 0);
}

TEST_F(CaptureApply, UnknownIdentifierOrEmptySlotDoesNothing)
{
    Load(kEffectEcho);
    m_slot->SetEchoDelay(0.2f);
    m_factory->takes = 0;
    m_spy.Clear();
    const Bytes record = Cat({F32(0.1f), F32(0.1f), F32(0.1f), F32(0.1f), F32(0.1f)});
    ApplyPreset(*m_factory, 0, MakeGuid(1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}), record.data(), 20);
    ApplyPreset(*m_factory, 0, kNullEffectGuid, record.data(), 20);
    EXPECT_TRUE(m_spy.sets.empty());
    EXPECT_EQ(Got(*m_slot, &S::GetEchoDelay), 0.2f);
    EXPECT_TRUE(Capture(kEffectNone).empty());
    EXPECT_EQ(m_factory->takes, 0);
}

TEST_F(CaptureApply, RecordOfAnotherEffectRunsEverySetterAndChangesNothing)
{
    // The Compressor takes no float property, so each of the Echo's five setters fails in turn.
    Load(kEffectCompressor);
    m_slot->SetCompressorOnoff(0);
    Apply(kEffectEcho, Cat({F32(0.2f), F32(0.3f), F32(0.7f), F32(0.4f), F32(0.5f)}));
    EXPECT_EQ(m_spy.sets.size(), 5u) << "a failed setter does not stop the next";
    const std::string log = m_slot->GetLog();
    EXPECT_NE(log.find("AL_ECHO_DELAY"), std::string::npos) << log;
    EXPECT_NE(log.find("AL_ECHO_SPREAD"), std::string::npos) << log;
    EXPECT_EQ(Got(*m_slot, &S::GetCompressorOnoff), 0);
}

} // namespace
