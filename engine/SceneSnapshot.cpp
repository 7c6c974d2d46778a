#include "engine/SceneSnapshot.h"

#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "engine/EffectTokens.h"

#include <AL/alc.h>
#include <AL/efx.h>

namespace {

template <typename F>
F Proc(const char* name)
{
    return reinterpret_cast<F>(alGetProcAddress(name));
}

// The plain and EFX source properties a render copies, by the call that carries them.
constexpr ALenum kSourceFloats[] = {
    AL_PITCH, AL_GAIN, AL_MIN_GAIN, AL_MAX_GAIN, AL_MAX_DISTANCE, AL_ROLLOFF_FACTOR, AL_REFERENCE_DISTANCE,
    AL_CONE_OUTER_GAIN, AL_CONE_INNER_ANGLE, AL_CONE_OUTER_ANGLE, AL_AIR_ABSORPTION_FACTOR, AL_ROOM_ROLLOFF_FACTOR,
    AL_CONE_OUTER_GAINHF,
};
constexpr ALenum kSourceVectors[] = {AL_POSITION, AL_VELOCITY, AL_DIRECTION};
constexpr ALenum kSourceIntegers[] = {
    AL_SOURCE_RELATIVE, AL_DIRECT_FILTER_GAINHF_AUTO, AL_AUXILIARY_SEND_FILTER_GAIN_AUTO,
    AL_AUXILIARY_SEND_FILTER_GAINHF_AUTO,
};

void FilterGains(ALuint filter, bool& filtered, float& gain, float& gainHF)
{
    static const auto isFilter = Proc<LPALISFILTER>("alIsFilter");
    static const auto getFilterf = Proc<LPALGETFILTERF>("alGetFilterf");
    filtered = filter != 0 && isFilter && isFilter(filter);
    if (!filtered)
        return;
    getFilterf(filter, AL_LOWPASS_GAIN, &gain);
    getFilterf(filter, AL_LOWPASS_GAINHF, &gainHF);
}

SourceSnapshot CaptureSource(EFX_3DSource& live)
{
    SourceSnapshot source;
    const ALuint name = live.SourceObject();
    source.path = live.FilePath();
    ALint looping = AL_FALSE;
    alGetSourcei(name, AL_LOOPING, &looping);
    source.looping = looping == AL_TRUE;
    for (ALenum token : kSourceFloats) {
        float value = 0;
        alGetSourcef(name, token, &value);
        source.floats.emplace_back(token, value);
    }
    for (ALenum token : kSourceVectors) {
        std::array<float, 3> value{};
        alGetSourcefv(name, token, value.data());
        source.vectors.emplace_back(token, value);
    }
    for (ALenum token : kSourceIntegers) {
        ALint value = 0;
        alGetSourcei(name, token, &value);
        source.integers.emplace_back(token, value);
    }
    FilterGains(live.DirectFilterObject(), source.directFiltered, source.directGain, source.directGainHF);
    for (int send = 0; send < 4; ++send) {
        SendSnapshot& out = source.sends[static_cast<std::size_t>(send)];
        out.slot = live.SendSlot(send);
        FilterGains(live.SendFilterObject(send), out.filtered, out.gain, out.gainHF);
    }
    return source;
}

} // namespace

void CaptureEffectValues(ALuint effect, int effectType, SlotSnapshot& slot)
{
    static const auto getEffectf = Proc<LPALGETEFFECTF>("alGetEffectf");
    static const auto getEffecti = Proc<LPALGETEFFECTI>("alGetEffecti");
    static const auto getEffectfv = Proc<LPALGETEFFECTFV>("alGetEffectfv");
    slot.effectType = effectType;
    slot.values.clear();
    for (const EffectToken& property : EffectTokensOf(effectType)) {
        EffectValue value{property.token, 0};
        switch (property.kind) {
        case TokenKind::Float: getEffectf(effect, property.token, value.f.data()); break;
        case TokenKind::Vector:
            value.kind = 2;
            getEffectfv(effect, property.token, value.f.data());
            break;
        default:
            value.kind = 1;
            getEffecti(effect, property.token, &value.i);
            break;
        }
        slot.values.push_back(value);
    }
}

SceneSnapshot CaptureScene(EFX_Factory& factory, const std::vector<EFX_3DSource*>& sources)
{
    static const auto getSlotf = Proc<LPALGETAUXILIARYEFFECTSLOTF>("alGetAuxiliaryEffectSlotf");
    static const auto getSloti = Proc<LPALGETAUXILIARYEFFECTSLOTI>("alGetAuxiliaryEffectSloti");
    SceneSnapshot scene;
    if (ALCcontext* context = alcGetCurrentContext()) {
        ALCint frequency = 0;
        alcGetIntegerv(alcGetContextsDevice(context), ALC_FREQUENCY, 1, &frequency);
        if (frequency > 0)
            scene.frequency = frequency;
    }
    for (std::uint32_t i = 0; i < factory.GetNumEffectSlots(); ++i) {
        SlotSnapshot slot;
        if (EFX_EffectSlot* live = factory.GetEffectSlot(i)) {
            int type = 0;
            live->GetEffect(&type);
            CaptureEffectValues(live->EffectObject(), type, slot);
            const ALuint name = EFX_Factory::GetEffectSlotId(i);
            getSlotf(name, AL_EFFECTSLOT_GAIN, &slot.gain);
            getSloti(name, AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, &slot.sendAuto);
        }
        scene.slots.push_back(slot);
    }
    for (EFX_3DSource* source : sources)
        if (source)
            scene.sources.push_back(CaptureSource(*source));
    ListenerSnapshot& listener = scene.listener;
    alGetListenerfv(AL_POSITION, listener.position.data());
    alGetListenerfv(AL_VELOCITY, listener.velocity.data());
    alGetListenerfv(AL_ORIENTATION, listener.orientation.data());
    alGetListenerf(AL_GAIN, &listener.gain);
    alGetListenerf(AL_METERS_PER_UNIT, &listener.metersPerUnit);
    listener.distanceModel = alGetInteger(AL_DISTANCE_MODEL);
    listener.dopplerFactor = alGetFloat(AL_DOPPLER_FACTOR);
    listener.speedOfSound = alGetFloat(AL_SPEED_OF_SOUND);
    return scene;
}
