#include "panels/EffectPanelTables.h"

#include "panels/KnobToolTip.h"

#include <array>

namespace {

using namespace effect_token;

// Float knob and long knob rows; each begins with the token of its property in the engine's catalogue.
constexpr PanelKnob F(const char* token, std::uint16_t param, int id, const char* group, const char* label,
                      float minimum, float maximum, float step, int decimals, int style, float first,
                      const char* heading = "")
{
    return {param, id, group, heading, label, minimum, maximum, step, decimals, style, first, false, 0, token};
}
constexpr PanelKnob L(const char* token, std::uint16_t param, int id, const char* label, int minimum, int maximum,
                      int step, int style, int first)
{
    return {param,
            id,
            "",
            "",
            label,
            static_cast<float>(minimum),
            static_cast<float>(maximum),
            static_cast<float>(step),
            0,
            style,
            static_cast<float>(first),
            true,
            0,
            token};
}

constexpr PanelKnob kEAXReverbKnobs[] = {
    F(kEAXReverbDensity, 0, 1017, "Environment", "Density", 0, 1, 0.05f, 2, 0, 0.77f),
    F(kEAXReverbDiffusion, 1, 1021, "Environment", "Diffusion", 0, 1, 0.01f, 2, 0, 0.77f),
    F(kEAXReverbDecayTime, 2, 1023, "Decay", "Time", 0.1f, 20, 0.01f, 2, 0, 7.77f),
    F(kEAXReverbDecayHfratio, 3, 1026, "Decay", "HFRatio", 0.1f, 2, 0.01f, 2, 0, 0.77f),
    F(kEAXReverbDecayLfratio, 4, 1024, "Decay", "LFRatio", 0.1f, 2, 0.01f, 2, 0, 1.77f),
    F(kEAXReverbReflectionsDelay, 5, 1028, "Reflections", "Delay", 0, 0.3f, 0.01f, 2, 0, 0.077f),
    F(kEAXReverbReflectionsPan, 6, 1074, "Reflections", "X", -1, 1, 0.1f, 2, 2, 0.77f, "Pan"),
    F(kEAXReverbReflectionsPan, 7, 1075, "Reflections", "Y", -1, 1, 0.1f, 2, 2, 0.77f, "Pan"),
    F(kEAXReverbReflectionsPan, 8, 1076, "Reflections", "Z", -1, 1, 0.1f, 2, 2, 0.77f, "Pan"),
    F(kEAXReverbLateReverbDelay, 9, 1025, "Late Reverberation", "Delay", 0, 0.1f, 0.001f, 2, 0, 0.077f),
    F(kEAXReverbLateReverbPan, 10, 1077, "Late Reverberation", "X", -1, 1, 0.1f, 2, 1, 0.77f, "Pan"),
    F(kEAXReverbLateReverbPan, 11, 1078, "Late Reverberation", "Y", -1, 1, 0.1f, 2, 1, 0.77f, "Pan"),
    F(kEAXReverbLateReverbPan, 12, 1079, "Late Reverberation", "Z", -1, 1, 0.1f, 2, 1, 0.77f, "Pan"),
    F(kEAXReverbEchoTime, 13, 1036, "Echo", "Time", 0.075f, 0.25f, 0.01f, 2, 0, 0.077f),
    F(kEAXReverbEchoDepth, 14, 1019, "Echo", "Depth", 0, 1, 0.01f, 2, 0, 0.77f),
    F(kEAXReverbModulationTime, 15, 1033, "Modulation", "Time", 0.04f, 4, 0.01f, 2, 0, 0.77f),
    F(kEAXReverbModulationDepth, 16, 1037, "Modulation", "Depth", 0, 1, 0.01f, 2, 0, 0.77f),
    F(kEAXReverbAirAbsorptionGainhf, 17, 1034, "Distance Effects", "Air Absorption HF", 0.892f, 1, 0.01f, 3, 0, 0.8977f),
    F(kEAXReverbHfreference, 18, 1027, "Ref. Frequencies", "HF", 1000, 20000, 500, 2, 3, 7777),
    F(kEAXReverbLfreference, 19, 1031, "Ref. Frequencies", "LF", 20, 1000, 10, 2, 3, 777),
    F(kEAXReverbRoomRolloffFactor, 20, 1030, "Distance Effects", "Room Rolloff Factor", 0, 10, 0.1f, 2, 0, 7.77f),
    F(kEAXReverbGain, 21, 1018, "Reverb", "Gain", 0, 1, 0.01f, 3, 0, 0.77f),
    F(kEAXReverbGainhf, 22, 1022, "Reverb", "GainHF", 0, 1, 0.01f, 3, 0, 0.77f),
    F(kEAXReverbGainlf, 23, 1020, "Reverb", "GainLF", 0, 1, 0.01f, 3, 0, 0.77f),
    F(kEAXReverbReflectionsGain, 24, 1035, "Reflections", "Gain", 0, 3.16f, 0.1f, 3, 0, 0.77f),
    F(kEAXReverbLateReverbGain, 25, 1032, "Late Reverberation", "Gain", 0, 10, 0.1f, 3, 0, 7.77f),
};

constexpr PanelKnob kReverbKnobs[] = {
    F(kReverbDensity, 0, 1353, "Environment", "Density", 0, 1, 0.05f, 2, 0, 0.77f),
    F(kReverbDiffusion, 1, 1354, "Environment", "Diffusion", 0, 1, 0.01f, 2, 0, 0.77f),
    F(kReverbDecayTime, 2, 1355, "Decay", "Time", 0.1f, 20, 0.01f, 2, 0, 7.77f),
    F(kReverbDecayHfratio, 3, 1356, "Decay", "HFRatio", 0.1f, 2, 0.01f, 2, 0, 0.77f),
    F(kReverbReflectionsDelay, 4, 1358, "Reflections", "Delay", 0, 0.3f, 0.01f, 2, 2, 0.077f),
    F(kReverbLateReverbDelay, 5, 1360, "Reverberation", "Delay", 0, 0.1f, 0.001f, 2, 1, 0.077f),
    F(kReverbAirAbsorptionGainhf, 6, 1352, "Distance Effects", "Air Absorption HF", 0.892f, 1, 0.01f, 3, 0, 0.8977f),
    F(kReverbRoomRolloffFactor, 7, 1351, "Distance Effects", "Room Rolloff Factor", 0, 10, 0.1f, 2, 0, 7.77f),
    F(kReverbGain, 8, 1349, "Reverb", "Gain", 0, 1, 0.01f, 3, 0, 0.77f),
    F(kReverbGainhf, 9, 1350, "Reverb", "GainHF", 0, 1, 0.01f, 3, 0, 0.77f),
    F(kReverbReflectionsGain, 10, 1357, "Reflections", "Gain", 0, 3.16f, 0.1f, 3, 2, 0.77f),
    F(kReverbLateReverbGain, 11, 1359, "Reverberation", "Gain", 0, 10, 0.1f, 3, 1, 7.77f),
};

constexpr PanelKnob kAutowahKnobs[] = {
    F(kAutowahAttackTime, 0, 1090, "", "Attack Time", 0.0001f, 1, 0.01f, 2, 1, 0.77f),
    F(kAutowahReleaseTime, 1, 1091, "", "Release Time", 0.0001f, 1, 0.01f, 2, 1, 0.77f),
    F(kAutowahPeakGain, 2, 1093, "", "Peak Level", 3e-05f, 31621, 0.1f, 2, 0, 77.77f),
    F(kAutowahResonance, 3, 1092, "", "Resonance", 2, 1000, 10, 2, 0, 777.7f),
};

constexpr PanelKnob kChorusKnobs[] = {
    F(kChorusRate, 0, 1100, "", "Rate", 0, 10, 0.1f, 2, 1, 7.77f),
    F(kChorusDepth, 1, 1093, "", "Depth", 0, 1, 0.1f, 2, 1, 0.77f),
    F(kChorusFeedback, 2, 1094, "", "Feedback", -1, 1, 0.1f, 2, 1, 0.77f),
    F(kChorusDelay, 3, 1095, "", "Delay", 0, 0.016f, 0.001f, 4, 1, 0.016f),
    L(kChorusPhase, 0, 1099, "Phase", -180, 180, 1, 1, 77),
};

constexpr PanelKnob kDistortionKnobs[] = {
    F(kDistortionEdge, 0, 1101, "", "Edge", 0, 1, 0.01f, 2, 1, 0.77f),
    F(kDistortionLowpassCutoff, 1, 1103, "", "Low Pass Cut-Off", 80, 24000, 100, 2, 1, 7777),
    F(kDistortionEqcenter, 2, 1104, "", "EQ Center", 80, 24000, 100, 2, 1, 777.7f),
    F(kDistortionEqbandwidth, 3, 1105, "", "EQ Bandwidth", 80, 24000, 100, 2, 1, 777.7f),
    F(kDistortionGain, 4, 1102, "", "Gain", 0, 1, 0.1f, 2, 1, 0.77f),
};

constexpr PanelKnob kEchoKnobs[] = {
    F(kEchoDelay, 0, 1107, "", "Delay", 0, 0.207f, 0.01f, 3, 1, 0.77f),
    F(kEchoLrdelay, 1, 1108, "", "LR Delay", 0, 0.404f, 0.01f, 3, 1, 0.77f),
    F(kEchoDamping, 2, 1109, "", "Damping", 0, 0.99f, 0.01f, 2, 1, 0.77f),
    F(kEchoFeedback, 3, 1110, "", "Feedback", 0, 1, 0.01f, 2, 1, 0.77f),
    F(kEchoSpread, 4, 1111, "", "Spread", -1, 1, 0.01f, 2, 1, 0.77f),
};

constexpr PanelKnob kEqualizerKnobs[] = {
    F(kEqualizerLowCutoff, 0, 1112, "", "Low Cut-off", 50, 800, 10, 2, 1, 77),
    F(kEqualizerMid1Center, 1, 1113, "", "Mid1 Center", 200, 3000, 10, 2, 1, 777),
    F(kEqualizerMid1Width, 2, 1109, "", "Mid1 Width", 0.01f, 1, 0.1f, 2, 1, 0.77f),
    F(kEqualizerMid2Center, 3, 1108, "", "Mid2 Center", 1000, 8000, 10, 2, 1, 7777),
    F(kEqualizerMid2Width, 4, 1106, "", "Mid2 Width", 0.01f, 1, 0.01f, 2, 1, 0.77f),
    F(kEqualizerHighCutoff, 5, 1107, "", "High Cut-off", 4000, 16000, 100, 2, 1, 7777),
    F(kEqualizerLowGain, 6, 1114, "", "Low Gain", 0.126f, 7.943f, 0.1f, 2, 1, 0.77f),
    F(kEqualizerMid1Gain, 7, 1115, "", "Mid1 Gain", 0.126f, 7.943f, 0.1f, 2, 1, 0.77f),
    F(kEqualizerMid2Gain, 8, 1116, "", "Mid2 Gain", 0.126f, 7.943f, 0.1f, 2, 1, 0.77f),
    F(kEqualizerHighGain, 9, 1110, "", "High gain", 0.126f, 7.943f, 0.1f, 2, 1, 0.77f),
};

constexpr PanelKnob kFlangerKnobs[] = {
    F(kFlangerRate, 0, 1118, "", "Rate", 0, 10, 0.2f, 2, 1, 0.77f),
    F(kFlangerDepth, 1, 1119, "", "Depth", 0, 1, 0.1f, 2, 1, 0.77f),
    F(kFlangerFeedback, 2, 1120, "", "Feedback", -1, 1, 0.1f, 2, 1, -0.77f),
    F(kFlangerDelay, 3, 1121, "", "Delay", 0, 0.004f, 0.0001f, 4, 1, 0.00377f),
    L(kFlangerPhase, 0, 1117, "Phase", -180, 180, 1, 1, 77),
};

constexpr PanelKnob kVocalMorpherKnobs[] = {
    L(kVocalMorpherPhonemeaCoarseTuning, 0, 1123, "Phoneme A Coarse Tuning", -24, 24, 1, 1, 7),
    L(kVocalMorpherPhonemebCoarseTuning, 1, 1124, "Phoneme B Coarse Tuning", -24, 24, 1, 1, 7),
    F(kVocalMorpherRate, 0, 1122, "", "Rate", 0, 10, 0.01f, 2, 1, 7.77f),
};

constexpr PanelKnob kPitchShifterKnobs[] = {
    L(kPitchShifterCoarseTune, 0, 1127, "Coarse Tune", -12, 12, 1, 1, 7),
    L(kPitchShifterFineTune, 1, 1128, "Fine Tune", -50, 50, 1, 1, 7),
};

constexpr PanelKnob kRingModulatorKnobs[] = {
    F(kRingModulatorFrequency, 0, 1125, "", "Frequency", 0, 8000, 10, 2, 1, 777),
    F(kRingModulatorHighpassCutoff, 1, 1126, "", "High Pass Cut-off", 0, 24000, 100, 2, 1, 777),
};

constexpr PanelKnob kFrequencyShifterKnobs[] = {
    F(kFrequencyShifterFrequency, 0, 1106, "", "Frequency", 0, 24000, 100, 2, 1, 7777),
};

constexpr const char* kOffOn[] = {"Off", "On"};
constexpr const char* kSinusoidTriangle[] = {"Sinusoid", "Triangle"};
constexpr const char* kMorpherWaveforms[] = {"Sinusoid", "Triangle", "Sawtooth"};
constexpr const char* kRingWaveforms[] = {"Sinusoid", "Sawtooth", "Square"};
constexpr const char* kDirections[] = {"Down", "Up", "Off"};
constexpr const char* kPhonemes[] = {"A",  "E",  "I",  "O",  "U",  "AA", "AE", "AH", "AO", "EH",
                                     "ER", "IH", "IY", "UH", "UW", "B",  "D",  "F",  "G",  "J",
                                     "K",  "L",  "M",  "N",  "P",  "R",  "S",  "T",  "V",  "Z"};
static_assert(std::size(kPhonemes) == 30);

constexpr PanelCombo kAGCCombos[] = {{0, 1089, "", kOffOn}};
constexpr PanelCombo kChorusCombos[] = {{0, 1092, "Waveform", kSinusoidTriangle}};
constexpr PanelCombo kFlangerCombos[] = {{0, 1093, "Waveform", kSinusoidTriangle}};
constexpr PanelCombo kVocalMorpherCombos[] = {
    {0, 1096, "Phoneme A", kPhonemes},
    {1, 1094, "Phoneme B", kPhonemes},
    {2, 1095, "Waveform", kMorpherWaveforms},
};
constexpr PanelCombo kRingModulatorCombos[] = {{0, 1097, "Waveform", kRingWaveforms}};
constexpr PanelCombo kFrequencyShifterCombos[] = {
    {0, 1098, "Left Direction", kDirections},
    {1, 1099, "Right Direction", kDirections},
};

constexpr std::span<const PanelKnob> kNoKnobs{};
constexpr std::span<const PanelCombo> kNoCombos{};

// type, class, template, category, title, title id, bold, Defaults id, knobs, combos, HF limit,
// response button, reverb values
constexpr EffectPanelTable kTables[] = {
    {1, "FXS_EAXReverb_Panel", 145, 5, "EAX Reverb", 1056, true, 1143, kEAXReverbKnobs, kNoCombos, 1052, 0, true},
    {2, "FXS_Reverb_Panel", 193, 6, "Reverb", 0, true, 1143, kReverbKnobs, kNoCombos, 1361, 1362, true},
    {3, "FXS_AGC_Panel", 164, 7, "AGC Compressor", 0, false, 1181, kNoKnobs, kAGCCombos, 0, 0, false},
    {4, "FXS_Autowah_Panel", 163, 8, "Autowah", 0, false, 1180, kAutowahKnobs, kNoCombos, 0, 0, false},
    {5, "FXS_Chorus_Panel", 155, 9, "Chorus", 0, false, 1179, kChorusKnobs, kChorusCombos, 0, 0, false},
    {6, "FXS_Distortion_Panel", 162, 10, "Distortion", 0, false, 1178, kDistortionKnobs, kNoCombos, 0, 0, false},
    {7, "FXS_Echo_Panel", 161, 11, "Echo", 0, false, 1177, kEchoKnobs, kNoCombos, 0, 0, false},
    {8, "FXS_Equalizer_Panel", 159, 12, "Equalizer", 0, false, 1176, kEqualizerKnobs, kNoCombos, 0, 0, false},
    {9, "FXS_Flanger_Panel", 158, 13, "Flanger", 0, false, 1175, kFlangerKnobs, kFlangerCombos, 0, 0, false},
    {10, "FXS_VocalMorpher_Panel", 157, 14, "Vocal Morpher", 0, false, 1171, kVocalMorpherKnobs, kVocalMorpherCombos,
     0, 0, false},
    {11, "FXS_PitchShifter_Panel", 160, 15, "Pitch Shifter", 0, false, 1173, kPitchShifterKnobs, kNoCombos, 0, 0,
     false},
    {12, "FXS_RingModulator_Panel", 156, 16, "Ring Modulator", 0, false, 1172, kRingModulatorKnobs,
     kRingModulatorCombos, 0, 0, false},
    {13, "FXS_FrequencyShifter_Panel", 165, 17, "Frequency Shifter", 0, false, 1174, kFrequencyShifterKnobs,
     kFrequencyShifterCombos, 0, 0, false},
};
static_assert(std::size(kTables) == kEffectTypes - 1);

constexpr const char* kListTexts[kEffectTypes] = {
    "Empty (no effect)", "(EAX) Reverb", "Reverb", "AGC", "Autowah", "Chorus", "Distortion",
    "Echo", "Equalizer", "Flanger", "Vocal Morpher", "Pitch Shifter", "Ring Modulator", "Frequency Shifter",
};

// Each table stands at the position of its type.
constexpr bool TablesInTypeOrder()
{
    for (int i = 0; i < kEffectTypes - 1; ++i)
        if (kTables[i].type != i + 1)
            return false;
    return true;
}
static_assert(TablesInTypeOrder());

} // namespace

const EffectPanelTable* EffectPanelTableFor(int type)
{
    return type >= 1 && type < kEffectTypes ? &kTables[type - 1] : nullptr;
}

const char* EffectListText(int type)
{
    return type >= 0 && type < kEffectTypes ? kListTexts[type] : "";
}
