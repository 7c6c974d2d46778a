#pragma once

#include <string>
#include <vector>

// Presses keys on the X server itself, so that the keyboard's state (what the shortcut filter reads)
// is real, as it is when a user holds Shift. Keys are named as X names them: "Shift_L", "p".
class XKeyboard {
public:
    XKeyboard();
    ~XKeyboard();
    bool Available() const { return m_display != nullptr; }

    // Holds the modifiers, presses and releases the key, lets go of the modifiers, then lets the
    // program handle what arrived.
    void Chord(const std::vector<std::string>& modifiers, const std::string& key);
    // Presses or lets go of one key, and waits a moment for the server.
    void Send(const std::string& name, bool down);

private:

    void* m_display;
};
