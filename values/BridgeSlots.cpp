// Slots by number: creation, the effect in a slot, the pan vectors of the panner and the
// "Defaults" buttons of the effect panels.
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"
#include "values/BridgeWindows.h"

#include <string>

namespace {

using DefaultRoutine = int (EFX_EffectSlot::*)();

// What a "Defaults" button runs, and the name its messages give the effect. The two reverbs share
// their name on purpose.
struct EffectDefaults {
    DefaultRoutine routine;
    const char* name;
};

constexpr EffectDefaults kEffectDefaults[kNumEffectTypes] = {
    {nullptr, nullptr},
    {&EFX_EffectSlot::SetEAXReverbDefaults, "Reverb"},
    {&EFX_EffectSlot::SetReverbDefaults, "Reverb"},
    {&EFX_EffectSlot::SetCompressorDefaults, "AGCCompressor"},
    {&EFX_EffectSlot::SetAutowahDefaults, "Autowah"},
    {&EFX_EffectSlot::SetChorusDefaults, "Chorus"},
    {&EFX_EffectSlot::SetDistortionDefaults, "Distortion"},
    {&EFX_EffectSlot::SetEchoDefaults, "Echo"},
    {&EFX_EffectSlot::SetEqualizerDefaults, "Equalizer"},
    {&EFX_EffectSlot::SetFlangerDefaults, "Flanger"},
    {&EFX_EffectSlot::SetVocalMorpherDefaults, "VocalMorpher"},
    {&EFX_EffectSlot::SetPitchShifterDefaults, "PitchShifter"},
    {&EFX_EffectSlot::SetRingModulatorDefaults, "RingModulator"},
    {&EFX_EffectSlot::SetFrequencyShifterDefaults, "FrequencyShifter"},
};

constexpr const char* kSlotsExhausted = "Maximum number of slots already reached";

} // namespace

std::uint32_t UI_EFX_Bridge::CreateSlot()
{
    if (g_bridge.SlotCount > 3) {
        LogMessage(kSlotsExhausted);
        return kNoSlot;
    }
    EFX_Factory* factory = g_bridge.Factory;
    if (!factory)
        return kNoSlot;
    int free = -1;
    for (int i = 0; i < bridge_limits::kSlots && free < 0; ++i) {
        if (!factory->GetEffectSlot(static_cast<std::uint32_t>(i)))
            free = i;
    }
    if (free < 0) {
        // Not kNoSlot: the caller then opens slot 0's panel a second time, as it always has.
        LogMessage(kSlotsExhausted);
        return 0;
    }
    factory->ClearLog();
    EFX_EffectSlot* slot = factory->CreateEffectSlot(static_cast<std::uint32_t>(free));
    AddLogLine(factory->GetLog());
    factory->ClearLog();
    if (!slot)
        return kNoSlot;
    ++g_bridge.SlotCount;
    return static_cast<std::uint32_t>(free);
}

int UI_EFX_Bridge::GetSlotCount() const
{
    return g_bridge.SlotCount;
}

int UI_EFX_Bridge::LoadSlotEffect(int slot, int type)
{
    EFX_EffectSlot* object = bridge_detail::SlotAt(slot);
    if (!object)
        return 0;
    const int loaded = object->LoadEffect(type);
    FlushSlotLog(slot);
    return loaded;
}

int UI_EFX_Bridge::GetSlotEffect(int slot, int* type)
{
    EFX_EffectSlot* object = bridge_detail::SlotAt(slot);
    if (!object || !object->GetEffect(type)) {
        ClearSlotLog(slot);
        LogMessage("Error: unknown effect in slot");
        return 0;
    }
    FlushSlotLog(slot);
    ClearSlotLog(slot);
    return 1;
}

void UI_EFX_Bridge::RefreshSlotPanel(int slot)
{
    if (bridge_detail::IsSlotNumber(slot) && g_bridge.SlotPanels[slot])
        g_bridge.SlotPanels[slot]->Reload();
}

int UI_EFX_Bridge::SetReflectionsPan(int slot, float x, float y, float z)
{
    if (EFX_EffectSlot* object = bridge_detail::SlotAt(slot)) {
        const float pan[3] = {x, y, z};
        object->SetEAXReverbReflectionsPan(pan);
    }
    FlushSlotLog(slot);
    return 1;
}

int UI_EFX_Bridge::SetLateReverbPan(int slot, float x, float y, float z)
{
    if (EFX_EffectSlot* object = bridge_detail::SlotAt(slot)) {
        const float pan[3] = {x, y, z};
        object->SetEAXReverbLateReverbPan(pan);
    }
    FlushSlotLog(slot);
    return 1;
}

void UI_EFX_Bridge::RunEffectDefaults(int slot, int type)
{
    const EffectDefaults& defaults = kEffectDefaults[type];
    EFX_EffectSlot* object = bridge_detail::SlotAt(slot);
    if (object && (object->*defaults.routine)())
        LogMessage(("Set " + std::string(defaults.name) + " to its default values successful").c_str());
    else
        LogMessage(("Error setting " + std::string(defaults.name) + " default values").c_str());
    bridge_detail::WriteBackEffect(*this, slot, type);
    ClearSlotLog(slot);
}

void UI_EFX_Bridge::SetEAXReverbDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectEAXReverb);
}

void UI_EFX_Bridge::SetReverbDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectReverb);
}

void UI_EFX_Bridge::SetAGCDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectCompressor);
}

void UI_EFX_Bridge::SetAutowahDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectAutowah);
}

void UI_EFX_Bridge::SetChorusDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectChorus);
}

void UI_EFX_Bridge::SetDistortionDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectDistortion);
}

void UI_EFX_Bridge::SetEchoDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectEcho);
}

void UI_EFX_Bridge::SetEqualizerDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectEqualizer);
}

void UI_EFX_Bridge::SetFlangerDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectFlanger);
}

void UI_EFX_Bridge::SetFrequencyShifterDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectFrequencyShifter);
}

void UI_EFX_Bridge::SetVocalMorpherDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectVocalMorpher);
}

void UI_EFX_Bridge::SetPitchShifterDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectPitchShifter);
}

void UI_EFX_Bridge::SetRingModulatorDefaults(int slot)
{
    RunEffectDefaults(slot, kEffectRingModulator);
}
