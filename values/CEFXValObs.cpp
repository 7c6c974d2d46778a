#include "values/CEFXValObs.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

// Truncation towards zero, as a cast does. A double beyond the 32-bit range, or not a number,
// cannot be cast in C++ without undefined behaviour: such a value goes to the nearest end of the
// range, and NaN to 0. No control produces either.
std::int32_t TruncateToLong(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (value <= lowest)
        return std::numeric_limits<std::int32_t>::min();
    if (value >= highest)
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

} // namespace

const char* FloatValueFormat(int decimals)
{
    switch (decimals) {
    case 1:
        return "%2.1f";
    case 3:
        return "%2.3f";
    case 4:
        return "%2.4f";
    default:
        return "%2.2f";
    }
}

void COrvexObservableFloat::SetValue(double value)
{
    SetFloat(static_cast<float>(value));
}

void COrvexObservableFloat::SetFloat(float value)
{
    Assign(value);
    if (!Suppressed && Callback)
        Callback->OnValueChanged(this, Kind, Category, Index, Param, Extra);
}

void COrvexObservableLong::SetValue(double value)
{
    SetLong(TruncateToLong(value));
}

void COrvexObservableLong::SetLong(std::int32_t value)
{
    Assign(value);
    if (!Suppressed && Callback)
        Callback->OnValueChanged(this, Kind, Category, Index, Param, Extra);
}

bool CEFXFloatValObs::GetValueText(char* buffer, int decimals) const
{
    std::memset(buffer, 0, kValueTextSize);
    std::snprintf(buffer, kValueTextSize, FloatValueFormat(decimals), static_cast<double>(Value));
    return true;
}

bool CEFXLongValObs::GetValueText(char* buffer, int) const
{
    std::memset(buffer, 0, kValueTextSize);
    std::snprintf(buffer, kValueTextSize, "%d", static_cast<int>(Value));
    return true;
}
