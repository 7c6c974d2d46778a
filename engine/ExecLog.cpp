#include "engine/ExecLog.h"

#include <cstring>

void ExecLog::ClearLog()
{
    m_log[0] = '\0';
}

void ExecLog::SetLog(const char* text)
{
    ClearLog();
    std::strncat(m_log, text, kLogSize - 1);
}

void ExecLog::AppendLog(const char* text)
{
    const std::size_t current = std::strlen(m_log);
    const std::size_t added = std::strlen(text);
    if (current + added >= kLogSize) {
        SetLog(text);
        return;
    }
    std::memcpy(m_log + current, text, added + 1);
}
