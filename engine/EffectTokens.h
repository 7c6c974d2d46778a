#pragma once

// The tokens of every effect property, by EffectType, in the engine's order: enough to read an
// effect's values with alGetEffect* and to set them again on another effect object.

#include "engine/EFX_EffectSlot.h"

#include <AL/al.h>

#include <span>

enum class TokenKind { Float, Long, Bool, Vector };

struct EffectToken {
    const char* name; // as OpenAL spells it
    ALenum token;
    TokenKind kind;
};

// The properties of an EffectType; empty for none or an unknown number.
std::span<const EffectToken> EffectTokensOf(int effectType);
// The AL effect type of an EffectType: AL_EFFECT_ECHO for kEffectEcho, AL_EFFECT_NULL otherwise.
ALint ALEffectTypeOf(int effectType);
// Its name: "AL_EFFECT_ECHO", or "AL_EFFECT_NULL".
const char* ALEffectTypeName(int effectType);
