#pragma once

// Four-byte chunk tags and node kinds. A tag is compared as the 32-bit number that its four bytes
// make when read little-endian from the file, so "efct" in memory is the word the reader sees.

#include <cstdint>

using ChunkTag = std::uint32_t;

constexpr ChunkTag MakeTag(const char (&text)[5])
{
    return static_cast<ChunkTag>(static_cast<unsigned char>(text[0]))
        | (static_cast<ChunkTag>(static_cast<unsigned char>(text[1])) << 8)
        | (static_cast<ChunkTag>(static_cast<unsigned char>(text[2])) << 16)
        | (static_cast<ChunkTag>(static_cast<unsigned char>(text[3])) << 24);
}

namespace preset_tag {

// Container words: the reader replaces them by the form type that follows.
inline constexpr ChunkTag kRiff = MakeTag("RIFF");
inline constexpr ChunkTag kList = MakeTag("LIST");

// Node kinds, which are also the form types of the lists.
inline constexpr ChunkTag kRoot = MakeTag("efx ");
inline constexpr ChunkTag kEffect = MakeTag("efct");
inline constexpr ChunkTag kPresetGroup = MakeTag("sgrp");
inline constexpr ChunkTag kPreset = MakeTag("pset");
inline constexpr ChunkTag kParamGroup = MakeTag("pgrp");
inline constexpr ChunkTag kParam = MakeTag("pram");

// Leaf chunks.
inline constexpr ChunkTag kName = MakeTag("name");
inline constexpr ChunkTag kGuid = MakeTag("guid");
inline constexpr ChunkTag kParamCount = MakeTag("pnum");
inline constexpr ChunkTag kEnum = MakeTag("enum");
inline constexpr ChunkTag kParamSize = MakeTag("psiz");
inline constexpr ChunkTag kData = MakeTag("data");
inline constexpr ChunkTag kType = MakeTag("type");
inline constexpr ChunkTag kOffset = MakeTag("ofst");
inline constexpr ChunkTag kMinValue = MakeTag("minv");
inline constexpr ChunkTag kMaxValue = MakeTag("maxv");
inline constexpr ChunkTag kDefaultValue = MakeTag("defv");
inline constexpr ChunkTag kStep = MakeTag("step");
inline constexpr ChunkTag kEnumTable = MakeTag("etbl");

} // namespace preset_tag
