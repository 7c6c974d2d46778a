#include "controls/CTalmeButton.h"

#include "controls/BitmapResource.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/DrawHelpers.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int kNormal = 0;
constexpr int kPressed = 1;
constexpr int kDisabled = 2;

} // namespace

CTalmeButton::CTalmeButton(int normalBitmap, int pressedBitmap, int disabledBitmap)
    : m_bitmaps{normalBitmap, pressedBitmap, disabledBitmap}
{
    // The press takes the focus itself, and only when the button is not disabled.
    setFocusPolicy(Qt::NoFocus);
    // A click of any origin, the mouse's or an accessibility tool's press, is the command.
    connect(this, &QAbstractButton::clicked, this, [this] { Command(); });
}

CTalmeButton::~CTalmeButton()
{
    StopRepeat();
}

bool CTalmeButton::Create(QWidget* parent, int id, QPoint topLeft, int)
{
    m_controlId = id;
    setParent(parent);
    SetControlId(this, id);
    if (!m_owner)
        m_owner = dynamic_cast<TalmeButtonOwner*>(parent);
    setGeometry(QRect(topLeft, sizeHint()));
    show();
    return true;
}

QSize CTalmeButton::sizeHint() const
{
    if (m_drawSize.isValid())
        return m_drawSize;
    if (m_textMode)
        return QFontMetrics(ControlFont(m_captionFont)).size(Qt::TextSingleLine, text());
    return BitmapSize(m_bitmaps[kNormal]);
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

void CTalmeButton::SetHeld(bool held)
{
    setDown(held);
    if (!m_isToggle)
        m_pressed = held;
    update();
}

void CTalmeButton::Command()
{
    if (m_owner && !m_disabled)
        m_owner->OnButtonCommand(m_controlId);
}

void CTalmeButton::StartRepeat()
{
    StopRepeat();
    m_repeatTimer = startTimer(kRepeatMilliseconds, Qt::PreciseTimer);
}

void CTalmeButton::StopRepeat()
{
    if (m_repeatTimer)
        killTimer(m_repeatTimer);
    m_repeatTimer = 0;
}

void CTalmeButton::mousePressEvent(QMouseEvent* event)
{
    // Taking the press is the capture: Qt sends the moves and the release here, wherever they are.
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    m_captured = true;
    if (m_disabled)
        return;
    // The focus moves before the command, so that an owner that loses the focus to this button has
    // done so by the time it handles the command.
    setFocus(Qt::MouseFocusReason);
    if (m_autoRepeat) {
        Command();
        StartRepeat();
    }
    SetHeld(true);
}

void CTalmeButton::mouseMoveEvent(QMouseEvent* event)
{
    // Only the look follows the mouse out and back in: leaving the button stops no repeat.
    event->accept();
    if (m_captured && !m_disabled)
        SetHeld(rect().contains(event->position().toPoint()));
}

void CTalmeButton::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    const bool wasCaptured = std::exchange(m_captured, false);
    // Also where the button was disabled while it was held: nothing may repeat past the release.
    StopRepeat();
    if (m_disabled || !wasCaptured)
        return;
    const bool inside = rect().contains(event->position().toPoint());
    if (m_isToggle && inside) {
        m_toggled = !m_toggled;
        m_pressed = m_toggled;
    }
    // An auto-repeat button gave its step at the press: its release is no click.
    const bool click = !m_autoRepeat && inside && isDown();
    SetHeld(false);
    if (click)
        Q_EMIT clicked(m_toggled);
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
    StartRepeat();
}

void CTalmeButton::focusOutEvent(QFocusEvent* event)
{
    // A held button that loses the focus lets the mouse go: its release then neither clicks nor
    // flips a toggle.
    StopRepeat();
    QAbstractButton::focusOutEvent(event);
    if (m_disabled || !m_captured)
        return;
    m_captured = false;
    SetHeld(false);
}

void CTalmeButton::paintEvent(QPaintEvent*)
{
    // No background is erased: where a state has no bitmap, what lies beneath shows through.
    QPainter painter(this);
    DrawItem(painter);
}

void CTalmeButton::DrawItem(QPainter& painter)
{
    const int state = m_disabled ? kDisabled : m_pressed ? kPressed : kNormal;
    if (!m_textMode) {
        if (m_bitmaps[state])
            DrawBitmap(painter, m_bitmaps[state], rect());
        return;
    }
    painter.fillRect(rect(), ControlBrush(m_fillColours[state]));
    painter.setFont(ControlFont(m_captionFont));
    painter.setPen(ControlPen(m_captionColours[state]));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (m_captionEdge)
        DrawEdge(painter, rect(), state == kPressed);
}
