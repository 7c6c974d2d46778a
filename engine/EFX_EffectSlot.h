#pragma once

#include "engine/EFX_Base.h"

// One auxiliary effect slot and the effect loaded into it. Made and kept by the factory.
class EFX_EffectSlot : public EFX_Base {
public:
    void Release() override { delete this; }
};
