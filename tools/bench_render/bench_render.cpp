// Renders 60 seconds of a scene of 16 looping sources sent into 4 slots (EAX reverb, reverb, echo,
// chorus), twice a round: (a) by the renderer, from the snapshot of a live scene to frames in
// memory, scene rebuilt included; (b) by bare OpenAL calls that build the same scene on a loopback
// device and render it into the same kind of buffer. Prints the medians of the rounds, the speeds
// against real time and the ratio of the two.

#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "engine/EffectTokens.h"
#include "engine/LoopbackRenderer.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <AL/efx.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int kSources = 16;
constexpr int kSlots = 4;
constexpr double kSeconds = 60.0;
constexpr int kRounds = 5;
constexpr int kBlock = 1024;
constexpr int kEffects[kSlots] = {kEffectEAXReverb, kEffectReverb, kEffectEcho, kEffectChorus};

using Clock = std::chrono::steady_clock;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <typename F>
F Proc(const char* name)
{
    return reinterpret_cast<F>(alGetProcAddress(name));
}

// The same scene with nothing but OpenAL: device, context, slots with their effects, buffers and
// looping sources with their sends, then the blocks.
double BareRender(const SceneSnapshot& scene, std::vector<float>& out)
{
    const auto start = Clock::now();
    auto openLoopback = reinterpret_cast<LPALCLOOPBACKOPENDEVICESOFT>(alcGetProcAddress(nullptr, "alcLoopbackOpenDeviceSOFT"));
    auto renderSamples = reinterpret_cast<LPALCRENDERSAMPLESSOFT>(alcGetProcAddress(nullptr, "alcRenderSamplesSOFT"));
    auto setThreadContext = reinterpret_cast<PFNALCSETTHREADCONTEXTPROC>(alcGetProcAddress(nullptr, "alcSetThreadContext"));
    ALCdevice* device = openLoopback(nullptr);
    const ALCint attributes[] = {ALC_FREQUENCY, scene.frequency, ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT,
                                 ALC_FORMAT_TYPE_SOFT, ALC_FLOAT_SOFT, ALC_MAX_AUXILIARY_SENDS, 4, 0};
    ALCcontext* context = alcCreateContext(device, attributes);
    setThreadContext(context);
    ALuint slots[kSlots], effects[kSlots];
    Proc<LPALGENAUXILIARYEFFECTSLOTS>("alGenAuxiliaryEffectSlots")(kSlots, slots);
    Proc<LPALGENEFFECTS>("alGenEffects")(kSlots, effects);
    for (int i = 0; i < kSlots; ++i) {
        Proc<LPALEFFECTI>("alEffecti")(effects[i], AL_EFFECT_TYPE, ALEffectTypeOf(kEffects[i]));
        Proc<LPALAUXILIARYEFFECTSLOTI>("alAuxiliaryEffectSloti")(slots[i], AL_EFFECTSLOT_EFFECT,
                                                                 static_cast<ALint>(effects[i]));
    }
    std::vector<ALuint> sources(kSources), buffers(kSources);
    alGenSources(kSources, sources.data());
    alGenBuffers(kSources, buffers.data());
    for (int i = 0; i < kSources; ++i) {
        const SourceSnapshot& snapshot = scene.sources[static_cast<std::size_t>(i)];
        alBufferData(buffers[i], alGetEnumValue("AL_FORMAT_MONO_FLOAT32"), snapshot.samples.data(),
                     static_cast<ALsizei>(snapshot.samples.size() * sizeof(float)), snapshot.sampleRate);
        alSourcei(sources[i], AL_BUFFER, static_cast<ALint>(buffers[i]));
        alSourcei(sources[i], AL_LOOPING, AL_TRUE);
        alSource3f(sources[i], AL_POSITION, static_cast<float>(i % 4) - 1.5f, 0, -2);
        alSource3i(sources[i], AL_AUXILIARY_SEND_FILTER, static_cast<ALint>(slots[i % kSlots]), 0, AL_FILTER_NULL);
    }
    alSourcePlayv(kSources, sources.data());
    const auto frames = static_cast<std::size_t>(kSeconds * scene.frequency);
    out.resize(frames * 2);
    for (std::size_t done = 0; done < frames; done += kBlock)
        renderSamples(device, out.data() + 2 * done, static_cast<ALCsizei>(std::min<std::size_t>(kBlock, frames - done)));
    alDeleteSources(kSources, sources.data());
    alDeleteBuffers(kSources, buffers.data());
    Proc<LPALDELETEAUXILIARYEFFECTSLOTS>("alDeleteAuxiliaryEffectSlots")(kSlots, slots);
    Proc<LPALDELETEEFFECTS>("alDeleteEffects")(kSlots, effects);
    setThreadContext(nullptr);
    alcDestroyContext(context);
    alcCloseDevice(device);
    return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace

int main()
{
    EFX_Factory::SelectDevice("");
    EFX_Factory* factory = EFX_Factory::Create();
    if (!factory->Initialize(0, 4)) {
        std::fprintf(stderr, "bench_render: no EFX device\n");
        return 1;
    }
    for (int i = 0; i < kSlots; ++i)
        factory->CreateEffectSlot(static_cast<std::uint32_t>(i))->LoadEffect(kEffects[i]);
    // The live scene: slots as loaded; its sources are given as samples, a second of a tone each.
    SceneSnapshot scene = CaptureScene(*factory, {});
    for (int i = 0; i < kSources; ++i) {
        SourceSnapshot source;
        source.sampleRate = scene.frequency;
        source.samples.resize(static_cast<std::size_t>(scene.frequency));
        for (std::size_t n = 0; n < source.samples.size(); ++n)
            source.samples[n] = 0.1f * static_cast<float>(std::sin(6.2831853 * (220.0 + 55.0 * i) * n / scene.frequency));
        source.looping = true;
        source.vectors.push_back({AL_POSITION, {static_cast<float>(i % 4) - 1.5f, 0, -2}});
        source.sends[0].slot = i % kSlots;
        scene.sources.push_back(source);
    }
    RenderOptions options;
    options.length = kSeconds;
    options.tail = 0;
    options.blockFrames = kBlock;

    std::vector<double> ours, bare;
    std::vector<float> frames;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        const RenderResult result = RenderScene(scene, options, frames);
        ours.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        if (!result.ok) {
            std::fprintf(stderr, "bench_render: %s\n", result.error.c_str());
            return 1;
        }
        bare.push_back(BareRender(scene, frames));
    }
    const double oursMedian = Median(ours);
    const double bareMedian = Median(bare);
    std::printf("%g s of %d sources into %d slots at %d Hz, median of %d rounds\n", kSeconds, kSources, kSlots,
                scene.frequency, kRounds);
    std::printf("renderer:   %.3f s (%.0fx real time)\n", oursMedian, kSeconds / oursMedian);
    std::printf("bare calls: %.3f s (%.0fx real time)\n", bareMedian, kSeconds / bareMedian);
    std::printf("renderer speed / bare speed: %.2f   (aims: at least 0.9, and at least 50x real time)\n",
                bareMedian / oursMedian);
    factory->Shutdown();
    delete factory;
    return 0;
}
