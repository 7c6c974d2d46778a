#pragma once

#include "engine/ExecLog.h"

#include <cstdio>

// One log message built from a format and a property name, a few numbers or another object's log.
// It holds as much as a log can; snprintf cuts rather than overruns.
class LogMessage {
public:
    template <typename... Args>
    explicit LogMessage(const char* format, Args... args)
    {
        std::snprintf(m_text, sizeof m_text, format, args...);
    }

    const char* Text() const { return m_text; }

private:
    char m_text[ExecLog::kLogSize];
};
