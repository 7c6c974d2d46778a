#include "presets/PresetCapture.h"

#include "presets/ByteOrder.h"
#include "presets/EAXReverbRecord.h"
#include "presets/EffectTable.h"
#include "presets/Millibels.h"
#include "presets/PresetRecords.h"

#include <algorithm>
#include <cstring>

using namespace preset_bytes;

namespace {

// Any waveform that the engine refuses will do: one past the highest.
constexpr int kRefusedFlangerWaveform = AL_FLANGER_MAX_WAVEFORM + 1;

// A captured value into its field.
void StoreField(std::uint8_t* record, const RecordField& field, const SlotValue& value)
{
    std::uint8_t* word = record + field.offset;
    switch (field.conversion) {
    case Conversion::Millibels:
        StoreLEI32(word, GainToMillibelsInt(value.f[0]));
        return;
    case Conversion::MillibelsFloat:
        StoreLEF32(word, GainToMillibels(value.f[0]));
        return;
    case Conversion::OnOff:
        StoreLEI32(word, value.i != 0 ? 1 : 0);
        return;
    default:
        break;
    }
    if (field.type == FieldType::I32 || field.type == FieldType::U32)
        StoreLEI32(word, value.i);
    else
        for (std::uint32_t i = 0; i < FieldBytes(field.type) / 4; ++i)
            StoreLEF32(word + 4 * i, value.f[i]);
}

// A field into the value that its setter takes.
SlotValue LoadField(const std::uint8_t* record, const RecordField& field)
{
    const std::uint8_t* word = record + field.offset;
    SlotValue value;
    switch (field.conversion) {
    case Conversion::Millibels:
        value.f[0] = MillibelsToGain(static_cast<float>(LoadLEI32(word)));
        return value;
    case Conversion::MillibelsFloat:
        value.f[0] = MillibelsToGain(LoadLEF32(word));
        return value;
    case Conversion::RefusedOnApply:
        value.i = kRefusedFlangerWaveform;
        return value;
    default:
        break;
    }
    if (field.type == FieldType::I32 || field.type == FieldType::U32)
        value.i = LoadLEI32(word);
    else
        for (std::uint32_t i = 0; i < FieldBytes(field.type) / 4; ++i)
            value.f[i] = LoadLEF32(word + 4 * i);
    return value;
}

// The rows in their call order: the gains marked to go first, then the rest, each in field order.
template <typename Visit>
void ForEachRowInCallOrder(const EffectRecordLayout& layout, Visit visit)
{
    for (const bool firstPass : {true, false})
        for (const EffectRecordRow& row : layout.rows)
            if (row.gainFirst == firstPass)
                visit(row);
}

void CaptureEAXReverb(EFX_Factory& factory, std::uint32_t slotIndex, std::uint8_t* record)
{
    EAXReverbValues values{};
    for (const EAXEngineRow& row : kEAXReverbEngine) {
        EFX_EffectSlot* slot = factory.GetEffectSlot(slotIndex);
        if (!slot)
            continue;
        SlotValue value;
        GetSlotProperty(*slot, row.property, value);
        StoreEAXValue(row.property, value, values, row.captureValue);
    }
    EFXToEAXReverb(values, record);
}

} // namespace

std::vector<std::uint8_t> CaptureRecord(EFX_Factory& factory, std::uint32_t slotIndex, int effectType)
{
    const EffectRecordLayout* layout = FindRecordLayout(effectType);
    if (!layout)
        return {};
    std::vector<std::uint8_t> record(layout->size, 0);
    if (effectType == kEffectEAXReverb) {
        CaptureEAXReverb(factory, slotIndex, record.data());
        return record;
    }
    ForEachRowInCallOrder(*layout, [&](const EffectRecordRow& row) {
        EFX_EffectSlot* slot = factory.GetEffectSlot(slotIndex);
        if (!slot)
            return;
        SlotValue value;
        GetSlotProperty(*slot, row.property, value);
        StoreField(record.data(), row.field, value);
    });
    return record;
}

void ForEachPresetValue(const EffectGuid& guid, const std::uint8_t* data, std::uint32_t size,
                        const std::function<void(const SlotAccessor&, const SlotValue&)>& visit)
{
    const EffectTableRow* entry = FindEffectRowByGuid(guid);
    if (!entry)
        return;
    const EffectRecordLayout* layout = FindRecordLayout(entry->effectType);
    // A record shorter than its effect's is read as if zero-filled to full length: reading its
    // missing words would run past the block.
    std::vector<std::uint8_t> record(layout->size, 0);
    if (data)
        std::memcpy(record.data(), data, std::min(size, layout->size));

    if (entry->effectType == kEffectEAXReverb) {
        const EAXReverbValues values = EAXToEFXReverb(record.data());
        for (const EAXEngineRow& row : kEAXReverbEngine)
            visit(row.property, EAXValueAt(row.property, values, row.applyValue));
        return;
    }
    ForEachRowInCallOrder(*layout, [&](const EffectRecordRow& row) { visit(row.property, LoadField(record.data(), row.field)); });
}

void ApplyPreset(EFX_Factory& factory, std::uint32_t slotIndex, const EffectGuid& guid, const std::uint8_t* data,
                 std::uint32_t size)
{
    ForEachPresetValue(guid, data, size, [&](const SlotAccessor& property, const SlotValue& value) {
        if (EFX_EffectSlot* slot = factory.GetEffectSlot(slotIndex))
            SetSlotProperty(*slot, property, value);
    });
}
