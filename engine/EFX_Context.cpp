#include "engine/EFX_Context.h"

#include "engine/EFX_Factory.h"

EFX_Context::~EFX_Context()
{
    EFX_Factory::s_context = nullptr;
}
