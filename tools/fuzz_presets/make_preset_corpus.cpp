// Writes the seed corpus of the .efx reader's fuzz target: documents as the program itself writes
// them (empty, new, with groups, presets of all thirteen kinds and parameter lists), one file each,
// into the folder given.
//   make_preset_corpus <folder>

#include "presets/CEFXPresetTree.h"
#include "presets/EffectTable.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace {

void Save(CEFXPresetTree& tree, const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        std::perror(path.c_str());
        return;
    }
    tree.WriteFile(file);
    std::fclose(file);
}

// A document with one preset of each kind, a nested and an empty group.
void FillPresets(CEFXPresetTree& tree)
{
    tree.BuildDefaultTree();
    std::uint8_t seed = 0;
    for (PresetNode* entry = tree.Root()->firstChild; entry; entry = entry->nextSibling) {
        std::vector<std::uint8_t> record(static_cast<EffectNode*>(entry)->paramSize);
        for (auto& byte : record)
            byte = seed += 37;
        PresetNode* group = tree.AddGroup(entry, u"my_Preset_Group (edit me)");
        tree.AddPreset(tree.AddGroup(group, u"inner"), u"deep", record.data(), static_cast<std::uint32_t>(record.size()));
        tree.AddGroup(group, u"empty");
        tree.AddPreset(entry, u"my_Echo_Preset (edit me)", record.data(), static_cast<std::uint32_t>(record.size()));
    }
}

// Parameter lists can only come from a file: make one by hand in the writer's layout, read it, and
// let the writer write it again.
void AddParameterLists(const std::string& path)
{
    auto le32 = [](std::vector<std::uint8_t>& out, std::uint32_t v) {
        for (int i = 0; i < 4; ++i)
            out.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    };
    auto chunk = [&](std::vector<std::uint8_t>& out, const char* tag, const std::vector<std::uint8_t>& body) {
        out.insert(out.end(), tag, tag + 4);
        le32(out, static_cast<std::uint32_t>(body.size()));
        out.insert(out.end(), body.begin(), body.end());
    };
    auto list = [&](const char* container, const char* form, const std::vector<std::uint8_t>& body) {
        std::vector<std::uint8_t> out(container, container + 4);
        le32(out, static_cast<std::uint32_t>(body.size() + 4));
        out.insert(out.end(), form, form + 4);
        out.insert(out.end(), body.begin(), body.end());
        return out;
    };
    std::vector<std::uint8_t> word;
    std::vector<std::uint8_t> param;
    chunk(param, "name", {'R', 0, 'a', 0});
    for (const char* tag : {"type", "ofst", "enum"}) {
        word.clear();
        le32(word, tag[0] == 't' ? 5 : 1);
        chunk(param, tag, word);
    }
    for (const char* tag : {"minv", "maxv", "defv"})
        chunk(param, tag, word);
    chunk(param, "etbl", {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0});
    std::vector<std::uint8_t> group;
    chunk(group, "name", {'g', 0});
    const std::vector<std::uint8_t> pram = list("LIST", "pram", param);
    group.insert(group.end(), pram.begin(), pram.end());

    std::vector<std::uint8_t> effect;
    const EffectTableRow& row = kEffectTable[4];
    std::vector<std::uint8_t> name;
    for (const char16_t* c = row.name; *c; ++c) {
        name.push_back(static_cast<std::uint8_t>(*c));
        name.push_back(static_cast<std::uint8_t>(*c >> 8));
    }
    chunk(effect, "name", name);
    chunk(effect, "guid", std::vector<std::uint8_t>(row.descriptor.guid.bytes.begin(), row.descriptor.guid.bytes.end()));
    const std::pair<const char*, std::uint32_t> numbers[] = {
        {"pnum", row.descriptor.paramCount}, {"enum", row.descriptor.enumFlag}, {"psiz", row.descriptor.paramSize}};
    for (const auto& [tag, value] : numbers) {
        word.clear();
        le32(word, value);
        chunk(effect, tag, word);
    }
    const std::vector<std::uint8_t> pgrp = list("LIST", "pgrp", group);
    effect.insert(effect.end(), pgrp.begin(), pgrp.end());
    const std::vector<std::uint8_t> file = list("RIFF", "efx ", list("LIST", "efct", effect));

    std::FILE* out = std::fopen(path.c_str(), "wb+");
    if (!out)
        return;
    std::fwrite(file.data(), 1, file.size(), out);
    CEFXPresetTree tree;
    tree.ReadFile(out);
    tree.WriteFile(out);
    std::fclose(out);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    CEFXPresetTree empty;
    Save(empty, folder + "/empty.efx");
    CEFXPresetTree fresh;
    fresh.BuildDefaultTree();
    Save(fresh, folder + "/new.efx");
    CEFXPresetTree echo;
    echo.AddEffect(u"Echo", kEffectTable[6].descriptor);
    Save(echo, folder + "/echo.efx");
    CEFXPresetTree presets;
    FillPresets(presets);
    Save(presets, folder + "/presets.efx");
    AddParameterLists(folder + "/params.efx");
    return 0;
}
