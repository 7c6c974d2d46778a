#pragma once

#include "engine/EFX_Base.h"

#include <AL/al.h>
#include <AL/efx.h>

#include <cstdint>
#include <string>

// One OpenAL source with its buffer, its direct filter and up to four auxiliary sends. Made by the
// factory, owned by the bridge. Every property goes to OpenAL in one call and is read back from
// OpenAL: the object keeps no copy and has no deferred mode.
//
// A send is in one of three states: absent (no filter, slot -1), feeding a slot (filter, slot n)
// or disconnected (filter, slot -1). CreateAuxSendFilter leads from absent to feeding,
// SetAuxSendSlot between feeding and disconnected, DeleteAuxSendFilter back to absent.
class EFX_3DSource : public EFX_Base {
public:
    static constexpr int kMaxSends = 4;

    // Detaches and deletes the buffer and deletes the source, if the source still exists. Does not
    // stop it (the owner does), and leaves the filters to go with the context.
    ~EFX_3DSource() override;
    void Release() override { delete this; }

    // Resolves the filter entry points and makes the direct filter.
    virtual int Initialize();
    // The 22 default settings of a source; stops at the first that fails. Sends stay as they are.
    virtual int SetDefaults();
    virtual int Play();
    virtual int PlayLooped(int loop);
    virtual int Stop();
    // The flag that Play looks at; nothing sets it, so it is 0 even while the source sounds.
    virtual int IsPlaying();
    virtual int GetSourceType(int* type);
    // The channels of the buffer's data, 1 for mono and 2 for stereo: OpenAL places only a mono
    // buffer in 3D space. Logs nothing, as it changes nothing; 0 when OpenAL cannot tell.
    virtual int GetBufferChannels(int* channels);
    // A new file into the same source and buffer. Stop the source first: a playing source keeps its
    // buffer.
    virtual int LoadFile(const char* path);
    virtual int SetPitch(float pitch);
    virtual int GetPitch(float* pitch);
    virtual int SetHeadRelativeMode(int mode);
    virtual int ReservedSet();
    virtual int SetPosition(float x, float y, float z);
    virtual int SetVelocity(float x, float y, float z);
    virtual int SetConeOrientation(float x, float y, float z);
    virtual int SetConeAngles(int inner, int outer);
    virtual int SetConeOuterGain(float gain);
    virtual int SetGain(float gain);
    virtual int SetReferenceDistance(float distance);
    virtual int SetMaxDistance(float distance);
    // The same as SetGain; the default routine calls both.
    virtual int SetGain2(float gain);
    virtual int SetMinGain(float gain);
    virtual int SetALMaxGain(float gain);
    virtual int SetRolloffFactor(float factor);
    // Passes OpenAL's value through unchanged.
    virtual int GetHeadRelativeMode(int* mode);
    virtual int ReservedGet();
    virtual int GetPosition(float vector[3]);
    virtual int GetVelocity(float vector[3]);
    virtual int GetConeOrientation(float vector[3]);
    virtual int GetConeAngles(int* inner, int* outer);
    virtual int GetConeOuterGain(float* gain);
    virtual int GetGain(float* gain);
    virtual int GetReferenceDistance(float* distance);
    virtual int GetMaxDistance(float* distance);
    // The same call and message as GetGain; the bridge reads both.
    virtual int GetGain2(float* gain);
    virtual int GetMinGain(float* gain);
    virtual int GetALMaxGain(float* gain);
    virtual int GetRolloffFactor(float* factor);
    virtual int SetDirectFilterGain(float gain);
    virtual int SetDirectFilterGainHF(float gain);
    virtual int SetConeOuterGainHF(float gain);
    virtual int SetAirAbsorptionFactor(float factor);
    virtual int SetRoomRolloffFactor(float factor);
    virtual int SetDirectFilterGainHFAuto(int flag);
    virtual int SetAuxSendFilterGainAuto(int flag);
    virtual int SetAuxSendFilterGainHFAuto(int flag);
    virtual int CreateDirectFilter();
    // Gives a send a new low-pass filter and connects it to a slot index 0 to 3.
    virtual int CreateAuxSendFilter(int send, int slot);
    virtual int DeleteAuxSendFilter(int send);
    // Connects a send to a slot index, or with -1 to none. Checks nothing in OpenAL.
    virtual int SetAuxSendSlot(int send, int slot);
    virtual int SetAuxSendFilterGain(int send, float gain);
    virtual int SetAuxSendFilterGainHF(int send, float gain);
    virtual int GetDirectFilterGain(float* gain);
    virtual int GetDirectFilterGainHF(float* gain);
    virtual int GetRoomRolloffFactor(float* factor);
    virtual int GetConeOuterGainHF(float* gain);
    virtual int GetAirAbsorptionFactor(float* factor);
    virtual int GetDirectFilterGainHFAuto(int* flag);
    virtual int GetAuxSendFilterGainAuto(int* flag);
    virtual int GetAuxSendFilterGainHFAuto(int* flag);
    virtual int GetAuxSendFilterGains(int send, float* gain, float* gainHF);

    // What an offline render needs to rebuild this source elsewhere: its AL names, the slot of each
    // send (-1 for none) and the file that its buffer was last loaded from (empty if none).
    ALuint SourceObject() const { return m_source; }
    ALuint DirectFilterObject() const { return m_directFilter; }
    ALuint SendFilterObject(int send) const { return send >= 0 && send < kMaxSends ? m_sendFilter[send] : 0; }
    int SendSlot(int send) const { return send >= 0 && send < kMaxSends ? m_sendSlot[send] : -1; }
    const std::string& FilePath() const { return m_filePath; }

protected:
    friend class EFX_Factory;
    // Takes over a source and its buffer; with attach set, attaches the buffer at once.
    EFX_3DSource(ALuint source, ALuint buffer, int attach);

    std::int32_t m_reserved = 0;
    std::int32_t m_playing = 0;
    std::int32_t m_looping = 0;
    ALuint m_source;
    ALuint m_buffer;
    ALuint m_directFilter = 0;
    ALuint m_sendFilter[kMaxSends] = {};
    std::int32_t m_sendSlot[kMaxSends] = {-1, -1, -1, -1};
    std::string m_filePath;

private:
    int SetSourceBool(int value, ALenum token, const char* name);
    int SetSourceFloat(float value, ALenum token, const char* name);
    int GetSourceBool(int* value, ALenum token, const char* name);
    int GetSourceLong(int* value, ALenum token, const char* name);
    int GetSourceFloat(float* value, ALenum token, const char* name);

    // The common steps of the plain OpenAL setters and getters, with their three or one texts.
    int SetSourcef(ALenum token, float value, const char* notSource, const char* alError, const char* success);
    int SetSource3f(ALenum token, float x, float y, float z, const char* notSource, const char* alError,
                    const char* success);
    int GetSourcef(ALenum token, float* value, const char* notSource);
    int GetSource3f(ALenum token, float vector[3], const char* notSource);

    bool HasFilterEntryPoints() const;
    bool IsFilter(ALuint filter) const;
    // Whether a send index passes the bound test against the granted sends and fits the arrays.
    static bool SendInRange(int send);
    int SetDirectFilterProperty(ALenum token, float gain, const char* tokenName);
    int GetDirectFilterProperty(ALenum token, float* gain, const char* tokenName);
    int SetAuxSendFilterProperty(int send, ALenum token, float gain, const char* invalidFilter,
                                 const char* setFailed, const char* success);
    // Attaches the send's filter and the AL name of its slot index (0, no slot, for -1).
    void AttachSend(int send, int slot);

    LPALGENFILTERS alGenFilters = nullptr;
    LPALDELETEFILTERS alDeleteFilters = nullptr;
    LPALISFILTER alIsFilter = nullptr;
    LPALFILTERI alFilteri = nullptr;
    LPALFILTERF alFilterf = nullptr;
    LPALGETFILTERI alGetFilteri = nullptr;
    LPALGETFILTERF alGetFilterf = nullptr;
};
