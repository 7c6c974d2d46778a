#include "engine/ExecLog.h"

#include <algorithm>
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

void ExecLog::AppendLog(const char* text, const char* more)
{
    std::size_t current = std::strlen(m_log);
    const std::size_t first = std::strlen(text);
    const std::size_t second = std::strlen(more);
    if (current + first + second >= kLogSize) {
        ClearLog();
        current = 0;
    }
    // A message that is too long alone is cut to what the buffer holds, as SetLog cuts it.
    const std::size_t room = kLogSize - 1 - current;
    const std::size_t head = std::min(first, room);
    const std::size_t tail = std::min(second, room - head);
    std::memcpy(m_log + current, text, head);
    std::memcpy(m_log + current + head, more, tail);
    m_log[current + head + tail] = '\0';
}
