#pragma once

// The .efx file is little-endian on every machine. These helpers build and take apart its words one
// byte at a time, so that nothing depends on the byte order of the host.

#include <bit>
#include <cstdint>

namespace preset_bytes {

inline std::uint16_t LoadLE16(const std::uint8_t* p)
{
    return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}

inline std::uint32_t LoadLE32(const std::uint8_t* p)
{
    return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8)
        | (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}

inline std::int32_t LoadLEI32(const std::uint8_t* p)
{
    return static_cast<std::int32_t>(LoadLE32(p));
}

inline float LoadLEF32(const std::uint8_t* p)
{
    return std::bit_cast<float>(LoadLE32(p));
}

inline void StoreLE16(std::uint8_t* p, std::uint16_t value)
{
    p[0] = static_cast<std::uint8_t>(value);
    p[1] = static_cast<std::uint8_t>(value >> 8);
}

inline void StoreLE32(std::uint8_t* p, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        p[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

inline void StoreLEI32(std::uint8_t* p, std::int32_t value)
{
    StoreLE32(p, static_cast<std::uint32_t>(value));
}

inline void StoreLEF32(std::uint8_t* p, float value)
{
    StoreLE32(p, std::bit_cast<std::uint32_t>(value));
}

} // namespace preset_bytes
