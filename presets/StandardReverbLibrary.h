#pragma once

// The standard reverb library: the reverbs that OpenAL Soft's AL/efx-presets.h defines, in its order
// and its commented groups, with readable names. The table is made at build time from the installed
// header (tools/make_reverb_library), so the values are the header's own. It is shown as a read-only
// document beside the user's: a preset of it applies its exact values to an EAX reverb slot, or those
// that a standard reverb has to a standard reverb slot, and can be copied into the user's document.

#include "presets/CEFXPresetTree.h"
#include "presets/EAXReverbRecord.h"

#include <AL/al.h>
#include <AL/efx-presets.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>

class EFX_Factory;

struct StandardReverb {
    const char* group; // the header's comment: "Castle", "Dome and Pipe"
    const char* name;  // "Small Room"
    const char* token; // "EFX_REVERB_PRESET_CASTLE_SMALLROOM"
    EFXEAXREVERBPROPERTIES values;
};

extern const StandardReverb kStandardReverbs[];
extern const std::size_t kStandardReverbCount;

// The label of the library's top item.
inline constexpr const char* kStandardLibraryTitle = "Standard reverbs (read-only)";

// The engine's 27 values of a standard reverb.
EAXReverbValues StandardReverbValues(const StandardReverb& reverb);

// Which reverb each preset of the library document stands for.
using StandardReverbIndex = std::unordered_map<const PresetNode*, const StandardReverb*>;

// Fills an empty document with the library: one "EAX Reverb" entry, a group per header group, a preset
// per reverb whose record holds its values as a preset file keeps them.
StandardReverbIndex BuildStandardLibrary(CEFXPresetTree& tree);

// Sets a slot's EAX reverb (all 23 properties, the pans included) or standard reverb (its 13) from an
// EAX reverb's engine values, one setter call each in the order of a preset's apply. Any other effect
// type does nothing.
void ApplyReverbValues(EFX_Factory& factory, std::uint32_t slotIndex, int effectType, const EAXReverbValues& values);

// The other way: the values of a slot's EAX reverb, or of its standard reverb with the EAX reverb's
// defaults for what that effect lacks. Each value read once, in its own place.
EAXReverbValues ReadReverbValues(EFX_Factory& factory, std::uint32_t slotIndex, int effectType);
