#include "presets/SlotProperty.h"

int GetSlotProperty(EFX_EffectSlot& slot, const SlotAccessor& property, SlotValue& value)
{
    switch (property.kind) {
    case PropertyKind::Float:
    case PropertyKind::Vector:
        return (slot.*property.getFloat)(value.f);
    case PropertyKind::Long:
    case PropertyKind::Bool:
        return (slot.*property.getInt)(&value.i);
    }
    return 0;
}

int SetSlotProperty(EFX_EffectSlot& slot, const SlotAccessor& property, const SlotValue& value)
{
    switch (property.kind) {
    case PropertyKind::Float:
        return (slot.*property.setFloat)(value.f[0]);
    case PropertyKind::Vector:
        return (slot.*property.setVector)(value.f);
    case PropertyKind::Long:
    case PropertyKind::Bool:
        return (slot.*property.setInt)(value.i);
    }
    return 0;
}
