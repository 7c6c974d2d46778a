#pragma once

// Every effect property of the engine as a value: which kind it is and its setter and getter on
// EFX_EffectSlot. The accessors follow from the engine's own property list, so a preset record names
// a property (slot_property::kEchoDelay) and never spells out a call.

#include "engine/EFX_EffectSlot.h"
#include "engine/EffectProperties.def"

enum class PropertyKind { Float, Long, Bool, Vector };

struct SlotAccessor {
    PropertyKind kind;
    ALenum token = 0; // the EFX property, as OpenAL names it
    int (EFX_EffectSlot::*setFloat)(float) = nullptr;
    int (EFX_EffectSlot::*setInt)(int) = nullptr;
    int (EFX_EffectSlot::*setVector)(const float*) = nullptr;
    int (EFX_EffectSlot::*getFloat)(float*) = nullptr; // also the vector getter: three floats
    int (EFX_EffectSlot::*getInt)(int*) = nullptr;

    static constexpr SlotAccessor Float(ALenum token, int (EFX_EffectSlot::*set)(float),
                                        int (EFX_EffectSlot::*get)(float*))
    {
        return {PropertyKind::Float, token, set, nullptr, nullptr, get, nullptr};
    }
    static constexpr SlotAccessor Long(ALenum token, int (EFX_EffectSlot::*set)(int), int (EFX_EffectSlot::*get)(int*))
    {
        return {PropertyKind::Long, token, nullptr, set, nullptr, nullptr, get};
    }
    static constexpr SlotAccessor Bool(ALenum token, int (EFX_EffectSlot::*set)(int), int (EFX_EffectSlot::*get)(int*))
    {
        return {PropertyKind::Bool, token, nullptr, set, nullptr, nullptr, get};
    }
    static constexpr SlotAccessor Vector(ALenum token, int (EFX_EffectSlot::*set)(const float*),
                                         int (EFX_EffectSlot::*get)(float*))
    {
        return {PropertyKind::Vector, token, nullptr, nullptr, set, get, nullptr};
    }
};

// What one property holds: a float, an integer (Long and Bool), or three floats.
struct SlotValue {
    float f[3] = {0.0f, 0.0f, 0.0f};
    int i = 0;
};

// One getter or setter call; the result is the engine's 1 or 0. A failed get leaves `value` as the
// getter left it.
int GetSlotProperty(EFX_EffectSlot& slot, const SlotAccessor& property, SlotValue& value);
int SetSlotProperty(EFX_EffectSlot& slot, const SlotAccessor& property, const SlotValue& value);

namespace slot_property {

#define SONOPTIC_SLOT_ACCESSOR(Group, Property, Token, Kind, ...) \
    inline constexpr SlotAccessor k##Group##Property = \
        SlotAccessor::Kind(Token, &EFX_EffectSlot::Set##Group##Property, &EFX_EffectSlot::Get##Group##Property);
#define SONOPTIC_SLOT_ACCESSOR_GROUP(Group, Properties) Properties(SONOPTIC_SLOT_ACCESSOR)
EFX_EFFECT_GROUPS(SONOPTIC_SLOT_ACCESSOR_GROUP)
#undef SONOPTIC_SLOT_ACCESSOR_GROUP
#undef SONOPTIC_SLOT_ACCESSOR

} // namespace slot_property
