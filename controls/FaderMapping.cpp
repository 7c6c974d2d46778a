#include "controls/FaderMapping.h"

#include "values/CConvertNumeric.h"

#include <cmath>
#include <limits>

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
    // A fader of one position has no span: it stands at the bottom of the range.
    const double span = positions > 1 ? positions - 1 : 1;
    if (converter)
        return converter->FromLinear(position / span);
    return position * 65535.0 / span;
}

int KnobFrameOf(double value, const CConvertNumeric* converter, int frames)
{
    if (converter)
        return CutToInt((frames - 1) * converter->ToLinear(value));
    return CutToInt(frames * value / 65536.0);
}

double KnobValueOf(int frame, const CConvertNumeric* converter, int frames)
{
    const double span = frames > 1 ? frames - 1 : 1;
    if (converter)
        return converter->FromLinear(frame / span);
    return frame * 65536.0 / span;
}
