// The factory's creation operations: the context object, the slot objects and the sources.
#include "engine/EFX_Factory.h"

#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"

EFX_Context* EFX_Factory::CreateContext()
{
    return nullptr;
}

EFX_EffectSlot* EFX_Factory::CreateEffectSlot(std::uint32_t)
{
    return nullptr;
}

EFX_3DSource* EFX_Factory::CreateEmptySource()
{
    return nullptr;
}

EFX_3DSource* EFX_Factory::CreateSource(const char*)
{
    return nullptr;
}
