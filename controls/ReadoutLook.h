#pragma once

#include <QSize>
#include <QString>

#include <cstdint>

class CDib;

// The record that sets up a decimal display; SetSpec copies it field by field. The defaults are the
// class's own; the panels' read-outs all take the one record of ControlStyles.h.
struct CDecimalDisplaySpec {
    QSize size{290, 80};
    int font = 13;
    int backBitmap = 0, altBackBitmap = 0;
    int backColour = 14, altBackColour = 14;
    int textColour = 8, altTextColour = 6;
    int highlightColour = 10;
    int interactive = 1;
    int hasArrows = 1;
    int decimals = 3;
    int integerDigits = 3;
    int zeroPad = 1;
    int keepTrailingZeros = 1;
    int reserved = 1;
    double step = 1.0, shiftStep = 0.1, ctrlStep = 0.01;
    QString units;
    int edge = 10;       // 10 sunken, 5 raised, anything else none
    int focusFrame = 1;
    int bitmapSized = 0;
    int showPlus = 0;
    int useBackDib = 0;  // forced to 0 without a backDib
    const CDib* backDib = nullptr;
    std::int32_t backDibSize = 0;
};
