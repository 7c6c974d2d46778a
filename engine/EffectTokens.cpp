#include "engine/EffectTokens.h"

#include "engine/EffectProperties.def"

namespace {

#define SONOPTIC_TOKEN_ROW(Group, Property, Token, Kind, ...) {#Token, Token, TokenKind::Kind},
#define SONOPTIC_TOKEN_GROUP(Group, Properties) constexpr EffectToken k##Group##Tokens[] = {Properties(SONOPTIC_TOKEN_ROW)};
EFX_EFFECT_GROUPS(SONOPTIC_TOKEN_GROUP)
#undef SONOPTIC_TOKEN_GROUP
#undef SONOPTIC_TOKEN_ROW

struct TypeTokens {
    int type;
    ALint alType;
    const char* alTypeName;
    std::span<const EffectToken> tokens;
};
// The type's AL name is its token's spelling.
#define SONOPTIC_TYPE(Type, ALType, Tokens) {Type, ALType, #ALType, Tokens}
constexpr TypeTokens kTypes[] = {
    SONOPTIC_TYPE(kEffectEAXReverb, AL_EFFECT_EAXREVERB, kEAXReverbTokens),
    SONOPTIC_TYPE(kEffectReverb, AL_EFFECT_REVERB, kReverbTokens),
    SONOPTIC_TYPE(kEffectCompressor, AL_EFFECT_COMPRESSOR, kCompressorTokens),
    SONOPTIC_TYPE(kEffectAutowah, AL_EFFECT_AUTOWAH, kAutowahTokens),
    SONOPTIC_TYPE(kEffectChorus, AL_EFFECT_CHORUS, kChorusTokens),
    SONOPTIC_TYPE(kEffectDistortion, AL_EFFECT_DISTORTION, kDistortionTokens),
    SONOPTIC_TYPE(kEffectEcho, AL_EFFECT_ECHO, kEchoTokens),
    SONOPTIC_TYPE(kEffectEqualizer, AL_EFFECT_EQUALIZER, kEqualizerTokens),
    SONOPTIC_TYPE(kEffectFlanger, AL_EFFECT_FLANGER, kFlangerTokens),
    SONOPTIC_TYPE(kEffectVocalMorpher, AL_EFFECT_VOCAL_MORPHER, kVocalMorpherTokens),
    SONOPTIC_TYPE(kEffectPitchShifter, AL_EFFECT_PITCH_SHIFTER, kPitchShifterTokens),
    SONOPTIC_TYPE(kEffectRingModulator, AL_EFFECT_RING_MODULATOR, kRingModulatorTokens),
    SONOPTIC_TYPE(kEffectFrequencyShifter, AL_EFFECT_FREQUENCY_SHIFTER, kFrequencyShifterTokens),
};
#undef SONOPTIC_TYPE

const TypeTokens* Find(int type)
{
    for (const TypeTokens& entry : kTypes)
        if (entry.type == type)
            return &entry;
    return nullptr;
}

} // namespace

std::span<const EffectToken> EffectTokensOf(int effectType)
{
    const TypeTokens* entry = Find(effectType);
    return entry ? entry->tokens : std::span<const EffectToken>();
}

ALint ALEffectTypeOf(int effectType)
{
    const TypeTokens* entry = Find(effectType);
    return entry ? entry->alType : AL_EFFECT_NULL;
}

const char* ALEffectTypeName(int effectType)
{
    const TypeTokens* entry = Find(effectType);
    return entry ? entry->alTypeName : "AL_EFFECT_NULL";
}
