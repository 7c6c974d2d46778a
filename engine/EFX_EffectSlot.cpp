// The slot core: entry points, the effect object, loading an effect type, the slot's own
// properties and the typed primitives through which every effect property passes.
#include "engine/EFX_EffectSlot.h"

#include "engine/LogMessage.h"
#include "engine/ProcAddress.h"

namespace {

// The AL effect type of each EffectType, indexed by the EffectType.
constexpr ALint kEffectTypes[kNumEffectTypes] = {
    AL_EFFECT_NULL,
    AL_EFFECT_EAXREVERB,
    AL_EFFECT_REVERB,
    AL_EFFECT_COMPRESSOR,
    AL_EFFECT_AUTOWAH,
    AL_EFFECT_CHORUS,
    AL_EFFECT_DISTORTION,
    AL_EFFECT_ECHO,
    AL_EFFECT_EQUALIZER,
    AL_EFFECT_FLANGER,
    AL_EFFECT_VOCAL_MORPHER,
    AL_EFFECT_PITCH_SHIFTER,
    AL_EFFECT_RING_MODULATOR,
    AL_EFFECT_FREQUENCY_SHIFTER,
};

} // namespace

EFX_EffectSlot::EFX_EffectSlot(std::uint32_t index, ALuint slot)
    : m_slot(slot)
    , m_index(index)
{
}

template <typename FunctionPointer>
bool EFX_EffectSlot::ResolveEntryPoint(FunctionPointer& target, const char* name, const char* points)
{
    if (efx_proc::ResolveInto(target, name))
        return true;
    AppendLog(LogMessage("EFX extension: %s is unavailable%s\n", name, points).Text());
    return false;
}

int EFX_EffectSlot::InitializeEAXSupport()
{
    // Three of the miss lines end with a single point; they always have.
    const bool resolved = ResolveEntryPoint(alGenEffects, "alGenEffects", "..")
        && ResolveEntryPoint(alDeleteEffects, "alDeleteEffects", "..")
        && ResolveEntryPoint(alIsEffect, "alIsEffect", "..")
        && ResolveEntryPoint(alEffecti, "alEffecti", "..")
        && ResolveEntryPoint(alEffectiv, "alEffectiv", "..")
        && ResolveEntryPoint(alEffectf, "alEffectf", "..")
        && ResolveEntryPoint(alEffectfv, "alEffectfv", ".")
        && ResolveEntryPoint(alGetEffecti, "alGetEffecti", ".")
        && ResolveEntryPoint(alGetEffectiv, "alGetEffectiv", "..")
        && ResolveEntryPoint(alGetEffectf, "alGetEffectf", ".")
        && ResolveEntryPoint(alGetEffectfv, "alGetEffectfv", "..")
        && ResolveEntryPoint(alGenAuxiliaryEffectSlots, "alGenAuxiliaryEffectSlots", "..")
        && ResolveEntryPoint(alDeleteAuxiliaryEffectSlots, "alDeleteAuxiliaryEffectSlots", "..")
        && ResolveEntryPoint(alIsAuxiliaryEffectSlot, "alIsAuxiliaryEffectSlot", "..")
        && ResolveEntryPoint(alAuxiliaryEffectSloti, "alAuxiliaryEffectSloti", "..")
        && ResolveEntryPoint(alAuxiliaryEffectSlotf, "alAuxiliaryEffectSlotf", "..")
        && ResolveEntryPoint(alGetAuxiliaryEffectSloti, "alGetAuxiliaryEffectSloti", "..")
        && ResolveEntryPoint(alGetAuxiliaryEffectSlotf, "alGetAuxiliaryEffectSlotf", "..");
    if (!resolved)
        return 0;

    ClearALError();
    alGenEffects(1, &m_effect);
    // A slot without an effect object is still a slot: its panel opens and each effect operation
    // then fails on its own.
    if (!CheckALError() || alIsEffect(m_effect) != AL_TRUE)
        AppendLog("EFX_EffectSlot::InitializeEAXSupport() failed: alGenEffects() failed");
    return 1;
}

int EFX_EffectSlot::LoadEffect(int type)
{
    if (!alEffecti) {
        AppendLog("No alEffecti entry point, cannot load effect");
        return 0;
    }
    if (static_cast<unsigned>(type) >= static_cast<unsigned>(kNumEffectTypes)) {
        AppendLog("Unknown effect, Load failed");
        return 0;
    }
    ClearALError();
    alEffecti(m_effect, AL_EFFECT_TYPE, kEffectTypes[type]);
    if (!CheckALError()) {
        AppendLog("Error loading effect type in EFX Effect object: alEffecti() failed");
        return 0;
    }
    ClearALError();
    alAuxiliaryEffectSloti(m_slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(m_effect));
    if (!CheckALError()) {
        AppendLog("Error loading EFX Effect object in EFX Aux Slot object: alAuxiliaryEffectSloti() failed");
        return 0;
    }
    AppendLog("Load Effect successful (AL_EFFECT_TYPE and AL_EFFECTSLOT_EFFECT set)");
    return 1;
}

int EFX_EffectSlot::LoadDefaultEffect()
{
    return LoadEffect(kEffectEAXReverb);
}

int EFX_EffectSlot::UnloadEffect()
{
    return LoadEffect(kEffectNone);
}

int EFX_EffectSlot::GetEffect(int* type)
{
    if (!alGetEffecti) {
        AppendLog("No alGetEffecti entry point, cannot get effect type");
        return 0;
    }
    ClearALError();
    ALint value = AL_EFFECT_NULL;
    alGetEffecti(m_effect, AL_EFFECT_TYPE, &value);
    int found = -1;
    for (int number = 0; number < kNumEffectTypes; ++number) {
        if (kEffectTypes[number] == value)
            found = number;
    }
    if (found < 0) {
        AppendLog("Unknown effect found, EFX_EffectSlot::GetEffect() failed");
        return 0;
    }
    // The AL error is looked at only after the mapping.
    if (!CheckALError()) {
        AppendLog("EFX_EffectSlot::GetEffect() failed: alGetEffecti() failed.");
        return 0;
    }
    *type = found;
    return 1;
}

int EFX_EffectSlot::SetAuxiliarySendAuto(int flag)
{
    return SetSlotBool(flag, AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, "AL_EFFECTSLOT_AUXILIARY_SEND_AUTO");
}

int EFX_EffectSlot::SetGain(float gain)
{
    return SetSlotFloat(gain, AL_EFFECTSLOT_GAIN, "AL_EFFECTSLOT_GAIN");
}

int EFX_EffectSlot::GetAuxiliarySendAuto(int* flag)
{
    // The get spells the name differently from the set; the messages have always shown it so.
    return GetSlotBool(flag, AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, "AL_EFFECTSLOT_AUXSENDAUTO");
}

int EFX_EffectSlot::GetGain(float* gain)
{
    return GetSlotFloat(gain, AL_EFFECTSLOT_GAIN, "AL_EFFECTSLOT_GAIN");
}
