#include "controls/CFloatDecimalDisplay.h"

#include "controls/ControlGraphics.h"
#include "controls/FaderMapping.h"

#include <QPainter>

namespace {

const char* FloatFormat(unsigned decimals)
{
    switch (decimals) {
    case 1: return "%2.1f";
    case 3: return "%2.3f";
    case 4: return "%2.4f";
    default: return "%2.2f";
    }
}

// Left-aligned and centred vertically in the number's box, which ends at the arrows.
void PaintLeft(QPainter& painter, const QRect& box, int font, const QColor& colour, const QString& text)
{
    painter.setFont(ControlFont(font));
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

} // namespace

CFloatDecimalDisplay::CFloatDecimalDisplay(unsigned decimals)
    : floatDecimals(decimals)
{
}

QString CFloatDecimalDisplay::ValueText() const
{
    return QString::asprintf(FloatFormat(floatDecimals), Value());
}

void CFloatDecimalDisplay::PaintText(QPainter& painter)
{
    if (HasSubject())
        PaintLeft(painter, NumberRect(), Spec().font, ControlColour(TextColour()), ValueText());
}

void CFloatDecimalDisplay::RedrawValue(double, double)
{
    repaint(QRect(0, 0, NumberRect().right() + 1, height()));
}

CLongDecimalDisplay::CLongDecimalDisplay() = default;

QString CLongDecimalDisplay::ValueText() const
{
    return QString::asprintf("%d", CutToInt(Value()));
}

void CLongDecimalDisplay::PaintText(QPainter& painter)
{
    if (HasSubject())
        PaintLeft(painter, NumberRect(), Spec().font, ControlColour(TextColour()), ValueText());
}

void CLongDecimalDisplay::RedrawValue(double, double)
{
    repaint(QRect(0, 0, NumberRect().right() + 1, height()));
}
