#pragma once

// WAV files crafted byte by byte: the engine suites and the WAV fuzzer's seed corpus build their
// odd and well-formed files with the same builder. No test framework here.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace engine_test {

// Builds a RIFF file chunk by chunk, with the sizes it is told rather than the true ones when asked.
class RiffBuilder {
public:
    explicit RiffBuilder(const char* riff = "RIFF", const char* wave = "WAVE")
    {
        Bytes(riff, 4);
        Le32(0);
        Bytes(wave, 4);
    }

    RiffBuilder& Chunk(const char* id, const std::vector<unsigned char>& body, bool pad = true)
    {
        return ChunkWithSize(id, static_cast<std::uint32_t>(body.size()), body, pad);
    }

    RiffBuilder& ChunkWithSize(const char* id, std::uint32_t size, const std::vector<unsigned char>& body,
                               bool pad = true)
    {
        Bytes(id, 4);
        Le32(size);
        m_bytes.insert(m_bytes.end(), body.begin(), body.end());
        if (pad && (body.size() & 1))
            m_bytes.push_back(0);
        return *this;
    }

    std::vector<unsigned char> Build() const
    {
        std::vector<unsigned char> bytes = m_bytes;
        const auto riffSize = static_cast<std::uint32_t>(bytes.size() - 8);
        for (int i = 0; i < 4; ++i)
            bytes[4 + i] = static_cast<unsigned char>(riffSize >> (8 * i));
        return bytes;
    }

    static std::vector<unsigned char> Le16Bytes(std::uint16_t value)
    {
        return {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8)};
    }

    static std::vector<unsigned char> Le32Bytes(std::uint32_t value)
    {
        return {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
                static_cast<unsigned char>(value >> 16), static_cast<unsigned char>(value >> 24)};
    }

    // A 16-byte plain PCM format block.
    static std::vector<unsigned char> PCMFormat(std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                                                std::uint16_t tag = 1)
    {
        std::vector<unsigned char> f;
        const auto blockAlign = static_cast<std::uint16_t>(channels * bits / 8);
        Append(f, Le16Bytes(tag));
        Append(f, Le16Bytes(channels));
        Append(f, Le32Bytes(rate));
        Append(f, Le32Bytes(rate * blockAlign));
        Append(f, Le16Bytes(blockAlign));
        Append(f, Le16Bytes(bits));
        return f;
    }

    // A 40-byte extensible format block with the given channel mask.
    static std::vector<unsigned char> ExtensibleFormat(std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                                                       std::uint32_t mask)
    {
        std::vector<unsigned char> f = PCMFormat(channels, rate, bits, 0xFFFE);
        Append(f, Le16Bytes(22));
        Append(f, Le16Bytes(bits));
        Append(f, Le32Bytes(mask));
        const unsigned char pcmSubFormat[16] = {1, 0, 0, 0, 0, 0, 0x10, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
        f.insert(f.end(), pcmSubFormat, pcmSubFormat + 16);
        return f;
    }

private:
    static void Append(std::vector<unsigned char>& to, const std::vector<unsigned char>& bytes)
    {
        to.insert(to.end(), bytes.begin(), bytes.end());
    }
    void Bytes(const char* text, std::size_t count) { m_bytes.insert(m_bytes.end(), text, text + count); }
    void Le32(std::uint32_t value) { Append(m_bytes, Le32Bytes(value)); }

    std::vector<unsigned char> m_bytes;
};

// A crafted, well-formed 16-bit PCM file of the given number of frames of a square wave, the same in
// each of its channels.
inline std::vector<unsigned char> SmallWave(std::uint16_t channels, std::size_t samples = 64,
                                            std::uint32_t rate = 22050)
{
    std::vector<unsigned char> data;
    for (std::size_t i = 0; i < samples; ++i) {
        const std::int16_t value = (i / 8) % 2 ? 8000 : -8000;
        for (std::uint16_t c = 0; c < channels; ++c) {
            data.push_back(static_cast<unsigned char>(value & 0xFF));
            data.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
        }
    }
    return RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(channels, rate, 16)).Chunk("data", data).Build();
}

inline std::vector<unsigned char> SmallMonoWave(std::size_t samples = 64, std::uint32_t rate = 22050)
{
    return SmallWave(1, samples, rate);
}

} // namespace engine_test
