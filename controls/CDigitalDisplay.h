#pragma once

#include <QPoint>
#include <QString>

class QPainter;
class QRect;

// Numbers in the look of a seven-segment display, drawn as small polygons with the shared pen and
// brush of index 3 (dark blue), with no font.
class CDigitalDisplayUtil {
public:
    int SegmentLength = 8; // pixels
    int SegmentWidth = 1;
    int SegmentBevel = 1;  // how far the inner edge is cut short at each end
    int SegmentGapX = 2;
    int SegmentGapY = 2;
    int MiddleDrop = 1;    // middle segment below the end of the upper right one
    int DotSize = 4;       // side of the decimal point
    int PenIndex = 3;
    int BrushIndex = 3;
};

class CDigitalDisplay : public CDigitalDisplayUtil {
public:
    enum SegmentDirection { SegmentLeft, SegmentRight, SegmentDown, SegmentUp, SegmentMiddle };

    CDigitalDisplay()
        : DotOffset(7),
          DotAdvance(10),
          DigitAdvance(SegmentLength + 2 * SegmentGapX + 7),
          DotDrop(2 * (MiddleDrop + SegmentGapY + SegmentLength) - DotSize)
    {
    }
    virtual ~CDigitalDisplay() = default;

    // Draws text, digits and points, from the top left corner of rect, clipped to rect. A character
    // that is no digit draws as 0: callers draw signs themselves.
    void DrawText(QPainter& painter, QString text, const QRect& rect) const;
    // The polygon of one segment from point; next receives its end point. With visible false the
    // polygon is only computed.
    void DrawSegment(QPoint& next, QPoint point, SegmentDirection direction, QPainter* painter, bool visible,
                     int length = -1) const;
    // One digit 0 to 9 with its cell's top left at origin.
    void DrawDigit(QPainter& painter, int digit, QPoint origin) const;

    int DotOffset;
    int DotAdvance;
    int DigitAdvance;
    int DotDrop;
};
