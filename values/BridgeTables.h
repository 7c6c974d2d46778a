#pragma once

#include "values/CEFXValObs.h"
#include "values/CSonopticEventValObs.h"

#include <cstdint>

// The value tables of the bridge, program-wide. The bridge fills the tables it owns in its
// constructor and empties them in its destructor; a table owned by a panel stays null until the
// panel's constructor fills its row, and the panel's destructor deletes that row again, so an
// effect parameter's value lives exactly as long as the effect's panel.
namespace bridge_limits {
constexpr int kSlots = 4;
constexpr int kSources = 128;
constexpr int kSends = 4;
constexpr int kSlotFlags = 2;
constexpr int kListenerValues = 15;
constexpr int kListenerFlags = 2;
constexpr int kSourceValues = 30;
constexpr int kSourceLongValues = 2;
constexpr int kSourceFlags = 9;
constexpr int kReverbValues = 26;
constexpr int kEffectValues = 10;
constexpr int kEffectLongValues = 2;
constexpr int kEffectChoices = 3;
} // namespace bridge_limits

struct BridgeValueTables {
    // Owner bridge.
    CEFXFloatValObs* SlotGainValues[bridge_limits::kSlots];
    // Entry 1 is "Send Auto"; entry 0 is unused.
    CSonopticBoolValObs* SlotFlags[bridge_limits::kSlots][bridge_limits::kSlotFlags];
    CEFXFloatValObs* ListenerValues[bridge_limits::kListenerValues];
    // Made and deleted with the others; nothing binds them.
    CSonopticBoolValObs* ListenerFlags[bridge_limits::kListenerFlags];
    CEFXFloatValObs* SourceValues[bridge_limits::kSources][bridge_limits::kSourceValues];
    // The inner and outer cone angles.
    CEFXLongValObs* SourceLongValues[bridge_limits::kSources][bridge_limits::kSourceLongValues];
    // Entries 2 (head relative), 4, 5 and 6 (the three auto flags) are bound; the rest are spare.
    CSonopticBoolValObs* SourceFlags[bridge_limits::kSources][bridge_limits::kSourceFlags];
    CSonopticExcluValObs* SendRoutingValues[bridge_limits::kSends][bridge_limits::kSources];
    // Shared by the EAX reverb panel and the reverb panel of a slot.
    CEFXFloatValObs* ReverbValues[bridge_limits::kSlots][bridge_limits::kReverbValues];

    // Owner panel.
    CSonopticBoolValObs* ReverbHFLimitFlags[bridge_limits::kSlots];
    CEFXFloatValObs* EffectValues[bridge_limits::kSlots][bridge_limits::kEffectValues];
    CEFXLongValObs* EffectLongValues[bridge_limits::kSlots][bridge_limits::kEffectLongValues];
    CSonopticCBoxDiscreteValObs* EffectChoices[bridge_limits::kSlots][bridge_limits::kEffectChoices];

    // The distance model's radio row lives as long as the program; the listener panel binds it.
    CSonopticExcluValObs DistanceModelValue;
};

// The one set of tables.
BridgeValueTables& BridgeTables();
