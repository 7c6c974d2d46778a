// The listener and the context: creation of the engine object, suspend and process, the listener's
// defaults and the position window's moves.
#include "engine/EFX_Context.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"

int UI_EFX_Bridge::CreateContext()
{
    g_bridge.Context = g_bridge.Factory ? g_bridge.Factory->CreateContext() : nullptr;
    FlushFactoryLog();
    if (!g_bridge.Context) {
        AddLogLine("listener not created");
        return 0;
    }
    RefreshContext();
    return 1;
}

void UI_EFX_Bridge::SuspendContext()
{
    if (g_bridge.Factory) {
        g_bridge.Factory->SuspendContext();
        FlushFactoryLog();
    }
    RefreshContext();
}

void UI_EFX_Bridge::ProcessContext()
{
    if (g_bridge.Factory) {
        g_bridge.Factory->ProcessContext();
        FlushFactoryLog();
    }
    RefreshContext();
}

void UI_EFX_Bridge::SetListenerDefaults()
{
    if (!g_bridge.Context)
        return;
    if (g_bridge.Context->SetDefaults())
        LogMessage("Set Listener to its default values successful");
    else
        LogMessage("Error setting Listener default non-EAX values");
    RefreshContext();
    ClearContextLog();
}

void UI_EFX_Bridge::MoveListener(float x, float y, float z)
{
    if (!g_bridge.Context)
        return;
    g_bridge.Context->SetPosition(x, y, z);
    FlushContextLog();
    RefreshContext();
}
