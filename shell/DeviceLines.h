#pragma once

#include "engine/DeviceInfo.h"

#include <string>
#include <vector>

// The capability lines shown under a device, in the order they appear: the number of sources,
// "supports EFX", the EAX versions supported, the EAX versions emulated.
std::vector<std::string> DeviceCapabilityLines(const DeviceInfo& device);

// The text of a tree item taken as a printf format with no arguments, as the device dialog takes a
// device's name: "%%" gives "%". A conversion that would read a missing argument is dropped instead.
std::string FormatWithoutArguments(const std::string& format);
