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
    painter.drawText(NumberRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ValueText());
}

void CFixedFormatDecimalDisplay::RedrawValue(double, double)
{
    repaint(TextArea());
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
