#pragma once

// The bridge's own program-wide state, beside the class. Only the bridge's files include this;
// everyone else goes through UI_EFX_Bridge and BridgeTables().

#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <string>

class EFX_EffectSlot;

struct BridgeState {
    UI_EFX_Bridge* instance = nullptr;
    UI_EFX_Bridge::MessageBoxHandler messageBox = nullptr;

    EFX_Factory* Factory = nullptr;
    EFX_Context* Context = nullptr;
    EFX_3DSource* Sources[bridge_limits::kSources] = {};
    std::string SourceNames[bridge_limits::kSources];
    int SourceCount = 0;
    int SlotCount = 0;

    BridgeSlotPanel* SlotPanels[bridge_limits::kSlots] = {};
    BridgePanner* Panners[bridge_limits::kSlots] = {};
    BridgeResponseWindow* ResponseWindow = nullptr;
    BridgePositionWindow* PositionWindow = nullptr;
    LogConsole* LogList = nullptr;
    BridgeMainDialog* MainDialog = nullptr;
    BridgeContextSourceDialog* ContextSourceDialog = nullptr;

    char DeviceName[UI_EFX_Bridge::kDeviceNameSize] = {};
    // 0 makes OnValueChanged return at once: the one guard against re-entrance.
    int CallbacksEnabled = 1;
    // A new source starts playing, looped.
    int AutoPlay = 1;
};

extern BridgeState g_bridge;

namespace bridge_detail {

// Numbers from a panel are not range-checked above the bridge; a number beyond a table, used as an
// index, would be undefined behaviour, so these give null for it.
EFX_3DSource* SourceAt(int index);
EFX_EffectSlot* SlotAt(int slot);
bool IsSlotNumber(int slot);
bool IsSourceNumber(int index);

// The values of one source place: allocated fresh, or deleted and nulled.
void AllocateSourceValues(int index);
void DeleteSourceValues(int index);
// Moves the values, name and engine object of source place from into place to, renumbering the values.
void MoveSourcePlace(int from, int to);

// The write-back of an effect's parameters from the engine into its values, without checking
// which effect the slot holds: the reverbs through RefreshEAXReverb and RefreshReverb, the others
// by their read tables. Type 0 reads nothing and gives 1; a type beyond the table gives 0.
int WriteBackEffect(UI_EFX_Bridge& bridge, int slot, int type);

} // namespace bridge_detail

namespace bridge_tables {

// The tables that the bridge owns, made in its constructor and deleted in its destructor; the
// constructor also clears the rows that the panels own.
void AllocateOwnTables();
void DeleteOwnTables();

} // namespace bridge_tables
