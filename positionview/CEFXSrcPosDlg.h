#pragma once

#include "controls/CDialog.h"
#include "positionview/PositionPlanes.h"
#include "values/BridgeWindows.h"

#include <QBrush>
#include <QHash>
#include <QPen>
#include <QPixmap>
#include <QRect>
#include <QStaticText>
#include <QString>

#include <cstdint>

class QLineEdit;
class QPainter;
class QSlider;
class QWidget;

// The position window: every source and the listener on one of three planes, dragged with the mouse.
// It is a view of the engine and keeps no copy of any position: each paint reads the listener and the
// 128 source places through the bridge, and each drag writes through the bridge, whose write-back
// asks for the next paint. Made once with no parent; its close box hides it.
class CEFXSrcPosDlg : public CDialog, public BridgePositionWindow {
public:
    enum DragModes : std::int32_t { DragNone = 0, DragSource = 1, DragListener = 2, DragOrientation = 3 };

    explicit CEFXSrcPosDlg(QWidget* parent = nullptr);
    ~CEFXSrcPosDlg() override;

    // Schedules a paint of the view: the several write-backs of one drag give one frame.
    void RedrawPositionWindow() override;
    void Redraw();

    // The plane's pixel of a world position in rect, and back; the handle beside the listener's pixel.
    ViewPixel WorldToScreen(const float position[3], const QRect& rect) const;
    void ScreenToWorld(QPoint point, const QRect& rect, const float oldPosition[3], float newPosition[3]) const;
    ViewPixel OrientationHandle(ViewPixel listener) const;

    // What the slider does: the new scale, the position limits that follow from it, the edit, a redraw.
    void OnZoom(int position);
    void OnPlane(std::int32_t plane);

    QSlider* ZoomSlider = nullptr;
    QWidget* View = nullptr;
    QLineEdit* ScaleEdit = nullptr;
    std::int32_t DragMode = DragNone;
    std::int32_t DragSourceIndex = 0;
    float Scale = 20.0f;
    std::int32_t Plane = PlaneTop;
    QPen SourcePen, ListenerPen, OrientationPen, AxisPen;
    QBrush ListenerBrush, SourceBrush, BackgroundBrush;
    QRect ViewRect;

protected:
    void OnInitDialog() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    friend class PositionViewWidget;
    void Paint(QPainter& painter);
    void TextAt(QPainter& painter, int x, int y, const QString& text, const QColor& colour);

    QPixmap m_sourceDot, m_listenerDot, m_ring;
    QHash<QString, QStaticText> m_texts;
};
