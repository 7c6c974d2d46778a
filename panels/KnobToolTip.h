#pragma once

#include "engine/EffectProperties.def"

#include <string>
#include <string_view>

struct PanelKnob;

// What a knob's tooltip tells: the property's token as OpenAL spells it, then the knob's range and
// the unit of its value, "AL_ECHO_DELAY\n0 to 0.207 s". Qt-free, so that the text can be checked
// without a window.

// The spelling of each effect property's token, taken from the engine's catalogue, so that a panel
// row names its property by a constant (effect_token::kEchoDelay is "AL_ECHO_DELAY") and a misspelt
// one does not compile.
namespace effect_token {
#define SONOPTIC_EFFECT_TOKEN(Group, Property, Token, ...) inline constexpr char k##Group##Property[] = #Token;
#define SONOPTIC_EFFECT_TOKEN_GROUP(Group, Properties) Properties(SONOPTIC_EFFECT_TOKEN)
EFX_EFFECT_GROUPS(SONOPTIC_EFFECT_TOKEN_GROUP)
#undef SONOPTIC_EFFECT_TOKEN_GROUP
#undef SONOPTIC_EFFECT_TOKEN
} // namespace effect_token

enum class PropertyUnit { None, Seconds, Hertz, Gain, Metres, MetresPerSecond, Degrees, Semitones, Cents, Octaves };

// The unit of a property by its token, from the one table of units; false for a token it lacks.
bool UnitOfProperty(std::string_view token, PropertyUnit* unit);

// The token on the first line, the range and the unit on the second; numbers as short as they can be
// written without losing a digit of the float.
std::string KnobToolTipText(std::string_view token, float minimum, float maximum, PropertyUnit unit);

// The tooltip of a panel's knob: its row's token and range, and the unit the table gives the token
// (none where the table has no entry).
std::string KnobToolTip(const PanelKnob& knob);
