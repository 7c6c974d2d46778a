// The property operations of the thirteen effect groups, derived from EffectProperties.def. Each
// setter and getter is a single call of the primitive of its kind; each default routine calls the
// group's setters in order, through the virtual table, and stops at the first that fails.
#include "engine/EFX_EffectSlot.h"

#define EFX_DEFINE_SETTER(Group, Property, Token, Kind, ...) \
    int EFX_EffectSlot::Set##Group##Property(EFX_SET_PARAM_##Kind) \
    { \
        return SetEffect##Kind(value, Token, #Token, m_deferred); \
    }

#define EFX_DEFINE_GETTER(Group, Property, Token, Kind, Default, ...) \
    int EFX_EffectSlot::Get##Group##Property(EFX_GET_PARAM_##Kind) \
    { \
        return GetEffect##Kind(value, Token, EFX_GETTER_NAME(#Token __VA_OPT__(,) __VA_ARGS__)); \
    }

#define EFX_DEFAULT_STEP(Group, Property, Token, Kind, Default, ...) \
    if (!Set##Group##Property(Default)) \
        return 0;

#define EFX_DEFINE_GROUP(Group, Properties) \
    int EFX_EffectSlot::Set##Group##Defaults() \
    { \
        Properties(EFX_DEFAULT_STEP) \
        return 1; \
    } \
    Properties(EFX_DEFINE_SETTER) \
    Properties(EFX_DEFINE_GETTER)

EFX_EFFECT_GROUPS(EFX_DEFINE_GROUP)
