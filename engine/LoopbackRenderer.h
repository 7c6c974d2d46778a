#pragma once

// Offline rendering of a scene on a device of its own: an OpenAL Soft loopback device (32-bit float,
// stereo, the live device's rate) on which the snapshot is rebuilt, rendered in blocks as fast as the
// machine allows. Its context is made current for the calling thread alone (thread-local context),
// so the live context that the user interface drives is never switched: make, use and destroy a
// renderer on one thread, which may be any thread.

#include "engine/SceneSnapshot.h"
#include "engine/WaveWriter.h"

#include <AL/alc.h>

#include <functional>
#include <string>
#include <vector>

class LoopbackRenderer {
public:
    static constexpr int kChannels = 2;

    LoopbackRenderer() = default;
    ~LoopbackRenderer();
    LoopbackRenderer(const LoopbackRenderer&) = delete;
    LoopbackRenderer& operator=(const LoopbackRenderer&) = delete;

    // Opens the device and rebuilds the scene, sources stopped at their start; false with Error().
    bool Open(const SceneSnapshot& scene);
    // Starts every source at once.
    void Play();
    void StopSources();
    // Renders frames of kChannels floats into out.
    void Render(float* out, int frames);
    // The longest source's sound in seconds, at its own rate (0 without sources).
    double LongestSource() const { return m_longest; }
    int Frequency() const { return m_frequency; }
    const std::string& Error() const { return m_error; }

private:
    bool Fail(const std::string& error);
    void BuildSlots(const SceneSnapshot& scene);
    bool BuildSources(const SceneSnapshot& scene);
    void Release();

    ALCdevice* m_device = nullptr;
    ALCcontext* m_context = nullptr;
    int m_frequency = 0;
    double m_longest = 0;
    std::vector<ALuint> m_slots, m_effects, m_sources, m_buffers, m_filters;
    std::string m_error;
};

struct RenderOptions {
    // Seconds that the sources play; below 0, the longest source.
    double length = -1;
    // Seconds after the sources have stopped; below 0, until the output has decayed below -90 dBFS, at
    // most kMaxAutomaticTail.
    double tail = -1;
    WaveWriter::Sample sample = WaveWriter::Sample::Float32;
    int blockFrames = 1024;
    // Called after each block with the part done so far; returning false cancels the render.
    std::function<bool(double)> progress;

    static constexpr double kMaxAutomaticTail = 60.0;
};

struct RenderResult {
    bool ok = false;
    bool cancelled = false;
    std::string error;
    std::size_t frames = 0;
    int frequency = 0;
};

// Renders the scene into interleaved stereo frames.
RenderResult RenderScene(const SceneSnapshot& scene, const RenderOptions& options, std::vector<float>& frames);

// Renders the scene into a WAV file. The frames go to a file beside `path` that takes its name only
// when complete: a cancel or a failure leaves no file under that name and removes the partial one.
RenderResult RenderSceneToWave(const SceneSnapshot& scene, const RenderOptions& options, const std::string& path);
