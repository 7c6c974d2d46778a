// The seven-segment digits: the polygon of each segment and where it leads, the segments each digit
// lights, the advance over a point, signs drawn as 0, the clipping and the colour.
#include "controls/CDigitalDisplay.h"
#include "controls/ControlGraphics.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr QRgb kPaper = 0xFFFFFFFF;

QImage Paper(QSize size = QSize(120, 40))
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(kPaper);
    return image;
}

// The smallest rectangle round every inked pixel.
QRect Ink(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != kPaper)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

// Runs of columns holding ink, left to right: each glyph and each point is one run.
std::vector<std::pair<int, int>> InkedColumnRuns(const QImage& image)
{
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < image.width(); ++x) {
        bool inked = false;
        for (int y = 0; y < image.height() && !inked; ++y)
            inked = image.pixel(x, y) != kPaper;
        if (inked && (runs.empty() || runs.back().second != x - 1))
            runs.push_back({x, x});
        else if (inked)
            runs.back().second = x;
    }
    return runs;
}

QImage Text(const QString& text, QRect rect = QRect(10, 5, 100, 30), QSize size = QSize(120, 40))
{
    QImage image = Paper(size);
    QPainter painter(&image);
    CDigitalDisplay().DrawText(painter, text, rect);
    return image;
}

// A segment's direction and name, the start of the next one, and its ink with the pen's outline of 1.
struct SegmentCase { CDigitalDisplay::SegmentDirection direction; const char* name; QPoint next; QRect ink; };

TEST(DigitalDisplaySegment, PolygonsAndTheirEndPoints)
{
    // From (30, 30), with length 8, width 1, bevel 1 and gaps of 2.
    const SegmentCase cases[] = {
        {CDigitalDisplay::SegmentRight, "right", {40, 30}, QRect(QPoint(32, 30), QPoint(40, 31))},
        {CDigitalDisplay::SegmentDown, "down", {32, 40}, QRect(QPoint(31, 32), QPoint(32, 40))},
        {CDigitalDisplay::SegmentLeft, "left", {20, 32}, QRect(QPoint(20, 31), QPoint(28, 32))},
        {CDigitalDisplay::SegmentUp, "up", {28, 20}, QRect(QPoint(28, 20), QPoint(29, 28))},
        {CDigitalDisplay::SegmentMiddle, "middle", {20, 31}, QRect(QPoint(20, 30), QPoint(28, 31))},
    };
    const CDigitalDisplay display;
    for (const SegmentCase& c : cases) {
        SCOPED_TRACE(c.name);
        for (bool shown : {true, false}) {
            QImage image = Paper(QSize(60, 60));
            QPainter painter(&image);
            painter.setPen(ControlPen(3));
            painter.setBrush(ControlBrush(3));
            QPoint next;
            display.DrawSegment(next, QPoint(30, 30), c.direction, &painter, shown);
            painter.end();
            EXPECT_EQ(next, c.next) << shown;
            EXPECT_EQ(Ink(image), shown ? c.ink : QRect()) << shown; // a hidden segment leaves no ink
        }
    }
    QPoint longer;
    display.DrawSegment(longer, QPoint(30, 30), CDigitalDisplay::SegmentDown, nullptr, false, 10);
    EXPECT_EQ(longer, QPoint(32, 42));
}

TEST(DigitalDisplayDigits, EachDigitLightsItsSegmentsOneFourAndSevenLongerOnes)
{
    // A pixel in the middle of each segment, from the cell's top left: a top, b upper right,
    // c lower right, d bottom, e lower left, f upper left, g middle.
    const QPoint probes[7] = {{6, 0}, {12, 6}, {12, 16}, {6, 22}, {0, 16}, {0, 6}, {6, 11}};
    const std::string lit[10] = {"abcdef", "bc", "abged", "abgcd", "fgbc", "afgcd", "afgcde", "abc", "abcdefg", "abgcdf"};
    const QPoint origin(10, 5);
    for (int digit = 0; digit < 10; ++digit) {
        const QImage image = Text(QString::number(digit));
        for (int segment = 0; segment < 7; ++segment) {
            const char name = char('a' + segment);
            const bool expected = lit[digit].find(name) != std::string::npos;
            EXPECT_EQ(image.pixel(origin + probes[segment]) != kPaper, expected) << digit << " segment " << name;
        }
        // Every digit stands in the same cell.
        EXPECT_TRUE(QRect(origin, QSize(13, 23)).contains(Ink(image))) << digit;
    }

    // 1 and the upper halves of 4 reach the top row and, for 1 and 4, the bottom row of the cell.
    for (const char* text : {"1", "4"}) {
        const QRect ink = Ink(Text(text));
        EXPECT_EQ(ink.top(), origin.y()) << text;
        EXPECT_EQ(ink.bottom(), origin.y() + 22) << text;
    }
    // The 7's top runs from the cell's left edge; its lower right segment ends a row higher than 3's.
    const QImage seven = Text("7");
    EXPECT_NE(seven.pixel(origin), kPaper);
    EXPECT_EQ(Ink(seven).bottom(), origin.y() + 21);
}

TEST(DigitalDisplayText, PointAdvancesTheNextDigit)
{
    const CDigitalDisplay display;
    const auto runs = InkedColumnRuns(Text("1.5"));
    ASSERT_EQ(runs.size(), 3u); // the 1, the point, the 5
    const auto fiveAlone = InkedColumnRuns(Text("5"));
    const auto oneAlone = InkedColumnRuns(Text("1"));
    ASSERT_EQ(fiveAlone.size(), 1u);
    EXPECT_EQ(runs[0], oneAlone[0]);
    const int fiveStart = display.DigitAdvance + display.DotSize + 2 * display.DotAdvance - display.DotOffset;
    EXPECT_EQ(fiveStart, 36);
    EXPECT_EQ(runs[2].first - fiveAlone[0].first, fiveStart);
    // The point: DotSize pixels a side, DotAdvance - DotOffset after the 1's cell, DotDrop down.
    const int pointX = 10 + display.DigitAdvance + display.DotAdvance - display.DotOffset;
    EXPECT_EQ(runs[1], std::make_pair(pointX, pointX + display.DotSize - 1));
    const QImage text = Text("1.5");
    QImage point = Paper();
    for (int y = 0; y < point.height(); ++y) {
        for (int x = runs[1].first; x <= runs[1].second; ++x)
            point.setPixel(x, y, text.pixel(x, y));
    }
    EXPECT_EQ(Ink(point), QRect(pointX, 5 + display.DotDrop, display.DotSize, display.DotSize));
}

TEST(DigitalDisplayText, NonDigitsDrawAsZeroInTheDigitColourAndDrawingStaysInsideTheRectangle)
{
    const QImage zero = Text("0");
    EXPECT_EQ(Text("-"), zero);
    EXPECT_EQ(Text(" "), zero);
    EXPECT_EQ(Text("1x"), Text("10"));
    EXPECT_EQ(zero.pixel(16, 5), ControlColour(3).rgb()); // the top segment, dark blue

    // Room for one digit and a half: the second 8 is cut at the rectangle's right edge.
    const QRect rect(10, 5, 28, 30);
    const QImage image = Text("88", rect);
    EXPECT_TRUE(rect.contains(Ink(image)));
    EXPECT_EQ(Ink(image).right(), rect.right());
    // The caller's clip still holds, and is back afterwards.
    QImage clipped = Paper();
    QPainter painter(&clipped);
    painter.setClipRect(QRect(0, 0, 20, 40));
    CDigitalDisplay().DrawText(painter, "8", QRect(10, 5, 40, 30));
    EXPECT_EQ(painter.clipBoundingRect(), QRectF(0, 0, 20, 40));
    painter.end();
    EXPECT_EQ(Ink(clipped), QRect(QPoint(10, 5), QPoint(19, 27)));
}

} // namespace
