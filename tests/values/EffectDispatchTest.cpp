// One turn of each knob, switch and choice of the thirteen effects, made the way the controls make
// it, read back from OpenAL itself; then every value of that effect must show what OpenAL holds.

#include "tests/values/BridgeTestSupport.h"

#include <cmath>

using namespace bridge_test;

namespace {

enum class Via { Knob, Long, Combo, Check };

// One control of an effect panel: its identifier, the EFX property that it must reach, and a value
// that the engine takes and that differs from the default.
struct EffectControl {
    std::uint16_t category;
    Via via;
    std::uint16_t param;
    ALenum token;
    const char* name;
    float value;
    int component; // for a pan vector: which of x, y, z this knob is; -1 otherwise
};

#define KNOB(c, p, token, v) {c, Via::Knob, p, token, #token, v, -1}
#define PAN(c, p, token, k, v) {c, Via::Knob, p, token, #token, v, k}
#define LONG(c, p, token, v) {c, Via::Long, p, token, #token, v, -1}
#define COMBO(c, p, token, v) {c, Via::Combo, p, token, #token, v, -1}
#define CHECK(c, p, token, v) {c, Via::Check, p, token, #token, v, -1}

const EffectControl kControls[] = {
    KNOB(5, 0, AL_EAXREVERB_DENSITY, 0.5f), KNOB(5, 1, AL_EAXREVERB_DIFFUSION, 0.6f),
    KNOB(5, 2, AL_EAXREVERB_DECAY_TIME, 2.5f), KNOB(5, 3, AL_EAXREVERB_DECAY_HFRATIO, 1.2f),
    KNOB(5, 4, AL_EAXREVERB_DECAY_LFRATIO, 1.3f), KNOB(5, 5, AL_EAXREVERB_REFLECTIONS_DELAY, 0.05f),
    PAN(5, 6, AL_EAXREVERB_REFLECTIONS_PAN, 0, 0.3f), PAN(5, 7, AL_EAXREVERB_REFLECTIONS_PAN, 1, -0.2f),
    PAN(5, 8, AL_EAXREVERB_REFLECTIONS_PAN, 2, 0.1f), KNOB(5, 9, AL_EAXREVERB_LATE_REVERB_DELAY, 0.02f),
    PAN(5, 10, AL_EAXREVERB_LATE_REVERB_PAN, 0, -0.4f), PAN(5, 11, AL_EAXREVERB_LATE_REVERB_PAN, 1, 0.25f),
    PAN(5, 12, AL_EAXREVERB_LATE_REVERB_PAN, 2, -0.15f), KNOB(5, 13, AL_EAXREVERB_ECHO_TIME, 0.1f),
    KNOB(5, 14, AL_EAXREVERB_ECHO_DEPTH, 0.5f), KNOB(5, 15, AL_EAXREVERB_MODULATION_TIME, 1.0f),
    KNOB(5, 16, AL_EAXREVERB_MODULATION_DEPTH, 0.3f), KNOB(5, 17, AL_EAXREVERB_AIR_ABSORPTION_GAINHF, 0.95f),
    KNOB(5, 18, AL_EAXREVERB_HFREFERENCE, 4000.0f), KNOB(5, 19, AL_EAXREVERB_LFREFERENCE, 300.0f),
    KNOB(5, 20, AL_EAXREVERB_ROOM_ROLLOFF_FACTOR, 2.0f), KNOB(5, 21, AL_EAXREVERB_GAIN, 0.5f),
    KNOB(5, 22, AL_EAXREVERB_GAINHF, 0.7f), KNOB(5, 23, AL_EAXREVERB_GAINLF, 0.6f),
    KNOB(5, 24, AL_EAXREVERB_REFLECTIONS_GAIN, 1.5f), KNOB(5, 25, AL_EAXREVERB_LATE_REVERB_GAIN, 2.0f),
    CHECK(5, 0, AL_EAXREVERB_DECAY_HFLIMIT, 0),
    KNOB(6, 0, AL_REVERB_DENSITY, 0.5f), KNOB(6, 1, AL_REVERB_DIFFUSION, 0.6f),
    KNOB(6, 2, AL_REVERB_DECAY_TIME, 2.5f), KNOB(6, 3, AL_REVERB_DECAY_HFRATIO, 1.2f),
    KNOB(6, 4, AL_REVERB_REFLECTIONS_DELAY, 0.05f), KNOB(6, 5, AL_REVERB_LATE_REVERB_DELAY, 0.02f),
    KNOB(6, 6, AL_REVERB_AIR_ABSORPTION_GAINHF, 0.95f), KNOB(6, 7, AL_REVERB_ROOM_ROLLOFF_FACTOR, 2.0f),
    KNOB(6, 8, AL_REVERB_GAIN, 0.5f), KNOB(6, 9, AL_REVERB_GAINHF, 0.7f),
    KNOB(6, 10, AL_REVERB_REFLECTIONS_GAIN, 1.5f), KNOB(6, 11, AL_REVERB_LATE_REVERB_GAIN, 2.0f),
    CHECK(6, 0, AL_REVERB_DECAY_HFLIMIT, 0),
    COMBO(7, 0, AL_COMPRESSOR_ONOFF, 0),
    KNOB(8, 0, AL_AUTOWAH_ATTACK_TIME, 0.1f), KNOB(8, 1, AL_AUTOWAH_RELEASE_TIME, 0.2f),
    KNOB(8, 2, AL_AUTOWAH_PEAK_GAIN, 20.0f), KNOB(8, 3, AL_AUTOWAH_RESONANCE, 500.0f),
    KNOB(9, 0, AL_CHORUS_RATE, 2.0f), KNOB(9, 1, AL_CHORUS_DEPTH, 0.5f), KNOB(9, 2, AL_CHORUS_FEEDBACK, 0.3f),
    KNOB(9, 3, AL_CHORUS_DELAY, 0.01f), LONG(9, 0, AL_CHORUS_PHASE, 45), COMBO(9, 0, AL_CHORUS_WAVEFORM, 0),
    KNOB(10, 0, AL_DISTORTION_EDGE, 0.5f), KNOB(10, 1, AL_DISTORTION_LOWPASS_CUTOFF, 5000.0f),
    KNOB(10, 2, AL_DISTORTION_EQCENTER, 2000.0f), KNOB(10, 3, AL_DISTORTION_EQBANDWIDTH, 1000.0f),
    KNOB(10, 4, AL_DISTORTION_GAIN, 0.5f),
    KNOB(11, 0, AL_ECHO_DELAY, 0.05f), KNOB(11, 1, AL_ECHO_LRDELAY, 0.2f), KNOB(11, 2, AL_ECHO_DAMPING, 0.3f),
    KNOB(11, 3, AL_ECHO_FEEDBACK, 0.6f), KNOB(11, 4, AL_ECHO_SPREAD, 0.5f),
    KNOB(12, 0, AL_EQUALIZER_LOW_CUTOFF, 100.0f), KNOB(12, 1, AL_EQUALIZER_MID1_CENTER, 400.0f),
    KNOB(12, 2, AL_EQUALIZER_MID1_WIDTH, 0.5f), KNOB(12, 3, AL_EQUALIZER_MID2_CENTER, 2000.0f),
    KNOB(12, 4, AL_EQUALIZER_MID2_WIDTH, 0.5f), KNOB(12, 5, AL_EQUALIZER_HIGH_CUTOFF, 8000.0f),
    KNOB(12, 6, AL_EQUALIZER_LOW_GAIN, 2.0f), KNOB(12, 7, AL_EQUALIZER_MID1_GAIN, 0.5f),
    KNOB(12, 8, AL_EQUALIZER_MID2_GAIN, 2.0f), KNOB(12, 9, AL_EQUALIZER_HIGH_GAIN, 0.5f),
    KNOB(13, 0, AL_FLANGER_RATE, 1.0f), KNOB(13, 1, AL_FLANGER_DEPTH, 0.5f), KNOB(13, 2, AL_FLANGER_FEEDBACK, 0.3f),
    KNOB(13, 3, AL_FLANGER_DELAY, 0.003f), LONG(13, 0, AL_FLANGER_PHASE, -90), COMBO(13, 0, AL_FLANGER_WAVEFORM, 0),
    KNOB(14, 0, AL_VOCAL_MORPHER_RATE, 2.0f), LONG(14, 0, AL_VOCAL_MORPHER_PHONEMEA_COARSE_TUNING, 5),
    LONG(14, 1, AL_VOCAL_MORPHER_PHONEMEB_COARSE_TUNING, -5), COMBO(14, 0, AL_VOCAL_MORPHER_PHONEMEA, 3),
    COMBO(14, 1, AL_VOCAL_MORPHER_PHONEMEB, 4), COMBO(14, 2, AL_VOCAL_MORPHER_WAVEFORM, 1),
    LONG(15, 0, AL_PITCH_SHIFTER_COARSE_TUNE, -5), LONG(15, 1, AL_PITCH_SHIFTER_FINE_TUNE, 20),
    KNOB(16, 0, AL_RING_MODULATOR_FREQUENCY, 1000.0f), KNOB(16, 1, AL_RING_MODULATOR_HIGHPASS_CUTOFF, 1000.0f),
    COMBO(16, 0, AL_RING_MODULATOR_WAVEFORM, 1),
    KNOB(17, 0, AL_FREQUENCY_SHIFTER_FREQUENCY, 100.0f), COMBO(17, 0, AL_FREQUENCY_SHIFTER_LEFT_DIRECTION, 1),
    COMBO(17, 1, AL_FREQUENCY_SHIFTER_RIGHT_DIRECTION, 2),
};

const ALint kALEffectOfCategory[18] = {
    0, 0, 0, 0, 0,
    AL_EFFECT_EAXREVERB, AL_EFFECT_REVERB, AL_EFFECT_COMPRESSOR, AL_EFFECT_AUTOWAH, AL_EFFECT_CHORUS,
    AL_EFFECT_DISTORTION, AL_EFFECT_ECHO, AL_EFFECT_EQUALIZER, AL_EFFECT_FLANGER, AL_EFFECT_VOCAL_MORPHER,
    AL_EFFECT_PITCH_SHIFTER, AL_EFFECT_RING_MODULATOR, AL_EFFECT_FREQUENCY_SHIFTER,
};

// The slot under test is the second, so that a dispatch that ignored the index would miss it.
constexpr int kSlot = 1;

class EffectDispatch : public BridgeTest, public ::testing::WithParamInterface<int> {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateSlot(), 0u);
        ASSERT_EQ(bridge->CreateSlot(), 1u);
        effect = spy.lastEffect;
        getEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
        getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
        getEffectfv = reinterpret_cast<LPALGETEFFECTFV>(alGetProcAddress("alGetEffectfv"));
    }

    // What OpenAL holds for a control's property.
    float EngineValue(const EffectControl& control)
    {
        if (control.via == Via::Knob) {
            float vector[3] = {-7, -7, -7};
            if (control.component >= 0) {
                getEffectfv(effect, control.token, vector);
                return vector[control.component];
            }
            getEffectf(effect, control.token, vector);
            return vector[0];
        }
        ALint value = -7;
        getEffecti(effect, control.token, &value);
        return static_cast<float>(value);
    }

    // The value behind a knob, a long or a choice of the panel.
    CObservableNumber* Value(const EffectControl& control)
    {
        BridgeValueTables& tables = BridgeTables();
        if (control.via == Via::Long)
            return tables.EffectLongValues[kSlot][control.param];
        const bool reverb = control.category == 5 || control.category == 6;
        return reverb ? tables.ReverbValues[kSlot][control.param] : tables.EffectValues[kSlot][control.param];
    }

    // What the panel shows for a control.
    float Shown(const EffectControl& control)
    {
        if (control.via == Via::Combo)
            return static_cast<float>(combos[control.param].selection);
        if (control.via == Via::Check)
            return static_cast<float>(hfLimit.state);
        return static_cast<float>(Value(control)->GetValue());
    }

    void Scramble()
    {
        BridgeValueTables& tables = BridgeTables();
        for (auto* value : tables.ReverbValues[kSlot])
            value->Assign(777.0f);
        for (auto* value : tables.EffectValues[kSlot])
            value->Assign(777.0f);
        for (auto* value : tables.EffectLongValues[kSlot])
            value->Assign(777);
        for (auto& combo : combos)
            combo.selection = -99;
        hfLimit.state = -99;
    }

    // The control as the user works it.
    void Turn(const EffectControl& control)
    {
        if (control.via == Via::Combo)
            BridgeTables().EffectChoices[kSlot][control.param]->OnUserSelected(static_cast<int>(control.value));
        else if (control.via == Via::Check)
            BridgeTables().ReverbHFLimitFlags[kSlot]->OnUserToggled(static_cast<int>(control.value));
        else
            Value(control)->SetValue(control.value);
    }

    ALuint effect = 0;
    LPALGETEFFECTF getEffectf = nullptr;
    LPALGETEFFECTI getEffecti = nullptr;
    LPALGETEFFECTFV getEffectfv = nullptr;
};

} // namespace

TEST_P(EffectDispatch, EachControlReachesItsPropertyAndTheWholeEffectIsReadBack)
{
    const int category = GetParam();
    if (!engine_test::LibraryTakesEffect(kALEffectOfCategory[category]))
        GTEST_SKIP() << "this OpenAL Soft has no such effect; the refusal is tested apart";
    MakePanelRows(kSlot, static_cast<std::uint16_t>(category));
    ASSERT_EQ(bridge->LoadSlotEffect(kSlot, category - 4), 1);

    int turned = 0;
    for (const EffectControl& control : kControls) {
        if (control.category != category)
            continue;
        SCOPED_TRACE(control.name);
        ++turned;
        Scramble();
        console.lines.clear();
        Turn(control);

        EXPECT_FLOAT_EQ(EngineValue(control), control.value);
        EXPECT_TRUE(console.Has(std::string(control.name) + " property set"));
        for (const EffectControl& other : kControls) {
            if (other.category == category) {
                EXPECT_FLOAT_EQ(Shown(other), EngineValue(other)) << "read back: " << other.name;
            }
        }
    }
    EXPECT_GT(turned, 0);
}

INSTANTIATE_TEST_SUITE_P(Categories, EffectDispatch, ::testing::Range(5, 18));

TEST_F(BridgeTest, AVocalMorpherThatTheLibraryRefusesLogsTheSetAndRefusesTheWriteBack)
{
    if (engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER))
        GTEST_SKIP() << "this OpenAL Soft has the vocal morpher; its controls are tested above";
    ASSERT_EQ(bridge->CreateSlot(), 0u);
    MakePanelRows(0, 14);
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    EXPECT_EQ(bridge->LoadSlotEffect(0, kEffectVocalMorpher), 0);
    console.lines.clear();

    BridgeTables().EffectValues[0][0]->SetValue(2.0);

    // The set goes to the effect that the slot still holds; whatever the library makes of it, its
    // line reaches the console, and the write-back refuses the wrong type.
    ASSERT_FALSE(console.lines.empty());
    EXPECT_NE(console.lines.front().find("AL_VOCAL_MORPHER_RATE"), std::string::npos);
    EXPECT_EQ(console.lines.back(), "The effect currently in the slot is not of the expected type");
}
