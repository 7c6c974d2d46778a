#pragma once

// The preset records of the twelve effects other than the EAX reverb, written once: each row is a
// field of the record (offset, type, conversion) and the engine property it holds. Capture, apply and
// the record sizes of the effect table all follow from these rows.

#include "presets/EAXReverbRecord.h"
#include "presets/EffectTable.h"
#include "presets/RecordField.h"
#include "presets/SlotProperty.h"

#include <cstdint>
#include <span>

struct EffectRecordRow {
    RecordField field;
    SlotAccessor property;
    // The Equalizer reads and sets its four gains before its other fields.
    bool gainFirst = false;
};

namespace preset_record {

using namespace slot_property;
using F = FieldType;
using C = Conversion;

inline constexpr EffectRecordRow kReverb[] = {
    {{0, F::F32, C::None}, kReverbDensity},
    {{4, F::F32, C::None}, kReverbDiffusion},
    {{8, F::I32, C::Millibels}, kReverbGain},
    {{12, F::I32, C::Millibels}, kReverbGainhf},
    {{16, F::F32, C::None}, kReverbDecayTime},
    {{20, F::F32, C::None}, kReverbDecayHfratio},
    {{24, F::I32, C::Millibels}, kReverbReflectionsGain},
    {{28, F::F32, C::None}, kReverbReflectionsDelay},
    {{32, F::I32, C::Millibels}, kReverbLateReverbGain},
    {{36, F::F32, C::None}, kReverbLateReverbDelay},
    {{40, F::F32, C::MillibelsFloat}, kReverbAirAbsorptionGainhf},
    {{44, F::F32, C::None}, kReverbRoomRolloffFactor},
    {{48, F::I32, C::None}, kReverbDecayHflimit},
};

inline constexpr EffectRecordRow kCompressor[] = {
    {{0, F::I32, C::OnOff}, kCompressorOnoff},
};

inline constexpr EffectRecordRow kAutowah[] = {
    {{0, F::F32, C::None}, kAutowahAttackTime},
    {{4, F::F32, C::None}, kAutowahReleaseTime},
    {{8, F::I32, C::Millibels}, kAutowahResonance},
    {{12, F::I32, C::Millibels}, kAutowahPeakGain},
};

inline constexpr EffectRecordRow kChorus[] = {
    {{0, F::I32, C::None}, kChorusWaveform},
    {{4, F::I32, C::None}, kChorusPhase},
    {{8, F::F32, C::None}, kChorusRate},
    {{12, F::F32, C::None}, kChorusDepth},
    {{16, F::F32, C::None}, kChorusFeedback},
    {{20, F::F32, C::None}, kChorusDelay},
};

inline constexpr EffectRecordRow kDistortion[] = {
    {{0, F::F32, C::None}, kDistortionEdge},
    {{4, F::I32, C::Millibels}, kDistortionGain},
    {{8, F::F32, C::None}, kDistortionLowpassCutoff},
    {{12, F::F32, C::None}, kDistortionEqcenter},
    {{16, F::F32, C::None}, kDistortionEqbandwidth},
};

inline constexpr EffectRecordRow kEcho[] = {
    {{0, F::F32, C::None}, kEchoDelay},
    {{4, F::F32, C::None}, kEchoLrdelay},
    {{8, F::F32, C::None}, kEchoDamping},
    {{12, F::F32, C::None}, kEchoFeedback},
    {{16, F::F32, C::None}, kEchoSpread},
};

inline constexpr EffectRecordRow kEqualizer[] = {
    {{0, F::I32, C::Millibels}, kEqualizerLowGain, true},
    {{4, F::F32, C::None}, kEqualizerLowCutoff},
    {{8, F::I32, C::Millibels}, kEqualizerMid1Gain, true},
    {{12, F::F32, C::None}, kEqualizerMid1Center},
    {{16, F::F32, C::None}, kEqualizerMid1Width},
    {{20, F::I32, C::Millibels}, kEqualizerMid2Gain, true},
    {{24, F::F32, C::None}, kEqualizerMid2Center},
    {{28, F::F32, C::None}, kEqualizerMid2Width},
    {{32, F::I32, C::Millibels}, kEqualizerHighGain, true},
    {{36, F::F32, C::None}, kEqualizerHighCutoff},
};

// The Chorus's layout; the waveform is captured but never applied (see Conversion::RefusedOnApply).
inline constexpr EffectRecordRow kFlanger[] = {
    {{0, F::I32, C::RefusedOnApply}, kFlangerWaveform},
    {{4, F::I32, C::None}, kFlangerPhase},
    {{8, F::F32, C::None}, kFlangerRate},
    {{12, F::F32, C::None}, kFlangerDepth},
    {{16, F::F32, C::None}, kFlangerFeedback},
    {{20, F::F32, C::None}, kFlangerDelay},
};

inline constexpr EffectRecordRow kFrequencyShifter[] = {
    {{0, F::F32, C::None}, kFrequencyShifterFrequency},
    {{4, F::I32, C::None}, kFrequencyShifterLeftDirection},
    {{8, F::I32, C::None}, kFrequencyShifterRightDirection},
};

inline constexpr EffectRecordRow kVocalMorpher[] = {
    {{0, F::I32, C::None}, kVocalMorpherPhonemea},
    {{4, F::I32, C::None}, kVocalMorpherPhonemeaCoarseTuning},
    {{8, F::I32, C::None}, kVocalMorpherPhonemeb},
    {{12, F::I32, C::None}, kVocalMorpherPhonemebCoarseTuning},
    {{16, F::I32, C::None}, kVocalMorpherWaveform},
    {{20, F::F32, C::None}, kVocalMorpherRate},
};

inline constexpr EffectRecordRow kPitchShifter[] = {
    {{0, F::I32, C::None}, kPitchShifterCoarseTune},
    {{4, F::I32, C::None}, kPitchShifterFineTune},
};

inline constexpr EffectRecordRow kRingModulator[] = {
    {{0, F::F32, C::None}, kRingModulatorFrequency},
    {{4, F::F32, C::None}, kRingModulatorHighpassCutoff},
    {{8, F::I32, C::None}, kRingModulatorWaveform},
};

// Whether a row's file type and conversion suit the kind of its engine property.
constexpr bool RowFitsProperty(const EffectRecordRow& row)
{
    const PropertyKind kind = row.property.kind;
    switch (row.field.conversion) {
    case C::Millibels:
        return row.field.type == F::I32 && kind == PropertyKind::Float;
    case C::MillibelsFloat:
        return row.field.type == F::F32 && kind == PropertyKind::Float;
    case C::OnOff:
    case C::RefusedOnApply:
        return row.field.type == F::I32 && kind != PropertyKind::Float && kind != PropertyKind::Vector;
    case C::None:
        if (row.field.type == F::F32)
            return kind == PropertyKind::Float;
        if (row.field.type == F::F32x3)
            return kind == PropertyKind::Vector;
        return row.field.type == F::I32 && (kind == PropertyKind::Long || kind == PropertyKind::Bool);
    default:
        return false; // the EAX reverb's own conversions have no place here
    }
}

} // namespace preset_record

// One effect's record: its rows and its size. The EAX reverb has no rows here; its record goes
// through EAXToEFXReverb and EFXToEAXReverb.
struct EffectRecordLayout {
    int effectType;
    std::span<const EffectRecordRow> rows;
    std::uint32_t size;
};

inline constexpr EffectRecordLayout kEffectRecords[] = {
    {kEffectEAXReverb, {}, kEAXReverbRecordSize},
    {kEffectReverb, preset_record::kReverb, 52},
    {kEffectCompressor, preset_record::kCompressor, 4},
    {kEffectAutowah, preset_record::kAutowah, 16},
    {kEffectChorus, preset_record::kChorus, 24},
    {kEffectDistortion, preset_record::kDistortion, 20},
    {kEffectEcho, preset_record::kEcho, 20},
    {kEffectEqualizer, preset_record::kEqualizer, 40},
    {kEffectFlanger, preset_record::kFlanger, 24},
    {kEffectFrequencyShifter, preset_record::kFrequencyShifter, 12},
    {kEffectVocalMorpher, preset_record::kVocalMorpher, 24},
    {kEffectPitchShifter, preset_record::kPitchShifter, 8},
    {kEffectRingModulator, preset_record::kRingModulator, 12},
};

// The layout of an EffectType; null for an empty slot or an unknown number.
constexpr const EffectRecordLayout* FindRecordLayout(int effectType)
{
    for (const EffectRecordLayout& layout : kEffectRecords)
        if (layout.effectType == effectType)
            return &layout;
    return nullptr;
}

// Every record tiles its size without gap, every row suits its property, and every size is the
// "psiz" of the effect's entry.
constexpr bool RecordLayoutsAgree()
{
    for (const EffectRecordLayout& layout : kEffectRecords) {
        if (layout.effectType != kEffectEAXReverb) {
            std::uint32_t next = 0;
            for (const EffectRecordRow& row : layout.rows) {
                if (row.field.offset != next || !preset_record::RowFitsProperty(row))
                    return false;
                next += FieldBytes(row.field.type);
            }
            if (next != layout.size)
                return false;
        }
        bool inTable = false;
        for (const EffectTableRow& entry : kEffectTable)
            if (entry.effectType == layout.effectType) {
                inTable = entry.descriptor.paramSize == layout.size;
                break;
            }
        if (!inTable)
            return false;
    }
    return std::size(kEffectRecords) == kEffectTableSize;
}
static_assert(RecordLayoutsAgree());
