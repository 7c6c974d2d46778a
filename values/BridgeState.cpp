#include "values/BridgeState.h"

#include "engine/EFX_Factory.h"

#include <algorithm>
#include <iterator>

BridgeState g_bridge;

namespace {

BridgeValueTables g_tables;

template <typename T, std::size_t N>
void DeleteRow(T* (&row)[N])
{
    for (T*& value : row) {
        delete value;
        value = nullptr;
    }
}

template <typename T, std::size_t N>
void AllocateRow(T* (&row)[N])
{
    for (T*& value : row)
        value = new T();
}

} // namespace

BridgeValueTables& BridgeTables()
{
    return g_tables;
}

namespace bridge_detail {

bool IsSlotNumber(int slot)
{
    return slot >= 0 && slot < bridge_limits::kSlots;
}

bool IsSourceNumber(int index)
{
    return index >= 0 && index < bridge_limits::kSources;
}

EFX_3DSource* SourceAt(int index)
{
    return IsSourceNumber(index) ? g_bridge.Sources[index] : nullptr;
}

EFX_EffectSlot* SlotAt(int slot)
{
    if (!g_bridge.Factory || !IsSlotNumber(slot))
        return nullptr;
    return g_bridge.Factory->GetEffectSlot(static_cast<std::uint32_t>(slot));
}

void AllocateSourceValues(int index)
{
    AllocateRow(g_tables.SourceValues[index]);
    AllocateRow(g_tables.SourceLongValues[index]);
    AllocateRow(g_tables.SourceFlags[index]);
    for (auto& send : g_tables.SendRoutingValues)
        send[index] = new CSonopticExcluValObs();
}

void DeleteSourceValues(int index)
{
    DeleteRow(g_tables.SourceValues[index]);
    DeleteRow(g_tables.SourceLongValues[index]);
    DeleteRow(g_tables.SourceFlags[index]);
    for (auto& send : g_tables.SendRoutingValues) {
        delete send[index];
        send[index] = nullptr;
    }
}

namespace {

template <typename T, std::size_t N>
void MoveRow(T* (&to)[N], T* (&from)[N], int index)
{
    for (std::size_t k = 0; k < N; ++k) {
        to[k] = from[k];
        if (to[k])
            to[k]->SetIndex(static_cast<std::uint16_t>(index));
    }
}

} // namespace

void MoveSourcePlace(int from, int to)
{
    g_bridge.Sources[to] = g_bridge.Sources[from];
    g_bridge.SourceNames[to] = g_bridge.SourceNames[from];
    MoveRow(g_tables.SourceValues[to], g_tables.SourceValues[from], to);
    MoveRow(g_tables.SourceLongValues[to], g_tables.SourceLongValues[from], to);
    MoveRow(g_tables.SourceFlags[to], g_tables.SourceFlags[from], to);
    for (auto& send : g_tables.SendRoutingValues) {
        send[to] = send[from];
        if (send[to])
            send[to]->SetIndex(static_cast<std::uint16_t>(to));
    }
}

} // namespace bridge_detail

namespace bridge_tables {

void AllocateOwnTables()
{
    AllocateRow(g_tables.SlotGainValues);
    for (auto& row : g_tables.SlotFlags)
        AllocateRow(row);
    AllocateRow(g_tables.ListenerValues);
    AllocateRow(g_tables.ListenerFlags);
    for (int index = 0; index < bridge_limits::kSources; ++index)
        bridge_detail::AllocateSourceValues(index);
    for (auto& row : g_tables.ReverbValues)
        AllocateRow(row);

    // The panels' rows stay null until a panel fills them.
    for (auto& flag : g_tables.ReverbHFLimitFlags)
        flag = nullptr;
    for (auto& row : g_tables.EffectValues)
        std::fill(std::begin(row), std::end(row), nullptr);
    for (auto& row : g_tables.EffectLongValues)
        std::fill(std::begin(row), std::end(row), nullptr);
    for (auto& row : g_tables.EffectChoices)
        std::fill(std::begin(row), std::end(row), nullptr);
}

void DeleteOwnTables()
{
    for (auto& row : g_tables.SlotFlags)
        DeleteRow(row);
    DeleteRow(g_tables.SlotGainValues);
    DeleteRow(g_tables.ListenerValues);
    DeleteRow(g_tables.ListenerFlags);
    for (int index = 0; index < bridge_limits::kSources; ++index)
        bridge_detail::DeleteSourceValues(index);
    for (auto& row : g_tables.ReverbValues)
        DeleteRow(row);
}

} // namespace bridge_tables
