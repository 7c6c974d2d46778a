#include "shell/DeviceLines.h"

#include <cstring>

namespace {

struct EAXWord {
    std::uint32_t bit;
    const char* word;
};

constexpr EAXWord kEAXWords[] = {
    {DeviceInfo::kEAX20, "2.0 "},
    {DeviceInfo::kEAX30, "3.0 "},
    {DeviceInfo::kEAX40, "4.0 "},
    {DeviceInfo::kEAX50, "5.0 "},
};

std::string EAXVersions(const char* prefix, std::uint32_t bits)
{
    std::string line = prefix;
    for (const EAXWord& word : kEAXWords) {
        if (bits & word.bit)
            line += word.word;
    }
    return line;
}

} // namespace

std::vector<std::string> DeviceCapabilityLines(const DeviceInfo& device)
{
    std::vector<std::string> lines;
    lines.push_back("up to " + std::to_string(device.maxSources) + " sources");
    if (device.hasEFX)
        lines.push_back("supports EFX");
    lines.push_back(device.eaxSupported ? EAXVersions("supports EAX ", device.eaxSupported)
                                        : std::string("doesn't support any EAX version"));
    if (device.eaxEmulated)
        lines.push_back(EAXVersions("emulates EAX ", device.eaxEmulated));
    return lines;
}

std::string FormatWithoutArguments(const std::string& format)
{
    // Characters that may stand between '%' and its conversion letter.
    constexpr const char* kModifiers = "-+ #0123456789.*hlLqjzt'";
    std::string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text += format[i];
            continue;
        }
        std::size_t end = i + 1;
        while (end < format.size() && std::strchr(kModifiers, format[end]))
            ++end;
        if (end < format.size() && format[end] == '%')
            text += '%';
        i = end;
    }
    return text;
}
