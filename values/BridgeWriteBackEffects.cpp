// The write-back of the effect in a slot: each effect's properties in a fixed order into the
// slot's values, with a clamp where a knob's range is narrower than the engine's. The two reverbs
// also fill the response window's record, in millibels from the unclamped value, and the EAX
// reverb hands its pan vectors to the panner.
#include "engine/EFX_EffectSlot.h"
#include "values/BridgeState.h"
#include "values/BridgeWindows.h"
#include "values/CConvertNumeric.h"
#include "values/ReverbResponseParams.h"

#include <algorithm>
#include <span>

namespace {

using FloatGetter = int (EFX_EffectSlot::*)(float*);
using IntGetter = int (EFX_EffectSlot::*)(int*);
using Record = ReverbResponseParams;

// Where a read goes: a float, long or choice value of an effect; a float, a vector of three, or the
// high-frequency limit flag of a reverb.
enum class Into { Float, Long, Choice, ReverbFloat, ReverbVector, ReverbFlag };

struct EffectRead {
    Into into;
    int param;
    FloatGetter getFloat;
    IntGetter getInt;
    // The knob's range, where it is narrower than what the engine may hold.
    bool clamp;
    float low;
    float high;
    // The field of the response record that the value fills, if any, and how.
    std::int32_t Record::*millibels;
    float Record::*copy;
    float Record::*millibelsAsFloat;
    std::int32_t Record::*flag;
};

constexpr EffectRead F(int param, FloatGetter get)
{
    return {Into::Float, param, get, nullptr, false, 0, 0, nullptr, nullptr, nullptr, nullptr};
}

constexpr EffectRead Clamped(int param, FloatGetter get, float low, float high)
{
    return {Into::Float, param, get, nullptr, true, low, high, nullptr, nullptr, nullptr, nullptr};
}

constexpr EffectRead L(int param, IntGetter get)
{
    return {Into::Long, param, nullptr, get, false, 0, 0, nullptr, nullptr, nullptr, nullptr};
}

constexpr EffectRead C(int param, IntGetter get)
{
    return {Into::Choice, param, nullptr, get, false, 0, 0, nullptr, nullptr, nullptr, nullptr};
}

// Reverb rows: a gain clamped for its knob and given to the record in millibels.
constexpr EffectRead Gain(int param, FloatGetter get, float low, float high, std::int32_t Record::*field)
{
    return {Into::ReverbFloat, param, get, nullptr, true, low, high, field, nullptr, nullptr, nullptr};
}

// A reverb float, copied into the record when a field is named.
constexpr EffectRead RF(int param, FloatGetter get, float Record::*field = nullptr)
{
    return {Into::ReverbFloat, param, get, nullptr, false, 0, 0, nullptr, field, nullptr, nullptr};
}

// Air absorption: clamped for the knob; in the record as whole millibels held in a float.
constexpr EffectRead Air(int param, FloatGetter get)
{
    return {Into::ReverbFloat, param,   get,    nullptr, true, 0.892f, 1.0f, nullptr, nullptr,
            &Record::AirAbsorption, nullptr};
}

constexpr EffectRead Pan(int param, FloatGetter get)
{
    return {Into::ReverbVector, param, get, nullptr, false, 0, 0, nullptr, nullptr, nullptr, nullptr};
}

constexpr EffectRead Limit(IntGetter get)
{
    return {Into::ReverbFlag, 0, nullptr, get, false, 0, 0, nullptr, nullptr, nullptr, &Record::DecayHFLimit};
}

using S = EFX_EffectSlot;

// The first params of the EAX reverb's two pan vectors.
constexpr int kReflectionsPanParam = 6;
constexpr int kLatePanParam = 10;

constexpr EffectRead kEAXReverbReads[] = {
    Gain(21, &S::GetEAXReverbGain, 0.0f, 1.0f, &Record::Gain),
    Gain(22, &S::GetEAXReverbGainhf, 0.0f, 1.0f, &Record::GainHF),
    Gain(23, &S::GetEAXReverbGainlf, 0.0f, 1.0f, &Record::GainLF),
    Gain(24, &S::GetEAXReverbReflectionsGain, 0.0f, 3.16f, &Record::ReflectionsGain),
    Gain(25, &S::GetEAXReverbLateReverbGain, 0.0f, 10.0f, &Record::LateReverbGain),
    RF(0, &S::GetEAXReverbDensity),
    RF(1, &S::GetEAXReverbDiffusion),
    RF(2, &S::GetEAXReverbDecayTime, &Record::DecayTime),
    RF(3, &S::GetEAXReverbDecayHfratio, &Record::DecayHFRatio),
    RF(4, &S::GetEAXReverbDecayLfratio, &Record::DecayLFRatio),
    RF(5, &S::GetEAXReverbReflectionsDelay, &Record::ReflectionsDelay),
    Pan(kReflectionsPanParam, &S::GetEAXReverbReflectionsPan),
    RF(9, &S::GetEAXReverbLateReverbDelay, &Record::LateReverbDelay),
    Pan(kLatePanParam, &S::GetEAXReverbLateReverbPan),
    RF(13, &S::GetEAXReverbEchoTime),
    RF(14, &S::GetEAXReverbEchoDepth),
    RF(15, &S::GetEAXReverbModulationTime),
    RF(16, &S::GetEAXReverbModulationDepth),
    Air(17, &S::GetEAXReverbAirAbsorptionGainhf),
    RF(18, &S::GetEAXReverbHfreference, &Record::HFReference),
    RF(19, &S::GetEAXReverbLfreference, &Record::LFReference),
    RF(20, &S::GetEAXReverbRoomRolloffFactor),
    Limit(&S::GetEAXReverbDecayHflimit),
};
static_assert(std::size(kEAXReverbReads) == 23, "the EAX reverb has 23 properties");

constexpr EffectRead kReverbReads[] = {
    Gain(8, &S::GetReverbGain, 0.0f, 1.0f, &Record::Gain),
    Gain(9, &S::GetReverbGainhf, 0.0f, 1.0f, &Record::GainHF),
    Gain(10, &S::GetReverbReflectionsGain, 0.0f, 3.16f, &Record::ReflectionsGain),
    Gain(11, &S::GetReverbLateReverbGain, 0.0f, 10.0f, &Record::LateReverbGain),
    RF(0, &S::GetReverbDensity),
    RF(1, &S::GetReverbDiffusion),
    RF(2, &S::GetReverbDecayTime, &Record::DecayTime),
    RF(3, &S::GetReverbDecayHfratio, &Record::DecayHFRatio),
    RF(4, &S::GetReverbReflectionsDelay, &Record::ReflectionsDelay),
    RF(5, &S::GetReverbLateReverbDelay, &Record::LateReverbDelay),
    Air(6, &S::GetReverbAirAbsorptionGainhf),
    RF(7, &S::GetReverbRoomRolloffFactor),
    Limit(&S::GetReverbDecayHflimit),
};
static_assert(std::size(kReverbReads) == 13, "the reverb has 13 properties");

constexpr EffectRead kCompressorReads[] = {C(0, &S::GetCompressorOnoff)};
// The resonance knob ends at 2 and 1000, narrower than the engine.
constexpr EffectRead kAutowahReads[] = {
    F(0, &S::GetAutowahAttackTime),
    F(1, &S::GetAutowahReleaseTime),
    Clamped(3, &S::GetAutowahResonance, 2.0f, 1000.0f),
    F(2, &S::GetAutowahPeakGain),
};
constexpr EffectRead kChorusReads[] = {
    F(0, &S::GetChorusRate),     F(1, &S::GetChorusDepth), F(2, &S::GetChorusFeedback),
    F(3, &S::GetChorusDelay),    L(0, &S::GetChorusPhase), C(0, &S::GetChorusWaveform),
};
constexpr EffectRead kDistortionReads[] = {
    F(0, &S::GetDistortionEdge),        F(1, &S::GetDistortionLowpassCutoff), F(2, &S::GetDistortionEqcenter),
    F(3, &S::GetDistortionEqbandwidth), F(4, &S::GetDistortionGain),
};
constexpr EffectRead kEchoReads[] = {
    F(0, &S::GetEchoDelay),    F(1, &S::GetEchoLrdelay), F(2, &S::GetEchoDamping),
    F(3, &S::GetEchoFeedback), F(4, &S::GetEchoSpread),
};
constexpr EffectRead kEqualizerReads[] = {
    F(0, &S::GetEqualizerLowCutoff),  F(1, &S::GetEqualizerMid1Center), F(2, &S::GetEqualizerMid1Width),
    F(3, &S::GetEqualizerMid2Center), F(4, &S::GetEqualizerMid2Width),  F(5, &S::GetEqualizerHighCutoff),
    F(6, &S::GetEqualizerLowGain),    F(7, &S::GetEqualizerMid1Gain),   F(8, &S::GetEqualizerMid2Gain),
    F(9, &S::GetEqualizerHighGain),
};
constexpr EffectRead kFlangerReads[] = {
    F(0, &S::GetFlangerRate),  F(1, &S::GetFlangerDepth), F(2, &S::GetFlangerFeedback),
    F(3, &S::GetFlangerDelay), L(0, &S::GetFlangerPhase), C(0, &S::GetFlangerWaveform),
};
constexpr EffectRead kVocalMorpherReads[] = {
    F(0, &S::GetVocalMorpherRate),      L(0, &S::GetVocalMorpherPhonemeaCoarseTuning),
    L(1, &S::GetVocalMorpherPhonemebCoarseTuning), C(0, &S::GetVocalMorpherPhonemea),
    C(1, &S::GetVocalMorpherPhonemeb),  C(2, &S::GetVocalMorpherWaveform),
};
constexpr EffectRead kPitchShifterReads[] = {L(0, &S::GetPitchShifterCoarseTune), L(1, &S::GetPitchShifterFineTune)};
constexpr EffectRead kRingModulatorReads[] = {
    F(0, &S::GetRingModulatorFrequency),
    F(1, &S::GetRingModulatorHighpassCutoff),
    C(0, &S::GetRingModulatorWaveform),
};
constexpr EffectRead kFrequencyShifterReads[] = {
    F(0, &S::GetFrequencyShifterFrequency),
    C(0, &S::GetFrequencyShifterLeftDirection),
    C(1, &S::GetFrequencyShifterRightDirection),
};

// By effect type; the two reverbs go through their own write-backs.
const std::span<const EffectRead> kEffectReads[kNumEffectTypes] = {
    {},
    kEAXReverbReads,
    kReverbReads,
    kCompressorReads,
    kAutowahReads,
    kChorusReads,
    kDistortionReads,
    kEchoReads,
    kEqualizerReads,
    kFlangerReads,
    kVocalMorpherReads,
    kPitchShifterReads,
    kRingModulatorReads,
    kFrequencyShifterReads,
};

// What a reverb's reads give beside its values: the response record and the two pan vectors. The
// record is filled only while the response window is there to show it; a knob turn pays for its
// level conversions only then.
struct ReverbReadout {
    Record record;
    bool wantRecord = g_bridge.ResponseWindow != nullptr;
    float reflectionsPan[3] = {};
    float latePan[3] = {};
};

void AssignTo(CEFXFloatValObs* value, float read)
{
    if (value)
        value->Assign(read);
}

// One read into its value and, for the reverbs, into the record. Whether the read succeeded.
int ReadEffectRow(EFX_EffectSlot& object, int slot, const EffectRead& row, ReverbReadout& out)
{
    Record& record = out.record;
    BridgeValueTables& tables = BridgeTables();
    float read[3] = {};
    int whole = 0;
    const bool isFloat = row.getFloat != nullptr;
    if (!(isFloat ? (object.*row.getFloat)(read) : (object.*row.getInt)(&whole)))
        return 0;
    // The clamp serves the knob; the record takes the value as the engine gave it.
    const float forKnob = row.clamp ? std::clamp(read[0], row.low, row.high) : read[0];
    switch (row.into) {
    case Into::Float:
        AssignTo(tables.EffectValues[slot][row.param], forKnob);
        break;
    case Into::Long:
        if (CEFXLongValObs* value = tables.EffectLongValues[slot][row.param])
            value->Assign(whole);
        break;
    case Into::Choice:
        if (CSonopticCBoxDiscreteValObs* choice = tables.EffectChoices[slot][row.param])
            choice->SetSelection(whole);
        break;
    case Into::ReverbFloat:
        AssignTo(tables.ReverbValues[slot][row.param], forKnob);
        break;
    case Into::ReverbVector: {
        float* vector = row.param == kReflectionsPanParam ? out.reflectionsPan : out.latePan;
        for (int k = 0; k < 3; ++k) {
            vector[k] = read[k];
            AssignTo(tables.ReverbValues[slot][row.param + k], read[k]);
        }
        break;
    }
    case Into::ReverbFlag:
        if (CSonopticBoolValObs* flag = tables.ReverbHFLimitFlags[slot])
            flag->SetCheck(whole);
        break;
    }
    if (!out.wantRecord)
        return 1;
    if (row.millibels)
        record.*row.millibels = LevelToMillibels(read[0]);
    if (row.copy)
        record.*row.copy = read[0];
    if (row.millibelsAsFloat)
        record.*row.millibelsAsFloat = static_cast<float>(LevelToMillibels(read[0]));
    if (row.flag)
        record.*row.flag = whole;
    return 1;
}

void ReadEffect(UI_EFX_Bridge& bridge, EFX_EffectSlot& object, int slot, std::span<const EffectRead> reads,
                ReverbReadout& out)
{
    for (const EffectRead& row : reads) {
        if (!ReadEffectRow(object, slot, row, out))
            bridge.FlushSlotLog(slot);
        object.ClearLog(); // what the read left is shown by now, or not wanted
    }
}

// Whether the slot exists and holds this type; if not, its log is cleared unseen.
EFX_EffectSlot* SlotHolding(UI_EFX_Bridge& bridge, int slot, int type)
{
    EFX_EffectSlot* object = bridge_detail::SlotAt(slot);
    int actual = -1;
    if (!object || !object->GetEffect(&actual) || actual != type) {
        bridge.ClearSlotLog(slot);
        return nullptr;
    }
    return object;
}

} // namespace

int UI_EFX_Bridge::RefreshEAXReverb(int slot)
{
    EFX_EffectSlot* object = SlotHolding(*this, slot, kEffectEAXReverb);
    if (!object)
        return 0;
    ReverbReadout out;
    // A pan read that fails leaves the panner what the values held before.
    CEFXFloatValObs* const* values = BridgeTables().ReverbValues[slot];
    for (int k = 0; k < 3; ++k) {
        out.reflectionsPan[k] = values[kReflectionsPanParam + k]->Value;
        out.latePan[k] = values[kLatePanParam + k]->Value;
    }
    ReadEffect(*this, *object, slot, kEAXReverbReads, out);
    if (BridgePanner* panner = g_bridge.Panners[slot])
        panner->SetVectors(out.reflectionsPan, out.latePan);
    if (g_bridge.ResponseWindow)
        g_bridge.ResponseWindow->ShowParameters(slot, out.record);
    return 1;
}

int UI_EFX_Bridge::RefreshReverb(int slot)
{
    EFX_EffectSlot* object = SlotHolding(*this, slot, kEffectReverb);
    if (!object)
        return 0;
    ReverbReadout out;
    ReadEffect(*this, *object, slot, kReverbReads, out);
    if (!out.wantRecord)
        return 1;
    Record& record = out.record;
    // The standard reverb has no low band and no reference frequencies: the graph takes fixed ones.
    record.HFReference = 5000.0f;
    record.LFReference = 250.0f;
    record.DecayLFRatio = 1.0f;
    record.GainLF = LevelToMillibels(1.0f);
    g_bridge.ResponseWindow->ShowParameters(slot, record);
    return 1;
}

int UI_EFX_Bridge::RefreshEffectValues(int slot, int type)
{
    int actual = -1;
    if (!GetSlotEffect(slot, &actual)) {
        AddLogLine("Error querying slot effect type");
        ScrollLog();
        return 0;
    }
    if (actual != type) {
        AddLogLine("The effect currently in the slot is not of the expected type");
        ScrollLog();
        return 0;
    }
    return bridge_detail::WriteBackEffect(*this, slot, type);
}

int bridge_detail::WriteBackEffect(UI_EFX_Bridge& bridge, int slot, int type)
{
    switch (type) {
    case kEffectNone:
        return 1;
    case kEffectEAXReverb:
        return bridge.RefreshEAXReverb(slot);
    case kEffectReverb:
        return bridge.RefreshReverb(slot);
    default:
        break;
    }
    EFX_EffectSlot* object = SlotAt(slot);
    if (type < 0 || type >= kNumEffectTypes || !object)
        return 0;
    ReverbReadout unused;
    ReadEffect(bridge, *object, slot, kEffectReads[type], unused);
    return 1;
}
