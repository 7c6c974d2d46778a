#pragma once

// The nodes of a preset document. Every node carries its kind as the four-byte word that the file
// uses as the list's form type; the further fields depend on the kind. A node owns its children
// through firstChild and nextSibling, and a node's own blocks (a preset's record, a parameter's
// enumeration table) go with it.

#include "presets/ChunkTag.h"
#include "presets/EffectGuid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// A label: at most 127 UTF-16 units and a zero.
inline constexpr std::size_t kNameUnits = 128;
inline constexpr std::size_t kMaxNameLength = kNameUnits - 1;

// Room of each value field of a parameter node; a type-3 value fills it.
inline constexpr std::size_t kParamValueRoom = 12;
using ParamValue = std::array<std::uint8_t, kParamValueRoom>;

struct PresetNode {
    explicit PresetNode(ChunkTag kind)
        : id(kind)
    {
    }
    virtual ~PresetNode() = default;
    PresetNode(const PresetNode&) = delete;
    PresetNode& operator=(const PresetNode&) = delete;

    std::uint32_t id;
    std::uint32_t size = 0;    // chunk size as last read or written
    std::uint32_t filePos = 0; // file position of the chunk's body, as last read or written
    char16_t name[kNameUnits] = {};
    PresetNode* parent = nullptr;
    PresetNode* firstChild = nullptr;
    PresetNode* nextSibling = nullptr;
    // The end of the list of children, so that linking at the end costs the same for the ten
    // thousandth preset as for the first.
    PresetNode* lastChild = nullptr;
};

// "efct": one effect entry.
struct EffectNode : PresetNode {
    EffectNode()
        : PresetNode(preset_tag::kEffect)
    {
    }
    EffectGuid guid;
    std::uint32_t paramCount = 0; // "pnum"
    std::uint32_t enumFlag = 0;   // "enum"
    std::uint32_t paramSize = 0;  // "psiz"
};

// "sgrp": a group of presets.
struct PresetGroupNode : PresetNode {
    PresetGroupNode()
        : PresetNode(preset_tag::kPresetGroup)
    {
    }
};

// "pset": one preset; the record is the effect's, whichever "efct" encloses the node.
struct PresetDataNode : PresetNode {
    PresetDataNode()
        : PresetNode(preset_tag::kPreset)
    {
    }
    std::uint32_t dataSize = 0;
    std::unique_ptr<std::uint8_t[]> data;
};

// "pgrp": a group of parameter descriptions, read from a file and written back, never shown.
struct ParamGroupNode : PresetNode {
    ParamGroupNode()
        : PresetNode(preset_tag::kParamGroup)
    {
    }
};

// "pram": one parameter description, carried through a load and a save. The value fields hold the
// file's bytes as they are, since their meaning depends on the type and nothing here reads them.
struct ParamNode : PresetNode {
    ParamNode()
        : PresetNode(preset_tag::kParam)
    {
    }
    std::uint32_t type = 0;
    std::uint32_t offset = 0;
    std::uint32_t enumValue = 0;
    ParamValue minValue{};
    ParamValue maxValue{};
    ParamValue defaultValue{};
    ParamValue step{};
    // UTF-16 strings, each with its terminator, the list closed by one further zero. Empty means
    // absent. As read from a file the block always ends in two zero units past the chunk's own
    // bytes, so that a list that a foreign file left open still ends inside it.
    std::vector<char16_t> enumTable;
};

// The size of a parameter value by its type: 4 bytes for types 0, 1, 2, 4 and 5, 12 for type 3,
// nothing for any other.
std::uint32_t ParamValueSize(std::uint32_t type);

// The length in units of an enumeration table: each string with its terminator, then the closing
// zero. Counts no further than `capacity` units.
std::size_t MultiStringLength(const char16_t* table, std::size_t capacity);

// The length in units of a label: the units before the first zero, at most 127.
std::size_t NameLength(const char16_t* name);
