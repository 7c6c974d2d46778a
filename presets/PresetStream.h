#pragma once

// Positions in a stdio stream as 64-bit numbers, so that a stated chunk size added to a position can
// neither wrap nor be cut to the width of a long.

#include <cstdint>
#include <cstdio>
#include <limits>
#include <sys/types.h>

namespace preset_stream {

// The current position; false for a stream that cannot tell.
inline bool Tell(std::FILE* stream, std::uint64_t& position)
{
    const off_t at = ftello(stream);
    if (at < 0)
        return false;
    position = static_cast<std::uint64_t>(at);
    return true;
}

// An absolute seek; a target beyond what the stream can address fails like any other seek.
inline bool Seek(std::FILE* stream, std::uint64_t position)
{
    if (position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return false;
    return fseeko(stream, static_cast<off_t>(position), SEEK_SET) == 0;
}

// The length of the stream, leaving the position where it was; 0 if it cannot be measured.
inline std::uint64_t Length(std::FILE* stream)
{
    std::uint64_t here = 0;
    std::uint64_t end = 0;
    if (!Tell(stream, here) || fseeko(stream, 0, SEEK_END) != 0 || !Tell(stream, end))
        end = 0;
    Seek(stream, here);
    return end;
}

} // namespace preset_stream
