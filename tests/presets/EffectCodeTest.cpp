// The effect of a slot as C code: floats written so that they read back exactly, and code that, built
// with the project's compiler into a small program against OpenAL and run, makes an effect equal to
// the slot's, for every effect type the library takes, the reverbs' initializers included.
#include "engine/EFX_Factory.h"
#include "presets/EffectCode.h"
#include "engine/EffectTokens.h"
#include "tests/engine/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <AL/efx.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace {

TEST(EffectCode, FloatLiteralsReadBackAsTheSameFloat)
{
    const struct {
        float value;
        const char* literal;
    } cases[] = {
        {0.5f, "0.5f"}, {5000.0f, "5000.0f"}, {1e-05f, "1e-05f"}, {-0.0f, "-0.0f"}, {0.1f, "0.1f"},
        {0.316227766f, "0.31622776f"}, {3.4e38f, "3.4e+38f"}, {-1.0f, "-1.0f"},
    };
    for (const auto& c : cases) {
        const std::string literal = FloatLiteral(c.value);
        EXPECT_EQ(literal, c.literal);
        EXPECT_EQ(std::strtof(literal.c_str(), nullptr), c.value) << literal;
    }
}

// Reads every property of an effect with OpenAL's own calls, one line each: "TOKEN value...".
// The same text is made in this process for the slot and in the built program for its effect.
const char* const kPrintProperty = R"(
static void Print(ALuint effect, const char* name, ALenum token, int kind)
{
    if (kind == 0) { ALfloat v = 0; alGetEffectf(effect, token, &v); std::printf("%s %.9g\n", name, v); }
    else if (kind == 1) { ALint v = 0; alGetEffecti(effect, token, &v); std::printf("%s %d\n", name, v); }
    else { ALfloat v[3] = {0, 0, 0}; alGetEffectfv(effect, token, v);
           std::printf("%s %.9g %.9g %.9g\n", name, v[0], v[1], v[2]); }
}
)";

int KindOf(const EffectToken& property)
{
    switch (property.kind) {
    case TokenKind::Float: return 0;
    case TokenKind::Vector: return 2;
    default: return 1;
    }
}

std::string PrintCalls(int type, const char* effect)
{
    std::string calls;
    for (const EffectToken& property : EffectTokensOf(type))
        calls += std::string("    Print(") + effect + ", \"" + property.name + "\", " + property.name + ", " +
                 std::to_string(KindOf(property)) + ");\n";
    return calls;
}

std::string Printed(ALuint effect, int type)
{
    static const auto alGetEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
    static const auto alGetEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
    static const auto alGetEffectfv = reinterpret_cast<LPALGETEFFECTFV>(alGetProcAddress("alGetEffectfv"));
    std::string text;
    char line[160];
    for (const EffectToken& property : EffectTokensOf(type)) {
        if (KindOf(property) == 0) {
            ALfloat v = 0;
            alGetEffectf(effect, property.token, &v);
            std::snprintf(line, sizeof line, "%s %.9g\n", property.name, v);
        } else if (KindOf(property) == 1) {
            ALint v = 0;
            alGetEffecti(effect, property.token, &v);
            std::snprintf(line, sizeof line, "%s %d\n", property.name, v);
        } else {
            ALfloat v[3] = {0, 0, 0};
            alGetEffectfv(effect, property.token, v);
            std::snprintf(line, sizeof line, "%s %.9g %.9g %.9g\n", property.name, v[0], v[1], v[2]);
        }
        text += line;
    }
    return text;
}

// Moves every property of the effect object off its default where OpenAL takes the new value.
void MoveOffDefaults(ALuint effect, int type)
{
    static const auto getEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
    static const auto getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
    static const auto effectf = reinterpret_cast<LPALEFFECTF>(alGetProcAddress("alEffectf"));
    static const auto effecti = reinterpret_cast<LPALEFFECTI>(alGetProcAddress("alEffecti"));
    static const auto effectfv = reinterpret_cast<LPALEFFECTFV>(alGetProcAddress("alEffectfv"));
    for (const EffectToken& property : EffectTokensOf(type)) {
        alGetError();
        switch (property.kind) {
        case TokenKind::Float: {
            ALfloat v = 0;
            getEffectf(effect, property.token, &v);
            effectf(effect, property.token, v != 0.0f ? v * 0.9f : 0.01f);
            break;
        }
        case TokenKind::Long: {
            ALint v = 0;
            getEffecti(effect, property.token, &v);
            effecti(effect, property.token, v + 1);
            if (alGetError() != AL_NO_ERROR)
                effecti(effect, property.token, v - 1);
            break;
        }
        case TokenKind::Bool: {
            ALint v = 0;
            getEffecti(effect, property.token, &v);
            effecti(effect, property.token, v ? AL_FALSE : AL_TRUE);
            break;
        }
        case TokenKind::Vector: {
            const ALfloat v[3] = {0.5f, -0.25f, 0.125f};
            effectfv(effect, property.token, v);
            break;
        }
        }
        alGetError();
    }
}

// An initializer into an effect of the reverb type, as programs load the efx-presets.h reverbs.
const char* const kLoadInitializer = R"(
static void LoadEAXReverb(ALuint effect, const EFXEAXREVERBPROPERTIES* p)
{
    alEffecti(effect, AL_EFFECT_TYPE, AL_EFFECT_EAXREVERB);
    alEffectf(effect, AL_EAXREVERB_DENSITY, p->flDensity);
    alEffectf(effect, AL_EAXREVERB_DIFFUSION, p->flDiffusion);
    alEffectf(effect, AL_EAXREVERB_GAIN, p->flGain);
    alEffectf(effect, AL_EAXREVERB_GAINHF, p->flGainHF);
    alEffectf(effect, AL_EAXREVERB_GAINLF, p->flGainLF);
    alEffectf(effect, AL_EAXREVERB_DECAY_TIME, p->flDecayTime);
    alEffectf(effect, AL_EAXREVERB_DECAY_HFRATIO, p->flDecayHFRatio);
    alEffectf(effect, AL_EAXREVERB_DECAY_LFRATIO, p->flDecayLFRatio);
    alEffectf(effect, AL_EAXREVERB_REFLECTIONS_GAIN, p->flReflectionsGain);
    alEffectf(effect, AL_EAXREVERB_REFLECTIONS_DELAY, p->flReflectionsDelay);
    alEffectfv(effect, AL_EAXREVERB_REFLECTIONS_PAN, p->flReflectionsPan);
    alEffectf(effect, AL_EAXREVERB_LATE_REVERB_GAIN, p->flLateReverbGain);
    alEffectf(effect, AL_EAXREVERB_LATE_REVERB_DELAY, p->flLateReverbDelay);
    alEffectfv(effect, AL_EAXREVERB_LATE_REVERB_PAN, p->flLateReverbPan);
    alEffectf(effect, AL_EAXREVERB_ECHO_TIME, p->flEchoTime);
    alEffectf(effect, AL_EAXREVERB_ECHO_DEPTH, p->flEchoDepth);
    alEffectf(effect, AL_EAXREVERB_MODULATION_TIME, p->flModulationTime);
    alEffectf(effect, AL_EAXREVERB_MODULATION_DEPTH, p->flModulationDepth);
    alEffectf(effect, AL_EAXREVERB_AIR_ABSORPTION_GAINHF, p->flAirAbsorptionGainHF);
    alEffectf(effect, AL_EAXREVERB_HFREFERENCE, p->flHFReference);
    alEffectf(effect, AL_EAXREVERB_LFREFERENCE, p->flLFReference);
    alEffectf(effect, AL_EAXREVERB_ROOM_ROLLOFF_FACTOR, p->flRoomRolloffFactor);
    alEffecti(effect, AL_EAXREVERB_DECAY_HFLIMIT, p->iDecayHFLimit);
}
static void LoadReverb(ALuint effect, const EFXEAXREVERBPROPERTIES* p)
{
    alEffecti(effect, AL_EFFECT_TYPE, AL_EFFECT_REVERB);
    alEffectf(effect, AL_REVERB_DENSITY, p->flDensity);
    alEffectf(effect, AL_REVERB_DIFFUSION, p->flDiffusion);
    alEffectf(effect, AL_REVERB_GAIN, p->flGain);
    alEffectf(effect, AL_REVERB_GAINHF, p->flGainHF);
    alEffectf(effect, AL_REVERB_DECAY_TIME, p->flDecayTime);
    alEffectf(effect, AL_REVERB_DECAY_HFRATIO, p->flDecayHFRatio);
    alEffectf(effect, AL_REVERB_REFLECTIONS_GAIN, p->flReflectionsGain);
    alEffectf(effect, AL_REVERB_REFLECTIONS_DELAY, p->flReflectionsDelay);
    alEffectf(effect, AL_REVERB_LATE_REVERB_GAIN, p->flLateReverbGain);
    alEffectf(effect, AL_REVERB_LATE_REVERB_DELAY, p->flLateReverbDelay);
    alEffectf(effect, AL_REVERB_AIR_ABSORPTION_GAINHF, p->flAirAbsorptionGainHF);
    alEffectf(effect, AL_REVERB_ROOM_ROLLOFF_FACTOR, p->flRoomRolloffFactor);
    alEffecti(effect, AL_REVERB_DECAY_HFLIMIT, p->iDecayHFLimit);
}
)";

std::string RunCommand(const std::string& command)
{
    std::string output;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe)
        return output;
    char buffer[4096];
    while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe.get()))
        output.append(buffer, got);
    return output;
}

TEST(EffectCode, TheCodeOfEachEffectBuildsTheSameEffectInAProgramOfItsOwn)
{
    engine_test::EffectSpy spy;
    engine_test::FactoryPtr owner = engine_test::StartFactory();
    EFX_Factory& factory = *owner;
    ASSERT_NE(factory.CreateEffectSlot(0), nullptr);
    const ALuint slotEffect = spy.lastEffect;
    EFX_EffectSlot* slot = factory.GetEffectSlot(0);

    std::string blocks, expected, functions;
    for (int type = kEffectEAXReverb; type <= kEffectFrequencyShifter; ++type) {
        if (!slot->LoadEffect(type))
            continue; // the library lacks it (the vocal morpher before OpenAL Soft 1.20)
        MoveOffDefaults(slotEffect, type);
        const std::string printed = Printed(slotEffect, type);
        slot->LoadEffect(type);
        ASSERT_NE(Printed(slotEffect, type), printed) << ALEffectTypeName(type) << ": nothing moved off its default";
        MoveOffDefaults(slotEffect, type);
        std::string code = SlotEffectCode(factory, 0);
        ASSERT_FALSE(code.empty());
        // The two reverbs' initializers share a name: each gets its own in the one program.
        const std::string macro = "SONOPTIC_REVERB_PRESET_SLOT_0";
        const std::string ownMacro = macro + "_" + std::to_string(type);
        if (const std::size_t at = code.find(macro); at != std::string::npos)
            code.replace(at, macro.size(), ownMacro);
        const std::string name = "Effect" + std::to_string(type);
        functions += "static void " + name + "(ALuint effect)\n{\n" + code + "}\n";
        blocks += "    { ALuint effect = 0; alGenEffects(1, &effect); " + name + "(effect);\n" +
                  PrintCalls(type, "effect") + "    }\n";
        expected += printed;
        if (type == kEffectEAXReverb || type == kEffectReverb) {
            blocks += "    { ALuint effect = 0; alGenEffects(1, &effect);\n"
                      "      const EFXEAXREVERBPROPERTIES preset = " + ownMacro + ";\n"
                      "      " + std::string(type == kEffectEAXReverb ? "LoadEAXReverb" : "LoadReverb") +
                      "(effect, &preset);\n" + PrintCalls(type, "effect") + "    }\n";
            expected += printed;
        }
    }
    owner.reset();

    engine_test::ScratchDir scratch;
    const std::string source = scratch.File("effects.cpp");
    std::ofstream(source) << "#define AL_ALEXT_PROTOTYPES\n#include <AL/al.h>\n#include <AL/alc.h>\n"
                             "#include <AL/efx.h>\n#include <AL/efx-presets.h>\n#include <cstdio>\n"
                          << kPrintProperty << kLoadInitializer << functions
                          << "int main()\n{\n    ALCdevice* device = alcOpenDevice(nullptr);\n"
                             "    ALCcontext* context = device ? alcCreateContext(device, nullptr) : nullptr;\n"
                             "    if (!context || !alcMakeContextCurrent(context)) return 1;\n"
                          << blocks
                          << "    alcMakeContextCurrent(nullptr);\n    alcDestroyContext(context);\n"
                             "    alcCloseDevice(device);\n    return 0;\n}\n";
    const std::string program = scratch.File("effects");
    const std::string build = std::string(SONOPTIC_CXX_COMPILER) + " -std=c++17 -Werror -o '" + program + "' '" +
                              source + "' -lopenal 2>&1";
    const std::string errors = RunCommand(build);
    ASSERT_TRUE(errors.empty()) << errors;
    EXPECT_EQ(RunCommand("'" + program + "'"), expected);
}

} // namespace
