#pragma once

#include "engine/EFX_Base.h"

// The listener and the context-wide properties. One object for the program, made by
// EFX_Factory::CreateContext.
class EFX_Context : public EFX_Base {
public:
    // Clears the factory's pointer to the one context object, so that no warning fires for it.
    ~EFX_Context() override;
    void Release() override { delete this; }
};
