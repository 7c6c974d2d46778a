#include "tools/make_bitmaps/Drawings.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace {

constexpr int kKnobFrames = 31;
constexpr int kKnobFrameWidth = 24;
constexpr int kKnobHeight = 25;
constexpr double kKnobSweep = 300.0; // degrees, centred on the top

// A canvas of a logical size at a scale, filled, and a painter on it that works in logical pixels.
struct Sheet {
    Sheet(int width, int height, int scale, const QColor& fill, bool antialiased = true)
        : image(width * scale, height * scale, QImage::Format_ARGB32_Premultiplied)
    {
        image.fill(fill);
        painter.begin(&image);
        painter.scale(scale, scale);
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
    }

    QImage Take()
    {
        painter.end();
        return image;
    }

    QImage image;
    QPainter painter;
};

struct Stop {
    double at;
    QColor colour;
};

// A rounded rectangle shaded from its top to its bottom through stops, with an edge.
void ShadedRoundedRect(QPainter& painter, const QRectF& rect, double radius, std::initializer_list<Stop> stops,
                       const QColor& edge, double edgeWidth = 1.0)
{
    QLinearGradient shade(0, rect.top(), 0, rect.bottom());
    for (const Stop& stop : stops)
        shade.setColorAt(stop.at, stop.colour);
    painter.setBrush(shade);
    painter.setPen(QPen(edge, edgeWidth));
    painter.drawRoundedRect(rect, radius, radius);
}

// One knob centred at centre, the pointer at value 0..1; no pointer when value is negative.
void DrawKnob(QPainter& painter, QPointF centre, double value, const QColor& colour)
{
    painter.setPen(Qt::NoPen);
    // A soft shadow, as from a light above left.
    QRadialGradient shadow(centre + QPointF(0.5, 1.0), 11.5);
    shadow.setColorAt(0.75, QColor(0, 0, 0, 70));
    shadow.setColorAt(1.0, QColor(0, 0, 0, 0));
    painter.setBrush(shadow);
    painter.drawEllipse(centre + QPointF(0.5, 1.0), 11.5, 11.5);

    // The skirt: the knob's colour, lit from above left, with a dark rim.
    QRadialGradient skirt(centre + QPointF(-3.5, -4.5), 15.0);
    skirt.setColorAt(0.0, colour.lighter(135));
    skirt.setColorAt(0.55, colour);
    skirt.setColorAt(1.0, colour.darker(190));
    painter.setBrush(skirt);
    painter.setPen(QPen(colour.darker(300), 0.8));
    painter.drawEllipse(centre, 10.0, 10.0);

    // The cap: a raised face, bright at the top, with a fine edge.
    QLinearGradient cap(centre + QPointF(-4, -7), centre + QPointF(4, 7));
    cap.setColorAt(0.0, colour.lighter(165));
    cap.setColorAt(0.5, colour.lighter(112));
    cap.setColorAt(1.0, colour.darker(125));
    painter.setBrush(cap);
    painter.setPen(QPen(colour.darker(200), 0.7));
    painter.drawEllipse(centre, 6.6, 6.6);

    if (value < 0)
        return;
    const double angle = (value - 0.5) * kKnobSweep * std::numbers::pi / 180.0;
    const QPointF direction(std::sin(angle), -std::cos(angle));
    painter.setPen(QPen(QColor(0, 0, 0, 110), 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + direction * 2.5 + QPointF(0.35, 0.45), centre + direction * 8.6 + QPointF(0.35, 0.45));
    painter.setPen(QPen(QColor(0xFB, 0xFB, 0xF6), 1.7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + direction * 2.5, centre + direction * 8.6);
}

QPointF KnobCentre(int frame)
{
    return {frame * kKnobFrameWidth + kKnobFrameWidth / 2.0, kKnobHeight / 2.0};
}

// A 1-pixel frame: light on the upper and left edges, dark on the lower and right ones; swapped for
// a pressed frame.
void Bevel(QPainter& painter, const QRectF& rect, const QColor& light, const QColor& dark, double width)
{
    const double h = width / 2;
    painter.setPen(QPen(light, width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(rect.left(), rect.top() + h), QPointF(rect.right() - width, rect.top() + h));
    painter.drawLine(QPointF(rect.left() + h, rect.top()), QPointF(rect.left() + h, rect.bottom() - width));
    painter.setPen(QPen(dark, width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(rect.left(), rect.bottom() - h), QPointF(rect.right(), rect.bottom() - h));
    painter.drawLine(QPointF(rect.right() - h, rect.top()), QPointF(rect.right() - h, rect.bottom()));
}

// Fills the pixels whose centres lie in the triangle with apex at (centreX, apexY) and a base
// baseHalf to either side at apexY + height (height negative points the apex down). Pixel by pixel,
// so that the arrow is sharp at either scale.
void FillTriangle(QImage& image, int scale, double centreX, double apexY, double height, double baseHalf,
                  const QColor& colour)
{
    const QRgb rgb = colour.rgba();
    for (int y = 0; y < image.height(); ++y) {
        const double t = ((y + 0.5) / scale - apexY) / height;
        if (t < 0 || t > 1)
            continue;
        const double half = t * baseHalf + 1e-9;
        for (int x = 0; x < image.width(); ++x) {
            if (std::abs((x + 0.5) / scale - centreX) <= half)
                image.setPixel(x, y, rgb);
        }
    }
}

} // namespace

QImage KnobStrip(const QColor& colour, int scale)
{
    Sheet sheet(kKnobFrames * kKnobFrameWidth + 1, kKnobHeight, scale, kDialogGrey);
    for (int frame = 0; frame < kKnobFrames; ++frame)
        DrawKnob(sheet.painter, KnobCentre(frame), double(frame) / (kKnobFrames - 1), colour);
    return sheet.Take();
}

QImage KnobSlice(const QColor& colour, int scale)
{
    // The knob is drawn without its pointer, and the slice cut round its centre line.
    Sheet sheet(kKnobFrameWidth, kKnobHeight, scale, kDialogGrey);
    DrawKnob(sheet.painter, KnobCentre(0), -1, colour);
    return sheet.Take().copy(9 * scale, 0, 7 * scale, kKnobHeight * scale);
}

QImage FaderTrack(int scale)
{
    Sheet sheet(144, 10, scale, kDialogGrey);
    QPainter& painter = sheet.painter;
    // Marks at the ends, the quarters and the middle of the thumb's travel (its centre line runs
    // from x = 7 to x = 134), above and below the groove.
    for (int mark = 0; mark <= 8; ++mark) {
        const double x = std::round(7 + mark * 127.0 / 8) + 0.5; // on a pixel, not between two
        const double length = mark % 2 == 0 ? 2.0 : 1.0;
        const QColor ink = mark % 4 == 0 ? QColor(0x50, 0x52, 0x56) : QColor(0x8C, 0x8E, 0x92);
        painter.setPen(QPen(ink, 1.0, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x, 0), QPointF(x, length));
        painter.drawLine(QPointF(x, 10 - length), QPointF(x, 10));
    }
    // The groove: a dark slot pressed into the face, lit on its lower lip.
    const QRectF groove(3, 3, 138, 4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xFF, 0xFF));
    painter.drawRoundedRect(groove.translated(0, 0.8), 2, 2);
    ShadedRoundedRect(painter, groove, 2, {{0.0, QColor(0x26, 0x28, 0x2C)}, {1.0, QColor(0x5A, 0x5E, 0x64)}},
                      QColor(0x30, 0x32, 0x36), 0.6);
    return sheet.Take();
}

QImage FaderThumb(int scale)
{
    Sheet sheet(17, 10, scale, kDialogGrey);
    QPainter& painter = sheet.painter;
    ShadedRoundedRect(painter, QRectF(0.5, 0.5, 16, 9), 2,
                      {{0.0, QColor(0xFA, 0xFA, 0xFA)}, {0.5, QColor(0xD6, 0xD8, 0xDC)}, {1.0, QColor(0x9C, 0xA0, 0xA6)}},
                      QColor(0x3C, 0x3E, 0x42));
    // Grip ridges either side of the centre line, which marks the value.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int x : {4, 12}) {
        painter.fillRect(QRectF(x, 2, 1, 6), QColor(0x8C, 0x90, 0x96));
        painter.fillRect(QRectF(x + 1, 2, 1, 6), QColor(0xFF, 0xFF, 0xFF));
    }
    painter.fillRect(QRectF(8, 1, 1, 8), QColor(0x20, 0x22, 0x26));
    return sheet.Take();
}

QImage ArrowButton(bool up, bool pressed, int scale)
{
    const QColor face = pressed ? QColor(0xC4, 0xC6, 0xCA) : QColor(0xDE, 0xE0, 0xE3);
    Sheet sheet(9, 8, scale, face, false);
    const QColor light(0xFF, 0xFF, 0xFF);
    const QColor dark(0x70, 0x72, 0x76);
    if (pressed)
        Bevel(sheet.painter, QRectF(0, 0, 9, 8), dark, light, 1.0);
    else
        Bevel(sheet.painter, QRectF(0, 0, 9, 8), light, dark, 1.0);
    QImage image = sheet.Take();
    // The arrow moves a pixel down and right when pressed, as the face would.
    const double shift = pressed ? 1.0 : 0.0;
    const QColor ink(0x1E, 0x20, 0x24);
    if (up)
        FillTriangle(image, scale, 4.5 + shift, 2.0 + shift, 3.0, 3.0, ink);
    else
        FillTriangle(image, scale, 4.5 + shift, 5.0 + shift, -3.0, 3.0, ink);
    return image;
}

QImage ReadoutPlate(int scale)
{
    Sheet sheet(47, 41, scale, kDialogGrey);
    QPainter& painter = sheet.painter;
    ShadedRoundedRect(painter, QRectF(0.5, 0.5, 46, 40), 3.5,
                      {{0.0, QColor(0xE2, 0xE4, 0xE8)}, {1.0, QColor(0xAE, 0xB2, 0xB8)}}, QColor(0x5E, 0x62, 0x68));
    painter.setPen(QPen(QColor(0xFF, 0xFF, 0xFF, 180), 1.0));
    painter.drawLine(QPointF(3, 1.5), QPointF(44, 1.5));

    // The display window, set into the plate: shaded at its upper edge.
    const QRectF window(4.5, 4.5, 38, 32);
    ShadedRoundedRect(painter, window, 2,
                      {{0.0, QColor(0xB4, 0xC4, 0xB8)}, {0.18, QColor(0xCE, 0xDA, 0xCF)}, {1.0, QColor(0xC2, 0xD0, 0xC4)}},
                      QColor(0x4A, 0x50, 0x56));
    painter.setPen(QPen(QColor(0xFF, 0xFF, 0xFF, 160), 1.0));
    painter.drawLine(QPointF(6, window.bottom() + 1), QPointF(41, window.bottom() + 1));
    return sheet.Take();
}

QImage SlotButton(int slot, bool selected, int scale)
{
    Sheet sheet(48, 29, scale, Qt::black);
    QPainter& painter = sheet.painter;

    QLinearGradient plate(0, 0, 0, 29);
    plate.setColorAt(0, selected ? QColor(0x4a, 0x52, 0x60) : QColor(0x3a, 0x3e, 0x46));
    plate.setColorAt(1, selected ? QColor(0x2a, 0x30, 0x3a) : QColor(0x22, 0x25, 0x2b));
    painter.fillRect(QRectF(0, 0, 48, 29), plate);
    painter.setPen(QPen(QColor(0x10, 0x10, 0x12), 1.0));
    painter.drawRect(QRectF(0.5, 0.5, 47, 28));
    painter.setPen(QPen(QColor(0x5c, 0x62, 0x6e), 1.0));
    painter.drawLine(QPointF(1, 1.5), QPointF(47, 1.5));

    const QColor lamp = selected ? QColor(0xff, 0xa0, 0x20) : QColor(0x55, 0x3a, 0x18);
    painter.setPen(Qt::NoPen);
    if (selected) {
        painter.setBrush(QColor(0xff, 0xa0, 0x20, 70));
        painter.drawEllipse(QPointF(8.5, 14.5), 6, 6);
    }
    painter.setBrush(lamp);
    painter.drawEllipse(QPointF(8.5, 14.5), 3.2, 3.2);

    QFont font("DejaVu Sans");
    font.setPixelSize(9);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(selected ? QColor(0xf0, 0xf0, 0xf0) : QColor(0xa8, 0xad, 0xb5));
    painter.drawText(QRectF(15, 3, 31, 11), Qt::AlignCenter, "SLOT");
    font.setPixelSize(12);
    painter.setFont(font);
    painter.setPen(selected ? QColor(0xff, 0xc0, 0x60) : QColor(0xd0, 0xd4, 0xda));
    painter.drawText(QRectF(15, 13, 31, 14), Qt::AlignCenter, QString::number(slot));
    return sheet.Take();
}

namespace {

// The icon's shapes on a square of 32 logical pixels: a dark disc, a speaker's dot and three rings
// spreading to the right.
void DrawProgramIcon(QPainter& painter)
{
    painter.setPen(QPen(QColor(0x10, 0x10, 0x12), 1.0));
    painter.setBrush(QColor(0x2a, 0x2e, 0x36));
    painter.drawEllipse(QRectF(1.5, 1.5, 29, 29));
    painter.setBrush(Qt::NoBrush);
    for (int ring = 0; ring < 3; ++ring) {
        painter.setPen(QPen(QColor(0xff, 0xa0 + 0x20 * ring, 0x20 + 0x30 * ring), 1.6));
        const double r = 4.0 + 4.0 * ring;
        painter.drawArc(QRectF(10 - r, 16 - r, 2 * r, 2 * r), -50 * 16, 100 * 16);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xa0, 0x20));
    painter.drawEllipse(QPointF(10, 16), 2.5, 2.5);
}

} // namespace

QImage ProgramIcon(int scale)
{
    Sheet sheet(32, 32, scale, QColor(0xd4, 0xd0, 0xc8));
    DrawProgramIcon(sheet.painter);
    return sheet.Take();
}

QImage ProgramIconAt(int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / 32.0, pixels / 32.0);
    DrawProgramIcon(painter);
    painter.end();
    return image;
}
