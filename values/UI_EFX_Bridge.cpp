// The bridge's life, the engine start, the device choice and the program-wide switches.
#include "values/UI_EFX_Bridge.h"

#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"
#include "values/BridgeWindows.h"

#include <cstring>

namespace {

void ShowMessageBox(const char* text)
{
    if (g_bridge.messageBox)
        g_bridge.messageBox(text);
}

// The menu entry "Auto Play source on creation" of both dialogs follows AutoPlay.
void TellAutoPlay()
{
    if (g_bridge.MainDialog)
        g_bridge.MainDialog->SetAutoPlayCheck(g_bridge.AutoPlay);
    if (g_bridge.ContextSourceDialog)
        g_bridge.ContextSourceDialog->SetAutoPlayCheck(g_bridge.AutoPlay);
}

} // namespace

UI_EFX_Bridge::UI_EFX_Bridge()
{
    // Everything but the message-box hook, which the shell installs once for the program.
    const MessageBoxHandler messageBox = g_bridge.messageBox;
    g_bridge = BridgeState();
    g_bridge.messageBox = messageBox;
    g_bridge.instance = this;
    bridge_tables::AllocateOwnTables();
}

UI_EFX_Bridge::~UI_EFX_Bridge()
{
    bridge_tables::DeleteOwnTables();
    for (EFX_3DSource*& source : g_bridge.Sources) {
        if (!source)
            continue;
        source->Stop();
        source->Release();
        source = nullptr;
    }
    EFX_Base::SafeRelease(g_bridge.Context);
    g_bridge.Context = nullptr;
    if (g_bridge.Factory) {
        g_bridge.Factory->Shutdown();
        delete g_bridge.Factory;
        g_bridge.Factory = nullptr;
    }
    EFX_Factory::FreeDeviceList();
    if (g_bridge.instance == this)
        g_bridge.instance = nullptr;
}

UI_EFX_Bridge* UI_EFX_Bridge::GetInstance()
{
    return g_bridge.instance;
}

void UI_EFX_Bridge::SetMessageBoxHandler(MessageBoxHandler handler)
{
    g_bridge.messageBox = handler;
}

int UI_EFX_Bridge::InitializeEngine(int /*mode*/, std::uint32_t reserved, std::uint32_t maxSends)
{
    g_bridge.Factory = EFX_Factory::Create();
    if (g_bridge.Factory->Initialize(reserved, maxSends))
        return 1;
    ShowMessageBox("Error initializing audio engine:");
    ShowMessageBox(g_bridge.Factory->GetLog());
    return 0;
}

DeviceInfo* UI_EFX_Bridge::GetDeviceList()
{
    DeviceInfo* list = nullptr;
    EFX_Factory::EnumerateDevices(&list);
    return list;
}

void UI_EFX_Bridge::SelectDevice(const char* name)
{
    EFX_Factory::SelectDevice(name);
    g_bridge.DeviceName[0] = '\0';
    std::strncat(g_bridge.DeviceName, name, kDeviceNameSize - 1);
}

const char* UI_EFX_Bridge::GetDeviceName() const
{
    return g_bridge.DeviceName;
}

std::uint32_t UI_EFX_Bridge::GetMaxSends() const
{
    return EFX_Factory::GetMaxSends();
}

EFX_Factory* UI_EFX_Bridge::GetFactory() const
{
    return g_bridge.Factory;
}

EFX_Context* UI_EFX_Bridge::GetContext() const
{
    return g_bridge.Context;
}

void UI_EFX_Bridge::SetCallbacksEnabled(int flag)
{
    g_bridge.CallbacksEnabled = flag;
}

int UI_EFX_Bridge::GetCallbacksEnabled() const
{
    return g_bridge.CallbacksEnabled;
}

void UI_EFX_Bridge::SetMainDialog(BridgeMainDialog* dialog)
{
    g_bridge.MainDialog = dialog;
}

void UI_EFX_Bridge::SetContextSourceDialog(BridgeContextSourceDialog* dialog)
{
    g_bridge.ContextSourceDialog = dialog;
}

void UI_EFX_Bridge::SetSlotPanel(int slot, BridgeSlotPanel* panel)
{
    if (bridge_detail::IsSlotNumber(slot))
        g_bridge.SlotPanels[slot] = panel;
}

void UI_EFX_Bridge::SetPanner(int slot, BridgePanner* panner)
{
    if (bridge_detail::IsSlotNumber(slot))
        g_bridge.Panners[slot] = panner;
}

void UI_EFX_Bridge::SetResponseWindow(BridgeResponseWindow* window)
{
    g_bridge.ResponseWindow = window;
}

BridgeResponseWindow* UI_EFX_Bridge::GetResponseWindow() const
{
    return g_bridge.ResponseWindow;
}

void UI_EFX_Bridge::SetPositionWindow(BridgePositionWindow* window)
{
    g_bridge.PositionWindow = window;
}

void UI_EFX_Bridge::ToggleAutoPlay()
{
    g_bridge.AutoPlay = !g_bridge.AutoPlay;
    TellAutoPlay();
}

int UI_EFX_Bridge::GetAutoPlay() const
{
    return g_bridge.AutoPlay;
}

void UI_EFX_Bridge::SetPositionRange(double extent)
{
    // Listener params 1 to 3 and source params 4 to 6 are the positions.
    auto setRange = [extent](CEFXFloatValObs* const* position) {
        if (!position[0] || !position[1] || !position[2])
            return;
        for (int axis = 0; axis < 3; ++axis) {
            position[axis]->Minimum = static_cast<float>(extent * -0.5);
            position[axis]->Maximum = static_cast<float>(extent * 0.5);
            position[axis]->RangeChecked = 1;
        }
    };
    BridgeValueTables& tables = BridgeTables();
    setRange(&tables.ListenerValues[1]);
    for (auto& source : tables.SourceValues)
        setRange(&source[4]);
}

void UI_EFX_Bridge::TellPositionWindow()
{
    if (g_bridge.PositionWindow)
        g_bridge.PositionWindow->RedrawPositionWindow();
}
