#include "controls/CDigitalDisplay.h"

#include "controls/ControlGraphics.h"

#include <QPainter>
#include <QPolygon>

#include <array>
#include <initializer_list>

namespace {

// One step of a digit's walk through its segments. The walk starts at the cell's top left; a segment
// step draws (or, hidden, only passes) a segment and moves to its end.
enum class Op {
    Right, Down, Left, Up, Middle,
    ShiftDown,   // from the middle's start, the end of the upper right segment: (-GX, 2 * MiddleDrop - GY)
    ShiftUp,     // from the point reached: (GX, GY - 2 * MiddleDrop)
    MinusGapX,   // x - GX
    PlusGapX,    // x + GX
    MinusGapY,   // y - GY
    UnderMiddle, // y - MiddleDrop + GY: from the middle's end to the top of the upper left segment
};

// The length of a segment step, from SegmentLength.
enum class Len { Normal, PlusGapY, PlusGapX, PlusHalfGapY };

struct Step {
    Op op;
    bool visible = true;
    Len length = Len::Normal;
};

constexpr Step Hidden(Op op, Len length = Len::Normal) { return {op, false, length}; }

using Walk = std::initializer_list<Step>;

// Segments a: top, b: upper right, c: lower right, d: bottom, e: lower left, f: upper left, g: middle.
const std::array<Walk, 10> kWalks = {{
    // 0: a b c d e f
    {{Op::Right}, {Op::Down}, {Op::MinusGapX}, {Op::Down}, {Op::Left}, {Op::Up}, {Op::PlusGapX}, {Op::Up}},
    // 1: b c, both a gap longer, the upper one raised by it
    {Hidden(Op::Right), {Op::MinusGapY}, {Op::Down, true, Len::PlusGapY}, {Op::MinusGapX},
     {Op::Down, true, Len::PlusGapY}},
    // 2: a b g e d
    {{Op::Right}, {Op::Down}, {Op::Middle}, {Op::ShiftDown}, Hidden(Op::Down), {Op::Left}, {Op::Up}},
    // 3: a b g c d
    {{Op::Right}, {Op::Down}, {Op::Middle}, {Op::ShiftDown}, {Op::Down}, {Op::Left}},
    // 4: f g b c, b f and c a gap longer
    {Hidden(Op::Right), {Op::MinusGapY}, {Op::Down, true, Len::PlusGapY}, {Op::Middle}, {Op::UnderMiddle},
     {Op::Up, true, Len::PlusGapY}, {Op::ShiftDown}, {Op::Down, true, Len::PlusGapY}},
    // 5: a f g c d
    {{Op::Right}, Hidden(Op::Down), {Op::Middle}, {Op::UnderMiddle}, {Op::Up}, {Op::ShiftDown}, {Op::Down},
     {Op::Left}},
    // 6: a f g c d e
    {{Op::Right}, Hidden(Op::Down), {Op::Middle}, {Op::UnderMiddle}, {Op::Up}, {Op::ShiftDown}, {Op::Down},
     {Op::Left}, {Op::Up}},
    // 7: a b c, the top reaching over to the left edge, the upper right half a gap longer
    {{Op::MinusGapX}, {Op::Right, true, Len::PlusGapX}, {Op::Down, true, Len::PlusHalfGapY}, {Op::MinusGapX},
     {Op::Down}},
    // 8: all
    {{Op::Right}, {Op::Down}, {Op::Middle}, {Op::ShiftDown}, {Op::Down}, {Op::Left}, {Op::Up}, {Op::ShiftUp},
     {Op::Up}},
    // 9: a b g c d f
    {{Op::Right}, {Op::Down}, {Op::Middle}, {Op::ShiftDown}, {Op::Down}, {Op::Left}, Hidden(Op::Up),
     {Op::ShiftUp}, {Op::Up}},
}};

int DigitOf(QChar c)
{
    // As atoi of the one character: anything but a digit reads as 0.
    return c >= QLatin1Char('0') && c <= QLatin1Char('9') ? c.unicode() - '0' : 0;
}

} // namespace

void CDigitalDisplay::DrawSegment(QPoint& next, QPoint point, SegmentDirection direction, QPainter* painter,
                                  bool visible, int length) const
{
    const int L = length >= 0 ? length : SegmentLength;
    const int W = SegmentWidth;
    const int B = SegmentBevel;
    const int GX = SegmentGapX;
    const int GY = SegmentGapY;
    const int x = point.x();
    const int y = point.y();
    QPolygon polygon;
    switch (direction) {
    case SegmentLeft:
        polygon << QPoint(x - GX, y + GY) << QPoint(x - GX - L, y + GY) << QPoint(x - GX - L + B, y + GY - W)
                << QPoint(x - GX - B, y + GY - W);
        break;
    case SegmentRight:
        polygon << QPoint(x + GX, y) << QPoint(x + GX + L, y) << QPoint(x + GX + L - B, y + W)
                << QPoint(x + GX + B, y + W);
        break;
    case SegmentDown:
        polygon << QPoint(x + GX, y + GY) << QPoint(x + GX, y + GY + L) << QPoint(x + GX - W, y + GY + L - B)
                << QPoint(x + GX - W, y + GY + B);
        break;
    case SegmentUp:
        polygon << QPoint(x - GX, y - GY) << QPoint(x - GX, y - GY - L) << QPoint(x - GX + W, y - GY - L + B)
                << QPoint(x - GX + W, y - GY - B);
        break;
    case SegmentMiddle: {
        const int x0 = x - GX;
        const int y0 = y + MiddleDrop;
        const int hi = (W + 1) / 2;
        const int lo = W / 2;
        const int xl = x0 - B - L + 2 * B;
        polygon << QPoint(x0, y0) << QPoint(x0 - B, y0 - hi) << QPoint(xl, y0 - hi) << QPoint(xl - B, y0)
                << QPoint(xl, y0 + lo) << QPoint(xl + L - 2 * B, y0 + lo);
        break;
    }
    }
    if (polygon.isEmpty())
        return;
    next = direction == SegmentMiddle ? polygon[3] : polygon[1];
    if (!visible || !painter)
        return;
    // An aliased outline leaves out the last pixel of some edges; the vertices drawn as points put it
    // back, so that a segment covers every pixel from one end point to the other.
    painter->drawPolygon(polygon);
    painter->drawPoints(polygon);
}

void CDigitalDisplay::DrawDigit(QPainter& painter, int digit, QPoint origin) const
{
    if (digit < 0 || digit > 9)
        return;
    QPoint point = origin;
    QPoint middleStart = origin;
    for (const Step& step : kWalks[digit]) {
        int length = SegmentLength;
        switch (step.length) {
        case Len::Normal: break;
        case Len::PlusGapY: length += SegmentGapY; break;
        case Len::PlusGapX: length += SegmentGapX; break;
        case Len::PlusHalfGapY: length += SegmentGapY / 2; break;
        }
        auto segment = [&](SegmentDirection direction) {
            DrawSegment(point, point, direction, &painter, step.visible, length);
        };
        switch (step.op) {
        case Op::Right: segment(SegmentRight); break;
        case Op::Down: segment(SegmentDown); break;
        case Op::Left: segment(SegmentLeft); break;
        case Op::Up: segment(SegmentUp); break;
        case Op::Middle:
            middleStart = point;
            DrawSegment(point, point, SegmentMiddle, &painter, step.visible);
            break;
        case Op::ShiftDown: point = middleStart + QPoint(-SegmentGapX, 2 * MiddleDrop - SegmentGapY); break;
        case Op::ShiftUp: point += QPoint(SegmentGapX, SegmentGapY - 2 * MiddleDrop); break;
        case Op::MinusGapX: point.rx() -= SegmentGapX; break;
        case Op::PlusGapX: point.rx() += SegmentGapX; break;
        case Op::MinusGapY: point.ry() -= SegmentGapY; break;
        case Op::UnderMiddle: point.ry() += SegmentGapY - MiddleDrop; break;
        }
    }
}

void CDigitalDisplay::DrawText(QPainter& painter, QString text, const QRect& rect) const
{
    // Within any clip the caller holds; the caller's clip is back afterwards.
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(ControlPen(PenIndex));
    painter.setBrush(ControlBrush(BrushIndex));
    int x = rect.left();
    const int top = rect.top();
    for (const QChar c : text) {
        if (c != QLatin1Char('.')) {
            DrawDigit(painter, DigitOf(c), QPoint(x, top));
            x += DigitAdvance;
            continue;
        }
        x += DotAdvance - DotOffset;
        // An aliased outlined rectangle covers one pixel more than its size on each axis: DotSize pixels
        // a side, as the point is meant, is a rectangle of DotSize - 1.
        painter.drawRect(QRect(x, top + DotDrop, DotSize - 1, DotSize - 1));
        x += DotSize + DotAdvance;
    }
    painter.restore();
}
