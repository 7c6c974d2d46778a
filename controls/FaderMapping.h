#pragma once

class CConvertNumeric;

// Between a value and the positions of a fader. With a converter the positions span its 0 to 1;
// without, the value is read as a fraction of 65536 going in and of 65535 coming out, two factors
// that differ by design and are both kept.
int FaderPositionOf(double value, const CConvertNumeric* converter, int positions);
double FaderValueOf(int position, const CConvertNumeric* converter, int positions);

// The same pair for the frames of a knob strip: 65536 both ways without a converter.
int KnobFrameOf(double value, const CConvertNumeric* converter, int frames);
double KnobValueOf(int frame, const CConvertNumeric* converter, int frames);

// Truncation towards zero of a double that may lie beyond the int range or be not a number: the
// cast itself would be undefined there. Such a value goes to the nearest end, NaN to 0.
int CutToInt(double value);
