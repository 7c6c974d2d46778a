// The source core against OpenAL Soft: creation, files, playback, properties and their texts.
#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/ExecLog.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <string>

using engine_test::FactoryPtr;
using engine_test::Got;
using engine_test::Got3;
using engine_test::OwnSource;
using engine_test::ScratchDir;
using engine_test::StartFactory;

namespace {

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

    int SourceType(EFX_3DSource* source) { return Got(*source, &EFX_3DSource::GetSourceType); }

    // The reader's table is empty again when a load gets the first entry.
    static bool ReaderTableIsEmpty(const std::string& path)
    {
        int id = -1;
        const int code = EFX_Factory::Waves().LoadWaveFile(path.c_str(), &id);
        EFX_Factory::Waves().DeleteWaveFile(id);
        return code == CWaves::kOK && id == 0;
    }

    ScratchDir m_dir;
    std::string m_wave, m_unknownLayout;
    FactoryPtr m_factory;
};

} // namespace

TEST_F(SourceTest, CreateSourceUploadsTheFileAndAttachesTheBufferThatPlayingKeeps)
{
    EFX_3DSource* source = m_factory->CreateSource(m_wave.c_str());
    ASSERT_NE(source, nullptr) << m_factory->GetLog();
    EXPECT_STREQ(m_factory->GetLog(), "Source creation and EFX intialization successful");
    EXPECT_STREQ(source->GetLog(), "");
    EXPECT_EQ(SourceType(source), AL_STATIC);
    EXPECT_TRUE(ReaderTableIsEmpty(m_wave));

    // A playing source keeps its buffer: a load fails there.
    ASSERT_EQ(source->PlayLooped(1), 1);
    EXPECT_EQ(source->LoadFile(m_wave.c_str()), 0);
    EXPECT_STREQ(source->GetLog(), "Error loading WAV data into buffer");
    source->Stop();
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

TEST_F(SourceTest, PlaybackStartsLoopsAndStopsWithoutMessages)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    ASSERT_EQ(source.LoadFile(m_wave.c_str()), 1);
    source.ClearLog();

    EXPECT_EQ(source.PlayLooped(1), 1);
    EXPECT_EQ(source.Sourcei(AL_SOURCE_STATE), AL_PLAYING);
    EXPECT_EQ(source.Sourcei(AL_LOOPING), 1);
    EXPECT_EQ(source.IsPlaying(), 0); // the flag is not the source's state
    EXPECT_EQ(source.Stop(), 1);
    EXPECT_EQ(source.Sourcei(AL_SOURCE_STATE), AL_STOPPED);
    EXPECT_EQ(source.Play(), 1); // plays once, without loop
    EXPECT_EQ(source.Sourcei(AL_SOURCE_STATE), AL_PLAYING);
    EXPECT_EQ(source.Sourcei(AL_LOOPING), 0);
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

namespace {

using S = EFX_3DSource;

// A float property of a source: its setter and getter, a value OpenAL takes and one it refuses, and
// the texts of a set, of a refused set, and of a set and a get on a source that is gone (null where
// that case is not looked at).
struct FloatProperty {
    int (S::*set)(float);
    int (S::*get)(float*);
    float value, refused;
    const char *setText, *refusedText, *goneSetText, *goneGetText;
};

// The reference distance on a gone source logs a text that reads like success; the room rolloff's
// setter has a blank before its comma, and its getter says "set".
const FloatProperty kFloatProperties[] = {
    {&S::SetPitch, &S::GetPitch, 1.5f, -1.0f, "Source AL_PITCH set", "OpenAL Error when trying to set Source AL_PITCH",
     "Source AL_PITCH set failed", "Source AL_PITCH get failed"},
    {&S::SetConeOuterGain, &S::GetConeOuterGain, 0.25f, 2.0f, "Source AL_CONE_OUTER_GAIN set",
     "OpenAL Error when trying to set Source AL_CONE_OUTER_GAIN", "Source AL_CONE_OUTER_GAIN set failed",
     "Source AL_CONE_OUTER_GAIN failed"},
    {&S::SetGain, &S::GetGain, 0.5f, -1.0f, "Source AL_GAIN set", "OpenAL Error when trying to set Source AL_GAIN",
     "Source AL_GAIN failed", "Source AL_GAIN get failed"},
    {&S::SetReferenceDistance, &S::GetReferenceDistance, 2.0f, -1.0f, "Source AL_REFERENCE_DISTANCE set",
     "OpenAL Error when trying to set Source AL_REFERENCE_DISTANCE", "Source AL_REFERENCE_DISTANCE set",
     "Source AL_REFERENCE_DISTANCE get failed"},
    {&S::SetMaxDistance, &S::GetMaxDistance, 50.0f, -1.0f, "Source AL_MAX_DISTANCE set",
     "OpenAL Error when trying to set Source AL_MAX_DISTANCE", "Source AL_MAX_DISTANCE set failed",
     "Source AL_MAX_DISTANCE get failed"},
    {&S::SetGain2, &S::GetGain2, 0.75f, -1.0f, "Source AL_GAIN set", nullptr, "Source AL_GAIN failed",
     "Source AL_GAIN get failed"},
    {&S::SetMinGain, &S::GetMinGain, 0.125f, -1.0f, "Source AL_MIN_GAIN set",
     "OpenAL Error when trying to set Source AL_MIN_GAIN", "Source AL_MIN_GAIN set failed",
     "Source AL_MIN_GAIN get failed"},
    {&S::SetALMaxGain, &S::GetALMaxGain, 0.875f, -1.0f, "Source AL_MAX_GAIN set",
     "OpenAL Error when trying to set AL_MAX_GAIN", "SetALMaxGain() failed", "GetALMaxGain() failed"},
    {&S::SetRolloffFactor, &S::GetRolloffFactor, 3.0f, -1.0f, "Source AL_ROLLOFF_FACTOR set",
     "OpenAL Error when trying to set Source AL_ROLLOFF_FACTOR", "Source AL_ROLLOFF_FACTOR set failed",
     "Source AL_ROLLOFF_FACTOR get failed"},
    {&S::SetConeOuterGainHF, &S::GetConeOuterGainHF, 0.5f, 0, "Source AL_CONE_OUTER_GAINHF property set", nullptr,
     nullptr, nullptr},
    {&S::SetAirAbsorptionFactor, &S::GetAirAbsorptionFactor, 2.0f, 11.0f, "Source AL_AIR_ABSORPTION_FACTOR property set",
     "Error setting AL_AIR_ABSORPTION_FACTOR in source object: alSourcef() failed", nullptr, nullptr},
    {&S::SetRoomRolloffFactor, &S::GetRoomRolloffFactor, 0.75f, 0, "Source AL_ROOM_ROLLOFF_FACTOR property set",
     nullptr, "Not a valid source , cannot set AL_ROOM_ROLLOFF_FACTOR property",
     "Not a valid source, cannot set AL_ROOM_ROLLOFF_FACTOR property"},
};

} // namespace

// Each float property is set with its text and read back from OpenAL, and a value OpenAL refuses
// logs the OpenAL error text.
TEST_F(SourceTest, FloatPropertiesAreSetLoggedAndReadBackAndRefusedValuesLogTheirTexts)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    for (const FloatProperty& p : kFloatProperties) {
        SCOPED_TRACE(p.setText);
        source.ClearLog();
        EXPECT_EQ((source.*p.set)(p.value), 1);
        EXPECT_STREQ(source.GetLog(), p.setText);
        EXPECT_EQ(Got(source, p.get), p.value);
        EXPECT_STREQ(source.GetLog(), p.setText); // a get logs nothing on success
        if (p.refusedText) {
            source.ClearLog();
            EXPECT_EQ((source.*p.set)(p.refused), 0);
            EXPECT_STREQ(source.GetLog(), p.refusedText);
        }
    }
    EXPECT_EQ(source.ReservedSet(), 0);
    EXPECT_EQ(source.ReservedGet(), 0);
}

TEST_F(SourceTest, VectorsAnglesAndFlagsAreSetLoggedAndReadBackAndRefusedValuesLogTheirTexts)
{
    OwnSource source;
    ASSERT_EQ(source.Initialize(), 1);
    EXPECT_EQ(source.SetHeadRelativeMode(1), 1);
    EXPECT_EQ(source.SetPosition(1, 2, 3), 1);
    EXPECT_EQ(source.SetVelocity(-1, -2, -3), 1);
    EXPECT_EQ(source.SetConeOrientation(0, 1, 0), 1);
    EXPECT_EQ(source.SetConeAngles(90, 180), 1);
    EXPECT_EQ(source.SetDirectFilterGainHFAuto(0), 1);
    EXPECT_EQ(source.SetAuxSendFilterGainAuto(0), 1);
    EXPECT_EQ(source.SetAuxSendFilterGainHFAuto(0), 1);
    EXPECT_STREQ(source.GetLog(),
                 "Head relative mode set" "Source AL_POSITION set" "Source AL_VELOCITY set" "Source AL_DIRECTION set"
                 "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set" "Source AL_DIRECT_FILTER_GAINHF_AUTO property set"
                 "Source AL_AUXSEND_FILTER_GAIN_AUTO property set" "Source AL_AUXSEND_FILTER_GAINHF_AUTO property set");

    source.ClearLog();
    EXPECT_EQ(Got(source, &S::GetHeadRelativeMode), 1);
    EXPECT_EQ(Got3(source, &S::GetPosition), (std::array<float, 3>{1, 2, 3}));
    EXPECT_EQ(Got3(source, &S::GetVelocity), (std::array<float, 3>{-1, -2, -3}));
    EXPECT_EQ(Got3(source, &S::GetConeOrientation), (std::array<float, 3>{0, 1, 0}));
    int inner = 0, outer = 0;
    EXPECT_EQ(source.GetConeAngles(&inner, &outer), 1);
    EXPECT_EQ(std::make_pair(inner, outer), std::make_pair(90, 180));
    for (auto get : {&S::GetDirectFilterGainHFAuto, &S::GetAuxSendFilterGainAuto, &S::GetAuxSendFilterGainHFAuto})
        EXPECT_EQ(Got(source, get), 0);
    EXPECT_STREQ(source.GetLog(), "");
    // Any non-zero flag reaches OpenAL as 1, which is the only other value it takes.
    EXPECT_EQ(source.SetAuxSendFilterGainHFAuto(9), 1);
    EXPECT_EQ(Got(source, &S::GetAuxSendFilterGainHFAuto), 1);

    source.ClearLog();
    const float nan = std::nanf("");
    const int results = source.SetHeadRelativeMode(2) + source.SetPosition(nan, 0, 0) + source.SetVelocity(0, nan, 0)
        + source.SetConeOrientation(0, 0, nan);
    EXPECT_EQ(results, 0);
    EXPECT_STREQ(source.GetLog(),
                 "OpenAL Error when trying to set head relative mode"
                 "OpenAL Error when trying to set AL_POSITION"
                 "OpenAL Error when trying to set AL_VELOCITY"
                 "OpenAL Error when trying to set Source AL_DIRECTION");
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
    for (const FloatProperty& p : kFloatProperties) {
        if (!p.goneSetText)
            continue;
        SCOPED_TRACE(p.setText);
        source.ClearLog();
        float value = 7.0f;
        EXPECT_EQ((source.*p.set)(p.value) + (source.*p.get)(&value), 0);
        EXPECT_EQ(std::string(source.GetLog()), std::string(p.goneSetText) + p.goneGetText);
    }

    source.ClearLog();
    const int sets = source.SetHeadRelativeMode(0) + source.SetPosition(0, 0, 0) + source.SetVelocity(0, 0, 0)
        + source.SetConeOrientation(0, 0, 1) + source.SetConeAngles(360, 360) + source.SetDirectFilterGainHFAuto(1);
    EXPECT_EQ(sets, 0);
    EXPECT_STREQ(source.GetLog(),
                 "SetHeadRelativeMode() failed" "Source AL_POSITION set failed: not a source"
                 "Source AL_VELOCITY set failed: not a source" "Source AL_DIRECTION set failed: no a source"
                 "Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set failed: not a source"
                 "Not a valid source, cannot set AL_DIRECT_FILTER_GAINHF_AUTO property");

    source.ClearLog();
    float vector[3] = {};
    int a = 0, b = 0;
    const int gets = source.GetHeadRelativeMode(&a) + source.GetPosition(vector) + source.GetVelocity(vector)
        + source.GetConeOrientation(vector) + source.GetConeAngles(&a, &b) + source.GetAuxSendFilterGainAuto(&a)
        + source.GetSourceType(&a);
    EXPECT_EQ(gets, 0);
    // The long getter says "set".
    EXPECT_STREQ(source.GetLog(),
                 "GetHeadRelativeMode() failed" "GetPosition() failed" "GetVelocity() failed"
                 "GetConeOrientation() failed" "GetConeAngles() failed"
                 "Not a valid source, cannot get AL_AUXSEND_FILTER_GAIN_AUTO property"
                 "Not a valid source, cannot set AL_SOURCE_TYPE property");

    // The default routine stops at its first set.
    source.ClearLog();
    EXPECT_EQ(source.SetDefaults(), 0);
    EXPECT_STREQ(source.GetLog(), "SetHeadRelativeMode() failed");
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

    using S = EFX_3DSource;
    EXPECT_EQ(Got3(source, &S::GetPosition), (std::array<float, 3>{0, 0, -1}));
    EXPECT_EQ(Got3(source, &S::GetConeOrientation), (std::array<float, 3>{0, 0, -1}));
    EXPECT_EQ(Got(source, &S::GetMaxDistance), 100.0f);
    EXPECT_EQ(Got(source, &S::GetDirectFilterGainHF), 1.0f);
    int inner = 0, outer = 0;
    source.GetConeAngles(&inner, &outer);
    EXPECT_EQ(inner, 360);
    EXPECT_EQ(outer, 360);
    EXPECT_EQ(Got(source, &S::GetAirAbsorptionFactor), 0.0f);
    EXPECT_EQ(Got(source, &S::GetHeadRelativeMode), 0);
    float gain = 0, gainHF = 0;
    ASSERT_EQ(source.GetAuxSendFilterGains(1, &gain, &gainHF), 1);
    EXPECT_EQ(gain, 0.5f);
}

TEST_F(SourceTest, DestructionDeletesTheSourceAndItsBuffer)
{
    ALuint name = 0;
    ALint buffer = 0;
    {
        OwnSource source;
        ASSERT_EQ(source.Initialize(), 1);
        ASSERT_EQ(source.LoadFile(m_wave.c_str()), 1);
        name = source.SourceObject();
        alGetSourcei(name, AL_BUFFER, &buffer);
        ASSERT_NE(buffer, 0);
    }
    EXPECT_EQ(alIsSource(name), AL_FALSE);
    EXPECT_EQ(alIsBuffer(static_cast<ALuint>(buffer)), AL_FALSE);
}
