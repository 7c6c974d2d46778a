#include "controls/CEditCtl.h"

#include "controls/CDecimalDisplay.h"

#include <QKeyEvent>

#include <charconv>
#include <cstdio>

double AtofC(const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    const char* p = bytes.constData();
    const char* end = p + bytes.size();
    while (p < end && (*p == ' ' || *p == '\t' || *p == '\n' || *p == '\r' || *p == '\f' || *p == '\v'))
        ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    double value = 0.0;
    const auto result = std::from_chars(p, end, value);
    if (result.ec != std::errc())
        return 0.0;
    return negative ? -value : value;
}

CEditCtl::CEditCtl(CDecimalDisplay* owner)
    : QLineEdit(owner), m_owner(owner)
{
    hide();
    setFrame(false);
    setAlignment(Qt::AlignCenter);
}

void CEditCtl::Open(const QString& text)
{
    setText(text);
    lastKey = -1;
    m_open = true;
    show();
    raise();
    selectAll();
    setFocus(Qt::OtherFocusReason);
}

void CEditCtl::OpenWithValue(double value, const QString& text)
{
    openValue = value;
    numeric = true;
    Open(text);
}

void CEditCtl::OpenWithText(const QString& text)
{
    openText = text;
    numeric = false;
    Open(text);
}

double CEditCtl::GetNumber() const
{
    return AtofC(text());
}

void CEditCtl::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (!allowLetters && key >= Qt::Key_A && key <= Qt::Key_Z && !(event->modifiers() & Qt::ControlModifier)) {
        event->accept();
        return;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->accept();
        lastKey = 13;
        m_owner->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (key == Qt::Key_Escape) {
        event->accept();
        // The opening text comes back, and is committed as any other text would be.
        setText(numeric ? QString::asprintf("%f", openValue) : openText);
        lastKey = 27;
        m_owner->setFocus(Qt::OtherFocusReason);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void CEditCtl::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    Close();
}

void CEditCtl::Close()
{
    if (!m_open)
        return;
    m_open = false;
    hide();
    m_owner->OnEditCommit(*this);
}
