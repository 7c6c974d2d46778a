#pragma once

#include "controls/CDecimalDisplay.h"

// The read-outs the panels make. Both keep all of the base's input and draw only their own text:
// the value with a fixed number of decimals, or as a whole number, left-aligned.
class CFloatDecimalDisplay : public CDecimalDisplay {
public:
    explicit CFloatDecimalDisplay(unsigned decimals = 2);
    QString ValueText() const;

    unsigned floatDecimals;

protected:
    void PaintText(QPainter& painter) override;
    void RedrawValue(double oldValue, double newValue) override;
};

class CLongDecimalDisplay : public CDecimalDisplay {
public:
    CLongDecimalDisplay();
    QString ValueText() const;

protected:
    void PaintText(QPainter& painter) override;
    void RedrawValue(double oldValue, double newValue) override;
};
