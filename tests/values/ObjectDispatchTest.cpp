// One turn of each control of the listener, a source and a slot, made the way the controls make it
// and read back from OpenAL itself; then every value of that object must show what OpenAL holds.

#include "tests/values/BridgeTestSupport.h"

#include <cfloat>

using namespace bridge_test;

namespace {

auto GetSlotf = [] { return reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTF>(alGetProcAddress("alGetAuxiliaryEffectSlotf")); };
auto GetSloti = [] { return reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTI>(alGetProcAddress("alGetAuxiliaryEffectSloti")); };

// What OpenAL holds for listener param p, 0 to 14: the Doppler factor, the position, the at and up
// vectors, the velocity, the speed of sound and the gain.
float ListenerAL(int param)
{
    float vector[6] = {};
    if (param == 0 || param == 13)
        return alGetFloat(param == 0 ? AL_DOPPLER_FACTOR : AL_SPEED_OF_SOUND);
    const ALenum token = param <= 3 ? AL_POSITION : param <= 9 ? AL_ORIENTATION : param <= 12 ? AL_VELOCITY : AL_GAIN;
    alGetListenerfv(token, vector);
    return vector[param <= 3 ? param - 1 : param <= 9 ? param - 4 : param <= 12 ? param - 10 : 0];
}

class ListenerDispatch : public BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateContext(), 1);
        BridgeValueTables& tables = BridgeTables();
        for (int p = 0; p < bridge_limits::kListenerValues; ++p)
            Bind(tables.ListenerValues[p], -100000, 100000, 1, 65535, static_cast<std::uint16_t>(p));
        for (int k = 0; k < 7; ++k)
            row[k] = &buttons[k];
        tables.DistanceModelValue.Bind(7, row, 1, 65535, 0);
    }
    void TearDown() override
    {
        BridgeTables().DistanceModelValue.Bind(0, nullptr, 0, 0, 0);
        BridgeTest::TearDown();
    }

    void Scramble()
    {
        for (auto* value : BridgeTables().ListenerValues)
            value->Assign(777.0f);
        BridgeTables().DistanceModelValue.Selected = -5;
    }

    void ExpectAllReadBack()
    {
        for (int p = 0; p < bridge_limits::kListenerValues; ++p)
            EXPECT_FLOAT_EQ(BridgeTables().ListenerValues[p]->Value, ListenerAL(p)) << "param " << p;
        EXPECT_EQ(BridgeTables().DistanceModelValue.Selected, alGetInteger(AL_DISTANCE_MODEL) - AL_INVERSE_DISTANCE + 1);
    }

    RecordingCheck buttons[7];
    CheckBoxControl* row[7] = {};
};

} // namespace

TEST_F(ListenerDispatch, EachKnobReachesItsListenerPropertyAndAllAreReadBack)
{
    const std::pair<int, float> turns[] = {{0, 2.0f},   {1, 1.5f},  {2, -2.5f},  {3, 3.0f},  {4, 0.6f},
                                          {5, 0.3f},   {6, -0.7f}, {10, 4.0f},  {11, -1.0f}, {12, 2.0f},
                                          {13, 300.0f}, {14, 0.4f}};
    for (const auto& [param, value] : turns) {
        SCOPED_TRACE(param);
        Scramble();
        console.lines.clear();
        BridgeTables().ListenerValues[param]->SetValue(value);
        EXPECT_FLOAT_EQ(ListenerAL(param), value);
        EXPECT_FALSE(console.lines.empty());
        ExpectAllReadBack();
    }
    EXPECT_TRUE(console.Has("Listener AL_GAIN set"));
}

TEST_F(ListenerDispatch, ThePositionGoesWholeTheUpVectorWithTheAtTheModelByItsRowAndARefusedGainComesBack)
{
    BridgeValueTables& tables = BridgeTables();
    tables.ListenerValues[1]->Assign(5.0f);
    tables.ListenerValues[3]->Assign(-6.0f);
    tables.ListenerValues[2]->SetValue(1.0);
    float position[3];
    alGetListener3f(AL_POSITION, &position[0], &position[1], &position[2]);
    EXPECT_FLOAT_EQ(position[0], 5.0f);
    EXPECT_FLOAT_EQ(position[1], 1.0f);
    EXPECT_FLOAT_EQ(position[2], -6.0f);

    // The up vector has no control: whatever the values hold goes out with the next at change.
    tables.ListenerValues[7]->Assign(0.6f);
    tables.ListenerValues[8]->Assign(0.8f);
    tables.ListenerValues[9]->Assign(0.0f);
    tables.ListenerValues[4]->SetValue(0.5);
    float orientation[6];
    alGetListenerfv(AL_ORIENTATION, orientation);
    EXPECT_FLOAT_EQ(orientation[0], 0.5f);
    EXPECT_FLOAT_EQ(orientation[3], 0.6f);
    EXPECT_FLOAT_EQ(orientation[4], 0.8f);
    EXPECT_FLOAT_EQ(orientation[5], 0.0f);

    BridgeTables().DistanceModelValue.OnUserSelected(3);
    EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_LINEAR_DISTANCE);
    EXPECT_EQ(buttons[3].state, 1);
    EXPECT_EQ(buttons[2].state, 0);

    // The listener gain knob goes down to -1, which OpenAL refuses: the refusal shows and the knob
    // returns to what the engine kept.
    console.lines.clear();
    BridgeTables().ListenerValues[14]->SetValue(-0.5);
    EXPECT_TRUE(console.Has("Set Listener AL_GAIN failed"));
    EXPECT_FLOAT_EQ(BridgeTables().ListenerValues[14]->Value, 1.0f);
}

TEST_F(ListenerDispatch, DefaultsAndMovesOfTheListenerAreWrittenBackAndRedrawThePositionWindow)
{
    struct Position : BridgePositionWindow {
        int redraws = 0;
        void RedrawPositionWindow() override { ++redraws; }
    } window;
    bridge->SetPositionWindow(&window);
    bridge->MoveListener(1.0f, 2.0f, 3.0f);
    EXPECT_FLOAT_EQ(BridgeTables().ListenerValues[2]->Value, 2.0f);
    EXPECT_TRUE(console.Has("Listener AL_POSITION set"));
    EXPECT_EQ(window.redraws, 1);

    Scramble();
    console.lines.clear();
    bridge->SetListenerDefaults();
    EXPECT_EQ(console.lines, std::vector<std::string>{"Set Listener to its default values successful"});
    ExpectAllReadBack();
    EXPECT_FLOAT_EQ(BridgeTables().ListenerValues[13]->Value, 343.3f);
    EXPECT_EQ(BridgeTables().DistanceModelValue.Selected, 2);
    EXPECT_EQ(window.redraws, 2);
    bridge->SetPositionWindow(nullptr);
}

namespace {

// A source's controls: the float knobs by param, read back from OpenAL.
struct SourceProperty {
    int param;
    ALenum token;
    int component;
    float value;
};

constexpr SourceProperty kSourceKnobs[] = {
    {0, AL_ROOM_ROLLOFF_FACTOR, -1, 0.5f},  {1, AL_AIR_ABSORPTION_FACTOR, -1, 3.0f},
    {2, AL_REFERENCE_DISTANCE, -1, 2.0f},   {3, AL_MAX_DISTANCE, -1, 500.0f},
    {4, AL_POSITION, 0, 1.0f},              {5, AL_POSITION, 1, -2.0f},
    {6, AL_POSITION, 2, 3.0f},              {7, AL_DIRECTION, 0, 0.5f},
    {8, AL_DIRECTION, 1, -0.5f},            {9, AL_DIRECTION, 2, 0.25f},
    {10, AL_VELOCITY, 0, 4.0f},             {11, AL_VELOCITY, 1, -4.0f},
    {12, AL_VELOCITY, 2, 1.0f},             {13, AL_PITCH, -1, 1.5f},
    {14, AL_ROLLOFF_FACTOR, -1, 2.0f},      {15, AL_GAIN, -1, 0.5f},
    {16, AL_MIN_GAIN, -1, 0.1f},            {17, AL_MAX_GAIN, -1, 0.9f},
    {18, AL_LOWPASS_GAIN, -1, 0.5f},        {19, AL_LOWPASS_GAINHF, -1, 0.6f},
    {20, AL_CONE_OUTER_GAINHF, -1, 0.4f},   {21, AL_CONE_OUTER_GAIN, -1, 0.3f},
    {22, AL_LOWPASS_GAIN, 0, 0.21f},        {23, AL_LOWPASS_GAINHF, 0, 0.31f},
    {24, AL_LOWPASS_GAIN, 1, 0.22f},        {25, AL_LOWPASS_GAINHF, 1, 0.32f},
    {26, AL_LOWPASS_GAIN, 2, 0.23f},        {27, AL_LOWPASS_GAINHF, 2, 0.33f},
    {28, AL_LOWPASS_GAIN, 3, 0.24f},        {29, AL_LOWPASS_GAINHF, 3, 0.34f},
};

constexpr std::pair<int, ALenum> kSourceFlagTokens[] = {
    {2, AL_SOURCE_RELATIVE},
    {4, AL_DIRECT_FILTER_GAINHF_AUTO},
    {5, AL_AUXILIARY_SEND_FILTER_GAIN_AUTO},
    {6, AL_AUXILIARY_SEND_FILTER_GAINHF_AUTO},
};

// The source under test is the second, so that a dispatch that ignored the index would miss it.
constexpr int kSource = 1;

class SourceDispatch : public BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        const std::string path = WaveFile();
        ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
        ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
        source = bridge->GetSource(kSource);
        for (int send = 0; send < 4; ++send)
            ASSERT_EQ(bridge->CreateSourceSend(kSource, send), 1);
        BridgeValueTables& tables = BridgeTables();
        for (int p = 0; p < bridge_limits::kSourceValues; ++p)
            Bind(tables.SourceValues[kSource][p], -FLT_MAX, FLT_MAX, 2, kSource, static_cast<std::uint16_t>(p));
        for (int p = 0; p < bridge_limits::kSourceLongValues; ++p)
            Bind(tables.SourceLongValues[kSource][p], 0, 360, 2, kSource, static_cast<std::uint16_t>(p));
        for (const auto& [param, token] : kSourceFlagTokens)
            tables.SourceFlags[kSource][param]->Bind(&flags[param], 2, kSource, static_cast<std::uint16_t>(param));
    }

    float AL(const SourceProperty& knob)
    {
        const ALuint name = SourcePeek::Source(source);
        float vector[3] = {-7, -7, -7};
        if (knob.param >= 22)
            return FilterGain(SourcePeek::SendFilter(source, knob.component), knob.token);
        if (knob.param == 18 || knob.param == 19)
            return FilterGain(SourcePeek::DirectFilter(source), knob.token);
        if (knob.component >= 0) {
            alGetSource3f(name, knob.token, &vector[0], &vector[1], &vector[2]);
            return vector[knob.component];
        }
        alGetSourcef(name, knob.token, &vector[0]);
        return vector[0];
    }

    int ALInt(ALenum token)
    {
        ALint value = -7;
        alGetSourcei(SourcePeek::Source(source), token, &value);
        return value;
    }

    void Scramble()
    {
        BridgeValueTables& tables = BridgeTables();
        for (auto* value : tables.SourceValues[kSource])
            value->Assign(777.0f);
        for (auto* value : tables.SourceLongValues[kSource])
            value->Assign(7);
        for (auto& flag : flags)
            flag.state = -99;
    }

    void ExpectAllReadBack()
    {
        BridgeValueTables& tables = BridgeTables();
        for (const SourceProperty& knob : kSourceKnobs)
            EXPECT_FLOAT_EQ(tables.SourceValues[kSource][knob.param]->Value, AL(knob)) << "param " << knob.param;
        EXPECT_EQ(tables.SourceLongValues[kSource][0]->Value, ALInt(AL_CONE_INNER_ANGLE));
        EXPECT_EQ(tables.SourceLongValues[kSource][1]->Value, ALInt(AL_CONE_OUTER_ANGLE));
        for (const auto& [param, token] : kSourceFlagTokens)
            EXPECT_EQ(flags[param].state, ALInt(token)) << "flag " << param;
    }

    EFX_3DSource* source = nullptr;
    RecordingCheck flags[bridge_limits::kSourceFlags];
};

} // namespace

TEST_F(SourceDispatch, EachKnobReachesItsSourcePropertyAndTheWholeSourceIsReadBack)
{
    for (const SourceProperty& knob : kSourceKnobs) {
        SCOPED_TRACE(knob.param);
        Scramble();
        const std::size_t before = console.lines.size();
        BridgeTables().SourceValues[kSource][knob.param]->SetValue(knob.value);
        EXPECT_FLOAT_EQ(AL(knob), knob.value);
        EXPECT_GT(console.lines.size(), before);
        ExpectAllReadBack();
    }
    EXPECT_TRUE(console.Has("Source AL_PITCH set"));
    EXPECT_TRUE(console.Has("Source AL_ROOM_ROLLOFF_FACTOR property set"));
}

TEST_F(SourceDispatch, TheConeAnglesTravelAsAPairAndTheFlagsReachTheirProperties)
{
    BridgeValueTables& tables = BridgeTables();
    tables.SourceLongValues[kSource][1]->Assign(300);
    tables.SourceLongValues[kSource][0]->SetValue(90);
    EXPECT_EQ(ALInt(AL_CONE_INNER_ANGLE), 90);
    EXPECT_EQ(ALInt(AL_CONE_OUTER_ANGLE), 300);
    tables.SourceLongValues[kSource][1]->SetValue(200);
    EXPECT_EQ(ALInt(AL_CONE_INNER_ANGLE), 90);
    EXPECT_EQ(ALInt(AL_CONE_OUTER_ANGLE), 200);
    EXPECT_TRUE(console.Has("Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set"));

    for (const auto& [param, token] : kSourceFlagTokens) {
        SCOPED_TRACE(param);
        const int wanted = ALInt(token) ? 0 : 1;
        Scramble();
        tables.SourceFlags[kSource][param]->OnUserToggled(wanted);
        EXPECT_EQ(ALInt(token), wanted);
        ExpectAllReadBack();
    }
}

TEST_F(SourceDispatch, ARoutingRadioRoutesTheSendFourLeavesItAndDisabledRoutesToNoSlot)
{
    CSonopticExcluValObs* routing = BridgeTables().SendRoutingValues[2][kSource];
    routing->Bind(0, nullptr, 2, kSource, 5);
    routing->OnUserSelected(3);
    EXPECT_EQ(SourcePeek::SendSlot(source, 2), 3);
    EXPECT_EQ(SourcePeek::SendSlot(source, 0), 0);
    routing->OnUserSelected(4);
    EXPECT_EQ(SourcePeek::SendSlot(source, 2), 3);
    routing->OnUserSelected(-1);
    EXPECT_EQ(SourcePeek::SendSlot(source, 2), -1);
    // Routing is not read back: the radio keeps what the user chose.
    EXPECT_EQ(routing->Selected, -1);
}

TEST_F(BridgeTest, TheSlotsGainAndSendAutoReachTheSlotAndAreReadBack)
{
    ASSERT_EQ(bridge->CreateSlot(), 0u);
    ASSERT_EQ(bridge->CreateSlot(), 1u);
    BridgeValueTables& tables = BridgeTables();
    Bind(tables.SlotGainValues[1], 0, 1, 4, 1, 0);
    RecordingCheck sendAuto;
    tables.SlotFlags[1][1]->Bind(&sendAuto, 4, 1, 1);
    const ALuint slot = EFX_Factory::GetEffectSlotId(1);

    tables.SlotGainValues[1]->SetValue(0.25);
    float gain = -1;
    GetSlotf()(slot, AL_EFFECTSLOT_GAIN, &gain);
    EXPECT_FLOAT_EQ(gain, 0.25f);
    EXPECT_TRUE(console.Has("AL_EFFECTSLOT_GAIN property set"));
    EXPECT_EQ(sendAuto.state, 1);

    tables.SlotGainValues[1]->Assign(0.9f);
    tables.SlotFlags[1][1]->OnUserToggled(0);
    ALint flag = -1;
    GetSloti()(slot, AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, &flag);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(sendAuto.state, 0);
    EXPECT_FLOAT_EQ(tables.SlotGainValues[1]->Value, 0.25f);
    EXPECT_TRUE(console.Has("AL_EFFECTSLOT_AUXILIARY_SEND_AUTO property set"));

    // Slot 0 was not touched.
    GetSlotf()(EFX_Factory::GetEffectSlotId(0), AL_EFFECTSLOT_GAIN, &gain);
    EXPECT_FLOAT_EQ(gain, 1.0f);
}
