// Draws the program's bitmap resources into resources/bitmaps/, as BMP files named by their number.
// Run by hand after changing a drawing: make_bitmaps <folder>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include <cstdio>

namespace {

// A slot button of the main dialog, 48 x 29: the slot's number on a dark plate, with a lamp that is lit
// when the slot is the one shown.
QImage SlotButton(int slot, bool selected)
{
    QImage image(48, 29, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);

    QLinearGradient plate(0, 0, 0, 29);
    plate.setColorAt(0, selected ? QColor(0x4a, 0x52, 0x60) : QColor(0x3a, 0x3e, 0x46));
    plate.setColorAt(1, selected ? QColor(0x2a, 0x30, 0x3a) : QColor(0x22, 0x25, 0x2b));
    painter.fillRect(image.rect(), plate);
    painter.setPen(QColor(0x10, 0x10, 0x12));
    painter.drawRect(0, 0, 47, 28);
    painter.setPen(QColor(0x5c, 0x62, 0x6e));
    painter.drawLine(1, 1, 46, 1);

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
    painter.drawText(QRect(15, 3, 31, 11), Qt::AlignCenter, "SLOT");
    font.setPixelSize(12);
    painter.setFont(font);
    painter.setPen(selected ? QColor(0xff, 0xc0, 0x60) : QColor(0xd0, 0xd4, 0xda));
    painter.drawText(QRect(15, 13, 31, 14), Qt::AlignCenter, QString::number(slot));
    return image;
}

// The program's icon, 32 x 32: a speaker's rings on a dark disc.
QImage ProgramIcon()
{
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(QColor(0xd4, 0xd0, 0xc8));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0x10, 0x10, 0x12));
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
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("resources/bitmaps");
    // 156 to 159: slot buttons not selected; 160 to 163: selected.
    for (int slot = 0; slot < 4; ++slot) {
        SlotButton(slot, false).save(QString("%1/%2.bmp").arg(folder).arg(156 + slot));
        SlotButton(slot, true).save(QString("%1/%2.bmp").arg(folder).arg(160 + slot));
    }
    ProgramIcon().save(QString("%1/128.bmp").arg(folder));
    std::printf("bitmaps written to %s\n", folder.toLocal8Bit().constData());
    return 0;
}
