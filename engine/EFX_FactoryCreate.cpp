// The factory's creation operations: the context object, the slot objects and the sources.
#include "engine/EFX_Factory.h"

#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/LogMessage.h"

#include <new>

EFX_Context* EFX_Factory::CreateContext()
{
    if (!m_context)
        return nullptr;
    if (s_context)
        return s_context;
    auto* context = new (std::nothrow) EFX_Context();
    if (!context) {
        AppendLog("Context creation failed");
        return nullptr;
    }
    if (context->Initialize()) {
        s_context = context;
        AppendLog("Context creation and EAX intialization successful");
        return context;
    }
    AppendLog("Cannot create Context: ");
    AppendLog(context->GetLog());
    delete context;
    return nullptr;
}

EFX_EffectSlot* EFX_Factory::CreateEffectSlot(std::uint32_t index)
{
    // An index taken from a negative number is far above the number of slots.
    if (!m_context || index >= m_numSlots)
        return nullptr;
    if (s_slots[index])
        return s_slots[index];
    auto* slot = new (std::nothrow) EFX_EffectSlot(index, s_slotNames[index]);
    if (!slot) {
        AppendLog("Cannot create EffectSlot: unknown error at object creation");
        return nullptr;
    }
    if (slot->InitializeEAXSupport()) {
        AppendLog("EffectSlot creation and EAX intialization successful");
        s_slots[index] = slot;
        return slot;
    }
    SetLog(LogMessage("Cannot create Slot: %s", slot->GetLog()).Text());
    delete slot;
    return nullptr;
}

namespace {

// The wave of a reader entry, ready for alBufferData. The format starts at -1, which only an
// unknown identifier leaves; a wave without a format arrives as 0, and alBufferData refuses it.
struct WaveUpload {
    std::uint32_t size = 0;
    std::uint32_t frequency = 0;
    std::int32_t type = 0;
    void* data = nullptr;
    ALenum format = -1;

    WaveUpload(CWaves& waves, int id)
    {
        waves.GetWaveSize(id, &size);
        waves.GetWaveData(id, &data);
        waves.GetWaveType(id, &type);
        waves.GetWaveFrequency(id, &frequency);
        waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
    }
};

} // namespace

EFX_3DSource* EFX_Factory::CreateEmptySource()
{
    if (!m_context)
        return nullptr;
    ALuint source = 0;
    ALuint buffer = 0;
    ClearALError();
    alGenSources(1, &source);
    if (!CheckALError())
        return nullptr;
    alGenBuffers(1, &buffer);
    if (!CheckALError()) {
        alDeleteSources(1, &source);
        return nullptr;
    }
    bool handlesKept = false;
    if (EFX_3DSource* object = WrapSource(source, buffer, 0, handlesKept))
        return object;
    if (!handlesKept) {
        alDeleteBuffers(1, &buffer);
        alDeleteSources(1, &source);
    }
    return nullptr;
}

EFX_3DSource* EFX_Factory::CreateSource(const char* path)
{
    if (!m_context)
        return nullptr;
    if (!path) {
        AppendLog("Unable to load file: invalid file or file loader");
        return nullptr;
    }
    ALuint source = 0;
    ALuint buffer = 0;
    ClearALError();
    alGenSources(1, &source);
    if (!CheckALError())
        return nullptr;
    alGenBuffers(1, &buffer);

    CWaves& waves = Waves();
    int id = -1;
    if (waves.LoadWaveFile(path, &id) < 0) {
        // The buffer is not deleted on this path; it stays with the context.
        alDeleteSources(1, &source);
        return nullptr;
    }
    const WaveUpload wave(waves, id);
    bool uploaded = false;
    if (wave.format != -1) {
        ClearALError();
        alBufferData(buffer, wave.format, wave.data, static_cast<ALsizei>(wave.size),
                     static_cast<ALsizei>(wave.frequency));
        // The wave is dropped as soon as the buffer has its data, before the upload is checked.
        waves.DeleteWaveFile(id);
        uploaded = CheckALError();
    }
    bool handlesKept = false;
    if (uploaded) {
        if (EFX_3DSource* object = WrapSource(source, buffer, 1, handlesKept)) {
            object->m_filePath = path;
            return object;
        }
    }
    if (!handlesKept) {
        alDeleteBuffers(1, &buffer);
        alDeleteSources(1, &source);
    }
    return nullptr;
}

// Wraps a generated source and buffer in an engine object. Null when the object could not be made,
// and the caller deletes the AL names; or null when its set-up failed, and the object is left as it
// is, keeping its source and buffer (handlesKept).
EFX_3DSource* EFX_Factory::WrapSource(ALuint source, ALuint buffer, int attached, bool& handlesKept)
{
    handlesKept = false;
    auto* object = new (std::nothrow) EFX_3DSource(source, buffer, attached);
    if (!object)
        return nullptr;
    handlesKept = true;
    if (object->Initialize()) {
        SetLog("Source creation and EFX intialization successful");
        return object;
    }
    SetLog(LogMessage("Cannot create source: %s", object->GetLog()).Text());
    KeepFailedSource(object);
    return nullptr;
}
