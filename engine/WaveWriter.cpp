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

// The bytes before the samples: RIFF, the format chunk, and the data chunk's header. A float file's
// format chunk carries its (empty) extension and is followed by the "fact" chunk of its frame count,
// as readers of non-PCM files expect.
std::vector<std::uint8_t> Header(int channels, int frequency, bool isFloat, std::uint32_t dataBytes)
{
    const std::uint32_t bytesPerSample = isFloat ? 4 : 2;
    const std::uint32_t frameBytes = static_cast<std::uint32_t>(channels) * bytesPerSample;
    std::vector<std::uint8_t> h(isFloat ? 58 : 44);
    const std::uint32_t fmtSize = isFloat ? 18 : 16;
    std::memcpy(h.data(), "RIFF", 4);
    Put32(&h[4], static_cast<std::uint32_t>(h.size()) - 8 + dataBytes);
    std::memcpy(&h[8], "WAVEfmt ", 8);
    Put32(&h[16], fmtSize);
    Put16(&h[20], isFloat ? 3 : 1);
    Put16(&h[22], static_cast<std::uint32_t>(channels));
    Put32(&h[24], static_cast<std::uint32_t>(frequency));
    Put32(&h[28], static_cast<std::uint32_t>(frequency) * frameBytes);
    Put16(&h[32], frameBytes);
    Put16(&h[34], bytesPerSample * 8);
    std::size_t at = 20 + fmtSize;
    if (isFloat) {
        Put16(&h[36], 0);
        std::memcpy(&h[at], "fact", 4);
        Put32(&h[at + 4], 4);
        Put32(&h[at + 8], dataBytes / frameBytes);
        at += 12;
    }
    std::memcpy(&h[at], "data", 4);
    Put32(&h[at + 4], dataBytes);
    return h;
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
    m_frequency = frequency;
    const std::vector<std::uint8_t> header = Header(channels, frequency, sample == Sample::Float32, 0);
    if (std::fwrite(header.data(), 1, header.size(), m_file) != header.size())
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
    // The header again, now with the sizes.
    const std::vector<std::uint8_t> header =
        Header(m_channels, m_frequency, m_sample == Sample::Float32, static_cast<std::uint32_t>(m_dataBytes));
    bool ok = std::fseek(m_file, 0, SEEK_SET) == 0 && std::fwrite(header.data(), 1, header.size(), m_file) == header.size();
    ok = std::fflush(m_file) == 0 && ok;
    if (!ok)
        Fail("cannot write the file");
    if (std::fclose(m_file) != 0 && ok)
        ok = Fail("cannot close the file");
    m_file = nullptr;
    return ok;
}
