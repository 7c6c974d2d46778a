#include "presets/PresetNode.h"

std::uint32_t ParamValueSize(std::uint32_t type)
{
    switch (type) {
    case 0:
    case 1:
    case 2:
    case 4:
    case 5:
        return 4;
    case 3:
        return 12;
    default:
        return 0;
    }
}

std::size_t MultiStringLength(const char16_t* table, std::size_t capacity)
{
    std::size_t length = 0;
    while (length < capacity && table[length] != 0) {
        while (length < capacity && table[length] != 0)
            ++length;
        ++length; // the string's terminator
    }
    if (length < capacity)
        ++length; // the closing zero
    return length < capacity ? length : capacity;
}

std::size_t NameLength(const char16_t* name)
{
    std::size_t length = 0;
    while (length < kMaxNameLength && name[length] != 0)
        ++length;
    return length;
}
