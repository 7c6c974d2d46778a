#pragma once

// Capturing a live effect slot into a preset record, and applying a record to a slot. Each field is
// one getter or setter call on a slot taken anew from the factory, in the record's field order: the
// Equalizer's four gains come first, and the EAX reverb goes through its engine values (with its
// pans read one place late). Each set takes effect at once and logs in the slot's log as any other
// change would; a failed call does not stop the ones after it.

#include "engine/EFX_Factory.h"
#include "presets/EffectGuid.h"
#include "presets/SlotProperty.h"

#include <cstdint>
#include <functional>
#include <vector>

// The record of the effect type that the slot holds, of that type's record size. Empty for an empty
// slot or an unknown type. A getter that fails leaves its field zero, as are the words that carry
// nothing (Environment and the EAX reverb's pans, bar the late pan's x).
std::vector<std::uint8_t> CaptureRecord(EFX_Factory& factory, std::uint32_t slotIndex, int effectType);

// The values of a record of the effect with identifier `guid`, property by property in the order in
// which ApplyPreset sets them, each handed to `visit`; an unknown identifier visits nothing. The same
// rules as ApplyPreset: a short record reads as zero-filled, the Flanger's waveform comes out refused.
void ForEachPresetValue(const EffectGuid& guid, const std::uint8_t* data, std::uint32_t size,
                        const std::function<void(const SlotAccessor&, const SlotValue&)>& visit);

// Sets the slot's values from a record of the effect with identifier `guid`; an unknown identifier
// does nothing. The record's size is not compared with the effect's: a longer record applies its
// first bytes, and the words that a shorter one lacks are taken as zero rather than read past its
// end. The Flanger's waveform is not applied: its setter is called with a value out of range, which
// the engine refuses with a line in the slot's log, and the slot keeps its waveform.
void ApplyPreset(EFX_Factory& factory, std::uint32_t slotIndex, const EffectGuid& guid, const std::uint8_t* data,
                 std::uint32_t size);
