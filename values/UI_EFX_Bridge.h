#pragma once

#include "engine/DeviceInfo.h"
#include "values/COrvexObservableCallback.h"

#include <cstdint>

class EFX_Factory;
class EFX_Context;
class EFX_3DSource;
class LogConsole;
class BridgeSlotPanel;
class BridgePanner;
class BridgeResponseWindow;
class BridgePositionWindow;
class BridgeMainDialog;
class BridgeContextSourceDialog;

// The one object between the user interface and the engine. It owns the engine objects and the value
// objects that outlive a panel (BridgeTables.h), moves the engine's log text into the console, and
// turns slot and source numbers into engine objects. A change of a value reaches the engine through
// OnValueChanged and comes back by a write-back of the whole object, so that what a control shows is
// what the engine reports. Its state is program-wide; GetInstance() finds the one object. Owned by
// the application object from its constructor to its destructor; windows are only borrowed.
class UI_EFX_Bridge : public COrvexObservableCallback {
public:
    static constexpr int kDeviceNameSize = DeviceInfo::kNameSize;
    // The result of CreateSlot when no slot was made.
    static constexpr std::uint32_t kNoSlot = 0xFFFFFFFFu;

    // Shows one line of text to the user and waits for OK. The shell installs the real message box;
    // without one, messages are dropped.
    using MessageBoxHandler = void (*)(const char* text);

    // Allocates the bridge's value tables and clears every reference.
    UI_EFX_Bridge();
    // Deletes the value tables, stops and deletes the sources, deletes the context object, shuts the
    // factory down and deletes it, and frees the device list.
    ~UI_EFX_Bridge() override;

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
    // The listener's engine object; null until CreateContext.
    EFX_Context* GetContext() const;

    // References and switches.
    void SetCallbacksEnabled(int flag);
    int GetCallbacksEnabled() const;
    void SetMainDialog(BridgeMainDialog* dialog);
    void SetContextSourceDialog(BridgeContextSourceDialog* dialog);
    void SetSlotPanel(int slot, BridgeSlotPanel* panel);
    void SetPanner(int slot, BridgePanner* panner);
    void SetResponseWindow(BridgeResponseWindow* window);
    BridgeResponseWindow* GetResponseWindow() const;
    void SetPositionWindow(BridgePositionWindow* window);
    void ToggleAutoPlay();
    int GetAutoPlay() const;
    // Gives the three position values of the listener and of every source the range -extent/2 to
    // +extent/2, directly and without notification.
    void SetPositionRange(double extent);

    // Logging. The console is the main dialog's; null drops the text.
    void SetLogList(LogConsole* console);
    void LogMessage(const char* text);
    void FlushFactoryLog();
    void FlushContextLog();
    void FlushSlotLog(int slot);
    void FlushSourceLog(int index);
    void ClearContextLog();
    void ClearSlotLog(int slot);
    void ClearSourceLog(int index);

    // Slots. CreateSlot returns the new slot's number, or kNoSlot.
    std::uint32_t CreateSlot();
    int GetSlotCount() const;
    int LoadSlotEffect(int slot, int type);
    int GetSlotEffect(int slot, int* type);
    void RefreshSlotPanel(int slot);
    void RefreshSlot(int slot);
    int RefreshEffectValues(int slot, int type);
    int RefreshEAXReverb(int slot);
    int RefreshReverb(int slot);
    // Set a pan vector of the EAX reverb without a write-back: the panner asks for it on release.
    int SetReflectionsPan(int slot, float x, float y, float z);
    int SetLateReverbPan(int slot, float x, float y, float z);

    // The "Defaults" buttons: the effect's default routine, a message, the write-back.
    void SetEAXReverbDefaults(int slot);
    void SetReverbDefaults(int slot);
    void SetAGCDefaults(int slot);
    void SetAutowahDefaults(int slot);
    void SetChorusDefaults(int slot);
    void SetDistortionDefaults(int slot);
    void SetEchoDefaults(int slot);
    void SetEqualizerDefaults(int slot);
    void SetFlangerDefaults(int slot);
    void SetFrequencyShifterDefaults(int slot);
    void SetVocalMorpherDefaults(int slot);
    void SetPitchShifterDefaults(int slot);
    void SetRingModulatorDefaults(int slot);

    // Sources, numbered 0 to GetSourceCount() - 1 without holes.
    int CreateSource(const char* path);
    int ReloadSource(int index, const char* path);
    void DeleteSource(int index);
    void PlaySource(int index, int looped);
    void StopSource(int index);
    void StartAllSources();
    void StopAllSources();
    void SetSourceToFront(int index);
    void MoveSource(int index, float x, float y, float z);
    void SetSourceDefaults(int index);
    int CreateSourceSend(int index, int send);
    int DeleteSourceSend(int index, int send);
    void RefreshSource(int index);
    EFX_3DSource* GetSource(int index) const;
    int GetSourceCount() const;
    // The text of the source's tab; empty for an unused place.
    const char* GetSourceName(int index) const;
    void SetSourceName(int index, const char* name);

    // Listener and context.
    int CreateContext();
    void SuspendContext();
    void ProcessContext();
    void SetListenerDefaults();
    void MoveListener(float x, float y, float z);
    void RefreshContext();

    // The one road from a value to the engine: sets the property that the numbers name, shows the
    // engine's log and writes the whole object back into its values.
    void OnValueChanged(CObservableNumber* subject, std::uint16_t kind, std::uint16_t category, std::uint16_t index,
                        std::uint16_t param, std::uint16_t extra) override;

private:
    void AddLogLine(const char* text);
    void ScrollLog();
    void RunEffectDefaults(int slot, int type);
    void TellPositionWindow();
};
