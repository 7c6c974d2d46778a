// The thirteen effect groups against OpenAL Soft. The expectations come from efx.h (the library's
// defaults and limits) and from reading the effect object with OpenAL's own calls, not from the
// engine's table: a setter or getter wired to the wrong token, a wrong default or a wrong name
// string shows up here.
#include "engine/EFX_EffectSlot.h"
#include "engine/ExecLog.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

#include <string>
#include <vector>

using engine_test::EffectSpy;
using engine_test::FactoryPtr;
using engine_test::StartFactory;

namespace {

enum class Kind { Float, Long, Bool, Vector };

struct Property {
    const char* name;
    ALenum token;
    Kind kind;
    int (EFX_EffectSlot::*setFloat)(float);
    int (EFX_EffectSlot::*setInt)(int);
    int (EFX_EffectSlot::*setVector)(const float*);
    int (EFX_EffectSlot::*getFloat)(float*); // also the vector getter
    int (EFX_EffectSlot::*getInt)(int*);
    float libraryDefault;
    float other; // a value in the library's range that is not the default
};

constexpr float Other(float def, float min, float max)
{
    return min != def ? min : max;
}

#define EFX_FLOAT(Group, Property, Prefix, Name) \
    {"AL_" #Prefix "_" #Name, AL_##Prefix##_##Name, Kind::Float, &EFX_EffectSlot::Set##Group##Property, nullptr, \
     nullptr, &EFX_EffectSlot::Get##Group##Property, nullptr, AL_##Prefix##_DEFAULT_##Name, \
     Other(AL_##Prefix##_DEFAULT_##Name, AL_##Prefix##_MIN_##Name, AL_##Prefix##_MAX_##Name)}
#define EFX_INT(KindName, Group, Property, Prefix, Name) \
    {"AL_" #Prefix "_" #Name, AL_##Prefix##_##Name, Kind::KindName, nullptr, &EFX_EffectSlot::Set##Group##Property, \
     nullptr, nullptr, &EFX_EffectSlot::Get##Group##Property, static_cast<float>(AL_##Prefix##_DEFAULT_##Name), \
     Other(AL_##Prefix##_DEFAULT_##Name, AL_##Prefix##_MIN_##Name, AL_##Prefix##_MAX_##Name)}
#define EFX_LONG(Group, Property, Prefix, Name) EFX_INT(Long, Group, Property, Prefix, Name)
#define EFX_BOOL(Group, Property, Prefix, Name) EFX_INT(Bool, Group, Property, Prefix, Name)
#define EFX_VECTOR(Group, Property, Prefix, Name) \
    {"AL_" #Prefix "_" #Name, AL_##Prefix##_##Name, Kind::Vector, nullptr, nullptr, \
     &EFX_EffectSlot::Set##Group##Property, &EFX_EffectSlot::Get##Group##Property, nullptr, \
     AL_##Prefix##_DEFAULT_##Name##_XYZ, 0.5f}

// A group's name, types and default routine; in the long groups P(Kind, Property, Name) stands for
// EFX_<Kind>(Group, Property, PREFIX, Name).
#define GROUP(Group, TYPE) #Group, kEffect##Group, AL_EFFECT_##TYPE, &EFX_EffectSlot::Set##Group##Defaults

struct Group {
    const char* name;
    int type;
    ALint alType;
    int (EFX_EffectSlot::*defaults)();
    std::vector<Property> properties;
};

const std::vector<Group>& Groups()
{
    static const std::vector<Group> groups = {
#define P(Kind, Property, Name) EFX_##Kind(EAXReverb, Property, EAXREVERB, Name)
        {GROUP(EAXReverb, EAXREVERB), {P(FLOAT, Density, DENSITY), P(FLOAT, Diffusion, DIFFUSION),
            P(FLOAT, Gain, GAIN), P(FLOAT, Gainhf, GAINHF), P(FLOAT, Gainlf, GAINLF), P(FLOAT, DecayTime, DECAY_TIME),
            P(FLOAT, DecayHfratio, DECAY_HFRATIO), P(FLOAT, DecayLfratio, DECAY_LFRATIO),
            P(FLOAT, ReflectionsGain, REFLECTIONS_GAIN), P(FLOAT, ReflectionsDelay, REFLECTIONS_DELAY),
            P(VECTOR, ReflectionsPan, REFLECTIONS_PAN), P(FLOAT, LateReverbGain, LATE_REVERB_GAIN),
            P(FLOAT, LateReverbDelay, LATE_REVERB_DELAY), P(VECTOR, LateReverbPan, LATE_REVERB_PAN),
            P(FLOAT, EchoTime, ECHO_TIME), P(FLOAT, EchoDepth, ECHO_DEPTH), P(FLOAT, ModulationTime, MODULATION_TIME),
            P(FLOAT, ModulationDepth, MODULATION_DEPTH), P(FLOAT, AirAbsorptionGainhf, AIR_ABSORPTION_GAINHF),
            P(FLOAT, Hfreference, HFREFERENCE), P(FLOAT, Lfreference, LFREFERENCE),
            P(FLOAT, RoomRolloffFactor, ROOM_ROLLOFF_FACTOR), P(BOOL, DecayHflimit, DECAY_HFLIMIT)}},
#undef P
#define P(Kind, Property, Name) EFX_##Kind(Reverb, Property, REVERB, Name)
        {GROUP(Reverb, REVERB), {P(FLOAT, Density, DENSITY), P(FLOAT, Diffusion, DIFFUSION), P(FLOAT, Gain, GAIN),
            P(FLOAT, Gainhf, GAINHF), P(FLOAT, DecayTime, DECAY_TIME), P(FLOAT, DecayHfratio, DECAY_HFRATIO),
            P(FLOAT, ReflectionsGain, REFLECTIONS_GAIN), P(FLOAT, ReflectionsDelay, REFLECTIONS_DELAY),
            P(FLOAT, LateReverbGain, LATE_REVERB_GAIN), P(FLOAT, LateReverbDelay, LATE_REVERB_DELAY),
            P(FLOAT, AirAbsorptionGainhf, AIR_ABSORPTION_GAINHF), P(FLOAT, RoomRolloffFactor, ROOM_ROLLOFF_FACTOR),
            P(BOOL, DecayHflimit, DECAY_HFLIMIT)}},
#undef P
        {GROUP(Compressor, COMPRESSOR), {EFX_BOOL(Compressor, Onoff, COMPRESSOR, ONOFF)}},
        {GROUP(Autowah, AUTOWAH), {EFX_FLOAT(Autowah, AttackTime, AUTOWAH, ATTACK_TIME),
            EFX_FLOAT(Autowah, ReleaseTime, AUTOWAH, RELEASE_TIME), EFX_FLOAT(Autowah, Resonance, AUTOWAH, RESONANCE),
            EFX_FLOAT(Autowah, PeakGain, AUTOWAH, PEAK_GAIN)}},
        {GROUP(Chorus, CHORUS), {EFX_LONG(Chorus, Waveform, CHORUS, WAVEFORM), EFX_LONG(Chorus, Phase, CHORUS, PHASE),
            EFX_FLOAT(Chorus, Rate, CHORUS, RATE), EFX_FLOAT(Chorus, Depth, CHORUS, DEPTH),
            EFX_FLOAT(Chorus, Feedback, CHORUS, FEEDBACK), EFX_FLOAT(Chorus, Delay, CHORUS, DELAY)}},
        {GROUP(Distortion, DISTORTION), {EFX_FLOAT(Distortion, Edge, DISTORTION, EDGE),
            EFX_FLOAT(Distortion, Gain, DISTORTION, GAIN),
            EFX_FLOAT(Distortion, LowpassCutoff, DISTORTION, LOWPASS_CUTOFF),
            EFX_FLOAT(Distortion, Eqcenter, DISTORTION, EQCENTER),
            EFX_FLOAT(Distortion, Eqbandwidth, DISTORTION, EQBANDWIDTH)}},
        {GROUP(Echo, ECHO), {EFX_FLOAT(Echo, Delay, ECHO, DELAY), EFX_FLOAT(Echo, Lrdelay, ECHO, LRDELAY),
            EFX_FLOAT(Echo, Damping, ECHO, DAMPING), EFX_FLOAT(Echo, Feedback, ECHO, FEEDBACK),
            EFX_FLOAT(Echo, Spread, ECHO, SPREAD)}},
#define P(Kind, Property, Name) EFX_##Kind(Equalizer, Property, EQUALIZER, Name)
        {GROUP(Equalizer, EQUALIZER), {P(FLOAT, LowGain, LOW_GAIN), P(FLOAT, LowCutoff, LOW_CUTOFF),
            P(FLOAT, Mid1Gain, MID1_GAIN), P(FLOAT, Mid1Center, MID1_CENTER), P(FLOAT, Mid1Width, MID1_WIDTH),
            P(FLOAT, Mid2Gain, MID2_GAIN), P(FLOAT, Mid2Center, MID2_CENTER), P(FLOAT, Mid2Width, MID2_WIDTH),
            P(FLOAT, HighGain, HIGH_GAIN), P(FLOAT, HighCutoff, HIGH_CUTOFF)}},
#undef P
        {GROUP(Flanger, FLANGER), {EFX_LONG(Flanger, Waveform, FLANGER, WAVEFORM),
            EFX_LONG(Flanger, Phase, FLANGER, PHASE), EFX_FLOAT(Flanger, Rate, FLANGER, RATE),
            EFX_FLOAT(Flanger, Depth, FLANGER, DEPTH), EFX_FLOAT(Flanger, Feedback, FLANGER, FEEDBACK),
            EFX_FLOAT(Flanger, Delay, FLANGER, DELAY)}},
        {GROUP(FrequencyShifter, FREQUENCY_SHIFTER), {
            EFX_FLOAT(FrequencyShifter, Frequency, FREQUENCY_SHIFTER, FREQUENCY),
            EFX_LONG(FrequencyShifter, LeftDirection, FREQUENCY_SHIFTER, LEFT_DIRECTION),
            EFX_LONG(FrequencyShifter, RightDirection, FREQUENCY_SHIFTER, RIGHT_DIRECTION)}},
        {GROUP(VocalMorpher, VOCAL_MORPHER), {EFX_LONG(VocalMorpher, Phonemea, VOCAL_MORPHER, PHONEMEA),
            EFX_LONG(VocalMorpher, PhonemeaCoarseTuning, VOCAL_MORPHER, PHONEMEA_COARSE_TUNING),
            EFX_LONG(VocalMorpher, Phonemeb, VOCAL_MORPHER, PHONEMEB),
            EFX_LONG(VocalMorpher, PhonemebCoarseTuning, VOCAL_MORPHER, PHONEMEB_COARSE_TUNING),
            EFX_LONG(VocalMorpher, Waveform, VOCAL_MORPHER, WAVEFORM),
            EFX_FLOAT(VocalMorpher, Rate, VOCAL_MORPHER, RATE)}},
        {GROUP(PitchShifter, PITCH_SHIFTER), {EFX_LONG(PitchShifter, CoarseTune, PITCH_SHIFTER, COARSE_TUNE),
            EFX_LONG(PitchShifter, FineTune, PITCH_SHIFTER, FINE_TUNE)}},
        {GROUP(RingModulator, RING_MODULATOR), {EFX_FLOAT(RingModulator, Frequency, RING_MODULATOR, FREQUENCY),
            EFX_FLOAT(RingModulator, HighpassCutoff, RING_MODULATOR, HIGHPASS_CUTOFF),
            EFX_LONG(RingModulator, Waveform, RING_MODULATOR, WAVEFORM)}},
    };
    return groups;
}

class CatalogueTest : public ::testing::TestWithParam<std::size_t> {
protected:
    void SetUp() override
    {
        m_factory = StartFactory();
        m_slot = m_factory->CreateEffectSlot(1);
        ASSERT_NE(m_slot, nullptr);
        m_getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
        m_getEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
        m_getEffectfv = reinterpret_cast<LPALGETEFFECTFV>(alGetProcAddress("alGetEffectfv"));
    }

    const Group& TheGroup() const { return Groups()[GetParam()]; }

    // The property as the engine's getter reads it, with the first component of a vector.
    float ReadThroughEngine(const Property& p)
    {
        int value = -99;
        float number = -99.0f, vector[3] = {-99.0f, -99.0f, -99.0f};
        int result = 0;
        switch (p.kind) {
        case Kind::Float:
            result = (m_slot->*p.getFloat)(&number);
            break;
        case Kind::Vector:
            result = (m_slot->*p.getFloat)(vector);
            EXPECT_EQ(vector[1], vector[0]);
            EXPECT_EQ(vector[2], vector[0]);
            number = vector[0];
            break;
        default:
            result = (m_slot->*p.getInt)(&value);
            number = static_cast<float>(value);
        }
        EXPECT_EQ(result, 1) << m_slot->GetLog();
        return number;
    }

    // The property as OpenAL itself reads it from the effect object, by the token of efx.h.
    float ReadThroughOpenAL(const Property& p)
    {
        ALint value = -99;
        ALfloat vector[3] = {-99.0f, -99.0f, -99.0f};
        switch (p.kind) {
        case Kind::Float:
            m_getEffectf(m_spy.lastEffect, p.token, vector);
            return vector[0];
        case Kind::Vector:
            m_getEffectfv(m_spy.lastEffect, p.token, vector);
            return vector[0];
        default:
            m_getEffecti(m_spy.lastEffect, p.token, &value);
            return static_cast<float>(value);
        }
    }

    int Set(const Property& p, float value)
    {
        const float vector[3] = {value, value, value};
        switch (p.kind) {
        case Kind::Float:
            return (m_slot->*p.setFloat)(value);
        case Kind::Vector:
            return (m_slot->*p.setVector)(vector);
        default:
            return (m_slot->*p.setInt)(static_cast<int>(value));
        }
    }

    EffectSpy m_spy;
    FactoryPtr m_factory;
    EFX_EffectSlot* m_slot = nullptr;
    LPALGETEFFECTI m_getEffecti = nullptr;
    LPALGETEFFECTF m_getEffectf = nullptr;
    LPALGETEFFECTFV m_getEffectfv = nullptr;
};

std::string GroupName(const ::testing::TestParamInfo<std::size_t>& info)
{
    return Groups()[info.param].name;
}

} // namespace

// Every setter reaches its own token, logs its name and attaches the effect again; every getter
// reads its own token; the default routine sets the library's defaults in the order of the group,
// one attach each.
TEST_P(CatalogueTest, SettersGettersAndDefaultsReachTheirOwnTokens)
{
    const Group& group = TheGroup();
    if (!engine_test::LibraryTakesEffect(group.alType))
        GTEST_SKIP() << "this OpenAL Soft does not take the effect; the refusal is tested in SlotTest";
    ASSERT_EQ(m_slot->LoadEffect(group.type), 1);

    for (const Property& p : group.properties) {
        SCOPED_TRACE(p.name);
        EXPECT_FLOAT_EQ(ReadThroughEngine(p), p.libraryDefault);
    }
    for (const Property& p : group.properties) {
        SCOPED_TRACE(p.name);
        m_slot->ClearLog();
        m_spy.attaches = 0;
        ASSERT_EQ(Set(p, p.other), 1) << m_slot->GetLog();
        EXPECT_EQ(std::string(m_slot->GetLog()), std::string(p.name) + " property set");
        EXPECT_EQ(m_spy.attaches, 1);
    }
    for (const Property& p : group.properties) {
        SCOPED_TRACE(p.name);
        EXPECT_FLOAT_EQ(ReadThroughOpenAL(p), p.other);
        EXPECT_FLOAT_EQ(ReadThroughEngine(p), p.other);
    }

    m_slot->ClearLog();
    m_spy.attaches = 0;
    const int defaultsResult = std::invoke(group.defaults, *m_slot);
    EXPECT_EQ(defaultsResult, 1);
    EXPECT_EQ(m_spy.attaches, static_cast<int>(group.properties.size()));
    ExecLog expected;
    for (const Property& p : group.properties)
        expected.AppendLog((std::string(p.name) + " property set").c_str());
    EXPECT_STREQ(m_slot->GetLog(), expected.GetLog());
    for (const Property& p : group.properties) {
        SCOPED_TRACE(p.name);
        EXPECT_FLOAT_EQ(ReadThroughOpenAL(p), p.libraryDefault);
    }
}

INSTANTIATE_TEST_SUITE_P(AllGroups, CatalogueTest, ::testing::Range<std::size_t>(0, 13), GroupName);

namespace {

using CatalogueEdges = engine_test::SlotFixture<2>;

// A default routine calls its setters through the virtual table.
class ChorusWithRefusedDepth : public EFX_EffectSlot {
public:
    explicit ChorusWithRefusedDepth(ALuint slot)
        : EFX_EffectSlot(0, slot)
    {
    }
    int SetChorusDepth(float) override
    {
        AppendLog("[depth refused]");
        return 0;
    }
};

} // namespace

// A default routine stops at its first failing setter, keeping what it set before: on a slot that
// holds another effect, at once; through an overridden setter, after the ones before it.
TEST_F(CatalogueEdges, DefaultRoutinesStopAtTheFirstFailingSetter)
{
    ASSERT_EQ(m_slot->LoadEffect(kEffectEcho), 1);
    m_slot->ClearLog();
    EXPECT_EQ(m_slot->SetChorusDefaults(), 0);
    EXPECT_EQ(Log(), "Error setting AL_CHORUS_WAVEFORM in EFX Effect object: alEffecti() failed");

    ChorusWithRefusedDepth slot(EFX_Factory::GetEffectSlotId(3));
    ASSERT_EQ(slot.InitializeEAXSupport(), 1);
    ASSERT_EQ(slot.LoadEffect(kEffectChorus), 1);
    ASSERT_EQ(slot.SetChorusFeedback(-0.75f), 1);
    slot.ClearLog();
    EXPECT_EQ(slot.SetChorusDefaults(), 0);
    EXPECT_STREQ(slot.GetLog(),
                 "AL_CHORUS_WAVEFORM property setAL_CHORUS_PHASE property setAL_CHORUS_RATE property set"
                 "[depth refused]");
    EXPECT_EQ(engine_test::Got(slot, &EFX_EffectSlot::GetChorusFeedback), -0.75f);
}

TEST_F(CatalogueEdges, PropertiesOfAnotherEffectFailWithTheirNamesAndBoolsConvertBothWays)
{
    ASSERT_EQ(m_slot->LoadEffect(kEffectChorus), 1);
    m_slot->ClearLog();
    int waveform = 5;
    float pan[3] = {9, 9, 9};
    const float newPan[3] = {0.1f, 0.2f, 0.3f};
    EXPECT_EQ(m_slot->SetEAXReverbDensity(0.5f), 0);
    EXPECT_EQ(m_slot->SetRingModulatorWaveform(1), 0);
    EXPECT_EQ(m_slot->GetRingModulatorWaveform(&waveform), 0);
    EXPECT_EQ(m_slot->SetEAXReverbLateReverbPan(newPan), 0);
    EXPECT_EQ(m_slot->GetEAXReverbLateReverbPan(pan), 0);
    // The getter's name for the ring modulator's waveform lacks the second underscore.
    EXPECT_EQ(Log(),
              "Error setting AL_EAXREVERB_DENSITY in EFX Effect object: alEffectf() failed"
              "Error setting AL_RING_MODULATOR_WAVEFORM in EFX Effect object: alEffecti() failed"
              "Error retrieving AL_RINGMODULATOR_WAVEFORM property from EFX Effect object: alGetEffecti() failed"
              "Error setting AL_EAXREVERB_LATE_REVERB_PAN in EFX Effect object: alEffectfv() failed"
              "Error retrieving AL_EAXREVERB_LATE_REVERB_PAN property from EFX Effect object: alGetEffectfv() failed");
    // Outputs are left alone on failure.
    EXPECT_EQ(waveform, 5);
    EXPECT_EQ(pan[0], 9.0f);

    // The bool properties pass exactly 0 or 1 and read back 1 only for exactly 1. On the pitch shifter
    // the compressor's token is the coarse tune, a long, which shows both conversions on real values.
    using engine_test::Got;
    ASSERT_EQ(m_slot->LoadEffect(kEffectCompressor), 1);
    EXPECT_EQ(m_slot->SetCompressorOnoff(5), 1);
    EXPECT_EQ(Got(*m_slot, &EFX_EffectSlot::GetCompressorOnoff), 1);

    ASSERT_EQ(m_slot->LoadEffect(kEffectPitchShifter), 1);
    EXPECT_EQ(Got(*m_slot, &EFX_EffectSlot::GetCompressorOnoff), 0); // the coarse tune is 12, not exactly 1
    EXPECT_EQ(m_slot->SetPitchShifterCoarseTune(-12), 1);
    EXPECT_EQ(m_slot->SetCompressorOnoff(-7), 1);
    EXPECT_EQ(Got(*m_slot, &EFX_EffectSlot::GetPitchShifterCoarseTune), 1);
    EXPECT_EQ(Got(*m_slot, &EFX_EffectSlot::GetCompressorOnoff), 1);
    // The top of its range is the default.
    EXPECT_EQ(m_slot->SetPitchShifterCoarseTune(12), 1);
    EXPECT_EQ(m_slot->SetPitchShifterCoarseTune(13), 0);

    // A failed bool get still writes its converted output.
    ASSERT_EQ(m_slot->LoadEffect(kEffectEcho), 1);
    int onoff = 7;
    m_slot->ClearLog();
    EXPECT_EQ(m_slot->GetCompressorOnoff(&onoff), 0);
    EXPECT_EQ(onoff, 0);
    EXPECT_EQ(Log(), "Error retrieving AL_COMPRESSOR_ONOFF property from EFX Effect object: alGetEffecti() failed");
}

