// OnValueChanged: finds the engine set by the numbers that a value carries, shows the engine's log,
// and writes the whole object back with callbacks off.
#include "values/BridgeDispatch.h"

#include "values/BridgeState.h"
#include "values/CEFXValObs.h"

#include <array>

using namespace bridge_dispatch;

namespace {

using Lookup = std::array<std::array<std::array<SetOperation, kParams>, kKinds>, kCategories>;

const Lookup& SetLookup()
{
    static const Lookup lookup = [] {
        Lookup table{};
        for (std::span<const DispatchRow> rows : {ObjectRows(), EffectRows()}) {
            for (const DispatchRow& row : rows)
                table[row.category][row.kind][row.param] = row.set;
        }
        return table;
    }();
    return lookup;
}

SetOperation FindSet(const ValueChange& change)
{
    if (change.category >= kCategories || change.kind >= kKinds || change.param >= kParams)
        return nullptr;
    return SetLookup()[change.category][change.kind][change.param];
}

constexpr std::uint16_t kListener = 1;
constexpr std::uint16_t kSource = 2;
constexpr std::uint16_t kSlot = 4;
constexpr std::uint16_t kEAXReverbCategory = 5;
constexpr std::uint16_t kReverbCategory = 6;
constexpr std::uint16_t kLastEffect = 17;

// The new value, by kind. Number values are found by the number's own type; the event families carry
// their state in extra. The listener takes kind 1 always from extra, a source from its long value
// if there is one (the cone angles) and from extra if not (a routing radio). False when there is
// no value to be found: the set is skipped, the flush and the write-back run all the same.
bool FindNewValue(CObservableNumber* subject, ValueChange& change)
{
    switch (change.kind) {
    case 0:
        if (CObservableFloat* number = subject ? subject->AsFloat() : nullptr) {
            change.number = number->Value;
            return true;
        }
        return false;
    case 1:
        if (change.category == kListener || (change.category == kSource && !subject)) {
            change.whole = change.extra;
            return true;
        }
        if (CObservableLong* number = subject ? subject->AsLong() : nullptr) {
            change.whole = number->Value;
            return true;
        }
        return false;
    default:
        change.whole = change.extra;
        return true;
    }
}

void WriteBack(UI_EFX_Bridge& bridge, std::uint16_t category, int index)
{
    switch (category) {
    case kListener:
        bridge.RefreshContext();
        break;
    case kSource:
        bridge.RefreshSource(index);
        break;
    case kSlot:
        bridge.RefreshSlot(index);
        break;
    // The reverbs are read straight away: a slot that holds another type is passed over in silence.
    case kEAXReverbCategory:
        bridge.RefreshEAXReverb(index);
        break;
    case kReverbCategory:
        bridge.RefreshReverb(index);
        break;
    default:
        // Categories 7 to 17 hold effect types 3 to 13, checked before they are read.
        bridge.RefreshEffectValues(index, category - kSlot);
        break;
    }
}

void FlushObjectLog(UI_EFX_Bridge& bridge, std::uint16_t category, int index)
{
    if (category == kListener)
        bridge.FlushContextLog();
    else if (category == kSource)
        bridge.FlushSourceLog(index);
    else
        bridge.FlushSlotLog(index);
}

} // namespace

void UI_EFX_Bridge::OnValueChanged(CObservableNumber* subject, std::uint16_t kind, std::uint16_t category,
                                   std::uint16_t index, std::uint16_t param, std::uint16_t extra)
{
    const int saved = g_bridge.CallbacksEnabled;
    if (!saved)
        return;
    // Category 3 names no object, and nothing lies beyond 17. A change from the panel of a source
    // deleted meanwhile goes nowhere, not even to the console.
    if (category == 0 || category == 3 || category > kLastEffect)
        return;
    if (category == kSource && !bridge_detail::SourceAt(index))
        return;

    ValueChange change{kind, category, index, param, extra, 0.0f, 0};
    if (SetOperation set = FindSet(change); set && FindNewValue(subject, change))
        set(change);

    FlushObjectLog(*this, category, index);
    g_bridge.CallbacksEnabled = 0;
    WriteBack(*this, category, index);
    g_bridge.CallbacksEnabled = saved;
}

void bridge_dispatch::NeighbourVector(CEFXFloatValObs* const* values, int first, const ValueChange& change,
                                      float out[3])
{
    for (int k = 0; k < 3; ++k)
        out[k] = values[k] ? values[k]->Value : 0.0f;
    out[change.param - first] = change.number;
}
