// What the engine really plays, recorded by OpenAL Soft's wave writer: a file through a source, the
// direct filter, a send into an effect, and a change while playing. These run in a process of
// their own under the configuration in CMakeLists.txt (stereo, 16-bit, 44100 Hz into out.wav).
#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"

#include "EngineTestSupport.h"
#include "tests/engine/WaveRecording.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using engine_test::FactoryPtr;
using engine_test::StartFactory;
using namespace wave_recording;

namespace {

class ConfWaveOut : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* folder = WaveWriterFolder();
        if (!folder)
            GTEST_SKIP() << "runs under its own OpenAL Soft configuration, with the wave writer";
        m_folder = folder;
        m_output = m_folder + "/out.wav";
    }

    // Starts the device, which starts a new recording.
    void Start()
    {
        m_factory = StartFactory(4);
        ASSERT_NE(m_factory->GetNumEffectSlots(), 0u);
    }

    // Plays the source (looped or once) for a while, makes the change if any and plays on as long,
    // then closes the device, which completes the recording, and reads it.
    Recording PlayAndRecord(EFX_3DSource* source, int loop, int milliseconds, const std::function<int()>& change = {})
    {
        EXPECT_EQ(source->PlayLooped(loop), 1);
        Wait(milliseconds);
        if (change) {
            EXPECT_EQ(change(), 1);
            Wait(milliseconds);
        }
        source->Stop();
        source->Release();
        m_factory.reset();
        return Recording(m_output);
    }

    EFX_3DSource* Source(const std::string& name, const std::vector<float>& samples)
    {
        const std::string path = m_folder + "/" + name;
        WriteMonoFile(path, samples);
        EFX_3DSource* source = m_factory->CreateSource(path.c_str());
        EXPECT_NE(source, nullptr) << m_factory->GetLog();
        if (source) {
            EXPECT_EQ(source->SetDefaults(), 1) << source->GetLog();
        }
        return source;
    }

    // Sends send 0 of the source into slot 0, which holds the effect, and silences the dry path
    // if asked.
    EFX_EffectSlot* Route(EFX_3DSource* source, int effect, bool dry)
    {
        EFX_EffectSlot* slot = m_factory->CreateEffectSlot(0);
        EXPECT_NE(slot, nullptr);
        EXPECT_EQ(slot->LoadEffect(effect), 1) << slot->GetLog();
        EXPECT_EQ(source->CreateAuxSendFilter(0, 0), 1) << source->GetLog();
        if (!dry) {
            EXPECT_EQ(source->SetDirectFilterGain(0.0f), 1);
        }
        return slot;
    }

    std::string m_folder, m_output;
    FactoryPtr m_factory;
};

} // namespace

TEST_F(ConfWaveOut, AWavFilePlaysFromASource)
{
    Start();
    EFX_3DSource* source = Source("tone.wav", Sine(0.5, 440.0));
    ASSERT_NE(source, nullptr);
    const Recording recording = PlayAndRecord(source, 0, 900);

    ASSERT_TRUE(recording.HasSound());
    EXPECT_GT(recording.Rms(0.05, 0.45), 0.1);
    EXPECT_NEAR(recording.ToneFrequency(0.05, 0.45), 440.0, 10.0);
    // It played once: silence after the end of the file.
    EXPECT_LT(recording.Rms(0.55, 0.75), 0.002);
}

TEST_F(ConfWaveOut, DirectGainHFOfZeroTakesTheHighFrequenciesAway)
{
    Start();
    EFX_3DSource* source = Source("noise.wav", WhiteNoise(0.5));
    ASSERT_NE(source, nullptr);
    const Recording recording = PlayAndRecord(source, 1, 600, [&] { return source->SetDirectFilterGainHF(0.0f); });

    ASSERT_TRUE(recording.HasSound());
    const double open = recording.HighFrequencyShare(0.1, 0.5);
    const double filtered = recording.HighFrequencyShare(0.8, 1.1);
    EXPECT_GT(open, 1.0);
    EXPECT_LT(filtered, open * 0.2);
    // The low frequencies still pass.
    EXPECT_GT(recording.LowFrequencyRms(0.8, 1.1), recording.LowFrequencyRms(0.1, 0.5) * 0.3);
}

// A short burst into an echo: after the dry sound has stopped, the echo is still heard; without
// the send, nothing is.
TEST_F(ConfWaveOut, ASendIntoAnEchoAddsADelayedCopyAfterTheDrySound)
{
    for (bool withSend : {true, false}) {
        SCOPED_TRACE(withSend ? "with the send" : "without the send");
        Start();
        EFX_3DSource* source = Source("burst.wav", Sine(0.08, 1000.0));
        ASSERT_NE(source, nullptr);
        if (withSend) {
            EFX_EffectSlot* slot = Route(source, kEffectEcho, true);
            ASSERT_EQ(slot->SetEchoDelay(0.2f), 1);
            ASSERT_EQ(slot->SetEchoLrdelay(0.0f), 1);
            ASSERT_EQ(slot->SetEchoFeedback(0.0f), 1);
            ASSERT_EQ(slot->SetEchoDamping(0.0f), 1);
        }
        const Recording recording = PlayAndRecord(source, 0, 800);

        ASSERT_TRUE(recording.HasSound());
        const double dry = recording.Rms(0.0, 0.08);
        EXPECT_GT(dry, 0.05);
        EXPECT_LT(recording.Rms(0.1, 0.18), 0.002); // between the dry sound and its echo
        if (withSend) {
            EXPECT_GT(recording.Rms(0.2, 0.28), dry * 0.1);
            EXPECT_NEAR(recording.ToneFrequency(0.2, 0.28), 1000.0, 30.0);
        } else {
            EXPECT_LT(recording.Rms(0.2, 0.28), 0.002);
        }
    }
}

// An effect property changed while the sound plays: the frequency shifter moves a 1 kHz tone, heard
// only through the send, up by what the knob says.
TEST_F(ConfWaveOut, ChangingAnEffectPropertyWhilePlayingChangesWhatIsHeard)
{
    Start();
    EFX_3DSource* source = Source("steady.wav", Sine(0.5, 1000.0));
    ASSERT_NE(source, nullptr);
    EFX_EffectSlot* slot = Route(source, kEffectFrequencyShifter, false);
    ASSERT_EQ(slot->SetFrequencyShifterLeftDirection(1), 1);
    ASSERT_EQ(slot->SetFrequencyShifterRightDirection(1), 1);
    ASSERT_EQ(slot->SetFrequencyShifterFrequency(0.0f), 1);
    const Recording recording = PlayAndRecord(source, 1, 600, [&] { return slot->SetFrequencyShifterFrequency(500.0f); });

    ASSERT_TRUE(recording.HasSound());
    EXPECT_NEAR(recording.ToneFrequency(0.1, 0.5), 1000.0, 30.0);
    EXPECT_NEAR(recording.ToneFrequency(0.8, 1.1), 1500.0, 30.0);
}
