// The twelve typed primitives of the slot: every slot and effect property passes through one of
// them, with its AL token and its name string for the messages.
#include "engine/EFX_EffectSlot.h"

#include "engine/LogMessage.h"

namespace {

// Bools travel as exactly 0 or 1, whatever the caller passed or OpenAL stored.
ALint ToALBool(int value)
{
    return value ? 1 : 0;
}

int FromALBool(ALint value)
{
    return value == 1 ? 1 : 0;
}

} // namespace

int EFX_EffectSlot::SetSlotBool(int value, ALenum token, const char* name)
{
    if (!alAuxiliaryEffectSloti) {
        AppendLog(LogMessage("No alAuxiliaryEffectSloti entry point, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alAuxiliaryEffectSloti(m_slot, token, ToALBool(value));
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting EFX Aux Slot %s property: alAuxiliaryEffectSloti() failed", name).Text());
        return 0;
    }
    AppendLog(name, " property set");
    return 1;
}

int EFX_EffectSlot::SetSlotFloat(float value, ALenum token, const char* name)
{
    if (!alAuxiliaryEffectSlotf) {
        AppendLog(LogMessage("No alAuxiliaryEffectSlotf entry point, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alAuxiliaryEffectSlotf(m_slot, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting EFX Aux Slot %s property: alAuxiliaryEffectSlotf() failed", name).Text());
        return 0;
    }
    AppendLog(name, " property set");
    return 1;
}

int EFX_EffectSlot::GetSlotBool(int* value, ALenum token, const char* name)
{
    if (!alGetAuxiliaryEffectSloti) {
        AppendLog(LogMessage("No alGetAuxiliaryEffectSloti entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    ALint stored = 0;
    alGetAuxiliaryEffectSloti(m_slot, token, &stored);
    // Converted and written before the error test, so a failed get leaves 0 behind.
    *value = FromALBool(stored);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Slot object: alGetAuxiliaryEffectSloti() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_EffectSlot::GetSlotFloat(float* value, ALenum token, const char* name)
{
    if (!alGetAuxiliaryEffectSlotf) {
        AppendLog(LogMessage("No alGetAuxiliaryEffectSlotf entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetAuxiliaryEffectSlotf(m_slot, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Slot object: alGetAuxiliaryEffectSlotf() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_EffectSlot::CommitEffect(const char* name, int deferred)
{
    ClearALError();
    if (deferred) {
        AppendLog(name, " property set (deferred)");
        return 1;
    }
    // The slot plays from its own copy of the effect: only attaching it again makes the change heard.
    alAuxiliaryEffectSloti(m_slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(m_effect));
    if (!CheckALError()) {
        AppendLog("Error loading EFX Effect object in EFX Aux Slot object: alAuxiliaryEffectSloti() failed");
        return 0;
    }
    AppendLog(name, " property set");
    return 1;
}

int EFX_EffectSlot::SetEffectBool(int value, ALenum token, const char* name, int deferred)
{
    return SetEffectLong(ToALBool(value), token, name, deferred);
}

int EFX_EffectSlot::SetEffectLong(int value, ALenum token, const char* name, int deferred)
{
    if (!alEffecti) {
        AppendLog(LogMessage("No alEffecti entry point, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alEffecti(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting %s in EFX Effect object: alEffecti() failed", name).Text());
        return 0;
    }
    return CommitEffect(name, deferred);
}

int EFX_EffectSlot::SetEffectFloat(float value, ALenum token, const char* name, int deferred)
{
    if (!alEffectf) {
        AppendLog(LogMessage("No alEffectf entry point, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alEffectf(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting %s in EFX Effect object: alEffectf() failed", name).Text());
        return 0;
    }
    return CommitEffect(name, deferred);
}

int EFX_EffectSlot::SetEffectVector(const float value[3], ALenum token, const char* name, int deferred)
{
    if (!alEffectfv) {
        AppendLog(LogMessage("No alEffectfv entry point, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alEffectfv(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting %s in EFX Effect object: alEffectfv() failed", name).Text());
        return 0;
    }
    return CommitEffect(name, deferred);
}

int EFX_EffectSlot::GetEffectFloat(float* value, ALenum token, const char* name)
{
    if (!alGetEffectf) {
        AppendLog(LogMessage("No alGetEffectf entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetEffectf(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Effect object: alGetEffectf() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_EffectSlot::GetEffectVector(float value[3], ALenum token, const char* name)
{
    if (!alGetEffectfv) {
        AppendLog(LogMessage("No alGetEffectfv entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetEffectfv(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Effect object: alGetEffectfv() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_EffectSlot::GetEffectLong(int* value, ALenum token, const char* name)
{
    if (!alGetEffecti) {
        AppendLog(LogMessage("No alGetEffecti entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetEffecti(m_effect, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Effect object: alGetEffecti() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_EffectSlot::GetEffectBool(int* value, ALenum token, const char* name)
{
    if (!alGetEffecti) {
        AppendLog(LogMessage("No alGetEffecti entry point, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    ALint stored = 0;
    alGetEffecti(m_effect, token, &stored);
    // Converted and written before the error test, so a failed get leaves 0 behind.
    *value = FromALBool(stored);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from EFX Effect object: alGetEffecti() failed", name).Text());
        return 0;
    }
    return 1;
}
