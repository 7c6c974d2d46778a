// Capturing live effect slots into preset records and applying records back, through the real
// OpenAL Soft (null output). A spy on OpenAL's effect calls shows the order of the getters and
// setters, and a factory that counts its slot hand-outs shows that each call takes the slot anew.
#include "PresetTestSupport.h"

#include "engine/EFX_EffectSlot.h"
#include "engine/ProcAddress.h"
#include "presets/ByteOrder.h"
#include "presets/PresetCapture.h"
#include "presets/PresetLookups.h"

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

TEST_F(CaptureApply, EchoGoesOverUnchangedOneCallAndOneSlotPerField)
{
    Load(kEffectEcho);
    m_slot->SetEchoDelay(0.2f);
    m_slot->SetEchoLrdelay(0.3f);
    m_slot->SetEchoDamping(0.7f);
    m_slot->SetEchoFeedback(0.4f);
    m_slot->SetEchoSpread(0.5f);
    const Bytes record = Capture(kEffectEcho);
    ASSERT_EQ(record, Cat({F32(0.2f), F32(0.3f), F32(0.7f), F32(0.4f), F32(0.5f)}));
    EXPECT_EQ(m_factory->takes, 5);
    EXPECT_EQ(m_spy.gets, (std::vector<ALenum>{AL_ECHO_DELAY, AL_ECHO_LRDELAY, AL_ECHO_DAMPING, AL_ECHO_FEEDBACK,
                                               AL_ECHO_SPREAD}));

    m_slot->SetEchoDefaults();
    Apply(kEffectEcho, record);
    EXPECT_EQ(m_factory->takes, 5);
    EXPECT_EQ(m_spy.sets, (std::vector<ALenum>{AL_ECHO_DELAY, AL_ECHO_LRDELAY, AL_ECHO_DAMPING, AL_ECHO_FEEDBACK,
                                               AL_ECHO_SPREAD}));
    EXPECT_EQ(GetF(&S::GetEchoDelay), 0.2f);
    EXPECT_EQ(GetF(&S::GetEchoLrdelay), 0.3f);
    EXPECT_EQ(GetF(&S::GetEchoDamping), 0.7f);
    EXPECT_EQ(GetF(&S::GetEchoFeedback), 0.4f);
    EXPECT_EQ(GetF(&S::GetEchoSpread), 0.5f);
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

TEST_F(CaptureApply, CompressorStoresZeroOrOne)
{
    Load(kEffectCompressor);
    m_slot->SetCompressorOnoff(0);
    const Bytes off = Capture(kEffectCompressor);
    EXPECT_EQ(off, Le32(0));
    m_slot->SetCompressorOnoff(1);
    EXPECT_EQ(Capture(kEffectCompressor), Le32(1));
    Apply(kEffectCompressor, off);
    EXPECT_EQ(GetI(&S::GetCompressorOnoff), 0);
}

TEST_F(CaptureApply, AutoWahLevelsAreCutToWholeMillibels)
{
    Load(kEffectAutowah);
    m_slot->SetAutowahAttackTime(0.1f);
    m_slot->SetAutowahReleaseTime(0.2f);
    m_slot->SetAutowahResonance(50.0f);
    m_slot->SetAutowahPeakGain(2.0f);
    const Bytes record = Capture(kEffectAutowah);
    EXPECT_EQ(record, Cat({F32(0.1f), F32(0.2f), Le32(3397), Le32(602)}));
    m_slot->SetAutowahDefaults();
    Apply(kEffectAutowah, record);
    EXPECT_EQ(GetF(&S::GetAutowahAttackTime), 0.1f);
    EXPECT_EQ(GetF(&S::GetAutowahReleaseTime), 0.2f);
    EXPECT_NEAR(GetF(&S::GetAutowahResonance), 49.94592f, 1e-4f);
    EXPECT_NEAR(GetF(&S::GetAutowahPeakGain), 1.9998618f, 1e-6f);
}

TEST_F(CaptureApply, ChorusAppliesItsWaveform)
{
    Load(kEffectChorus);
    m_slot->SetChorusWaveform(0);
    m_slot->SetChorusPhase(-45);
    m_slot->SetChorusRate(2.5f);
    m_slot->SetChorusDepth(0.3f);
    m_slot->SetChorusFeedback(-0.5f);
    m_slot->SetChorusDelay(0.01f);
    const Bytes record = Capture(kEffectChorus);
    EXPECT_EQ(record, Cat({Le32(0), Le32(static_cast<std::uint32_t>(-45)), F32(2.5f), F32(0.3f), F32(-0.5f),
                           F32(0.01f)}));
    m_slot->SetChorusDefaults();
    ASSERT_EQ(GetI(&S::GetChorusWaveform), 1);
    Apply(kEffectChorus, record);
    EXPECT_EQ(GetI(&S::GetChorusWaveform), 0);
    EXPECT_EQ(GetI(&S::GetChorusPhase), -45);
    EXPECT_EQ(GetF(&S::GetChorusRate), 2.5f);
    EXPECT_EQ(GetF(&S::GetChorusDepth), 0.3f);
    EXPECT_EQ(GetF(&S::GetChorusFeedback), -0.5f);
    EXPECT_EQ(GetF(&S::GetChorusDelay), 0.01f);
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

TEST_F(CaptureApply, DistortionGainIsALevel)
{
    Load(kEffectDistortion);
    m_slot->SetDistortionEdge(0.5f);
    m_slot->SetDistortionGain(0.5f);
    m_slot->SetDistortionLowpassCutoff(5000.0f);
    m_slot->SetDistortionEqcenter(2000.0f);
    m_slot->SetDistortionEqbandwidth(1000.0f);
    const Bytes record = Capture(kEffectDistortion);
    EXPECT_EQ(record, Cat({F32(0.5f), Le32(static_cast<std::uint32_t>(-602)), F32(5000.0f), F32(2000.0f),
                           F32(1000.0f)}));
    m_slot->SetDistortionDefaults();
    Apply(kEffectDistortion, record);
    EXPECT_EQ(GetF(&S::GetDistortionEdge), 0.5f);
    EXPECT_NEAR(GetF(&S::GetDistortionGain), 0.5000345f, 1e-6f);
    EXPECT_EQ(GetF(&S::GetDistortionLowpassCutoff), 5000.0f);
    EXPECT_EQ(GetF(&S::GetDistortionEqcenter), 2000.0f);
    EXPECT_EQ(GetF(&S::GetDistortionEqbandwidth), 1000.0f);
}

TEST_F(CaptureApply, EqualizerTakesItsFourGainsFirst)
{
    Load(kEffectEqualizer);
    m_slot->SetEqualizerLowGain(0.5f);
    m_slot->SetEqualizerLowCutoff(100.0f);
    m_slot->SetEqualizerMid1Gain(2.0f);
    m_slot->SetEqualizerMid1Center(400.0f);
    m_slot->SetEqualizerMid1Width(0.5f);
    m_slot->SetEqualizerMid2Gain(0.25f);
    m_slot->SetEqualizerMid2Center(2000.0f);
    m_slot->SetEqualizerMid2Width(0.75f);
    m_slot->SetEqualizerHighGain(4.0f);
    m_slot->SetEqualizerHighCutoff(8000.0f);
    const std::vector<ALenum> order = {AL_EQUALIZER_LOW_GAIN,    AL_EQUALIZER_MID1_GAIN,   AL_EQUALIZER_MID2_GAIN,
                                       AL_EQUALIZER_HIGH_GAIN,   AL_EQUALIZER_LOW_CUTOFF,  AL_EQUALIZER_MID1_CENTER,
                                       AL_EQUALIZER_MID1_WIDTH,  AL_EQUALIZER_MID2_CENTER, AL_EQUALIZER_MID2_WIDTH,
                                       AL_EQUALIZER_HIGH_CUTOFF};
    const Bytes record = Capture(kEffectEqualizer);
    EXPECT_EQ(m_spy.gets, order);
    EXPECT_EQ(record, Cat({Le32(static_cast<std::uint32_t>(-602)), F32(100.0f), Le32(602), F32(400.0f), F32(0.5f),
                           Le32(static_cast<std::uint32_t>(-1204)), F32(2000.0f), F32(0.75f), Le32(1204),
                           F32(8000.0f)}));
    m_slot->SetEqualizerDefaults();
    Apply(kEffectEqualizer, record);
    EXPECT_EQ(m_spy.sets, order);
    EXPECT_NEAR(GetF(&S::GetEqualizerLowGain), 0.5000345f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetEqualizerMid1Gain), 1.9998618f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetEqualizerMid2Gain), 0.2500345f, 1e-6f);
    EXPECT_NEAR(GetF(&S::GetEqualizerHighGain), 3.9994476f, 1e-5f);
    EXPECT_EQ(GetF(&S::GetEqualizerLowCutoff), 100.0f);
    EXPECT_EQ(GetF(&S::GetEqualizerMid1Width), 0.5f);
    EXPECT_EQ(GetF(&S::GetEqualizerMid2Center), 2000.0f);
    EXPECT_EQ(GetF(&S::GetEqualizerHighCutoff), 8000.0f);
}

TEST_F(CaptureApply, FrequencyShifterPitchShifterAndRingModulatorGoOverUnchanged)
{
    Load(kEffectFrequencyShifter);
    m_slot->SetFrequencyShifterFrequency(100.0f);
    m_slot->SetFrequencyShifterLeftDirection(1);
    m_slot->SetFrequencyShifterRightDirection(2);
    const Bytes shifter = Capture(kEffectFrequencyShifter);
    EXPECT_EQ(shifter, Cat({F32(100.0f), Le32(1), Le32(2)}));
    m_slot->SetFrequencyShifterDefaults();
    Apply(kEffectFrequencyShifter, shifter);
    EXPECT_EQ(GetF(&S::GetFrequencyShifterFrequency), 100.0f);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterLeftDirection), 1);
    EXPECT_EQ(GetI(&S::GetFrequencyShifterRightDirection), 2);

    Load(kEffectPitchShifter);
    m_slot->SetPitchShifterCoarseTune(-5);
    m_slot->SetPitchShifterFineTune(30);
    const Bytes pitch = Capture(kEffectPitchShifter);
    EXPECT_EQ(pitch, Cat({Le32(static_cast<std::uint32_t>(-5)), Le32(30)}));
    m_slot->SetPitchShifterDefaults();
    Apply(kEffectPitchShifter, pitch);
    EXPECT_EQ(GetI(&S::GetPitchShifterCoarseTune), -5);
    EXPECT_EQ(GetI(&S::GetPitchShifterFineTune), 30);

    Load(kEffectRingModulator);
    m_slot->SetRingModulatorFrequency(1000.0f);
    m_slot->SetRingModulatorHighpassCutoff(500.0f);
    m_slot->SetRingModulatorWaveform(2);
    const Bytes ring = Capture(kEffectRingModulator);
    EXPECT_EQ(ring, Cat({F32(1000.0f), F32(500.0f), Le32(2)}));
    m_slot->SetRingModulatorDefaults();
    Apply(kEffectRingModulator, ring);
    EXPECT_EQ(GetF(&S::GetRingModulatorFrequency), 1000.0f);
    EXPECT_EQ(GetF(&S::GetRingModulatorHighpassCutoff), 500.0f);
    EXPECT_EQ(GetI(&S::GetRingModulatorWaveform), 2);
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
