#pragma once

#include "engine/DeviceInfo.h"

#include <cstdint>

class EFX_Factory;
class LogConsole;

// The one object between the user interface and the engine. It owns the engine objects, moves the
// engine's log text into the console, and addresses slots and sources by number. Its state is
// program-wide; GetInstance() finds the one object. Owned by the application object from its
// constructor to its destructor.
class UI_EFX_Bridge {
public:
    static constexpr int kDeviceNameSize = DeviceInfo::kNameSize;

    // Shows one line of text to the user and waits for OK. The shell installs the real message box;
    // without one, messages are dropped.
    using MessageBoxHandler = void (*)(const char* text);

    UI_EFX_Bridge();
    // Shuts the engine down in order: the factory's Shutdown, then the factory, then the device list.
    virtual ~UI_EFX_Bridge();

    static UI_EFX_Bridge* GetInstance();
    static void SetMessageBoxHandler(MessageBoxHandler handler);

    // Engine start and the device choice.
    int InitializeEngine(int mode, std::uint32_t reserved, std::uint32_t maxSends);
    DeviceInfo* GetDeviceList();
    void SelectDevice(const char* name);
    const char* GetDeviceName() const;
    std::uint32_t GetMaxSends() const;
    // The engine's root, for the windows that read the number of slots and sends; null before the start.
    EFX_Factory* GetFactory() const;

    // The console that log text goes to; null drops it.
    void SetLogList(LogConsole* console);
    void LogMessage(const char* text);
    void FlushFactoryLog();

    void SuspendContext();
    void ProcessContext();

private:
    void AddLogLine(const char* text);
    void ScrollLog();
};
