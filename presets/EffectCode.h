#pragma once

// The effect in a slot as C code, for a program that builds the same effect: the alEffecti /
// alEffectf / alEffectfv calls that rebuild it on an effect object named `effect`, with the tokens'
// names, and for the two reverbs also an EFXEAXREVERBPROPERTIES initializer laid out as in
// AL/efx-presets.h. Floats are written in their shortest exact form, so the code rebuilds the very
// values that the slot holds.

#include <AL/al.h>

#include <span>
#include <string>

class EFX_Factory;
struct SlotAccessor;

// One property of an effect: its token as OpenAL spells it, its value, and how the engine sets it.
struct CodeProperty {
    const char* token;
    ALenum value;
    const SlotAccessor* accessor;
};

// The properties of an EffectType in the engine's order; empty for none.
std::span<const CodeProperty> EffectCodeProperties(int effectType);
// "AL_EFFECT_ECHO" for kEffectEcho; "AL_EFFECT_NULL" for none.
const char* EffectTypeToken(int effectType);

// The code of the effect in slot n; empty when there is no such slot or it cannot say its effect.
std::string SlotEffectCode(EFX_Factory& factory, int slot);

// A float as a C literal that reads back as the same float: "0.5f", "5000.0f", "1e-05f".
std::string FloatLiteral(float value);
