#pragma once

// Writes a RIFF WAVE file of interleaved frames, as 32-bit IEEE floats or 16-bit PCM. The header's
// sizes are filled in when the file is closed. Writes go to the path given; the caller decides
// where that is (the renderer writes beside the final name and renames at the end).

#include <cstdint>
#include <cstdio>
#include <string>

class WaveWriter {
public:
    enum class Sample { Float32, Int16 };

    WaveWriter() = default;
    ~WaveWriter();
    WaveWriter(const WaveWriter&) = delete;
    WaveWriter& operator=(const WaveWriter&) = delete;

    // False, with the system's reason in Error(), when the file cannot be made.
    bool Open(const std::string& path, int channels, int frequency, Sample sample);
    // Frames of `channels` floats each; 16-bit output is clipped to full scale.
    bool Write(const float* frames, std::size_t frameCount);
    // Completes the header and closes; false if anything was not written.
    bool Close();
    const std::string& Error() const { return m_error; }

private:
    bool Fail(const char* what);

    std::FILE* m_file = nullptr;
    int m_channels = 0;
    int m_frequency = 0;
    Sample m_sample = Sample::Float32;
    std::uint64_t m_dataBytes = 0;
    std::string m_error;
};
