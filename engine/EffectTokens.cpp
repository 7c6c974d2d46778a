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
    std::span<const EffectToken> tokens;
};
constexpr TypeTokens kTypes[] = {
    {kEffectEAXReverb, AL_EFFECT_EAXREVERB, kEAXReverbTokens},
    {kEffectReverb, AL_EFFECT_REVERB, kReverbTokens},
    {kEffectCompressor, AL_EFFECT_COMPRESSOR, kCompressorTokens},
    {kEffectAutowah, AL_EFFECT_AUTOWAH, kAutowahTokens},
    {kEffectChorus, AL_EFFECT_CHORUS, kChorusTokens},
    {kEffectDistortion, AL_EFFECT_DISTORTION, kDistortionTokens},
    {kEffectEcho, AL_EFFECT_ECHO, kEchoTokens},
    {kEffectEqualizer, AL_EFFECT_EQUALIZER, kEqualizerTokens},
    {kEffectFlanger, AL_EFFECT_FLANGER, kFlangerTokens},
    {kEffectVocalMorpher, AL_EFFECT_VOCAL_MORPHER, kVocalMorpherTokens},
    {kEffectPitchShifter, AL_EFFECT_PITCH_SHIFTER, kPitchShifterTokens},
    {kEffectRingModulator, AL_EFFECT_RING_MODULATOR, kRingModulatorTokens},
    {kEffectFrequencyShifter, AL_EFFECT_FREQUENCY_SHIFTER, kFrequencyShifterTokens},
};

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
