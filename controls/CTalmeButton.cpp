#include "controls/CTalmeButton.h"

#include "controls/BitmapResource.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/DrawHelpers.h"

#include <QMouseEvent>
#include <QPainter>

CTalmeButton::CTalmeButton(int normalBitmap, int pressedBitmap, int disabledBitmap)
    : m_normalBitmap(normalBitmap), m_pressedBitmap(pressedBitmap), m_disabledBitmap(disabledBitmap)
{
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

CTalmeButton::~CTalmeButton()
{
    StopRepeat();
}

bool CTalmeButton::Create(QWidget* parent, int id, QPoint topLeft)
{
    m_controlId = id;
    setParent(parent);
    SetControlId(this, id);
    if (!m_owner)
        m_owner = dynamic_cast<TalmeButtonOwner*>(parent);
    const QSize size = m_textMode ? sizeHint() : BitmapSize(m_normalBitmap);
    setGeometry(QRect(topLeft, size));
    show();
    return true;
}

QSize CTalmeButton::sizeHint() const
{
    if (m_textMode)
        return QFontMetrics(ControlFont(m_captionFont)).size(Qt::TextSingleLine, text()) + QSize(12, 8);
    return m_drawSize.isValid() ? m_drawSize : BitmapSize(m_normalBitmap);
}

void CTalmeButton::SetDrawSize(QSize size)
{
    m_drawSize = size;
    resize(size);
}

void CTalmeButton::SetPressed(bool flag)
{
    m_pressed = flag;
    m_toggled = flag;
    update();
}

void CTalmeButton::SetDisabled(bool flag)
{
    m_disabled = flag;
    update();
}

void CTalmeButton::SetTextMode(const QString& caption)
{
    m_textMode = true;
    setText(caption);
}

void CTalmeButton::StopRepeat()
{
    if (m_repeatTimer)
        killTimer(m_repeatTimer);
    m_repeatTimer = 0;
}

void CTalmeButton::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    // Qt's implicit grab keeps the mouse here until the release, disabled or not.
    m_captured = true;
    if (m_disabled)
        return;
    if (m_autoRepeat) {
        if (m_owner)
            m_owner->OnButtonCommand(m_controlId);
        StopRepeat();
        m_repeatTimer = startTimer(kRepeatMilliseconds);
    }
    setFocus(Qt::MouseFocusReason);
    setDown(true);
    update();
}

void CTalmeButton::mouseMoveEvent(QMouseEvent* event)
{
    // Leaving the button with the mouse held stops nothing: only the release or the loss of focus does.
    event->accept();
    if (!m_disabled && m_captured && !m_autoRepeat)
        setDown(rect().contains(event->position().toPoint()));
}

void CTalmeButton::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    const bool inside = rect().contains(event->position().toPoint());
    const bool wasCaptured = m_captured;
    m_captured = false;
    if (m_disabled || !wasCaptured)
        return;
    if (m_isToggle && inside) {
        m_toggled = !m_toggled;
        m_pressed = m_toggled;
    }
    setDown(false);
    update();
    // An auto-repeat button gave its step at the press: its release is no click.
    if (m_autoRepeat) {
        StopRepeat();
        return;
    }
    if (inside) {
        if (m_owner)
            m_owner->OnButtonCommand(m_controlId);
        Q_EMIT clicked(m_toggled);
    }
}

void CTalmeButton::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_repeatTimer) {
        QAbstractButton::timerEvent(event);
        return;
    }
    // The next repeat is timed from the end of this one: a slow owner slows the repeat.
    StopRepeat();
    if (m_owner)
        m_owner->OnButtonRepeat(m_controlId);
    m_repeatTimer = startTimer(kRepeatMilliseconds);
}

void CTalmeButton::focusOutEvent(QFocusEvent* event)
{
    StopRepeat();
    QAbstractButton::focusOutEvent(event);
}

void CTalmeButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int state = m_disabled ? 2 : (isDown() || m_pressed) ? 1 : 0;
    if (!m_textMode) {
        const int bitmaps[3] = {m_normalBitmap, m_pressedBitmap, m_disabledBitmap};
        painter.fillRect(rect(), palette().window());
        if (bitmaps[state])
            DrawBitmap(painter, bitmaps[state], rect());
        return;
    }
    painter.fillRect(rect(), ControlBrush(m_fillColours[state]));
    painter.setFont(ControlFont(m_captionFont));
    painter.setPen(ControlPen(m_captionColours[state]));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (m_captionEdge)
        DrawFrame3D(painter, rect().adjusted(0, 0, -1, -1), state == 1);
}
