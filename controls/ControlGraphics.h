#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QBrush>
#include <QSize>

#include <cstdint>

// The drawing resources that all custom controls share, made once at start by InitGraphics and kept
// until exit: a colour table of 16 entries with a solid pen and brush for each, a dotted grey pen,
// a table of 17 fonts, and the screen's size.

constexpr int kControlColourCount = 16;
constexpr int kControlFontCount = 17;

// A colour written as a Windows colour value, 0x00BBGGRR: 0xFF is red, 0xFF0000 blue.
QColor WindowsColour(std::uint32_t value);

// One row of the font table: the face asked for and the face used on this system where that one is
// missing. "Small Font" and "Sansserif" exist nowhere on Linux, and Arial and Courier only where
// their metric twins are installed; fontconfig's substitute would serve, but naming ours keeps the
// controls alike on every machine.
struct ControlFontRow {
    const char* face;
    const char* substitute;
    int height; // cell height in pixels
    int width;  // average character width in pixels, 0 for the face's own
    int weight; // 0 and 1 normal (no thin face is installed), 700 bold
    int pitchAndFamily;
    bool underline;
};
const ControlFontRow& ControlFontSpec(int index);

void InitGraphics();

// Pens, brushes and fonts by index; an index out of range gives entry 0.
const QColor& ControlColour(int index);
const QPen& ControlPen(int index);
const QBrush& ControlBrush(int index);
const QPen& DottedPen();
const QFont& ControlFont(int index);
QSize ScreenSize();
// The bold title of a slot's box and of the reverb panels: 12 pixels, weight 700, in the face that
// stands in for the dialogs' sans serif.
QFont BoldTitleFont();

// The arrow buttons' bitmaps: up released and pressed, down released and pressed. A decimal display
// makes no arrows until all four are set.
struct ArrowBitmapIds {
    int upNormal = 0;
    int upPressed = 0;
    int downNormal = 0;
    int downPressed = 0;
    bool AllSet() const { return upNormal && upPressed && downNormal && downPressed; }
};
void SetArrowBitmaps(int upNormal, int upPressed, int downNormal, int downPressed);
const ArrowBitmapIds& GetArrowBitmaps();
