// The preset tree's document operations, lookups and labels.
#include "PresetTestSupport.h"

#include "presets/ChunkTag.h"
#include "presets/PresetLabels.h"
#include "presets/PresetLookups.h"

#include <gtest/gtest.h>

using namespace preset_test;

namespace {

const EffectGuid kUnknownGuid = MakeGuid(0x12345678, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10});

TEST(PresetTree, NewDocumentHoldsTheThirteenEntriesInTheirOwnOrder)
{
    struct Expected {
        std::u16string name;
        std::uint32_t firstGuidWord, pnum, psiz;
    };
    const Expected expected[] = {
        {u"EAX Reverb", 0x0CF95C8F, 31, 112},       {u"(generic) Reverb", 0x0306A6A8, 13, 52},
        {u"Compressor", 0xBFB7A01E, 1, 4},          {u"Auto Wah", 0xEC3130C0, 4, 16},
        {u"Chorus", 0xDE6D6FE0, 6, 24},             {u"Distortion", 0x975A4CE0, 5, 20},
        {u"Echo", 0x0E9F1BC0, 5, 20},               {u"Equalizer", 0x65F94CE0, 10, 40},
        {u"Flanger", 0xA70007C0, 6, 24},            {u"Frequency Shifter", 0xDC3E1880, 3, 12},
        {u"Vocal Morpher", 0xE41CF10C, 6, 24},      {u"Pitch Shifter", 0xE7905100, 2, 8},
        {u"Ring Modulator", 0x0B89FE60, 3, 12},
    };
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    ASSERT_EQ(CountChildren(tree.Root()), 13);
    const PresetNode* node = tree.Root()->firstChild;
    for (const Expected& e : expected) {
        ASSERT_NE(node, nullptr);
        const auto* entry = static_cast<const EffectNode*>(node);
        EXPECT_EQ(entry->id, preset_tag::kEffect);
        EXPECT_EQ(NameOf(entry), e.name);
        const auto& g = entry->guid.bytes;
        EXPECT_EQ(g[0] | (g[1] << 8) | (g[2] << 16) | (static_cast<std::uint32_t>(g[3]) << 24), e.firstGuidWord);
        EXPECT_EQ(entry->paramCount, e.pnum);
        EXPECT_EQ(entry->enumFlag, 1u);
        EXPECT_EQ(entry->paramSize, e.psiz);
        EXPECT_EQ(entry->firstChild, nullptr);
        node = node->nextSibling;
    }
}

TEST(PresetTree, GroupsGoUnderEntriesGroupsAndPresetsOnlyAndNestNoDeeperThanTheBound)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    PresetNode* echo = tree.FindEffect(Row(kEffectEcho).descriptor.guid);
    PresetNode* group = tree.AddGroup(echo, u"g");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->id, preset_tag::kPresetGroup);
    EXPECT_EQ(group->parent, echo);
    EXPECT_NE(tree.AddGroup(group, u"nested"), nullptr);
    PresetNode* preset = tree.AddPreset(group, u"p", nullptr, 0);
    EXPECT_NE(tree.AddGroup(preset, u"under a preset"), nullptr);

    EXPECT_EQ(tree.AddGroup(tree.Root(), u"no"), nullptr);
    EXPECT_EQ(tree.AddGroup(nullptr, u"no"), nullptr);
    CEFXPresetTree read;
    ReadDocument(Riff({List("efct", {List("pgrp", {List("pram", {})})})}), read);
    PresetNode* paramGroup = read.Root()->firstChild->firstChild;
    EXPECT_EQ(read.AddGroup(paramGroup, u"no"), nullptr);
    EXPECT_EQ(read.AddGroup(paramGroup->firstChild, u"no"), nullptr);
    EXPECT_EQ(CountNodes(read.Root()), 3);

    // Down from the entry, groups go on to the depth bound; a preset still goes into the deepest.
    PresetNode* node = echo;
    int made = 0;
    while (PresetNode* inner = tree.AddGroup(node, u"g")) {
        node = inner;
        ++made;
    }
    EXPECT_EQ(made, CEFXPresetTree::kMaxDepth - 1);
    EXPECT_NE(tree.AddPreset(node, u"still fine", nullptr, 0), nullptr);
}

TEST(PresetTree, PresetsGoUnderEntriesAndGroupsOwnACopyOfTheirRecordAndKeepTheOrderOfLinking)
{
    CEFXPresetTree tree;
    PresetNode* echo = tree.AddEffect(u"Echo", Row(kEffectEcho).descriptor);
    std::uint8_t record[20] = {1, 2, 3};
    auto* preset = tree.AddPreset(echo, u"b", record, sizeof record);
    ASSERT_NE(preset, nullptr);
    record[0] = 99;
    EXPECT_EQ(preset->dataSize, 20u);
    EXPECT_EQ(preset->data[0], 1);
    EXPECT_EQ(preset->data[2], 3);

    PresetNode* group = tree.AddGroup(echo, u"a");
    EXPECT_NE(tree.AddPreset(group, u"in a group", record, 4), nullptr);
    EXPECT_EQ(tree.AddPreset(preset, u"no", record, 4), nullptr);
    EXPECT_EQ(tree.AddPreset(tree.Root(), u"no", record, 4), nullptr);
    EXPECT_EQ(CountNodes(tree.Root()), 4);

    // Children stand in the order they were linked, and names need not be unique.
    tree.AddPreset(echo, u"b", nullptr, 0);
    ASSERT_EQ(CountChildren(echo), 3);
    EXPECT_EQ(NameOf(NthChild(echo, 0)), u"b");
    EXPECT_EQ(NameOf(NthChild(echo, 1)), u"a");
    EXPECT_EQ(NameOf(NthChild(echo, 2)), u"b");
    EXPECT_NE(NthChild(echo, 0), NthChild(echo, 2));
}

TEST(PresetTree, FindEffectGivesTheFirstEntryOfAnIdentifier)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    const EffectGuid echoGuid = Row(kEffectEcho).descriptor.guid;
    PresetNode* first = tree.FindEffect(echoGuid);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(NameOf(first), u"Echo");
    tree.AddEffect(u"second Echo", Row(kEffectEcho).descriptor);
    EXPECT_EQ(tree.FindEffect(echoGuid), first);
    EXPECT_EQ(tree.FindEffect(kUnknownGuid), nullptr);
    EXPECT_EQ(tree.FindEffect(kNullEffectGuid), nullptr);
    tree.DeleteNode(first);
    EXPECT_EQ(NameOf(tree.FindEffect(echoGuid)), u"second Echo");
}

TEST(PresetTree, DeletingNodesRelinksTheirSiblingsAtEveryPlace)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    PresetNode* root = tree.Root();
    tree.DeleteNode(NthChild(root, 0));  // first
    tree.DeleteNode(NthChild(root, 5));  // in the middle: "Echo"
    tree.DeleteNode(NthChild(root, 10)); // last: "Ring Modulator"
    ASSERT_EQ(CountChildren(root), 10);
    EXPECT_EQ(NameOf(NthChild(root, 0)), u"(generic) Reverb");
    EXPECT_EQ(NameOf(NthChild(root, 5)), u"Equalizer");
    EXPECT_EQ(NameOf(NthChild(root, 9)), u"Pitch Shifter");
    // A new entry after the last was deleted still goes to the end.
    tree.EnsureEffectNode(Row(kEffectEcho).descriptor.guid);
    EXPECT_EQ(NameOf(NthChild(root, 10)), u"Echo");
    EXPECT_EQ(NthChild(root, 10)->nextSibling, nullptr);

    PresetNode* chorus = tree.FindEffect(Row(kEffectChorus).descriptor.guid);
    PresetNode* group = tree.AddGroup(chorus, u"g");
    tree.AddPreset(tree.AddGroup(group, u"inner"), u"p", nullptr, 0);
    tree.AddPreset(chorus, u"beside", nullptr, 0);
    tree.DeleteNode(group);
    ASSERT_EQ(CountChildren(chorus), 1);
    EXPECT_EQ(NameOf(chorus->firstChild), u"beside");

    tree.DeleteNode(tree.Root());
    EXPECT_EQ(CountChildren(root), 11);
    tree.DeleteAllChildren();
    EXPECT_EQ(root->firstChild, nullptr);
    tree.AddEffect(u"after all", Row(kEffectEcho).descriptor);
    EXPECT_EQ(CountChildren(root), 1);
}

TEST(PresetTree, DeletedEntryIsLeftOutOfTheFileAndComesBackAtTheEnd)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    tree.DeleteNode(tree.FindEffect(Row(kEffectEcho).descriptor.guid));
    CEFXPresetTree read;
    ReadDocument(WriteDocument(tree), read);
    ASSERT_EQ(CountChildren(read.Root()), 12);
    EXPECT_EQ(read.FindEffect(Row(kEffectEcho).descriptor.guid), nullptr);

    EffectNode* echo = read.EnsureEffectNode(Row(kEffectEcho).descriptor.guid);
    ASSERT_NE(echo, nullptr);
    EXPECT_EQ(echo->nextSibling, nullptr);
    EXPECT_EQ(NthChild(read.Root(), 12), echo);
    EXPECT_EQ(echo->paramSize, 20u);
}

TEST(PresetTree, SetNodeNameKeepsAtMostOneHundredTwentySevenUnits)
{
    CEFXPresetTree tree;
    PresetNode* node = tree.AddEffect(u"Echo", Row(kEffectEcho).descriptor);
    const std::u16string longName(200, u'\u0141');
    CEFXPresetTree::SetNodeName(node, longName.c_str());
    EXPECT_EQ(NameOf(node), longName.substr(0, 127));
    CEFXPresetTree::SetNodeName(node, u"ab");
    EXPECT_EQ(NameOf(node), u"ab");
    EXPECT_EQ(node->name[2], 0);
}

TEST(PresetTree, EnsureEffectNodeMakesTheMissingEntryAndAFrequencyShifterForTheVocalMorpher)
{
    for (const EffectTableRow& row : kEffectTable) {
        CEFXPresetTree tree;
        EffectNode* made = tree.EnsureEffectNode(row.descriptor.guid);
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(tree.Root()->firstChild, made);
        if (row.effectType == kEffectVocalMorpher) {
            EXPECT_EQ(NameOf(made), u"Frequency Shifter");
            EXPECT_EQ(made->guid, Row(kEffectFrequencyShifter).descriptor.guid);
            EXPECT_EQ(made->paramSize, 12u);
            EXPECT_EQ(made->paramCount, 3u);
        } else {
            EXPECT_EQ(NameOf(made), std::u16string(row.name));
            EXPECT_EQ(made->guid, row.descriptor.guid);
            EXPECT_EQ(made->paramSize, row.descriptor.paramSize);
        }
    }
    CEFXPresetTree tree;
    EXPECT_EQ(tree.EnsureEffectNode(kUnknownGuid), nullptr);
    EXPECT_EQ(tree.EnsureEffectNode(kNullEffectGuid), nullptr);
    EXPECT_EQ(tree.Root()->firstChild, nullptr);
}

TEST(PresetLookups, EffectGuidAndInsertParentAreFoundUpwards)
{
    CEFXPresetTree tree;
    tree.BuildDefaultTree();
    PresetNode* chorus = tree.FindEffect(Row(kEffectChorus).descriptor.guid);
    PresetNode* group = tree.AddGroup(tree.AddGroup(chorus, u"outer"), u"inner");
    PresetNode* preset = tree.AddPreset(group, u"p", nullptr, 0);

    EXPECT_EQ(GetEffectGuid(preset), Row(kEffectChorus).descriptor.guid);
    EXPECT_EQ(GetEffectGuid(chorus), Row(kEffectChorus).descriptor.guid);
    EXPECT_EQ(GetEffectGuid(tree.Root()), kNullEffectGuid);
    EXPECT_EQ(GetEffectGuid(nullptr), kNullEffectGuid);

    EXPECT_EQ(FindInsertParent(preset), group);
    EXPECT_EQ(FindInsertParent(group), group);
    EXPECT_EQ(FindInsertParent(chorus), chorus);
    EXPECT_EQ(FindInsertParent(tree.Root()), nullptr);
    EXPECT_EQ(FindInsertParent(nullptr), nullptr);
}

TEST(PresetLookups, EffectTypesAndIdentifiersMapBothWaysAndUnknownsLeaveTheOutput)
{
    for (int type = kEffectEAXReverb; type <= kEffectFrequencyShifter; ++type) {
        EffectGuid guid = kUnknownGuid;
        EffectTypeToGuid(type, guid);
        EXPECT_EQ(guid, Row(type).descriptor.guid);
        int back = -1;
        GuidToEffectType(guid, back);
        EXPECT_EQ(back, type);
    }
    EffectGuid guid = kUnknownGuid;
    EffectTypeToGuid(kEffectNone, guid);
    EXPECT_EQ(guid, kNullEffectGuid);
    guid = kUnknownGuid;
    EffectTypeToGuid(14, guid);
    EXPECT_EQ(guid, kUnknownGuid);
    EffectTypeToGuid(-1, guid);
    EXPECT_EQ(guid, kUnknownGuid);

    int type = 7;
    GuidToEffectType(kNullEffectGuid, type);
    EXPECT_EQ(type, kEffectNone);
    type = 7;
    GuidToEffectType(kUnknownGuid, type);
    EXPECT_EQ(type, 7);
}

TEST(PresetLabels, NarrowingTakesTheLowByteOfEachUnitUpToTheFirstZeroByte)
{
    char16_t name[kNameUnits] = {};
    const std::u16string text = u"\u0141b\u00e9";
    std::copy(text.begin(), text.end(), name);
    EXPECT_EQ(NarrowLabel(name), "Ab\xe9");
    name[1] = 0x0100; // a unit whose low byte is zero ends the text
    EXPECT_EQ(NarrowLabel(name), "A");
    std::fill(name, name + kNameUnits, u'x');
    EXPECT_EQ(NarrowLabel(name), std::string(127, 'x')) << "the 128th unit is never looked at";
}

TEST(PresetLabels, WideningExtendsTheSignAndKeepsAtMostOneHundredTwentySevenCharacters)
{
    char16_t name[kNameUnits];
    std::fill(name, name + kNameUnits, u'?');
    WidenLabel("a\x80\xe9z", name);
    EXPECT_EQ(name[0], u'a');
    EXPECT_EQ(name[1], 0xFF80);
    EXPECT_EQ(name[2], 0xFFE9);
    EXPECT_EQ(name[3], u'z');
    EXPECT_EQ(name[4], 0);
    // The low bytes come back through narrowing, not the high ones.
    EXPECT_EQ(NarrowLabel(name), "a\x80\xe9z");

    WidenLabel(std::string(200, 'L').c_str(), name);
    EXPECT_EQ(std::u16string(name), std::u16string(127, u'L'));
    EXPECT_EQ(name[127], 0);
}

} // namespace
