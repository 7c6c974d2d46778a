#include "presets/PresetLabels.h"

#include <cstdint>

std::string NarrowLabel(const char16_t (&name)[kNameUnits])
{
    std::string text;
    for (std::size_t i = 0; i < kMaxNameLength; ++i) {
        const char narrow = static_cast<char>(name[i] & 0xFF);
        if (narrow == '\0')
            break;
        text.push_back(narrow);
    }
    return text;
}

void WidenLabel(const char* text, char16_t (&name)[kNameUnits])
{
    std::size_t i = 0;
    for (; i < kMaxNameLength && text[i] != '\0'; ++i) {
        const auto signedByte = static_cast<std::int8_t>(text[i]);
        name[i] = static_cast<char16_t>(static_cast<std::int16_t>(signedByte));
    }
    name[i] = 0;
}
