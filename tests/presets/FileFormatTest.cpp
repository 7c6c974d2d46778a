// The bytes of .efx documents that the program writes, and what survives a read and a second write.
#include "PresetTestSupport.h"

#include "presets/ChunkTag.h"
#include "presets/EffectTable.h"
#include "presets/PresetRecords.h"

#include <gtest/gtest.h>

using namespace preset_test;

namespace {

TEST(EfxFileBytes, DocumentWithoutEntriesIsARiffChunkOfSizeFour)
{
    CEFXPresetTree tree;
    const Bytes expected = {'R', 'I', 'F', 'F', 4, 0, 0, 0, 'e', 'f', 'x', ' '};
    EXPECT_EQ(WriteDocument(tree), expected);
    EXPECT_EQ(tree.Root()->size, 4u);
    EXPECT_EQ(tree.Root()->filePos, 8u);
}

TEST(EfxFileBytes, OneEchoEntryIsExactlyTheseHundredBytes)
{
    const Bytes expected = {
        'R', 'I', 'F', 'F', 92, 0, 0, 0, 'e', 'f', 'x', ' ',                 //
        'L', 'I', 'S', 'T', 80, 0, 0, 0, 'e', 'f', 'c', 't',                 //
        'n', 'a', 'm', 'e', 8, 0, 0, 0, 'E', 0, 'c', 0, 'h', 0, 'o', 0,      //
        'g', 'u', 'i', 'd', 16, 0, 0, 0,                                     //
        0xC0, 0x1B, 0x9F, 0x0E, 0x82, 0xAC, 0xD2, 0x11,                      //
        0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1,                      //
        'p', 'n', 'u', 'm', 4, 0, 0, 0, 5, 0, 0, 0,                          //
        'e', 'n', 'u', 'm', 4, 0, 0, 0, 1, 0, 0, 0,                          //
        'p', 's', 'i', 'z', 4, 0, 0, 0, 20, 0, 0, 0,                         //
    };
    ASSERT_EQ(expected.size(), 100u);

    CEFXPresetTree tree;
    tree.AddEffect(u"Echo", Row(kEffectEcho).descriptor);
    EXPECT_EQ(WriteDocument(tree), expected);

    CEFXPresetTree read;
    ReadDocument(expected, read);
    ASSERT_EQ(CountChildren(read.Root()), 1);
    const auto* echo = static_cast<const EffectNode*>(read.Root()->firstChild);
    EXPECT_EQ(echo->id, preset_tag::kEffect);
    EXPECT_EQ(NameOf(echo), u"Echo");
    EXPECT_EQ(echo->guid, Row(kEffectEcho).descriptor.guid);
    EXPECT_EQ(echo->paramCount, 5u);
    EXPECT_EQ(echo->enumFlag, 1u);
    EXPECT_EQ(echo->paramSize, 20u);
    EXPECT_EQ(echo->size, 80u);
    EXPECT_EQ(echo->filePos, 20u);
}

TEST(EfxFileBytes, NewDocumentHoldsThirteenEntriesWithTheirIdentifiersOnDisk)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    const Bytes bytes = WriteDocument(tree);
    // 12 for the RIFF head; each entry 80 bytes plus two a unit of its name (137 units in all).
    EXPECT_EQ(bytes.size(), 12u + 13u * 80u + 2u * 137u);

    // The first entry, "EAX Reverb": its guid chunk follows the 12-byte list head and the 28-byte name.
    const Bytes eaxGuid = {0x8F, 0x5C, 0xF9, 0x0C, 0xCC, 0xA3, 0x49, 0x48,
                           0xB0, 0xB6, 0x83, 0x2E, 0xCC, 0x18, 0x22, 0xDF};
    const std::size_t guidBody = 12 + 12 + 8 + 20 + 8;
    ASSERT_GT(bytes.size(), guidBody + 16);
    EXPECT_EQ(Bytes(bytes.begin() + guidBody - 8, bytes.begin() + guidBody - 4), Tag("guid"));
    EXPECT_EQ(Bytes(bytes.begin() + guidBody, bytes.begin() + guidBody + 16), eaxGuid);
}

// A document with groups nested three deep, an empty group, an entry without presets, a preset of
// each of the thirteen kinds, a group made under a preset (which a file cannot hold), and records
// whose every byte differs.
void BuildRichDocument(CEFXPresetTree& tree)
{
    tree.BuildDefaultTree();
    std::uint8_t seed = 1;
    for (PresetNode* entry = tree.Root()->firstChild; entry; entry = entry->nextSibling) {
        const auto* effect = static_cast<EffectNode*>(entry);
        if (effect->guid == Row(kEffectCompressor).descriptor.guid)
            continue; // an entry left without presets
        Bytes record(effect->paramSize);
        for (auto& byte : record)
            byte = seed++;
        tree.AddPreset(entry, u"top", record.data(), static_cast<std::uint32_t>(record.size()));
        PresetNode* outer = tree.AddGroup(entry, u"outer");
        PresetNode* middle = tree.AddGroup(outer, u"middle");
        PresetNode* inner = tree.AddGroup(middle, u"inner \u00e9\u0141");
        tree.AddPreset(inner, u"deep", record.data(), static_cast<std::uint32_t>(record.size()));
        tree.AddGroup(outer, u"empty");
        tree.AddPreset(outer, u"after the groups", record.data(), 4);
        tree.AddPreset(outer, u"", nullptr, 0);
    }
    PresetNode* chorus = tree.FindEffect(Row(kEffectChorus).descriptor.guid);
    PresetNode* preset = NthChild(chorus, 0);
    tree.AddGroup(preset, u"under a preset");
}

TEST(EfxFileRoundTrip, WrittenReadAndWrittenAgainIsByteForByteTheSameWithTheSameNodesInTheSameOrder)
{
    CEFXPresetTree tree;
    BuildRichDocument(tree);
    const Bytes first = WriteDocument(tree);
    CEFXPresetTree read;
    ReadDocument(first, read);
    EXPECT_EQ(WriteDocument(read), first);
    // The group under a preset is the one node that a file cannot carry.
    EXPECT_EQ(CountNodes(read.Root()), CountNodes(tree.Root()) - 1);

    const PresetNode* a = tree.Root()->firstChild;
    const PresetNode* b = read.Root()->firstChild;
    for (; a && b; a = a->nextSibling, b = b->nextSibling) {
        EXPECT_EQ(NameOf(a), NameOf(b));
        EXPECT_EQ(static_cast<const EffectNode*>(a)->guid, static_cast<const EffectNode*>(b)->guid);
        const PresetNode* presetA = NthChild(NthChild(NthChild(NthChild(a, 1), 0), 0), 0);
        const PresetNode* presetB = NthChild(NthChild(NthChild(NthChild(b, 1), 0), 0), 0);
        if (!presetA)
            continue;
        ASSERT_NE(presetB, nullptr);
        EXPECT_EQ(NameOf(presetB), u"deep");
        const auto* dataA = static_cast<const PresetDataNode*>(presetA);
        const auto* dataB = static_cast<const PresetDataNode*>(presetB);
        ASSERT_EQ(dataA->dataSize, dataB->dataSize);
        EXPECT_EQ(0, std::memcmp(dataA->data.get(), dataB->data.get(), dataA->dataSize));
    }
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(b, nullptr);
    const PresetNode* inner = NthChild(NthChild(NthChild(read.Root()->firstChild, 1), 0), 0);
    EXPECT_EQ(NameOf(inner), u"inner \u00e9\u0141");
    EXPECT_EQ(CountChildren(NthChild(NthChild(read.Root()->firstChild, 1), 1)), 0); // "empty"
}

// Parameter descriptions as a foreign tool lays them out in the writer's own order: a "pgrp" with a
// float "pram" and a nested "pgrp" holding an enumeration "pram"; then a vector "pram" straight under
// the entry, between two presets.
Bytes DocumentWithParameterLists()
{
    const EffectTableRow& chorus = Row(kEffectChorus);
    const Bytes floatParam = List(
        "pram", {Chunk("name", Utf16(u"Rate")), Chunk("type", Le32(0)), Chunk("ofst", Le32(8)), Chunk("enum", Le32(0)),
                 Chunk("minv", F32(0.0f)), Chunk("maxv", F32(10.0f)), Chunk("defv", F32(1.1f)),
                 Chunk("step", F32(0.1f))});
    const Bytes enumParam = List(
        "pram", {Chunk("name", Utf16(u"Waveform")), Chunk("type", Le32(5)), Chunk("ofst", Le32(0)),
                 Chunk("enum", Le32(2)), Chunk("minv", Le32(0)), Chunk("maxv", Le32(1)), Chunk("defv", Le32(1)),
                 Chunk("etbl", Utf16(std::u16string_view(u"Sinusoid\0Triangle\0\0", 19)))});
    const Bytes vectorParam = List(
        "pram", {Chunk("name", Utf16(u"Pan")), Chunk("type", Le32(3)), Chunk("ofst", Le32(12)), Chunk("enum", Le32(0)),
                 Chunk("minv", Cat({F32(-1), F32(-1), F32(-1)})), Chunk("maxv", Cat({F32(1), F32(1), F32(1)})),
                 Chunk("defv", Cat({F32(0), F32(0.5f), F32(0)}))});
    const Bytes preset = List("pset", {Chunk("name", Utf16(u"p")), Chunk("data", Bytes(24, 7))});
    return Riff({List("efct", {EffectLeaves(chorus), List("pgrp", {Chunk("name", Utf16(u"Modulation")), floatParam,
                                                                   List("pgrp", {Chunk("name", Utf16(u"Shape")),
                                                                                 enumParam})}),
                               preset, vectorParam, preset})});
}

TEST(EfxFileRoundTrip, ParameterListsAreCarriedThroughInTheirPlaceWithStepAndTableOnlyForTheirTypes)
{
    const Bytes original = DocumentWithParameterLists();
    CEFXPresetTree tree;
    ReadDocument(original, tree);
    EXPECT_EQ(WriteDocument(tree), original);

    PresetNode* entry = tree.Root()->firstChild;
    ASSERT_EQ(CountChildren(entry), 4);
    PresetNode* group = NthChild(entry, 0);
    EXPECT_EQ(group->id, preset_tag::kParamGroup);
    auto* rate = static_cast<ParamNode*>(NthChild(group, 0));
    EXPECT_EQ(rate->id, preset_tag::kParam);
    EXPECT_EQ(NameOf(rate), u"Rate");
    EXPECT_EQ(rate->offset, 8u);
    const auto* waveform = static_cast<const ParamNode*>(NthChild(NthChild(group, 1), 0));
    EXPECT_EQ(waveform->type, 5u);
    EXPECT_EQ(waveform->enumValue, 2u);
    EXPECT_EQ(MultiStringLength(waveform->enumTable.data(), waveform->enumTable.size()), 19u);
    EXPECT_EQ(NthChild(entry, 2)->id, preset_tag::kParam);

    // The step is written only for types up to 2, the enumeration table only for type 5: a float
    // parameter that carries a table loses it, and as type 4 it loses its step too.
    rate->enumTable = {u'x', 0, 0};
    const Bytes withTable = WriteDocument(tree);
    rate->type = 4;
    const Bytes typeFour = WriteDocument(tree);
    EXPECT_EQ(withTable, original);
    EXPECT_EQ(typeFour.size(), withTable.size() - 12);

    CEFXPresetTree read;
    ReadDocument(typeFour, read);
    EXPECT_EQ(WriteDocument(read), typeFour);
    const auto* readRate = static_cast<const ParamNode*>(NthChild(NthChild(read.Root()->firstChild, 0), 0));
    EXPECT_EQ(readRate->type, 4u);
    EXPECT_TRUE(readRate->enumTable.empty());
}

TEST(EfxFileRoundTrip, UnknownChunksAndChildrenOfTheWrongFormAreLostOnTheNextSave)
{
    const EffectTableRow& echo = Row(kEffectEcho);
    const Bytes preset = List("pset", {Chunk("name", Utf16(u"p")), Chunk("data", Bytes(20, 3))});
    const Bytes param = List("pram", {Chunk("name", Utf16(u"q")), Chunk("type", Le32(9)), Chunk("ofst", Le32(0)),
                                      Chunk("enum", Le32(0)), Chunk("minv", {}), Chunk("maxv", {}), Chunk("defv", {})});
    const Bytes foreign = Riff({Chunk("junk", Bytes(6, 1)),
                                List("efct", {EffectLeaves(echo), Chunk("xtra", Bytes(3, 2)),
                                              List("sgrp", {Chunk("name", Utf16(u"g")), param, preset}),
                                              List("pgrp", {Chunk("name", Utf16(u"h")), preset, param})}),
                                List("wave", {Chunk("name", Utf16(u"w"))})});
    const Bytes clean = Riff({List("efct", {EffectLeaves(echo), List("sgrp", {Chunk("name", Utf16(u"g")), preset}),
                                            List("pgrp", {Chunk("name", Utf16(u"h")), param})})});
    CEFXPresetTree tree;
    ReadDocument(foreign, tree);
    EXPECT_EQ(WriteDocument(tree), clean);
}

TEST(EfxFileChunks, OddDataChunkIsWrittenWithFourPadBytesAndItsListsKeepTrueSizes)
{
    CEFXPresetTree tree;
    PresetNode* echo = tree.AddEffect(u"Echo", Row(kEffectEcho).descriptor);
    const std::uint8_t odd[3] = {0xA1, 0xA2, 0xA3};
    tree.AddPreset(echo, u"p", odd, 3);
    const Bytes bytes = WriteDocument(tree);

    // The preset list follows the 100 bytes of the one-entry Echo document: its head, the name "p",
    // then the data chunk with its three bytes and four pads.
    const std::size_t presetList = 100;
    const Bytes presetBytes(bytes.begin() + static_cast<long>(presetList), bytes.end());
    const Bytes expectedPreset = Cat({Tag("LIST"), Le32(4 + 10 + 15), Tag("pset"), Chunk("name", Utf16(u"p")),
                                      Tag("data"), Le32(3), Bytes{0xA1, 0xA2, 0xA3, 0, 0, 0, 0}});
    ASSERT_GE(presetBytes.size(), expectedPreset.size());
    EXPECT_EQ(Bytes(presetBytes.begin(), presetBytes.begin() + static_cast<long>(expectedPreset.size())),
              expectedPreset);
    // The odd list got its pad byte at the end of the file, where nothing wrote over it.
    EXPECT_EQ(presetBytes.size(), expectedPreset.size() + 1);
    EXPECT_EQ(presetBytes.back(), 0);
}

TEST(EfxFileChunks, HeaderOfAListShowsTheFormTypeAndSkipPassesThePadByte)
{
    const Bytes bytes = Cat({List("sgrp", {Chunk("name", Utf16(u"g"))}), Chunk("odd!", Bytes{1, 2, 3}),
                             Chunk("next", Bytes{9, 9})});
    CEFXPresetTree tree;
    File file(std::tmpfile());
    std::fwrite(bytes.data(), 1, bytes.size(), file.get());
    std::rewind(file.get());

    ChunkHeader outer;
    ASSERT_TRUE(tree.ReadChunkHeader(file.get(), outer, nullptr));
    EXPECT_EQ(outer.id, preset_tag::kPresetGroup);
    EXPECT_EQ(outer.size, 14u);
    EXPECT_EQ(outer.filePos, 8u);

    ChunkHeader inner;
    ASSERT_TRUE(tree.ReadChunkHeader(file.get(), inner, &outer));
    EXPECT_EQ(inner.id, preset_tag::kName);
    tree.SkipChunk(file.get(), inner);
    EXPECT_FALSE(tree.ReadChunkHeader(file.get(), inner, &outer)) << "at the end of the parent";

    tree.SkipChunk(file.get(), outer);
    ChunkHeader odd;
    ASSERT_TRUE(tree.ReadChunkHeader(file.get(), odd, nullptr));
    EXPECT_EQ(odd.id, MakeTag("odd!"));
    tree.SkipChunk(file.get(), odd);
    ChunkHeader next;
    ASSERT_TRUE(tree.ReadChunkHeader(file.get(), next, nullptr));
    EXPECT_EQ(next.id, MakeTag("next"));
    tree.SkipChunk(file.get(), next);
    EXPECT_FALSE(tree.ReadChunkHeader(file.get(), next, nullptr));
    EXPECT_EQ(next.id, 0u) << "the header is cleared first";
}

} // namespace
