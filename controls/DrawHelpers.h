#pragma once

class QPainter;
class QRect;
class QWidget;

// Small drawing helpers that the custom controls share. Colours are indices into the shared colour
// table of ControlGraphics.h.

// A one-pixel 3D frame on the rectangle's own pixels: left and upper edges in colour 6 (grey), or 14
// (black) when dark, right and lower edges in colour 15 (white).
void DrawFrame3D(QPainter& painter, const QRect& rect, bool dark);
// The same frame, grey, one pixel outside a child control, drawn by its parent.
void DrawFrameAround(QPainter& painter, const QWidget& control);
// A resource bitmap at x, y in its own size, as a plain copy. A missing bitmap draws nothing.
void BlitBitmap(QPainter& painter, int id, int x, int y);
// A two-pixel bevel inside the rectangle, sunken (dark at the upper left) or raised (light there).
void DrawEdge(QPainter& painter, const QRect& rect, bool sunken);
