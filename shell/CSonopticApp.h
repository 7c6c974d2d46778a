#pragma once

#include "shell/KeyboardShortcuts.h"

#include <cstdint>
#include <memory>
#include <string>

class CSonopticDlg;
class UI_EFX_Bridge;

// The application object: asks for what cannot change once the context exists (the sends and the
// device), starts the engine and runs the main dialog as the program's only loop. Owns the one
// bridge from its constructor to its destructor.
class CSonopticApp {
public:
    explicit CSonopticApp(std::string commandLine);
    // Deletes the bridge, which stops the engine.
    virtual ~CSonopticApp();

    static CSonopticApp* GetApp();

    // The start-up sequence; always returns 0.
    int InitInstance();

    bool HasMainDialog() const { return m_dlg != nullptr; }
    void RunShortcut(ShortcutAction action);

    UI_EFX_Bridge* GetBridge() const { return m_bridge; }
    std::int32_t GetMaxSends() const { return m_maxSends; }

private:
    std::int32_t m_maxSends = 0;
    std::uint32_t m_engineReserved = 0;  // never assigned; the engine's reserved argument
    std::int32_t m_showDeviceDialog = 1; // never cleared: the device dialog always runs
    UI_EFX_Bridge* m_bridge = nullptr;
    CSonopticDlg* m_dlg = nullptr;

    std::string m_commandLine;
    std::unique_ptr<CKeyboardFilter> m_keyboardFilter;
};
