// The bridge's own operations and the edges of its dispatch: the guard, deleted sources, the wrong
// effect, a preset beyond a knob's range, renumbering, the fifth slot, the position range, the
// defaults and the windows that the bridge tells.

#include "tests/values/BridgeTestSupport.h"

#include "engine/EFX_EffectSlot.h"
#include "engine/ProcAddress.h"
#include "values/CConvertNumeric.h"

using namespace bridge_test;

namespace {

struct Windows : BridgePanner, BridgeResponseWindow, BridgePositionWindow, BridgeMainDialog,
                 BridgeContextSourceDialog, BridgeSlotPanel {
    int vectorsTold = 0, responsesTold = 0, redraws = 0, reloads = 0;
    int responseSlot = -1, mainCheck = -1;
    float reflections[3] = {}, late[3] = {};
    ReverbResponseParams record;

    void SetVectors(const float reflectionsPan[3], const float latePan[3]) override
    {
        ++vectorsTold;
        std::copy(reflectionsPan, reflectionsPan + 3, reflections);
        std::copy(latePan, latePan + 3, late);
    }
    void ShowParameters(int slot, const ReverbResponseParams& params) override
    {
        ++responsesTold;
        responseSlot = slot;
        record = params;
    }
    void RedrawPositionWindow() override { ++redraws; }
    void SetAutoPlayCheck(int flag) override { mainCheck = flag; }
    void OnContextValue(int) override {}
    int Reload() override { return ++reloads; }
};

// The context/source dialog has a menu check of its own.
struct SourceDialog : BridgeContextSourceDialog {
    int check = -1;
    void SetAutoPlayCheck(int flag) override { check = flag; }
    void OnContextValue(int) override {}
};

class BridgeSlotTest : public BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateSlot(), 0u);
        slot = bridge->GetFactory()->GetEffectSlot(0);
        MakePanelRows(0, 5);
        bridge->SetPanner(0, &windows);
        bridge->SetResponseWindow(&windows);
    }
    void TearDown() override
    {
        bridge->SetPanner(0, nullptr);
        bridge->SetResponseWindow(nullptr);
        BridgeTest::TearDown();
    }

    EFX_EffectSlot* slot = nullptr;
    Windows windows;
};

} // namespace

TEST_F(BridgeSlotTest, WithCallbacksDisabledOrDuringTheWriteBackAChangeReachesNoEngineObject)
{
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    console.lines.clear();
    struct Watcher : CObserver {
        int heard = 0;
        void Update(CObservable*, int, std::intptr_t) override { ++heard; }
    } knob;
    CEFXFloatValObs* decay = BridgeTables().ReverbValues[0][2];
    decay->AddObserver(&knob, 0);

    bridge->SetCallbacksEnabled(0);
    decay->SetValue(3.0);
    decay->RemoveObserver(&knob, 0);
    bridge->SetCallbacksEnabled(1);

    EXPECT_EQ(decay->Value, 3.0f);
    EXPECT_EQ(knob.heard, 2);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 1.49f);
    EXPECT_TRUE(console.lines.empty());
    EXPECT_EQ(windows.responsesTold, 0);

    // A setter with callback run during the write-back is held off, and the guard comes back.
    // A control that answers the write-back of one value by setting another, with callback.
    struct Echoer : CObserver {
        CEFXFloatValObs* other = nullptr;
        void Update(CObservable*, int hint, std::intptr_t) override
        {
            if (hint == kHintChanged)
                other->SetValue(0.9);
        }
    } echoer;
    echoer.other = BridgeTables().ReverbValues[0][0];
    CEFXFloatValObs* diffusion = BridgeTables().ReverbValues[0][1];
    diffusion->Assign(0.3f);
    diffusion->AddObserver(&echoer, 0);

    BridgeTables().ReverbValues[0][2]->SetValue(2.0);
    diffusion->RemoveObserver(&echoer, 0);

    // The echo changed the value but not the engine: the density there is still the default.
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DENSITY), 1.0f);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 2.0f);
    EXPECT_EQ(bridge->GetCallbacksEnabled(), 1);
}

TEST_F(BridgeSlotTest, AReverbKnobOnASlotHoldingAnotherEffectLogsTheFailedSetAndNothingMore)
{
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEcho), 1);
    console.lines.clear();
    BridgeTables().ReverbValues[0][2]->SetValue(2.0);
    EXPECT_EQ(console.lines,
              std::vector<std::string>{"Error setting AL_EAXREVERB_DECAY_TIME in EFX Effect object: alEffectf() failed"});
    EXPECT_EQ(bridge->RefreshEAXReverb(0), 0);
    EXPECT_EQ(bridge->RefreshReverb(0), 0);
    EXPECT_EQ(console.lines.size(), 1u);
    EXPECT_EQ(windows.responsesTold, 0);
    EXPECT_EQ(bridge->RefreshEffectValues(0, kEffectChorus), 0);
    EXPECT_EQ(console.lines.back(), "The effect currently in the slot is not of the expected type");
}

namespace {

// OpenAL Soft keeps every reverb gain within the knobs' ranges, so a preset from an engine that holds
// more cannot be played in through it. This seam lets alGetEffectf report such values.
struct WideEngine {
    static void* Resolve(const char* name)
    {
        if (std::string(name) == "alGetEffectf")
            return reinterpret_cast<void*>(&GetEffectf);
        return alGetProcAddress(name);
    }
    static void AL_APIENTRY GetEffectf(ALuint effect, ALenum param, ALfloat* value)
    {
        reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"))(effect, param, value);
        if (param == AL_EAXREVERB_REFLECTIONS_GAIN)
            *value = 3.5f;
        if (param == AL_EAXREVERB_AIR_ABSORPTION_GAINHF)
            *value = 0.8f;
        if (param == AL_EAXREVERB_LATE_REVERB_GAIN)
            *value = 12.0f;
    }
};

} // namespace

TEST_F(BridgeTest, APresetBeyondAKnobsRangeIsClampedForTheKnobNotForTheRecord)
{
    efx_proc::SetResolver(&WideEngine::Resolve);
    ASSERT_EQ(bridge->CreateSlot(), 0u);
    efx_proc::SetResolver(nullptr);
    EFX_EffectSlot* slot = bridge->GetFactory()->GetEffectSlot(0);
    MakePanelRows(0, 5);
    Windows windows;
    bridge->SetPanner(0, &windows);
    bridge->SetResponseWindow(&windows);
    // The knobs' own ranges, as the EAX reverb panel binds them.
    Bind(BridgeTables().ReverbValues[0][24], 0, 3.16, 5, 0, 24);
    Bind(BridgeTables().ReverbValues[0][25], 0, 10, 5, 0, 25);
    Bind(BridgeTables().ReverbValues[0][17], 0.892, 1, 5, 0, 17);

    // What the browser does with a preset: straight into the engine, then the slot's write-back.
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    ASSERT_EQ(slot->SetEAXReverbGain(0.1f), 1);
    ASSERT_EQ(slot->SetEAXReverbDecayTime(4.0f), 1);
    ASSERT_EQ(slot->SetEAXReverbHfreference(3000.0f), 1);
    ASSERT_EQ(slot->SetEAXReverbDecayHflimit(0), 1);
    const float reflections[3] = {0.5f, 0.0f, -0.5f};
    ASSERT_EQ(slot->SetEAXReverbReflectionsPan(reflections), 1);
    bridge->FlushSlotLog(0);
    ASSERT_EQ(bridge->RefreshEffectValues(0, kEffectEAXReverb), 1);

    CEFXFloatValObs* const* values = BridgeTables().ReverbValues[0];
    EXPECT_FLOAT_EQ(values[24]->Value, 3.16f);
    EXPECT_FLOAT_EQ(values[25]->Value, 10.0f);
    EXPECT_FLOAT_EQ(values[17]->Value, 0.892f);
    EXPECT_FLOAT_EQ(values[21]->Value, 0.1f);
    EXPECT_EQ(hfLimit.state, 0);

    ASSERT_EQ(windows.responsesTold, 1);
    EXPECT_EQ(windows.responseSlot, 0);
    EXPECT_EQ(windows.record.ReflectionsGain, LevelToMillibels(3.5f));
    EXPECT_EQ(windows.record.LateReverbGain, LevelToMillibels(12.0f));
    EXPECT_EQ(windows.record.AirAbsorption, static_cast<float>(LevelToMillibels(0.8f)));
    EXPECT_EQ(windows.record.Gain, -2000);
    EXPECT_EQ(windows.record.GainHF, LevelToMillibels(0.89f));
    EXPECT_FLOAT_EQ(windows.record.DecayTime, 4.0f);
    EXPECT_FLOAT_EQ(windows.record.HFReference, 3000.0f);
    EXPECT_EQ(windows.record.DecayHFLimit, 0);
    ASSERT_EQ(windows.vectorsTold, 1);
    EXPECT_FLOAT_EQ(windows.reflections[0], 0.5f);
    EXPECT_FLOAT_EQ(windows.reflections[2], -0.5f);
    EXPECT_FLOAT_EQ(windows.late[0], 0.0f);
    bridge->SetPanner(0, nullptr);
    bridge->SetResponseWindow(nullptr);
}

TEST_F(BridgeSlotTest, TheStandardReverbTellsNoPannerAndOnePanComponentSendsTheOthersFromTheNeighbours)
{
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectReverb), 1);
    ASSERT_EQ(slot->SetReverbLateReverbGain(0.5f), 1);
    ASSERT_EQ(bridge->RefreshEffectValues(0, kEffectReverb), 1);
    EXPECT_EQ(windows.vectorsTold, 0);
    ASSERT_EQ(windows.responsesTold, 1);
    EXPECT_FLOAT_EQ(windows.record.HFReference, 5000.0f);
    EXPECT_FLOAT_EQ(windows.record.LFReference, 250.0f);
    EXPECT_FLOAT_EQ(windows.record.DecayLFRatio, 1.0f);
    EXPECT_EQ(windows.record.GainLF, 0);
    EXPECT_EQ(windows.record.LateReverbGain, LevelToMillibels(0.5f));
    EXPECT_FLOAT_EQ(BridgeTables().ReverbValues[0][11]->Value, 0.5f);

    // On the EAX reverb, changing one pan component sends the others from the neighbouring values.
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    CEFXFloatValObs* const* values = BridgeTables().ReverbValues[0];
    values[6]->Assign(0.25f);
    values[8]->Assign(-0.75f);
    values[7]->SetValue(0.5);
    float pan[3] = {};
    reinterpret_cast<LPALGETEFFECTFV>(alGetProcAddress("alGetEffectfv"))(spy.lastEffect, AL_EAXREVERB_REFLECTIONS_PAN, pan);
    EXPECT_FLOAT_EQ(pan[0], 0.25f);
    EXPECT_FLOAT_EQ(pan[1], 0.5f);
    EXPECT_FLOAT_EQ(pan[2], -0.75f);
    // The knob turn tells the panner; a set from the panner itself does not.
    EXPECT_EQ(windows.vectorsTold, 1);
    EXPECT_EQ(bridge->SetLateReverbPan(0, 0.1f, 0.2f, 0.3f), 1);
    EXPECT_EQ(windows.vectorsTold, 1);
    EXPECT_EQ(console.lines.back(), "AL_EAXREVERB_LATE_REVERB_PAN property set");
}

TEST_F(BridgeSlotTest, DefaultsLogTheirMessageAndWriteTheEffectBack)
{
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectChorus), 1);
    MakePanelRows(0, 9);
    BridgeTables().EffectValues[0][0]->Assign(777.0f);
    BridgeTables().EffectLongValues[0][0]->Assign(777);
    console.lines.clear();
    bridge->SetChorusDefaults(0);
    EXPECT_EQ(console.lines, std::vector<std::string>{"Set Chorus to its default values successful"});
    EXPECT_FLOAT_EQ(BridgeTables().EffectValues[0][0]->Value, 1.1f);
    EXPECT_EQ(BridgeTables().EffectLongValues[0][0]->Value, 90);
    EXPECT_EQ(combos[0].selection, 1);
    EXPECT_STREQ(slot->GetLog(), "");

    console.lines.clear();
    bridge->SetEchoDefaults(0);
    ASSERT_FALSE(console.lines.empty());
    EXPECT_EQ(console.lines.front(), "Error setting Echo default values");

    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    console.lines.clear();
    bridge->SetEAXReverbDefaults(0);
    EXPECT_EQ(console.lines, std::vector<std::string>{"Set Reverb to its default values successful"});
    EXPECT_EQ(windows.responsesTold, 1);
    EXPECT_EQ(windows.record.Gain, -989);
}

TEST_F(BridgeTest, SlotQueriesLogTheirFailuresThePanelIsAskedToReloadAndAFifthSlotIsRefused)
{
    int type = -1;
    EXPECT_EQ(bridge->GetSlotEffect(2, &type), 0);
    EXPECT_EQ(console.lines.back(), "Error: unknown effect in slot");
    EXPECT_EQ(bridge->RefreshEffectValues(2, kEffectEcho), 0);
    EXPECT_EQ(console.lines.back(), "Error querying slot effect type");

    ASSERT_EQ(bridge->CreateSlot(), 0u);
    EXPECT_TRUE(console.Has("EffectSlot creation and EAX intialization successful"));
    EXPECT_EQ(bridge->GetSlotEffect(0, &type), 1);
    EXPECT_EQ(type, kEffectNone);
    EXPECT_EQ(bridge->RefreshEffectValues(0, kEffectNone), 1);

    Windows panel;
    bridge->RefreshSlotPanel(0);
    bridge->SetSlotPanel(0, &panel);
    bridge->RefreshSlotPanel(0);
    bridge->RefreshSlotPanel(1);
    EXPECT_EQ(panel.reloads, 1);
    bridge->SetSlotPanel(0, nullptr);

    // A fifth slot is refused with the message and all bits set.
    for (std::uint32_t i = 1; i < 4; ++i)
        ASSERT_EQ(bridge->CreateSlot(), i);
    console.lines.clear();
    EXPECT_EQ(bridge->CreateSlot(), 0xFFFFFFFFu);
    EXPECT_EQ(console.lines, std::vector<std::string>{"Maximum number of slots already reached"});
    EXPECT_EQ(bridge->GetSlotCount(), 4);
}

namespace {

int SourceState(EFX_3DSource* source)
{
    ALint state = 0;
    alGetSourcei(SourcePeek::Source(source), AL_SOURCE_STATE, &state);
    return state;
}

} // namespace

TEST_F(BridgeTest, DeletingSourceZeroOfThreeRenumbersTheValuesThatMoveUp)
{
    const std::string path = WaveFile();
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    bridge->SetSourceName(0, "first");
    bridge->SetSourceName(1, "second");
    EFX_3DSource* second = bridge->GetSource(1);
    BridgeValueTables& tables = BridgeTables();
    CEFXFloatValObs* gain = tables.SourceValues[1][15];
    Bind(gain, 0, 1, 2, 1, 15);
    CSonopticExcluValObs* routing = tables.SendRoutingValues[3][1];
    Windows position;
    bridge->SetPositionWindow(&position);

    bridge->DeleteSource(0);

    EXPECT_EQ(bridge->GetSourceCount(), 2);
    EXPECT_EQ(bridge->GetSource(0), second);
    EXPECT_EQ(bridge->GetSource(2), nullptr);
    EXPECT_STREQ(bridge->GetSourceName(0), "second");
    EXPECT_STREQ(bridge->GetSourceName(2), "");
    EXPECT_EQ(tables.SourceValues[0][15], gain);
    EXPECT_EQ(gain->Index, 0);
    EXPECT_EQ(tables.SendRoutingValues[3][0], routing);
    EXPECT_EQ(routing->Index, 0);
    EXPECT_EQ(position.redraws, 1);
    // Fresh, unbound values wait at the freed place.
    ASSERT_NE(tables.SourceValues[2][15], nullptr);
    EXPECT_EQ(tables.SourceValues[2][15]->Callback, nullptr);
    EXPECT_NE(tables.SourceFlags[2][2], nullptr);

    // The next change of the moved value reaches the source that moved with it.
    gain->SetValue(0.25);
    float engineGain = -1;
    alGetSourcef(SourcePeek::Source(second), AL_GAIN, &engineGain);
    EXPECT_FLOAT_EQ(engineGain, 0.25f);
    bridge->SetPositionWindow(nullptr);
}

TEST_F(BridgeTest, DeletingTheOnlySourceLeavesFreshValuesAtZeroWhoseChangesGoNowhere)
{
    const std::string path = WaveFile();
    ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    CEFXFloatValObs* old = BridgeTables().SourceValues[0][4];
    Bind(old, -10, 10, 2, 0, 4);
    bridge->DeleteSource(0);
    EXPECT_EQ(bridge->GetSourceCount(), 0);
    EXPECT_EQ(bridge->GetSource(0), nullptr);
    for (auto* value : BridgeTables().SourceValues[0]) {
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(value->RangeChecked, 0);
    }
    for (auto* value : BridgeTables().SourceLongValues[0])
        EXPECT_NE(value, nullptr);
    for (auto& send : BridgeTables().SendRoutingValues)
        EXPECT_NE(send[0], nullptr);

    // A change from the panel of the deleted source goes nowhere.
    console.lines.clear();
    CEFXFloatValObs* stale = BridgeTables().SourceValues[0][15];
    Bind(stale, 0, 1, 2, 0, 15);
    stale->SetValue(0.5);
    bridge->OnValueChanged(nullptr, 1, 2, 0, 3, 1);
    EXPECT_TRUE(console.lines.empty());
}

TEST_F(BridgeTest, SourcesAreCreatedPlayingOrSilentByAutoPlayAndTheDialogsFollowTheSwitch)
{
    Windows main;
    SourceDialog sources;
    bridge->SetMainDialog(&main);
    bridge->SetContextSourceDialog(&sources);
    const std::string path = WaveFile();
    ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    EXPECT_EQ(SourceState(bridge->GetSource(0)), AL_PLAYING);

    bridge->ToggleAutoPlay();
    EXPECT_EQ(bridge->GetAutoPlay(), 0);
    EXPECT_EQ(main.mainCheck, 0);
    EXPECT_EQ(sources.check, 0);
    ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    EXPECT_NE(SourceState(bridge->GetSource(1)), AL_PLAYING);

    bridge->StartAllSources();
    EXPECT_EQ(SourceState(bridge->GetSource(1)), AL_PLAYING);
    bridge->StopAllSources();
    EXPECT_EQ(SourceState(bridge->GetSource(0)), AL_STOPPED);
    bridge->PlaySource(1, 0);
    EXPECT_EQ(SourceState(bridge->GetSource(1)), AL_PLAYING);
    bridge->StopSource(1);
    EXPECT_EQ(SourceState(bridge->GetSource(1)), AL_STOPPED);

    bridge->ToggleAutoPlay();
    EXPECT_EQ(main.mainCheck, 1);
    EXPECT_EQ(sources.check, 1);
    bridge->SetMainDialog(nullptr);
    bridge->SetContextSourceDialog(nullptr);
}

TEST_F(BridgeTest, AnUnreadableFileCreatesNoSourceAndSaysWhy)
{
    const std::string path = scratch.File("missing.wav");
    console.lines.clear();
    EXPECT_EQ(bridge->CreateSource(path.c_str()), 0);
    EXPECT_EQ(bridge->GetSourceCount(), 0);
    // The factory has nothing to say about a file that is not there; its empty text shows all the same.
    EXPECT_EQ(console.lines, (std::vector<std::string>{"", "3D source not created"}));
    EXPECT_EQ(console.topIndex, 2 - 5);

    const std::string good = WaveFile();
    ASSERT_EQ(bridge->CreateSource(good.c_str()), 1);
    EXPECT_EQ(bridge->ReloadSource(0, path.c_str()), 0);
    EXPECT_EQ(bridge->ReloadSource(0, good.c_str()), 1);
}

TEST_F(BridgeTest, SetToFrontMovesAndDefaultsAreWrittenBack)
{
    const std::string path = WaveFile();
    ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    BridgeValueTables& tables = BridgeTables();
    bridge->SetSourceToFront(0);
    EXPECT_FLOAT_EQ(tables.SourceValues[0][6]->Value, -1.0f);
    bridge->MoveSource(0, 2.0f, 3.0f, 4.0f);
    EXPECT_FLOAT_EQ(tables.SourceValues[0][5]->Value, 3.0f);
    EXPECT_EQ(console.lines.back().size() > 0, true);

    tables.SourceValues[0][13]->Assign(9.0f);
    console.lines.clear();
    bridge->SetSourceDefaults(0);
    EXPECT_EQ(console.lines.front(), "Set Source to its default values successful");
    EXPECT_FLOAT_EQ(tables.SourceValues[0][13]->Value, 1.0f);
    EXPECT_FLOAT_EQ(tables.SourceValues[0][4]->Value, 0.0f);

    EXPECT_EQ(bridge->CreateSourceSend(5, 0), 0);
    EXPECT_EQ(bridge->CreateSourceSend(0, 1), 1);
    EXPECT_EQ(bridge->DeleteSourceSend(0, 1), 1);
}

TEST_F(BridgeTest, SetPositionRangeBindsEveryPositionValueAndAValueOutsideStays)
{
    const std::string path = WaveFile();
    ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
    ASSERT_EQ(bridge->CreateContext(), 1);
    BridgeValueTables& tables = BridgeTables();
    Bind(tables.SourceValues[0][5], -10, 10, 2, 0, 5);
    tables.SourceValues[0][5]->Assign(15.0f); // outside its old range: dropped
    EXPECT_FLOAT_EQ(tables.SourceValues[0][5]->Value, 0.0f);

    bridge->SetPositionRange(PositionRangeExtent(10));
    for (CEFXFloatValObs* value :
         {tables.ListenerValues[1], tables.ListenerValues[3], tables.SourceValues[0][4], tables.SourceValues[127][6]}) {
        EXPECT_FLOAT_EQ(value->Minimum, -20.0f);
        EXPECT_FLOAT_EQ(value->Maximum, 20.0f);
        EXPECT_EQ(value->RangeChecked, 1);
    }
    // Not the velocities, nor the listener's orientation.
    EXPECT_EQ(tables.SourceValues[0][10]->RangeChecked, 0);
    EXPECT_EQ(tables.ListenerValues[4]->RangeChecked, 0);

    tables.SourceValues[0][5]->SetValue(15.0);
    float position[3];
    alGetSource3f(SourcePeek::Source(bridge->GetSource(0)), AL_POSITION, &position[0], &position[1], &position[2]);
    EXPECT_FLOAT_EQ(position[1], 15.0f);
    tables.SourceValues[0][5]->SetValue(25.0);
    EXPECT_FLOAT_EQ(tables.SourceValues[0][5]->Value, 15.0f);
}

TEST(BridgeWithoutEngine, NoContextIsMadeAndTheBridgeGoesQuietly)
{
    RecordingConsole console;
    {
        UI_EFX_Bridge bridge;
        bridge.SetLogList(&console);
        EXPECT_EQ(bridge.CreateContext(), 0);
        bridge.SuspendContext();
        bridge.RefreshContext();
        EXPECT_EQ(bridge.CreateSlot(), UI_EFX_Bridge::kNoSlot);
        EXPECT_EQ(bridge.CreateSource("x.wav"), 0);
        bridge.OnValueChanged(nullptr, 2, 4, 0, 1, 1);
        bridge.OnValueChanged(nullptr, 0, 3, 0, 0, 0);
        bridge.OnValueChanged(nullptr, 0, 18, 0, 0, 0);
    }
    EXPECT_EQ(console.lines.front(), "listener not created");
    EXPECT_EQ(UI_EFX_Bridge::GetInstance(), nullptr);
}
