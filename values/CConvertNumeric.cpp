#include "values/CConvertNumeric.h"

#include <cmath>
#include <limits>

double CConvertNumericToLinearRange::ToLinear(double value) const
{
    if (value < Low)
        return (Low - Low) / (High - Low);
    if (value > High)
        return (High - Low) / (High - Low);
    return (value - Low) / (High - Low);
}

double CConvertNumericToLinearRange::FromLinear(double fraction) const
{
    const double value = (High - Low) * fraction + Low;
    if (value < Low)
        return Low;
    if (value > High)
        return High;
    return value;
}

std::int32_t LevelToMillibels(float gain)
{
    constexpr float kFloor = 0.00001f;
    constexpr float kMillibelsPerNeper = 868.589f;
    if (!(gain > kFloor))
        gain = kFloor;
    // An infinite gain has no millibel figure that a cast could take; it reads as the largest
    // finite gain does, about 77000. Every finite gain stays well inside the 32-bit range.
    if (std::isinf(gain))
        gain = std::numeric_limits<float>::max();
    const float millibels = std::log(gain) * kMillibelsPerNeper;
    return static_cast<std::int32_t>(millibels);
}

double PositionRangeExtent(double pixelsPerUnit)
{
    return 20.0 / pixelsPerUnit * 20.0;
}
