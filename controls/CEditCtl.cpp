#include "controls/CEditCtl.h"

#include "controls/CDecimalDisplay.h"

#include <QKeyEvent>

#include <algorithm>
#include <charconv>

namespace {

bool IsLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

} // namespace

double AtofC(const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    const char* p = bytes.constData();
    const char* end = p + bytes.size();
    while (p < end && IsBlank(*p))
        ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-'))
        negative = *p++ == '-';
    // from_chars would take a second sign; atof does not.
    if (p == end || *p == '+' || *p == '-')
        return 0.0;
    double value = 0.0;
    if (std::from_chars(p, end, value).ec != std::errc())
        return 0.0;
    return negative ? -value : value;
}

CEditCtl::CEditCtl(CDecimalDisplay* owner)
    : QLineEdit(owner), m_owner(owner)
{
    hide();
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setCursor(Qt::ArrowCursor);
    // A context menu would take the focus, and with it commit and close the edit under the menu.
    setContextMenuPolicy(Qt::NoContextMenu);
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
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->accept();
        Finish(13);
        return;
    }
    if (key == Qt::Key_Escape) {
        event->accept();
        setText(numeric ? QString::asprintf("%f", openValue) : openText);
        Finish(27);
        return;
    }
    const QString typed = event->text();
    if (!allowLetters && std::any_of(typed.begin(), typed.end(), IsLetter)) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void CEditCtl::Finish(int key)
{
    lastKey = key;
    m_owner->setFocus(Qt::OtherFocusReason);
    // Where the display could not take the focus, the edit closes all the same.
    Close();
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
