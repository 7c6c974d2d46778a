// What the engine really plays, recorded by OpenAL Soft's wave writer: a file through a source, the
// direct filter, a send into an effect, and a change while playing. These run in a process of
// their own under the configuration in CMakeLists.txt (stereo, 16-bit, 44100 Hz into out.wav).
#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <vector>

using engine_test::FactoryPtr;
using engine_test::RiffBuilder;
using engine_test::StartFactory;

namespace {

constexpr std::uint32_t kRate = 44100;
constexpr double kPi = 3.14159265358979323846;

// A mono 16-bit file of the given samples (-1 to 1).
void WriteMonoFile(const std::string& path, const std::vector<float>& samples)
{
    std::vector<unsigned char> data;
    for (float sample : samples) {
        const auto value = static_cast<std::int16_t>(std::lround(sample * 32767.0f));
        data.push_back(static_cast<unsigned char>(value & 0xFF));
        data.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
    }
    engine_test::WriteFile(path, RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, kRate, 16)).Chunk("data", data).Build());
}

std::vector<float> Sine(double seconds, double frequency, float amplitude = 0.5f)
{
    std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = amplitude * static_cast<float>(std::sin(2.0 * kPi * frequency * static_cast<double>(i) / kRate));
    return samples;
}

std::vector<float> WhiteNoise(double seconds)
{
    std::mt19937 random(99);
    std::uniform_real_distribution<float> uniform(-0.5f, 0.5f);
    std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
    for (float& sample : samples)
        sample = uniform(random);
    return samples;
}

void Wait(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// The recording, both channels mixed down, with measures over spans in seconds from the onset.
class Recording {
public:
    explicit Recording(const std::string& path)
    {
        CWaves waves;
        int id = -1;
        if (waves.LoadWaveFile(path.c_str(), &id) != CWaves::kOK)
            return;
        ALenum format = 0;
        waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
        std::uint32_t size = 0;
        void* data = nullptr;
        waves.GetWaveSize(id, &size);
        waves.GetWaveData(id, &data);
        waves.GetWaveFrequency(id, &m_rate);
        if (format != AL_FORMAT_STEREO16)
            return;
        const auto* bytes = static_cast<const unsigned char*>(data);
        for (std::uint32_t i = 0; i + 3 < size; i += 4) {
            const auto left = static_cast<std::int16_t>(bytes[i] | (bytes[i + 1] << 8));
            const auto right = static_cast<std::int16_t>(bytes[i + 2] | (bytes[i + 3] << 8));
            m_samples.push_back((left + right) / 65536.0f);
        }
        for (std::size_t i = 0; i < m_samples.size(); ++i) {
            if (std::fabs(m_samples[i]) > 0.01f) {
                m_onset = i;
                break;
            }
        }
    }

    bool HasSound() const { return m_onset != kNone; }
    double Seconds() const { return m_rate ? static_cast<double>(m_samples.size()) / m_rate : 0.0; }

    double Rms(double from, double to) const
    {
        double sum = 0;
        const auto [begin, end] = Span(from, to);
        for (std::size_t i = begin; i < end; ++i)
            sum += m_samples[i] * m_samples[i];
        return end > begin ? std::sqrt(sum / static_cast<double>(end - begin)) : 0.0;
    }

    // The frequency of a steady tone, from its rising zero crossings.
    double ToneFrequency(double from, double to) const
    {
        const auto [begin, end] = Span(from, to);
        int crossings = 0;
        for (std::size_t i = begin + 1; i < end; ++i) {
            if (m_samples[i - 1] < 0.0f && m_samples[i] >= 0.0f)
                ++crossings;
        }
        return end > begin ? crossings * static_cast<double>(m_rate) / static_cast<double>(end - begin) : 0.0;
    }

    // The level of what a 32-sample moving average lets through, below about 1 kHz.
    double LowFrequencyRms(double from, double to) const
    {
        const auto [begin, end] = Span(from, to);
        constexpr std::size_t kWidth = 32;
        double sum = 0;
        std::size_t count = 0;
        for (std::size_t i = begin + kWidth; i < end; ++i, ++count) {
            double average = 0;
            for (std::size_t k = i - kWidth; k < i; ++k)
                average += m_samples[k];
            average /= kWidth;
            sum += average * average;
        }
        return count ? std::sqrt(sum / static_cast<double>(count)) : 0.0;
    }

    // The energy of the sample-to-sample differences over the energy itself: about 2 for white
    // noise, and the smaller the less high frequencies there are.
    double HighFrequencyShare(double from, double to) const
    {
        const auto [begin, end] = Span(from, to);
        double differences = 0;
        double energy = 0;
        for (std::size_t i = begin + 1; i < end; ++i) {
            const double step = m_samples[i] - m_samples[i - 1];
            differences += step * step;
            energy += m_samples[i] * m_samples[i];
        }
        return energy > 0 ? differences / energy : 0.0;
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::pair<std::size_t, std::size_t> Span(double from, double to) const
    {
        const auto at = [&](double seconds) {
            const double index = static_cast<double>(m_onset) + seconds * m_rate;
            return std::min(m_samples.size(), static_cast<std::size_t>(std::max(0.0, index)));
        };
        return {at(from), at(to)};
    }

    std::vector<float> m_samples;
    std::uint32_t m_rate = 0;
    std::size_t m_onset = kNone;
};

class ConfWaveOut : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* folder = std::getenv("SONOPTIC_PROFILE_DIR");
        if (!folder)
            GTEST_SKIP() << "runs under its own OpenAL Soft configuration, with the wave writer";
        // The configuration names the wave writer; a driver list from the environment would win.
        setenv("ALSOFT_DRIVERS", "wave", 1);
        m_folder = folder;
        m_output = m_folder + "/out.wav";
    }

    // Starts the device, which starts a new recording.
    void Start()
    {
        m_factory = StartFactory(4);
        ASSERT_NE(m_factory->GetNumEffectSlots(), 0u);
    }

    // Closes the device, which completes the recording, and reads it.
    Recording Finish()
    {
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

    std::string m_folder;
    std::string m_output;
    FactoryPtr m_factory;
};

} // namespace

TEST_F(ConfWaveOut, AWavFilePlaysFromASource)
{
    Start();
    EFX_3DSource* source = Source("tone.wav", Sine(0.5, 440.0));
    ASSERT_NE(source, nullptr);
    ASSERT_EQ(source->PlayLooped(0), 1);
    Wait(900);
    source->Release();
    const Recording recording = Finish();

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
    ASSERT_EQ(source->PlayLooped(1), 1);
    Wait(600);
    ASSERT_EQ(source->SetDirectFilterGainHF(0.0f), 1);
    Wait(600);
    source->Stop();
    source->Release();
    const Recording recording = Finish();

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
        ASSERT_EQ(source->PlayLooped(0), 1);
        Wait(800);
        source->Release();
        const Recording recording = Finish();

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
    ASSERT_EQ(source->PlayLooped(1), 1);
    Wait(600);
    ASSERT_EQ(slot->SetFrequencyShifterFrequency(500.0f), 1);
    Wait(600);
    source->Stop();
    source->Release();
    const Recording recording = Finish();

    ASSERT_TRUE(recording.HasSound());
    EXPECT_NEAR(recording.ToneFrequency(0.1, 0.5), 1000.0, 30.0);
    EXPECT_NEAR(recording.ToneFrequency(0.8, 1.1), 1500.0, 30.0);
}
