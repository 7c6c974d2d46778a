#pragma once

// The EAX Reverb preset record: the EAX listener property set in 112 bytes, and its conversion to and
// from the engine's 27 values. The record's units differ from the engine's: room size instead of
// density, levels in millibels, and the HF limit as a flag bit.

#include "presets/RecordField.h"
#include "presets/SlotProperty.h"

#include <array>
#include <cstdint>
#include <iterator>

inline constexpr std::uint32_t kEAXReverbRecordSize = 112;

// The engine's values of an EAX reverb, one float each, the pans three; the HF limit is 0.0 or 1.0.
namespace eax_value {
enum : int {
    kDensity,
    kDiffusion,
    kGain,
    kGainHF,
    kGainLF,
    kDecayTime,
    kDecayHFRatio,
    kDecayLFRatio,
    kReflectionsGain,
    kReflectionsDelay,
    kReflectionsPan,
    kLateReverbGain = kReflectionsPan + 3,
    kLateReverbDelay,
    kLateReverbPan,
    kEchoTime = kLateReverbPan + 3,
    kEchoDepth,
    kModulationTime,
    kModulationDepth,
    kAirAbsorptionGainHF,
    kHFReference,
    kLFReference,
    kRoomRolloffFactor,
    kDecayHFLimit,
    kCount,
};
} // namespace eax_value
static_assert(eax_value::kCount == 27);

using EAXReverbValues = std::array<float, eax_value::kCount>;

struct EAXRecordRow {
    RecordField field;
    int value; // index into EAXReverbValues; -1 for Environment
};

// The record, field by field: Environment, EnvironmentSize, EnvironmentDiffusion, Room, RoomHF,
// RoomLF, DecayTime, DecayHFRatio, DecayLFRatio, Reflections, ReflectionsDelay, ReflectionsPan,
// Reverb, ReverbDelay, ReverbPan, EchoTime, EchoDepth, ModulationTime, ModulationDepth,
// AirAbsorptionHF, HFReference, LFReference, RoomRolloffFactor, Flags.
inline constexpr EAXRecordRow kEAXReverbRecord[] = {
    {{0, FieldType::U32, Conversion::Unused}, -1},
    {{4, FieldType::F32, Conversion::EnvironmentSize}, eax_value::kDensity},
    {{8, FieldType::F32, Conversion::None}, eax_value::kDiffusion},
    {{12, FieldType::I32, Conversion::Millibels}, eax_value::kGain},
    {{16, FieldType::I32, Conversion::Millibels}, eax_value::kGainHF},
    {{20, FieldType::I32, Conversion::Millibels}, eax_value::kGainLF},
    {{24, FieldType::F32, Conversion::None}, eax_value::kDecayTime},
    {{28, FieldType::F32, Conversion::None}, eax_value::kDecayHFRatio},
    {{32, FieldType::F32, Conversion::None}, eax_value::kDecayLFRatio},
    {{36, FieldType::I32, Conversion::Millibels}, eax_value::kReflectionsGain},
    {{40, FieldType::F32, Conversion::None}, eax_value::kReflectionsDelay},
    {{44, FieldType::F32x3, Conversion::None}, eax_value::kReflectionsPan},
    {{56, FieldType::I32, Conversion::Millibels}, eax_value::kLateReverbGain},
    {{60, FieldType::F32, Conversion::None}, eax_value::kLateReverbDelay},
    {{64, FieldType::F32x3, Conversion::None}, eax_value::kLateReverbPan},
    {{76, FieldType::F32, Conversion::None}, eax_value::kEchoTime},
    {{80, FieldType::F32, Conversion::None}, eax_value::kEchoDepth},
    {{84, FieldType::F32, Conversion::None}, eax_value::kModulationTime},
    {{88, FieldType::F32, Conversion::None}, eax_value::kModulationDepth},
    {{92, FieldType::F32, Conversion::MillibelsFloat}, eax_value::kAirAbsorptionGainHF},
    {{96, FieldType::F32, Conversion::None}, eax_value::kHFReference},
    {{100, FieldType::F32, Conversion::None}, eax_value::kLFReference},
    {{104, FieldType::F32, Conversion::None}, eax_value::kRoomRolloffFactor},
    {{108, FieldType::U32, Conversion::HFLimitFlags}, eax_value::kDecayHFLimit},
};
static_assert(FieldsTile(kEAXReverbRecord, kEAXReverbRecordSize));

// The engine side: one getter and one setter per row, in this order. A capture reads each value into
// captureValue, an apply sets it from applyValue. The two pans are read one place too late on
// purpose, each into the three words after its own: the reflections pan lands on the late gain, the
// late delay and the late pan's x, the late pan on the echo time, echo depth and modulation time.
// The values read afterwards overwrite all but the reflections pan's z, which stays as the late
// pan's x; the record's other pan words are left as the capture found them.
struct EAXEngineRow {
    SlotAccessor property;
    int captureValue;
    int applyValue;
};

inline constexpr EAXEngineRow kEAXReverbEngine[] = {
    {slot_property::kEAXReverbDensity, eax_value::kDensity, eax_value::kDensity},
    {slot_property::kEAXReverbDiffusion, eax_value::kDiffusion, eax_value::kDiffusion},
    {slot_property::kEAXReverbGain, eax_value::kGain, eax_value::kGain},
    {slot_property::kEAXReverbGainhf, eax_value::kGainHF, eax_value::kGainHF},
    {slot_property::kEAXReverbGainlf, eax_value::kGainLF, eax_value::kGainLF},
    {slot_property::kEAXReverbDecayTime, eax_value::kDecayTime, eax_value::kDecayTime},
    {slot_property::kEAXReverbDecayHfratio, eax_value::kDecayHFRatio, eax_value::kDecayHFRatio},
    {slot_property::kEAXReverbDecayLfratio, eax_value::kDecayLFRatio, eax_value::kDecayLFRatio},
    {slot_property::kEAXReverbReflectionsGain, eax_value::kReflectionsGain, eax_value::kReflectionsGain},
    {slot_property::kEAXReverbReflectionsDelay, eax_value::kReflectionsDelay, eax_value::kReflectionsDelay},
    {slot_property::kEAXReverbReflectionsPan, eax_value::kReflectionsPan + 3, eax_value::kReflectionsPan},
    {slot_property::kEAXReverbLateReverbGain, eax_value::kLateReverbGain, eax_value::kLateReverbGain},
    {slot_property::kEAXReverbLateReverbDelay, eax_value::kLateReverbDelay, eax_value::kLateReverbDelay},
    {slot_property::kEAXReverbLateReverbPan, eax_value::kLateReverbPan + 3, eax_value::kLateReverbPan},
    {slot_property::kEAXReverbEchoTime, eax_value::kEchoTime, eax_value::kEchoTime},
    {slot_property::kEAXReverbEchoDepth, eax_value::kEchoDepth, eax_value::kEchoDepth},
    {slot_property::kEAXReverbModulationTime, eax_value::kModulationTime, eax_value::kModulationTime},
    {slot_property::kEAXReverbModulationDepth, eax_value::kModulationDepth, eax_value::kModulationDepth},
    {slot_property::kEAXReverbAirAbsorptionGainhf, eax_value::kAirAbsorptionGainHF,
     eax_value::kAirAbsorptionGainHF},
    {slot_property::kEAXReverbHfreference, eax_value::kHFReference, eax_value::kHFReference},
    {slot_property::kEAXReverbLfreference, eax_value::kLFReference, eax_value::kLFReference},
    {slot_property::kEAXReverbRoomRolloffFactor, eax_value::kRoomRolloffFactor, eax_value::kRoomRolloffFactor},
    {slot_property::kEAXReverbDecayHflimit, eax_value::kDecayHFLimit, eax_value::kDecayHFLimit},
};
static_assert(std::size(kEAXReverbEngine) == 23);

// A vector row must have room for three values wherever the capture puts them.
constexpr bool EAXEngineRowsFit()
{
    for (const EAXEngineRow& row : kEAXReverbEngine) {
        const int width = row.property.kind == PropertyKind::Vector ? 3 : 1;
        if (row.captureValue + width > eax_value::kCount || row.applyValue + width > eax_value::kCount)
            return false;
    }
    return true;
}
static_assert(EAXEngineRowsFit());

// One property's value as a setter takes it, from the engine values at `index` (three of them for a
// vector); and a getter's value put back there.
SlotValue EAXValueAt(const SlotAccessor& property, const EAXReverbValues& values, int index);
void StoreEAXValue(const SlotAccessor& property, const SlotValue& value, EAXReverbValues& values, int index);

// The engine's values from a 112-byte record: room size cubed x 0.0625 (at most 1.0) as density,
// levels through MillibelsToGain, the HF limit from bit 5 of Flags; the rest unchanged.
EAXReverbValues EAXToEFXReverb(const std::uint8_t* record);

// The other way, into a 112-byte record. Environment is not written. Density goes to the room size
// as (density x 16)^0.333, at least 1.0, with -10000000 below 0 and 10000000 above 1.0; the exponent
// is 0.333 and not a third, so a density of 1.0 comes back as 0.99723.
void EFXToEAXReverb(const EAXReverbValues& values, std::uint8_t* record);
