// The identifier table of the effects in a slot, categories 5 to 17: kind, param, and the setter of
// the EFX_EffectSlot that they name. Category c holds effect type c - 4.
#include "engine/EFX_EffectSlot.h"
#include "values/BridgeDispatch.h"
#include "values/BridgeState.h"

using namespace bridge_dispatch;

namespace {

// A pan vector of the EAX reverb, params First to First + 2 of the slot's reverb values.
template <int (EFX_EffectSlot::*Set)(const float*), int First>
int ReverbPan(const ValueChange& change)
{
    EFX_EffectSlot* slot = bridge_detail::SlotAt(change.index);
    if (!slot)
        return 0;
    float vector[3];
    NeighbourVector(&BridgeTables().ReverbValues[change.index][First], First, change, vector);
    return (slot->*Set)(vector);
}

using S = EFX_EffectSlot;

constexpr DispatchRow kEffectRows[] = {
    // 5: EAX reverb.
    {5, 0, 0, &SlotSet<&S::SetEAXReverbDensity>},
    {5, 0, 1, &SlotSet<&S::SetEAXReverbDiffusion>},
    {5, 0, 2, &SlotSet<&S::SetEAXReverbDecayTime>},
    {5, 0, 3, &SlotSet<&S::SetEAXReverbDecayHfratio>},
    {5, 0, 4, &SlotSet<&S::SetEAXReverbDecayLfratio>},
    {5, 0, 5, &SlotSet<&S::SetEAXReverbReflectionsDelay>},
    {5, 0, 6, &ReverbPan<&S::SetEAXReverbReflectionsPan, 6>},
    {5, 0, 7, &ReverbPan<&S::SetEAXReverbReflectionsPan, 6>},
    {5, 0, 8, &ReverbPan<&S::SetEAXReverbReflectionsPan, 6>},
    {5, 0, 9, &SlotSet<&S::SetEAXReverbLateReverbDelay>},
    {5, 0, 10, &ReverbPan<&S::SetEAXReverbLateReverbPan, 10>},
    {5, 0, 11, &ReverbPan<&S::SetEAXReverbLateReverbPan, 10>},
    {5, 0, 12, &ReverbPan<&S::SetEAXReverbLateReverbPan, 10>},
    {5, 0, 13, &SlotSet<&S::SetEAXReverbEchoTime>},
    {5, 0, 14, &SlotSet<&S::SetEAXReverbEchoDepth>},
    {5, 0, 15, &SlotSet<&S::SetEAXReverbModulationTime>},
    {5, 0, 16, &SlotSet<&S::SetEAXReverbModulationDepth>},
    {5, 0, 17, &SlotSet<&S::SetEAXReverbAirAbsorptionGainhf>},
    {5, 0, 18, &SlotSet<&S::SetEAXReverbHfreference>},
    {5, 0, 19, &SlotSet<&S::SetEAXReverbLfreference>},
    {5, 0, 20, &SlotSet<&S::SetEAXReverbRoomRolloffFactor>},
    {5, 0, 21, &SlotSet<&S::SetEAXReverbGain>},
    {5, 0, 22, &SlotSet<&S::SetEAXReverbGainhf>},
    {5, 0, 23, &SlotSet<&S::SetEAXReverbGainlf>},
    {5, 0, 24, &SlotSet<&S::SetEAXReverbReflectionsGain>},
    {5, 0, 25, &SlotSet<&S::SetEAXReverbLateReverbGain>},
    {5, 2, 0, &SlotSet<&S::SetEAXReverbDecayHflimit>},

    // 6: reverb.
    {6, 0, 0, &SlotSet<&S::SetReverbDensity>},
    {6, 0, 1, &SlotSet<&S::SetReverbDiffusion>},
    {6, 0, 2, &SlotSet<&S::SetReverbDecayTime>},
    {6, 0, 3, &SlotSet<&S::SetReverbDecayHfratio>},
    {6, 0, 4, &SlotSet<&S::SetReverbReflectionsDelay>},
    {6, 0, 5, &SlotSet<&S::SetReverbLateReverbDelay>},
    {6, 0, 6, &SlotSet<&S::SetReverbAirAbsorptionGainhf>},
    {6, 0, 7, &SlotSet<&S::SetReverbRoomRolloffFactor>},
    {6, 0, 8, &SlotSet<&S::SetReverbGain>},
    {6, 0, 9, &SlotSet<&S::SetReverbGainhf>},
    {6, 0, 10, &SlotSet<&S::SetReverbReflectionsGain>},
    {6, 0, 11, &SlotSet<&S::SetReverbLateReverbGain>},
    {6, 2, 0, &SlotSet<&S::SetReverbDecayHflimit>},

    // 7: AGC compressor.
    {7, 3, 0, &SlotSet<&S::SetCompressorOnoff>},

    // 8: autowah.
    {8, 0, 0, &SlotSet<&S::SetAutowahAttackTime>},
    {8, 0, 1, &SlotSet<&S::SetAutowahReleaseTime>},
    {8, 0, 2, &SlotSet<&S::SetAutowahPeakGain>},
    {8, 0, 3, &SlotSet<&S::SetAutowahResonance>},

    // 9: chorus.
    {9, 0, 0, &SlotSet<&S::SetChorusRate>},
    {9, 0, 1, &SlotSet<&S::SetChorusDepth>},
    {9, 0, 2, &SlotSet<&S::SetChorusFeedback>},
    {9, 0, 3, &SlotSet<&S::SetChorusDelay>},
    {9, 1, 0, &SlotSet<&S::SetChorusPhase>},
    {9, 3, 0, &SlotSet<&S::SetChorusWaveform>},

    // 10: distortion.
    {10, 0, 0, &SlotSet<&S::SetDistortionEdge>},
    {10, 0, 1, &SlotSet<&S::SetDistortionLowpassCutoff>},
    {10, 0, 2, &SlotSet<&S::SetDistortionEqcenter>},
    {10, 0, 3, &SlotSet<&S::SetDistortionEqbandwidth>},
    {10, 0, 4, &SlotSet<&S::SetDistortionGain>},

    // 11: echo.
    {11, 0, 0, &SlotSet<&S::SetEchoDelay>},
    {11, 0, 1, &SlotSet<&S::SetEchoLrdelay>},
    {11, 0, 2, &SlotSet<&S::SetEchoDamping>},
    {11, 0, 3, &SlotSet<&S::SetEchoFeedback>},
    {11, 0, 4, &SlotSet<&S::SetEchoSpread>},

    // 12: equalizer.
    {12, 0, 0, &SlotSet<&S::SetEqualizerLowCutoff>},
    {12, 0, 1, &SlotSet<&S::SetEqualizerMid1Center>},
    {12, 0, 2, &SlotSet<&S::SetEqualizerMid1Width>},
    {12, 0, 3, &SlotSet<&S::SetEqualizerMid2Center>},
    {12, 0, 4, &SlotSet<&S::SetEqualizerMid2Width>},
    {12, 0, 5, &SlotSet<&S::SetEqualizerHighCutoff>},
    {12, 0, 6, &SlotSet<&S::SetEqualizerLowGain>},
    {12, 0, 7, &SlotSet<&S::SetEqualizerMid1Gain>},
    {12, 0, 8, &SlotSet<&S::SetEqualizerMid2Gain>},
    {12, 0, 9, &SlotSet<&S::SetEqualizerHighGain>},

    // 13: flanger.
    {13, 0, 0, &SlotSet<&S::SetFlangerRate>},
    {13, 0, 1, &SlotSet<&S::SetFlangerDepth>},
    {13, 0, 2, &SlotSet<&S::SetFlangerFeedback>},
    {13, 0, 3, &SlotSet<&S::SetFlangerDelay>},
    {13, 1, 0, &SlotSet<&S::SetFlangerPhase>},
    {13, 3, 0, &SlotSet<&S::SetFlangerWaveform>},

    // 14: vocal morpher.
    {14, 0, 0, &SlotSet<&S::SetVocalMorpherRate>},
    {14, 1, 0, &SlotSet<&S::SetVocalMorpherPhonemeaCoarseTuning>},
    {14, 1, 1, &SlotSet<&S::SetVocalMorpherPhonemebCoarseTuning>},
    {14, 3, 0, &SlotSet<&S::SetVocalMorpherPhonemea>},
    {14, 3, 1, &SlotSet<&S::SetVocalMorpherPhonemeb>},
    {14, 3, 2, &SlotSet<&S::SetVocalMorpherWaveform>},

    // 15: pitch shifter.
    {15, 1, 0, &SlotSet<&S::SetPitchShifterCoarseTune>},
    {15, 1, 1, &SlotSet<&S::SetPitchShifterFineTune>},

    // 16: ring modulator.
    {16, 0, 0, &SlotSet<&S::SetRingModulatorFrequency>},
    {16, 0, 1, &SlotSet<&S::SetRingModulatorHighpassCutoff>},
    {16, 3, 0, &SlotSet<&S::SetRingModulatorWaveform>},

    // 17: frequency shifter.
    {17, 0, 0, &SlotSet<&S::SetFrequencyShifterFrequency>},
    {17, 3, 0, &SlotSet<&S::SetFrequencyShifterLeftDirection>},
    {17, 3, 1, &SlotSet<&S::SetFrequencyShifterRightDirection>},
};

} // namespace

std::span<const DispatchRow> bridge_dispatch::EffectRows()
{
    return kEffectRows;
}
