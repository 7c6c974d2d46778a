// The .efx reader. Every chunk is skipped after it was read, whether it was read or not, so that a
// reader that took too little or too much stays in step. Positions only ever move forward from one
// header to the next, so that no file, however its sizes lie, can make the reader go round in a loop.
#include "presets/CEFXPresetTree.h"

#include "presets/ByteOrder.h"
#include "presets/PresetStream.h"

#include <algorithm>
#include <limits>
#include <new>

using namespace preset_bytes;

namespace {

// The bytes that a chunk may still claim from its body start: its stated size, cut to the reach of
// the lists around it and to the end of the stream.
std::uint32_t ClaimableSize(const ChunkHeader& header)
{
    if (header.limit <= header.filePos)
        return 0;
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(header.size, header.limit - header.filePos));
}

// Reads what the stream delivers of `count` bytes. The result is not looked at: in a cut file the
// bytes not delivered keep what the buffer held, and the chunk's list ends at the next header.
void ReadBody(std::FILE* stream, void* buffer, std::size_t count)
{
    const std::size_t delivered = std::fread(buffer, 1, count, stream);
    static_cast<void>(delivered);
}

// Reads a leaf chunk's body over a fixed field, taking the chunk's own size but never more than the
// field holds: a foreign chunk longer than its field is cut.
void ReadLeafBytes(std::FILE* stream, const ChunkHeader& header, std::uint8_t* field, std::size_t room)
{
    ReadBody(stream, field, std::min<std::size_t>(header.size, room));
}

void ReadWord(std::FILE* stream, const ChunkHeader& header, std::uint32_t& word)
{
    std::uint8_t bytes[4];
    StoreLE32(bytes, word);
    ReadLeafBytes(stream, header, bytes, sizeof bytes);
    word = LoadLE32(bytes);
}

// A name of up to 127 units reads whole; a longer one is cut to 127, so the closing zero stays.
void ReadName(std::FILE* stream, const ChunkHeader& header, char16_t (&name)[kNameUnits])
{
    std::uint8_t bytes[2 * kMaxNameLength];
    for (std::size_t i = 0; i < kMaxNameLength; ++i)
        StoreLE16(bytes + 2 * i, name[i]);
    ReadLeafBytes(stream, header, bytes, sizeof bytes);
    for (std::size_t i = 0; i < kMaxNameLength; ++i)
        name[i] = static_cast<char16_t>(LoadLE16(bytes + 2 * i));
}

void CopyHeader(const ChunkHeader& header, PresetNode* node)
{
    node->size = header.size;
    node->filePos = header.filePos;
}

} // namespace

bool CEFXPresetTree::ReadChunkHeader(std::FILE* stream, ChunkHeader& header, const ChunkHeader* parent)
{
    header = ChunkHeader{};
    std::uint64_t position = 0;
    if (!preset_stream::Tell(stream, position))
        return false;
    if (!parent)
        m_streamEnd = preset_stream::Length(stream);
    else if (position >= static_cast<std::uint64_t>(parent->filePos) + parent->size)
        return false;

    std::uint8_t bytes[8];
    if (std::fread(bytes, 1, 8, stream) != 8)
        return false;
    header.id = LoadLE32(bytes);
    header.size = LoadLE32(bytes + 4);
    const std::uint64_t bodyStart = position + 8;
    // Positions are 32-bit in the format; a body beyond that cannot be addressed, and a position
    // that wrapped could send the reader backwards.
    if (bodyStart > std::numeric_limits<std::uint32_t>::max())
        return false;
    header.filePos = static_cast<std::uint32_t>(bodyStart);
    header.limit = std::min(bodyStart + header.size, parent ? parent->limit : m_streamEnd);

    if (header.id == preset_tag::kRiff || header.id == preset_tag::kList) {
        if (std::fread(bytes, 1, 4, stream) != 4)
            return false;
        header.id = LoadLE32(bytes);
    }
    return true;
}

void CEFXPresetTree::SkipChunk(std::FILE* stream, const ChunkHeader& header)
{
    const std::uint64_t end = static_cast<std::uint64_t>(header.filePos) + header.size + (header.size & 1);
    preset_stream::Seek(stream, end);
}

void CEFXPresetTree::ReadFile(std::FILE* stream)
{
    // The root keeps its kind whatever the file holds, so that a later save still writes an "efx "
    // document. A plain chunk tagged "efx " passes as well as the RIFF form: the tag is what counts.
    if (!preset_stream::Seek(stream, 0))
        return;
    ChunkHeader root;
    if (!ReadChunkHeader(stream, root, nullptr))
        return;
    CopyHeader(root, &m_root);
    if (root.id != preset_tag::kRoot)
        return;
    ChunkHeader child;
    while (ReadChunkHeader(stream, child, &root)) {
        if (child.id == preset_tag::kEffect)
            ReadEffect(stream, child, &m_root);
        SkipChunk(stream, child);
    }
}

void CEFXPresetTree::ReadEffect(std::FILE* stream, const ChunkHeader& header, PresetNode* parent)
{
    auto* node = new EffectNode;
    CopyHeader(header, node);
    LinkChild(parent, node);
    ChunkHeader child;
    while (ReadChunkHeader(stream, child, &header)) {
        switch (child.id) {
        case preset_tag::kName:
            ReadName(stream, child, node->name);
            break;
        case preset_tag::kGuid:
            ReadLeafBytes(stream, child, node->guid.bytes.data(), node->guid.bytes.size());
            break;
        case preset_tag::kParamCount:
            ReadWord(stream, child, node->paramCount);
            break;
        case preset_tag::kEnum:
            ReadWord(stream, child, node->enumFlag);
            break;
        case preset_tag::kParamSize:
            ReadWord(stream, child, node->paramSize);
            break;
        case preset_tag::kPresetGroup:
        case preset_tag::kParamGroup:
            ReadGroup(stream, child, node);
            break;
        case preset_tag::kPreset:
            ReadPreset(stream, child, node);
            break;
        case preset_tag::kParam:
            ReadParam(stream, child, node);
            break;
        default:
            break;
        }
        SkipChunk(stream, child);
    }
}

void CEFXPresetTree::ReadGroup(std::FILE* stream, const ChunkHeader& header, PresetNode* parent)
{
    // A list nested deeper than any document the program makes is passed over whole.
    if (Depth(parent) + 1 > kMaxDepth)
        return;
    const bool presetGroup = header.id == preset_tag::kPresetGroup;
    PresetNode* node = presetGroup ? static_cast<PresetNode*>(new PresetGroupNode) : new ParamGroupNode;
    CopyHeader(header, node);
    LinkChild(parent, node);
    ChunkHeader child;
    while (ReadChunkHeader(stream, child, &header)) {
        if (child.id == preset_tag::kName)
            ReadName(stream, child, node->name);
        else if (child.id == (presetGroup ? preset_tag::kPresetGroup : preset_tag::kParamGroup))
            ReadGroup(stream, child, node);
        else if (presetGroup && child.id == preset_tag::kPreset)
            ReadPreset(stream, child, node);
        else if (!presetGroup && child.id == preset_tag::kParam)
            ReadParam(stream, child, node);
        SkipChunk(stream, child);
    }
}

void CEFXPresetTree::ReadPreset(std::FILE* stream, const ChunkHeader& header, PresetNode* parent)
{
    auto* node = new PresetDataNode;
    CopyHeader(header, node);
    LinkChild(parent, node);
    ChunkHeader child;
    while (ReadChunkHeader(stream, child, &header)) {
        if (child.id == preset_tag::kName) {
            ReadName(stream, child, node->name);
        } else if (child.id == preset_tag::kData) {
            // The block holds what the chunk's lists and the stream hold of its stated size, so a
            // foreign size cannot ask for gigabytes; what a cut file does not deliver stays zero.
            // A second "data" chunk replaces the first.
            const std::uint32_t size = ClaimableSize(child);
            node->data.reset(new (std::nothrow) std::uint8_t[size]());
            node->dataSize = node->data ? size : 0;
            if (node->data)
                ReadBody(stream, node->data.get(), size);
        }
        SkipChunk(stream, child);
    }
}

void CEFXPresetTree::ReadParam(std::FILE* stream, const ChunkHeader& header, PresetNode* parent)
{
    auto* node = new ParamNode;
    CopyHeader(header, node);
    LinkChild(parent, node);
    ChunkHeader child;
    while (ReadChunkHeader(stream, child, &header)) {
        switch (child.id) {
        case preset_tag::kName:
            ReadName(stream, child, node->name);
            break;
        case preset_tag::kType:
            ReadWord(stream, child, node->type);
            break;
        case preset_tag::kOffset:
            ReadWord(stream, child, node->offset);
            break;
        case preset_tag::kEnum:
            ReadWord(stream, child, node->enumValue);
            break;
        case preset_tag::kMinValue:
            ReadLeafBytes(stream, child, node->minValue.data(), kParamValueRoom);
            break;
        case preset_tag::kMaxValue:
            ReadLeafBytes(stream, child, node->maxValue.data(), kParamValueRoom);
            break;
        case preset_tag::kDefaultValue:
            ReadLeafBytes(stream, child, node->defaultValue.data(), kParamValueRoom);
            break;
        case preset_tag::kStep:
            ReadLeafBytes(stream, child, node->step.data(), kParamValueRoom);
            break;
        case preset_tag::kEnumTable: {
            // Two zero units past the chunk's bytes close a list that a foreign file left open.
            const std::uint32_t size = ClaimableSize(child);
            const std::size_t units = (static_cast<std::size_t>(size) + 1) / 2 + 2;
            std::vector<std::uint8_t> bytes(2 * units, 0);
            ReadBody(stream, bytes.data(), size);
            node->enumTable.assign(units, 0);
            for (std::size_t i = 0; i < node->enumTable.size(); ++i)
                node->enumTable[i] = static_cast<char16_t>(LoadLE16(bytes.data() + 2 * i));
            break;
        }
        default:
            break;
        }
        SkipChunk(stream, child);
    }
}
