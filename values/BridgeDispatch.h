#pragma once

// The identifier tables of the bridge's dispatcher: which engine set a value's numbers name. Only
// the bridge's files include this.

#include "engine/EFX_EffectSlot.h"
#include "values/BridgeState.h"
#include "values/CObservableNumber.h"

#include <cstdint>
#include <span>

class CEFXFloatValObs;

namespace bridge_dispatch {

// One change as the dispatcher hands it to a set: the numbers, and the new value found for its
// kind (a float from a kind 0 value, an integer from a long value or from extra).
struct ValueChange {
    std::uint16_t kind;
    std::uint16_t category;
    std::uint16_t index;
    std::uint16_t param;
    std::uint16_t extra;
    float number;
    std::int32_t whole;
};

// Calls the engine's setter; the engine's result, which the dispatcher does not need.
using SetOperation = int (*)(const ValueChange&);

struct DispatchRow {
    std::uint16_t category;
    std::uint16_t kind;
    std::uint16_t param;
    SetOperation set;
};

// Bounds of the lookup: categories 0 to 17, kinds 0 to 3, params 0 to 31.
constexpr int kCategories = 18;
constexpr int kKinds = 4;
constexpr int kParams = 32;

// Categories 1 (listener and context), 2 (source) and 4 (the slot itself).
std::span<const DispatchRow> ObjectRows();
// Categories 5 to 17: the effects in a slot.
std::span<const DispatchRow> EffectRows();

// A vector or pair is sent whole: the changed component from the change, the others from the
// current Value of their neighbouring value objects, first to first + 2.
void NeighbourVector(CEFXFloatValObs* const* values, int first, const ValueChange& change, float out[3]);

// A set on the slot of the change's index, with the change's float or integer; nothing for a
// slot that was never created.
template <int (EFX_EffectSlot::*Set)(float)>
int SlotSet(const ValueChange& change)
{
    EFX_EffectSlot* slot = bridge_detail::SlotAt(change.index);
    return slot ? (slot->*Set)(change.number) : 0;
}

template <int (EFX_EffectSlot::*Set)(int)>
int SlotSet(const ValueChange& change)
{
    EFX_EffectSlot* slot = bridge_detail::SlotAt(change.index);
    return slot ? (slot->*Set)(change.whole) : 0;
}

} // namespace bridge_dispatch
