#pragma once

#include "engine/EFX_Base.h"

#include <cstdint>

// The listener and the context-wide properties: distance model, Doppler factor, speed of sound.
// One object for the program, made by EFX_Factory::CreateContext. It holds no handle: every
// operation acts on the current OpenAL context, which belongs to the factory.
class EFX_Context : public EFX_Base {
public:
    // The distance model in the program's own numbering, 0 to 6, as the panels show it.
    static constexpr int kNumDistanceModels = 7;

    // Clears the factory's pointer to the one context object, so that no warning fires for it.
    // The listener is left as it is.
    ~EFX_Context() override;
    void Release() override { delete this; }

    virtual int SetGain(float gain);
    virtual int GetGain(float* gain);
    // Position, orientation, Doppler factor, velocity, distance model, speed of sound, gain, in this
    // order; stops at the first step that fails.
    virtual int SetDefaults();
    virtual int SetPosition(float x, float y, float z);
    virtual int SetOrientation(float atX, float atY, float atZ, float upX, float upY, float upZ);
    virtual int SetVelocity(float x, float y, float z);
    virtual int SetDopplerFactor(float factor);
    // OpenAL has no listener roll-off: always fails.
    virtual int SetRollOffFactor(float factor);
    virtual int SetDistanceModel(int model);
    virtual int SetSpeedOfSound(float speed);
    virtual int GetPosition(float vector[3]);
    // Writes both vectors even when the query fails; they then mean nothing.
    virtual int GetOrientation(float at[3], float up[3]);
    virtual int GetVelocity(float vector[3]);
    virtual int GetDopplerFactor(float* factor);
    // OpenAL has no listener roll-off: always fails.
    virtual int GetRollOffFactor(float* factor);
    virtual int GetDistanceModel(int* model);
    virtual int GetSpeedOfSound(float* speed);
    virtual int Initialize();

protected:
    friend class EFX_Factory;
    EFX_Context() = default;

    std::int32_t m_reserved = 0;
    // The last factor set or read with success. Kept for the record; nothing reads it.
    float m_dopplerFactor = 1.0f;
};
