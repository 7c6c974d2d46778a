#pragma once

// An effect identifier, held as the 16 bytes of its "guid" chunk: the first group as a little-endian
// 32-bit word, the next two as little-endian 16-bit words, the last eight bytes as written.

#include <array>
#include <cstdint>

struct EffectGuid {
    std::array<std::uint8_t, 16> bytes{};

    friend constexpr bool operator==(const EffectGuid&, const EffectGuid&) = default;
};

// {d1-d2-d3-d4[0]d4[1]-d4[2..7]} in the usual text form, laid out as the file stores it.
constexpr EffectGuid MakeGuid(std::uint32_t d1, std::uint16_t d2, std::uint16_t d3,
                              const std::array<std::uint8_t, 8>& d4)
{
    EffectGuid guid;
    for (int i = 0; i < 4; ++i)
        guid.bytes[i] = static_cast<std::uint8_t>(d1 >> (8 * i));
    guid.bytes[4] = static_cast<std::uint8_t>(d2);
    guid.bytes[5] = static_cast<std::uint8_t>(d2 >> 8);
    guid.bytes[6] = static_cast<std::uint8_t>(d3);
    guid.bytes[7] = static_cast<std::uint8_t>(d3 >> 8);
    for (int i = 0; i < 8; ++i)
        guid.bytes[8 + i] = d4[i];
    return guid;
}

// The identifier of an empty slot, which has no effect entry.
inline constexpr EffectGuid kNullEffectGuid{};
