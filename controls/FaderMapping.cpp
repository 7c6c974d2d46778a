#include "controls/FaderMapping.h"

#include "values/CConvertNumeric.h"

#include <cmath>
#include <limits>

namespace {

double ValueOf(int position, const CConvertNumeric* converter, int count, double factor)
{
    // One position has no span: it stands at the bottom of the range.
    const double span = count > 1 ? count - 1 : 1;
    if (converter)
        return converter->FromLinear(position / span);
    return position * factor / span;
}

} // namespace

int CutToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

int FaderPositionOf(double value, const CConvertNumeric* converter, int positions)
{
    if (converter)
        return CutToInt((positions - 1) * converter->ToLinear(value));
    return CutToInt(positions * value / 65536.0);
}

double FaderValueOf(int position, const CConvertNumeric* converter, int positions)
{
    return ValueOf(position, converter, positions, 65535.0);
}

int KnobFrameOf(double value, const CConvertNumeric* converter, int frames)
{
    return FaderPositionOf(value, converter, frames);
}

double KnobValueOf(int frame, const CConvertNumeric* converter, int frames)
{
    return ValueOf(frame, converter, frames, 65536.0);
}
