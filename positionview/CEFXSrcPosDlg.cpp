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

constexpr QSize kSize(664, 436);
constexpr QRect kView(8, 8, 420, 420);

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
    {0, ControlKind::GroupBox, "Display / Drag mode", QRect(440, 4, 216, 180)},
    {0, ControlKind::Static, "Move a source (yellow dot),", QRect(452, 26, 196, 16)},
    {0, ControlKind::Static, "the listener (red dot), or", QRect(452, 42, 196, 16)},
    {0, ControlKind::Static, "the listener's orientation", QRect(452, 58, 196, 16)},
    {0, ControlKind::Static, "(green circle) in :", QRect(452, 74, 196, 16)},
    {res::IDC_PLANE_TOP, ControlKind::RadioButton, "(X, Z) plane (top elevation)", QRect(452, 100, 200, 22)},
    {res::IDC_PLANE_SIDE, ControlKind::RadioButton, "(Y, Z) plane (side elevation)", QRect(452, 124, 200, 22)},
    {res::IDC_PLANE_REAR, ControlKind::RadioButton, "(X, Y) plane (rear elevation)", QRect(452, 148, 200, 22)},
    {0, ControlKind::GroupBox, "Zoom", QRect(440, 194, 216, 100)},
    {res::IDC_POSITION_ZOOM, ControlKind::Slider, "", QRect(450, 216, 196, 30)},
    {res::IDC_POSITION_SCALE, ControlKind::Edit, "", QRect(452, 256, 44, 24)},
    {0, ControlKind::Static, "Pixels / 3D unit  scale", QRect(502, 260, 150, 18)},
};

QPen SolidPen(std::uint32_t colour)
{
    return QPen(WindowsColour(colour), 1, Qt::SolidLine);
}

// A dot as the drawing surface's ellipse makes it, the box from (x - 4, y - 4) to (x + 4, y + 4), its
// right and bottom edges excluded.
void Dot(QPainter& painter, ViewPixel at)
{
    painter.drawEllipse(QRect(at.x - kDotRadius, at.y - kDotRadius, 2 * kDotRadius - 1, 2 * kDotRadius - 1));
}

// Text with the top left of its cell at (x, y), on the background colour.
void TextAt(QPainter& painter, int x, int y, const QString& text)
{
    painter.drawText(QRect(x, y, 1000, 200), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text);
}

ViewBox BoxOf(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

} // namespace

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

QRect CEFXSrcPosDlg::ViewInDialog() const
{
    return View->geometry();
}

void CEFXSrcPosDlg::Paint(QPainter& painter)
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    const int cx = ViewRect.width() / 2;
    const int cy = ViewRect.height() / 2;
    painter.fillRect(ViewRect, BackgroundBrush);
    painter.setClipRect(ViewRect);
    painter.setBackgroundMode(Qt::OpaqueMode);
    painter.setBackground(BackgroundBrush);

    // The axis mark at the centre.
    const AxisMark& mark = AxisMarkOf(Plane);
    painter.setPen(AxisPen);
    TextAt(painter, cx + mark.firstAt.x, cy + mark.firstAt.y, QString::fromLatin1(mark.firstLabel));
    TextAt(painter, cx + mark.secondAt.x, cy + mark.secondAt.y, QString::fromLatin1(mark.secondLabel));
    painter.drawLine(cx + mark.lineX, cy, cx, cy);
    painter.drawLine(cx, cy, cx, cy + mark.lineY);
    if (!bridge)
        return;

    // The sources in number order, each a yellow dot with its name above it.
    for (int index = 0; index < bridge_limits::kSources; ++index) {
        EFX_3DSource* source = bridge->GetSource(index);
        if (!source)
            continue;
        float position[3] = {};
        source->GetPosition(position);
        const ViewPixel at = WorldToScreen(position, ViewRect);
        painter.setPen(SourcePen);
        painter.setBrush(SourceBrush);
        Dot(painter, at);
        painter.setPen(WindowsColour(kNameColour));
        TextAt(painter, at.x - 5, at.y - 24, QString::fromLocal8Bit(bridge->GetSourceName(index)));
    }

    // The listener, red, with a line to its orientation handle: a green ring, hollow on black.
    EFX_Context* context = bridge->GetContext();
    if (!context)
        return;
    float position[3] = {};
    context->GetPosition(position);
    const ViewPixel listener = WorldToScreen(position, ViewRect);
    const ViewPixel handle = OrientationHandle(listener);
    painter.setPen(ListenerPen);
    painter.setBrush(ListenerBrush);
    Dot(painter, listener);
    TextAt(painter, listener.x + 5, listener.y + 10, QStringLiteral("listener"));
    painter.drawLine(listener.x, listener.y, handle.x, handle.y);
    painter.setPen(OrientationPen);
    painter.setBrush(BackgroundBrush);
    Dot(painter, handle);
}

void CEFXSrcPosDlg::mousePressEvent(QMouseEvent* event)
{
    DragMode = DragNone;
    if (event->button() != Qt::LeftButton)
        return;
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    const QRect view = ViewInDialog();
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
    const QRect view = ViewInDialog();
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
