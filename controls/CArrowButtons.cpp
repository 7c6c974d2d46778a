#include "controls/CArrowButtons.h"

#include "controls/CDecimalDisplay.h"
#include "controls/ControlGraphics.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

bool IsTab(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

} // namespace

CArrowButton::CArrowButton(int normalBitmap, int pressedBitmap, CDecimalDisplay* owner)
    : CTalmeButton(normalBitmap, pressedBitmap, 0), m_display(owner)
{
    SetOwner(owner);
}

bool CArrowButton::event(QEvent* event)
{
    // Tab is the arrow's key, not a move along the dialog's focus chain.
    if (event->type() == QEvent::KeyPress && IsTab(*static_cast<QKeyEvent*>(event))) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return CTalmeButton::event(event);
}

void CArrowButton::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (IsTab(*event)) {
        m_display->setFocus(Qt::TabFocusReason);
    } else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        QKeyEvent forwarded(QEvent::KeyPress, event->key(), event->modifiers(), event->text());
        QApplication::sendEvent(m_display, &forwarded);
    }
}

void CArrowButton::focusOutEvent(QFocusEvent* event)
{
    CTalmeButton::focusOutEvent(event);
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
