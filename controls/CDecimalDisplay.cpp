#include "controls/CDecimalDisplay.h"

#include "controls/BitmapResource.h"
#include "controls/CArrowButtons.h"
#include "controls/CEditCtl.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/DrawHelpers.h"
#include "resources/ResourceIds.h"
#include "values/CObservableNumber.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr int kNumberField = 0;
constexpr int kUnitsField = 1;
constexpr int kArrowField = 2;

// The digit spin's timer law: 500 ms at the digit's edge, 10 ms less for every 10 pixels further,
// never under 10 ms; a running timer is replaced only for a change of 10 ms or more.
constexpr int kSpinSlowest = 500;
constexpr int kSpinFastest = 10;

bool IsDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

} // namespace

CDecimalDisplay::CDecimalDisplay()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::ArrowCursor);
}

CDecimalDisplay::~CDecimalDisplay()
{
    StopSpin();
}

void CDecimalDisplay::SetSpec(const CDecimalDisplaySpec* spec)
{
    if (!spec)
        return;
    m_spec = *spec;
    if (!m_spec.backDib)
        m_spec.useBackDib = 0;
}

bool CDecimalDisplay::Create(QWidget* parent, QPoint topLeft, int id, int)
{
    setParent(parent);
    SetControlId(this, id);
    const QSize size = m_spec.size;
    setGeometry(QRect(topLeft, size));
    const ArrowBitmapIds& arrows = GetArrowBitmaps();
    const bool withArrows = m_spec.hasArrows && arrows.AllSet();
    if (withArrows) {
        const int a = std::clamp(static_cast<int>(0.2 * size.width()), 5, 15);
        m_arrowRect = QRect(size.width() - a, 0, a, size.height());
        m_numberRect = QRect(0, 0, m_arrowRect.left() - 1, size.height());
        m_up = new CUpArrowButton(this);
        m_down = new CDownArrowButton(this);
        const QRect upRect(m_arrowRect.left(), 0, a, size.height() / 2);
        const QRect downRect(m_arrowRect.left(), upRect.bottom() + 1, a, size.height() - upRect.height());
        for (auto [button, place, id2] : {std::tuple{m_up, upRect, res::IDC_DISPLAY_UP},
                                          std::tuple{m_down, downRect, res::IDC_DISPLAY_DOWN}}) {
            button->SetAutoRepeat(true);
            button->Create(this, id2, place.topLeft());
            button->SetDrawSize(place.size());
            button->setFocusPolicy(m_spec.interactive ? Qt::ClickFocus : Qt::NoFocus);
        }
        m_up->setAccessibleName(QStringLiteral("Up"));
        m_down->setAccessibleName(QStringLiteral("Down"));
    } else {
        m_numberRect = QRect(0, 0, size.width() - 1, size.height());
    }
    m_edit = new CEditCtl(this);
    SetControlId(m_edit, res::IDC_DISPLAY_EDIT);
    m_edit->setGeometry(m_numberRect);
    m_edit->setFont(ControlFont(m_spec.font));
    if (!m_spec.interactive)
        setFocusPolicy(Qt::NoFocus);
    m_created = true;
    show();
    return true;
}

CObservableNumber* CDecimalDisplay::AccessibleSubject() const
{
    return dynamic_cast<CObservableNumber*>(Subject);
}

double CDecimalDisplay::Value() const
{
    const CObservableNumber* number = AccessibleSubject();
    return number ? number->GetValue() : 0.0;
}

void CDecimalDisplay::AccessibleSetValue(double value)
{
    if (CObservableNumber* number = AccessibleSubject())
        number->SetValue(value);
}

QString CDecimalDisplay::FormatValue(double value, bool padded) const
{
    char format[32];
    std::snprintf(format, sizeof format, "%s%d.%df", "%", m_spec.integerDigits, m_spec.decimals);
    double magnitude = value;
    if (m_spec.decimals > 0)
        magnitude = std::fabs(value);
    else if (value != 0.0)
        magnitude = std::fabs(value > 0 ? value - 0.5 : value + 0.5);
    char printed[512];
    std::snprintf(printed, sizeof printed, format, magnitude);
    const QString text = QString::fromLatin1(printed);
    const int point = text.indexOf(QLatin1Char('.'));
    QString whole = point >= 0 ? text.left(point + 1) : text;
    QString fraction = point >= 0 ? text.mid(point + 1) : QString();
    const int wholeWidth = m_spec.integerDigits + 1;
    if (padded && whole.size() > wholeWidth)
        whole = whole.right(wholeWidth);
    if (m_spec.zeroPad) {
        // Blanks of the field width count as room for zeros.
        whole.replace(QLatin1Char(' '), QLatin1Char('0'));
        while (whole.size() < wholeWidth)
            whole.prepend(QLatin1Char('0'));
    }
    if (!m_spec.keepTrailingZeros)
        while (fraction.endsWith(QLatin1Char('0')))
            fraction.chop(1);
    QString joined = whole + fraction;
    int blanks = 0;
    while (blanks < joined.size() && joined[blanks] == QLatin1Char(' '))
        ++blanks;
    return joined.mid(blanks);
}

QString CDecimalDisplay::AddSign(const QString& text, double value) const
{
    if (AtofC(text) == 0.0)
        return text;
    if (value < 0)
        return QLatin1Char('-') + text;
    if (m_spec.showPlus && value > 0)
        return QLatin1Char('+') + text;
    return text;
}

QString CDecimalDisplay::DisplayText() const
{
    const double value = Value();
    QString text = AddSign(FormatValue(value, false), value);
    if (!m_spec.units.isEmpty())
        text += QLatin1Char(' ') + m_spec.units;
    return text;
}

QRect CDecimalDisplay::FieldRect(int field) const
{
    switch (field) {
    case kNumberField:
        return m_numberRect;
    case kArrowField:
        return m_up ? m_arrowRect : QRect();
    default:
        return QRect();
    }
}

int CDecimalDisplay::FieldAt(QPoint point) const
{
    for (int field : {kNumberField, kUnitsField, kArrowField})
        if (FieldRect(field).contains(point))
            return field;
    return -1;
}

void CDecimalDisplay::InvalidateField(int field)
{
    const QRect r = FieldRect(field);
    if (!r.isEmpty())
        update(r);
}

QRect CDecimalDisplay::CharacterRect(const QString& text, int index) const
{
    const QFontMetrics metrics(ControlFont(m_spec.font));
    const int left = m_numberRect.left() + (m_numberRect.width() - metrics.horizontalAdvance(text)) / 2;
    const int from = left + metrics.horizontalAdvance(text.left(index));
    const int to = left + metrics.horizontalAdvance(text.left(index + 1));
    const int top = m_numberRect.top() + (m_numberRect.height() - metrics.height()) / 2;
    return QRect(from, top, to - from, metrics.height());
}

void CDecimalDisplay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ControlColour(m_spec.backColour));
    if (m_spec.backBitmap) {
        if (m_spec.bitmapSized)
            DrawBitmap(painter, m_spec.backBitmap, rect());
        else
            BlitBitmap(painter, m_spec.backBitmap, 0, 0);
    }
    if (m_focusField >= 0 && m_spec.focusFrame && !FieldRect(m_focusField).isEmpty())
        DrawFrame3D(painter, FieldRect(m_focusField).adjusted(0, 0, -1, -1), false);
    PaintText(painter);
    if (m_spec.edge == 10)
        DrawFrame3D(painter, rect().adjusted(0, 0, -1, -1), false);
    else if (m_spec.edge == 5)
        DrawFrame3D(painter, rect().adjusted(0, 0, -1, -1), true);
}

void CDecimalDisplay::PaintText(QPainter& painter)
{
    painter.setFont(ControlFont(m_spec.font));
    painter.setPen(ControlColour(TextColour()));
    if (!HasSubject()) {
        painter.drawText(m_numberRect, Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("-"));
        return;
    }
    const QString text = DisplayText();
    painter.drawText(m_numberRect, Qt::AlignCenter | Qt::TextSingleLine, text);
    if (m_spinDigitRect.isEmpty())
        return;
    const bool signed_ = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
    const int index = m_spinDigit + (signed_ ? 1 : 0);
    if (index < 0 || index >= text.size())
        return;
    painter.fillRect(m_spinDigitRect, ControlColour(m_spec.backColour));
    painter.setPen(ControlColour(m_spec.highlightColour));
    painter.drawText(m_spinDigitRect, Qt::AlignCenter | Qt::TextSingleLine, text.mid(index, 1));
}

void CDecimalDisplay::Update(CObservable*, int hint, std::intptr_t)
{
    switch (hint) {
    case kHintAboutToChange:
        m_remembered = Value();
        break;
    case kHintChanged: {
        if (!m_created)
            return;
        RedrawValue(m_remembered, Value());
        break;
    }
    case kHintAttached:
        update();
        break;
    case kHintPressed:
    case kHintReleased:
        // The read-out lights while its knob is pressed.
        std::swap(m_spec.textColour, m_spec.highlightColour);
        update();
        break;
    default:
        break;
    }
}

void CDecimalDisplay::RedrawValue(double oldValue, double newValue)
{
    if (newValue == oldValue)
        return;
    RedrawChangedDigits(oldValue, newValue);
    if ((oldValue < 0) != (newValue < 0))
        repaint(m_numberRect);
}

void CDecimalDisplay::RedrawChangedDigits(double oldValue, double newValue)
{
    auto textOf = [this](double value) {
        QString text = AddSign(FormatValue(value, false), value);
        if (!m_spec.units.isEmpty())
            text += QLatin1Char(' ') + m_spec.units;
        return text;
    };
    const QString before = textOf(oldValue);
    const QString after = textOf(newValue);
    QRegion changed;
    if (before.size() == after.size()) {
        for (int i = 0; i < after.size(); ++i)
            if (before[i] != after[i])
                changed += CharacterRect(after, i).adjusted(-2, 0, 2, 0) & rect();
    } else {
        changed = m_numberRect;
    }
    if (!changed.isEmpty())
        repaint(changed);
}

bool CDecimalDisplay::event(QEvent* event)
{
    // Tab walks the display's own fields rather than the dialog's controls.
    if (event->type() == QEvent::KeyPress && m_spec.interactive &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void CDecimalDisplay::keyPressEvent(QKeyEvent* event)
{
    if (!m_spec.interactive) {
        event->ignore();
        return;
    }
    event->accept();
    switch (event->key()) {
    case Qt::Key_Tab:
        InvalidateField(m_focusField);
        m_focusField = (m_focusField + 1) % (m_up ? 3 : 2);
        InvalidateField(m_focusField);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Closes an open edit, which commits it; with none open there is nothing to do. Either way
        // the key stops here, so that it never reaches a dialog's default button.
        if (m_edit && m_edit->IsOpen())
            setFocus(Qt::OtherFocusReason);
        break;
    case Qt::Key_Space:
        OpenEdit();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (m_focusField == kNumberField || m_focusField == kArrowField)
            Step(event->key() == Qt::Key_Up);
        break;
    default:
        event->ignore();
        break;
    }
}

void CDecimalDisplay::Step(bool up)
{
    CObservableNumber* number = AccessibleSubject();
    if (!number)
        return;
    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    const double step = (modifiers & Qt::ControlModifier) ? m_spec.ctrlStep
                        : (modifiers & Qt::ShiftModifier) ? m_spec.shiftStep
                                                          : m_spec.step;
    // No range check here: the value drops a step beyond its range, with no message.
    number->SetValue(number->GetValue() + (up ? step : -step));
}

void CDecimalDisplay::OnButtonCommand(int controlId)
{
    if (!m_spec.interactive)
        return;
    if (m_focusField != kArrowField) {
        InvalidateField(m_focusField);
        m_focusField = kArrowField;
        InvalidateField(m_focusField);
    }
    Step(controlId == res::IDC_DISPLAY_UP);
}

void CDecimalDisplay::OnButtonRepeat(int controlId)
{
    if (m_spec.interactive)
        Step(controlId == res::IDC_DISPLAY_UP);
}

void CDecimalDisplay::OnArrowLostFocus()
{
    InvalidateField(m_focusField);
    m_focusField = -1;
}

void CDecimalDisplay::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    InvalidateField(m_focusField);
    m_focusField = -1;
}

void CDecimalDisplay::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (m_edit && (m_edit->lastKey == 13 || m_edit->lastKey == 27)) {
        m_focusField = m_edit->numeric ? kNumberField : kUnitsField;
        m_edit->lastKey = -1;
    } else if (m_focusField == -1) {
        m_focusField = kNumberField;
    }
    InvalidateField(m_focusField);
}

void CDecimalDisplay::OpenEdit()
{
    if (!HasSubject() || !m_edit)
        return;
    m_focusField = kNumberField;
    m_edit->setGeometry(m_numberRect);
    const double value = Value();
    QString text = FormatValue(value, false);
    if (value < 0)
        text.prepend(QLatin1Char('-'));
    m_edit->OpenWithValue(AtofC(text), text);
}

void CDecimalDisplay::OnEditCommit(CEditCtl& edit)
{
    if (edit.numeric) {
        AccessibleSetValue(edit.GetNumber());
    } else {
        m_spec.units = edit.GetText();
        InvalidateField(kUnitsField);
    }
    update();
}

bool CDecimalDisplay::FindDigit(QPoint point, int& digit, QRect& rect) const
{
    const QString text = DisplayText();
    const bool signed_ = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
    for (int i = 0; i < text.size(); ++i) {
        if (!IsDigit(text[i]))
            continue;
        const QRect r = CharacterRect(text, i);
        if (r.contains(point)) {
            digit = i - (signed_ ? 1 : 0);
            rect = r;
            return true;
        }
    }
    return false;
}

void CDecimalDisplay::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_spec.interactive || event->button() != Qt::LeftButton)
        return;
    setFocus(Qt::MouseFocusReason);
    const QPoint point = event->position().toPoint();
    const int field = FieldAt(point);
    if (field != m_focusField) {
        InvalidateField(m_focusField);
        m_focusField = field;
        InvalidateField(field);
    }
    if (field != kNumberField || !HasSubject())
        return;
    int digit = -1;
    QRect digitRect;
    if (!FindDigit(point, digit, digitRect))
        return;
    if (digitRect != m_spinDigitRect) {
        update(m_spinDigitRect);
        update(digitRect);
    }
    m_spinDigit = digit;
    m_spinDigitRect = digitRect;
    m_spinning = true;
}

void CDecimalDisplay::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_spinning)
        return;
    const int y = event->position().toPoint().y();
    if (y >= m_spinDigitRect.top() && y <= m_spinDigitRect.bottom()) {
        if (m_spinTimer)
            killTimer(m_spinTimer);
        m_spinTimer = 0;
        return;
    }
    const bool above = y < m_spinDigitRect.top();
    const int d = above ? m_spinDigitRect.top() - y : y - m_spinDigitRect.bottom();
    const int wanted = std::max(kSpinFastest, (50 - d / 10) * 10);
    // Deliberately not reset when the mouse comes back into the digit: a second excursion to the
    // same distance starts no timer.
    if (std::abs(wanted - m_spinInterval) >= 10) {
        m_spinUp = above;
        m_spinInterval = wanted;
        SetSpinTimer(wanted);
    }
}

void CDecimalDisplay::SetSpinTimer(int interval)
{
    if (m_spinTimer)
        killTimer(m_spinTimer);
    m_spinTimer = startTimer(interval);
}

void CDecimalDisplay::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    if (m_spinning) {
        m_spinning = false;
        if (m_spinTimer)
            killTimer(m_spinTimer);
        m_spinTimer = 0;
    }
    update(m_spinDigitRect);
    m_spinDigitRect = QRect();
}

void CDecimalDisplay::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    if (m_spec.interactive && event->button() == Qt::LeftButton && m_numberRect.contains(event->position().toPoint()))
        OpenEdit();
}

void CDecimalDisplay::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_spinTimer)
        SpinTick();
    else
        QWidget::timerEvent(event);
}

void CDecimalDisplay::StopSpin()
{
    if (m_spinTimer)
        killTimer(m_spinTimer);
    m_spinTimer = 0;
    m_spinning = false;
    update(m_spinDigitRect);
    m_spinDigitRect = QRect();
}

// One step of the digit spin: the pressed digit goes up or down by one as a person counts on paper,
// carrying into the digits to its left, and the value moves by the difference between the two texts.
void CDecimalDisplay::SpinTick()
{
    CObservableNumber* number = AccessibleSubject();
    if (!number)
        return;
    const double value = number->GetValue();
    const QString full = FormatValue(value, false);
    const QString padded = FormatValue(value, true);
    if (m_spinDigit < 0 || m_spinDigit >= padded.size()) {
        StopSpin();
        return;
    }
    const int p = m_spinDigit - static_cast<int>(padded.size()) + static_cast<int>(full.size());
    QString text = full;
    int i = p;
    if (!m_spinUp) {
        for (; i >= 0; --i) {
            if (text[i] == QLatin1Char('.'))
                continue;
            if (text[i] > QLatin1Char('0')) {
                text[i] = QChar(text[i].unicode() - 1);
                break;
            }
            if (AtofC(text) == 0.0) {
                text[i] = QLatin1Char('1');
                break;
            }
            text[i] = QLatin1Char('9');
        }
    } else {
        for (;; --i) {
            if (i < 0 || text[i] == QLatin1Char(' ')) {
                text.prepend(QLatin1Char('1'));
                break;
            }
            if (text[i] == QLatin1Char('.'))
                continue;
            const int digit = (text[i].unicode() - '0' + 1) % 10;
            text[i] = QChar('0' + digit);
            if (digit != 0)
                break;
        }
    }
    const double change = std::fabs(AtofC(text) - AtofC(full));
    const double next = m_spinUp ? value + change : value - change;

    if (text.size() > padded.size()) {
        ++m_spinDigit;
    } else if (text.size() < padded.size()) {
        if (m_spinDigit == 0) {
            StopSpin();
            return;
        }
        --m_spinDigit;
    } else if (AddSign(full, value).size() != AddSign(FormatValue(next, false), next).size()) {
        const QString shown = DisplayText();
        const bool signed_ = shown.startsWith(QLatin1Char('-')) || shown.startsWith(QLatin1Char('+'));
        m_spinDigitRect = CharacterRect(shown, m_spinDigit + (signed_ ? 1 : 0));
    }
    if (m_spinUp && m_spec.zeroPad && text.size() <= p) {
        StopSpin();
        return;
    }
    number->SetValue(next);
}
