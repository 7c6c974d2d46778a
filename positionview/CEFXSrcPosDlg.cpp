#include "positionview/CEFXSrcPosDlg.h"

#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "resources/ResourceIds.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

namespace {

constexpr std::uint32_t kSourceColour = 51184;    // yellow
constexpr std::uint32_t kListenerColour = 240;    // red
constexpr std::uint32_t kOrientationColour = 61440; // green
constexpr std::uint32_t kAxisColour = 10459295;   // grey
constexpr std::uint32_t kNameColour = 0xF0C000;   // the sources' names: sky blue
constexpr int kDotRadius = 4;

// The view's size is also the cost of a frame: every paint sends the whole picture to the display.
constexpr QSize kSize(604, 376);
constexpr QRect kView(8, 8, 360, 360);

struct PlaneRadio {
    int id;
    std::int32_t plane;
};
constexpr PlaneRadio kPlaneRadios[] = {
    {res::IDC_PLANE_TOP, PlaneTop},
    {res::IDC_PLANE_SIDE, PlaneSide},
    {res::IDC_PLANE_REAR, PlaneRear},
};

const ControlTemplate kTemplate[] = {
    {res::IDC_POSITION_VIEW, ControlKind::Static, "", kView},
    {0, ControlKind::GroupBox, "Display / Drag mode", QRect(380, 4, 216, 180)},
    {0, ControlKind::Static, "Move a source (yellow dot),", QRect(392, 26, 196, 16)},
    {0, ControlKind::Static, "the listener (red dot), or", QRect(392, 42, 196, 16)},
    {0, ControlKind::Static, "the listener's orientation", QRect(392, 58, 196, 16)},
    {0, ControlKind::Static, "(green circle) in :", QRect(392, 74, 196, 16)},
    {res::IDC_PLANE_TOP, ControlKind::RadioButton, "(X, Z) plane (top elevation)", QRect(392, 100, 200, 22)},
    {res::IDC_PLANE_SIDE, ControlKind::RadioButton, "(Y, Z) plane (side elevation)", QRect(392, 124, 200, 22)},
    {res::IDC_PLANE_REAR, ControlKind::RadioButton, "(X, Y) plane (rear elevation)", QRect(392, 148, 200, 22)},
    {0, ControlKind::GroupBox, "Zoom", QRect(380, 194, 216, 100)},
    {res::IDC_POSITION_ZOOM, ControlKind::Slider, "", QRect(390, 216, 196, 30)},
    {res::IDC_POSITION_SCALE, ControlKind::Edit, "", QRect(392, 256, 44, 24)},
    {0, ControlKind::Static, "Pixels / 3D unit  scale", QRect(442, 260, 150, 18)},
};

QPen SolidPen(std::uint32_t colour)
{
    return QPen(WindowsColour(colour), 1, Qt::SolidLine);
}

// A dot as the drawing surface's ellipse makes it, the box from (x - 4, y - 4) to (x + 4, y + 4), its
// right and bottom edges excluded: drawn once into a small picture, which each frame then stamps.
QPixmap DotSprite(const QPen& pen, const QBrush& brush)
{
    QPixmap sprite(2 * kDotRadius, 2 * kDotRadius);
    sprite.fill(Qt::transparent);
    QPainter painter(&sprite);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawEllipse(QRect(0, 0, 2 * kDotRadius - 1, 2 * kDotRadius - 1));
    return sprite;
}

void Stamp(QPainter& painter, const QPixmap& sprite, ViewPixel at)
{
    painter.drawPixmap(at.x - kDotRadius, at.y - kDotRadius, sprite);
}

ViewBox BoxOf(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

} // namespace

// Text with the top left of its cell at (x, y), on a box of the background colour as wide as the
// text. Laid out once per text and kept: a frame draws up to 128 names.
void CEFXSrcPosDlg::TextAt(QPainter& painter, int x, int y, const QString& text, const QColor& colour)
{
    if (text.isEmpty())
        return;
    if (m_texts.size() > 1024)
        m_texts.clear();
    auto found = m_texts.find(text);
    if (found == m_texts.end()) {
        QStaticText laidOut(text);
        laidOut.setTextFormat(Qt::PlainText);
        laidOut.prepare(QTransform(), painter.font());
        found = m_texts.insert(text, laidOut);
    }
    painter.fillRect(QRectF(QPointF(x, y), found->size()), BackgroundBrush);
    painter.setPen(colour);
    painter.drawStaticText(QPoint(x, y), *found);
}

// The drawing area: it paints what the dialog draws, and leaves the mouse to the dialog.
class PositionViewWidget : public QWidget {
public:
    explicit PositionViewWidget(CEFXSrcPosDlg* dialog)
        : QWidget(dialog),
          m_dialog(dialog)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_dialog->Paint(painter);
    }

private:
    CEFXSrcPosDlg* m_dialog;
};

CEFXSrcPosDlg::CEFXSrcPosDlg(QWidget* parent)
    : CDialog(parent)
{
    BuildDialog(this, "Source(s) / Listener Position", kSize, kTemplate);
    QWidget* placeholder = FindControl(this, res::IDC_POSITION_VIEW);
    View = new PositionViewWidget(this);
    View->setGeometry(placeholder->geometry());
    View->setAccessibleName(QStringLiteral("Sources and listener"));
    delete placeholder;
    SetControlId(View, res::IDC_POSITION_VIEW);
    View->lower();
    ZoomSlider = FindControlAs<QSlider>(this, res::IDC_POSITION_ZOOM);
    ZoomSlider->setAccessibleName(QStringLiteral("Zoom"));
    ScaleEdit = FindControlAs<QLineEdit>(this, res::IDC_POSITION_SCALE);
    ScaleEdit->setAccessibleName(QStringLiteral("Pixels / 3D unit  scale"));
    UI_EFX_Bridge::GetInstance()->SetPositionWindow(this);
}

CEFXSrcPosDlg::~CEFXSrcPosDlg()
{
    if (UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance())
        bridge->SetPositionWindow(nullptr);
}

void CEFXSrcPosDlg::OnInitDialog()
{
    SourcePen = SolidPen(kSourceColour);
    ListenerPen = SolidPen(kListenerColour);
    OrientationPen = SolidPen(kOrientationColour);
    AxisPen = SolidPen(kAxisColour);
    ListenerBrush = QBrush(WindowsColour(kListenerColour));
    SourceBrush = QBrush(WindowsColour(kSourceColour));
    BackgroundBrush = QBrush(WindowsColour(0));
    ViewRect = QRect(QPoint(0, 0), View->size());
    m_sourceDot = DotSprite(SourcePen, SourceBrush);
    m_listenerDot = DotSprite(ListenerPen, ListenerBrush);
    m_ring = DotSprite(OrientationPen, BackgroundBrush);

    {
        const QSignalBlocker quiet(ZoomSlider);
        ZoomSlider->setRange(1, 100);
        ZoomSlider->setPageStep(10);
        ZoomSlider->setTickInterval(10);
        ZoomSlider->setValue(static_cast<int>(Scale));
    }
    // Every way the user moves the slider (arrows, page clicks, the thumb) arrives as a new value.
    connect(ZoomSlider, &QSlider::valueChanged, this, &CEFXSrcPosDlg::OnZoom);
    ScaleEdit->setText(QString::asprintf("%i", static_cast<int>(Scale)));
    for (const PlaneRadio& radio : kPlaneRadios) {
        auto* button = FindControlAs<QRadioButton>(this, radio.id);
        button->setChecked(radio.plane == Plane);
        connect(button, &QRadioButton::clicked, this, [this, plane = radio.plane] { OnPlane(plane); });
    }
}

void CEFXSrcPosDlg::RedrawPositionWindow()
{
    Redraw();
}

void CEFXSrcPosDlg::Redraw()
{
    View->update();
}

ViewPixel CEFXSrcPosDlg::WorldToScreen(const float position[3], const QRect& rect) const
{
    return ::WorldToScreen(Plane, Scale, position, BoxOf(rect));
}

void CEFXSrcPosDlg::ScreenToWorld(QPoint point, const QRect& rect, const float oldPosition[3], float newPosition[3]) const
{
    ::ScreenToWorld(Plane, Scale, {point.x(), point.y()}, BoxOf(rect), oldPosition, newPosition);
}

ViewPixel CEFXSrcPosDlg::OrientationHandle(ViewPixel listener) const
{
    EFX_Context* context = UI_EFX_Bridge::GetInstance()->GetContext();
    float at[3] = {};
    float up[3] = {};
    if (context)
        context->GetOrientation(at, up);
    return ::OrientationHandle(Plane, at, listener);
}

void CEFXSrcPosDlg::OnZoom(int position)
{
    Scale = static_cast<float>(position);
    UI_EFX_Bridge::GetInstance()->SetPositionRange(20.0 / Scale * 20.0);
    ScaleEdit->setText(QString::asprintf("%i", static_cast<int>(Scale)));
    Redraw();
}

void CEFXSrcPosDlg::OnPlane(std::int32_t plane)
{
    // The radios are independent buttons: the one clicked stays checked, the others go off.
    for (const PlaneRadio& radio : kPlaneRadios)
        FindControlAs<QRadioButton>(this, radio.id)->setChecked(radio.plane == plane);
    Plane = plane;
    Redraw();
}

void CEFXSrcPosDlg::Paint(QPainter& painter)
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    const int cx = ViewRect.width() / 2;
    const int cy = ViewRect.height() / 2;
    painter.fillRect(ViewRect, BackgroundBrush);
    painter.setClipRect(ViewRect);

    // The axis mark at the centre.
    const AxisMark& mark = AxisMarkOf(Plane);
    const QColor axisColour = AxisPen.color();
    TextAt(painter, cx + mark.firstAt.x, cy + mark.firstAt.y, QString::fromLatin1(mark.firstLabel), axisColour);
    TextAt(painter, cx + mark.secondAt.x, cy + mark.secondAt.y, QString::fromLatin1(mark.secondLabel), axisColour);
    painter.setPen(AxisPen);
    painter.drawLine(cx + mark.lineX, cy, cx, cy);
    painter.drawLine(cx, cy, cx, cy + mark.lineY);
    if (!bridge)
        return;

    // The sources in number order, each a yellow dot with its name above it.
    const QColor nameColour = WindowsColour(kNameColour);
    for (int index = 0; index < bridge_limits::kSources; ++index) {
        EFX_3DSource* source = bridge->GetSource(index);
        if (!source)
            continue;
        float position[3] = {};
        source->GetPosition(position);
        const ViewPixel at = WorldToScreen(position, ViewRect);
        Stamp(painter, m_sourceDot, at);
        TextAt(painter, at.x - 5, at.y - 24, QString::fromLocal8Bit(bridge->GetSourceName(index)), nameColour);
    }

    // The listener, red, with a line to its orientation handle: a green ring, hollow on black.
    EFX_Context* context = bridge->GetContext();
    if (!context)
        return;
    float position[3] = {};
    context->GetPosition(position);
    const ViewPixel listener = WorldToScreen(position, ViewRect);
    const ViewPixel handle = OrientationHandle(listener);
    Stamp(painter, m_listenerDot, listener);
    TextAt(painter, listener.x + 5, listener.y + 10, QStringLiteral("listener"), ListenerPen.color());
    painter.setPen(ListenerPen);
    painter.drawLine(listener.x, listener.y, handle.x, handle.y);
    Stamp(painter, m_ring, handle);
}

void CEFXSrcPosDlg::mousePressEvent(QMouseEvent* event)
{
    DragMode = DragNone;
    if (event->button() != Qt::LeftButton)
        return;
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    const QRect view = View->geometry(); // presses and moves come in the dialog's coordinates
    const ViewPixel press{event->position().toPoint().x(), event->position().toPoint().y()};
    float position[3] = {};
    if (EFX_Context* context = bridge->GetContext()) {
        context->GetPosition(position);
        const ViewPixel listener = WorldToScreen(position, view);
        if (HitsPixel(press, listener)) {
            DragMode = DragListener;
            return;
        }
        if (HitsPixel(press, OrientationHandle(listener))) {
            DragMode = DragOrientation;
            return;
        }
    }
    for (int index = 0; index < bridge_limits::kSources; ++index) {
        EFX_3DSource* source = bridge->GetSource(index);
        if (!source)
            continue;
        source->GetPosition(position);
        if (HitsPixel(press, WorldToScreen(position, view))) {
            DragMode = DragSource;
            DragSourceIndex = index;
            return;
        }
    }
}

void CEFXSrcPosDlg::mouseMoveEvent(QMouseEvent* event)
{
    // No capture: a drag acts only while the pointer is over the window, and picks up on its return.
    const QPoint point = event->position().toPoint();
    if (!rect().contains(point) || DragMode == DragNone)
        return;
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    const QRect view = View->geometry(); // presses and moves come in the dialog's coordinates
    float position[3] = {};
    float moved[3] = {};
    switch (DragMode) {
    case DragSource:
        if (EFX_3DSource* source = bridge->GetSource(DragSourceIndex)) {
            source->GetPosition(position);
            ScreenToWorld(point, view, position, moved);
            bridge->MoveSource(DragSourceIndex, moved[0], moved[1], moved[2]);
        }
        break;
    case DragListener:
        if (EFX_Context* context = bridge->GetContext()) {
            context->GetPosition(position);
            ScreenToWorld(point, view, position, moved);
            bridge->MoveListener(moved[0], moved[1], moved[2]);
        }
        break;
    case DragOrientation:
        if (EFX_Context* context = bridge->GetContext()) {
            context->GetPosition(position);
            const ViewPixel listener = WorldToScreen(position, ViewRect);
            const int cx = ViewRect.width() / 2;
            const int cy = ViewRect.height() / 2;
            const int pointerX = point.x() - view.left() - cx;
            const int pointerY = point.y() - view.top() - cy;
            const int ex = pointerX - (listener.x - cx);
            const int ey = (listener.y - cy) - pointerY;
            float at[3] = {};
            float up[3] = {};
            context->GetOrientation(at, up);
            float turned[3] = {};
            TurnOrientation(Plane, ex, ey, at, turned);
            context->SetOrientation(turned[0], turned[1], turned[2], up[0], up[1], up[2]);
            bridge->RefreshContext();
        }
        break;
    default:
        break;
    }
}

void CEFXSrcPosDlg::mouseReleaseEvent(QMouseEvent*)
{
    DragMode = DragNone;
}
