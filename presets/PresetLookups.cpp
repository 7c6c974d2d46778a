#include "presets/PresetLookups.h"

#include "presets/EffectTable.h"

EffectGuid GetEffectGuid(const PresetNode* node)
{
    for (; node; node = node->parent)
        if (node->id == preset_tag::kEffect)
            return static_cast<const EffectNode*>(node)->guid;
    return kNullEffectGuid;
}

PresetNode* FindInsertParent(PresetNode* node)
{
    for (; node; node = node->parent)
        if (node->id == preset_tag::kEffect || node->id == preset_tag::kPresetGroup)
            return node;
    return nullptr;
}

void EffectTypeToGuid(int effectType, EffectGuid& guid)
{
    if (effectType == kEffectNone) {
        guid = kNullEffectGuid;
        return;
    }
    if (const EffectTableRow* row = FindEffectRowByType(effectType))
        guid = row->descriptor.guid;
}

void GuidToEffectType(const EffectGuid& guid, int& effectType)
{
    if (guid == kNullEffectGuid) {
        effectType = kEffectNone;
        return;
    }
    if (const EffectTableRow* row = FindEffectRowByGuid(guid))
        effectType = row->effectType;
}
