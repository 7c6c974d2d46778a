#include "controls/CArrowButtons.h"

#include "controls/CDecimalDisplay.h"
#include "controls/ControlGraphics.h"

#include <QApplication>
#include <QKeyEvent>

CArrowButton::CArrowButton(int normalBitmap, int pressedBitmap, CDecimalDisplay* owner)
    : CTalmeButton(normalBitmap, pressedBitmap, 0), m_display(owner)
{
    SetOwner(owner);
}

bool CArrowButton::event(QEvent* event)
{
    // Tab must reach the arrow, not move the focus along the dialog.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return CTalmeButton::event(event);
}

void CArrowButton::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (!m_display)
        return;
    switch (event->key()) {
    case Qt::Key_Tab:
        m_display->setFocus(Qt::TabFocusReason);
        break;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        QKeyEvent forwarded(QEvent::KeyPress, event->key(), event->modifiers());
        QApplication::sendEvent(m_display, &forwarded);
        break;
    }
    default:
        break;
    }
}

void CArrowButton::focusOutEvent(QFocusEvent* event)
{
    CTalmeButton::focusOutEvent(event);
    if (m_display)
        m_display->OnArrowLostFocus();
}

CUpArrowButton::CUpArrowButton(CDecimalDisplay* owner)
    : CArrowButton(GetArrowBitmaps().upNormal, GetArrowBitmaps().upPressed, owner)
{
}

CDownArrowButton::CDownArrowButton(CDecimalDisplay* owner)
    : CArrowButton(GetArrowBitmaps().downNormal, GetArrowBitmaps().downPressed, owner)
{
}
