#include "engine/ProcAddress.h"

#include <AL/al.h>

namespace efx_proc {
namespace {

void* ResolveWithOpenAL(const char* name)
{
    return alGetProcAddress(name);
}

Resolver g_resolver = &ResolveWithOpenAL;

} // namespace

void* Resolve(const char* name)
{
    return g_resolver(name);
}

void SetResolver(Resolver resolver)
{
    g_resolver = resolver ? resolver : &ResolveWithOpenAL;
}

} // namespace efx_proc
