#pragma once

#include "engine/EFX_Base.h"

// One OpenAL source with its buffer, filters and sends. Made by the factory, owned by the bridge.
class EFX_3DSource : public EFX_Base {
public:
    void Release() override { delete this; }
};
