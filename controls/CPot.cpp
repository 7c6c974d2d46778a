#include "controls/CPot.h"

#include "controls/BitmapResource.h"
#include "controls/CFader.h"
#include "controls/KnobLook.h"
#include "controls/ControlId.h"
#include "controls/FaderMapping.h"
#include "values/CObservableNumber.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

// The look of a knob that was given none.
const CPotSpec kBuiltInSpec{};

} // namespace

CPot::CPot()
    : m_spec(&kBuiltInSpec)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::ArrowCursor);
}

CPot::~CPot()
{
    // A drag cut short by the knob's end gives the cursor back with the pop-up.
    m_popup.reset();
}

void CPot::SetSpec(const CPotSpec* spec)
{
    if (m_created || !spec)
        return;
    if (spec->useBlit == 0 || spec->useBlit == 1) {
        m_spec = spec;
        return;
    }
    // A look with an unknown drawing mode draws plainly; the shared record itself stays untouched.
    m_ownSpec = *spec;
    m_ownSpec.useBlit = 0;
    m_spec = &m_ownSpec;
}

int CPot::Frames() const
{
    return m_spec->frames > 0 ? m_spec->frames : 1;
}

bool CPot::Create(QWidget* parent, QPoint topLeft, int id)
{
    const QSize strip = BitmapSize(m_spec->stripBitmap);
    if (!strip.isEmpty()) {
        m_frameWidth = strip.width() / Frames();
        m_frameHeight = strip.height();
    }
    m_position = FrameForValue();
    setParent(parent);
    SetControlId(this, id);
    setGeometry(QRect(topLeft, QSize(m_frameWidth, m_frameHeight)));
    m_created = true;
    show();
    return true;
}

int CPot::FrameForValue() const
{
    const CObservableNumber* number = AccessibleSubject();
    if (!number)
        return m_position;
    return std::clamp(KnobFrameOf(number->GetValue(), m_converter, Frames()), 0, Frames() - 1);
}

QPoint CPot::PopupTopLeft() const
{
    const QPoint topLeft = mapToGlobal(QPoint(0, 0));
    const int w = width();
    const int h = height();
    if (m_spec->popupHorizontal) {
        const int y = m_spec->popupSide ? topLeft.y() - CutToInt(0.6 * h) : topLeft.y() + CutToInt(1.2 * h);
        return {topLeft.x() - 63, y};
    }
    return {topLeft.x() - 16 + (m_spec->popupSide ? 0 : 2 * w), topLeft.y() - 65};
}

void CPot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    DrawBitmapPart(painter, m_spec->stripBitmap, QPoint(0, 0),
                   QRect(m_position * m_frameWidth, 0, m_frameWidth, m_frameHeight));
}

void CPot::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    setFocus(Qt::MouseFocusReason);
    auto* number = AccessibleSubject();
    if (m_disabled || !number || m_popup)
        return;
    m_popup = std::make_unique<CPopupPotFaderFrame>(number, m_spec);
    m_popup->Fader().SetConverter(m_converter);
    m_popup->CreatePopup(parentWidget() ? parentWidget() : this, PopupTopLeft());
    // Qt's implicit grab keeps every move and the release on this knob until the button goes up.
    Subject->NotifyObservers(kHintPressed, 0);
    m_popup->BeginDrag(event->position().toPoint());
}

void CPot::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (m_popup)
        m_popup->DragTo(event->position().toPoint());
}

void CPot::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || !m_popup)
        return;
    EndPopup(event->position().toPoint());
}

void CPot::EndPopup(QPoint point)
{
    QCursor::setPos(mapToGlobal(QPoint(width() / 2, height() / 2)));
    m_popup->EndDrag(point);
    m_popup.reset();
    setFocus(Qt::MouseFocusReason);
    if (Subject)
        Subject->NotifyObservers(kHintReleased, 0);
}

void CPot::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second press of a double click opens no pop-up.
    event->accept();
    if (event->button() != Qt::LeftButton || !m_centreOnDoubleClick)
        return;
    if (auto* number = AccessibleSubject())
        number->SetValue(KnobValueOf((Frames() - 1) / 2, m_converter, Frames()));
}

void CPot::Update(CObservable*, int hint, std::intptr_t)
{
    if (!m_created || hint == kHintDetached || hint == kHintPressed || hint == kHintReleased)
        return;
    const int frame = FrameForValue();
    // A gang would hear of the change here; no knob of the program is ganged.
    m_position = frame;
    update();
}

void CPot::GangMove(CObserver*, double delta, int mode)
{
    if (mode != 1)
        return;
    const int frame = std::clamp(m_position + CutToInt(delta), 0, Frames() - 1);
    if (frame == m_position)
        return;
    m_position = frame;
    update();
    CObservable* subject = Subject;
    if (auto* number = AccessibleSubject()) {
        subject->RemoveObserver(this, 0);
        number->SetValue(KnobValueOf(m_position, m_converter, Frames()));
        subject->AddObserver(this, 0);
    }
}

CObservableNumber* CPot::AccessibleSubject() const
{
    return dynamic_cast<CObservableNumber*>(Subject);
}

double CPot::AccessibleStep() const
{
    const CObservableNumber* number = AccessibleSubject();
    // One position of the pop-up fader's 128.
    return number ? (number->GetMaximum() - number->GetMinimum()) / 127.0 : 0.0;
}

void CPot::AccessibleSetValue(double value)
{
    auto* number = AccessibleSubject();
    if (!number || m_disabled || m_popup)
        return;
    constexpr int positions = 128;
    const int position = std::clamp(FaderPositionOf(value, m_converter, positions), 0, positions - 1);
    Subject->NotifyObservers(kHintPressed, 0);
    number->SetValue(FaderValueOf(position, m_converter, positions));
    Subject->NotifyObservers(kHintReleased, 0);
}
