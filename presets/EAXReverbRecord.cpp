#include "presets/EAXReverbRecord.h"

#include "presets/ByteOrder.h"
#include "presets/Millibels.h"

#include <algorithm>
#include <cmath>

using namespace preset_bytes;

namespace {

constexpr std::uint32_t kHFLimitFlag = 32; // bit 5 of Flags

float DensityFromEnvironmentSize(float size)
{
    // The cube goes through the power function, as it always has.
    return std::min(std::pow(size, 3.0f) * 0.0625f, 1.0f);
}

float EnvironmentSizeFromDensity(float density)
{
    if (density < 0.0f)
        return -10000000.0f;
    if (density > 1.0f)
        return 10000000.0f;
    // 0.333 rather than a third, and the floor of 1.0 makes every density below 0.0625 come back as
    // 0.0625. Both are how presets have always been stored.
    return std::max(std::pow(density * 16.0f, 0.333f), 1.0f);
}

} // namespace

EAXReverbValues EAXToEFXReverb(const std::uint8_t* record)
{
    EAXReverbValues values{};
    for (const EAXRecordRow& row : kEAXReverbRecord) {
        const std::uint8_t* word = record + row.field.offset;
        switch (row.field.conversion) {
        case Conversion::Unused:
            break;
        case Conversion::EnvironmentSize:
            values[row.value] = DensityFromEnvironmentSize(LoadLEF32(word));
            break;
        case Conversion::Millibels:
            values[row.value] = MillibelsToGain(static_cast<float>(LoadLEI32(word)));
            break;
        case Conversion::MillibelsFloat:
            values[row.value] = MillibelsToGain(LoadLEF32(word));
            break;
        case Conversion::HFLimitFlags:
            values[row.value] = (LoadLE32(word) & kHFLimitFlag) ? 1.0f : 0.0f;
            break;
        default:
            for (std::uint32_t i = 0; i < FieldBytes(row.field.type) / 4; ++i)
                values[row.value + i] = LoadLEF32(word + 4 * i);
        }
    }
    return values;
}

void EFXToEAXReverb(const EAXReverbValues& values, std::uint8_t* record)
{
    for (const EAXRecordRow& row : kEAXReverbRecord) {
        std::uint8_t* word = record + row.field.offset;
        switch (row.field.conversion) {
        case Conversion::Unused:
            break;
        case Conversion::EnvironmentSize:
            StoreLEF32(word, EnvironmentSizeFromDensity(values[row.value]));
            break;
        case Conversion::Millibels:
            StoreLEI32(word, GainToMillibelsInt(values[row.value]));
            break;
        case Conversion::MillibelsFloat:
            StoreLEF32(word, GainToMillibels(values[row.value]));
            break;
        case Conversion::HFLimitFlags:
            StoreLE32(word, values[row.value] == 1.0f ? kHFLimitFlag : 0);
            break;
        default:
            for (std::uint32_t i = 0; i < FieldBytes(row.field.type) / 4; ++i)
                StoreLEF32(word + 4 * i, values[row.value + i]);
        }
    }
}

SlotValue EAXValueAt(const SlotAccessor& property, const EAXReverbValues& values, int index)
{
    SlotValue value;
    if (property.kind == PropertyKind::Vector)
        std::copy_n(values.begin() + index, 3, value.f);
    else if (property.kind == PropertyKind::Float)
        value.f[0] = values[index];
    else
        value.i = static_cast<int>(values[index]);
    return value;
}

void StoreEAXValue(const SlotAccessor& property, const SlotValue& value, EAXReverbValues& values, int index)
{
    if (property.kind == PropertyKind::Vector)
        std::copy_n(value.f, 3, values.begin() + index);
    else if (property.kind == PropertyKind::Float)
        values[index] = value.f[0];
    else
        values[index] = static_cast<float>(value.i);
}
