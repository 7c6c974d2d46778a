#pragma once

#include <cstdio>

// One log message built from a format and a property name or a few numbers. The names are short
// constants, so 256 characters leave room to spare; snprintf cuts rather than overruns.
class LogMessage {
public:
    template <typename... Args>
    explicit LogMessage(const char* format, Args... args)
    {
        std::snprintf(m_text, sizeof m_text, format, args...);
    }

    const char* Text() const { return m_text; }

private:
    char m_text[256];
};
