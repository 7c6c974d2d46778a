#include "presets/EffectTable.h"

const EffectTableRow* FindEffectRowByType(int effectType)
{
    for (const EffectTableRow& row : kEffectTable)
        if (row.effectType == effectType)
            return &row;
    return nullptr;
}

const EffectTableRow* FindEffectRowByGuid(const EffectGuid& guid)
{
    for (const EffectTableRow& row : kEffectTable)
        if (row.descriptor.guid == guid)
            return &row;
    return nullptr;
}
