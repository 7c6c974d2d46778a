// The source core against OpenAL Soft: creation, files, playback, properties and their texts.
#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/ExecLog.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <string>

using engine_test::FactoryPtr;
using engine_test::ScratchDir;
using engine_test::StartFactory;

namespace {

// A source object on AL names that the test made itself, so that the test can look at the source
// with OpenAL's own calls, or delete it behind the object's back.
class OwnSource : public EFX_3DSource {
public:
    OwnSource()
        : EFX_3DSource(GenSource(), GenBuffer(), 0)
    {
    }
    ALuint Source() const { return m_source; }
    ALint State() const
    {
        ALint state = 0;
        alGetSourcei(m_source, AL_SOURCE_STATE, &state);
        return state;
    }
    ALint Looping() const
    {
        ALint looping = -1;
        alGetSourcei(m_source, AL_LOOPING, &looping);
        return looping;
    }
    void DeleteALSource() { alDeleteSources(1, &m_source); }

private:
    static ALuint GenSource()
    {
        ALuint name = 0;
        alGenSources(1, &name);
        return name;
    }
    static ALuint GenBuffer()
    {
        ALuint name = 0;
        alGenBuffers(1, &name);
        return name;
    }
};

class SourceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_factory = StartFactory();
        m_wave = m_dir.File("tone.wav");
        engine_test::WriteFile(m_wave, engine_test::SmallMonoWave(2205));
        // Five channels of plain PCM: a sound file, but no layout that has an OpenAL format.
        m_unknownLayout = m_dir.File("five.wav");
        engine_test::WriteFile(m_unknownLayout, engine_test::RiffBuilder()
                                                    .Chunk("fmt ", engine_test::RiffBuilder::PCMFormat(5, 8000, 16))
                                                    .Chunk("data", std::vector<unsigned char>(100, 0))
                                                    .Build());
    }

    int SourceType(EFX_3DSource* source)
    {
        int type = 0;
        EXPECT_EQ(source->GetSourceType(&type), 1) << source->GetLog();
        return type;
    }

    // The reader's table is empty again when a load gets the first entry.
    static bool ReaderTableIsEmpty(const std::string& path)
    {
        int id = -1;
        const int code = EFX_Factory::Waves().LoadWaveFile(path.c_str(), &id);
        EFX_Factory::Waves().DeleteWaveFile(id);
        return code == CWaves::kOK && id == 0;
    }

    ScratchDir m_dir;
    std::string m_wave;
    std::string m_unknownLayout;
    FactoryPtr m_factory;
};

} // namespace

TEST_F(SourceTest, CreateSourceUploadsTheFileAndAttachesTheBuffer)
{
    EFX_3DSource* source = m_factory->CreateSource(m_wave.c_str());
    ASSERT_NE(source, nullptr) << m_factory->GetLog();
    EXPECT_STREQ(m_factory->GetLog(), "Source creation and EFX intialization successful");
    EXPECT_STREQ(source->GetLog(), "");
    EXPECT_EQ(SourceType(source), AL_STATIC);
    EXPECT_TRUE(ReaderTableIsEmpty(m_wave));
    source->Release();
}

TEST_F(SourceTest, CreateSourceFailuresSayNothingButForAMissingPath)
{
    m_factory->AppendLog("before");
    EXPECT_EQ(m_factory->CreateSource(nullptr), nullptr);
    EXPECT_STREQ(m_factory->GetLog(), "beforeUnable to load file: invalid file or file loader");

    m_factory->ClearLog();
    EXPECT_EQ(m_factory->CreateSource(m_dir.File("missing.wav").c_str()), nullptr);
    EXPECT_EQ(m_factory->CreateSource(m_unknownLayout.c_str()), nullptr);
    EXPECT_STREQ(m_factory->GetLog(), "");
    EXPECT_TRUE(ReaderTableIsEmpty(m_wave));

    std::unique_ptr<EFX_Factory> closed(EFX_Factory::Create());
    EXPECT_EQ(closed->CreateSource(m_wave.c_str()), nullptr);
    EXPECT_EQ(closed->CreateEmptySource(), nullptr);
    EXPECT_STREQ(closed->GetLog(), "");
}

TEST_F(SourceTest, LoadFileReplacesTheDataAndReportsEachFailure)
{
    EFX_3DSource* source = m_factory->CreateEmptySource();
    ASSERT_NE(source, nullptr);
    EXPECT_STREQ(m_factory->GetLog(), "Source creation and EFX intialization successful");
    EXPECT_EQ(SourceType(source), AL_UNDETERMINED);

    EXPECT_EQ(source->LoadFile(m_wave.c_str()), 1);
    EXPECT_STREQ(source->GetLog(), "Data loaded into Buffer and Buffer attached to Source");
    EXPECT_EQ(SourceType(source), AL_STATIC);

    // A file that cannot be read leaves the old buffer attached.
    source->ClearLog();
    EXPECT_EQ(source->LoadFile(nullptr), 0);
    EXPECT_EQ(source->LoadFile(m_dir.File("missing.wav").c_str()), 0);
    EXPECT_STREQ(source->GetLog(), "Unable to load file: invalid file or file loader" "Failed to load file.");
    EXPECT_EQ(SourceType(source), AL_STATIC);

    // A layout without a format reaches alBufferData as format 0, after the buffer was detached.
    source->ClearLog();
    EXPECT_EQ(source->LoadFile(m_unknownLayout.c_str()), 0);
    EXPECT_STREQ(source->GetLog(), "Error loading WAV data into buffer");
    EXPECT_EQ(SourceType(source), AL_UNDETERMINED);
    EXPECT_TRUE(ReaderTableIsEmpty(m_wave));

    // The source takes another file after that.
    EXPECT_EQ(source->LoadFile(m_wave.c_str()), 1);
    EXPECT_EQ(SourceType(source), AL_STATIC);
    source->Release();
}

TEST_F(SourceTest, LoadFileIntoAPlayingSourceFailsAtTheBuffer)
{
    EFX_3DSource* source = m_factory->CreateSource(m_wave.c_str());
    ASSERT_NE(source, nullptr);
    ASSERT_EQ(source->PlayLooped(1), 1);
    EXPECT_EQ(source->LoadFile(m_wave.c_str()), 0);
    EXPECT_STREQ(source->GetLog(), "Error loading WAV data into buffer");
    source->Stop();
    source->Release();
}

TEST_F(SourceTest, PlaybackStartsLoopsAndStopsWithoutMessages)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    ASSERT_EQ(source.LoadFile(m_wave.c_str()), 1);
    source.ClearLog();

    EXPECT_EQ(source.PlayLooped(1), 1);
    EXPECT_EQ(source.State(), AL_PLAYING);
    EXPECT_EQ(source.Looping(), 1);
    EXPECT_EQ(source.IsPlaying(), 0); // the flag is not the source's state
    EXPECT_EQ(source.Stop(), 1);
    EXPECT_EQ(source.State(), AL_STOPPED);
    EXPECT_EQ(source.Play(), 1); // plays once, without loop
    EXPECT_EQ(source.State(), AL_PLAYING);
    EXPECT_EQ(source.Looping(), 0);
    EXPECT_EQ(source.Stop(), 1);
    EXPECT_STREQ(source.GetLog(), "");

    EXPECT_EQ(source.PlayLooped(2), 0);
    EXPECT_STREQ(source.GetLog(), "PlayLooped() failed");
    source.ClearLog();
    source.DeleteALSource();
    EXPECT_EQ(source.PlayLooped(1), 0);
    EXPECT_EQ(source.Stop(), 0);
    EXPECT_STREQ(source.GetLog(), "PlayLooped() failedStop() failed");
}

TEST_F(SourceTest, PropertiesAreSetLoggedAndReadBackFromOpenAL)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    EXPECT_EQ(source.SetPitch(1.5f), 1);
    EXPECT_EQ(source.SetHeadRelativeMode(1), 1);
    EXPECT_EQ(source.SetPosition(1, 2, 3), 1);
    EXPECT_EQ(source.SetVelocity(-1, -2, -3), 1);
    EXPECT_EQ(source.SetConeOrientation(0, 1, 0), 1);
    EXPECT_EQ(source.SetConeAngles(90, 180), 1);
    EXPECT_EQ(source.SetConeOuterGain(0.25f), 1);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_PITCH set" "Head relative mode set" "Source AL_POSITION set" "Source AL_VELOCITY set"
                 "Source AL_DIRECTION set" "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set"
                 "Source AL_CONE_OUTER_GAIN set");
    source.ClearLog();
    EXPECT_EQ(source.SetGain(0.5f), 1);
    EXPECT_EQ(source.SetReferenceDistance(2.0f), 1);
    EXPECT_EQ(source.SetMaxDistance(50.0f), 1);
    EXPECT_EQ(source.SetGain2(0.75f), 1);
    EXPECT_EQ(source.SetMinGain(0.1f), 1);
    EXPECT_EQ(source.SetALMaxGain(0.9f), 1);
    EXPECT_EQ(source.SetRolloffFactor(3.0f), 1);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_GAIN set" "Source AL_REFERENCE_DISTANCE set" "Source AL_MAX_DISTANCE set"
                 "Source AL_GAIN set" "Source AL_MIN_GAIN set" "Source AL_MAX_GAIN set"
                 "Source AL_ROLLOFF_FACTOR set");

    source.ClearLog();
    float value = 0;
    float vector[3] = {};
    int inner = 0;
    int outer = 0;
    int mode = 0;
    EXPECT_EQ(source.GetPitch(&value), 1);
    EXPECT_EQ(value, 1.5f);
    EXPECT_EQ(source.GetHeadRelativeMode(&mode), 1);
    EXPECT_EQ(mode, 1);
    EXPECT_EQ(source.GetPosition(vector), 1);
    EXPECT_EQ(vector[2], 3.0f);
    EXPECT_EQ(source.GetVelocity(vector), 1);
    EXPECT_EQ(vector[1], -2.0f);
    EXPECT_EQ(source.GetConeOrientation(vector), 1);
    EXPECT_EQ(vector[1], 1.0f);
    EXPECT_EQ(source.GetConeAngles(&inner, &outer), 1);
    EXPECT_EQ(inner, 90);
    EXPECT_EQ(outer, 180);
    EXPECT_EQ(source.GetConeOuterGain(&value), 1);
    EXPECT_EQ(value, 0.25f);
    EXPECT_EQ(source.GetGain(&value), 1);
    EXPECT_EQ(value, 0.75f);
    EXPECT_EQ(source.GetGain2(&value), 1);
    EXPECT_EQ(value, 0.75f);
    EXPECT_EQ(source.GetReferenceDistance(&value), 1);
    EXPECT_EQ(value, 2.0f);
    EXPECT_EQ(source.GetMaxDistance(&value), 1);
    EXPECT_EQ(value, 50.0f);
    EXPECT_EQ(source.GetMinGain(&value), 1);
    EXPECT_FLOAT_EQ(value, 0.1f);
    EXPECT_EQ(source.GetALMaxGain(&value), 1);
    EXPECT_FLOAT_EQ(value, 0.9f);
    EXPECT_EQ(source.GetRolloffFactor(&value), 1);
    EXPECT_EQ(value, 3.0f);
    EXPECT_STREQ(source.GetLog(), "");
    EXPECT_EQ(source.ReservedSet(), 0);
    EXPECT_EQ(source.ReservedGet(), 0);
}

TEST_F(SourceTest, RefusedValuesLogTheOpenALErrorTexts)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    const float nan = std::nanf("");
    const int results = source.SetPitch(-1.0f) + source.SetHeadRelativeMode(2) + source.SetPosition(nan, 0, 0)
        + source.SetVelocity(0, nan, 0) + source.SetConeOrientation(0, 0, nan);
    EXPECT_EQ(results, 0);
    EXPECT_STREQ(source.GetLog(),
                 "OpenAL Error when trying to set Source AL_PITCH"
                 "OpenAL Error when trying to set head relative mode"
                 "OpenAL Error when trying to set AL_POSITION"
                 "OpenAL Error when trying to set AL_VELOCITY"
                 "OpenAL Error when trying to set Source AL_DIRECTION");
    source.ClearLog();
    const int more = source.SetConeOuterGain(2.0f) + source.SetGain(-1.0f) + source.SetReferenceDistance(-1.0f)
        + source.SetMaxDistance(-1.0f) + source.SetMinGain(-1.0f) + source.SetALMaxGain(-1.0f)
        + source.SetRolloffFactor(-1.0f);
    EXPECT_EQ(more, 0);
    EXPECT_STREQ(source.GetLog(),
                 "OpenAL Error when trying to set Source AL_CONE_OUTER_GAIN"
                 "OpenAL Error when trying to set Source AL_GAIN"
                 "OpenAL Error when trying to set Source AL_REFERENCE_DISTANCE"
                 "OpenAL Error when trying to set Source AL_MAX_DISTANCE"
                 "OpenAL Error when trying to set Source AL_MIN_GAIN"
                 "OpenAL Error when trying to set AL_MAX_GAIN"
                 "OpenAL Error when trying to set Source AL_ROLLOFF_FACTOR");

    // A refused inner angle reads as "not a source"; a refused outer angle as an OpenAL error.
    source.ClearLog();
    EXPECT_EQ(source.SetConeAngles(-1, 360), 0);
    EXPECT_EQ(source.SetConeAngles(360, 400), 0);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set failed: not a source"
                 "OpenAL Error when trying to set Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE");
}

TEST_F(SourceTest, AGoneSourceFailsEveryOperationWithItsOwnText)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    source.DeleteALSource();
    const int sets = source.SetPitch(1) + source.SetHeadRelativeMode(0) + source.SetPosition(0, 0, 0)
        + source.SetVelocity(0, 0, 0) + source.SetConeOrientation(0, 0, 1) + source.SetConeAngles(360, 360)
        + source.SetConeOuterGain(1) + source.SetGain(1) + source.SetReferenceDistance(1);
    EXPECT_EQ(sets, 0);
    // The reference distance logs a text that reads like success.
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_PITCH set failed" "SetHeadRelativeMode() failed"
                 "Source AL_POSITION set failed: not a source" "Source AL_VELOCITY set failed: not a source"
                 "Source AL_DIRECTION set failed: no a source"
                 "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set failed: not a source"
                 "Source AL_CONE_OUTER_GAIN set failed" "Source AL_GAIN failed" "Source AL_REFERENCE_DISTANCE set");
    source.ClearLog();
    const int moreSets = source.SetMaxDistance(1) + source.SetGain2(1) + source.SetMinGain(0)
        + source.SetALMaxGain(1) + source.SetRolloffFactor(1);
    EXPECT_EQ(moreSets, 0);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_MAX_DISTANCE set failed" "Source AL_GAIN failed" "Source AL_MIN_GAIN set failed"
                 "SetALMaxGain() failed" "Source AL_ROLLOFF_FACTOR set failed");

    source.ClearLog();
    float value = 0;
    float vector[3] = {};
    int a = 0;
    int b = 0;
    const int gets = source.GetPitch(&value) + source.GetHeadRelativeMode(&a) + source.GetPosition(vector)
        + source.GetVelocity(vector) + source.GetConeOrientation(vector) + source.GetConeAngles(&a, &b)
        + source.GetConeOuterGain(&value) + source.GetGain(&value) + source.GetReferenceDistance(&value)
        + source.GetMaxDistance(&value) + source.GetGain2(&value) + source.GetMinGain(&value)
        + source.GetALMaxGain(&value) + source.GetRolloffFactor(&value);
    EXPECT_EQ(gets, 0);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_PITCH get failed" "GetHeadRelativeMode() failed" "GetPosition() failed"
                 "GetVelocity() failed" "GetConeOrientation() failed" "GetConeAngles() failed"
                 "Source AL_CONE_OUTER_GAIN failed" "Source AL_GAIN get failed"
                 "Source AL_REFERENCE_DISTANCE get failed" "Source AL_MAX_DISTANCE get failed"
                 "Source AL_GAIN get failed" "Source AL_MIN_GAIN get failed" "GetALMaxGain() failed"
                 "Source AL_ROLLOFF_FACTOR get failed");

    source.ClearLog();
    const int efx = source.SetRoomRolloffFactor(1) + source.SetDirectFilterGainHFAuto(1)
        + source.GetRoomRolloffFactor(&value) + source.GetAuxSendFilterGainAuto(&a) + source.GetSourceType(&a);
    EXPECT_EQ(efx, 0);
    // The float setter has a blank before its comma; the long and float getters say "set".
    EXPECT_STREQ(source.GetLog(),
                 "Not a valid source , cannot set AL_ROOM_ROLLOFF_FACTOR property"
                 "Not a valid source, cannot set AL_DIRECT_FILTER_GAINHF_AUTO property"
                 "Not a valid source, cannot set AL_ROOM_ROLLOFF_FACTOR property"
                 "Not a valid source, cannot get AL_AUXSEND_FILTER_GAIN_AUTO property"
                 "Not a valid source, cannot set AL_SOURCE_TYPE property");
}

TEST_F(SourceTest, EFXPropertiesGoThroughThePrimitivesWithTheirNames)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    EXPECT_EQ(source.SetConeOuterGainHF(0.5f), 1);
    EXPECT_EQ(source.SetAirAbsorptionFactor(2.0f), 1);
    EXPECT_EQ(source.SetRoomRolloffFactor(0.75f), 1);
    EXPECT_EQ(source.SetDirectFilterGainHFAuto(0), 1);
    EXPECT_EQ(source.SetAuxSendFilterGainAuto(0), 1);
    EXPECT_EQ(source.SetAuxSendFilterGainHFAuto(0), 1);
    EXPECT_STREQ(source.GetLog(),
                 "Source AL_CONE_OUTER_GAINHF property set" "Source AL_AIR_ABSORPTION_FACTOR property set"
                 "Source AL_ROOM_ROLLOFF_FACTOR property set" "Source AL_DIRECT_FILTER_GAINHF_AUTO property set"
                 "Source AL_AUXSEND_FILTER_GAIN_AUTO property set" "Source AL_AUXSEND_FILTER_GAINHF_AUTO property set");

    float value = 0;
    int flag = -1;
    EXPECT_EQ(source.GetConeOuterGainHF(&value), 1);
    EXPECT_EQ(value, 0.5f);
    EXPECT_EQ(source.GetAirAbsorptionFactor(&value), 1);
    EXPECT_EQ(value, 2.0f);
    EXPECT_EQ(source.GetRoomRolloffFactor(&value), 1);
    EXPECT_EQ(value, 0.75f);
    for (auto get : {&EFX_3DSource::GetDirectFilterGainHFAuto, &EFX_3DSource::GetAuxSendFilterGainAuto,
                     &EFX_3DSource::GetAuxSendFilterGainHFAuto}) {
        flag = -1;
        EXPECT_EQ((source.*get)(&flag), 1);
        EXPECT_EQ(flag, 0);
    }
    // Any non-zero flag reaches OpenAL as 1, which is the only other value it takes.
    EXPECT_EQ(source.SetAuxSendFilterGainHFAuto(9), 1);
    EXPECT_EQ(source.GetAuxSendFilterGainHFAuto(&flag), 1);
    EXPECT_EQ(flag, 1);

    source.ClearLog();
    EXPECT_EQ(source.SetAirAbsorptionFactor(11.0f), 0);
    EXPECT_STREQ(source.GetLog(), "Error setting AL_AIR_ABSORPTION_FACTOR in source object: alSourcef() failed");
}

// The default routine makes 22 sets; the log restarts on the way, so that it holds the later texts.
TEST_F(SourceTest, SetDefaultsMakesItsTwentyTwoSetsAndLeavesTheSendsAlone)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    ASSERT_EQ(source.CreateAuxSendFilter(1, 2), 1);
    ASSERT_EQ(source.SetAuxSendFilterGain(1, 0.5f), 1);
    source.SetPosition(5, 5, 5);
    source.SetMaxDistance(7);
    source.SetDirectFilterGainHF(0.25f);
    source.SetConeAngles(10, 20);
    source.SetAirAbsorptionFactor(4);
    source.SetHeadRelativeMode(1);
    source.ClearLog();

    EXPECT_EQ(source.SetDefaults(), 1);
    const char* const texts[22] = {
        "Head relative mode set", "Source AL_POSITION set", "Source AL_VELOCITY set", "Source AL_DIRECTION set",
        "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set", "Source AL_CONE_OUTER_GAIN set", "Source AL_GAIN set",
        "Source AL_REFERENCE_DISTANCE set", "Source AL_MAX_DISTANCE set", "Source AL_GAIN set",
        "Source AL_MIN_GAIN set", "Source AL_MAX_GAIN set", "Source AL_ROLLOFF_FACTOR set", "Source AL_PITCH set",
        "Source Direct filter AL_LOWPASS_GAIN property set", "Source Direct filter AL_LOWPASS_GAINHF property set",
        "Source AL_DIRECT_FILTER_GAINHF_AUTO property set", "Source AL_CONE_OUTER_GAINHF property set",
        "Source AL_AIR_ABSORPTION_FACTOR property set", "Source AL_ROOM_ROLLOFF_FACTOR property set",
        "Source AL_AUXSEND_FILTER_GAIN_AUTO property set", "Source AL_AUXSEND_FILTER_GAINHF_AUTO property set",
    };
    ExecLog expected;
    for (const char* text : texts)
        expected.AppendLog(text);
    EXPECT_STREQ(source.GetLog(), expected.GetLog());
    EXPECT_EQ(std::string(source.GetLog()).find("Head relative mode set"), std::string::npos);

    float vector[3] = {};
    float value = 0;
    int mode = -1;
    int inner = 0;
    int outer = 0;
    source.GetPosition(vector);
    EXPECT_EQ(vector[0], 0.0f);
    EXPECT_EQ(vector[2], -1.0f);
    source.GetMaxDistance(&value);
    EXPECT_EQ(value, 100.0f);
    source.GetDirectFilterGainHF(&value);
    EXPECT_EQ(value, 1.0f);
    source.GetConeAngles(&inner, &outer);
    EXPECT_EQ(inner, 360);
    EXPECT_EQ(outer, 360);
    source.GetAirAbsorptionFactor(&value);
    EXPECT_EQ(value, 0.0f);
    source.GetHeadRelativeMode(&mode);
    EXPECT_EQ(mode, 0);
    float gain = 0;
    float gainHF = 0;
    ASSERT_EQ(source.GetAuxSendFilterGains(1, &gain, &gainHF), 1);
    EXPECT_EQ(gain, 0.5f);
}

TEST_F(SourceTest, SetDefaultsStopsAtTheFirstFailure)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    source.SetPitch(2.0f);
    source.ClearLog();
    source.DeleteALSource();
    EXPECT_EQ(source.SetDefaults(), 0);
    EXPECT_STREQ(source.GetLog(), "SetHeadRelativeMode() failed");
}

TEST_F(SourceTest, DestructionDeletesTheSourceAndItsBuffer)
{
    ALuint name = 0;
    ALint buffer = 0;
    {
        OwnSource source;
        ASSERT_EQ(source.Initialize(), 1);
        ASSERT_EQ(source.LoadFile(m_wave.c_str()), 1);
        name = source.Source();
        alGetSourcei(name, AL_BUFFER, &buffer);
        ASSERT_NE(buffer, 0);
    }
    EXPECT_EQ(alIsSource(name), AL_FALSE);
    EXPECT_EQ(alIsBuffer(static_cast<ALuint>(buffer)), AL_FALSE);
}
