#include "presets/StandardReverbLibrary.h"

#include "engine/EFX_Factory.h"
#include "presets/EffectTable.h"
#include "presets/SlotProperty.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

// A standard reverb's properties and the EAX reverb values that they take, in the order of its apply.
struct ReverbRow {
    SlotAccessor property;
    int value;
};
constexpr ReverbRow kReverbRows[] = {
    {slot_property::kReverbDensity, eax_value::kDensity},
    {slot_property::kReverbDiffusion, eax_value::kDiffusion},
    {slot_property::kReverbGain, eax_value::kGain},
    {slot_property::kReverbGainhf, eax_value::kGainHF},
    {slot_property::kReverbDecayTime, eax_value::kDecayTime},
    {slot_property::kReverbDecayHfratio, eax_value::kDecayHFRatio},
    {slot_property::kReverbReflectionsGain, eax_value::kReflectionsGain},
    {slot_property::kReverbReflectionsDelay, eax_value::kReflectionsDelay},
    {slot_property::kReverbLateReverbGain, eax_value::kLateReverbGain},
    {slot_property::kReverbLateReverbDelay, eax_value::kLateReverbDelay},
    {slot_property::kReverbAirAbsorptionGainhf, eax_value::kAirAbsorptionGainHF},
    {slot_property::kReverbRoomRolloffFactor, eax_value::kRoomRolloffFactor},
    {slot_property::kReverbDecayHflimit, eax_value::kDecayHFLimit},
};

void SetValue(EFX_Factory& factory, std::uint32_t slotIndex, const SlotAccessor& property,
              const EAXReverbValues& values, int index)
{
    EFX_EffectSlot* slot = factory.GetEffectSlot(slotIndex);
    if (!slot)
        return;
    SetSlotProperty(*slot, property, EAXValueAt(property, values, index));
}

void GetValue(EFX_Factory& factory, std::uint32_t slotIndex, const SlotAccessor& property, EAXReverbValues& values,
              int index)
{
    EFX_EffectSlot* slot = factory.GetEffectSlot(slotIndex);
    SlotValue value;
    if (slot && GetSlotProperty(*slot, property, value))
        StoreEAXValue(property, value, values, index);
}

std::u16string Widened(const char* text)
{
    return std::u16string(text, text + std::char_traits<char>::length(text));
}

} // namespace

EAXReverbValues StandardReverbValues(const StandardReverb& reverb)
{
    using namespace eax_value;
    const EFXEAXREVERBPROPERTIES& p = reverb.values;
    EAXReverbValues v{};
    v[kDensity] = p.flDensity;
    v[kDiffusion] = p.flDiffusion;
    v[kGain] = p.flGain;
    v[kGainHF] = p.flGainHF;
    v[kGainLF] = p.flGainLF;
    v[kDecayTime] = p.flDecayTime;
    v[kDecayHFRatio] = p.flDecayHFRatio;
    v[kDecayLFRatio] = p.flDecayLFRatio;
    v[kReflectionsGain] = p.flReflectionsGain;
    v[kReflectionsDelay] = p.flReflectionsDelay;
    std::copy_n(p.flReflectionsPan, 3, v.begin() + kReflectionsPan);
    v[kLateReverbGain] = p.flLateReverbGain;
    v[kLateReverbDelay] = p.flLateReverbDelay;
    std::copy_n(p.flLateReverbPan, 3, v.begin() + kLateReverbPan);
    v[kEchoTime] = p.flEchoTime;
    v[kEchoDepth] = p.flEchoDepth;
    v[kModulationTime] = p.flModulationTime;
    v[kModulationDepth] = p.flModulationDepth;
    v[kAirAbsorptionGainHF] = p.flAirAbsorptionGainHF;
    v[kHFReference] = p.flHFReference;
    v[kLFReference] = p.flLFReference;
    v[kRoomRolloffFactor] = p.flRoomRolloffFactor;
    v[kDecayHFLimit] = p.iDecayHFLimit ? 1.0f : 0.0f;
    return v;
}

StandardReverbIndex BuildStandardLibrary(CEFXPresetTree& tree)
{
    StandardReverbIndex index;
    const EffectTableRow* eax = FindEffectRowByType(kEffectEAXReverb);
    EffectNode* entry = tree.AddEffect(eax->name, eax->descriptor);
    PresetNode* group = nullptr;
    const char* groupName = nullptr;
    std::uint8_t record[kEAXReverbRecordSize] = {};
    for (std::size_t i = 0; i < kStandardReverbCount; ++i) {
        const StandardReverb& reverb = kStandardReverbs[i];
        if (!groupName || std::string(groupName) != reverb.group) {
            groupName = reverb.group;
            group = tree.AddGroup(entry, Widened(groupName).c_str());
        }
        EFXToEAXReverb(StandardReverbValues(reverb), record);
        PresetNode* preset = tree.AddPreset(group, Widened(reverb.name).c_str(), record, sizeof record);
        index.emplace(preset, &reverb);
    }
    return index;
}

void ApplyReverbValues(EFX_Factory& factory, std::uint32_t slotIndex, int effectType, const EAXReverbValues& values)
{
    if (effectType == kEffectEAXReverb) {
        for (const EAXEngineRow& row : kEAXReverbEngine)
            SetValue(factory, slotIndex, row.property, values, row.applyValue);
    } else if (effectType == kEffectReverb) {
        for (const ReverbRow& row : kReverbRows)
            SetValue(factory, slotIndex, row.property, values, row.value);
    }
}

EAXReverbValues ReadReverbValues(EFX_Factory& factory, std::uint32_t slotIndex, int effectType)
{
    // The first standard reverb, "Generic", holds the EAX reverb's defaults.
    EAXReverbValues values = StandardReverbValues(kStandardReverbs[0]);
    if (effectType == kEffectEAXReverb) {
        for (const EAXEngineRow& row : kEAXReverbEngine)
            GetValue(factory, slotIndex, row.property, values, row.applyValue);
    } else if (effectType == kEffectReverb) {
        for (const ReverbRow& row : kReverbRows)
            GetValue(factory, slotIndex, row.property, values, row.value);
    }
    return values;
}
