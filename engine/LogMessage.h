#pragma once

#include "engine/ExecLog.h"

// One log message built from a format and a property name, a few numbers or another object's log.
// It holds as much as a log can; longer text is cut rather than overrunning.
class LogMessage {
public:
    explicit LogMessage(const char* format, ...) __attribute__((format(printf, 2, 3)));

    const char* Text() const { return m_text; }

private:
    char m_text[ExecLog::kLogSize];
};
