// The listener and the context-wide properties against OpenAL Soft's null output.
#include "engine/EFX_Context.h"

#include "EngineTestSupport.h"

#include <AL/al.h>

#include <gtest/gtest.h>

#include <string>

using engine_test::FactoryPtr;
using engine_test::StartFactory;

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
}

TEST(ContextCreation, NoContextWithoutAnOpenDevice)
{
    std::unique_ptr<EFX_Factory> factory(EFX_Factory::Create());
    EXPECT_EQ(factory->CreateContext(), nullptr);
    EXPECT_STREQ(factory->GetLog(), "");
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

    float position[3] = {9, 9, 9};
    float at[3] = {};
    float up[3] = {};
    float velocity[3] = {9, 9, 9};
    float value = 0;
    int model = -1;
    EXPECT_EQ(m_context->GetPosition(position), 1);
    EXPECT_EQ(position[0], 0.0f);
    EXPECT_EQ(position[1], 0.0f);
    EXPECT_EQ(position[2], 0.0f);
    EXPECT_EQ(m_context->GetOrientation(at, up), 1);
    EXPECT_EQ(at[2], -1.0f);
    EXPECT_EQ(up[1], 1.0f);
    EXPECT_EQ(m_context->GetVelocity(velocity), 1);
    EXPECT_EQ(velocity[0], 0.0f);
    EXPECT_EQ(m_context->GetDistanceModel(&model), 1);
    EXPECT_EQ(model, 2);
    EXPECT_EQ(m_context->GetSpeedOfSound(&value), 1);
    EXPECT_FLOAT_EQ(value, 343.3f);
    EXPECT_EQ(m_context->GetGain(&value), 1);
    EXPECT_EQ(value, 1.0f);
}

TEST_F(ContextTest, VectorsTravelAsThreeFloatsInAndArraysOut)
{
    EXPECT_EQ(m_context->SetPosition(1.5f, -2.0f, 3.25f), 1);
    EXPECT_EQ(m_context->SetVelocity(-4.0f, 5.0f, 0.5f), 1);
    EXPECT_EQ(m_context->SetOrientation(0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 1.0f), 1);
    EXPECT_EQ(Log(), "Listener AL_POSITION setListener AL_VELOCITY setListener AL_ORIENTATION set");

    float position[3] = {};
    float velocity[3] = {};
    float at[3] = {};
    float up[3] = {};
    ASSERT_EQ(m_context->GetPosition(position), 1);
    ASSERT_EQ(m_context->GetVelocity(velocity), 1);
    ASSERT_EQ(m_context->GetOrientation(at, up), 1);
    EXPECT_EQ(position[0], 1.5f);
    EXPECT_EQ(position[1], -2.0f);
    EXPECT_EQ(position[2], 3.25f);
    EXPECT_EQ(velocity[0], -4.0f);
    EXPECT_EQ(velocity[1], 5.0f);
    EXPECT_EQ(velocity[2], 0.5f);
    EXPECT_EQ(at[1], 1.0f);
    EXPECT_EQ(up[2], 1.0f);
    // A get logs nothing on success.
    EXPECT_EQ(Log(), "Listener AL_POSITION setListener AL_VELOCITY setListener AL_ORIENTATION set");
}

TEST_F(ContextTest, DistanceModelsUseTheProgramsNumbering)
{
    const ALenum expected[7] = {AL_NONE, AL_INVERSE_DISTANCE, AL_INVERSE_DISTANCE_CLAMPED, AL_LINEAR_DISTANCE,
                                AL_LINEAR_DISTANCE_CLAMPED, AL_EXPONENT_DISTANCE, AL_EXPONENT_DISTANCE_CLAMPED};
    for (int number = 0; number < 7; ++number) {
        SCOPED_TRACE(number);
        ASSERT_EQ(m_context->SetDistanceModel(number), 1);
        EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), expected[number]);
        int model = -1;
        ASSERT_EQ(m_context->GetDistanceModel(&model), 1);
        EXPECT_EQ(model, number);
    }
}

TEST_F(ContextTest, InvalidDistanceModelIsRefusedBeforeOpenAL)
{
    ASSERT_EQ(m_context->SetDistanceModel(3), 1);
    m_context->ClearLog();
    for (int model : {7, -1}) {
        m_context->ClearLog();
        EXPECT_EQ(m_context->SetDistanceModel(model), 0);
        EXPECT_EQ(Log(), "Set Distance model failed: invalid distance model");
        EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_LINEAR_DISTANCE);
    }
}

TEST_F(ContextTest, RollOffIsNotAListenerPropertyAndAlwaysFails)
{
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
    float factor = 0.0f;
    EXPECT_EQ(context.GetDopplerFactor(&factor), 1);
    EXPECT_EQ(factor, 0.75f);
    EXPECT_EQ(context.RememberedDopplerFactor(), 0.75f);
    EXPECT_STREQ(context.GetLog(), "GetDopplerFactor() successful");
}

TEST_F(ContextTest, RefusedValuesLogTheirFailureTexts)
{
    EXPECT_EQ(m_context->SetSpeedOfSound(-1.0f), 0);
    EXPECT_EQ(Log(), "alSpeedOfSound() failed");
    m_context->ClearLog();
    EXPECT_EQ(m_context->SetGain(-1.0f), 0);
    EXPECT_EQ(Log(), "Set Listener AL_GAIN failed");
    m_context->ClearLog();
    EXPECT_EQ(m_context->SetPosition(std::nanf(""), 0, 0), 0);
    EXPECT_EQ(Log(), "Set Listener AL_POSITION failed");
    m_context->ClearLog();
    EXPECT_EQ(m_context->SetVelocity(0, std::nanf(""), 0), 0);
    EXPECT_EQ(Log(), "Set Listener AL_VELOCITY failed");
    m_context->ClearLog();
    EXPECT_EQ(m_context->SetOrientation(0, 0, std::nanf(""), 0, 1, 0), 0);
    EXPECT_EQ(Log(), "Listener AL_ORIENTATION failed");

    m_context->ClearLog();
    float speed = 0;
    EXPECT_EQ(m_context->SetSpeedOfSound(500.0f), 1);
    EXPECT_EQ(m_context->GetSpeedOfSound(&speed), 1);
    EXPECT_EQ(speed, 500.0f);
    EXPECT_EQ(Log(), "alSpeedOfSound() successfulGet AL_SPEED_OF_SOUND successful");
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
    float position[3] = {9, 9, 9};
    m_context->GetPosition(position);
    EXPECT_EQ(position[0], 0.0f);
    float speed = 0;
    m_context->GetSpeedOfSound(&speed);
    EXPECT_EQ(speed, 100.0f);
}

// Without a current context OpenAL Soft reports an error for every call, which brings out the
// failure texts of the getters.
TEST_F(ContextTest, WithoutACurrentContextGettersLogTheirFailureTexts)
{
    ALCcontext* current = alcGetCurrentContext();
    alcMakeContextCurrent(nullptr);
    float value = 7.0f;
    float vector[3] = {7, 7, 7};
    float at[3] = {7, 7, 7};
    float up[3] = {7, 7, 7};
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
