#pragma once

#include <cstdint>

// One pan vector of a reverb on the round display: its direction as an angle round the ring and its
// length as the distance from the hub. A vector of length 0 (sound from everywhere) is a closed
// ring, one of length 1 a point. Points are in window coordinates, y growing downward; angles are
// whole degrees, 0 up, clockwise. The vector is the engine's: x right, z up on the display, y 0.
class Panner {
public:
    Panner(std::int32_t centerX, std::int32_t centerY, std::int32_t hubRadius, std::int32_t radius);
    virtual ~Panner() = default;

    void SetAngleFromPoint(std::int32_t x, std::int32_t y);
    void SetMagnitudeFromPoint(std::int32_t x, std::int32_t y);
    // The distance of the point from the centre, truncated.
    std::int32_t Distance(std::int32_t x, std::int32_t y) const;
    void GetVector(float vector[3]);
    void SetVector(const float vector[3]);
    // The arc's two ends, each brought into 0 to 360.
    void GetArcEnds(std::int32_t& start, std::int32_t& end) const;

    std::int32_t CenterX, CenterY;
    std::int32_t LastX = 0, LastY = 0;
    std::int32_t Offset = 0;
    std::int32_t Radius;
    std::int32_t HubRadius;
    std::int32_t Span;
    std::int32_t Angle = 0;
    double Magnitude = 0.0;
    double InverseSpan;
    double AngleRadians = 0.0;
    std::int32_t ArcWidth = 0;
};
