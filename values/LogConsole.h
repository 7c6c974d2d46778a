#pragma once

// The list that collects every message of the engine: the console of the main dialog. The bridge
// only borrows it; the main dialog implements it on its list widget.
class LogConsole {
public:
    virtual ~LogConsole() = default;
    virtual void AddString(const char* text) = 0;
    virtual int GetCount() const = 0;
    // Scrolls so that the line of this index is the first one shown.
    virtual void SetTopIndex(int index) = 0;
};
