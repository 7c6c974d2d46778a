#pragma once

#include <QObject>

class CSonopticApp;

// The program-wide shortcuts. Shift wins over Ctrl: with Shift down, Ctrl is not considered.
enum class ShortcutAction {
    None,             // not a shortcut: the key goes on
    Swallow,          // consumed without action (Ctrl is down and there is no main dialog yet)
    ProcessContext,   // Shift+P
    SuspendContext,   // Shift+S
    ShowSlot0,        // Ctrl+0 to Ctrl+3
    ShowSlot1,
    ShowSlot2,
    ShowSlot3,
    AddSource,        // Ctrl+A
    ShowBrowser,      // Ctrl+B
    ShowContextWindow,// Ctrl+C
    ShowPositionWindow// Ctrl+P
};

// The action of a key-down, given the modifiers held at that moment, the key's character (upper
// case for letters) and whether the main dialog exists.
ShortcutAction ShortcutForKey(bool shiftDown, bool ctrlDown, char key, bool haveMainDialog);

// Event filter on the application: sees every key press in every window of the program, reads the
// modifiers from the keyboard's state at that moment, and hands shortcuts to the application.
class CKeyboardFilter : public QObject {
public:
    explicit CKeyboardFilter(CSonopticApp* app);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CSonopticApp* m_app;
};
