#include "presets/EffectCode.h"

#include "engine/EFX_Factory.h"
#include "presets/SlotProperty.h"
#include "presets/StandardReverbLibrary.h"

#include <charconv>
#include <cstdio>

namespace {

#define SONOPTIC_CODE_ROW(Group, Property, Token, Kind, ...) {#Token, Token, &slot_property::k##Group##Property},
#define SONOPTIC_CODE_GROUP(Group, Properties) \
    constexpr CodeProperty k##Group##Code[] = {Properties(SONOPTIC_CODE_ROW)};
EFX_EFFECT_GROUPS(SONOPTIC_CODE_GROUP)
#undef SONOPTIC_CODE_GROUP
#undef SONOPTIC_CODE_ROW

struct CodeEffect {
    int type;
    const char* typeToken;
    const char* title;
    std::span<const CodeProperty> properties;
};
constexpr CodeEffect kCodeEffects[] = {
    {kEffectEAXReverb, "AL_EFFECT_EAXREVERB", "EAX reverb", kEAXReverbCode},
    {kEffectReverb, "AL_EFFECT_REVERB", "Reverb", kReverbCode},
    {kEffectCompressor, "AL_EFFECT_COMPRESSOR", "Compressor", kCompressorCode},
    {kEffectAutowah, "AL_EFFECT_AUTOWAH", "Auto wah", kAutowahCode},
    {kEffectChorus, "AL_EFFECT_CHORUS", "Chorus", kChorusCode},
    {kEffectDistortion, "AL_EFFECT_DISTORTION", "Distortion", kDistortionCode},
    {kEffectEcho, "AL_EFFECT_ECHO", "Echo", kEchoCode},
    {kEffectEqualizer, "AL_EFFECT_EQUALIZER", "Equalizer", kEqualizerCode},
    {kEffectFlanger, "AL_EFFECT_FLANGER", "Flanger", kFlangerCode},
    {kEffectVocalMorpher, "AL_EFFECT_VOCAL_MORPHER", "Vocal morpher", kVocalMorpherCode},
    {kEffectPitchShifter, "AL_EFFECT_PITCH_SHIFTER", "Pitch shifter", kPitchShifterCode},
    {kEffectRingModulator, "AL_EFFECT_RING_MODULATOR", "Ring modulator", kRingModulatorCode},
    {kEffectFrequencyShifter, "AL_EFFECT_FREQUENCY_SHIFTER", "Frequency shifter", kFrequencyShifterCode},
};

const CodeEffect* FindCodeEffect(int type)
{
    for (const CodeEffect& effect : kCodeEffects)
        if (effect.type == type)
            return &effect;
    return nullptr;
}

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

std::span<const CodeProperty> EffectCodeProperties(int effectType)
{
    const CodeEffect* effect = FindCodeEffect(effectType);
    return effect ? effect->properties : std::span<const CodeProperty>();
}

const char* EffectTypeToken(int effectType)
{
    const CodeEffect* effect = FindCodeEffect(effectType);
    return effect ? effect->typeToken : "AL_EFFECT_NULL";
}

std::string SlotEffectCode(EFX_Factory& factory, int slot)
{
    EFX_EffectSlot* object = slot >= 0 ? factory.GetEffectSlot(static_cast<std::uint32_t>(slot)) : nullptr;
    int type = 0;
    if (!object || !object->GetEffect(&type))
        return {};
    const CodeEffect* effect = FindCodeEffect(type);
    std::string code;
    if (type == kEffectEAXReverb || type == kEffectReverb)
        code += ReverbInitializer(ReadReverbValues(factory, static_cast<std::uint32_t>(slot), type), slot) + "\n";
    code += "/* " + std::string(effect ? effect->title : "No effect") + " of slot " + std::to_string(slot) +
            ": the calls that rebuild it on the effect object \"effect\". */\n";
    code += "alEffecti(effect, AL_EFFECT_TYPE, " + std::string(EffectTypeToken(type)) + ");\n";
    for (const CodeProperty& property : EffectCodeProperties(type)) {
        SlotValue value;
        GetSlotProperty(*object, *property.accessor, value);
        const std::string token = property.token;
        switch (property.accessor->kind) {
        case PropertyKind::Float:
            code += "alEffectf(effect, " + token + ", " + FloatLiteral(value.f[0]) + ");\n";
            break;
        case PropertyKind::Long:
            code += "alEffecti(effect, " + token + ", " + std::to_string(value.i) + ");\n";
            break;
        case PropertyKind::Bool:
            code += "alEffecti(effect, " + token + ", " + (value.i ? "AL_TRUE" : "AL_FALSE") + ");\n";
            break;
        case PropertyKind::Vector:
            code += "{ const ALfloat value[3] = " + Vector(value.f) + "; alEffectfv(effect, " + token + ", value); }\n";
            break;
        }
    }
    return code;
}
