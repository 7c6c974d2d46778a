#pragma once

// What OpenAL Soft's wave writer recorded, and the sounds to play into it: mono 16-bit files of a
// sine, white noise or a burst, and measures of the recording over spans in seconds from its onset.
// For suites that run under a configuration that names the wave writer.

#include "engine/CWaves.h"
#include "tests/engine/EngineTestSupport.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace wave_recording {

using engine_test::RiffBuilder;

constexpr std::uint32_t kRate = 44100;
constexpr double kPi = 3.14159265358979323846;

// A mono 16-bit file of the given samples (-1 to 1).
inline void WriteMonoFile(const std::string& path, const std::vector<float>& samples)
{
    std::vector<unsigned char> data;
    for (float sample : samples) {
        const auto value = static_cast<std::int16_t>(std::lround(sample * 32767.0f));
        data.push_back(static_cast<unsigned char>(value & 0xFF));
        data.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
    }
    engine_test::WriteFile(path, RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, kRate, 16)).Chunk("data", data).Build());
}

inline std::vector<float> Sine(double seconds, double frequency, float amplitude = 0.5f)
{
    std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = amplitude * static_cast<float>(std::sin(2.0 * kPi * frequency * static_cast<double>(i) / kRate));
    return samples;
}

inline std::vector<float> WhiteNoise(double seconds)
{
    std::mt19937 random(99);
    std::uniform_real_distribution<float> uniform(-0.5f, 0.5f);
    std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
    for (float& sample : samples)
        sample = uniform(random);
    return samples;
}

// The scratch folder of a suite run under a wave writer configuration, with the wave writer chosen
// over any driver list of the environment (which would win over the configuration); null when the
// suite runs without one and should skip.
inline const char* WaveWriterFolder()
{
    const char* folder = std::getenv("SONOPTIC_PROFILE_DIR");
    if (folder)
        setenv("ALSOFT_DRIVERS", "wave", 1);
    return folder;
}

inline void Wait(int milliseconds)
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

} // namespace wave_recording
