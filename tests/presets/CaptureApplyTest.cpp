// Capturing live effect slots into preset records and applying records back, through the real
// OpenAL Soft (null output). A spy on OpenAL's effect calls shows the order of the getters and
// setters, and a factory that counts its slot hand-outs shows that each call takes the slot anew.
#include "PresetTestSupport.h"

#include "engine/EFX_EffectSlot.h"
#include "engine/ProcAddress.h"
#include "presets/ByteOrder.h"
#include "presets/PresetCapture.h"
#include "presets/PresetLookups.h"
#include "presets/SlotProperty.h"

#include "tests/engine/EngineTestSupport.h"

#include <gtest/gtest.h>

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
        Self() = this;
        efx_proc::SetResolver(&Resolve);
    }
    ~EffectCallSpy()
    {
        efx_proc::SetResolver(nullptr);
        Self() = nullptr;
    }
    void Clear()
    {
        sets.clear();
        gets.clear();
    }

    std::vector<ALenum> sets;
    std::vector<ALenum> gets;

private:
    static EffectCallSpy*& Self()
    {
        static EffectCallSpy* self = nullptr;
        return self;
    }
    template <typename F>
    static F Real(const char* name)
    {
        return reinterpret_cast<F>(alGetProcAddress(name));
    }
    static void AL_APIENTRY Effecti(ALuint e, ALenum p, ALint v)
    {
        Self()->sets.push_back(p);
        Real<LPALEFFECTI>("alEffecti")(e, p, v);
    }
    static void AL_APIENTRY Effectf(ALuint e, ALenum p, ALfloat v)
    {
        Self()->sets.push_back(p);
        Real<LPALEFFECTF>("alEffectf")(e, p, v);
    }
    static void AL_APIENTRY Effectfv(ALuint e, ALenum p, const ALfloat* v)
    {
        Self()->sets.push_back(p);
        Real<LPALEFFECTFV>("alEffectfv")(e, p, v);
    }
    static void AL_APIENTRY GetEffecti(ALuint e, ALenum p, ALint* v)
    {
        Self()->gets.push_back(p);
        Real<LPALGETEFFECTI>("alGetEffecti")(e, p, v);
    }
    static void AL_APIENTRY GetEffectf(ALuint e, ALenum p, ALfloat* v)
    {
        Self()->gets.push_back(p);
        Real<LPALGETEFFECTF>("alGetEffectf")(e, p, v);
    }
    static void AL_APIENTRY GetEffectfv(ALuint e, ALenum p, ALfloat* v)
    {
        Self()->gets.push_back(p);
        Real<LPALGETEFFECTFV>("alGetEffectfv")(e, p, v);
    }
    static void* Resolve(const char* name)
    {
        const std::string n = name;
        if (n == "alEffecti")
            return reinterpret_cast<void*>(&Effecti);
        if (n == "alEffectf")
            return reinterpret_cast<void*>(&Effectf);
        if (n == "alEffectfv")
            return reinterpret_cast<void*>(&Effectfv);
        if (n == "alGetEffecti")
            return reinterpret_cast<void*>(&GetEffecti);
        if (n == "alGetEffectf")
            return reinterpret_cast<void*>(&GetEffectf);
        if (n == "alGetEffectfv")
            return reinterpret_cast<void*>(&GetEffectfv);
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
    float GetF(int (EFX_EffectSlot::*get)(float*))
    {
        float value = -999.0f;
        EXPECT_EQ((m_slot->*get)(&value), 1) << m_slot->GetLog();
        return value;
    }
    int GetI(int (EFX_EffectSlot::*get)(int*))
    {
        int value = -999;
        EXPECT_EQ((m_slot->*get)(&value), 1) << m_slot->GetLog();
        return value;
    }
    std::vector<float> GetV(int (EFX_EffectSlot::*get)(float*))
    {
        std::vector<float> value(3, -999.0f);
        EXPECT_EQ((m_slot->*get)(value.data()), 1) << m_slot->GetLog();
        return value;
    }

    EffectCallSpy m_spy; // in place before the slot resolves its entry points
    std::unique_ptr<CountingFactory> m_factory;
    EFX_EffectSlot* m_slot = nullptr;
};

using S = EFX_EffectSlot;

namespace sp = slot_property;

// One property of a round trip: the value set before the capture, and what OpenAL holds after the
// record is applied to the effect's defaults (a level comes back through whole millibels).
struct Field {
    SlotAccessor property;
    float set;
    float back;
    float tolerance = 0.0f;
};
struct RoundTrip {
    const char* name;
    int type;
    std::vector<Field> fields; // in the order of the getter and setter calls
    Bytes record;
};

const Bytes kMinus602 = Le32(static_cast<std::uint32_t>(-602));

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
     Cat({Le32(0), Le32(static_cast<std::uint32_t>(-45)), F32(2.5f), F32(0.3f), F32(-0.5f), F32(0.01f)})},
    {"distortion: the gain is a level", kEffectDistortion,
     {{sp::kDistortionEdge, 0.5f, 0.5f}, {sp::kDistortionGain, 0.5f, 0.5000345f, 1e-6f},
      {sp::kDistortionLowpassCutoff, 5000, 5000}, {sp::kDistortionEqcenter, 2000, 2000},
      {sp::kDistortionEqbandwidth, 1000, 1000}},
     Cat({F32(0.5f), kMinus602, F32(5000.0f), F32(2000.0f), F32(1000.0f)})},
    {"equalizer: its four gains are read and set first", kEffectEqualizer,
     {{sp::kEqualizerLowGain, 0.5f, 0.5000345f, 1e-6f}, {sp::kEqualizerMid1Gain, 2.0f, 1.9998618f, 1e-6f},
      {sp::kEqualizerMid2Gain, 0.25f, 0.2500345f, 1e-6f}, {sp::kEqualizerHighGain, 4.0f, 3.9994476f, 1e-5f},
      {sp::kEqualizerLowCutoff, 100, 100}, {sp::kEqualizerMid1Center, 400, 400},
      {sp::kEqualizerMid1Width, 0.5f, 0.5f}, {sp::kEqualizerMid2Center, 2000, 2000},
      {sp::kEqualizerMid2Width, 0.75f, 0.75f}, {sp::kEqualizerHighCutoff, 8000, 8000}},
     Cat({kMinus602, F32(100.0f), Le32(602), F32(400.0f), F32(0.5f), Le32(static_cast<std::uint32_t>(-1204)),
          F32(2000.0f), F32(0.75f), Le32(1204), F32(8000.0f)})},
    {"frequency shifter", kEffectFrequencyShifter,
     {{sp::kFrequencyShifterFrequency, 100, 100}, {sp::kFrequencyShifterLeftDirection, 1, 1},
      {sp::kFrequencyShifterRightDirection, 2, 2}},
     Cat({F32(100.0f), Le32(1), Le32(2)})},
    {"pitch shifter", kEffectPitchShifter,
     {{sp::kPitchShifterCoarseTune, -5, -5}, {sp::kPitchShifterFineTune, 30, 30}},
     Cat({Le32(static_cast<std::uint32_t>(-5)), Le32(30)})},
    {"ring modulator", kEffectRingModulator,
     {{sp::kRingModulatorFrequency, 1000, 1000}, {sp::kRingModulatorHighpassCutoff, 500, 500},
      {sp::kRingModulatorWaveform, 2, 2}},
     Cat({F32(1000.0f), F32(500.0f), Le32(2)})},
};

SlotValue ValueOf(const SlotAccessor& property, float number)
{
    SlotValue value;
    value.f[0] = number;
    value.i = static_cast<int>(number);
    return value;
}

// Each effect's values go into its record and back onto the effect's defaults, one getter or setter
// call and one slot hand-out per field, in the record's order of calls.
TEST_F(CaptureApply, EffectsGoOverAndBackOneCallAndOneSlotPerField)
{
    for (const RoundTrip& trip : kRoundTrips) {
        SCOPED_TRACE(trip.name);
        Load(trip.type);
        std::vector<ALenum> tokens;
        for (const Field& field : trip.fields) {
            ASSERT_EQ(SetSlotProperty(*m_slot, field.property, ValueOf(field.property, field.set)), 1);
            tokens.push_back(field.property.token);
        }
        const Bytes record = Capture(trip.type);
        EXPECT_EQ(record, trip.record);
        EXPECT_EQ(m_factory->takes, static_cast<int>(trip.fields.size()));
        EXPECT_EQ(m_spy.gets, tokens);

        Load(kEffectNone);
        Load(trip.type); // back to the effect's defaults
        Apply(trip.type, record);
        EXPECT_EQ(m_factory->takes, static_cast<int>(trip.fields.size()));
        EXPECT_EQ(m_spy.sets, tokens);
        for (const Field& field : trip.fields) {
            SlotValue value;
            ASSERT_EQ(GetSlotProperty(*m_slot, field.property, value), 1);
            const float back = field.property.kind == PropertyKind::Float ? value.f[0] : static_cast<float>(value.i);
            EXPECT_NEAR(back, field.back, field.tolerance) << field.property.token;
        }
    }
}

TEST_F(CaptureApply, ReverbLevelsPassThroughTheOneMillibelScale)
{
    Load(kEffectReverb);
    m_slot->SetReverbDensity(0.5f);
    m_slot->SetReverbDiffusion(0.6f);
    m_slot->SetReverbGain(0.5f);
    m_slot->SetReverbGainhf(0.25f);
    m_slot->SetReverbDecayTime(2.5f);
    m_slot->SetReverbDecayHfratio(1.5f);
    m_slot->SetReverbReflectionsGain(2.0f);
    m_slot->SetReverbReflectionsDelay(0.05f);
    m_slot->SetReverbLateReverbGain(0.1f);
    m_slot->SetReverbLateReverbDelay(0.02f);
    m_slot->SetReverbAirAbsorptionGainhf(0.95f);
    m_slot->SetReverbRoomRolloffFactor(2.0f);
    m_slot->SetReverbDecayHflimit(0);
    const Bytes record = Capture(kEffectReverb);
    ASSERT_EQ(record.size(), 52u);
    EXPECT_EQ(LoadLEF32(&record[0]), 0.5f);
    EXPECT_EQ(LoadLEI32(&record[8]), -602);
    EXPECT_EQ(LoadLEI32(&record[12]), -1204);
    EXPECT_EQ(LoadLEI32(&record[24]), 602);
    EXPECT_EQ(LoadLEI32(&record[32]), -2000);
    EXPECT_NEAR(LoadLEF32(&record[40]), -44.5528f, 0.001f);
    EXPECT_EQ(LoadLEI32(&record[48]), 0);

    m_slot->SetReverbDefaults();
    Apply(kEffectReverb, record);
    EXPECT_EQ(m_factory->takes, 13);
    EXPECT_EQ(GetF(&S::GetReverbDensity), 0.5f);
    EXPECT_EQ(GetF(&S::GetReverbDiffusion), 0.6f);
    EXPECT_NEAR(GetF(&S::GetReverbGain), 0.5000345f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetReverbGainhf), 0.2500345f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetReverbDecayTime), 2.5f);
    EXPECT_EQ(GetF(&S::GetReverbDecayHfratio), 1.5f);
    EXPECT_NEAR(GetF(&S::GetReverbReflectionsGain), 1.9998618f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetReverbReflectionsDelay), 0.05f);
    EXPECT_NEAR(GetF(&S::GetReverbLateReverbGain), 0.1f, 1e-7f);
    EXPECT_EQ(GetF(&S::GetReverbLateReverbDelay), 0.02f);
    EXPECT_NEAR(GetF(&S::GetReverbAirAbsorptionGainhf), 0.95f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetReverbRoomRolloffFactor), 2.0f);
    EXPECT_EQ(GetI(&S::GetReverbDecayHflimit), 0);
}

TEST_F(CaptureApply, EAXReverbGoesThroughRoomSizeAndLeavesThePansAsCaptureLeftThem)
{
    Load(kEffectEAXReverb);
    m_slot->SetEAXReverbDensity(0.5f);
    m_slot->SetEAXReverbDiffusion(0.7f);
    m_slot->SetEAXReverbGain(0.5f);
    m_slot->SetEAXReverbGainhf(0.25f);
    m_slot->SetEAXReverbGainlf(0.5f);
    m_slot->SetEAXReverbDecayTime(3.0f);
    m_slot->SetEAXReverbDecayHfratio(1.25f);
    m_slot->SetEAXReverbDecayLfratio(0.75f);
    m_slot->SetEAXReverbReflectionsGain(2.0f);
    m_slot->SetEAXReverbReflectionsDelay(0.125f);
    const float reflectionsPan[3] = {0.1f, 0.2f, 0.3f};
    m_slot->SetEAXReverbReflectionsPan(reflectionsPan);
    m_slot->SetEAXReverbLateReverbGain(0.1f);
    m_slot->SetEAXReverbLateReverbDelay(0.03125f);
    const float latePan[3] = {-0.4f, -0.5f, -0.6f};
    m_slot->SetEAXReverbLateReverbPan(latePan);
    m_slot->SetEAXReverbEchoTime(0.25f);
    m_slot->SetEAXReverbEchoDepth(0.5f);
    m_slot->SetEAXReverbModulationTime(1.5f);
    m_slot->SetEAXReverbModulationDepth(0.375f);
    m_slot->SetEAXReverbAirAbsorptionGainhf(0.95f);
    m_slot->SetEAXReverbHfreference(4000.0f);
    m_slot->SetEAXReverbLfreference(200.0f);
    m_slot->SetEAXReverbRoomRolloffFactor(1.5f);
    m_slot->SetEAXReverbDecayHflimit(0);

    const Bytes record = Capture(kEffectEAXReverb);
    ASSERT_EQ(record.size(), 112u);
    EXPECT_EQ(m_factory->takes, 23);
    EXPECT_EQ(m_spy.gets.size(), 23u);
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

    m_slot->SetEAXReverbDefaults();
    Apply(kEffectEAXReverb, record);
    EXPECT_EQ(m_factory->takes, 23);
    EXPECT_EQ(m_spy.sets,
              (std::vector<ALenum>{AL_EAXREVERB_DENSITY, AL_EAXREVERB_DIFFUSION, AL_EAXREVERB_GAIN,
                                   AL_EAXREVERB_GAINHF, AL_EAXREVERB_GAINLF, AL_EAXREVERB_DECAY_TIME,
                                   AL_EAXREVERB_DECAY_HFRATIO, AL_EAXREVERB_DECAY_LFRATIO,
                                   AL_EAXREVERB_REFLECTIONS_GAIN, AL_EAXREVERB_REFLECTIONS_DELAY,
                                   AL_EAXREVERB_REFLECTIONS_PAN, AL_EAXREVERB_LATE_REVERB_GAIN,
                                   AL_EAXREVERB_LATE_REVERB_DELAY, AL_EAXREVERB_LATE_REVERB_PAN,
                                   AL_EAXREVERB_ECHO_TIME, AL_EAXREVERB_ECHO_DEPTH, AL_EAXREVERB_MODULATION_TIME,
                                   AL_EAXREVERB_MODULATION_DEPTH, AL_EAXREVERB_AIR_ABSORPTION_GAINHF,
                                   AL_EAXREVERB_HFREFERENCE, AL_EAXREVERB_LFREFERENCE,
                                   AL_EAXREVERB_ROOM_ROLLOFF_FACTOR, AL_EAXREVERB_DECAY_HFLIMIT}));
    EXPECT_NEAR(GetF(&S::GetEAXReverbDensity), 0.49896136f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetEAXReverbDiffusion), 0.7f);
    EXPECT_NEAR(GetF(&S::GetEAXReverbGain), 0.5000345f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetEAXReverbGainhf), 0.2500345f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetEAXReverbGainlf), 0.5000345f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetEAXReverbDecayTime), 3.0f);
    EXPECT_EQ(GetF(&S::GetEAXReverbDecayLfratio), 0.75f);
    EXPECT_NEAR(GetF(&S::GetEAXReverbReflectionsGain), 1.9998618f, 1e-6f);
    EXPECT_EQ(GetV(&S::GetEAXReverbReflectionsPan), (std::vector<float>{0.0f, 0.0f, 0.0f}));
    EXPECT_NEAR(GetF(&S::GetEAXReverbLateReverbGain), 0.1f, 1e-7f);
    EXPECT_EQ(GetV(&S::GetEAXReverbLateReverbPan), (std::vector<float>{0.3f, 0.0f, 0.0f}));
    EXPECT_EQ(GetF(&S::GetEAXReverbEchoTime), 0.25f);
    EXPECT_EQ(GetF(&S::GetEAXReverbModulationTime), 1.5f);
    EXPECT_NEAR(GetF(&S::GetEAXReverbAirAbsorptionGainhf), 0.95f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetEAXReverbHfreference), 4000.0f);
    EXPECT_EQ(GetF(&S::GetEAXReverbRoomRolloffFactor), 1.5f);
    EXPECT_EQ(GetI(&S::GetEAXReverbDecayHflimit), 0);
}

TEST_F(CaptureApply, FlangerKeepsTheSlotsWaveformAndLogsTheRefusal)
{
    Load(kEffectFlanger);
    m_slot->SetFlangerWaveform(0);
    m_slot->SetFlangerPhase(45);
    m_slot->SetFlangerRate(1.5f);
    m_slot->SetFlangerDepth(0.5f);
    m_slot->SetFlangerFeedback(0.3f);
    m_slot->SetFlangerDelay(0.003f);
    const Bytes record = Capture(kEffectFlanger);
    EXPECT_EQ(record, Cat({Le32(0), Le32(45), F32(1.5f), F32(0.5f), F32(0.3f), F32(0.003f)}));

    m_slot->SetFlangerDefaults();
    ASSERT_EQ(GetI(&S::GetFlangerWaveform), 1);
    Apply(kEffectFlanger, record);
    EXPECT_EQ(m_spy.sets.size(), 6u) << "the waveform's setter is still called";
    EXPECT_NE(std::string(m_slot->GetLog()).find("AL_FLANGER_WAVEFORM"), std::string::npos) << m_slot->GetLog();
    EXPECT_EQ(GetI(&S::GetFlangerWaveform), 1);
    EXPECT_EQ(GetI(&S::GetFlangerPhase), 45);
    EXPECT_EQ(GetF(&S::GetFlangerRate), 1.5f);
    EXPECT_EQ(GetF(&S::GetFlangerDepth), 0.5f);
    EXPECT_EQ(GetF(&S::GetFlangerFeedback), 0.3f);
    EXPECT_EQ(GetF(&S::GetFlangerDelay), 0.003f);
}

TEST_F(CaptureApply, VocalMorpherWhereTheLibraryTakesItAndZerosWhereItDoesNot)
{
    if (!engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER)) {
        EXPECT_EQ(m_slot->LoadEffect(kEffectVocalMorpher), 0);
        const Bytes record = Capture(kEffectVocalMorpher);
        EXPECT_EQ(record, Bytes(24, 0)) << "every getter failed";
        EXPECT_EQ(m_spy.gets.size(), 6u);
        return;
    }
    Load(kEffectVocalMorpher);
    m_slot->SetVocalMorpherPhonemea(5);
    m_slot->SetVocalMorpherPhonemeaCoarseTuning(-3);
    m_slot->SetVocalMorpherPhonemeb(12);
    m_slot->SetVocalMorpherPhonemebCoarseTuning(4);
    m_slot->SetVocalMorpherWaveform(1);
    m_slot->SetVocalMorpherRate(3.0f);
    const Bytes record = Capture(kEffectVocalMorpher);
    EXPECT_EQ(record, Cat({Le32(5), Le32(static_cast<std::uint32_t>(-3)), Le32(12), Le32(4), Le32(1), F32(3.0f)}));
    m_slot->SetVocalMorpherDefaults();
    Apply(kEffectVocalMorpher, record);
    EXPECT_EQ(GetI(&S::GetVocalMorpherPhonemea), 5);
    EXPECT_EQ(GetI(&S::GetVocalMorpherPhonemeaCoarseTuning), -3);
    EXPECT_EQ(GetI(&S::GetVocalMorpherWaveform), 1);
    EXPECT_EQ(GetF(&S::GetVocalMorpherRate), 3.0f);
}

TEST_F(CaptureApply, RecordSizeIsNotLookedAtLongRecordsApplyTheirFirstBytesShortOnesReadZero)
{
    Load(kEffectFrequencyShifter);
    // A Vocal Morpher's 24 bytes under a Frequency Shifter identifier: the first twelve apply.
    Apply(kEffectFrequencyShifter, Cat({F32(250.0f), Le32(1), Le32(2), Bytes(12, 0xEE)}));
    EXPECT_EQ(GetF(&S::GetFrequencyShifterFrequency), 250.0f);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterLeftDirection), 1);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterRightDirection), 2);

    Apply(kEffectFrequencyShifter, F32(125.0f));
    EXPECT_EQ(m_spy.sets.size(), 3u);
    EXPECT_EQ(GetF(&S::GetFrequencyShifterFrequency), 125.0f);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterLeftDirection), 0);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterRightDirection), 0);
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
    EXPECT_EQ(GetF(&S::GetEchoDelay), 0.2f);
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
    EXPECT_EQ(GetI(&S::GetCompressorOnoff), 0);
}

} // namespace
