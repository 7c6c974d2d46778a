#pragma once

#include "engine/EFX_Base.h"
#include "engine/EffectProperties.def"

#include <AL/al.h>
#include <AL/efx.h>

#include <cstdint>

// The number by which the whole program speaks of an effect type: engine, slot panel and bridge.
enum EffectType : int {
    kEffectNone = 0,
    kEffectEAXReverb = 1,
    kEffectReverb = 2,
    kEffectCompressor = 3,
    kEffectAutowah = 4,
    kEffectChorus = 5,
    kEffectDistortion = 6,
    kEffectEcho = 7,
    kEffectEqualizer = 8,
    kEffectFlanger = 9,
    kEffectVocalMorpher = 10,
    kEffectPitchShifter = 11,
    kEffectRingModulator = 12,
    kEffectFrequencyShifter = 13,
    kNumEffectTypes = 14,
};

// One auxiliary effect slot and the effect object that goes with it. Made and kept by the factory
// until the program ends; neither AL object is deleted here, both go with the context.
//
// Any property operation may be called whatever effect is loaded: OpenAL refuses what does not fit.
// Every effect property set re-attaches the whole effect to the slot, because the slot plays from
// its own copy of the effect's parameters.
class EFX_EffectSlot : public EFX_Base {
public:
    void Release() override { delete this; }

    // Resolves the entry points and generates the effect object. A failed generation is logged but
    // still returns 1: the slot exists and its effect operations fail one by one.
    virtual int InitializeEAXSupport();
    virtual int LoadEffect(int type);
    virtual int LoadDefaultEffect();
    virtual int UnloadEffect();
    // What was last loaded into the effect object, as an EffectType.
    virtual int GetEffect(int* type);
    // The AL effect object, for a render that copies the slot's effect property by property.
    ALuint EffectObject() const { return m_effect; }
    virtual int SetAuxiliarySendAuto(int flag);
    virtual int SetGain(float gain);
    virtual int GetAuxiliarySendAuto(int* flag);
    virtual int GetGain(float* gain);

    // The thirteen effect groups: the default routine, the setters, then the getters, each in the
    // order of the group's list in EffectProperties.def. A default routine does not load its effect.
#define EFX_DECLARE_SETTER(Group, Property, Token, Kind, ...) \
    virtual int Set##Group##Property(EFX_SET_PARAM_##Kind);
#define EFX_DECLARE_GETTER(Group, Property, Token, Kind, ...) \
    virtual int Get##Group##Property(EFX_GET_PARAM_##Kind);
#define EFX_DECLARE_GROUP(Group, Properties) \
    virtual int Set##Group##Defaults(); \
    Properties(EFX_DECLARE_SETTER) \
    Properties(EFX_DECLARE_GETTER)
    EFX_EFFECT_GROUPS(EFX_DECLARE_GROUP)
#undef EFX_DECLARE_GROUP
#undef EFX_DECLARE_GETTER
#undef EFX_DECLARE_SETTER

protected:
    friend class EFX_Factory;
    // Takes the slot index and the AL name of the slot that the factory generated. All entry points
    // are null until InitializeEAXSupport.
    EFX_EffectSlot(std::uint32_t index, ALuint slot);

    // 0: every effect property set attaches the effect to the slot at once. Nothing in the program
    // changes it; the deferred branch of the primitives waits for a caller that batches its sets.
    std::int32_t m_deferred = 0;

private:
    static constexpr float kZeroVector[3] = {0.0f, 0.0f, 0.0f};

    int SetSlotBool(int value, ALenum token, const char* name);
    int SetSlotFloat(float value, ALenum token, const char* name);
    int GetSlotBool(int* value, ALenum token, const char* name);
    int GetSlotFloat(float* value, ALenum token, const char* name);
    int SetEffectBool(int value, ALenum token, const char* name, int deferred);
    int SetEffectLong(int value, ALenum token, const char* name, int deferred);
    int SetEffectFloat(float value, ALenum token, const char* name, int deferred);
    int SetEffectVector(const float value[3], ALenum token, const char* name, int deferred);
    int GetEffectFloat(float* value, ALenum token, const char* name);
    int GetEffectVector(float value[3], ALenum token, const char* name);
    int GetEffectLong(int* value, ALenum token, const char* name);
    int GetEffectBool(int* value, ALenum token, const char* name);

    // The tail shared by the effect setters: attach the effect anew unless deferred, and log.
    int CommitEffect(const char* name, int deferred);
    // Resolves one entry point; on a miss logs "EFX extension: <name> is unavailable<points>\n".
    template <typename FunctionPointer>
    bool ResolveEntryPoint(FunctionPointer& target, const char* name, const char* points);

    LPALGENEFFECTS alGenEffects = nullptr;
    LPALDELETEEFFECTS alDeleteEffects = nullptr;
    LPALISEFFECT alIsEffect = nullptr;
    LPALEFFECTI alEffecti = nullptr;
    LPALGETEFFECTI alGetEffecti = nullptr;
    LPALEFFECTF alEffectf = nullptr;
    LPALGETEFFECTF alGetEffectf = nullptr;
    LPALEFFECTIV alEffectiv = nullptr;
    LPALGETEFFECTIV alGetEffectiv = nullptr;
    LPALEFFECTFV alEffectfv = nullptr;
    LPALGETEFFECTFV alGetEffectfv = nullptr;
    LPALGENAUXILIARYEFFECTSLOTS alGenAuxiliaryEffectSlots = nullptr;
    LPALDELETEAUXILIARYEFFECTSLOTS alDeleteAuxiliaryEffectSlots = nullptr;
    LPALISAUXILIARYEFFECTSLOT alIsAuxiliaryEffectSlot = nullptr;
    LPALAUXILIARYEFFECTSLOTF alAuxiliaryEffectSlotf = nullptr;
    LPALAUXILIARYEFFECTSLOTI alAuxiliaryEffectSloti = nullptr;
    LPALGETAUXILIARYEFFECTSLOTI alGetAuxiliaryEffectSloti = nullptr;
    LPALGETAUXILIARYEFFECTSLOTF alGetAuxiliaryEffectSlotf = nullptr;

    ALuint m_slot;
    ALuint m_effect = 0;
    std::uint32_t m_index;
};
