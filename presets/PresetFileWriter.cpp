// The .efx writer. Lists are written with a placeholder size that CloseChunk fills in once the body
// is known; leaf chunks are written whole. Children of a form that their list does not take are not
// written.
#include "presets/CEFXPresetTree.h"

#include "presets/ByteOrder.h"
#include "presets/PresetStream.h"

#include <vector>

using namespace preset_bytes;

namespace {

void WriteBytes(std::FILE* stream, const void* bytes, std::size_t count)
{
    if (count)
        std::fwrite(bytes, 1, count, stream);
}

void WriteWord(std::FILE* stream, std::uint32_t word)
{
    std::uint8_t bytes[4];
    StoreLE32(bytes, word);
    WriteBytes(stream, bytes, sizeof bytes);
}

std::vector<std::uint8_t> UnitsToBytes(const char16_t* units, std::size_t count)
{
    std::vector<std::uint8_t> bytes(2 * count);
    for (std::size_t i = 0; i < count; ++i)
        StoreLE16(bytes.data() + 2 * i, units[i]);
    return bytes;
}

} // namespace

void CEFXPresetTree::WriteChunkHeader(std::FILE* stream, PresetNode* node)
{
    WriteWord(stream, node->id == preset_tag::kRoot ? preset_tag::kRiff : preset_tag::kList);
    WriteWord(stream, node->size);
    std::uint64_t position = 0;
    preset_stream::Tell(stream, position);
    node->filePos = static_cast<std::uint32_t>(position);
    WriteWord(stream, node->id);
}

void CEFXPresetTree::CloseChunk(std::FILE* stream, PresetNode* node)
{
    std::uint64_t position = 0;
    preset_stream::Tell(stream, position);
    node->size = static_cast<std::uint32_t>(position - node->filePos);
    // The pad byte of an odd list lies at the end of the body, and the seek below comes back to
    // that same place: a chunk that follows writes over it. Only a foreign odd "data" chunk carried
    // through can make a list odd.
    if (node->size & 1) {
        const std::uint8_t zero = 0;
        WriteBytes(stream, &zero, 1);
    }
    preset_stream::Seek(stream, node->filePos - 4u);
    WriteWord(stream, node->size);
    preset_stream::Seek(stream, static_cast<std::uint64_t>(node->filePos) + node->size);
}

void CEFXPresetTree::WriteChunk(std::FILE* stream, ChunkTag tag, const void* bytes, std::uint32_t size)
{
    WriteWord(stream, tag);
    WriteWord(stream, size);
    WriteBytes(stream, bytes, size);
    // Four bytes after an odd body, not the one that RIFF asks for; the reader's skip then lands
    // three bytes short. Nothing the program makes has an odd size, so only a foreign odd "data"
    // chunk carried through meets this.
    if (size & 1) {
        const std::uint8_t pad[4] = {0, 0, 0, 0};
        WriteBytes(stream, pad, sizeof pad);
    }
}

void CEFXPresetTree::WriteName(std::FILE* stream, const PresetNode* node)
{
    const std::size_t length = NameLength(node->name);
    const std::vector<std::uint8_t> bytes = UnitsToBytes(node->name, length);
    WriteChunk(stream, preset_tag::kName, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

void CEFXPresetTree::WriteFile(std::FILE* stream)
{
    preset_stream::Seek(stream, 0);
    WriteChunkHeader(stream, &m_root);
    for (PresetNode* child = m_root.firstChild; child; child = child->nextSibling)
        if (child->id == preset_tag::kEffect)
            WriteEffect(stream, static_cast<EffectNode*>(child));
    CloseChunk(stream, &m_root);
    std::fflush(stream);
}

void CEFXPresetTree::WriteEffect(std::FILE* stream, EffectNode* node)
{
    WriteChunkHeader(stream, node);
    WriteName(stream, node);
    WriteChunk(stream, preset_tag::kGuid, node->guid.bytes.data(), static_cast<std::uint32_t>(node->guid.bytes.size()));
    std::uint8_t word[4];
    StoreLE32(word, node->paramCount);
    WriteChunk(stream, preset_tag::kParamCount, word, 4);
    StoreLE32(word, node->enumFlag);
    WriteChunk(stream, preset_tag::kEnum, word, 4);
    StoreLE32(word, node->paramSize);
    WriteChunk(stream, preset_tag::kParamSize, word, 4);
    for (PresetNode* child = node->firstChild; child; child = child->nextSibling) {
        switch (child->id) {
        case preset_tag::kParam:
            WriteParam(stream, static_cast<ParamNode*>(child));
            break;
        case preset_tag::kPresetGroup:
        case preset_tag::kParamGroup:
            WriteGroup(stream, child);
            break;
        case preset_tag::kPreset:
            WritePreset(stream, static_cast<PresetDataNode*>(child));
            break;
        default:
            break;
        }
    }
    CloseChunk(stream, node);
}

void CEFXPresetTree::WriteGroup(std::FILE* stream, PresetNode* node)
{
    const bool presetGroup = node->id == preset_tag::kPresetGroup;
    WriteChunkHeader(stream, node);
    WriteName(stream, node);
    for (PresetNode* child = node->firstChild; child; child = child->nextSibling) {
        if (child->id == node->id)
            WriteGroup(stream, child);
        else if (presetGroup && child->id == preset_tag::kPreset)
            WritePreset(stream, static_cast<PresetDataNode*>(child));
        else if (!presetGroup && child->id == preset_tag::kParam)
            WriteParam(stream, static_cast<ParamNode*>(child));
    }
    CloseChunk(stream, node);
}

void CEFXPresetTree::WritePreset(std::FILE* stream, PresetDataNode* node)
{
    WriteChunkHeader(stream, node);
    WriteName(stream, node);
    WriteChunk(stream, preset_tag::kData, node->data.get(), node->data ? node->dataSize : 0);
    CloseChunk(stream, node);
}

void CEFXPresetTree::WriteParam(std::FILE* stream, ParamNode* node)
{
    WriteChunkHeader(stream, node);
    WriteName(stream, node);
    std::uint8_t word[4];
    StoreLE32(word, node->type);
    WriteChunk(stream, preset_tag::kType, word, 4);
    StoreLE32(word, node->offset);
    WriteChunk(stream, preset_tag::kOffset, word, 4);
    StoreLE32(word, node->enumValue);
    WriteChunk(stream, preset_tag::kEnum, word, 4);
    const std::uint32_t valueSize = ParamValueSize(node->type);
    WriteChunk(stream, preset_tag::kMinValue, node->minValue.data(), valueSize);
    WriteChunk(stream, preset_tag::kMaxValue, node->maxValue.data(), valueSize);
    WriteChunk(stream, preset_tag::kDefaultValue, node->defaultValue.data(), valueSize);
    if (node->type <= 2)
        WriteChunk(stream, preset_tag::kStep, node->step.data(), valueSize);
    if (node->type == 5 && !node->enumTable.empty()) {
        const std::size_t length = MultiStringLength(node->enumTable.data(), node->enumTable.size());
        const std::vector<std::uint8_t> bytes = UnitsToBytes(node->enumTable.data(), length);
        WriteChunk(stream, preset_tag::kEnumTable, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    }
    CloseChunk(stream, node);
}
