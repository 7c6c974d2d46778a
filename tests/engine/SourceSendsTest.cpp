// The direct filter and the auxiliary sends of a source, against OpenAL Soft.
#include "engine/EFX_3DSource.h"

#include "EngineTestSupport.h"
#include "tests/LibraryPremises.h"

#include <gtest/gtest.h>

#include <string>

using engine_test::FactoryPtr;
using engine_test::OwnSource;
using engine_test::ScratchDir;
using engine_test::StartFactory;

namespace {

class SendsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_factory = StartFactory(4);
        ASSERT_EQ(EFX_Factory::GetMaxSends(), 4u);
        m_source = std::make_unique<OwnSource>(false);
        ASSERT_EQ(m_source->Initialize(), 1) << m_source->GetLog();
        m_source->ClearLog();
    }
    std::string Log() const { return m_source->GetLog(); }

    std::pair<float, float> Gains(int send)
    {
        float gain = -1, gainHF = -1;
        EXPECT_EQ(m_source->GetAuxSendFilterGains(send, &gain, &gainHF), 1) << Log();
        return {gain, gainHF};
    }

    FactoryPtr m_factory;
    std::unique_ptr<OwnSource> m_source; // made once the context is current
};

} // namespace

TEST(SourceFilterEntryPoints, AMissingFilterEntryPointFailsTheSourceWithItsLine)
{
    ScratchDir dir;
    const std::string wave = dir.File("tone.wav");
    engine_test::WriteFile(wave, engine_test::SmallMonoWave());
    FactoryPtr factory = StartFactory();
    for (const char* name : {"alGenFilters", "alDeleteFilters", "alIsFilter", "alFilteri", "alFilterf",
                             "alGetFilteri", "alGetFilterf"}) {
        SCOPED_TRACE(name);
        engine_test::HiddenEntryPoint hidden(name);
        factory->AppendLog("older text");
        EXPECT_EQ(factory->CreateSource(wave.c_str()), nullptr);
        EXPECT_EQ(std::string(factory->GetLog()),
                  std::string("Cannot create source: EFX extension: ") + name + " is unavailable..\n");
        EXPECT_EQ(factory->CreateEmptySource(), nullptr);
    }
}

TEST_F(SendsTest, DirectFilterStartsOpenAndTakesGains)
{
    using engine_test::Got;
    EXPECT_EQ(Got(*m_source, &EFX_3DSource::GetDirectFilterGain), 1.0f);
    EXPECT_EQ(Got(*m_source, &EFX_3DSource::GetDirectFilterGainHF), 1.0f);

    EXPECT_EQ(m_source->SetDirectFilterGain(0.5f), 1);
    EXPECT_EQ(m_source->SetDirectFilterGainHF(0.0f), 1);
    EXPECT_EQ(Log(), "Source Direct filter AL_LOWPASS_GAIN property setSource Direct filter AL_LOWPASS_GAINHF property set");
    EXPECT_EQ(Got(*m_source, &EFX_3DSource::GetDirectFilterGain), 0.5f);
    EXPECT_EQ(Got(*m_source, &EFX_3DSource::GetDirectFilterGainHF), 0.0f);

    m_source->ClearLog();
    EXPECT_EQ(m_source->SetDirectFilterGain(-1.0f) + m_source->SetDirectFilterGainHF(-1.0f), 0);
    EXPECT_EQ(Log(),
              "Error setting source direct filter AL_LOWPASS_GAIN: alFilterf() failed"
              "Error setting source direct filter AL_LOWPASS_GAINHF: alFilterf() failed");

    // The filter lives on when the source is gone, but attaching it fails.
    m_source->ClearLog();
    m_source->DeleteALSource();
    EXPECT_EQ(m_source->SetDirectFilterGain(0.25f) + m_source->SetDirectFilterGainHF(0.25f), 0);
    EXPECT_EQ(Log(),
              "Error attaching Direct filter to source when setting AL_LOWPASS_GAIN"
              "Error attaching Direct filter to source when setting AL_LOWPASS_GAINHF");
}

TEST_F(SendsTest, DirectFilterCreationCountsAnOlderErrorAgainstItselfAndWithoutOneItsOperationsSaySo)
{
    alSourcef(0, AL_GAIN, 1.0f); // leaves AL_INVALID_NAME behind
    EXPECT_EQ(m_source->CreateDirectFilter(), 0);
    EXPECT_EQ(Log(), "Error generating Direct filter for source");
    m_source->ClearLog();
    EXPECT_EQ(m_source->CreateDirectFilter(), 1);
    EXPECT_EQ(Log(), "");
    m_source->DeleteALSource();
    EXPECT_EQ(m_source->CreateDirectFilter(), 0);
    EXPECT_EQ(Log(), "Error attaching Direct filter to source");

    OwnSource source(false); // never initialised: no direct filter
    float gain = 7;
    const int results = source.SetDirectFilterGain(1) + source.SetDirectFilterGainHF(1)
        + source.GetDirectFilterGain(&gain) + source.GetDirectFilterGainHF(&gain);
    EXPECT_EQ(results, 0);
    EXPECT_STREQ(source.GetLog(),
                 "Error setting source direct AL_LOWPASS_GAIN: invalid Direct filter"
                 "Error setting source direct AL_LOWPASS_GAINHF: invalid Direct filter"
                 "Error getting source direct AL_LOWPASS_GAIN: invalid direct filter"
                 "Error getting source direct AL_LOWPASS_GAINHF: invalid direct filter");
    EXPECT_EQ(gain, 7.0f);
}

// absent -> feeding -> disconnected -> feeding another slot -> absent, with the filter's gains
// kept across the moves.
TEST_F(SendsTest, SendWalksThroughItsThreeStates)
{
    EXPECT_EQ(m_source->SendFilterObject(0), 0u);
    EXPECT_EQ(m_source->SendSlot(0), -1);

    ASSERT_EQ(m_source->CreateAuxSendFilter(0, 0), 1);
    EXPECT_EQ(Log(), "Source low-pass aux send filter 0 created (feeding slot 0)");
    EXPECT_NE(m_source->SendFilterObject(0), 0u);
    EXPECT_EQ(m_source->SendSlot(0), 0);
    EXPECT_EQ(Gains(0), std::make_pair(1.0f, 1.0f));

    m_source->ClearLog();
    EXPECT_EQ(m_source->SetAuxSendFilterGain(0, 0.5f), 1);
    EXPECT_EQ(m_source->SetAuxSendFilterGainHF(0, 0.25f), 1);
    EXPECT_EQ(m_source->SetAuxSendSlot(0, 2), 1);
    EXPECT_EQ(m_source->SetAuxSendSlot(0, -1), 1);
    EXPECT_EQ(Log(),
              "Source aux send filter 0 AL_LOWPASS_GAIN set"
              "Source aux send filter 0 AL_LOWPASS_GAINHF set"
              "Source aux send filter 0 now feeding slot 2"
              "Source aux send filter 0 now disabled (feeds AL_EFFECTSLOT_NULL)");
    EXPECT_EQ(m_source->SendSlot(0), -1);
    EXPECT_EQ(Gains(0), std::make_pair(0.5f, 0.25f));

    // A disconnected send takes a gain and stays disconnected; the gain stays when it reconnects.
    m_source->ClearLog();
    EXPECT_EQ(m_source->SetAuxSendFilterGain(0, 0.75f), 1);
    EXPECT_EQ(m_source->SendSlot(0), -1);
    EXPECT_EQ(m_source->SetAuxSendSlot(0, 1), 1);
    EXPECT_EQ(m_source->SendSlot(0), 1);
    EXPECT_EQ(Gains(0), std::make_pair(0.75f, 0.25f));

    m_source->ClearLog();
    const ALuint filter = m_source->SendFilterObject(0);
    EXPECT_EQ(m_source->DeleteAuxSendFilter(0), 1);
    EXPECT_EQ(Log(), "Source aux send filter 0 now disabled (feeds AL_EFFECTSLOT_NULL)Source aux send filter 0 deleted");
    EXPECT_EQ(m_source->SendFilterObject(0), 0u);
    EXPECT_EQ(m_source->SendSlot(0), -1);
    auto isFilter = reinterpret_cast<LPALISFILTER>(alGetProcAddress("alIsFilter"));
    EXPECT_EQ(isFilter(filter), AL_FALSE);
}

TEST_F(SendsTest, AnAbsentSendHasNoFilterToWorkOnAndBadIndicesAreRefusedInSilence)
{
    float gain = 3, gainHF = 3;
    EXPECT_EQ(m_source->GetAuxSendFilterGains(1, &gain, &gainHF), 0);
    EXPECT_EQ(m_source->SetAuxSendFilterGain(1, 0.5f), 0);
    EXPECT_EQ(m_source->SetAuxSendFilterGainHF(1, 0.5f), 0);
    EXPECT_EQ(Log(),
              "Error getting Aux Send filter gains: invalid filter "
              "Error setting Aux Send filter gain: invalid filter"
              "Error setting Aux Send filter gainHF: invalid filter");
    EXPECT_EQ(gain, 3.0f);

    // Deleting it disconnects it, which checks nothing, and deletes filter name 0, which OpenAL
    // takes as nothing to do: the send stays absent.
    m_source->ClearLog();
    EXPECT_EQ(m_source->DeleteAuxSendFilter(1), 1);
    EXPECT_EQ(Log(), "Source aux send filter 1 now disabled (feeds AL_EFFECTSLOT_NULL)Source aux send filter 1 deleted");
    EXPECT_EQ(m_source->SendSlot(1), -1);

    m_source->ClearLog();
    EXPECT_EQ(m_source->CreateAuxSendFilter(0, -1), 0);
    EXPECT_EQ(m_source->CreateAuxSendFilter(0, 4), 0);
    EXPECT_EQ(m_source->CreateAuxSendFilter(5, 0), 0);
    EXPECT_EQ(m_source->CreateAuxSendFilter(-1, 0), 0);
    // Four sends granted: send 4 passes the bound test but has no place in the arrays.
    EXPECT_EQ(m_source->CreateAuxSendFilter(4, 0), 0);
    EXPECT_EQ(m_source->SetAuxSendSlot(4, 0), 0);
    EXPECT_EQ(m_source->SetAuxSendFilterGain(4, 0.5f), 0);
    EXPECT_EQ(m_source->SetAuxSendFilterGainHF(4, 0.5f), 0);
    EXPECT_EQ(m_source->GetAuxSendFilterGains(4, &gain, &gainHF), 0);
    EXPECT_EQ(m_source->DeleteAuxSendFilter(4), 0);
    EXPECT_EQ(m_source->SetAuxSendSlot(0, 4), 0);
    EXPECT_EQ(m_source->GetAuxSendFilterGains(-1, &gain, &gainHF), 0);
    EXPECT_EQ(Log(), "Error disabling the Aux Send filter prior to deleting the filter ");
    EXPECT_EQ(m_source->SendSlot(0), -1);
}

TEST_F(SendsTest, RefusedSendGainsLogTheirTexts)
{
    ASSERT_EQ(m_source->CreateAuxSendFilter(2, 3), 1);
    m_source->ClearLog();
    EXPECT_EQ(m_source->SetAuxSendFilterGain(2, -1.5f), 0);
    EXPECT_EQ(m_source->SetAuxSendFilterGainHF(2, -0.5f), 0);
    EXPECT_EQ(Log(),
              "Error setting Aux Send filter AL_LOWPASS_GAIN (filter created?)"
              "Error setting Aux Send filter AL_LOWPASS_GAINHF (filter created?)");
    m_source->ClearLog();
    m_source->DeleteALSource();
    EXPECT_EQ(m_source->SetAuxSendFilterGain(2, 0.5f), 0);
    EXPECT_EQ(Log(), "Error attaching Aux Send filter to source when setting filter gain ");
    m_source->ClearLog();
    EXPECT_EQ(m_source->CreateAuxSendFilter(1, 0), 0);
    EXPECT_EQ(Log(), "Error attaching Aux Send filter to source ");
}

TEST_F(SendsTest, CreatingASendAgainGivesItAFreshFilterAndSlotsBelowMinusOneFeedNoSlot)
{
    ASSERT_EQ(m_source->CreateAuxSendFilter(1, 0), 1);
    ASSERT_EQ(m_source->SetAuxSendFilterGain(1, 0.125f), 1);
    const ALuint first = m_source->SendFilterObject(1);
    ASSERT_EQ(m_source->CreateAuxSendFilter(1, 2), 1);
    EXPECT_NE(m_source->SendFilterObject(1), first);
    EXPECT_EQ(m_source->SendSlot(1), 2);
    EXPECT_EQ(Gains(1), std::make_pair(1.0f, 1.0f));
    // The first filter was overwritten, not deleted: it stays with the context.
    auto isFilter = reinterpret_cast<LPALISFILTER>(alGetProcAddress("alIsFilter"));
    EXPECT_EQ(isFilter(first), AL_TRUE);

    ASSERT_EQ(m_source->CreateAuxSendFilter(3, 1), 1);
    // Slot numbers below -1 pass, and feed no slot.
    m_source->ClearLog();
    EXPECT_EQ(m_source->SetAuxSendSlot(3, -2), 1);
    EXPECT_EQ(Log(), "Source aux send filter 3 now feeding slot -2");
    EXPECT_EQ(m_source->SendSlot(3), -2);
}

// OpenAL Soft configured with sends=2 and slots=3 (see CMakeLists.txt); skipped in the plain run.
TEST(ConfTwoSendsThreeSlots, BoundTestsFollowTheGrantedSends)
{
    if (!std::getenv("SONOPTIC_PROFILE_DIR"))
        GTEST_SKIP() << "runs under its own OpenAL Soft configuration";
    if (const auto why = library_premises::SlotLimitIgnored(3))
        GTEST_SKIP() << *why;
    FactoryPtr factory = StartFactory(4);
    ASSERT_EQ(EFX_Factory::GetMaxSends(), 2u);
    ASSERT_EQ(factory->GetNumEffectSlots(), 3u);
    EXPECT_EQ(EFX_Factory::GetEffectSlotId(3), 0u);
    OwnSource source(false);
    ASSERT_EQ(source.Initialize(), 1);
    source.ClearLog();

    float gain = 0, gainHF = 0;
    EXPECT_EQ(source.GetAuxSendFilterGains(3, &gain, &gainHF), 0);
    EXPECT_STREQ(source.GetLog(), "");
    // A send equal to the maximum passes the test, and OpenAL then refuses it.
    EXPECT_EQ(source.GetAuxSendFilterGains(2, &gain, &gainHF), 0);
    EXPECT_STREQ(source.GetLog(), "Error getting Aux Send filter gains: invalid filter ");
    source.ClearLog();
    EXPECT_EQ(source.CreateAuxSendFilter(2, 0), 0);
    EXPECT_STREQ(source.GetLog(), "Error attaching Aux Send filter to source ");
    EXPECT_EQ(source.SendSlot(2), 0);

    // The fourth slot was not generated: its AL name is 0, and feeding it is feeding nothing.
    source.ClearLog();
    ASSERT_EQ(source.CreateAuxSendFilter(1, 0), 1);
    EXPECT_EQ(source.SetAuxSendSlot(1, 3), 1);
    EXPECT_STREQ(source.GetLog(),
                 "Source low-pass aux send filter 1 created (feeding slot 0)Source aux send filter 1 now feeding slot 3");
    EXPECT_EQ(factory->CreateEffectSlot(3), nullptr);
    ASSERT_NE(factory->CreateEffectSlot(2), nullptr);
}
