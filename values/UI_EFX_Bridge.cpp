#include "values/UI_EFX_Bridge.h"

#include "engine/EFX_Factory.h"
#include "values/LogConsole.h"

#include <cstring>

namespace {

// The bridge's program-wide state, beside the class.
struct BridgeState {
    UI_EFX_Bridge* instance = nullptr;
    EFX_Factory* factory = nullptr;
    LogConsole* logList = nullptr;
    char deviceName[UI_EFX_Bridge::kDeviceNameSize] = {};
    UI_EFX_Bridge::MessageBoxHandler messageBox = nullptr;
};

BridgeState g_bridge;

// The console shows its last five lines after each addition.
constexpr int kVisibleLogLines = 5;

void ShowMessageBox(const char* text)
{
    if (g_bridge.messageBox)
        g_bridge.messageBox(text);
}

} // namespace

UI_EFX_Bridge::UI_EFX_Bridge()
{
    g_bridge.instance = this;
    g_bridge.factory = nullptr;
    g_bridge.logList = nullptr;
    g_bridge.deviceName[0] = '\0';
}

UI_EFX_Bridge::~UI_EFX_Bridge()
{
    if (g_bridge.factory) {
        g_bridge.factory->Shutdown();
        delete g_bridge.factory;
        g_bridge.factory = nullptr;
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
    g_bridge.factory = EFX_Factory::Create();
    if (g_bridge.factory->Initialize(reserved, maxSends))
        return 1;
    ShowMessageBox("Error initializing audio engine:");
    ShowMessageBox(g_bridge.factory->GetLog());
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
    g_bridge.deviceName[0] = '\0';
    std::strncat(g_bridge.deviceName, name, kDeviceNameSize - 1);
}

const char* UI_EFX_Bridge::GetDeviceName() const
{
    return g_bridge.deviceName;
}

std::uint32_t UI_EFX_Bridge::GetMaxSends() const
{
    return EFX_Factory::GetMaxSends();
}

EFX_Factory* UI_EFX_Bridge::GetFactory() const
{
    return g_bridge.factory;
}

void UI_EFX_Bridge::SetLogList(LogConsole* console)
{
    g_bridge.logList = console;
}

void UI_EFX_Bridge::AddLogLine(const char* text)
{
    if (g_bridge.logList)
        g_bridge.logList->AddString(text);
}

void UI_EFX_Bridge::ScrollLog()
{
    if (g_bridge.logList)
        g_bridge.logList->SetTopIndex(g_bridge.logList->GetCount() - kVisibleLogLines);
}

void UI_EFX_Bridge::LogMessage(const char* text)
{
    AddLogLine(text);
    ScrollLog();
}

void UI_EFX_Bridge::FlushFactoryLog()
{
    if (!g_bridge.factory)
        return;
    AddLogLine(g_bridge.factory->GetLog());
    g_bridge.factory->ClearLog();
    ScrollLog();
}

void UI_EFX_Bridge::SuspendContext()
{
    if (!g_bridge.factory)
        return;
    g_bridge.factory->SuspendContext();
    FlushFactoryLog();
}

void UI_EFX_Bridge::ProcessContext()
{
    if (!g_bridge.factory)
        return;
    g_bridge.factory->ProcessContext();
    FlushFactoryLog();
}
