#pragma once

#include <QImage>
#include <QList>
#include <QRgb>
#include <QString>

// Turning a drawing in true colour into the bitmap file the program embeds: a colour table chosen for
// the picture, the pixels mapped onto it, and the rows packed bottom-up as a BMP file writes them.

// Up to count colours that stand for the image's colours, by median cut over its pixels. The colours
// in fixed are kept as they are and count towards count.
QList<QRgb> ChoosePalette(const QImage& image, int count, const QList<QRgb>& fixed = {});

// The 256-colour table of an 8-bit bitmap: the image's colours with index 253 kept for the mask key,
// which no pixel of the picture uses.
QList<QRgb> PaletteWithMaskKey(const QImage& image);

// Writes image as a BMP file of bitCount 4, 8 or 24. For 4 and 8 bits every pixel takes the nearest
// colour of palette (which has 16 or 256 entries), never the mask key; with dither above 0 an ordered
// 4 x 4 pattern of up to that many levels either way is added first, which turns the bands of a smooth
// shade into an even grain. False if the file could not be written.
bool WriteBitmap(const QImage& image, int bitCount, const QList<QRgb>& palette, const QString& path,
                 int dither = 0);
