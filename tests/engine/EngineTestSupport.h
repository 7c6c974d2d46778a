#pragma once

// Helpers shared by the engine suites: a started factory, a resolver that hides one entry point,
// scratch files, WAV files made by sox or crafted byte by byte, and a look at recorded sound.

#include "engine/EFX_Factory.h"
#include "engine/ProcAddress.h"
#include "tests/engine/RiffBuilder.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace engine_test {

struct FactoryDeleter {
    void operator()(EFX_Factory* factory) const
    {
        factory->Shutdown();
        delete factory;
    }
};
using FactoryPtr = std::unique_ptr<EFX_Factory, FactoryDeleter>;

inline FactoryPtr StartFactory(std::uint32_t maxSends = 4)
{
    EFX_Factory::SelectDevice("");
    FactoryPtr factory(EFX_Factory::Create());
    EXPECT_EQ(factory->Initialize(0, maxSends), 1) << factory->GetLog();
    factory->ClearLog();
    return factory;
}

// While alive, the named entry point resolves to null and every other one to OpenAL's own.
class HiddenEntryPoint {
public:
    explicit HiddenEntryPoint(const char* name)
    {
        Hidden() = name;
        efx_proc::SetResolver(&Resolve);
    }
    ~HiddenEntryPoint() { efx_proc::SetResolver(nullptr); }

private:
    static const char*& Hidden()
    {
        static const char* name = nullptr;
        return name;
    }
    static void* Resolve(const char* name)
    {
        return std::strcmp(name, Hidden()) == 0 ? nullptr : alGetProcAddress(name);
    }
};

// While alive, sees through two entry points of OpenAL Soft: it remembers the name of the last
// effect generated (so that a test can read the effect with OpenAL's own calls), counts how often an
// effect is attached to a slot, and can make the generation of effects fail. Install it before the
// slot object resolves its entry points.
class EffectSpy {
public:
    EffectSpy()
    {
        Self() = this;
        efx_proc::SetResolver(&Resolve);
    }
    ~EffectSpy()
    {
        efx_proc::SetResolver(nullptr);
        Self() = nullptr;
    }

    ALuint lastEffect = 0;
    int attaches = 0;
    bool failGeneration = false;

private:
    static EffectSpy*& Self()
    {
        static EffectSpy* self = nullptr;
        return self;
    }
    static void* Resolve(const char* name)
    {
        if (std::strcmp(name, "alGenEffects") == 0)
            return reinterpret_cast<void*>(&GenEffects);
        if (std::strcmp(name, "alAuxiliaryEffectSloti") == 0)
            return reinterpret_cast<void*>(&AuxiliaryEffectSloti);
        return alGetProcAddress(name);
    }
    static void AL_APIENTRY GenEffects(ALsizei count, ALuint* effects)
    {
        auto real = reinterpret_cast<LPALGENEFFECTS>(alGetProcAddress("alGenEffects"));
        if (Self()->failGeneration) {
            real(-1, effects); // a negative count: OpenAL Soft reports AL_INVALID_VALUE
            return;
        }
        real(count, effects);
        Self()->lastEffect = effects[0];
    }
    static void AL_APIENTRY AuxiliaryEffectSloti(ALuint slot, ALenum param, ALint value)
    {
        if (param == AL_EFFECTSLOT_EFFECT)
            ++Self()->attaches;
        reinterpret_cast<LPALAUXILIARYEFFECTSLOTI>(alGetProcAddress("alAuxiliaryEffectSloti"))(slot, param, value);
    }
};

// Whether this OpenAL Soft takes an effect type (1.19 refuses the Vocal Morpher, later ones take it).
inline bool LibraryTakesEffect(ALint alType)
{
    auto genEffects = reinterpret_cast<LPALGENEFFECTS>(alGetProcAddress("alGenEffects"));
    auto deleteEffects = reinterpret_cast<LPALDELETEEFFECTS>(alGetProcAddress("alDeleteEffects"));
    auto effecti = reinterpret_cast<LPALEFFECTI>(alGetProcAddress("alEffecti"));
    ALuint effect = 0;
    genEffects(1, &effect);
    alGetError();
    effecti(effect, AL_EFFECT_TYPE, alType);
    const bool taken = alGetError() == AL_NO_ERROR;
    deleteEffects(1, &effect);
    return taken;
}

// A scratch folder of the test binary's own, emptied when the object goes.
class ScratchDir {
public:
    ScratchDir()
    {
        std::filesystem::create_directories(SONOPTIC_TEST_TMP);
        std::string pattern = std::string(SONOPTIC_TEST_TMP) + "/engineXXXXXX";
        std::vector<char> buffer(pattern.begin(), pattern.end());
        buffer.push_back('\0');
        m_path = mkdtemp(buffer.data());
    }
    ~ScratchDir() { std::filesystem::remove_all(m_path); }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

inline bool HaveSox()
{
    return std::system("command -v sox > /dev/null 2>&1") == 0;
}

// Has sox synthesise a file: output options, the path, then the effects. Returns whether it worked.
inline bool Sox(const std::string& options, const std::string& path, const std::string& effects)
{
    const std::string command = "sox -n " + options + " '" + path + "' " + effects + " > /dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

inline void WriteFile(const std::string& path, const std::vector<unsigned char>& bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace engine_test
