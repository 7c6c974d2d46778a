#include "engine/EFX_Context.h"

#include "engine/EFX_Factory.h"

#include <AL/al.h>

namespace {

// The AL value of each distance model, indexed by the program's number.
constexpr ALenum kDistanceModels[EFX_Context::kNumDistanceModels] = {
    AL_NONE,
    AL_INVERSE_DISTANCE,
    AL_INVERSE_DISTANCE_CLAMPED,
    AL_LINEAR_DISTANCE,
    AL_LINEAR_DISTANCE_CLAMPED,
    AL_EXPONENT_DISTANCE,
    AL_EXPONENT_DISTANCE_CLAMPED,
};

} // namespace

EFX_Context::~EFX_Context()
{
    EFX_Factory::s_context = nullptr;
}

int EFX_Context::Initialize()
{
    return 1;
}

int EFX_Context::SetGain(float gain)
{
    ClearALError();
    alListenerf(AL_GAIN, gain);
    if (!CheckALError()) {
        AppendLog("Set Listener AL_GAIN failed");
        return 0;
    }
    AppendLog("Listener AL_GAIN set");
    return 1;
}

int EFX_Context::GetGain(float* gain)
{
    ClearALError();
    alGetListenerf(AL_GAIN, gain);
    if (!CheckALError()) {
        AppendLog("Get Listener AL_GAIN failed");
        return 0;
    }
    return 1;
}

int EFX_Context::SetDefaults()
{
    if (!SetPosition(0.0f, 0.0f, 0.0f))
        return 0;
    if (!SetOrientation(0.0f, 0.0f, -1.0f, 0.0f, 1.0f, 0.0f))
        return 0;
    if (!SetDopplerFactor(1.0f))
        return 0;
    if (!SetVelocity(0.0f, 0.0f, 0.0f))
        return 0;
    if (!SetDistanceModel(2))
        return 0;
    if (!SetSpeedOfSound(343.3f))
        return 0;
    return SetGain(1.0f);
}

int EFX_Context::SetPosition(float x, float y, float z)
{
    ClearALError();
    alListener3f(AL_POSITION, x, y, z);
    if (!CheckALError()) {
        AppendLog("Set Listener AL_POSITION failed");
        return 0;
    }
    AppendLog("Listener AL_POSITION set");
    return 1;
}

int EFX_Context::SetOrientation(float atX, float atY, float atZ, float upX, float upY, float upZ)
{
    const ALfloat orientation[6] = {atX, atY, atZ, upX, upY, upZ};
    ClearALError();
    alListenerfv(AL_ORIENTATION, orientation);
    if (!CheckALError()) {
        AppendLog("Listener AL_ORIENTATION failed");
        return 0;
    }
    AppendLog("Listener AL_ORIENTATION set");
    return 1;
}

int EFX_Context::SetVelocity(float x, float y, float z)
{
    ClearALError();
    alListener3f(AL_VELOCITY, x, y, z);
    if (!CheckALError()) {
        AppendLog("Set Listener AL_VELOCITY failed");
        return 0;
    }
    AppendLog("Listener AL_VELOCITY set");
    return 1;
}

int EFX_Context::SetDopplerFactor(float factor)
{
    ClearALError();
    alDopplerFactor(factor);
    if (!CheckALError()) {
        AppendLog("alDopplerFactor() failed");
        return 0;
    }
    m_dopplerFactor = factor;
    AppendLog("alDopplerFactor() successful");
    return 1;
}

int EFX_Context::SetRollOffFactor(float)
{
    AppendLog("Set RollOff factor failed: not supported in OpenAL");
    return 0;
}

int EFX_Context::SetDistanceModel(int model)
{
    if (static_cast<unsigned>(model) >= static_cast<unsigned>(kNumDistanceModels)) {
        AppendLog("Set Distance model failed: invalid distance model");
        return 0;
    }
    ClearALError();
    alDistanceModel(kDistanceModels[model]);
    if (!CheckALError()) {
        AppendLog("Set Distance model failed");
        return 0;
    }
    AppendLog("alDistanceModel() set");
    return 1;
}

int EFX_Context::SetSpeedOfSound(float speed)
{
    ClearALError();
    alSpeedOfSound(speed);
    if (!CheckALError()) {
        AppendLog("alSpeedOfSound() failed");
        return 0;
    }
    AppendLog("alSpeedOfSound() successful");
    return 1;
}

int EFX_Context::GetPosition(float vector[3])
{
    ClearALError();
    alGetListener3f(AL_POSITION, &vector[0], &vector[1], &vector[2]);
    if (!CheckALError()) {
        AppendLog("Get Listener Position failed");
        return 0;
    }
    return 1;
}

int EFX_Context::GetOrientation(float at[3], float up[3])
{
    ALfloat orientation[6] = {};
    ClearALError();
    alGetListenerfv(AL_ORIENTATION, orientation);
    for (int i = 0; i < 3; ++i) {
        at[i] = orientation[i];
        up[i] = orientation[i + 3];
    }
    if (!CheckALError()) {
        AppendLog("Get Listener Orientation failed");
        return 0;
    }
    return 1;
}

int EFX_Context::GetVelocity(float vector[3])
{
    ClearALError();
    alGetListener3f(AL_VELOCITY, &vector[0], &vector[1], &vector[2]);
    if (!CheckALError()) {
        AppendLog("Get Listener AL_VELOCITY failed");
        return 0;
    }
    return 1;
}

int EFX_Context::GetDopplerFactor(float* factor)
{
    ClearALError();
    const ALfloat value = alGetFloat(AL_DOPPLER_FACTOR);
    if (!CheckALError()) {
        AppendLog("Error querying Doppler factor");
        return 0;
    }
    *factor = value;
    m_dopplerFactor = value;
    AppendLog("GetDopplerFactor() successful");
    return 1;
}

int EFX_Context::GetRollOffFactor(float*)
{
    AppendLog("GetRollOffFactor() failed: property not supported in OpenAL");
    return 0;
}

int EFX_Context::GetDistanceModel(int* model)
{
    ClearALError();
    const ALint value = alGetInteger(AL_DISTANCE_MODEL);
    if (!CheckALError()) {
        AppendLog("Error querying Distance model");
        return 0;
    }
    for (int number = 0; number < kNumDistanceModels; ++number) {
        if (kDistanceModels[number] == value) {
            *model = number;
            return 1;
        }
    }
    AppendLog("Error querying Distance model: invalid distance model returned");
    return 0;
}

int EFX_Context::GetSpeedOfSound(float* speed)
{
    ClearALError();
    const ALfloat value = alGetFloat(AL_SPEED_OF_SOUND);
    if (!CheckALError()) {
        AppendLog("Error querying AL_SPEED_OF_SOUND");
        return 0;
    }
    *speed = value;
    AppendLog("Get AL_SPEED_OF_SOUND successful");
    return 1;
}
