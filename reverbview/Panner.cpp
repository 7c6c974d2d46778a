#include "reverbview/Panner.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// The angle laws keep their own spellings of pi: degrees from atan2 by this divisor, radians from
// degrees by 3.1415926535 / 180, and degrees from asin by the float nearest pi.
constexpr double kRadiansPerDegree = 0.017453292519444445;
constexpr double kPi = 3.1415926535;
constexpr double kFloatPi = 3.1415927410125732;

std::int32_t WidthOf(double magnitude)
{
    return static_cast<std::int32_t>((1.0 - magnitude) * 360.0);
}

} // namespace

Panner::Panner(std::int32_t centerX, std::int32_t centerY, std::int32_t hubRadius, std::int32_t radius)
    : CenterX(centerX), CenterY(centerY), Radius(radius), HubRadius(hubRadius), Span(radius - hubRadius)
{
    // A ring of no span would divide by zero: its magnitude stays 0 wherever the pointer goes.
    InverseSpan = Span != 0 ? 1.0 / Span : 0.0;
    SetMagnitudeFromPoint(CenterX + Radius, CenterY + Radius);
}

void Panner::SetAngleFromPoint(std::int32_t x, std::int32_t y)
{
    const std::int32_t dx = x - CenterX;
    const std::int32_t dy = y - CenterY;
    LastX = dx;
    LastY = dy;
    if (dx == 0) {
        Angle = dy > 0 ? 180 : 0;
        return;
    }
    if (dy == 0) {
        Angle = dx > 0 ? 90 : 270;
        return;
    }
    const auto t = static_cast<std::int32_t>(std::atan2(std::abs(dy), std::abs(dx)) / kRadiansPerDegree);
    if (dx > 0)
        Angle = dy < 0 ? 90 - t : 90 + t;
    else
        Angle = dy < 0 ? 270 + t : 270 - t;
}

std::int32_t Panner::Distance(std::int32_t x, std::int32_t y) const
{
    const double dx = x - CenterX;
    const double dy = y - CenterY;
    return static_cast<std::int32_t>(std::sqrt(dx * dx + dy * dy));
}

void Panner::SetMagnitudeFromPoint(std::int32_t x, std::int32_t y)
{
    LastX = x - CenterX;
    LastY = y - CenterY;
    Offset = std::clamp(Distance(x, y) - HubRadius, 0, std::max(Span, 0));
    Magnitude = Offset * InverseSpan;
    ArcWidth = WidthOf(Magnitude);
}

void Panner::GetVector(float vector[3])
{
    AngleRadians = Angle * kPi / 180.0;
    vector[0] = static_cast<float>(std::sin(AngleRadians) * Magnitude);
    vector[1] = 0.0f;
    vector[2] = static_cast<float>(std::cos(AngleRadians) * Magnitude);
}

void Panner::SetVector(const float vector[3])
{
    const float x = vector[0];
    const float z = vector[2];
    Magnitude = std::sqrt(x * x + z * z);
    ArcWidth = WidthOf(Magnitude);
    if (ArcWidth == 360) {
        Angle = 0;
        return;
    }
    // A vector longer than 1 (pan knobs at X 1 and Z 1) puts z / magnitude within -1 to 1 all the same.
    AngleRadians = std::asin(std::clamp(z / Magnitude, -1.0, 1.0));
    const auto d = static_cast<std::int32_t>(AngleRadians * 180.0 / kFloatPi);
    Angle = x >= 0 ? 90 - d : d + 270;
}

void Panner::GetArcEnds(std::int32_t& start, std::int32_t& end) const
{
    const std::int32_t half = ArcWidth / 2;
    auto intoCircle = [](std::int32_t angle) { return angle > 360 ? angle - 360 : angle < 0 ? angle + 360 : angle; };
    start = intoCircle(Angle - half);
    end = intoCircle(Angle + half);
}
