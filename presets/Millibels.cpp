#include "presets/Millibels.h"

#include <cmath>
#include <cstdint>
#include <limits>

float MillibelsToGain(float millibels)
{
    if (millibels == -10000.0f)
        return 0.0f;
    return std::pow(10.0f, millibels / 2000.0f);
}

float GainToMillibels(float gain)
{
    if (gain == 0.0f)
        return -10000.0f;
    if (!(gain >= 0.00001f))
        gain = 0.00001f;
    return std::log(gain) * 868.589f;
}

int GainToMillibelsInt(float gain)
{
    const float level = GainToMillibels(gain);
    // GainToMillibels never gives a NaN, as the floor of 0.00001 catches one. 2^31 is exactly
    // representable, and every float below it truncates into range.
    constexpr float kLimit = 2147483648.0f;
    if (level >= kLimit)
        return std::numeric_limits<std::int32_t>::max();
    if (level <= -kLimit)
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<int>(level);
}
