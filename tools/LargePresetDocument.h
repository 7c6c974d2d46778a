#pragma once

// A large preset document for the benchmarks: `count` presets spread over the thirteen effect entries
// of a new document, every other one in a group two deep under its entry. Header-only.

#include "presets/CEFXPresetTree.h"

#include <cstdint>
#include <vector>

namespace tool_support {

inline void BuildLargeDocument(CEFXPresetTree& tree, int count)
{
    tree.BuildDefaultTree();
    std::vector<PresetNode*> groups;
    for (PresetNode* entry = tree.Root()->firstChild; entry; entry = entry->nextSibling)
        groups.push_back(tree.AddGroup(tree.AddGroup(entry, u"my_Preset_Group (edit me)"), u"inner group"));
    int made = 0;
    for (PresetNode* entry = tree.Root()->firstChild; made < count; entry = entry->nextSibling) {
        if (!entry)
            entry = tree.Root()->firstChild;
        const auto size = static_cast<EffectNode*>(entry)->paramSize;
        std::vector<std::uint8_t> record(size, static_cast<std::uint8_t>(made));
        PresetNode* parent = made % 2 ? entry : groups[static_cast<std::size_t>(made) % groups.size()];
        tree.AddPreset(parent, u"my_EAX_Reverb_Preset (edit me)", record.data(), size);
        ++made;
    }
}

} // namespace tool_support
