#pragma once

#include "values/CObject.h"

#include <cstdint>

// Between a knob's fraction, 0 to 1, and the value in its own units.
class CConvertNumeric : public CObject {
public:
    // Engine value to fraction.
    virtual double ToLinear(double value) const = 0;
    // Fraction to engine value.
    virtual double FromLinear(double fraction) const = 0;
};

// The one law of the program: linear between Low at 0 and High at 1. Low and High are the knob's
// range, filled when the knob is bound; they start at 0 so that an unbound converter reads as
// defined numbers.
class CConvertNumericToLinearRange : public CConvertNumeric {
public:
    // Values outside the range give 0 or 1, worked out as (Low - Low) / (High - Low) and
    // (High - Low) / (High - Low): a range of equal ends gives not-a-number, never 0 or 1.
    double ToLinear(double value) const override;
    // Fractions outside 0 to 1 give Low or High.
    double FromLinear(double fraction) const override;

    double Low = 0.0;
    double High = 0.0;
};

// A linear gain as whole millibels for the reverb response record: ln(max(g, 0.00001)) * 868.589
// (2000 / ln 10), computed in float and truncated towards zero. 1 gives 0, 0 gives -10000.
std::int32_t LevelToMillibels(float gain);

// The extent of all position values at a scale of the position window of pixelsPerUnit:
// 20 / p * 20, so that 20 pixels per unit allows -10 to +10.
double PositionRangeExtent(double pixelsPerUnit);
