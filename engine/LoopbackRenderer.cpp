#include "engine/LoopbackRenderer.h"

#include "engine/CWaves.h"
#include "engine/EffectTokens.h"

#include <AL/al.h>
#include <AL/alext.h>
#include <AL/efx.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

template <typename F>
F AlcProc(const char* name)
{
    return reinterpret_cast<F>(alcGetProcAddress(nullptr, name));
}
template <typename F>
F AlProc(const char* name)
{
    return reinterpret_cast<F>(alGetProcAddress(name));
}

// The entry points of the two extensions and of EFX, resolved once, from OpenAL itself and not
// through the engine's resolver: the loopback device is not the live engine, and a test's stand-in
// for one of the live engine's calls must not see (or be raced by) a render on another thread.
struct Entry {
    LPALCLOOPBACKOPENDEVICESOFT openLoopback = AlcProc<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT");
    LPALCISRENDERFORMATSUPPORTEDSOFT formatSupported =
        AlcProc<LPALCISRENDERFORMATSUPPORTEDSOFT>("alcIsRenderFormatSupportedSOFT");
    LPALCRENDERSAMPLESSOFT renderSamples = AlcProc<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
    PFNALCSETTHREADCONTEXTPROC setThreadContext = AlcProc<PFNALCSETTHREADCONTEXTPROC>("alcSetThreadContext");
    LPALGENEFFECTS genEffects = AlProc<LPALGENEFFECTS>("alGenEffects");
    LPALDELETEEFFECTS deleteEffects = AlProc<LPALDELETEEFFECTS>("alDeleteEffects");
    LPALEFFECTI effecti = AlProc<LPALEFFECTI>("alEffecti");
    LPALEFFECTF effectf = AlProc<LPALEFFECTF>("alEffectf");
    LPALEFFECTFV effectfv = AlProc<LPALEFFECTFV>("alEffectfv");
    LPALGENAUXILIARYEFFECTSLOTS genSlots = AlProc<LPALGENAUXILIARYEFFECTSLOTS>("alGenAuxiliaryEffectSlots");
    LPALDELETEAUXILIARYEFFECTSLOTS deleteSlots =
        AlProc<LPALDELETEAUXILIARYEFFECTSLOTS>("alDeleteAuxiliaryEffectSlots");
    LPALAUXILIARYEFFECTSLOTI sloti = AlProc<LPALAUXILIARYEFFECTSLOTI>("alAuxiliaryEffectSloti");
    LPALAUXILIARYEFFECTSLOTF slotf = AlProc<LPALAUXILIARYEFFECTSLOTF>("alAuxiliaryEffectSlotf");
    LPALGENFILTERS genFilters = AlProc<LPALGENFILTERS>("alGenFilters");
    LPALDELETEFILTERS deleteFilters = AlProc<LPALDELETEFILTERS>("alDeleteFilters");
    LPALFILTERI filteri = AlProc<LPALFILTERI>("alFilteri");
    LPALFILTERF filterf = AlProc<LPALFILTERF>("alFilterf");
};

const Entry& Entries()
{
    static const Entry entry;
    return entry;
}

constexpr float kDecayedPeak = 3.1623e-5f; // -90 dBFS

float Peak(const std::vector<float>& block, std::size_t count)
{
    float peak = 0;
    for (std::size_t i = 0; i < count; ++i)
        peak = std::max(peak, std::fabs(block[i]));
    return peak;
}

} // namespace

LoopbackRenderer::~LoopbackRenderer()
{
    Release();
}

bool LoopbackRenderer::Fail(const std::string& error)
{
    m_error = error;
    return false;
}

void LoopbackRenderer::Release()
{
    const Entry& al = Entries();
    if (m_context) {
        alSourceStopv(static_cast<ALsizei>(m_sources.size()), m_sources.data());
        alDeleteSources(static_cast<ALsizei>(m_sources.size()), m_sources.data());
        alDeleteBuffers(static_cast<ALsizei>(m_buffers.size()), m_buffers.data());
        al.deleteFilters(static_cast<ALsizei>(m_filters.size()), m_filters.data());
        al.deleteSlots(static_cast<ALsizei>(m_slots.size()), m_slots.data());
        al.deleteEffects(static_cast<ALsizei>(m_effects.size()), m_effects.data());
        al.setThreadContext(nullptr);
        alcDestroyContext(m_context);
    }
    if (m_device)
        alcCloseDevice(m_device);
    m_context = nullptr;
    m_device = nullptr;
    m_slots.clear();
    m_effects.clear();
    m_sources.clear();
    m_buffers.clear();
    m_filters.clear();
}

bool LoopbackRenderer::Open(const SceneSnapshot& scene)
{
    Release();
    const Entry& al = Entries();
    if (!al.openLoopback || !al.renderSamples || !al.setThreadContext || !al.genEffects)
        return Fail("this OpenAL has no loopback device or no thread-local context");
    m_frequency = scene.frequency > 0 ? scene.frequency : 44100;
    m_device = al.openLoopback(nullptr);
    if (!m_device)
        return Fail("the loopback device cannot be opened");
    if (!al.formatSupported(m_device, m_frequency, ALC_STEREO_SOFT, ALC_FLOAT_SOFT))
        return Fail("the loopback device does not render 32-bit float stereo at " + std::to_string(m_frequency) + " Hz");
    const ALCint attributes[] = {ALC_FREQUENCY,           m_frequency,    ALC_FORMAT_CHANNELS_SOFT,
                                 ALC_STEREO_SOFT,         ALC_FORMAT_TYPE_SOFT, ALC_FLOAT_SOFT,
                                 ALC_MAX_AUXILIARY_SENDS, 4,              0};
    m_context = alcCreateContext(m_device, attributes);
    if (!m_context || !al.setThreadContext(m_context))
        return Fail("the loopback context cannot be made");

    const ListenerSnapshot& listener = scene.listener;
    alListenerfv(AL_POSITION, listener.position.data());
    alListenerfv(AL_VELOCITY, listener.velocity.data());
    alListenerfv(AL_ORIENTATION, listener.orientation.data());
    alListenerf(AL_GAIN, listener.gain);
    alListenerf(AL_METERS_PER_UNIT, listener.metersPerUnit);
    alDistanceModel(listener.distanceModel);
    alDopplerFactor(listener.dopplerFactor);
    alSpeedOfSound(listener.speedOfSound);
    BuildSlots(scene);
    return BuildSources(scene);
}

void LoopbackRenderer::BuildSlots(const SceneSnapshot& scene)
{
    const Entry& al = Entries();
    for (const SlotSnapshot& snapshot : scene.slots) {
        ALuint slot = 0;
        ALuint effect = 0;
        al.genSlots(1, &slot);
        al.genEffects(1, &effect);
        m_slots.push_back(slot);
        m_effects.push_back(effect);
        if (snapshot.effectType != 0) {
            al.effecti(effect, AL_EFFECT_TYPE, ALEffectTypeOf(snapshot.effectType));
            for (const EffectValue& value : snapshot.values) {
                if (value.kind == 0)
                    al.effectf(effect, value.token, value.f[0]);
                else if (value.kind == 2)
                    al.effectfv(effect, value.token, value.f.data());
                else
                    al.effecti(effect, value.token, value.i);
            }
            al.sloti(slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(effect));
        }
        al.slotf(slot, AL_EFFECTSLOT_GAIN, snapshot.gain);
        al.sloti(slot, AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, snapshot.sendAuto);
    }
    alGetError();
}

bool LoopbackRenderer::BuildSources(const SceneSnapshot& scene)
{
    const Entry& al = Entries();
    auto lowpass = [&](bool filtered, float gain, float gainHF) -> ALuint {
        if (!filtered)
            return AL_FILTER_NULL;
        ALuint filter = 0;
        al.genFilters(1, &filter);
        al.filteri(filter, AL_FILTER_TYPE, AL_FILTER_LOWPASS);
        al.filterf(filter, AL_LOWPASS_GAIN, gain);
        al.filterf(filter, AL_LOWPASS_GAINHF, gainHF);
        m_filters.push_back(filter);
        return filter;
    };
    CWaves waves;
    for (const SourceSnapshot& snapshot : scene.sources) {
        ALuint buffer = 0;
        alGenBuffers(1, &buffer);
        m_buffers.push_back(buffer);
        alGetError();
        if (!snapshot.samples.empty()) {
            alBufferData(buffer, alGetEnumValue("AL_FORMAT_MONO_FLOAT32"), snapshot.samples.data(),
                         static_cast<ALsizei>(snapshot.samples.size() * sizeof(float)), snapshot.sampleRate);
        } else {
            int id = -1;
            if (waves.LoadWaveFile(snapshot.path.c_str(), &id) < 0)
                return Fail("cannot read " + snapshot.path);
            void* data = nullptr;
            std::uint32_t size = 0, frequency = 0;
            ALenum format = 0;
            waves.GetWaveData(id, &data);
            waves.GetWaveSize(id, &size);
            waves.GetWaveFrequency(id, &frequency);
            waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
            alBufferData(buffer, format, data, static_cast<ALsizei>(size), static_cast<ALsizei>(frequency));
            waves.DeleteWaveFile(id);
        }
        if (alGetError() != AL_NO_ERROR)
            return Fail("cannot make a buffer of " + (snapshot.path.empty() ? std::string("samples") : snapshot.path));
        ALint bytes = 0, bits = 0, channels = 0, frequency = 0;
        alGetBufferi(buffer, AL_SIZE, &bytes);
        alGetBufferi(buffer, AL_BITS, &bits);
        alGetBufferi(buffer, AL_CHANNELS, &channels);
        alGetBufferi(buffer, AL_FREQUENCY, &frequency);
        if (bits > 0 && channels > 0 && frequency > 0)
            m_longest = std::max(m_longest, bytes / (bits / 8.0 * channels) / frequency);

        ALuint source = 0;
        alGenSources(1, &source);
        m_sources.push_back(source);
        alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
        alSourcei(source, AL_LOOPING, snapshot.looping ? AL_TRUE : AL_FALSE);
        for (const auto& [token, value] : snapshot.floats)
            alSourcef(source, token, value);
        for (const auto& [token, value] : snapshot.vectors)
            alSourcefv(source, token, value.data());
        for (const auto& [token, value] : snapshot.integers)
            alSourcei(source, token, value);
        alSourcei(source, AL_DIRECT_FILTER,
                  static_cast<ALint>(lowpass(snapshot.directFiltered, snapshot.directGain, snapshot.directGainHF)));
        for (int send = 0; send < 4; ++send) {
            const SendSnapshot& route = snapshot.sends[static_cast<std::size_t>(send)];
            if (route.slot < 0 || route.slot >= static_cast<int>(m_slots.size()))
                continue;
            const ALuint filter = lowpass(route.filtered, route.gain, route.gainHF);
            alSource3i(source, AL_AUXILIARY_SEND_FILTER, static_cast<ALint>(m_slots[static_cast<std::size_t>(route.slot)]),
                       send, static_cast<ALint>(filter));
        }
        alGetError();
    }
    return true;
}

void LoopbackRenderer::Play()
{
    if (!m_sources.empty())
        alSourcePlayv(static_cast<ALsizei>(m_sources.size()), m_sources.data());
}

void LoopbackRenderer::StopSources()
{
    if (!m_sources.empty())
        alSourceStopv(static_cast<ALsizei>(m_sources.size()), m_sources.data());
}

void LoopbackRenderer::Render(float* out, int frames)
{
    Entries().renderSamples(m_device, out, frames);
}

namespace {

// The render loop that both outputs share: the sources for the length, then the tail; each block is
// handed to `take`, which returns false on a failure.
RenderResult RenderBlocks(const SceneSnapshot& scene, const RenderOptions& options,
                          const std::function<bool(const float*, std::size_t)>& take, std::string& error)
{
    RenderResult result;
    LoopbackRenderer renderer;
    if (!renderer.Open(scene)) {
        result.error = renderer.Error();
        return result;
    }
    result.frequency = renderer.Frequency();
    const double frequency = renderer.Frequency();
    const double length = options.length >= 0 ? options.length : renderer.LongestSource();
    const bool automaticTail = options.tail < 0;
    const double tail = automaticTail ? RenderOptions::kMaxAutomaticTail : options.tail;
    const auto mainFrames = static_cast<std::size_t>(std::llround(length * frequency));
    const auto tailFrames = static_cast<std::size_t>(std::llround(tail * frequency));
    const std::size_t block = static_cast<std::size_t>(std::max(options.blockFrames, 1));
    std::vector<float> samples(block * LoopbackRenderer::kChannels);

    renderer.Play();
    std::size_t done = 0;
    bool stopped = false;
    while (true) {
        if (!stopped && done >= mainFrames) {
            renderer.StopSources();
            stopped = true;
        }
        const std::size_t end = stopped ? mainFrames + tailFrames : mainFrames;
        if (done >= end)
            break;
        const std::size_t frames = std::min(block, end - done);
        renderer.Render(samples.data(), static_cast<int>(frames));
        if (!take(samples.data(), frames)) {
            result.error = error;
            return result;
        }
        done += frames;
        result.frames = done;
        if (options.progress && !options.progress(static_cast<double>(done) / static_cast<double>(mainFrames + tailFrames))) {
            result.cancelled = true;
            return result;
        }
        if (stopped && automaticTail && Peak(samples, frames * LoopbackRenderer::kChannels) < kDecayedPeak)
            break;
    }
    result.ok = true;
    return result;
}

} // namespace

RenderResult RenderScene(const SceneSnapshot& scene, const RenderOptions& options, std::vector<float>& frames)
{
    frames.clear();
    std::string error;
    return RenderBlocks(
        scene, options,
        [&frames](const float* block, std::size_t count) {
            frames.insert(frames.end(), block, block + count * LoopbackRenderer::kChannels);
            return true;
        },
        error);
}

RenderResult RenderSceneToWave(const SceneSnapshot& scene, const RenderOptions& options, const std::string& path)
{
    const std::string partial = path + ".partial";
    WaveWriter writer;
    RenderResult result;
    if (!writer.Open(partial, LoopbackRenderer::kChannels, scene.frequency > 0 ? scene.frequency : 44100,
                     options.sample)) {
        result.error = "Cannot write " + path + ": " + writer.Error();
        std::remove(partial.c_str());
        return result;
    }
    std::string error;
    result = RenderBlocks(
        scene, options,
        [&](const float* block, std::size_t count) {
            if (writer.Write(block, count))
                return true;
            error = "Cannot write " + path + ": " + writer.Error();
            return false;
        },
        error);
    const bool closed = writer.Close();
    if (result.ok && !closed) {
        result.ok = false;
        result.error = "Cannot write " + path + ": " + writer.Error();
    }
    if (result.ok && std::rename(partial.c_str(), path.c_str()) != 0) {
        result.ok = false;
        result.error = "Cannot write " + path + ": the finished file cannot take its name";
    }
    if (!result.ok)
        std::remove(partial.c_str());
    return result;
}
