#include "controls/CFader.h"

#include "controls/BitmapResource.h"
#include "controls/KnobLook.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/FaderMapping.h"
#include "values/CObservableNumber.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

int OneOrZero(int flag)
{
    return flag == 0 || flag == 1 ? flag : 0;
}

} // namespace

CFader::CFader()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
}

CFader::~CFader()
{
    if (m_dragging)
        QGuiApplication::restoreOverrideCursor();
}

void CFader::SetSpec(const CFaderSpec& spec)
{
    if (m_created)
        return;
    m_spec = spec;
    m_spec.useSkin = OneOrZero(m_spec.useSkin);
    m_spec.thumbBehindTrack = OneOrZero(m_spec.thumbBehindTrack);
}

bool CFader::Create(QWidget* parent, QPoint topLeft, int id)
{
    m_thumb = BitmapSize(m_spec.thumbBitmap);
    m_position = PositionForValue();
    setParent(parent);
    SetControlId(this, id);
    setGeometry(QRect(topLeft, BitmapSize(m_spec.trackBitmap)));
    m_created = true;
    show();
    return true;
}

int CFader::PositionForValue() const
{
    const auto* number = AccessibleSubject();
    if (!number)
        return m_position;
    return std::clamp(FaderPositionOf(number->GetValue(), m_converter, PositionCount()), 0, PositionCount() - 1);
}

double CFader::ValueForPosition() const
{
    return FaderValueOf(m_position, m_converter, PositionCount());
}

QRect CFader::ThumbRect() const
{
    if (m_spec.vertical)
        return QRect(QPoint(m_spec.thumbX, height() - m_spec.thumbY - m_thumb.height() - m_position), m_thumb);
    return QRect(QPoint(m_position + m_spec.thumbX, m_spec.thumbY), m_thumb);
}

void CFader::MoveThumb(int position)
{
    m_position = position;
    update();
}

void CFader::SetSubjectValue(double value)
{
    if (auto* number = AccessibleSubject())
        number->SetValue(value);
}

bool CFader::ApplyDelta(int delta)
{
    const int position = std::clamp(m_position + delta, 0, PositionCount() - 1);
    if (position == m_position)
        return false;
    MoveThumb(position);
    // The fader has moved already: it must not hear of its own change. Leaving the list clears
    // Subject, so the value is held aside first.
    CObservable* subject = Subject;
    if (CObservableNumber* number = AccessibleSubject()) {
        subject->RemoveObserver(this, 0);
        number->SetValue(ValueForPosition());
        subject->AddObserver(this, 0);
    }
    return true;
}

void CFader::Update(CObservable*, int hint, std::intptr_t)
{
    if (!m_created || hint == kHintAboutToChange || hint == kHintDetached || hint == kHintPressed ||
        hint == kHintReleased)
        return;
    const int position = PositionForValue();
    if (position != m_position)
        MoveThumb(position);
    else if (hint != kHintChanged)
        update();
}

double CFader::GangLimit(CObserver*, double delta, int)
{
    const double low = -m_position;
    const double high = PositionCount() - 1 - m_position;
    return std::clamp(delta, low, high);
}

void CFader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ControlBrush(13));
    const QRect thumb = ThumbRect().translated(-1, 0);
    const QRect track(QPoint(0, 0), BitmapSize(m_spec.trackBitmap));
    if (m_spec.thumbBehindTrack)
        DrawBitmap(painter, m_spec.thumbBitmap, thumb);
    DrawBitmap(painter, m_spec.trackBitmap, track);
    if (!m_spec.thumbBehindTrack)
        DrawBitmap(painter, m_spec.thumbBitmap, thumb);
}

void CFader::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || m_disabled || !Subject)
        return;
    const QPoint point = event->position().toPoint();
    if (!ThumbRect().contains(point))
        return;
    m_dragging = true;
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    m_anchor = AxisCoordinate(point);
    Subject->NotifyObservers(kHintPressed, 0);
}

void CFader::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_dragging)
        return;
    const QPoint point = event->position().toPoint();
    ApplyDelta(DeltaFrom(point));
    m_anchor = AxisCoordinate(point);
}

void CFader::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    m_dragging = false;
    QCursor::setPos(mapToGlobal(ThumbRect().center()));
    QGuiApplication::restoreOverrideCursor();
    setFocus(Qt::MouseFocusReason);
    if (Subject)
        Subject->NotifyObservers(kHintReleased, 0);
}

CObservableNumber* CFader::AccessibleSubject() const
{
    return dynamic_cast<CObservableNumber*>(Subject);
}

double CFader::AccessibleStep() const
{
    const auto* number = AccessibleSubject();
    if (!number || PositionCount() < 2)
        return 0.0;
    return (number->GetMaximum() - number->GetMinimum()) / (PositionCount() - 1);
}

void CFader::AccessibleSetValue(double value)
{
    CObservable* subject = Subject;
    if (!subject || m_disabled)
        return;
    const int target = std::clamp(FaderPositionOf(value, m_converter, PositionCount()), 0, PositionCount() - 1);
    subject->NotifyObservers(kHintPressed, 0);
    ApplyDelta(target - m_position);
    subject->NotifyObservers(kHintReleased, 0);
}

void CPotFader::BeginDrag(QPoint point)
{
    if (!m_cursorHidden)
        QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    m_cursorHidden = true;
    m_anchor = AxisCoordinate(point);
}

void CPotFader::DragTo(QPoint point)
{
    const int position = std::clamp(m_position + DeltaFrom(point), 0, PositionCount() - 1);
    MoveThumb(position);
    SetSubjectValue(ValueForPosition());
    m_anchor = AxisCoordinate(point);
}

void CPotFader::EndDrag(QPoint)
{
    if (m_cursorHidden)
        QGuiApplication::restoreOverrideCursor();
    m_cursorHidden = false;
}

CPopupPotFaderFrame::CPopupPotFaderFrame(CObservableNumber* subject, const CPotSpec* potSpec)
    : m_subject(subject), m_potSpec(potSpec)
{
    m_faderSpec.vertical = potSpec->popupHorizontal ? 0 : 1;
    m_faderSpec.rangeCode = 1;
    m_faderSpec.trackBitmap = potSpec->faderTrackBitmap;
    m_faderSpec.thumbBitmap = potSpec->faderThumbBitmap;
    m_faderSpec.thumbX = potSpec->faderThumbX;
    m_faderSpec.thumbY = potSpec->faderThumbY;
    m_faderSpec.useSkin = 0;
    m_faderSpec.thumbBehindTrack = 0;
}

CPopupPotFaderFrame::~CPopupPotFaderFrame()
{
    m_fader.EndDrag(QPoint());
}

QSize CPopupPotFaderFrame::PopupSize(const CPotSpec& spec)
{
    return spec.popupHorizontal ? QSize(150, 16) : QSize(16, 150);
}

bool CPopupPotFaderFrame::CreatePopup(QWidget* parent, QPoint topLeft)
{
    // A window of its own that floats over the panel, neither activated nor focused, and transparent
    // to the mouse: the knob keeps the mouse for the whole drag.
    setParent(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                          Qt::X11BypassWindowManagerHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(QRect(topLeft, PopupSize(*m_potSpec)));

    m_fader.SetSpec(m_faderSpec);
    if (m_subject)
        m_subject->AddObserver(&m_fader, 0);
    m_fader.setAttribute(Qt::WA_TransparentForMouseEvents);
    m_fader.setFocusPolicy(Qt::NoFocus);
    m_fader.Create(this, QPoint(3, 3), 0);
    show();
    return true;
}

void CPopupPotFaderFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ControlBrush(13));
    // A one-pixel inset frame: dark on the upper and left edges, light on the others.
    const QRect r = rect().adjusted(0, 0, -1, -1);
    painter.setPen(ControlPen(6));
    painter.drawLine(r.topLeft(), r.topRight());
    painter.drawLine(r.topLeft(), r.bottomLeft());
    painter.setPen(ControlPen(15));
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    painter.drawLine(r.topRight(), r.bottomRight());
}
