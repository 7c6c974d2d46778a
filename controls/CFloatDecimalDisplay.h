#pragma once

#include "controls/CDecimalDisplay.h"

// What the two read-outs the panels make have in common: all of the base's input, and a text of
// their own, printed from the value by a fixed format and drawn left-aligned on one line before the
// arrows, with no units, no sign rule and no digit highlight. The digit spin still works on the
// base's text, so the digit that moves is chosen by the record's decimals and integerDigits while
// the display shows its own number of places; the two may disagree on screen.
class CFixedFormatDecimalDisplay : public CDecimalDisplay {
public:
    // The text drawn for the value now held.
    virtual QString ValueText() const = 0;

protected:
    void PaintText(QPainter& painter) override;
    // Repaints the window but for the arrow strip, at once.
    void RedrawValue(double oldValue, double newValue) override;
};

// A float value with 1 to 4 decimals ("%2.1f" to "%2.4f"); any other count prints 2.
class CFloatDecimalDisplay : public CFixedFormatDecimalDisplay {
public:
    explicit CFloatDecimalDisplay(unsigned decimals = 2);
    QString ValueText() const override;

    unsigned floatDecimals;
};

// A long value, "%d".
class CLongDecimalDisplay : public CFixedFormatDecimalDisplay {
public:
    QString ValueText() const override;
};
