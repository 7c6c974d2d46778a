#pragma once

// The effect in a slot as C code, for a program that builds the same effect: the alEffecti /
// alEffectf / alEffectfv calls that rebuild it on an effect object named `effect`, with the tokens'
// names, and for the two reverbs also an EFXEAXREVERBPROPERTIES initializer laid out as in
// AL/efx-presets.h. Floats are written in their shortest exact form, so the code rebuilds the very
// values that the slot holds.

#include <string>

class EFX_Factory;

// The code of the effect in slot n; empty when there is no such slot or it cannot say its effect.
std::string SlotEffectCode(EFX_Factory& factory, int slot);

// A float as a C literal that reads back as the same float: "0.5f", "5000.0f", "1e-05f".
std::string FloatLiteral(float value);
