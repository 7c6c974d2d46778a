#pragma once

#include <cstddef>

// The text that every engine object leaves behind: one 512-character buffer, NUL-terminated, no levels,
// no timestamps. Appends run together; the messages carry their own blanks. The layer above reads it
// after a call, copies it to the console and clears it.
class ExecLog {
public:
    static constexpr std::size_t kLogSize = 512;

    ExecLog() { m_log[0] = '\0'; }
    virtual ~ExecLog() = default;

    void ClearLog();
    // Replaces the log with text. Text longer than the buffer is cut to 511 characters rather than
    // overrunning it.
    void SetLog(const char* text);
    // Appends text; when the two together would reach 512 characters the older text is dropped whole,
    // so the newest message always survives.
    void AppendLog(const char* text);
    // Appends text followed by more as one message, under the same rule; cheaper than formatting
    // the two into one buffer first.
    void AppendLog(const char* text, const char* more);
    // The buffer itself, valid as long as the object.
    const char* GetLog() const { return m_log; }

private:
    char m_log[kLogSize];
};
