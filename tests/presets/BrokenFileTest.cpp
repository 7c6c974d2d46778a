// Foreign and broken files: the reader keeps what it could read, never writes outside a field, never
// allocates more than the file holds, and always comes to an end. The sanitizer build of this suite
// is what shows that no memory is damaged.
#include "PresetTestSupport.h"

#include "presets/ChunkTag.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace preset_test;

namespace {

const EffectTableRow& Echo()
{
    return Row(kEffectEcho);
}

Bytes GuidBytes(const EffectTableRow& row)
{
    return Bytes(row.descriptor.guid.bytes.begin(), row.descriptor.guid.bytes.end());
}

// A well-formed document of two entries with groups, presets and parameter lists.
Bytes GoodDocument()
{
    const Bytes preset = List("pset", {Chunk("name", Utf16(u"preset")), Chunk("data", Bytes(20, 0x5A))});
    const Bytes param = List("pram", {Chunk("name", Utf16(u"q")), Chunk("type", Le32(5)), Chunk("ofst", Le32(0)),
                                      Chunk("enum", Le32(0)), Chunk("minv", Le32(0)), Chunk("maxv", Le32(1)),
                                      Chunk("defv", Le32(0)), Chunk("etbl", Utf16(std::u16string_view(u"a\0b\0\0", 5)))});
    return Riff({List("efct", {EffectLeaves(Echo()), preset,
                               List("sgrp", {Chunk("name", Utf16(u"group")), preset,
                                             List("sgrp", {Chunk("name", Utf16(u"inner")), preset})}),
                               List("pgrp", {Chunk("name", Utf16(u"params")), param})}),
                 List("efct", {EffectLeaves(Row(kEffectChorus)), preset})});
}

TEST(BrokenEfxFile, NameOfTwoHundredUnitsIsCutToOneHundredTwentySevenAndTheRestStillReads)
{
    std::u16string longName(200, u'n');
    for (std::size_t i = 0; i < longName.size(); ++i)
        longName[i] = static_cast<char16_t>(u'A' + i % 26);
    const Bytes file = Riff({List("efct", {Chunk("name", Utf16(longName)), Chunk("guid", GuidBytes(Echo())),
                                           Chunk("pnum", Le32(5))})});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    ASSERT_EQ(CountChildren(tree.Root()), 1);
    const auto* entry = static_cast<const EffectNode*>(tree.Root()->firstChild);
    EXPECT_EQ(NameOf(entry), longName.substr(0, 127));
    EXPECT_EQ(entry->name[127], 0);
    EXPECT_EQ(entry->guid, Echo().descriptor.guid);
    EXPECT_EQ(entry->paramCount, 5u);
}

TEST(BrokenEfxFile, ChunksOfAnySizeInFixedFieldsFillAtMostTheField)
{
    Bytes longGuid = GuidBytes(Echo());
    longGuid.resize(40, 0xEE);
    const Bytes param = List("pram", {Chunk("type", Bytes(1000, 0x11)), Chunk("minv", Bytes(100, 0x22)),
                                      Chunk("defv", Bytes{0x33}), Chunk("ofst", Bytes{0x44, 0x55})});
    const Bytes file = Riff({List("efct", {Chunk("guid", longGuid), Chunk("pnum", Bytes{7, 1}),
                                           Chunk("psiz", Bytes(5000, 0xFF)), Chunk("enum", Bytes{}), param})});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    const auto* entry = static_cast<const EffectNode*>(tree.Root()->firstChild);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->guid, Echo().descriptor.guid);
    EXPECT_EQ(entry->paramCount, 0x0107u) << "two bytes copied over a zero word";
    EXPECT_EQ(entry->paramSize, 0xFFFFFFFFu);
    EXPECT_EQ(entry->enumFlag, 0u);
    const auto* p = static_cast<const ParamNode*>(entry->firstChild);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p->type, 0x11111111u);
    ParamValue filled;
    filled.fill(0x22);
    EXPECT_EQ(p->minValue, filled);
    EXPECT_EQ(p->defaultValue[0], 0x33);
    EXPECT_EQ(p->defaultValue[1], 0);
    EXPECT_EQ(p->offset, 0x5544u);
}

// A preset whose data runs past the end, like every list around it, keeps the bytes that were there.
TEST(BrokenEfxFile, SizesPastTheEndAllocateNoMoreThanTheFileHoldsAndKeepWhatItHolds)
{
    const Bytes data = Cat({Tag("data"), Le32(0xFFFFFFF0u), Bytes{1, 2, 3, 4, 5, 6}});
    const Bytes file = Cat({Tag("RIFF"), Le32(0xFFFFFFFFu), Tag("efx "), Tag("LIST"), Le32(0xFFFFFFFFu), Tag("efct"),
                            Chunk("guid", GuidBytes(Echo())), Tag("LIST"), Le32(0x7FFFFFFFu), Tag("pset"), data});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    const PresetNode* entry = tree.Root()->firstChild;
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(static_cast<const EffectNode*>(entry)->guid, Echo().descriptor.guid);
    const auto* preset = static_cast<const PresetDataNode*>(entry->firstChild);
    ASSERT_NE(preset, nullptr);
    ASSERT_EQ(preset->dataSize, 6u);
    EXPECT_EQ(preset->data[0], 1);
    EXPECT_EQ(preset->data[5], 6);
    EXPECT_EQ(preset->nextSibling, nullptr);
}

TEST(BrokenEfxFile, EveryCutOfAGoodFileKeepsWhatCameBeforeTheCut)
{
    const Bytes good = GoodDocument();
    CEFXPresetTree whole;
    ReadDocument(good, whole);
    const int all = CountNodes(whole.Root());
    ASSERT_EQ(all, 2 + 1 + 2 + 1 + 1 + 1 + 1 + 1); // entries, presets, groups, param group and param

    int previous = 0;
    for (std::size_t length = 0; length <= good.size(); ++length) {
        CEFXPresetTree tree;
        ReadDocument(Bytes(good.begin(), good.begin() + static_cast<long>(length)), tree);
        const int count = CountNodes(tree.Root());
        EXPECT_GE(count, previous) << "cut at " << length;
        if (length < 24) {
            EXPECT_EQ(count, 0) << "cut at " << length;
        }
        previous = count;
    }
    EXPECT_EQ(previous, all);
}

TEST(BrokenEfxFile, OddDataSizeWithItsPadByteLeavesTheNextPresetInStep)
{
    const Bytes file = Riff({List("efct", {List("pset", {Chunk("data", Bytes{1, 2, 3}), Chunk("name", Utf16(u"odd"))}),
                                           List("pset", {Chunk("name", Utf16(u"even")), Chunk("data", Bytes(4, 9))})})});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    const PresetNode* entry = tree.Root()->firstChild;
    ASSERT_EQ(CountChildren(entry), 2);
    const auto* odd = static_cast<const PresetDataNode*>(NthChild(entry, 0));
    EXPECT_EQ(odd->dataSize, 3u);
    EXPECT_EQ(NameOf(odd), u"odd");
    const auto* even = static_cast<const PresetDataNode*>(NthChild(entry, 1));
    EXPECT_EQ(NameOf(even), u"even");
    EXPECT_EQ(even->dataSize, 4u);
}

TEST(BrokenEfxFile, DeepNestingStopsAtTheDepthBoundWithoutRunningOutOfStack)
{
    for (const char* form : {"sgrp", "pgrp"}) {
        Bytes nested = List("pset", {Chunk("name", Utf16(u"bottom"))});
        for (int level = 0; level < 3000; ++level)
            nested = List(form, {nested});
        CEFXPresetTree tree;
        ReadDocument(Riff({List("efct", {nested})}), tree);
        int depth = 0;
        for (const PresetNode* node = tree.Root()->firstChild; node; node = node->firstChild)
            ++depth;
        EXPECT_EQ(depth, CEFXPresetTree::kMaxDepth) << form;
        CEFXPresetTree again;
        ReadDocument(WriteDocument(tree), again);
        EXPECT_EQ(CountNodes(again.Root()), CountNodes(tree.Root())) << form;
    }
}

TEST(BrokenEfxFile, FileThatOpensWithAPlainEfxChunkReadsAsTheRoot)
{
    const Bytes inner = List("efct", {EffectLeaves(Echo())});
    const Bytes file = Cat({Tag("efx "), Le32(static_cast<std::uint32_t>(inner.size())), inner});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    ASSERT_EQ(CountChildren(tree.Root()), 1);
    EXPECT_EQ(NameOf(tree.Root()->firstChild), u"Echo");
    // Written again it is a RIFF document like any other.
    EXPECT_EQ(WriteDocument(tree), Riff({inner}));
}

TEST(BrokenEfxFile, OtherFormsAndShortFilesGiveARootWithoutChildren)
{
    const Bytes inner = List("efct", {EffectLeaves(Echo())});
    const Bytes wave = Cat({Tag("RIFF"), Le32(static_cast<std::uint32_t>(inner.size() + 4)), Tag("WAVE"), inner});
    const Bytes riffHead = {'R', 'I', 'F', 'F', 4, 0, 0, 0, 'e', 'f', 'x'};
    for (const Bytes& file : {wave, riffHead, Bytes{}, Bytes{'R', 'I', 'F'}, Bytes(100, 0)}) {
        CEFXPresetTree tree;
        ReadDocument(file, tree);
        EXPECT_EQ(tree.Root()->firstChild, nullptr);
        EXPECT_EQ(tree.Root()->id, preset_tag::kRoot);
        EXPECT_EQ(WriteDocument(tree), Riff({}));
    }
}

TEST(BrokenEfxFile, ListsTooSmallForTheirFormEndAtOnce)
{
    const Bytes file = Cat({Tag("RIFF"), Le32(200), Tag("efx "), Tag("LIST"), Le32(0), Tag("efct"), Tag("LIST"),
                            Le32(1), Tag("efct"), List("efct", {Chunk("name", Utf16(u"last"))})});
    CEFXPresetTree tree;
    ReadDocument(file, tree);
    // The list of size 0 ends at once, and the reader goes on from its body start, where it takes the
    // form word "efct" for a plain chunk's tag and "LIST" for a size that swallows the rest.
    ASSERT_EQ(CountChildren(tree.Root()), 2);
    EXPECT_EQ(tree.Root()->firstChild->size, 0u);
    EXPECT_EQ(tree.Root()->firstChild->nextSibling->size, MakeTag("LIST"));
}

TEST(BrokenEfxFile, OpenEnumerationTableEndsInsideItsBlock)
{
    const Bytes param = List("pram", {Chunk("type", Le32(5)), Chunk("etbl", Utf16(u"abc"), true)});
    CEFXPresetTree tree;
    ReadDocument(Riff({List("efct", {param})}), tree);
    const auto* p = static_cast<const ParamNode*>(tree.Root()->firstChild->firstChild);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(MultiStringLength(p->enumTable.data(), p->enumTable.size()), 5u); // "abc", its zero, the close
    const Bytes written = WriteDocument(tree);
    const Bytes closed = Chunk("etbl", Utf16(std::u16string_view(u"abc\0\0", 5)));
    EXPECT_NE(std::search(written.begin(), written.end(), closed.begin(), closed.end()), written.end());
}

bool HoldsOddData(const PresetNode* node)
{
    for (const PresetNode* child = node->firstChild; child; child = child->nextSibling) {
        if (child->id == preset_tag::kPreset && (static_cast<const PresetDataNode*>(child)->dataSize & 1))
            return true;
        if (HoldsOddData(child))
            return true;
    }
    return false;
}

// Random damage to a good file, byte by byte and in chunk sizes: nothing may crash, leak or hang, and
// what was read, once written, is a document that reads back to the same bytes (unless it carries an
// odd "data" chunk, whose four pad bytes the reader's skip cannot follow).
TEST(BrokenEfxFile, RandomlyDamagedFilesReadAndWriteWithoutHarm)
{
    const Bytes good = GoodDocument();
    std::mt19937 random(20240601);
    for (int round = 0; round < 1500; ++round) {
        Bytes damaged = good;
        const int hits = 1 + static_cast<int>(random() % 6);
        for (int hit = 0; hit < hits; ++hit) {
            const std::size_t at = random() % damaged.size();
            switch (random() % 3) {
            case 0:
                damaged[at] = static_cast<std::uint8_t>(random());
                break;
            case 1:
                damaged[at & ~std::size_t{3}] = static_cast<std::uint8_t>(random() % 2 ? 0xFF : 0x01);
                break;
            default:
                damaged.resize(at);
            }
            if (damaged.empty())
                break;
        }
        CEFXPresetTree tree;
        ReadDocument(damaged, tree);
        const Bytes written = WriteDocument(tree);
        if (HoldsOddData(tree.Root()))
            continue;
        CEFXPresetTree again;
        ReadDocument(written, again);
        ASSERT_EQ(WriteDocument(again), written) << "round " << round;
    }
}

} // namespace
