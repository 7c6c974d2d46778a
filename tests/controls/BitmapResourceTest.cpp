// Bitmaps drawn by number: the drawing made at twice the size serves a painter on a dense screen, so
// the knob is sharp there, and the table's size stays the logical one.
#include "controls/BitmapResource.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

// The first frame of the grey knob strip, drawn at its logical 24 x 25 on a surface of the ratio.
QImage FirstFrame(qreal ratio)
{
    QImage surface(QSize(24, 25) * ratio, QImage::Format_RGB32);
    surface.setDevicePixelRatio(ratio);
    surface.fill(Qt::magenta);
    QPainter painter(&surface);
    DrawBitmapPart(painter, 136, QPoint(0, 0), QRect(0, 0, 24, 25));
    return surface;
}

TEST(BitmapResource, ADenseScreenGetsTheDoubleDrawingAtTheSameLogicalSize)
{
    EXPECT_EQ(BitmapSize(136), QSize(745, 25));
    const QImage doubled(QStringLiteral(":/bitmaps/136@2x.bmp"));
    ASSERT_EQ(doubled.size(), QSize(1490, 50));

    const QImage dense = FirstFrame(2.0).convertToFormat(QImage::Format_RGB32);
    const QImage expected = doubled.copy(0, 0, 48, 50).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(dense.size(), QSize(48, 50));
    EXPECT_TRUE(dense == expected) << "not the double drawing";

    // At ratio 1 the table's own bitmap is drawn, pixel for pixel.
    const QImage plain = FirstFrame(1.0);
    const QImage single = QImage(QStringLiteral(":/bitmaps/136.bmp")).copy(0, 0, 24, 25).convertToFormat(QImage::Format_RGB32);
    EXPECT_TRUE(plain == single);
}

} // namespace
