#pragma once

// The preset document: a root of kind "efx " holding effect entries, preset groups, presets and the
// parameter descriptions that a file may carry, and the .efx reader and writer. The tree owns every
// node under the root. Children keep the order in which they were linked; nothing is sorted, and
// names need not be unique.
//
// The file operations take an open stdio stream. The reader reports nothing: a file that is not an
// "efx " form gives no children, a bad or short chunk ends its list early, and what was read up to
// there stands. Foreign and broken files cannot make it write outside a node's fields, allocate more
// than the file holds, or recurse without bound.

#include "presets/ChunkTag.h"
#include "presets/EffectTable.h"
#include "presets/PresetNode.h"

#include <cstdint>
#include <cstdio>

// One chunk header as read: the tag (for RIFF and LIST, the form type that follows instead), the size
// of the body, and the position where the body starts.
struct ChunkHeader {
    ChunkTag id = 0;
    std::uint32_t size = 0;
    std::uint32_t filePos = 0;
    // How far this chunk may reach: its own end, cut to its parent's reach and to the end of the
    // stream. Blocks are never allocated past it, so a stated size cannot claim what is not there.
    std::uint64_t limit = 0;
};

class CEFXPresetTree {
public:
    // Groups nest at most this deep below the root. The reader skips deeper lists and AddGroup
    // refuses them, so that every walk of the tree stays far from the end of the stack.
    static constexpr int kMaxDepth = 256;

    CEFXPresetTree() = default;
    ~CEFXPresetTree();
    CEFXPresetTree(const CEFXPresetTree&) = delete;
    CEFXPresetTree& operator=(const CEFXPresetTree&) = delete;

    PresetNode* Root() { return &m_root; }
    const PresetNode* Root() const { return &m_root; }

    // The thirteen effect entries of a new document, in the order of the effect table.
    void BuildDefaultTree();

    EffectNode* AddEffect(const char16_t* name, const EffectDescriptor& descriptor);
    // Null, and nothing made, unless the parent is an "sgrp", an "efct" or a "pset" (and not nested
    // deeper than kMaxDepth).
    PresetGroupNode* AddGroup(PresetNode* parent, const char16_t* name);
    // Null, and nothing made, unless the parent is an "sgrp" or an "efct". Copies `size` bytes of
    // `data`; if the block cannot be had the preset stands empty.
    PresetDataNode* AddPreset(PresetNode* parent, const char16_t* name, const std::uint8_t* data,
                              std::uint32_t size);
    // The first effect entry under the root whose identifier equals `guid`, all 16 bytes.
    EffectNode* FindEffect(const EffectGuid& guid);
    // Takes the node out of its parent's list and deletes it with all that lies under it. The root
    // itself belongs to the tree and is not deleted: asked for it, nothing happens.
    void DeleteNode(PresetNode* node);
    void DeleteAllChildren();
    // Copies units up to a zero, at most 127, and closes with a zero.
    static void SetNodeName(PresetNode* node, const char16_t* name);
    // Makes the missing entry of an identifier and returns it; null for an unknown identifier. Asked
    // for the Vocal Morpher, it makes a "Frequency Shifter" entry with the Frequency Shifter's
    // identifier and values: the Vocal Morpher has never had a row of its own here.
    EffectNode* EnsureEffectNode(const EffectGuid& guid);

    // Reading. ReadFile fills the tree from the start of the stream, after any children already
    // there; it has no failure result.
    void ReadFile(std::FILE* stream);
    // Clears the header; false at or past the end of `parent` (if given), or when a read fails.
    bool ReadChunkHeader(std::FILE* stream, ChunkHeader& header, const ChunkHeader* parent);
    // Seeks to the end of the body, one further if the size is odd.
    void SkipChunk(std::FILE* stream, const ChunkHeader& header);
    void ReadEffect(std::FILE* stream, const ChunkHeader& header, PresetNode* parent);
    void ReadGroup(std::FILE* stream, const ChunkHeader& header, PresetNode* parent);
    void ReadPreset(std::FILE* stream, const ChunkHeader& header, PresetNode* parent);
    void ReadParam(std::FILE* stream, const ChunkHeader& header, PresetNode* parent);

    // Writing. WriteFile writes the whole document from the start of the stream.
    void WriteFile(std::FILE* stream);
    void WriteChunkHeader(std::FILE* stream, PresetNode* node);
    void CloseChunk(std::FILE* stream, PresetNode* node);
    void WriteChunk(std::FILE* stream, ChunkTag tag, const void* bytes, std::uint32_t size);
    void WriteEffect(std::FILE* stream, EffectNode* node);
    void WriteGroup(std::FILE* stream, PresetNode* node);
    void WritePreset(std::FILE* stream, PresetDataNode* node);
    void WriteParam(std::FILE* stream, ParamNode* node);

private:
    // Links `child` at the end of the parent's list.
    static void LinkChild(PresetNode* parent, PresetNode* child);
    static int Depth(const PresetNode* node);
    void WriteName(std::FILE* stream, const PresetNode* node);

    PresetNode m_root{preset_tag::kRoot};
    std::uint64_t m_streamEnd = 0; // the length of the stream being read
};
