#pragma once

// What the OpenAL Soft under test does with settings and values that its releases treat
// differently. A test whose premise the library does not honour asks here, sees what the library
// did, and skips with the reason; no test asserts a library's own limits as the program's behaviour.

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/efx.h>

#include <optional>
#include <string>

namespace library_premises {

// The effect slots a fresh context on the default device gives, counted up to `upTo`. The test's
// own context, if any, is current again afterwards.
inline int EffectSlotsGiven(int upTo)
{
    ALCcontext* previous = alcGetCurrentContext();
    ALCdevice* device = alcOpenDevice(nullptr);
    ALCcontext* context = device ? alcCreateContext(device, nullptr) : nullptr;
    int given = 0;
    if (context && alcMakeContextCurrent(context)) {
        auto gen = reinterpret_cast<LPALGENAUXILIARYEFFECTSLOTS>(alGetProcAddress("alGenAuxiliaryEffectSlots"));
        auto del = reinterpret_cast<LPALDELETEAUXILIARYEFFECTSLOTS>(alGetProcAddress("alDeleteAuxiliaryEffectSlots"));
        ALuint slots[16] = {};
        alGetError();
        while (gen && given < upTo && given < 16) {
            gen(1, &slots[given]);
            if (alGetError() != AL_NO_ERROR)
                break;
            ++given;
        }
        if (del && given)
            del(given, slots);
    }
    alcMakeContextCurrent(previous);
    if (context)
        alcDestroyContext(context);
    if (device)
        alcCloseDevice(device);
    return given;
}

// Why a test written for a device of `configured` slots cannot run here, or nothing. Releases since
// 1.23 ignore the slots= setting and give every slot asked for.
inline std::optional<std::string> SlotLimitIgnored(int configured)
{
    const int given = EffectSlotsGiven(configured + 1);
    if (given <= configured)
        return std::nullopt;
    return "this OpenAL Soft ignores slots=" + std::to_string(configured) + " and gave " + std::to_string(given)
        + " effect slots (releases since 1.23 do)";
}

} // namespace library_premises
