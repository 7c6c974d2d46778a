#include "controls/DrawHelpers.h"

#include "controls/BitmapResource.h"
#include "controls/ControlGraphics.h"

#include <QPainter>
#include <QWidget>

void DrawFrame3D(QPainter& painter, const QRect& rect, bool dark)
{
    painter.setPen(ControlPen(dark ? 14 : 6));
    painter.drawLine(rect.bottomLeft(), rect.topLeft());
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.setPen(ControlPen(15));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomRight(), rect.bottomLeft());
}

void DrawFrameAround(QPainter& painter, const QWidget& control)
{
    DrawFrame3D(painter, control.geometry().adjusted(-1, -1, 0, 0), false);
}

void BlitBitmap(QPainter& painter, int id, int x, int y)
{
    const QSize size = BitmapSize(id);
    DrawBitmapPart(painter, id, QPoint(x, y), QRect(QPoint(0, 0), size));
}
