#include "engine/EFX_Factory.h"

#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/ProcAddress.h"

#include <cstring>

ALuint EFX_Factory::s_slotNames[kMaxSlots] = {};
std::uint32_t EFX_Factory::s_maxSends = 0;
std::uint32_t EFX_Factory::s_reserved = 0;
DeviceInfo* EFX_Factory::s_deviceList = nullptr;
char EFX_Factory::s_selectedDevice[DeviceInfo::kNameSize] = {};
EFX_Context* EFX_Factory::s_context = nullptr;
EFX_EffectSlot* EFX_Factory::s_slots[kMaxSlots] = {};

EFX_Factory* EFX_Factory::Create()
{
    return new EFX_Factory();
}

EFX_Factory::~EFX_Factory()
{
    ReleaseRemainingObjects();
}

void EFX_Factory::ReleaseRemainingObjects()
{
    if (s_context) {
        AppendLog("Warning: Destroying factory while listener is still alive.");
        EFX_Context* context = s_context;
        s_context = nullptr;
        context->Release();
    }
    for (EFX_EffectSlot*& slot : s_slots) {
        if (slot) {
            AppendLog("Warning: Destroying factory while effect slot is still alive.");
            slot->Release();
            slot = nullptr;
        }
    }
    for (EFX_3DSource* source : m_failedSources)
        source->Release();
}

void EFX_Factory::KeepFailedSource(EFX_3DSource* source)
{
    m_failedSources.push_back(source);
}

CWaves& EFX_Factory::Waves()
{
    static CWaves waves;
    return waves;
}

void EFX_Factory::CloseHandles()
{
    if (m_context) {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(m_context);
    }
    if (m_device)
        alcCloseDevice(m_device);
    m_context = nullptr;
    m_device = nullptr;
}

int EFX_Factory::Shutdown()
{
    CloseHandles();
    AppendLog("Released OpenAL Context.");
    return 1;
}

int EFX_Factory::Initialize(std::uint32_t reserved, std::uint32_t maxSends)
{
    AppendLog("Initializing EFX_Factory: ");
    s_maxSends = maxSends;
    s_reserved = reserved;
    s_context = nullptr;
    for (EFX_EffectSlot*& slot : s_slots)
        slot = nullptr;

    m_device = alcOpenDevice(s_selectedDevice[0] ? s_selectedDevice : nullptr);
    if (m_device) {
        // The one place where the requested sends reach OpenAL, as a hint.
        const ALCint attributes[8] = {ALC_MAX_AUXILIARY_SENDS, static_cast<ALCint>(maxSends), 0, 0, 0, 0, 0, 0};
        m_context = alcCreateContext(m_device, attributes);
    }
    if (!m_device || !m_context || !alcMakeContextCurrent(m_context)) {
        CloseHandles();
        AppendLog(" failed opening device");
        return 0;
    }

    const ALfloat origin[3] = {0.0f, 0.0f, 0.0f};
    const ALfloat orientation[6] = {0.0f, 0.0f, -1.0f, 0.0f, 1.0f, 0.0f};
    alListenerfv(AL_POSITION, origin);
    alListenerfv(AL_VELOCITY, origin);
    alListenerfv(AL_ORIENTATION, orientation);
    alDistanceModel(AL_INVERSE_DISTANCE_CLAMPED);

    // Without EFX the handles stay open and current; Shutdown releases them.
    if (!alcIsExtensionPresent(m_device, "ALC_EXT_EFX")) {
        AppendLog(" failed querying for EFX extension");
        return 0;
    }
    if (!ResolveEntryPoints())
        return 0;

    GenerateSlots();

    ALCint granted = 0;
    alcGetIntegerv(m_device, ALC_MAX_AUXILIARY_SENDS, 1, &granted);
    s_maxSends = static_cast<std::uint32_t>(granted);

    AppendLog(" successful");
    return 1;
}

int EFX_Factory::ResolveEntryPoints()
{
    if (!efx_proc::ResolveInto(alGenAuxiliaryEffectSlots, "alGenAuxiliaryEffectSlots")) {
        AppendLog("EFX extension: alGenAuxiliaryEffectSlots is unavailable..\n");
        return 0;
    }
    if (!efx_proc::ResolveInto(alIsAuxiliaryEffectSlot, "alIsAuxiliaryEffectSlot")) {
        AppendLog("EFX extension: alIsAuxiliaryEffectSlot is unavailable..\n");
        return 0;
    }
    return 1;
}

// Generates up to four slots, one at a time. A device that gives fewer, or none, is no failure.
void EFX_Factory::GenerateSlots()
{
    m_numSlots = 0;
    for (std::uint32_t index = 0; index < kMaxSlots; ++index) {
        ClearALError();
        alGenAuxiliaryEffectSlots(1, &s_slotNames[index]);
        if (!CheckALError())
            break;
        if (alIsAuxiliaryEffectSlot(s_slotNames[index]) != AL_TRUE)
            break;
        ++m_numSlots;
    }
}

EFX_EffectSlot* EFX_Factory::GetEffectSlot(std::uint32_t index)
{
    return index < kMaxSlots ? s_slots[index] : nullptr;
}

std::uint32_t EFX_Factory::GetNumEffectSlots()
{
    return m_numSlots;
}

int EFX_Factory::SuspendContext()
{
    if (!m_context) {
        SetLog("Failed to suspend OpenAL Context: no valid context");
        return 0;
    }
    alcSuspendContext(m_context);
    SetLog("OpenAL Context suspended");
    return 1;
}

int EFX_Factory::ProcessContext()
{
    if (!m_context) {
        SetLog("Failed to process OpenAL Context: no valid context");
        return 0;
    }
    alcProcessContext(m_context);
    SetLog("Processing OpenAL Context");
    return 1;
}

int EFX_Factory::QueryContextState()
{
    return 0;
}

std::uint32_t EFX_Factory::GetMaxSends()
{
    return s_maxSends;
}

ALuint EFX_Factory::GetEffectSlotId(std::uint32_t index)
{
    return index < kMaxSlots ? s_slotNames[index] : AL_EFFECTSLOT_NULL;
}

void EFX_Factory::SelectDevice(const char* name)
{
    s_selectedDevice[0] = '\0';
    std::strncat(s_selectedDevice, name, DeviceInfo::kNameSize - 1);
}
