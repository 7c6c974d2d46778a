#pragma once

#include <QColor>
#include <QImage>

// The pictures of the program's bitmaps, in true colour. Each is drawn in logical pixels at scale 1 or
// 2: at 2 the same shapes are drawn anew on a canvas of twice the size, not enlarged, so that they
// stay sharp on a screen of double density.

// The grey of the dialogs, behind the knobs and round the plates.
inline const QColor kDialogGrey(0xEF, 0xEF, 0xEF);

// A knob strip, 745 x 25: 31 frames of 24 x 25, lowest value at the left, the pointer sweeping 300
// degrees from lower left through the top to lower right; the last column is spare.
QImage KnobStrip(const QColor& colour, int scale);
// A slice 7 x 25 through the middle of the knob of that colour, for a legend.
QImage KnobSlice(const QColor& colour, int scale);
// The pop-up fader: a track 144 x 10 with a groove and marks, and its thumb, 17 x 10.
QImage FaderTrack(int scale);
QImage FaderThumb(int scale);
// An arrow button of a read-out, 9 x 8: up or down, raised or pressed in.
QImage ArrowButton(bool up, bool pressed, int scale);
// A read-out's background, 47 x 41: a plate holding a pale display window.
QImage ReadoutPlate(int scale);
// A slot button of the main dialog, 48 x 29: the slot's number on a dark plate, with a lamp that is
// lit when the slot is the one shown.
QImage SlotButton(int slot, bool selected, int scale);
// The program's icon, 32 x 32: a speaker's rings on a dark disc, on a light grey ground (a bitmap has no
// transparency).
QImage ProgramIcon(int scale);
// The same icon drawn anew at pixels x pixels on a transparent square, for a desktop's icon theme.
QImage ProgramIconAt(int pixels);
