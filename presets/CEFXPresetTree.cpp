// The document operations of the preset tree: the new document, adding, finding and deleting nodes,
// and naming them.
#include "presets/CEFXPresetTree.h"

#include "engine/EFX_EffectSlot.h"

#include <algorithm>
#include <new>

CEFXPresetTree::~CEFXPresetTree()
{
    DeleteAllChildren();
}

void CEFXPresetTree::LinkChild(PresetNode* parent, PresetNode* child)
{
    child->parent = parent;
    child->nextSibling = nullptr;
    if (parent->lastChild)
        parent->lastChild->nextSibling = child;
    else
        parent->firstChild = child;
    parent->lastChild = child;
}

int CEFXPresetTree::Depth(const PresetNode* node)
{
    int depth = 0;
    for (; node->parent; node = node->parent)
        ++depth;
    return depth;
}

void CEFXPresetTree::BuildDefaultTree()
{
    for (const EffectTableRow& row : kEffectTable)
        AddEffect(row.name, row.descriptor);
}

EffectNode* CEFXPresetTree::AddEffect(const char16_t* name, const EffectDescriptor& descriptor)
{
    auto* node = new EffectNode;
    SetNodeName(node, name);
    node->guid = descriptor.guid;
    node->paramCount = descriptor.paramCount;
    node->enumFlag = descriptor.enumFlag;
    node->paramSize = descriptor.paramSize;
    LinkChild(&m_root, node);
    return node;
}

PresetGroupNode* CEFXPresetTree::AddGroup(PresetNode* parent, const char16_t* name)
{
    if (!parent)
        return nullptr;
    const ChunkTag kind = parent->id;
    if (kind != preset_tag::kPresetGroup && kind != preset_tag::kEffect && kind != preset_tag::kPreset)
        return nullptr;
    if (Depth(parent) + 1 > kMaxDepth)
        return nullptr;
    auto* node = new PresetGroupNode;
    SetNodeName(node, name);
    LinkChild(parent, node);
    return node;
}

PresetDataNode* CEFXPresetTree::AddPreset(PresetNode* parent, const char16_t* name, const std::uint8_t* data,
                                          std::uint32_t size)
{
    if (!parent || (parent->id != preset_tag::kPresetGroup && parent->id != preset_tag::kEffect))
        return nullptr;
    auto* node = new PresetDataNode;
    SetNodeName(node, name);
    if (data) {
        node->data.reset(new (std::nothrow) std::uint8_t[size]);
        if (node->data) {
            std::copy(data, data + size, node->data.get());
            node->dataSize = size;
        }
    }
    LinkChild(parent, node);
    return node;
}

EffectNode* CEFXPresetTree::FindEffect(const EffectGuid& guid)
{
    for (PresetNode* child = m_root.firstChild; child; child = child->nextSibling)
        if (child->id == preset_tag::kEffect && static_cast<EffectNode*>(child)->guid == guid)
            return static_cast<EffectNode*>(child);
    return nullptr;
}

namespace {

// Deletes a node that is already out of its parent's list, its subtree first. The recursion goes as
// deep as the tree, which the depth bound keeps small.
void DeleteSubtree(PresetNode* node)
{
    PresetNode* child = node->firstChild;
    while (child) {
        PresetNode* next = child->nextSibling;
        DeleteSubtree(child);
        child = next;
    }
    delete node;
}

} // namespace

void CEFXPresetTree::DeleteNode(PresetNode* node)
{
    if (!node || node == &m_root)
        return;
    if (PresetNode* parent = node->parent) {
        PresetNode* previous = nullptr;
        for (PresetNode* it = parent->firstChild; it && it != node; it = it->nextSibling)
            previous = it;
        if (previous)
            previous->nextSibling = node->nextSibling;
        else
            parent->firstChild = node->nextSibling;
        if (parent->lastChild == node)
            parent->lastChild = previous;
    }
    DeleteSubtree(node);
}

void CEFXPresetTree::DeleteAllChildren()
{
    while (m_root.firstChild)
        DeleteNode(m_root.firstChild);
}

void CEFXPresetTree::SetNodeName(PresetNode* node, const char16_t* name)
{
    std::size_t i = 0;
    for (; i < kMaxNameLength && name[i] != 0; ++i)
        node->name[i] = name[i];
    node->name[i] = 0;
}

EffectNode* CEFXPresetTree::EnsureEffectNode(const EffectGuid& guid)
{
    // The identifier asked for, and the entry made for it, in the order of comparison.
    struct EnsureRow {
        int asked;
        int made;
    };
    static constexpr EnsureRow kEnsureOrder[] = {
        {kEffectEAXReverb, kEffectEAXReverb},
        {kEffectReverb, kEffectReverb},
        {kEffectCompressor, kEffectCompressor},
        {kEffectAutowah, kEffectAutowah},
        {kEffectChorus, kEffectChorus},
        {kEffectDistortion, kEffectDistortion},
        {kEffectEcho, kEffectEcho},
        {kEffectEqualizer, kEffectEqualizer},
        {kEffectFlanger, kEffectFlanger},
        {kEffectVocalMorpher, kEffectFrequencyShifter}, // deliberately so; see the header
        {kEffectPitchShifter, kEffectPitchShifter},
        {kEffectRingModulator, kEffectRingModulator},
        {kEffectFrequencyShifter, kEffectFrequencyShifter},
    };
    for (const EnsureRow& row : kEnsureOrder) {
        if (FindEffectRowByType(row.asked)->descriptor.guid != guid)
            continue;
        const EffectTableRow* made = FindEffectRowByType(row.made);
        return AddEffect(made->name, made->descriptor);
    }
    return nullptr;
}
