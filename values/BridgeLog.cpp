// The console: every engine object keeps its own log, and these operations move it into the main
// dialog's list. A successful read is normally cleared unseen and a failed one flushed, so the list
// shows failures of reads only; every write through OnValueChanged is flushed.
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"
#include "values/LogConsole.h"

namespace {

// The console shows its last five lines after each addition.
constexpr int kVisibleLogLines = 5;

} // namespace

void UI_EFX_Bridge::SetLogList(LogConsole* console)
{
    g_bridge.LogList = console;
}

void UI_EFX_Bridge::AddLogLine(const char* text)
{
    if (g_bridge.LogList)
        g_bridge.LogList->AddString(text);
}

void UI_EFX_Bridge::ScrollLog()
{
    if (g_bridge.LogList)
        g_bridge.LogList->SetTopIndex(g_bridge.LogList->GetCount() - kVisibleLogLines);
}

void UI_EFX_Bridge::LogMessage(const char* text)
{
    AddLogLine(text);
    ScrollLog();
}

void UI_EFX_Bridge::FlushFactoryLog()
{
    if (!g_bridge.Factory)
        return;
    AddLogLine(g_bridge.Factory->GetLog());
    g_bridge.Factory->ClearLog();
    ScrollLog();
}

void UI_EFX_Bridge::FlushContextLog()
{
    if (!g_bridge.Context)
        return;
    AddLogLine(g_bridge.Context->GetLog());
    g_bridge.Context->ClearLog();
    ScrollLog();
}

void UI_EFX_Bridge::FlushSlotLog(int slot)
{
    // A slot that was never created has no log; the list only scrolls.
    if (EFX_EffectSlot* object = bridge_detail::SlotAt(slot)) {
        AddLogLine(object->GetLog());
        object->ClearLog();
    }
    ScrollLog();
}

void UI_EFX_Bridge::FlushSourceLog(int index)
{
    if (EFX_3DSource* source = bridge_detail::SourceAt(index)) {
        AddLogLine(source->GetLog());
        source->ClearLog();
    }
    ScrollLog();
}

void UI_EFX_Bridge::ClearContextLog()
{
    if (g_bridge.Context)
        g_bridge.Context->ClearLog();
}

void UI_EFX_Bridge::ClearSlotLog(int slot)
{
    if (EFX_EffectSlot* object = bridge_detail::SlotAt(slot))
        object->ClearLog();
}

void UI_EFX_Bridge::ClearSourceLog(int index)
{
    if (EFX_3DSource* source = bridge_detail::SourceAt(index))
        source->ClearLog();
}
