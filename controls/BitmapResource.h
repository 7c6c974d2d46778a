#pragma once

#include <QPixmap>

class QPainter;
class QPoint;
class QRect;

// The bitmaps of the program's resources, by number. Each is read once and kept for the run; where
// the generator also drew it at twice the size, that drawing serves painters whose device pixel
// ratio is 2 or more, so that a control stays crisp at its logical size.

// A null pixmap if there is none.
QPixmap LoadBitmapResource(int id);
// The logical size of a bitmap; empty if there is none.
QSize BitmapSize(int id);
// The whole bitmap, stretched to target. A missing bitmap draws nothing.
void DrawBitmap(QPainter& painter, int id, const QRect& target);
// The part source of the bitmap (logical pixels, y from the top) at destination, unstretched.
void DrawBitmapPart(QPainter& painter, int id, const QPoint& destination, const QRect& source);
