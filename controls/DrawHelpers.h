#pragma once

class QPainter;
class QRect;
class QWidget;

// Small drawing helpers the controls share.

// A one-pixel 3D frame: left and upper edges in colour 6 (14 when dark), right and lower in 15.
void DrawFrame3D(QPainter& painter, const QRect& rect, bool dark);
// The same frame one pixel outside a child control, drawn in its parent.
void DrawFrameAround(QPainter& painter, const QWidget& control);
// A bitmap of the resources at x, y, unstretched.
void BlitBitmap(QPainter& painter, int id, int x, int y);
