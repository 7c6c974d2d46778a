#pragma once

// Helpers of the preset suites: documents written to and read from real temporary files, and a
// builder that lays out .efx bytes by hand, with whatever sizes a test wants to lie about.

#include "presets/CEFXPresetTree.h"
#include "presets/EffectTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace preset_test {

using Bytes = std::vector<std::uint8_t>;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

inline Bytes Slurp(std::FILE* file)
{
    Bytes bytes;
    std::fseek(file, 0, SEEK_END);
    bytes.resize(static_cast<std::size_t>(std::ftell(file)));
    std::rewind(file);
    if (!bytes.empty()) {
        EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), file), bytes.size());
    }
    return bytes;
}

// The bytes of a document as WriteFile puts them in a fresh file.
inline Bytes WriteDocument(CEFXPresetTree& tree)
{
    File file(std::tmpfile());
    tree.WriteFile(file.get());
    return Slurp(file.get());
}

// Reads a file holding `bytes` into the tree.
inline void ReadDocument(const Bytes& bytes, CEFXPresetTree& tree)
{
    File file(std::tmpfile());
    if (!bytes.empty())
        std::fwrite(bytes.data(), 1, bytes.size(), file.get());
    std::rewind(file.get());
    tree.ReadFile(file.get());
}

inline Bytes Cat(std::initializer_list<Bytes> parts)
{
    Bytes out;
    for (const Bytes& part : parts)
        out.insert(out.end(), part.begin(), part.end());
    return out;
}

inline Bytes Tag(const char* tag)
{
    return Bytes(tag, tag + 4);
}

inline Bytes Le32(std::uint32_t value)
{
    return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
}

// A signed value, as records hold levels in millibels.
inline Bytes I32(std::int32_t value)
{
    return Le32(static_cast<std::uint32_t>(value));
}

inline Bytes F32(float value)
{
    std::uint32_t word;
    std::memcpy(&word, &value, 4);
    return Le32(word);
}

inline Bytes Utf16(std::u16string_view text)
{
    Bytes out;
    for (char16_t unit : text) {
        out.push_back(static_cast<std::uint8_t>(unit));
        out.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return out;
}

// A leaf chunk with its true size, or with `statedSize` when given. An odd body gets RIFF's one pad
// byte unless `pad` is false.
inline Bytes Chunk(const char* tag, const Bytes& body, bool pad = true, std::int64_t statedSize = -1)
{
    const auto size = static_cast<std::uint32_t>(statedSize < 0 ? static_cast<std::int64_t>(body.size()) : statedSize);
    Bytes out = Cat({Tag(tag), Le32(size), body});
    if (pad && (body.size() & 1))
        out.push_back(0);
    return out;
}

inline Bytes List(const char* form, std::initializer_list<Bytes> parts, const char* container = "LIST")
{
    const Bytes body = Cat(parts);
    return Cat({Tag(container), Le32(static_cast<std::uint32_t>(body.size() + 4)), Tag(form), body});
}

inline Bytes Riff(std::initializer_list<Bytes> parts)
{
    return List("efx ", parts, "RIFF");
}

// The five leaf chunks of an effect entry as the writer puts them.
inline Bytes EffectLeaves(const EffectTableRow& row)
{
    return Cat({Chunk("name", Utf16(row.name)), Chunk("guid", Bytes(row.descriptor.guid.bytes.begin(),
                                                                          row.descriptor.guid.bytes.end())),
                Chunk("pnum", Le32(row.descriptor.paramCount)), Chunk("enum", Le32(row.descriptor.enumFlag)),
                Chunk("psiz", Le32(row.descriptor.paramSize))});
}

inline const EffectTableRow& Row(int effectType)
{
    const EffectTableRow* row = FindEffectRowByType(effectType);
    EXPECT_NE(row, nullptr);
    return *row;
}

inline std::u16string NameOf(const PresetNode* node)
{
    return std::u16string(node->name);
}

inline int CountChildren(const PresetNode* node)
{
    int count = 0;
    for (const PresetNode* child = node->firstChild; child; child = child->nextSibling)
        ++count;
    return count;
}

// Every node under `node`, counted.
inline int CountNodes(const PresetNode* node)
{
    int count = 0;
    for (const PresetNode* child = node->firstChild; child; child = child->nextSibling)
        count += 1 + CountNodes(child);
    return count;
}

template <typename Node>
Node* NthChild(Node* node, int n)
{
    if (!node)
        return nullptr;
    Node* child = node->firstChild;
    while (child && n-- > 0)
        child = child->nextSibling;
    return child;
}

} // namespace preset_test
