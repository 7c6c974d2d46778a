#pragma once

#include "engine/DeviceInfo.h"
#include "engine/EFX_Base.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/efx.h>

#include <cstdint>
#include <vector>

class EFX_Context;
class EFX_EffectSlot;
class EFX_3DSource;
class CWaves;

// Root of the engine: finds the devices and what each can do, opens the chosen one, creates the
// OpenAL context with the requested sends, generates the auxiliary slots and makes the engine objects.
// One factory for the program, made by Create() and owned by the bridge. Much of its state is
// class-wide, so that the other engine classes reach it without a pointer.
class EFX_Factory : public EFX_Base {
public:
    static constexpr std::uint32_t kMaxSlots = 4;
    static constexpr int kMaxProbedSources = 512;

    static EFX_Factory* Create();

    // Releases the context object and the slot objects still alive, with a warning in the log each.
    // Does not call Shutdown: the owner does that first.
    ~EFX_Factory() override;
    // The factory is deleted by its owner, never by itself.
    void Release() override {}

    virtual int Shutdown();
    virtual int Initialize(std::uint32_t reserved, std::uint32_t maxSends);
    // The slot object of an index below the number generated; a second call gives the same object.
    virtual EFX_EffectSlot* CreateEffectSlot(std::uint32_t index);
    virtual EFX_EffectSlot* GetEffectSlot(std::uint32_t index);
    virtual std::uint32_t GetNumEffectSlots();
    // The one context object; a second call gives the same object.
    virtual EFX_Context* CreateContext();
    // A new source, owned by the caller.
    virtual EFX_3DSource* CreateEmptySource();
    virtual EFX_3DSource* CreateSource(const char* path);
    virtual int SuspendContext();
    virtual int ProcessContext();
    // Reserved query of the context's state: always 0, meaning that there is nothing to show.
    virtual int QueryContextState();

    static std::uint32_t GetMaxSends();
    static ALuint GetEffectSlotId(std::uint32_t index);
    static void SelectDevice(const char* name);
    static int EnumerateDevices(DeviceInfo** list);
    static void FreeDeviceList();

    // The one WAV reader, shared by the factory and the sources.
    static CWaves& Waves();

protected:
    EFX_Factory() = default;

    // What the destructor does: releases the context object and the slot objects still alive, with a
    // warning in the log for each.
    void ReleaseRemainingObjects();

private:
    friend class EFX_Context;

    int ResolveEntryPoints();
    // A source whose initialisation failed is not handed out, yet it keeps its AL source and buffer.
    // The factory holds on to the object so that its memory goes when the factory goes.
    EFX_3DSource* WrapSource(ALuint source, ALuint buffer, int attached, bool& handlesKept);
    void KeepFailedSource(EFX_3DSource* source);

    void GenerateSlots();
    void CloseHandles();

    LPALISAUXILIARYEFFECTSLOT alIsAuxiliaryEffectSlot = nullptr;
    LPALGENAUXILIARYEFFECTSLOTS alGenAuxiliaryEffectSlots = nullptr;
    ALCcontext* m_context = nullptr;
    ALCdevice* m_device = nullptr;
    std::uint32_t m_numSlots = 0;
    std::vector<EFX_3DSource*> m_failedSources;

    static ALuint s_slotNames[kMaxSlots];
    static std::uint32_t s_maxSends;
    static std::uint32_t s_reserved;
    static DeviceInfo* s_deviceList;
    static char s_selectedDevice[DeviceInfo::kNameSize];
    static EFX_Context* s_context;
    static EFX_EffectSlot* s_slots[kMaxSlots];
};
