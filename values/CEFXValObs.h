#pragma once

#include "values/CObservableNumber.h"
#include "values/COrvexObservableCallback.h"

#include <cstddef>
#include <cstdint>

// A float value with callback. SetFloat stores as Assign does and then tells the bridge, even when
// Assign dropped the value: a step beyond the range makes the bridge set the old value again and
// read it back.
class COrvexObservableFloat : public CObservableFloat, public COrvexObservableCallbackMechanism {
public:
    COrvexObservableFloat() { Kind = 0; }
    // Narrows by rounding to the nearest float.
    void SetValue(double value) override;
    virtual void SetFloat(float value);
};

// A long value with callback; as the float, with truncation towards zero in SetValue.
class COrvexObservableLong : public CObservableLong, public COrvexObservableCallbackMechanism {
public:
    COrvexObservableLong() { Kind = 1; }
    void SetValue(double value) override;
    virtual void SetLong(std::int32_t value);
};

// The printf form of a float value with 1 to 4 decimals ("%2.1f" ... "%2.4f"); any other count gives
// "%2.2f". The value's own text and the panels' read-outs share it.
const char* FloatValueFormat(int decimals);

// The size of the buffer that GetValueText fills.
constexpr std::size_t kValueTextSize = 128;

// The float value that the panels bind to a knob and a display.
class CEFXFloatValObs : public COrvexObservableFloat {
public:
    void SetIndex(std::uint16_t index) { Index = index; }
    // Prints with 1 to 4 decimals ("%2.1f" ... "%2.4f"), any other count with 2, into a buffer of
    // kValueTextSize characters that it zeroes first. Always true.
    bool GetValueText(char* buffer, int decimals) const;
};

// The long value that the panels bind to a knob and a display.
class CEFXLongValObs : public COrvexObservableLong {
public:
    void SetIndex(std::uint16_t index) { Index = index; }
    // Prints "%d" whatever decimals says. Always true.
    bool GetValueText(char* buffer, int decimals) const;
};
