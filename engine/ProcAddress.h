#pragma once

// Run-time lookup of the EFX entry points. Every engine object resolves its functions through here,
// so that a test can make one entry point resolve to null, which the real library never does.
namespace efx_proc {

using Resolver = void* (*)(const char* name);

// alGetProcAddress, unless a test has put another resolver in place.
void* Resolve(const char* name);

// Replaces the resolver; null restores alGetProcAddress.
void SetResolver(Resolver resolver);

template <typename FunctionPointer>
bool ResolveInto(FunctionPointer& target, const char* name)
{
    target = reinterpret_cast<FunctionPointer>(Resolve(name));
    return target != nullptr;
}

} // namespace efx_proc
