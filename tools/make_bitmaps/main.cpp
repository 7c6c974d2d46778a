// Draws the program's bitmap resources into a folder, as BMP files named by their number, each also at
// twice the size as <number>@2x.bmp. Run by hand after changing a drawing:
//   make_bitmaps <folder> [--png <folder>]
// With --png every bitmap is read back as written and also saved as a PNG enlarged four times (the
// double-size ones twice), to be looked at.
#include "controls/CDib.h"
#include "resources/ResourceIds.h"
#include "tools/make_bitmaps/Drawings.h"
#include "tools/make_bitmaps/PackedBitmap.h"

#include <QApplication>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

// The colours of the four knob looks; the legend's slices take the same ones.
const QColor kKnobGrey(0x7A, 0x80, 0x8A);
const QColor kKnobBlue(0x2C, 0x62, 0xC4);
const QColor kKnobGreen(0x2C, 0x96, 0x46);
const QColor kKnobRedBrown(0x96, 0x40, 0x26);

struct Drawing {
    int id;
    int bitCount; // 4 and 8 with a colour table of the picture's own, 24 without
    std::function<QImage(int scale)> draw;
    int dither = 0; // levels of ordered dither, for shades that 16 colours would band
};

std::vector<Drawing> Drawings()
{
    std::vector<Drawing> drawings = {
        {res::IDR_MAINFRAME, 24, [](int s) { return ProgramIcon(s); }},
        {res::IDB_FADER_THUMB, 4, [](int s) { return FaderThumb(s); }},
        {res::IDB_ARROW_DOWN, 4, [](int s) { return ArrowButton(false, false, s); }},
        {res::IDB_ARROW_UP_PRESSED, 4, [](int s) { return ArrowButton(true, true, s); }},
        {res::IDB_ARROW_UP, 4, [](int s) { return ArrowButton(true, false, s); }},
        {res::IDB_READOUT_BACK, 8, [](int s) { return ReadoutPlate(s); }},
        {res::IDB_FADER_TRACK, 4, [](int s) { return FaderTrack(s); }},
        {res::IDB_ARROW_DOWN_PRESSED, 4, [](int s) { return ArrowButton(false, true, s); }},
        {res::IDB_KNOB_GREY, 8, [](int s) { return KnobStrip(kKnobGrey, s); }},
        {res::IDB_KNOB_BLUE, 8, [](int s) { return KnobStrip(kKnobBlue, s); }},
        {res::IDB_KNOB_GREEN, 8, [](int s) { return KnobStrip(kKnobGreen, s); }},
        {res::IDB_KNOB_RED_BROWN, 8, [](int s) { return KnobStrip(kKnobRedBrown, s); }},
        {res::IDB_LEGEND_GREEN, 8, [](int s) { return KnobSlice(kKnobGreen, s); }},
        {res::IDB_LEGEND_RED_BROWN, 8, [](int s) { return KnobSlice(kKnobRedBrown, s); }},
        {res::IDB_LEGEND_GREY, 8, [](int s) { return KnobSlice(kKnobGrey, s); }},
    };
    for (int slot = 0; slot < 4; ++slot) {
        drawings.push_back({res::IDB_SLOT_0 + slot, 4, [slot](int s) { return SlotButton(slot, false, s); }, 4});
        drawings.push_back({res::IDB_SLOT_0_SELECTED + slot, 4, [slot](int s) { return SlotButton(slot, true, s); }, 4});
    }
    return drawings;
}

QList<QRgb> PaletteFor(const QImage& image, int bitCount)
{
    if (bitCount == 8)
        return PaletteWithMaskKey(image);
    if (bitCount != 4)
        return {};
    QList<QRgb> palette = ChoosePalette(image, 16);
    while (palette.size() < 16)
        palette.append(qRgb(0, 0, 0));
    return palette;
}

// The file as the program will read it, enlarged for the eye.
bool SavePreview(const QString& bitmap, const QString& png, int magnify)
{
    CDib dib;
    if (!dib.Read(bitmap))
        return false;
    const QImage image = dib.ToImage();
    return image.scaled(image.size() * magnify, Qt::IgnoreAspectRatio, Qt::FastTransformation).save(png);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString folder = arguments.size() > 1 ? arguments[1] : QStringLiteral("resources/bitmaps");
    const int pngAt = int(arguments.indexOf(QStringLiteral("--png")));
    const QString previews = pngAt > 0 && pngAt + 1 < arguments.size() ? arguments[pngAt + 1] : QString();

    int failures = 0;
    for (const Drawing& drawing : Drawings()) {
        for (int scale : {1, 2}) {
            const QString name = scale == 1 ? QString::number(drawing.id) : QStringLiteral("%1@2x").arg(drawing.id);
            const QString path = QStringLiteral("%1/%2.bmp").arg(folder, name);
            const QImage image = drawing.draw(scale);
            if (!WriteBitmap(image, drawing.bitCount, PaletteFor(image, drawing.bitCount), path, drawing.dither)) {
                std::fprintf(stderr, "could not write %s\n", path.toLocal8Bit().constData());
                ++failures;
                continue;
            }
            if (!previews.isEmpty() && !SavePreview(path, QStringLiteral("%1/%2.png").arg(previews, name), 8 / (2 * scale)))
                ++failures;
        }
    }
    std::printf("bitmaps written to %s\n", folder.toLocal8Bit().constData());
    return failures ? 1 : 0;
}
