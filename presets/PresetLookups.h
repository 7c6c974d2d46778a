#pragma once

// Read-only lookups on a preset tree, for the browser: which effect a node belongs to, where a new
// preset beside a node goes, and the way between an EffectType and an identifier.

#include "presets/EffectGuid.h"
#include "presets/PresetNode.h"

// From `node` itself upwards, the identifier of the first effect entry; all-zero if there is none or
// if `node` is null.
EffectGuid GetEffectGuid(const PresetNode* node);

// From `node` itself upwards, the first effect entry or preset group; null if there is none.
PresetNode* FindInsertParent(PresetNode* node);

// The identifier of an EffectType by the effect table; 0 gives the all-zero identifier, and any other
// number leaves `guid` as it was.
void EffectTypeToGuid(int effectType, EffectGuid& guid);

// The reverse: the all-zero identifier gives 0, and an unknown identifier leaves `effectType` as it
// was.
void GuidToEffectType(const EffectGuid& guid, int& effectType);
