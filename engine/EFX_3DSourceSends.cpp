// The EFX routing of a source: its direct low-pass filter, and its auxiliary sends, each with a
// low-pass filter of its own and a target slot. A source plays from a copy of a filter's settings,
// so every change to a filter ends with attaching the filter again.
#include "engine/EFX_3DSource.h"

#include "engine/EFX_Factory.h"
#include "engine/LogMessage.h"
#include "engine/ProcAddress.h"

int EFX_3DSource::Initialize()
{
    struct EntryPoint {
        bool resolved;
        const char* name;
    };
    const EntryPoint entryPoints[] = {
        {efx_proc::ResolveInto(alGenFilters, "alGenFilters"), "alGenFilters"},
        {efx_proc::ResolveInto(alDeleteFilters, "alDeleteFilters"), "alDeleteFilters"},
        {efx_proc::ResolveInto(alIsFilter, "alIsFilter"), "alIsFilter"},
        {efx_proc::ResolveInto(alFilteri, "alFilteri"), "alFilteri"},
        {efx_proc::ResolveInto(alFilterf, "alFilterf"), "alFilterf"},
        {efx_proc::ResolveInto(alGetFilteri, "alGetFilteri"), "alGetFilteri"},
        {efx_proc::ResolveInto(alGetFilterf, "alGetFilterf"), "alGetFilterf"},
    };
    for (const EntryPoint& entryPoint : entryPoints) {
        if (!entryPoint.resolved) {
            AppendLog(LogMessage("EFX extension: %s is unavailable..\n", entryPoint.name).Text());
            return 0;
        }
    }
    return CreateDirectFilter();
}

// The filter entry points are all there once Initialize has succeeded. An object whose
// initialisation failed never leaves the factory, but its filter operations still fail cleanly.
bool EFX_3DSource::HasFilterEntryPoints() const
{
    return alGenFilters && alDeleteFilters && alIsFilter && alFilteri && alFilterf && alGetFilteri && alGetFilterf;
}

// Name 0 is how a source says that it has no filter there (an absent send). OpenAL calls 0 a valid
// filter, the null filter, so it is refused here first: a send without a filter reports an invalid
// filter rather than failing in the OpenAL call after it.
bool EFX_3DSource::IsFilter(ALuint filter) const
{
    return filter != 0 && HasFilterEntryPoints() && alIsFilter(filter) == AL_TRUE;
}

int EFX_3DSource::CreateDirectFilter()
{
    // No alGetError before the generation: an error left over from earlier counts against it.
    if (!HasFilterEntryPoints()) {
        AppendLog("Error generating Direct filter for source");
        return 0;
    }
    alGenFilters(1, &m_directFilter);
    if (!CheckALError() || alIsFilter(m_directFilter) != AL_TRUE) {
        AppendLog("Error generating Direct filter for source");
        return 0;
    }
    ClearALError();
    alFilteri(m_directFilter, AL_FILTER_TYPE, AL_FILTER_LOWPASS);
    if (!CheckALError()) {
        AppendLog("Error setting Direct filter for source to low-pass");
        return 0;
    }
    alFilterf(m_directFilter, AL_LOWPASS_GAIN, 1.0f);
    CheckALError();
    alFilterf(m_directFilter, AL_LOWPASS_GAINHF, 1.0f);
    CheckALError();
    alSourcei(m_source, AL_DIRECT_FILTER, static_cast<ALint>(m_directFilter));
    if (!CheckALError()) {
        AppendLog("Error attaching Direct filter to source");
        return 0;
    }
    return 1;
}

int EFX_3DSource::SetDirectFilterProperty(ALenum token, float gain, const char* tokenName)
{
    if (!IsFilter(m_directFilter)) {
        AppendLog(LogMessage("Error setting source direct %s: invalid Direct filter", tokenName).Text());
        return 0;
    }
    // No alGetError before the call.
    alFilterf(m_directFilter, token, gain);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error setting source direct filter %s: alFilterf() failed", tokenName).Text());
        return 0;
    }
    alSourcei(m_source, AL_DIRECT_FILTER, static_cast<ALint>(m_directFilter));
    if (!CheckALError()) {
        AppendLog(LogMessage("Error attaching Direct filter to source when setting %s", tokenName).Text());
        return 0;
    }
    AppendLog(LogMessage("Source Direct filter %s property set", tokenName).Text());
    return 1;
}

int EFX_3DSource::GetDirectFilterProperty(ALenum token, float* gain, const char* tokenName)
{
    if (!IsFilter(m_directFilter)) {
        AppendLog(LogMessage("Error getting source direct %s: invalid direct filter", tokenName).Text());
        return 0;
    }
    alGetFilterf(m_directFilter, token, gain);
    if (!CheckALError()) {
        AppendLog(LogMessage("Error getting source direct filter %s: alGetFilterf() failed", tokenName).Text());
        return 0;
    }
    return 1;
}

int EFX_3DSource::SetDirectFilterGain(float gain)
{
    return SetDirectFilterProperty(AL_LOWPASS_GAIN, gain, "AL_LOWPASS_GAIN");
}

int EFX_3DSource::SetDirectFilterGainHF(float gain)
{
    return SetDirectFilterProperty(AL_LOWPASS_GAINHF, gain, "AL_LOWPASS_GAINHF");
}

int EFX_3DSource::GetDirectFilterGain(float* gain)
{
    return GetDirectFilterProperty(AL_LOWPASS_GAIN, gain, "AL_LOWPASS_GAIN");
}

int EFX_3DSource::GetDirectFilterGainHF(float* gain)
{
    return GetDirectFilterProperty(AL_LOWPASS_GAINHF, gain, "AL_LOWPASS_GAINHF");
}

// The bound test lets a send equal to the granted maximum through, as it always has; the callers
// keep below it. The arrays hold four sends, so an index past them is refused as well, in silence
// like any other bad index, instead of being written past the end.
bool EFX_3DSource::SendInRange(int send)
{
    const auto index = static_cast<std::uint32_t>(send);
    return index <= EFX_Factory::GetMaxSends() && index < static_cast<std::uint32_t>(kMaxSends);
}

void EFX_3DSource::AttachSend(int send, int slot)
{
    alSource3i(m_source, AL_AUXILIARY_SEND_FILTER,
               static_cast<ALint>(EFX_Factory::GetEffectSlotId(static_cast<std::uint32_t>(slot))), send,
               static_cast<ALint>(m_sendFilter[send]));
}

int EFX_3DSource::CreateAuxSendFilter(int send, int slot)
{
    if (slot < 0 || slot > 3 || !SendInRange(send))
        return 0;
    m_sendSlot[send] = slot;
    if (!HasFilterEntryPoints()) {
        AppendLog("Error generating Aux Send filter for source");
        return 0;
    }
    // A filter that the send already had is overwritten, not deleted: it stays with the context.
    alGenFilters(1, &m_sendFilter[send]);
    if (!CheckALError() || alIsFilter(m_sendFilter[send]) != AL_TRUE) {
        AppendLog("Error generating Aux Send filter for source");
        return 0;
    }
    ClearALError();
    alFilteri(m_sendFilter[send], AL_FILTER_TYPE, AL_FILTER_LOWPASS);
    if (!CheckALError()) {
        AppendLog("Error setting Aux Send filter for source to low-pass ");
        return 0;
    }
    alFilterf(m_sendFilter[send], AL_LOWPASS_GAIN, 1.0f);
    CheckALError();
    alFilterf(m_sendFilter[send], AL_LOWPASS_GAINHF, 1.0f);
    CheckALError();
    AttachSend(send, slot);
    if (!CheckALError()) {
        AppendLog("Error attaching Aux Send filter to source ");
        return 0;
    }
    AppendLog(LogMessage("Source low-pass aux send filter %d created (feeding slot %d)", send, slot).Text());
    return 1;
}

int EFX_3DSource::SetAuxSendSlot(int send, int slot)
{
    // A slot below -1 passes, and resolves to no slot.
    if (!SendInRange(send) || slot >= 4)
        return 0;
    m_sendSlot[send] = slot;
    // Nothing here is checked in OpenAL: a bad filter shows up as silence.
    AttachSend(send, slot);
    if (slot != -1)
        AppendLog(LogMessage("Source aux send filter %d now feeding slot %d", send, slot).Text());
    else
        AppendLog(LogMessage("Source aux send filter %d now disabled (feeds AL_EFFECTSLOT_NULL)", send).Text());
    return 1;
}

int EFX_3DSource::DeleteAuxSendFilter(int send)
{
    // The source must not be left referring to a deleted filter: disconnect it first.
    if (!SetAuxSendSlot(send, -1)) {
        AppendLog("Error disabling the Aux Send filter prior to deleting the filter ");
        return 0;
    }
    CheckALError();
    if (HasFilterEntryPoints())
        alDeleteFilters(1, &m_sendFilter[send]);
    if (!HasFilterEntryPoints() || !CheckALError()) {
        AppendLog("Error deleting Source Aux Send filter");
        return 0;
    }
    m_sendFilter[send] = 0;
    m_sendSlot[send] = -1;
    AppendLog(LogMessage("Source aux send filter %d deleted", send).Text());
    return 1;
}

int EFX_3DSource::SetAuxSendFilterProperty(int send, ALenum token, float gain, const char* invalidFilter,
                                           const char* setFailed, const char* success)
{
    if (!SendInRange(send))
        return 0;
    if (!IsFilter(m_sendFilter[send])) {
        AppendLog(invalidFilter);
        return 0;
    }
    ClearALError();
    alFilterf(m_sendFilter[send], token, gain);
    if (!CheckALError()) {
        AppendLog(setFailed);
        return 0;
    }
    // A disconnected send is attached to no slot, and stays disconnected.
    AttachSend(send, m_sendSlot[send]);
    if (!CheckALError()) {
        AppendLog("Error attaching Aux Send filter to source when setting filter gain ");
        return 0;
    }
    AppendLog(LogMessage(success, send).Text());
    return 1;
}

int EFX_3DSource::SetAuxSendFilterGain(int send, float gain)
{
    return SetAuxSendFilterProperty(send, AL_LOWPASS_GAIN, gain, "Error setting Aux Send filter gain: invalid filter",
                                    "Error setting Aux Send filter AL_LOWPASS_GAIN (filter created?)",
                                    "Source aux send filter %d AL_LOWPASS_GAIN set");
}

int EFX_3DSource::SetAuxSendFilterGainHF(int send, float gain)
{
    return SetAuxSendFilterProperty(send, AL_LOWPASS_GAINHF, gain,
                                    "Error setting Aux Send filter gainHF: invalid filter",
                                    "Error setting Aux Send filter AL_LOWPASS_GAINHF (filter created?)",
                                    "Source aux send filter %d AL_LOWPASS_GAINHF set");
}

int EFX_3DSource::GetAuxSendFilterGains(int send, float* gain, float* gainHF)
{
    if (!SendInRange(send))
        return 0;
    if (!IsFilter(m_sendFilter[send])) {
        AppendLog("Error getting Aux Send filter gains: invalid filter ");
        return 0;
    }
    ClearALError();
    alGetFilterf(m_sendFilter[send], AL_LOWPASS_GAIN, gain);
    if (!CheckALError()) {
        AppendLog("Error getting Aux Send filter AL_LOWPASS_GAIN ");
        return 0;
    }
    alGetFilterf(m_sendFilter[send], AL_LOWPASS_GAINHF, gainHF);
    if (!CheckALError()) {
        AppendLog("Error getting Aux Send filter AL_LOWPASS_GAINHF ");
        return 0;
    }
    return 1;
}
