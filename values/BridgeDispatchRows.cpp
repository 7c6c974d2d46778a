// The identifier table of the listener and context (category 1), a source (2) and a slot itself
// (4): kind, param, and the engine set that they name.
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"
#include "values/BridgeDispatch.h"
#include "values/BridgeState.h"

using namespace bridge_dispatch;

namespace {

// --- Listener and context: index 65535.

template <int (EFX_Context::*Set)(float)>
int ContextFloat(const ValueChange& change)
{
    EFX_Context* context = g_bridge.Context;
    return context ? (context->*Set)(change.number) : 0;
}

template <int (EFX_Context::*Set)(float, float, float), int First>
int ContextVector(const ValueChange& change)
{
    EFX_Context* context = g_bridge.Context;
    if (!context)
        return 0;
    float vector[3];
    NeighbourVector(&BridgeTables().ListenerValues[First], First, change, vector);
    return (context->*Set)(vector[0], vector[1], vector[2]);
}

// The at vector, params 4 to 6; the up vector has no control and goes with it as last read, params 7 to 9.
int ListenerAt(const ValueChange& change)
{
    EFX_Context* context = g_bridge.Context;
    if (!context)
        return 0;
    CEFXFloatValObs* const* values = BridgeTables().ListenerValues;
    float at[3];
    NeighbourVector(&values[4], 4, change, at);
    return context->SetOrientation(at[0], at[1], at[2], values[7]->Value, values[8]->Value, values[9]->Value);
}

int DistanceModel(const ValueChange& change)
{
    EFX_Context* context = g_bridge.Context;
    return context ? context->SetDistanceModel(change.whole) : 0;
}

// --- A source: index is the source number; the dispatcher has made sure that it exists.

EFX_3DSource& SourceOf(const ValueChange& change)
{
    return *g_bridge.Sources[change.index];
}

template <int (EFX_3DSource::*Set)(float)>
int SourceFloat(const ValueChange& change)
{
    return (SourceOf(change).*Set)(change.number);
}

template <int (EFX_3DSource::*Set)(int)>
int SourceFlag(const ValueChange& change)
{
    return (SourceOf(change).*Set)(change.whole);
}

template <int (EFX_3DSource::*Set)(float, float, float), int First>
int SourceVector(const ValueChange& change)
{
    float vector[3];
    NeighbourVector(&BridgeTables().SourceValues[change.index][First], First, change, vector);
    return (SourceOf(change).*Set)(vector[0], vector[1], vector[2]);
}

// The cone angles travel as a pair: the changed one and the current value of the other.
template <int Changed>
int ConeAngles(const ValueChange& change)
{
    CEFXLongValObs* const* angles = BridgeTables().SourceLongValues[change.index];
    int pair[2] = {angles[0] ? angles[0]->Value : 0, angles[1] ? angles[1]->Value : 0};
    pair[Changed] = change.whole;
    return SourceOf(change).SetConeAngles(pair[0], pair[1]);
}

template <int (EFX_3DSource::*Set)(int, float), int Send>
int SendFilter(const ValueChange& change)
{
    return (SourceOf(change).*Set)(Send, change.number);
}

// A send's radio row: 0 to 3 route it to that slot, 4 leaves it alone, anything else (the
// "disabled" radio arrives as 65535) routes it to no slot.
template <int Send>
int Route(const ValueChange& change)
{
    const std::int32_t selection = change.whole;
    if (selection == 4)
        return 0;
    const int slot = selection >= 0 && selection <= 3 ? selection : -1;
    return SourceOf(change).SetAuxSendSlot(Send, slot);
}

int ReservedFlag(const ValueChange& change)
{
    return SourceOf(change).ReservedSet();
}

using C = EFX_Context;
using S = EFX_3DSource;

constexpr DispatchRow kObjectRows[] = {
    // Listener and context. Params 7 to 9, the up vector, set nothing.
    {1, 0, 0, &ContextFloat<&C::SetDopplerFactor>},
    {1, 0, 1, &ContextVector<&C::SetPosition, 1>},
    {1, 0, 2, &ContextVector<&C::SetPosition, 1>},
    {1, 0, 3, &ContextVector<&C::SetPosition, 1>},
    {1, 0, 4, &ListenerAt},
    {1, 0, 5, &ListenerAt},
    {1, 0, 6, &ListenerAt},
    {1, 0, 10, &ContextVector<&C::SetVelocity, 10>},
    {1, 0, 11, &ContextVector<&C::SetVelocity, 10>},
    {1, 0, 12, &ContextVector<&C::SetVelocity, 10>},
    {1, 0, 13, &ContextFloat<&C::SetSpeedOfSound>},
    {1, 0, 14, &ContextFloat<&C::SetGain>},
    {1, 1, 0, &DistanceModel},

    // A source.
    {2, 0, 0, &SourceFloat<&S::SetRoomRolloffFactor>},
    {2, 0, 1, &SourceFloat<&S::SetAirAbsorptionFactor>},
    {2, 0, 2, &SourceFloat<&S::SetReferenceDistance>},
    {2, 0, 3, &SourceFloat<&S::SetMaxDistance>},
    {2, 0, 4, &SourceVector<&S::SetPosition, 4>},
    {2, 0, 5, &SourceVector<&S::SetPosition, 4>},
    {2, 0, 6, &SourceVector<&S::SetPosition, 4>},
    {2, 0, 7, &SourceVector<&S::SetConeOrientation, 7>},
    {2, 0, 8, &SourceVector<&S::SetConeOrientation, 7>},
    {2, 0, 9, &SourceVector<&S::SetConeOrientation, 7>},
    {2, 0, 10, &SourceVector<&S::SetVelocity, 10>},
    {2, 0, 11, &SourceVector<&S::SetVelocity, 10>},
    {2, 0, 12, &SourceVector<&S::SetVelocity, 10>},
    {2, 0, 13, &SourceFloat<&S::SetPitch>},
    {2, 0, 14, &SourceFloat<&S::SetRolloffFactor>},
    {2, 0, 15, &SourceFloat<&S::SetGain>},
    {2, 0, 16, &SourceFloat<&S::SetMinGain>},
    {2, 0, 17, &SourceFloat<&S::SetALMaxGain>},
    {2, 0, 18, &SourceFloat<&S::SetDirectFilterGain>},
    {2, 0, 19, &SourceFloat<&S::SetDirectFilterGainHF>},
    {2, 0, 20, &SourceFloat<&S::SetConeOuterGainHF>},
    {2, 0, 21, &SourceFloat<&S::SetConeOuterGain>},
    {2, 0, 22, &SendFilter<&S::SetAuxSendFilterGain, 0>},
    {2, 0, 23, &SendFilter<&S::SetAuxSendFilterGainHF, 0>},
    {2, 0, 24, &SendFilter<&S::SetAuxSendFilterGain, 1>},
    {2, 0, 25, &SendFilter<&S::SetAuxSendFilterGainHF, 1>},
    {2, 0, 26, &SendFilter<&S::SetAuxSendFilterGain, 2>},
    {2, 0, 27, &SendFilter<&S::SetAuxSendFilterGainHF, 2>},
    {2, 0, 28, &SendFilter<&S::SetAuxSendFilterGain, 3>},
    {2, 0, 29, &SendFilter<&S::SetAuxSendFilterGainHF, 3>},
    {2, 1, 0, &ConeAngles<0>},
    {2, 1, 1, &ConeAngles<1>},
    {2, 1, 3, &Route<0>},
    {2, 1, 4, &Route<1>},
    {2, 1, 5, &Route<2>},
    {2, 1, 6, &Route<3>},
    {2, 2, 2, &SourceFlag<&S::SetHeadRelativeMode>},
    {2, 2, 3, &ReservedFlag},
    {2, 2, 4, &SourceFlag<&S::SetDirectFilterGainHFAuto>},
    {2, 2, 5, &SourceFlag<&S::SetAuxSendFilterGainAuto>},
    {2, 2, 6, &SourceFlag<&S::SetAuxSendFilterGainHFAuto>},

    // The slot itself.
    {4, 0, 0, &SlotSet<&EFX_EffectSlot::SetGain>},
    {4, 2, 1, &SlotSet<&EFX_EffectSlot::SetAuxiliarySendAuto>},
};

} // namespace

std::span<const DispatchRow> bridge_dispatch::ObjectRows()
{
    return kObjectRows;
}
