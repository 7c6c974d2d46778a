// The source core: lifetime, playback, the file, the OpenAL 1.1 and EFX properties of a source,
// and its default routine. Filters and sends are in EFX_3DSourceSends.cpp.
#include "engine/EFX_3DSource.h"

#include "engine/CWaves.h"
#include "engine/EFX_Factory.h"
#include "engine/LogMessage.h"

EFX_3DSource::EFX_3DSource(ALuint source, ALuint buffer, int attach)
    : m_source(source)
    , m_buffer(buffer)
{
    if (attach)
        alSourcei(m_source, AL_BUFFER, static_cast<ALint>(m_buffer));
}

EFX_3DSource::~EFX_3DSource()
{
    if (alIsSource(m_source)) {
        alSourcei(m_source, AL_BUFFER, 0);
        alDeleteBuffers(1, &m_buffer);
        alDeleteSources(1, &m_source);
    }
}

int EFX_3DSource::SetDefaults()
{
    // The default position is one unit in front of a listener at the origin, and the maximum
    // distance 100 rather than OpenAL's own.
    return SetHeadRelativeMode(0)
        && SetPosition(0.0f, 0.0f, -1.0f)
        && SetVelocity(0.0f, 0.0f, 0.0f)
        && SetConeOrientation(0.0f, 0.0f, -1.0f)
        && SetConeAngles(360, 360)
        && SetConeOuterGain(1.0f)
        && SetGain(1.0f)
        && SetReferenceDistance(1.0f)
        && SetMaxDistance(100.0f)
        && SetGain2(1.0f)
        && SetMinGain(0.0f)
        && SetALMaxGain(1.0f)
        && SetRolloffFactor(1.0f)
        && SetPitch(1.0f)
        && SetDirectFilterGain(1.0f)
        && SetDirectFilterGainHF(1.0f)
        && SetDirectFilterGainHFAuto(1)
        && SetConeOuterGainHF(1.0f)
        && SetAirAbsorptionFactor(0.0f)
        && SetRoomRolloffFactor(0.0f)
        && SetAuxSendFilterGainAuto(1)
        && SetAuxSendFilterGainHFAuto(1) ? 1 : 0;
}

// Playback.

int EFX_3DSource::Play()
{
    return m_playing ? Stop() : PlayLooped(m_looping);
}

int EFX_3DSource::PlayLooped(int loop)
{
    if (alIsSource(m_source)) {
        ClearALError();
        alSourcei(m_source, AL_LOOPING, loop);
        if (CheckALError()) {
            alSourcePlay(m_source);
            return CheckALError();
        }
    }
    AppendLog("PlayLooped() failed");
    return 0;
}

int EFX_3DSource::Stop()
{
    if (!alIsSource(m_source)) {
        AppendLog("Stop() failed");
        return 0;
    }
    ClearALError();
    alSourceStop(m_source);
    return CheckALError();
}

int EFX_3DSource::IsPlaying()
{
    return m_playing;
}

int EFX_3DSource::LoadFile(const char* path)
{
    if (!path) {
        AppendLog("Unable to load file: invalid file or file loader");
        return 0;
    }
    CWaves& waves = EFX_Factory::Waves();
    int id = -1;
    if (waves.LoadWaveFile(path, &id) < 0) {
        AppendLog("Failed to load file.");
        return 0;
    }
    std::uint32_t size = 0;
    std::uint32_t frequency = 0;
    std::int32_t type = 0;
    void* data = nullptr;
    ALenum format = -1;
    waves.GetWaveSize(id, &size);
    waves.GetWaveData(id, &data);
    waves.GetWaveType(id, &type);
    waves.GetWaveFrequency(id, &frequency);
    // The result is not looked at: a wave without a format arrives as 0 and alBufferData refuses it.
    waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
    if (format == -1)
        return 0;

    alSourcei(m_source, AL_BUFFER, 0);
    ClearALError();
    alBufferData(m_buffer, format, data, static_cast<ALsizei>(size), static_cast<ALsizei>(frequency));
    waves.DeleteWaveFile(id);
    if (!CheckALError()) {
        AppendLog("Error loading WAV data into buffer");
        return 0;
    }
    alSourcei(m_source, AL_BUFFER, static_cast<ALint>(m_buffer));
    if (!CheckALError()) {
        AppendLog("Error setting Source AL_BUFFER");
        return 0;
    }
    m_filePath = path;
    AppendLog("Data loaded into Buffer and Buffer attached to Source");
    return 1;
}

// The plain OpenAL properties.

int EFX_3DSource::SetSourcef(ALenum token, float value, const char* notSource, const char* alError,
                             const char* success)
{
    if (!alIsSource(m_source)) {
        AppendLog(notSource);
        return 0;
    }
    ClearALError();
    alSourcef(m_source, token, value);
    if (!CheckALError()) {
        AppendLog(alError);
        return 0;
    }
    AppendLog(success);
    return 1;
}

int EFX_3DSource::SetSource3f(ALenum token, float x, float y, float z, const char* notSource,
                              const char* alError, const char* success)
{
    if (!alIsSource(m_source)) {
        AppendLog(notSource);
        return 0;
    }
    ClearALError();
    alSource3f(m_source, token, x, y, z);
    if (!CheckALError()) {
        AppendLog(alError);
        return 0;
    }
    AppendLog(success);
    return 1;
}

int EFX_3DSource::GetSourcef(ALenum token, float* value, const char* notSource)
{
    if (!alIsSource(m_source)) {
        AppendLog(notSource);
        return 0;
    }
    ClearALError();
    alGetSourcef(m_source, token, value);
    return CheckALError();
}

int EFX_3DSource::GetSource3f(ALenum token, float vector[3], const char* notSource)
{
    if (!alIsSource(m_source)) {
        AppendLog(notSource);
        return 0;
    }
    ClearALError();
    alGetSource3f(m_source, token, &vector[0], &vector[1], &vector[2]);
    return CheckALError();
}

int EFX_3DSource::SetPitch(float pitch)
{
    return SetSourcef(AL_PITCH, pitch, "Source AL_PITCH set failed",
                      "OpenAL Error when trying to set Source AL_PITCH", "Source AL_PITCH set");
}

int EFX_3DSource::GetPitch(float* pitch)
{
    return GetSourcef(AL_PITCH, pitch, "Source AL_PITCH get failed");
}

int EFX_3DSource::SetHeadRelativeMode(int mode)
{
    if (!alIsSource(m_source)) {
        AppendLog("SetHeadRelativeMode() failed");
        return 0;
    }
    ClearALError();
    alSourcei(m_source, AL_SOURCE_RELATIVE, mode);
    if (!CheckALError()) {
        AppendLog("OpenAL Error when trying to set head relative mode");
        return 0;
    }
    AppendLog("Head relative mode set");
    return 1;
}

int EFX_3DSource::ReservedSet()
{
    return 0;
}

int EFX_3DSource::SetPosition(float x, float y, float z)
{
    return SetSource3f(AL_POSITION, x, y, z, "Source AL_POSITION set failed: not a source",
                       "OpenAL Error when trying to set AL_POSITION", "Source AL_POSITION set");
}

int EFX_3DSource::SetVelocity(float x, float y, float z)
{
    return SetSource3f(AL_VELOCITY, x, y, z, "Source AL_VELOCITY set failed: not a source",
                       "OpenAL Error when trying to set AL_VELOCITY", "Source AL_VELOCITY set");
}

int EFX_3DSource::SetConeOrientation(float x, float y, float z)
{
    return SetSource3f(AL_DIRECTION, x, y, z, "Source AL_DIRECTION set failed: no a source",
                       "OpenAL Error when trying to set Source AL_DIRECTION", "Source AL_DIRECTION set");
}

int EFX_3DSource::SetConeAngles(int inner, int outer)
{
    // A refused inner angle reads as "not a source": the two cases share their text.
    bool innerSet = false;
    if (alIsSource(m_source)) {
        ClearALError();
        alSourcei(m_source, AL_CONE_INNER_ANGLE, inner);
        innerSet = CheckALError();
    }
    if (!innerSet) {
        AppendLog("Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set failed: not a source");
        return 0;
    }
    alSourcei(m_source, AL_CONE_OUTER_ANGLE, outer);
    if (!CheckALError()) {
        AppendLog("OpenAL Error when trying to set Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE");
        return 0;
    }
    AppendLog("Source AL_CONE_INNER_ANGLE/AL_CONE_OUTER_ANGLE set");
    return 1;
}

int EFX_3DSource::SetConeOuterGain(float gain)
{
    return SetSourcef(AL_CONE_OUTER_GAIN, gain, "Source AL_CONE_OUTER_GAIN set failed",
                      "OpenAL Error when trying to set Source AL_CONE_OUTER_GAIN", "Source AL_CONE_OUTER_GAIN set");
}

int EFX_3DSource::SetGain(float gain)
{
    return SetSourcef(AL_GAIN, gain, "Source AL_GAIN failed", "OpenAL Error when trying to set Source AL_GAIN",
                      "Source AL_GAIN set");
}

int EFX_3DSource::SetReferenceDistance(float distance)
{
    // The text for a missing source reads like success, though the result is 0.
    return SetSourcef(AL_REFERENCE_DISTANCE, distance, "Source AL_REFERENCE_DISTANCE set",
                      "OpenAL Error when trying to set Source AL_REFERENCE_DISTANCE", "Source AL_REFERENCE_DISTANCE set");
}

int EFX_3DSource::SetMaxDistance(float distance)
{
    return SetSourcef(AL_MAX_DISTANCE, distance, "Source AL_MAX_DISTANCE set failed",
                      "OpenAL Error when trying to set Source AL_MAX_DISTANCE", "Source AL_MAX_DISTANCE set");
}

int EFX_3DSource::SetGain2(float gain)
{
    return SetGain(gain);
}

int EFX_3DSource::SetMinGain(float gain)
{
    return SetSourcef(AL_MIN_GAIN, gain, "Source AL_MIN_GAIN set failed",
                      "OpenAL Error when trying to set Source AL_MIN_GAIN", "Source AL_MIN_GAIN set");
}

int EFX_3DSource::SetALMaxGain(float gain)
{
    return SetSourcef(AL_MAX_GAIN, gain, "SetALMaxGain() failed", "OpenAL Error when trying to set AL_MAX_GAIN",
                      "Source AL_MAX_GAIN set");
}

int EFX_3DSource::SetRolloffFactor(float factor)
{
    return SetSourcef(AL_ROLLOFF_FACTOR, factor, "Source AL_ROLLOFF_FACTOR set failed",
                      "OpenAL Error when trying to set Source AL_ROLLOFF_FACTOR", "Source AL_ROLLOFF_FACTOR set");
}

int EFX_3DSource::GetHeadRelativeMode(int* mode)
{
    if (!alIsSource(m_source)) {
        AppendLog("GetHeadRelativeMode() failed");
        return 0;
    }
    ClearALError();
    alGetSourcei(m_source, AL_SOURCE_RELATIVE, mode);
    return CheckALError();
}

int EFX_3DSource::ReservedGet()
{
    return 0;
}

int EFX_3DSource::GetPosition(float vector[3])
{
    return GetSource3f(AL_POSITION, vector, "GetPosition() failed");
}

int EFX_3DSource::GetVelocity(float vector[3])
{
    return GetSource3f(AL_VELOCITY, vector, "GetVelocity() failed");
}

int EFX_3DSource::GetConeOrientation(float vector[3])
{
    return GetSource3f(AL_DIRECTION, vector, "GetConeOrientation() failed");
}

int EFX_3DSource::GetConeAngles(int* inner, int* outer)
{
    if (!alIsSource(m_source)) {
        AppendLog("GetConeAngles() failed");
        return 0;
    }
    ClearALError();
    alGetSourcei(m_source, AL_CONE_INNER_ANGLE, inner);
    if (!CheckALError())
        return 0;
    alGetSourcei(m_source, AL_CONE_OUTER_ANGLE, outer);
    return CheckALError();
}

int EFX_3DSource::GetConeOuterGain(float* gain)
{
    return GetSourcef(AL_CONE_OUTER_GAIN, gain, "Source AL_CONE_OUTER_GAIN failed");
}

int EFX_3DSource::GetGain(float* gain)
{
    return GetSourcef(AL_GAIN, gain, "Source AL_GAIN get failed");
}

int EFX_3DSource::GetReferenceDistance(float* distance)
{
    return GetSourcef(AL_REFERENCE_DISTANCE, distance, "Source AL_REFERENCE_DISTANCE get failed");
}

int EFX_3DSource::GetMaxDistance(float* distance)
{
    return GetSourcef(AL_MAX_DISTANCE, distance, "Source AL_MAX_DISTANCE get failed");
}

int EFX_3DSource::GetGain2(float* gain)
{
    return GetSourcef(AL_GAIN, gain, "Source AL_GAIN get failed");
}

int EFX_3DSource::GetMinGain(float* gain)
{
    return GetSourcef(AL_MIN_GAIN, gain, "Source AL_MIN_GAIN get failed");
}

int EFX_3DSource::GetALMaxGain(float* gain)
{
    return GetSourcef(AL_MAX_GAIN, gain, "GetALMaxGain() failed");
}

int EFX_3DSource::GetRolloffFactor(float* factor)
{
    return GetSourcef(AL_ROLLOFF_FACTOR, factor, "Source AL_ROLLOFF_FACTOR get failed");
}

// The EFX properties of a source and its type, through the five primitives.

int EFX_3DSource::GetSourceType(int* type)
{
    return GetSourceLong(type, AL_SOURCE_TYPE, "AL_SOURCE_TYPE");
}

int EFX_3DSource::GetBufferChannels(int* channels)
{
    if (!channels || !alIsBuffer(m_buffer))
        return 0;
    ClearALError();
    ALint count = 0;
    alGetBufferi(m_buffer, AL_CHANNELS, &count);
    if (!CheckALError())
        return 0;
    *channels = count;
    return 1;
}

int EFX_3DSource::SetConeOuterGainHF(float gain)
{
    return SetSourceFloat(gain, AL_CONE_OUTER_GAINHF, "AL_CONE_OUTER_GAINHF");
}

int EFX_3DSource::SetAirAbsorptionFactor(float factor)
{
    return SetSourceFloat(factor, AL_AIR_ABSORPTION_FACTOR, "AL_AIR_ABSORPTION_FACTOR");
}

int EFX_3DSource::SetRoomRolloffFactor(float factor)
{
    return SetSourceFloat(factor, AL_ROOM_ROLLOFF_FACTOR, "AL_ROOM_ROLLOFF_FACTOR");
}

int EFX_3DSource::SetDirectFilterGainHFAuto(int flag)
{
    return SetSourceBool(flag, AL_DIRECT_FILTER_GAINHF_AUTO, "AL_DIRECT_FILTER_GAINHF_AUTO");
}

int EFX_3DSource::SetAuxSendFilterGainAuto(int flag)
{
    return SetSourceBool(flag, AL_AUXILIARY_SEND_FILTER_GAIN_AUTO, "AL_AUXSEND_FILTER_GAIN_AUTO");
}

int EFX_3DSource::SetAuxSendFilterGainHFAuto(int flag)
{
    return SetSourceBool(flag, AL_AUXILIARY_SEND_FILTER_GAINHF_AUTO, "AL_AUXSEND_FILTER_GAINHF_AUTO");
}

int EFX_3DSource::GetRoomRolloffFactor(float* factor)
{
    return GetSourceFloat(factor, AL_ROOM_ROLLOFF_FACTOR, "AL_ROOM_ROLLOFF_FACTOR");
}

int EFX_3DSource::GetConeOuterGainHF(float* gain)
{
    return GetSourceFloat(gain, AL_CONE_OUTER_GAINHF, "AL_CONE_OUTER_GAINHF");
}

int EFX_3DSource::GetAirAbsorptionFactor(float* factor)
{
    return GetSourceFloat(factor, AL_AIR_ABSORPTION_FACTOR, "AL_AIR_ABSORPTION_FACTOR");
}

int EFX_3DSource::GetDirectFilterGainHFAuto(int* flag)
{
    return GetSourceBool(flag, AL_DIRECT_FILTER_GAINHF_AUTO, "AL_DIRECT_FILTER_GAINHF_AUTO");
}

int EFX_3DSource::GetAuxSendFilterGainAuto(int* flag)
{
    return GetSourceBool(flag, AL_AUXILIARY_SEND_FILTER_GAIN_AUTO, "AL_AUXSEND_FILTER_GAIN_AUTO");
}

int EFX_3DSource::GetAuxSendFilterGainHFAuto(int* flag)
{
    return GetSourceBool(flag, AL_AUXILIARY_SEND_FILTER_GAINHF_AUTO, "AL_AUXSEND_FILTER_GAINHF_AUTO");
}

int EFX_3DSource::SetSourceBool(int value, ALenum token, const char* name)
{
    if (!alIsSource(m_source)) {
        AppendLog(LogMessage("Not a valid source, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alSourcei(m_source, token, value ? 1 : 0);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting %s in source object: alSourcei() failed", name).Text());
        return 0;
    }
    AppendLog(LogMessage("Source %s property set", name).Text());
    return 1;
}

int EFX_3DSource::SetSourceFloat(float value, ALenum token, const char* name)
{
    if (!alIsSource(m_source)) {
        AppendLog(LogMessage("Not a valid source , cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alSourcef(m_source, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting %s in source object: alSourcef() failed", name).Text());
        return 0;
    }
    AppendLog(LogMessage("Source %s property set", name).Text());
    return 1;
}

int EFX_3DSource::GetSourceBool(int* value, ALenum token, const char* name)
{
    if (!alIsSource(m_source)) {
        AppendLog(LogMessage("Not a valid source, cannot get %s property", name).Text());
        return 0;
    }
    ClearALError();
    ALint stored = 0;
    alGetSourcei(m_source, token, &stored);
    *value = stored == 1 ? 1 : 0;
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from source object: alGetSourcei() failed", name).Text());
        return 0;
    }
    return 1;
}

// The long and float getters say "cannot set" when the source is missing; that is their wording.
int EFX_3DSource::GetSourceLong(int* value, ALenum token, const char* name)
{
    if (!alIsSource(m_source)) {
        AppendLog(LogMessage("Not a valid source, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetSourcei(m_source, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from source object: alGetSourcei() failed", name).Text());
        return 0;
    }
    return 1;
}

int EFX_3DSource::GetSourceFloat(float* value, ALenum token, const char* name)
{
    if (!alIsSource(m_source)) {
        AppendLog(LogMessage("Not a valid source, cannot set %s property", name).Text());
        return 0;
    }
    ClearALError();
    alGetSourcef(m_source, token, value);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error retrieving %s property from source object: alGetSourcef() failed", name).Text());
        return 0;
    }
    return 1;
}
