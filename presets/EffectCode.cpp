#include "presets/EffectCode.h"

#include "engine/EFX_Factory.h"
#include "engine/EffectTokens.h"
#include "engine/SceneSnapshot.h"
#include "presets/StandardReverbLibrary.h"

#include <charconv>

namespace {

std::string Vector(const float* v)
{
    return "{ " + FloatLiteral(v[0]) + ", " + FloatLiteral(v[1]) + ", " + FloatLiteral(v[2]) + " }";
}

// The initializer of a reverb in the field order of EFXEAXREVERBPROPERTIES.
std::string ReverbInitializer(const EAXReverbValues& v, int slot)
{
    using namespace eax_value;
    std::string code = "/* The reverb of slot " + std::to_string(slot) +
                       " as an EFXEAXREVERBPROPERTIES initializer, laid out as in AL/efx-presets.h. */\n"
                       "#define SONOPTIC_REVERB_PRESET_SLOT_" + std::to_string(slot) + " \\\n    { ";
    for (int i = kDensity; i <= kReflectionsDelay; ++i)
        code += FloatLiteral(v[i]) + ", ";
    code += Vector(&v[kReflectionsPan]) + ", " + FloatLiteral(v[kLateReverbGain]) + ", " +
            FloatLiteral(v[kLateReverbDelay]) + ", " + Vector(&v[kLateReverbPan]) + ", ";
    for (int i = kEchoTime; i <= kRoomRolloffFactor; ++i)
        code += FloatLiteral(v[i]) + ", ";
    code += v[kDecayHFLimit] != 0.0f ? "0x1 }\n" : "0x0 }\n";
    return code;
}

} // namespace

std::string FloatLiteral(float value)
{
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value);
    std::string literal(text, error == std::errc() ? end : text);
    if (literal.find_first_of(".eEin") == std::string::npos)
        literal += ".0";
    return literal + "f";
}

std::string SlotEffectCode(EFX_Factory& factory, int slot)
{
    EFX_EffectSlot* object = slot >= 0 ? factory.GetEffectSlot(static_cast<std::uint32_t>(slot)) : nullptr;
    int type = 0;
    if (!object || !object->GetEffect(&type))
        return {};
    std::string code;
    if (type == kEffectEAXReverb || type == kEffectReverb)
        code += ReverbInitializer(ReadReverbValues(factory, static_cast<std::uint32_t>(slot), type), slot) + "\n";
    const std::string typeName = ALEffectTypeName(type);
    code += "/* The effect of slot " + std::to_string(slot) + " (" + typeName +
            "): the calls that rebuild it on the effect object \"effect\". */\n";
    code += "alEffecti(effect, AL_EFFECT_TYPE, " + typeName + ");\n";
    // The values as OpenAL holds them, read in the order of the effect's tokens.
    SlotSnapshot values;
    CaptureEffectValues(object->EffectObject(), type, values);
    const auto tokens = EffectTokensOf(type);
    for (std::size_t i = 0; i < tokens.size() && i < values.values.size(); ++i) {
        const EffectValue& value = values.values[i];
        const std::string name = tokens[i].name;
        switch (tokens[i].kind) {
        case TokenKind::Float:
            code += "alEffectf(effect, " + name + ", " + FloatLiteral(value.f[0]) + ");\n";
            break;
        case TokenKind::Long:
            code += "alEffecti(effect, " + name + ", " + std::to_string(value.i) + ");\n";
            break;
        case TokenKind::Bool:
            code += "alEffecti(effect, " + name + ", " + (value.i ? "AL_TRUE" : "AL_FALSE") + ");\n";
            break;
        case TokenKind::Vector:
            code += "{ const ALfloat value[3] = " + Vector(value.f.data()) + "; alEffectfv(effect, " + name +
                    ", value); }\n";
            break;
        }
    }
    return code;
}
