#include "engine/LogMessage.h"

#include <cstdarg>
#include <cstdio>

LogMessage::LogMessage(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::vsnprintf(m_text, sizeof m_text, format, args);
    va_end(args);
}
