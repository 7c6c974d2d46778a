// sonoptic-render: renders one WAV file through one effect slot holding a preset, offline and as fast
// as the machine allows, into a WAV file of 32-bit floats. The source plays at the listener, its dry
// sound at full gain and its send into the slot at the gain asked; a tail follows until the output
// has decayed below -90 dBFS, or for the seconds asked.
//
//   sonoptic-render INPUT.wav OUTPUT.wav [--preset FILE.efx --name NAME | --standard NAME]
//                   [--send GAIN] [--tail SECONDS]

#include "engine/CWaves.h"
#include "engine/LoopbackRenderer.h"
#include "presets/CEFXPresetTree.h"
#include "presets/PresetCapture.h"
#include "presets/PresetLabels.h"
#include "presets/PresetLookups.h"
#include "presets/StandardReverbLibrary.h"

#include <AL/alc.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr const char* kUsage =
    "usage: sonoptic-render INPUT.wav OUTPUT.wav [--preset FILE.efx --name NAME | --standard NAME] "
    "[--send GAIN] [--tail SECONDS]";

struct Arguments {
    std::string input, output, presetFile, presetName, standard;
    double send = 1.0;
    double tail = -1.0;
};

// Stops the program with one line on the error stream.
[[noreturn]] void Fail(const std::string& message)
{
    std::fprintf(stderr, "sonoptic-render: %s\n", message.c_str());
    std::exit(1);
}

double Number(const std::string& option, const char* text, double minimum)
{
    char* end = nullptr;
    errno = 0;
    const double value = std::strtod(text, &end);
    if (end == text || *end != '\0' || errno != 0 || !std::isfinite(value) || value < minimum)
        Fail(option + " needs a number of at least " + std::to_string(static_cast<int>(minimum)) + ", not '" + text +
             "'");
    return value;
}

Arguments Parse(int argc, char** argv)
{
    Arguments arguments;
    std::vector<std::string> files;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        auto value = [&]() -> const char* {
            if (i + 1 >= argc)
                Fail(option + " needs a value");
            return argv[++i];
        };
        if (option == "--preset")
            arguments.presetFile = value();
        else if (option == "--name")
            arguments.presetName = value();
        else if (option == "--standard")
            arguments.standard = value();
        else if (option == "--send")
            arguments.send = Number(option, value(), 0);
        else if (option == "--tail")
            arguments.tail = Number(option, value(), 0);
        else if (option.rfind("--", 0) == 0)
            Fail("unknown option " + option + "\n" + kUsage);
        else
            files.push_back(option);
    }
    if (files.size() != 2)
        Fail(std::string("an input and an output file are needed\n") + kUsage);
    arguments.input = files[0];
    arguments.output = files[1];
    if (arguments.presetFile.empty() != arguments.presetName.empty())
        Fail("--preset and --name go together");
    if (!arguments.presetFile.empty() && !arguments.standard.empty())
        Fail("--preset and --standard cannot both be given");
    return arguments;
}

std::string Upper(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// A standard reverb by its name ("Concert Hall"), its group and name ("Castle/Small Room"), or its
// macro, with or without EFX_REVERB_PRESET_; any case.
const StandardReverb* FindStandard(const std::string& wanted)
{
    const std::string key = Upper(wanted);
    for (std::size_t i = 0; i < kStandardReverbCount; ++i) {
        const StandardReverb& reverb = kStandardReverbs[i];
        const std::string token = reverb.token;
        if (key == token || "EFX_REVERB_PRESET_" + key == token ||
            key == Upper(std::string(reverb.group) + "/" + reverb.name))
            return &reverb;
    }
    for (std::size_t i = 0; i < kStandardReverbCount; ++i)
        if (key == Upper(kStandardReverbs[i].name))
            return &kStandardReverbs[i];
    return nullptr;
}

// The first preset of that label, depth first.
const PresetNode* FindPreset(const PresetNode* node, const std::string& name)
{
    for (; node; node = node->nextSibling) {
        if (node->id == preset_tag::kPreset && NarrowLabel(node->name) == name)
            return node;
        if (const PresetNode* found = FindPreset(node->firstChild, name))
            return found;
    }
    return nullptr;
}

// A property value of a preset into the slot's list, under the token of the property it sets.
void AddValue(SlotSnapshot& slot, const SlotAccessor& property, const SlotValue& value)
{
    EffectValue out{property.token,
                    property.kind == PropertyKind::Float ? 0 : property.kind == PropertyKind::Vector ? 2 : 1};
    std::copy(value.f, value.f + 3, out.f.begin());
    out.i = value.i;
    slot.values.push_back(out);
}

SlotSnapshot PresetSlot(const Arguments& arguments)
{
    SlotSnapshot slot;
    if (!arguments.standard.empty()) {
        const StandardReverb* reverb = FindStandard(arguments.standard);
        if (!reverb)
            Fail("no standard reverb named '" + arguments.standard + "'");
        slot.effectType = kEffectEAXReverb;
        const EAXReverbValues values = StandardReverbValues(*reverb);
        for (const EAXEngineRow& row : kEAXReverbEngine)
            AddValue(slot, row.property, EAXValueAt(row.property, values, row.applyValue));
    } else if (!arguments.presetFile.empty()) {
        std::FILE* file = std::fopen(arguments.presetFile.c_str(), "rb");
        if (!file)
            Fail("cannot read " + arguments.presetFile + ": " + std::strerror(errno));
        CEFXPresetTree document;
        document.ReadFile(file);
        std::fclose(file);
        const PresetNode* node = FindPreset(document.Root()->firstChild, arguments.presetName);
        if (!node)
            Fail("no preset named '" + arguments.presetName + "' in " + arguments.presetFile);
        const EffectGuid guid = GetEffectGuid(node);
        GuidToEffectType(guid, slot.effectType);
        const auto* preset = static_cast<const PresetDataNode*>(node);
        ForEachPresetValue(guid, preset->data.get(), preset->dataSize,
                           [&](const SlotAccessor& property, const SlotValue& value) { AddValue(slot, property, value); });
    }
    return slot;
}

// The input's rate, or a one-line failure if it is not a WAV file that OpenAL can take.
int InputRate(const std::string& path)
{
    if (std::FILE* file = std::fopen(path.c_str(), "rb"))
        std::fclose(file);
    else
        Fail("cannot read " + path + ": " + std::strerror(errno));
    CWaves waves;
    int id = -1;
    std::uint32_t rate = 0;
    ALenum format = 0;
    if (waves.LoadWaveFile(path.c_str(), &id) < 0 || waves.GetWaveFrequency(id, &rate) != CWaves::kOK || rate == 0)
        Fail(path + " is not a WAV file that can be played");
    waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
    waves.DeleteWaveFile(id);
    return static_cast<int>(rate);
}

} // namespace

int main(int argc, char** argv)
{
    const Arguments arguments = Parse(argc, argv);
    SceneSnapshot scene;
    scene.frequency = InputRate(arguments.input);
    scene.slots.push_back(PresetSlot(arguments));
    SourceSnapshot source;
    source.path = arguments.input;
    source.integers.emplace_back(AL_SOURCE_RELATIVE, AL_TRUE);
    source.sends[0] = {0, true, static_cast<float>(arguments.send), 1.0f};
    scene.sources.push_back(source);

    RenderOptions options;
    options.tail = arguments.tail;
    int shown = -1;
    options.progress = [&](double done) {
        const int percent = static_cast<int>(done * 100);
        if (percent != shown) {
            shown = percent;
            std::printf("\rrendering %s: %d%%", arguments.output.c_str(), percent);
            std::fflush(stdout);
        }
        return true;
    };
    const RenderResult result = RenderSceneToWave(scene, options, arguments.output);
    if (!result.ok) {
        // The progress line ends before the error's own line.
        if (shown >= 0)
            std::printf("\n");
        std::fflush(stdout);
        Fail(result.error);
    }
    std::printf("\rrendering %s: done, %.2f s\n", arguments.output.c_str(),
                static_cast<double>(result.frames) / result.frequency);
    return 0;
}
