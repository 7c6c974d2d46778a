// The listener and the context-wide properties against OpenAL Soft's null output.
#include "engine/EFX_Context.h"

#include "EngineTestSupport.h"

#include <AL/al.h>

#include <gtest/gtest.h>

#include <array>
#include <string>

using engine_test::FactoryPtr;
using engine_test::Got;
using engine_test::Got3;
using engine_test::StartFactory;
using Vector = std::array<float, 3>;

namespace {

// Lets a test see the remembered Doppler factor, which nothing in the program reads.
class InspectableContext : public EFX_Context {
public:
    float RememberedDopplerFactor() const { return m_dopplerFactor; }
};

class ContextTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_factory = StartFactory();
        m_context = m_factory->CreateContext();
        ASSERT_NE(m_context, nullptr);
        m_context->ClearLog();
    }
    void TearDown() override { EFX_Base::SafeRelease(m_context); }

    std::string Log() const { return m_context->GetLog(); }

    // The listener's at and up vectors, as the engine reads them.
    std::pair<Vector, Vector> Orientation()
    {
        Vector at{}, up{};
        EXPECT_EQ(m_context->GetOrientation(at.data(), up.data()), 1) << Log();
        return {at, up};
    }

    FactoryPtr m_factory;
    EFX_Context* m_context = nullptr;
};

} // namespace

TEST(ContextCreation, OneObjectIsMadeLoggedAndGivenAgain)
{
    FactoryPtr factory = StartFactory();
    EFX_Context* context = factory->CreateContext();
    ASSERT_NE(context, nullptr);
    EXPECT_STREQ(factory->GetLog(), "Context creation and EAX intialization successful");
    factory->ClearLog();
    EXPECT_EQ(factory->CreateContext(), context);
    EXPECT_STREQ(factory->GetLog(), "");

    // The object clears the factory's pointer when it goes: no warning, and a new one can be made.
    context->Release();
    EFX_Context* second = factory->CreateContext();
    ASSERT_NE(second, nullptr);
    second->Release();
    factory->ClearLog();
    factory->Shutdown();
    EXPECT_STREQ(factory->GetLog(), "Released OpenAL Context.");

    // A factory without an open device makes none, in silence.
    std::unique_ptr<EFX_Factory> closed(EFX_Factory::Create());
    EXPECT_EQ(closed->CreateContext(), nullptr);
    EXPECT_STREQ(closed->GetLog(), "");
}

TEST_F(ContextTest, SetDefaultsLogsItsSevenStepsInOrderAndSetsTheListener)
{
    ASSERT_EQ(m_context->SetPosition(1, 2, 3), 1);
    ASSERT_EQ(m_context->SetDistanceModel(5), 1);
    ASSERT_EQ(m_context->SetGain(0.5f), 1);
    m_context->ClearLog();

    EXPECT_EQ(m_context->SetDefaults(), 1);
    EXPECT_EQ(Log(),
              "Listener AL_POSITION set"
              "Listener AL_ORIENTATION set"
              "alDopplerFactor() successful"
              "Listener AL_VELOCITY set"
              "alDistanceModel() set"
              "alSpeedOfSound() successful"
              "Listener AL_GAIN set");

    EXPECT_EQ(Got3(*m_context, &EFX_Context::GetPosition), (Vector{0, 0, 0}));
    EXPECT_EQ(Orientation(), std::make_pair(Vector{0, 0, -1}, Vector{0, 1, 0}));
    EXPECT_EQ(Got3(*m_context, &EFX_Context::GetVelocity), (Vector{0, 0, 0}));
    EXPECT_EQ(Got(*m_context, &EFX_Context::GetDistanceModel), 2);
    EXPECT_FLOAT_EQ(Got(*m_context, &EFX_Context::GetSpeedOfSound), 343.3f);
    EXPECT_EQ(Got(*m_context, &EFX_Context::GetGain), 1.0f);
}

TEST_F(ContextTest, VectorsTravelAsThreeFloatsInAndArraysOutAndAGetLogsNothing)
{
    EXPECT_EQ(m_context->SetPosition(1.5f, -2.0f, 3.25f), 1);
    EXPECT_EQ(m_context->SetVelocity(-4.0f, 5.0f, 0.5f), 1);
    EXPECT_EQ(m_context->SetOrientation(0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 1.0f), 1);
    const std::string log = "Listener AL_POSITION setListener AL_VELOCITY setListener AL_ORIENTATION set";
    EXPECT_EQ(Log(), log);

    EXPECT_EQ(Got3(*m_context, &EFX_Context::GetPosition), (Vector{1.5f, -2.0f, 3.25f}));
    EXPECT_EQ(Got3(*m_context, &EFX_Context::GetVelocity), (Vector{-4.0f, 5.0f, 0.5f}));
    EXPECT_EQ(Orientation(), std::make_pair(Vector{0, 1, 0}, Vector{0, 0, 1}));
    EXPECT_EQ(Log(), log);
}

TEST_F(ContextTest, DistanceModelsUseTheProgramsNumberingAndOthersAreRefusedBeforeOpenAL)
{
    const ALenum expected[7] = {AL_NONE, AL_INVERSE_DISTANCE, AL_INVERSE_DISTANCE_CLAMPED, AL_LINEAR_DISTANCE,
                                AL_LINEAR_DISTANCE_CLAMPED, AL_EXPONENT_DISTANCE, AL_EXPONENT_DISTANCE_CLAMPED};
    for (int number = 0; number < 7; ++number) {
        SCOPED_TRACE(number);
        ASSERT_EQ(m_context->SetDistanceModel(number), 1);
        EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), expected[number]);
        EXPECT_EQ(Got(*m_context, &EFX_Context::GetDistanceModel), number);
    }

    ASSERT_EQ(m_context->SetDistanceModel(3), 1);
    for (int model : {7, -1}) {
        m_context->ClearLog();
        EXPECT_EQ(m_context->SetDistanceModel(model), 0);
        EXPECT_EQ(Log(), "Set Distance model failed: invalid distance model");
        EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_LINEAR_DISTANCE);
    }
}

TEST_F(ContextTest, DopplerFactorIsRememberedOnlyOnSuccess)
{
    InspectableContext context;
    EXPECT_EQ(context.RememberedDopplerFactor(), 1.0f);
    ASSERT_EQ(context.SetDopplerFactor(2.5f), 1);
    EXPECT_EQ(context.RememberedDopplerFactor(), 2.5f);
    EXPECT_STREQ(context.GetLog(), "alDopplerFactor() successful");

    context.ClearLog();
    EXPECT_EQ(context.SetDopplerFactor(-1.0f), 0);
    EXPECT_STREQ(context.GetLog(), "alDopplerFactor() failed");
    EXPECT_EQ(context.RememberedDopplerFactor(), 2.5f);

    // The query goes through OpenAL's state, and logs on success.
    alDopplerFactor(0.75f);
    context.ClearLog();
    EXPECT_EQ(Got(context, &EFX_Context::GetDopplerFactor), 0.75f);
    EXPECT_EQ(context.RememberedDopplerFactor(), 0.75f);
    EXPECT_STREQ(context.GetLog(), "GetDopplerFactor() successful");
}

TEST_F(ContextTest, RefusedValuesLogTheirFailureTextsAndRollOffIsNotAListenerProperty)
{
    const float nan = std::nanf("");
    const int results = m_context->SetSpeedOfSound(-1.0f) + m_context->SetGain(-1.0f)
        + m_context->SetPosition(nan, 0, 0) + m_context->SetVelocity(0, nan, 0)
        + m_context->SetOrientation(0, 0, nan, 0, 1, 0);
    EXPECT_EQ(results, 0);
    EXPECT_EQ(Log(),
              "alSpeedOfSound() failed"
              "Set Listener AL_GAIN failed"
              "Set Listener AL_POSITION failed"
              "Set Listener AL_VELOCITY failed"
              "Listener AL_ORIENTATION failed");

    m_context->ClearLog();
    EXPECT_EQ(m_context->SetSpeedOfSound(500.0f), 1);
    EXPECT_EQ(Got(*m_context, &EFX_Context::GetSpeedOfSound), 500.0f);
    EXPECT_EQ(Log(), "alSpeedOfSound() successfulGet AL_SPEED_OF_SOUND successful");

    for (float factor : {0.0f, 1.0f, -3.0f}) {
        m_context->ClearLog();
        EXPECT_EQ(m_context->SetRollOffFactor(factor), 0);
        EXPECT_EQ(Log(), "Set RollOff factor failed: not supported in OpenAL");
    }
    float factor = 42.0f;
    m_context->ClearLog();
    EXPECT_EQ(m_context->GetRollOffFactor(&factor), 0);
    EXPECT_EQ(Log(), "GetRollOffFactor() failed: property not supported in OpenAL");
    EXPECT_EQ(factor, 42.0f);
}

// SetDefaults stops at the first step that fails and keeps the earlier ones.
TEST_F(ContextTest, SetDefaultsStopsAtTheFirstFailure)
{
    class FailingVelocity : public EFX_Context {
    public:
        int SetVelocity(float, float, float) override
        {
            AppendLog("[velocity refused]");
            return 0;
        }
    };
    FailingVelocity context;
    ASSERT_EQ(m_context->SetPosition(5, 5, 5), 1);
    ASSERT_EQ(m_context->SetSpeedOfSound(100.0f), 1);
    EXPECT_EQ(context.SetDefaults(), 0);
    EXPECT_STREQ(context.GetLog(),
                 "Listener AL_POSITION setListener AL_ORIENTATION setalDopplerFactor() successful[velocity refused]");
    EXPECT_EQ(Got3(*m_context, &EFX_Context::GetPosition)[0], 0.0f);
    EXPECT_EQ(Got(*m_context, &EFX_Context::GetSpeedOfSound), 100.0f);
}

// Without a current context OpenAL Soft reports an error for every call, which brings out the
// failure texts of the getters.
TEST_F(ContextTest, WithoutACurrentContextGettersLogTheirFailureTexts)
{
    ALCcontext* current = alcGetCurrentContext();
    alcMakeContextCurrent(nullptr);
    float value = 7.0f, vector[3] = {7, 7, 7}, at[3] = {7, 7, 7}, up[3] = {7, 7, 7};
    int model = 7;
    const int results = m_context->GetGain(&value) + m_context->GetPosition(vector) + m_context->GetVelocity(vector)
        + m_context->GetOrientation(at, up) + m_context->GetDopplerFactor(&value) + m_context->GetDistanceModel(&model)
        + m_context->GetSpeedOfSound(&value);
    alcMakeContextCurrent(current);

    EXPECT_EQ(results, 0);
    EXPECT_EQ(Log(),
              "Get Listener AL_GAIN failed"
              "Get Listener Position failed"
              "Get Listener AL_VELOCITY failed"
              "Get Listener Orientation failed"
              "Error querying Doppler factor"
              "Error querying Distance model"
              "Error querying AL_SPEED_OF_SOUND");
    // The orientation is written out even though the query failed; the rest stay as they were.
    EXPECT_NE(at[0], 7.0f);
    EXPECT_NE(up[0], 7.0f);
    EXPECT_EQ(model, 7);
    EXPECT_EQ(value, 7.0f);
}
