#pragma once

// Levels in the preset records: a linear gain is stored in millibels, 2000 units to a factor of ten
// in gain (868.589 is 2000 / ln 10). Both directions work in single precision.

// -10000 exactly is silence, 0.0; any other level is 10 to the power m / 2000.
float MillibelsToGain(float millibels);

// 0.0 exactly is -10000; any other gain is first raised to at least 0.00001, then ln(g) x 868.589.
float GainToMillibels(float gain);

// A level for an integer field: GainToMillibels cut towards zero. A gain so large that the level
// would not fit a 32-bit integer gives the nearest end of the range instead, since
// converting it would be undefined; the engine never reports such a gain.
int GainToMillibelsInt(float gain);
