#include "controls/CFloatDecimalDisplay.h"

#include "controls/ControlGraphics.h"
#include "controls/FaderMapping.h"
#include "values/CEFXValObs.h"

#include <QPainter>


void CFixedFormatDecimalDisplay::PaintText(QPainter& painter)
{
    if (!HasSubject())
        return;
    painter.setFont(ControlFont(Spec().font));
    painter.setPen(ControlColour(Spec().textColour));
    // Two pixels in from the edge, so that a minus sign reads as one.
    painter.drawText(NumberRect().adjusted(2, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     ValueText());
}

void CFixedFormatDecimalDisplay::RedrawValue(double, double)
{
    // Marked now and painted with the knob in the same pass before the next input is handled: one
    // flush to the window system for both, rather than one each.
    update(TextArea());
}

CFloatDecimalDisplay::CFloatDecimalDisplay(unsigned decimals)
    : floatDecimals(decimals)
{
}

QString CFloatDecimalDisplay::ValueText() const
{
    const char* format = FloatValueFormat(static_cast<int>(floatDecimals));
    return QString::asprintf(format, Value());
}

QString CLongDecimalDisplay::ValueText() const
{
    return QString::asprintf("%d", CutToInt(Value()));
}
