#pragma once

#include <cstdint>

// The slot number of an effect panel, by which it finds its values in the bridge's tables.
class NumberedSlot {
public:
    explicit NumberedSlot(std::int32_t slot) : SlotNumber(slot) {}
    virtual ~NumberedSlot() = default;

    std::int32_t SlotNumber;
};
