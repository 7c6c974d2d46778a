#include "engine/WaveWriter.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

void Put16(std::uint8_t* at, std::uint32_t value)
{
    at[0] = static_cast<std::uint8_t>(value);
    at[1] = static_cast<std::uint8_t>(value >> 8);
}

void Put32(std::uint8_t* at, std::uint32_t value)
{
    Put16(at, value & 0xFFFF);
    Put16(at + 2, value >> 16);
}

// The 44 bytes before the samples: RIFF, the format chunk, the data chunk's header.
void Header(std::uint8_t* h, int channels, int frequency, bool isFloat, std::uint32_t dataBytes)
{
    const std::uint32_t bytesPerSample = isFloat ? 4 : 2;
    std::memcpy(h, "RIFF", 4);
    Put32(h + 4, 36 + dataBytes);
    std::memcpy(h + 8, "WAVEfmt ", 8);
    Put32(h + 16, 16);
    Put16(h + 20, isFloat ? 3 : 1);
    Put16(h + 22, static_cast<std::uint32_t>(channels));
    Put32(h + 24, static_cast<std::uint32_t>(frequency));
    Put32(h + 28, static_cast<std::uint32_t>(frequency) * static_cast<std::uint32_t>(channels) * bytesPerSample);
    Put16(h + 32, static_cast<std::uint32_t>(channels) * bytesPerSample);
    Put16(h + 34, bytesPerSample * 8);
    std::memcpy(h + 36, "data", 4);
    Put32(h + 40, dataBytes);
}

} // namespace

WaveWriter::~WaveWriter()
{
    if (m_file)
        std::fclose(m_file);
}

bool WaveWriter::Fail(const char* what)
{
    m_error = std::string(what) + ": " + std::strerror(errno);
    return false;
}

bool WaveWriter::Open(const std::string& path, int channels, int frequency, Sample sample)
{
    m_channels = channels;
    m_sample = sample;
    m_dataBytes = 0;
    m_file = std::fopen(path.c_str(), "wb");
    if (!m_file)
        return Fail("cannot create the file");
    std::uint8_t header[44];
    Header(header, channels, frequency, sample == Sample::Float32, 0);
    if (std::fwrite(header, 1, sizeof header, m_file) != sizeof header)
        return Fail("cannot write the file");
    return true;
}

bool WaveWriter::Write(const float* frames, std::size_t frameCount)
{
    const std::size_t count = frameCount * static_cast<std::size_t>(m_channels);
    std::size_t written = 0;
    std::size_t bytes = 0;
    if (m_sample == Sample::Float32) {
        // The machine is little-endian, as the file is.
        written = std::fwrite(frames, sizeof(float), count, m_file);
        bytes = count * sizeof(float);
    } else {
        std::vector<std::int16_t> pcm(count);
        for (std::size_t i = 0; i < count; ++i)
            pcm[i] = static_cast<std::int16_t>(std::lround(std::clamp(frames[i], -1.0f, 1.0f) * 32767.0f));
        written = std::fwrite(pcm.data(), sizeof(std::int16_t), count, m_file);
        bytes = count * sizeof(std::int16_t);
    }
    if (written != count)
        return Fail("cannot write the file");
    m_dataBytes += bytes;
    return true;
}

bool WaveWriter::Close()
{
    if (!m_file)
        return false;
    std::uint8_t header[44];
    Header(header, m_channels, 0, m_sample == Sample::Float32, static_cast<std::uint32_t>(m_dataBytes));
    bool ok = std::fseek(m_file, 0, SEEK_SET) == 0;
    // Only the sizes change: the frequency was right in the header written first.
    ok = ok && std::fseek(m_file, 4, SEEK_SET) == 0 && std::fwrite(header + 4, 1, 4, m_file) == 4;
    ok = ok && std::fseek(m_file, 40, SEEK_SET) == 0 && std::fwrite(header + 40, 1, 4, m_file) == 4;
    ok = std::fflush(m_file) == 0 && ok;
    if (!ok)
        Fail("cannot write the file");
    if (std::fclose(m_file) != 0 && ok)
        ok = Fail("cannot close the file");
    m_file = nullptr;
    return ok;
}
