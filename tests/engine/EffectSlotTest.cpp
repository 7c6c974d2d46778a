// The slot core against OpenAL Soft: creation, entry points, loading effect types, the slot's own
// properties and the paths of the primitives that the catalogue does not reach by itself.
#include "engine/EFX_EffectSlot.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using engine_test::EffectSpy;
using engine_test::FactoryPtr;
using engine_test::StartFactory;

namespace {

class SlotTest : public engine_test::SlotFixture<0> {
protected:
    int Effect() { return engine_test::Got(*m_slot, &EFX_EffectSlot::GetEffect); }

    ALint SendAutoInOpenAL() const
    {
        auto getSloti = reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTI>(alGetProcAddress("alGetAuxiliaryEffectSloti"));
        ALint value = 0;
        getSloti(EFX_Factory::GetEffectSlotId(0), AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, &value);
        return value;
    }
};

// A slot object that never resolved its entry points.
class UnresolvedSlot : public EFX_EffectSlot {
public:
    UnresolvedSlot()
        : EFX_EffectSlot(0, 0)
    {
    }
};

// A slot object whose sets are deferred.
class DeferringSlot : public EFX_EffectSlot {
public:
    explicit DeferringSlot(ALuint slot)
        : EFX_EffectSlot(0, slot)
    {
        m_deferred = 1;
    }
};

} // namespace

TEST(SlotCreation, SlotsAreMadeOnceWithinTheGeneratedNumberAndOnlyOnAnOpenDevice)
{
    FactoryPtr factory = StartFactory();
    EFX_EffectSlot* slot = factory->CreateEffectSlot(2);
    ASSERT_NE(slot, nullptr);
    EXPECT_STREQ(factory->GetLog(), "EffectSlot creation and EAX intialization successful");
    EXPECT_STREQ(slot->GetLog(), "");
    EXPECT_EQ(factory->GetEffectSlot(2), slot);

    factory->ClearLog();
    EXPECT_EQ(factory->CreateEffectSlot(2), slot);
    EXPECT_EQ(factory->CreateEffectSlot(4), nullptr);
    EXPECT_EQ(factory->CreateEffectSlot(static_cast<std::uint32_t>(-1)), nullptr);
    EXPECT_STREQ(factory->GetLog(), "");

    // A new slot holds the null effect and is read back as EffectType 0.
    int type = -1;
    EXPECT_EQ(slot->GetEffect(&type), 1);
    EXPECT_EQ(type, kEffectNone);

    // A factory without an open device makes none, in silence.
    std::unique_ptr<EFX_Factory> closed(EFX_Factory::Create());
    EXPECT_EQ(closed->CreateEffectSlot(0), nullptr);
    EXPECT_STREQ(closed->GetLog(), "");
}

// Each missing entry point fails the creation with its own line, in the order of resolution. Three
// lines have a single point.
TEST(SlotCreation, EachMissingEntryPointIsReportedWithItsOwnLine)
{
    const char* const names[] = {
        "alGenEffects", "alDeleteEffects", "alIsEffect", "alEffecti", "alEffectiv", "alEffectf", "alEffectfv",
        "alGetEffecti", "alGetEffectiv", "alGetEffectf", "alGetEffectfv", "alGenAuxiliaryEffectSlots",
        "alDeleteAuxiliaryEffectSlots", "alIsAuxiliaryEffectSlot", "alAuxiliaryEffectSloti",
        "alAuxiliaryEffectSlotf", "alGetAuxiliaryEffectSloti", "alGetAuxiliaryEffectSlotf",
    };
    const std::set<std::string> singlePoint = {"alEffectfv", "alGetEffecti", "alGetEffectf"};
    FactoryPtr factory = StartFactory();
    for (const std::string name : names) {
        SCOPED_TRACE(name);
        engine_test::HiddenEntryPoint hidden(name.c_str());
        factory->AppendLog("older text");
        EXPECT_EQ(factory->CreateEffectSlot(1), nullptr);
        EXPECT_EQ(std::string(factory->GetLog()), "Cannot create Slot: EFX extension: " + name + " is unavailable"
                                                      + (singlePoint.count(name) ? "." : "..") + "\n");
        EXPECT_EQ(factory->GetEffectSlot(1), nullptr);
    }
}

TEST(SlotCreation, FailedEffectGenerationStillGivesASlotWhoseLoadsFail)
{
    EffectSpy spy;
    spy.failGeneration = true;
    FactoryPtr factory = StartFactory();
    EFX_EffectSlot* slot = factory->CreateEffectSlot(0);
    ASSERT_NE(slot, nullptr);
    EXPECT_STREQ(factory->GetLog(), "EffectSlot creation and EAX intialization successful");
    EXPECT_STREQ(slot->GetLog(), "EFX_EffectSlot::InitializeEAXSupport() failed: alGenEffects() failed");

    slot->ClearLog();
    EXPECT_EQ(slot->LoadEffect(kEffectChorus), 0);
    EXPECT_STREQ(slot->GetLog(), "Error loading effect type in EFX Effect object: alEffecti() failed");
    slot->ClearLog();
    int type = -1;
    EXPECT_EQ(slot->GetEffect(&type), 0);
    EXPECT_STREQ(slot->GetLog(), "EFX_EffectSlot::GetEffect() failed: alGetEffecti() failed.");
    EXPECT_EQ(type, -1);
}

TEST_F(SlotTest, EveryTypeTheLibraryTakesLoadsAndReadsBackAndUnknownOnesAreRefused)
{
    const ALint alTypes[kNumEffectTypes] = {
        AL_EFFECT_NULL, AL_EFFECT_EAXREVERB, AL_EFFECT_REVERB, AL_EFFECT_COMPRESSOR, AL_EFFECT_AUTOWAH,
        AL_EFFECT_CHORUS, AL_EFFECT_DISTORTION, AL_EFFECT_ECHO, AL_EFFECT_EQUALIZER, AL_EFFECT_FLANGER,
        AL_EFFECT_VOCAL_MORPHER, AL_EFFECT_PITCH_SHIFTER, AL_EFFECT_RING_MODULATOR, AL_EFFECT_FREQUENCY_SHIFTER,
    };
    auto getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
    for (int type = 0; type < kNumEffectTypes; ++type) {
        SCOPED_TRACE(type);
        if (!engine_test::LibraryTakesEffect(alTypes[type]))
            continue; // the refusal has its own test
        m_slot->ClearLog();
        m_spy.attaches = 0;
        ASSERT_EQ(m_slot->LoadEffect(type), 1);
        EXPECT_EQ(Log(), "Load Effect successful (AL_EFFECT_TYPE and AL_EFFECTSLOT_EFFECT set)");
        EXPECT_EQ(m_spy.attaches, 1);
        EXPECT_EQ(Effect(), type);
        ALint alType = -1;
        getEffecti(m_spy.lastEffect, AL_EFFECT_TYPE, &alType);
        EXPECT_EQ(alType, alTypes[type]);
    }
    EXPECT_EQ(m_slot->LoadDefaultEffect(), 1);
    EXPECT_EQ(Effect(), kEffectEAXReverb);
    EXPECT_EQ(m_slot->UnloadEffect(), 1);
    EXPECT_EQ(Effect(), kEffectNone);
    // The null type is loaded like any other: the effect object is attached again.
    m_spy.attaches = 0;
    EXPECT_EQ(m_slot->UnloadEffect(), 1);
    EXPECT_EQ(m_spy.attaches, 1);

    // Unknown types are refused, and the slot keeps its effect.
    ASSERT_EQ(m_slot->LoadEffect(kEffectEcho), 1);
    for (int type : {14, -1, 0x8000}) {
        m_slot->ClearLog();
        EXPECT_EQ(m_slot->LoadEffect(type), 0);
        EXPECT_EQ(Log(), "Unknown effect, Load failed");
        EXPECT_EQ(Effect(), kEffectEcho);
    }
}

// OpenAL Soft 1.19 refuses the Vocal Morpher; later versions take it. Whichever this one is, the
// slot reports what the library did.
TEST_F(SlotTest, VocalMorpherLoadsWhereTheLibraryTakesItAndFailsCleanlyWhereNot)
{
    ASSERT_EQ(m_slot->UnloadEffect(), 1);
    m_slot->ClearLog();
    if (engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER)) {
        EXPECT_EQ(m_slot->LoadEffect(kEffectVocalMorpher), 1);
        EXPECT_EQ(Effect(), kEffectVocalMorpher);
        EXPECT_EQ(m_slot->SetVocalMorpherDefaults(), 1);
        EXPECT_EQ(engine_test::Got(*m_slot, &EFX_EffectSlot::GetVocalMorpherPhonemeb), 10);
        EXPECT_EQ(m_slot->SetVocalMorpherRate(2.5f), 1);
        EXPECT_EQ(engine_test::Got(*m_slot, &EFX_EffectSlot::GetVocalMorpherRate), 2.5f);
    } else {
        EXPECT_EQ(m_slot->LoadEffect(kEffectVocalMorpher), 0);
        EXPECT_EQ(Log(), "Error loading effect type in EFX Effect object: alEffecti() failed");
        EXPECT_EQ(Effect(), kEffectNone);
        m_slot->ClearLog();
        EXPECT_EQ(m_slot->SetVocalMorpherDefaults(), 0);
        EXPECT_EQ(Log(), "Error setting AL_VOCAL_MORPHER_PHONEMEA in EFX Effect object: alEffecti() failed");
    }
}

TEST_F(SlotTest, SlotGainAndSendAutoAreSetAndReadWithTheirNamesAndFailedGetsNameTheProperty)
{
    EXPECT_EQ(m_slot->SetGain(0.25f), 1);
    EXPECT_EQ(Log(), "AL_EFFECTSLOT_GAIN property set");
    EXPECT_EQ(engine_test::Got(*m_slot, &EFX_EffectSlot::GetGain), 0.25f);
    EXPECT_EQ(Log(), "AL_EFFECTSLOT_GAIN property set");

    m_slot->ClearLog();
    EXPECT_EQ(m_slot->SetGain(1.5f), 0);
    EXPECT_EQ(Log(), "Error setting EFX Aux Slot AL_EFFECTSLOT_GAIN property: alAuxiliaryEffectSlotf() failed");

    // Any non-zero flag reaches OpenAL as 1, which is the only value it takes besides 0.
    m_slot->ClearLog();
    EXPECT_EQ(m_slot->SetAuxiliarySendAuto(0), 1);
    EXPECT_EQ(SendAutoInOpenAL(), 0);
    EXPECT_EQ(m_slot->SetAuxiliarySendAuto(2), 1);
    EXPECT_EQ(SendAutoInOpenAL(), 1);
    EXPECT_EQ(Log(), "AL_EFFECTSLOT_AUXILIARY_SEND_AUTO property setAL_EFFECTSLOT_AUXILIARY_SEND_AUTO property set");
    EXPECT_EQ(engine_test::Got(*m_slot, &EFX_EffectSlot::GetAuxiliarySendAuto), 1);

    // Without a current context every OpenAL call fails, which shows the get failures, and that the
    // set spells the send-auto name one way and the get another.
    m_slot->ClearLog();
    ALCcontext* current = alcGetCurrentContext();
    alcMakeContextCurrent(nullptr);
    int flag = 7;
    float gain = 7.0f;
    const int results = m_slot->GetAuxiliarySendAuto(&flag) + m_slot->GetGain(&gain) + m_slot->SetAuxiliarySendAuto(1);
    alcMakeContextCurrent(current);
    EXPECT_EQ(results, 0);
    EXPECT_EQ(Log(),
              "Error retrieving AL_EFFECTSLOT_AUXSENDAUTO property from EFX Slot object: alGetAuxiliaryEffectSloti() failed"
              "Error retrieving AL_EFFECTSLOT_GAIN property from EFX Slot object: alGetAuxiliaryEffectSlotf() failed"
              "Error setting EFX Aux Slot AL_EFFECTSLOT_AUXILIARY_SEND_AUTO property: alAuxiliaryEffectSloti() failed");
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(gain, 7.0f);
}

TEST(SlotEntryPoints, OperationsOfAnUnresolvedSlotNameTheMissingEntryPoint)
{
    FactoryPtr factory = StartFactory();
    UnresolvedSlot slot;
    int value = 0;
    float number = 0, vector[3] = {};
    const int results = slot.LoadEffect(kEffectChorus) + slot.GetEffect(&value) + slot.SetAuxiliarySendAuto(1)
        + slot.SetGain(1.0f) + slot.GetAuxiliarySendAuto(&value) + slot.GetGain(&number);
    EXPECT_EQ(results, 0);
    EXPECT_STREQ(slot.GetLog(),
                 "No alEffecti entry point, cannot load effect"
                 "No alGetEffecti entry point, cannot get effect type"
                 "No alAuxiliaryEffectSloti entry point, cannot set AL_EFFECTSLOT_AUXILIARY_SEND_AUTO property"
                 "No alAuxiliaryEffectSlotf entry point, cannot set AL_EFFECTSLOT_GAIN property"
                 "No alGetAuxiliaryEffectSloti entry point, cannot get AL_EFFECTSLOT_AUXSENDAUTO property"
                 "No alGetAuxiliaryEffectSlotf entry point, cannot get AL_EFFECTSLOT_GAIN property");

    slot.ClearLog();
    const int setResults = slot.SetChorusWaveform(0) + slot.SetChorusRate(1.0f)
        + slot.SetEAXReverbReflectionsPan(vector) + slot.SetCompressorOnoff(1);
    EXPECT_EQ(setResults, 0);
    EXPECT_STREQ(slot.GetLog(),
                 "No alEffecti entry point, cannot set AL_CHORUS_WAVEFORM property"
                 "No alEffectf entry point, cannot set AL_CHORUS_RATE property"
                 "No alEffectfv entry point, cannot set AL_EAXREVERB_REFLECTIONS_PAN property"
                 "No alEffecti entry point, cannot set AL_COMPRESSOR_ONOFF property");

    slot.ClearLog();
    const int getResults = slot.GetChorusPhase(&value) + slot.GetChorusRate(&number)
        + slot.GetEAXReverbLateReverbPan(vector) + slot.GetReverbDecayHflimit(&value)
        + slot.GetRingModulatorWaveform(&value);
    EXPECT_EQ(getResults, 0);
    EXPECT_STREQ(slot.GetLog(),
                 "No alGetEffecti entry point, cannot get AL_CHORUS_PHASE property"
                 "No alGetEffectf entry point, cannot get AL_CHORUS_RATE property"
                 "No alGetEffectfv entry point, cannot get AL_EAXREVERB_LATE_REVERB_PAN property"
                 "No alGetEffecti entry point, cannot get AL_REVERB_DECAY_HFLIMIT property"
                 "No alGetEffecti entry point, cannot get AL_RINGMODULATOR_WAVEFORM property");
}

// With the deferred flag set, a property set changes the effect object but does not attach it to
// the slot again. Nothing in the program sets the flag; this is the branch that waits for it.
TEST(SlotDeferred, DeferredSetsChangeTheEffectWithoutReattachingIt)
{
    EffectSpy spy;
    FactoryPtr factory = StartFactory();
    DeferringSlot slot(EFX_Factory::GetEffectSlotId(3));
    ASSERT_EQ(slot.InitializeEAXSupport(), 1);
    ASSERT_EQ(slot.LoadEffect(kEffectChorus), 1);
    slot.ClearLog();
    spy.attaches = 0;

    const float pan[3] = {0.5f, 0.0f, 0.0f};
    EXPECT_EQ(slot.SetChorusRate(2.0f), 1);
    EXPECT_EQ(slot.SetChorusPhase(45), 1);
    EXPECT_EQ(slot.SetEAXReverbReflectionsPan(pan), 0); // the chorus has no pan: refused before the branch
    EXPECT_STREQ(slot.GetLog(),
                 "AL_CHORUS_RATE property set (deferred)"
                 "AL_CHORUS_PHASE property set (deferred)"
                 "Error setting AL_EAXREVERB_REFLECTIONS_PAN in EFX Effect object: alEffectfv() failed");
    EXPECT_EQ(spy.attaches, 0);
    EXPECT_EQ(engine_test::Got(slot, &EFX_EffectSlot::GetChorusRate), 2.0f);

    // A slot made by the factory is not deferred: each set attaches the effect once.
    EFX_EffectSlot* normal = factory->CreateEffectSlot(0);
    ASSERT_EQ(normal->LoadEffect(kEffectChorus), 1);
    spy.attaches = 0;
    normal->ClearLog();
    EXPECT_EQ(normal->SetChorusRate(2.0f), 1);
    EXPECT_STREQ(normal->GetLog(), "AL_CHORUS_RATE property set");
    EXPECT_EQ(spy.attaches, 1);
}
