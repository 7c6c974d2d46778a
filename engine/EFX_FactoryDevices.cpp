// The device list: enumeration and the real probe of what each device can do.
#include "engine/EFX_Factory.h"

#include <cstring>
#include <vector>

namespace {

struct EAXProbe {
    const char* extension;
    std::uint32_t bit;
};

constexpr EAXProbe kSupportedProbes[] = {
    {"EAX5.0", DeviceInfo::kEAX50},
    {"EAX4.0", DeviceInfo::kEAX40},
    {"EAX3.0", DeviceInfo::kEAX30},
    {"EAX2.0", DeviceInfo::kEAX20},
};

constexpr EAXProbe kEmulatedProbes[] = {
    {"EAX4.0Emulated", DeviceInfo::kEAX40},
    {"EAX3.0Emulated", DeviceInfo::kEAX30},
    {"EAX2.0Emulated", DeviceInfo::kEAX20},
};

DeviceInfo* AppendRecord(DeviceInfo**& tail, const char* name)
{
    auto* record = new DeviceInfo{};
    std::strncat(record->name, name, DeviceInfo::kNameSize - 1);
    *tail = record;
    tail = &record->next;
    return record;
}

template <std::size_t N>
std::uint32_t ProbeBits(const EAXProbe (&probes)[N])
{
    std::uint32_t bits = 0;
    for (const EAXProbe& probe : probes) {
        if (alIsExtensionPresent(probe.extension))
            bits |= probe.bit;
    }
    return bits;
}

// Counts the sources the device really gives at this moment, generated one by one up to 512.
std::int32_t CountSources()
{
    std::vector<ALuint> sources;
    sources.reserve(EFX_Factory::kMaxProbedSources);
    alGetError();
    while (sources.size() < static_cast<std::size_t>(EFX_Factory::kMaxProbedSources)) {
        ALuint source = 0;
        alGenSources(1, &source);
        if (alGetError() != AL_NO_ERROR)
            break;
        sources.push_back(source);
    }
    if (!sources.empty())
        alDeleteSources(static_cast<ALsizei>(sources.size()), sources.data());
    return static_cast<std::int32_t>(sources.size());
}

void ProbeDevice(DeviceInfo& record)
{
    ALCdevice* device = alcOpenDevice(record.name);
    if (!device)
        return;
    ALCcontext* context = alcCreateContext(device, nullptr);
    if (!context) {
        alcCloseDevice(device);
        return;
    }
    alcMakeContextCurrent(context);
    record.hasEFX = alcIsExtensionPresent(device, "ALC_EXT_EFX") ? 1 : 0;
    record.eaxSupported = ProbeBits(kSupportedProbes);
    record.eaxEmulated = ProbeBits(kEmulatedProbes);
    record.maxSources = CountSources();
    alcGetIntegerv(device, ALC_MAJOR_VERSION, 1, &record.alcMajor);
    alcGetIntegerv(device, ALC_MINOR_VERSION, 1, &record.alcMinor);
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(context);
    alcCloseDevice(device);
}

// Without any name from the library, the default device is opened to learn its name.
bool AddOpenedDefaultDevice(DeviceInfo**& tail)
{
    ALCdevice* device = alcOpenDevice(nullptr);
    if (!device)
        return false;
    ALCcontext* context = alcCreateContext(device, nullptr);
    if (!context) {
        alcCloseDevice(device);
        return false;
    }
    alcMakeContextCurrent(context);
    if (const ALCchar* name = alcGetString(device, ALC_DEVICE_SPECIFIER))
        AppendRecord(tail, name);
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(context);
    alcCloseDevice(device);
    return true;
}

} // namespace

int EFX_Factory::EnumerateDevices(DeviceInfo** list)
{
    // A list of an earlier call is not freed here; the program enumerates once.
    s_deviceList = nullptr;
    DeviceInfo** tail = &s_deviceList;

    const ALCchar* names = nullptr;
    if (alcIsExtensionPresent(nullptr, "ALC_ENUMERATION_EXT") == ALC_TRUE)
        names = alcGetString(nullptr, ALC_DEVICE_SPECIFIER);
    if (names) {
        for (const ALCchar* name = names; *name; name += std::strlen(name) + 1)
            AppendRecord(tail, name);
    } else if (const ALCchar* name = alcGetString(nullptr, ALC_DEFAULT_DEVICE_SPECIFIER)) {
        AppendRecord(tail, name);
    }

    if (!s_deviceList && !AddOpenedDefaultDevice(tail)) {
        *list = nullptr;
        return 0;
    }

    for (DeviceInfo* record = s_deviceList; record; record = record->next)
        ProbeDevice(*record);

    *list = s_deviceList;
    return 1;
}

void EFX_Factory::FreeDeviceList()
{
    while (s_deviceList) {
        DeviceInfo* next = s_deviceList->next;
        delete s_deviceList;
        s_deviceList = next;
    }
}
