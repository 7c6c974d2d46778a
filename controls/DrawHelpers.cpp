#include "controls/DrawHelpers.h"

#include "controls/BitmapResource.h"
#include "controls/ControlGraphics.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr int kGrey = 6;
constexpr int kLightGrey = 13;
constexpr int kBlack = 14;
constexpr int kWhite = 15;

// One ring of a frame: the upper left pair of sides in one colour, the lower right pair in another.
void DrawRing(QPainter& painter, const QRect& rect, int upperLeft, int lowerRight)
{
    painter.setPen(ControlPen(upperLeft));
    painter.drawLine(rect.bottomLeft(), rect.topLeft());
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.setPen(ControlPen(lowerRight));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomRight(), rect.bottomLeft());
}

} // namespace

void DrawFrame3D(QPainter& painter, const QRect& rect, bool dark)
{
    DrawRing(painter, rect, dark ? kBlack : kGrey, kWhite);
}

void DrawFrameAround(QPainter& painter, const QWidget& control)
{
    DrawFrame3D(painter, control.geometry().adjusted(-1, -1, 1, 1), false);
}

void BlitBitmap(QPainter& painter, int id, int x, int y)
{
    DrawBitmapPart(painter, id, QPoint(x, y), QRect(QPoint(0, 0), BitmapSize(id)));
}

void DrawEdge(QPainter& painter, const QRect& rect, bool sunken)
{
    const QRect inner = rect.adjusted(1, 1, -1, -1);
    if (sunken) {
        DrawRing(painter, rect, kGrey, kWhite);
        DrawRing(painter, inner, kBlack, kLightGrey);
    } else {
        DrawRing(painter, rect, kLightGrey, kBlack);
        DrawRing(painter, inner, kWhite, kGrey);
    }
}
