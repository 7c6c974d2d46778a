// Feeds arbitrary bytes to the .efx reader as a file, writes what it read, and reads that again. With
// AddressSanitizer and UndefinedBehaviorSanitizer on, any write outside a field, read past a block,
// leak or undefined operation ends the run. Beyond that it checks that a document written by the
// program reads back to the same bytes, unless it carries an odd "data" chunk, whose four pad bytes
// the reader's skip does not follow.

#include "presets/CEFXPresetTree.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

std::vector<std::uint8_t> Write(CEFXPresetTree& tree)
{
    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* stream = open_memstream(&buffer, &size);
    tree.WriteFile(stream);
    std::fclose(stream);
    std::vector<std::uint8_t> bytes(buffer, buffer + size);
    std::free(buffer);
    return bytes;
}

void Read(const std::uint8_t* data, std::size_t size, CEFXPresetTree& tree)
{
    // fmemopen refuses an empty buffer; an empty file is one byte of room with nothing in it.
    static std::uint8_t empty = 0;
    std::FILE* stream = size ? fmemopen(const_cast<std::uint8_t*>(data), size, "rb") : fmemopen(&empty, 1, "rb");
    if (!stream)
        std::abort();
    if (!size)
        std::fgetc(stream);
    tree.ReadFile(stream);
    std::fclose(stream);
}

bool HoldsOddData(const PresetNode* node)
{
    for (const PresetNode* child = node->firstChild; child; child = child->nextSibling)
        if ((child->id == preset_tag::kPreset && (static_cast<const PresetDataNode*>(child)->dataSize & 1))
            || HoldsOddData(child))
            return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CEFXPresetTree tree;
    Read(data, size, tree);
    const std::vector<std::uint8_t> written = Write(tree);
    CEFXPresetTree again;
    Read(written.data(), written.size(), again);
    if (!HoldsOddData(tree.Root()) && Write(again) != written)
        std::abort();
    return 0;
}
