#pragma once

// The effect entries that a new document holds, in the order of the file: the label, the identifier,
// the three numbers carried with each entry, the engine's EffectType, and the label that a captured
// preset of that effect starts with.

#include "engine/EFX_EffectSlot.h"
#include "presets/EffectGuid.h"

#include <cstddef>
#include <cstdint>

// What an effect entry carries besides its label. "pnum", "enum" and "psiz" are document data only:
// nothing decides by them, and a "data" chunk's size is never compared with paramSize.
struct EffectDescriptor {
    EffectGuid guid;
    std::uint32_t paramCount;
    std::uint32_t enumFlag;
    std::uint32_t paramSize;
};

struct EffectTableRow {
    const char16_t* name;
    EffectDescriptor descriptor;
    int effectType;
    // The label of a preset captured from a slot of this effect.
    const char16_t* presetName;
};

inline constexpr std::size_t kEffectTableSize = 13;

// In the order of a new document and of the file; neither the engine's numbering nor the alphabet.
inline constexpr EffectTableRow kEffectTable[kEffectTableSize] = {
    {u"EAX Reverb",
     {MakeGuid(0x0CF95C8F, 0xA3CC, 0x4849, {0xB0, 0xB6, 0x83, 0x2E, 0xCC, 0x18, 0x22, 0xDF}), 31, 1, 112},
     kEffectEAXReverb, u"my_EAX_Reverb_Preset (edit me)"},
    {u"(generic) Reverb",
     {MakeGuid(0x0306A6A8, 0xB224, 0x11D2, {0x99, 0xE5, 0x00, 0x00, 0xE8, 0xD8, 0xC7, 0x22}), 13, 1, 52},
     kEffectReverb, u"my_Reverb_Preset (edit me)"},
    {u"Compressor",
     {MakeGuid(0xBFB7A01E, 0x7825, 0x4039, {0x92, 0x7F, 0x03, 0xAA, 0xBD, 0xA0, 0xC5, 0x60}), 1, 1, 4},
     kEffectCompressor, u"my_AGC_Preset (edit me)"},
    {u"Auto Wah",
     {MakeGuid(0xEC3130C0, 0xAC7A, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 4, 1, 16},
     kEffectAutowah, u"my_Autowah_Preset (edit me)"},
    {u"Chorus",
     {MakeGuid(0xDE6D6FE0, 0xAC79, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 6, 1, 24},
     kEffectChorus, u"my_Chorus_Preset (edit me)"},
    {u"Distortion",
     {MakeGuid(0x975A4CE0, 0xAC7E, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 5, 1, 20},
     kEffectDistortion, u"my_Distortion_Preset (edit me)"},
    {u"Echo",
     {MakeGuid(0x0E9F1BC0, 0xAC82, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 5, 1, 20},
     kEffectEcho, u"my_Echo_Preset (edit me)"},
    {u"Equalizer",
     {MakeGuid(0x65F94CE0, 0x9793, 0x11D3, {0x93, 0x9D, 0x00, 0xC0, 0xF0, 0x2D, 0xD6, 0xF0}), 10, 1, 40},
     kEffectEqualizer, u"my_Equalizer_Preset (edit me)"},
    {u"Flanger",
     {MakeGuid(0xA70007C0, 0x07D2, 0x11D3, {0x9B, 0x1E, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 6, 1, 24},
     kEffectFlanger, u"my_Flanger_Preset (edit me)"},
    {u"Frequency Shifter",
     {MakeGuid(0xDC3E1880, 0x9212, 0x11D3, {0x93, 0x9D, 0x00, 0xC0, 0xF0, 0x2D, 0xD6, 0xF0}), 3, 1, 12},
     kEffectFrequencyShifter, u"my_Frequency_Shifter_Preset (edit me)"},
    {u"Vocal Morpher",
     {MakeGuid(0xE41CF10C, 0x3383, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 6, 1, 24},
     kEffectVocalMorpher, u"my_Vocal_Morpher_Preset (edit me)"},
    {u"Pitch Shifter",
     {MakeGuid(0xE7905100, 0xAFB2, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 2, 1, 8},
     kEffectPitchShifter, u"my_Pitch_Shifter_Preset (edit me)"},
    {u"Ring Modulator",
     {MakeGuid(0x0B89FE60, 0xAFB5, 0x11D2, {0x88, 0xDD, 0x00, 0xA0, 0x24, 0xD1, 0x3C, 0xE1}), 3, 1, 12},
     kEffectRingModulator, u"my_Ring_Modulator_Preset (edit me)"},
};

// The row of an EffectType or of an identifier; null when none matches (an empty slot, an unknown
// identifier).
const EffectTableRow* FindEffectRowByType(int effectType);
const EffectTableRow* FindEffectRowByGuid(const EffectGuid& guid);
