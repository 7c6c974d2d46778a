#pragma once

// Helpers shared by the engine suites: a started factory, a resolver that hides one entry point,
// scratch files, WAV files made by sox or crafted byte by byte, and a look at recorded sound.

#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "engine/ProcAddress.h"
#include "tests/engine/RiffBuilder.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
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

// A factory (made, or a new one) started on the default device, its log of the start kept.
inline FactoryPtr StartFactoryKeepingLog(std::uint32_t maxSends, EFX_Factory* made = EFX_Factory::Create())
{
    EFX_Factory::SelectDevice("");
    FactoryPtr factory(made);
    EXPECT_EQ(factory->Initialize(0, maxSends), 1) << factory->GetLog();
    return factory;
}

inline FactoryPtr StartFactory(std::uint32_t maxSends = 4)
{
    FactoryPtr factory = StartFactoryKeepingLog(maxSends);
    factory->ClearLog();
    return factory;
}

// What a getter of an engine object reads; the getter must succeed (else its log shows).
template <typename Object, typename Class, typename T>
T Got(Object& object, int (Class::*get)(T*))
{
    T value = static_cast<T>(-99);
    EXPECT_EQ((object.*get)(&value), 1) << object.GetLog();
    return value;
}

// The same for a getter of three floats.
template <typename Object, typename Class>
std::array<float, 3> Got3(Object& object, int (Class::*get)(float*))
{
    std::array<float, 3> vector{-99.0f, -99.0f, -99.0f};
    EXPECT_EQ((object.*get)(vector.data()), 1) << object.GetLog();
    return vector;
}

// A source object on AL names that the test made itself (a source, and a buffer if asked), so that
// the test can look at the source with OpenAL's own calls, or delete it behind the object's back.
class OwnSource : public EFX_3DSource {
public:
    explicit OwnSource(bool withBuffer = true)
        : EFX_3DSource(Gen(alGenSources), withBuffer ? Gen(alGenBuffers) : 0, 0)
    {
    }
    ALint Sourcei(ALenum token) const
    {
        ALint value = -1;
        alGetSourcei(m_source, token, &value);
        return value;
    }
    void DeleteALSource() { alDeleteSources(1, &m_source); }

private:
    static ALuint Gen(void(AL_APIENTRY* gen)(ALsizei, ALuint*))
    {
        ALuint name = 0;
        gen(1, &name);
        return name;
    }
};

// While alive, the named entry point resolves to null and every other one to OpenAL's own.
class HiddenEntryPoint {
public:
    explicit HiddenEntryPoint(const char* name)
    {
        s_hidden = name;
        efx_proc::SetResolver(&Resolve);
    }
    ~HiddenEntryPoint() { efx_proc::SetResolver(nullptr); }

private:
    inline static const char* s_hidden = nullptr;
    static void* Resolve(const char* name)
    {
        return std::strcmp(name, s_hidden) == 0 ? nullptr : alGetProcAddress(name);
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
        s_self = this;
        efx_proc::SetResolver(&Resolve);
    }
    ~EffectSpy()
    {
        efx_proc::SetResolver(nullptr);
        s_self = nullptr;
    }

    ALuint lastEffect = 0;
    int attaches = 0;
    bool failGeneration = false;

private:
    inline static EffectSpy* s_self = nullptr;
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
        if (s_self->failGeneration) {
            real(-1, effects); // a negative count: OpenAL Soft reports AL_INVALID_VALUE
            return;
        }
        real(count, effects);
        s_self->lastEffect = effects[0];
    }
    static void AL_APIENTRY AuxiliaryEffectSloti(ALuint slot, ALenum param, ALint value)
    {
        if (param == AL_EFFECTSLOT_EFFECT)
            ++s_self->attaches;
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

// A started factory with slot Index made and its log cleared; the spy, made first, sees its effects.
template <std::uint32_t Index>
class SlotFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_factory = StartFactory();
        m_slot = m_factory->CreateEffectSlot(Index);
        ASSERT_NE(m_slot, nullptr) << m_factory->GetLog();
        m_slot->ClearLog();
    }
    std::string Log() const { return m_slot->GetLog(); }

    EffectSpy m_spy;
    FactoryPtr m_factory;
    EFX_EffectSlot* m_slot = nullptr;
};

} // namespace engine_test
