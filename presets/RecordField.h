#pragma once

// One word (or three) of a preset record: where it sits, what it is in the file, and how it turns into
// the engine's value. Records are plain arrays of little-endian 32-bit words.

#include <cstddef>
#include <cstdint>

enum class FieldType { U32, I32, F32, F32x3 };

enum class Conversion {
    None,
    Millibels,       // i32 level in the record, linear gain in the engine (cut towards zero on capture)
    MillibelsFloat,  // f32 level in the record, linear gain in the engine
    OnOff,           // i32 switch: a capture stores exactly 0 or 1, whatever non-zero the engine gave
    RefusedOnApply,  // captured as it is; applying sends a value out of range, which the engine refuses
    EnvironmentSize, // EAX reverb: the room size that stands for the density
    HFLimitFlags,    // EAX reverb: bit 5 of Flags is the decay HF limit
    Unused,          // EAX reverb: Environment, neither read on load nor written by the conversion
};

struct RecordField {
    std::uint32_t offset;
    FieldType type;
    Conversion conversion;
};

constexpr std::uint32_t FieldBytes(FieldType type)
{
    return type == FieldType::F32x3 ? 12 : 4;
}

// Whether fields follow each other without gap from offset 0 and end at `size`.
template <typename Row, std::size_t N>
constexpr bool FieldsTile(const Row (&rows)[N], std::uint32_t size)
{
    std::uint32_t next = 0;
    for (const Row& row : rows) {
        if (row.field.offset != next)
            return false;
        next += FieldBytes(row.field.type);
    }
    return next == size;
}
