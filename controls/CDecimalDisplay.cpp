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
#include <tuple>

namespace {

constexpr int kNoField = -1;
constexpr int kNumberField = 0;
constexpr int kUnitsField = 1;
constexpr int kArrowField = 2;

constexpr int kSunkenEdge = 10;
constexpr int kRaisedEdge = 5;

// The digit spin's timer: 500 ms at the digit's edge, 10 ms less for each further 10 pixels, never
// under 10 ms. A running timer is replaced only for a change of 10 ms or more.
constexpr int kSpinSlowest = 500;
constexpr int kSpinFastest = 10;
constexpr int kSpinSignificantChange = 10;

bool IsDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool IsSign(QChar c)
{
    return c == QLatin1Char('-') || c == QLatin1Char('+');
}

int SignWidth(const QString& text)
{
    return !text.isEmpty() && IsSign(text.front()) ? 1 : 0;
}

QChar Digit(int digit)
{
    return QChar(QLatin1Char(static_cast<char>('0' + digit)));
}

// The digit at position and those left of it counted one down, as on paper: a 0 becomes 9 and
// borrows from the next digit, the point skipped; but a 0 in a text that reads as zero becomes 1,
// so that a spin down through zero goes on below it.
QString CountDown(QString text, int position)
{
    for (int i = position; i >= 0; --i) {
        const QChar c = text[i];
        if (c == QLatin1Char('.'))
            continue;
        if (!IsDigit(c))
            break;
        if (c != QLatin1Char('0')) {
            text[i] = Digit(c.digitValue() - 1);
            break;
        }
        if (AtofC(text) == 0.0) {
            text[i] = QLatin1Char('1');
            break;
        }
        text[i] = QLatin1Char('9');
    }
    return text;
}

// The digit at position counted one up, carrying into the digits left of it, the point skipped;
// a carry out of the leftmost digit, or into a blank, puts a 1 in front of the text.
QString CountUp(QString text, int position)
{
    for (int i = position;; --i) {
        if (i < 0 || !(IsDigit(text[i]) || text[i] == QLatin1Char('.')))
            return QLatin1Char('1') + text;
        if (text[i] == QLatin1Char('.'))
            continue;
        const int digit = (text[i].digitValue() + 1) % 10;
        text[i] = Digit(digit);
        if (digit != 0)
            return text;
        if (i == 0 || text[i - 1] == QLatin1Char(' '))
            return QLatin1Char('1') + text;
    }
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
    KillSpinTimer();
    // The children go while the display is whole: an open edit is dropped, not committed.
    delete m_edit;
    delete m_up;
    delete m_down;
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
    if (m_created)
        return false;
    setParent(parent);
    SetControlId(this, id);
    const QSize size = m_spec.size;
    setGeometry(QRect(topLeft, size));
    if (m_spec.hasArrows && GetArrowBitmaps().AllSet()) {
        const int a = std::clamp(static_cast<int>(0.2 * size.width()), 5, 15);
        m_arrowRect = QRect(size.width() - a, 0, a, size.height());
        m_numberRect = QRect(0, 0, m_arrowRect.left() - 1, size.height());
        const QRect upRect(m_arrowRect.left(), 0, a, size.height() / 2);
        const QRect downRect(m_arrowRect.left(), upRect.height(), a, size.height() - upRect.height());
        m_up = new CUpArrowButton(this);
        m_down = new CDownArrowButton(this);
        for (auto [arrow, place, arrowId] : {std::tuple{m_up, upRect, res::IDC_DISPLAY_UP},
                                             std::tuple{m_down, downRect, res::IDC_DISPLAY_DOWN}}) {
            arrow->SetAutoRepeat(true);
            arrow->Create(this, arrowId, place.topLeft());
            arrow->SetDrawSize(place.size());
            // A display that takes no input lets the arrows' presses fall to itself, which drops them.
            arrow->setAttribute(Qt::WA_TransparentForMouseEvents, !m_spec.interactive);
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

void CDecimalDisplay::AccessibleSetValue(double value)
{
    if (CObservableNumber* number = AccessibleSubject())
        number->SetValue(value);
}

double CDecimalDisplay::Value() const
{
    const CObservableNumber* number = AccessibleSubject();
    return number ? number->GetValue() : 0.0;
}

QRect CDecimalDisplay::TextArea() const
{
    return m_up ? QRect(0, 0, m_arrowRect.left(), height()) : rect();
}

QString CDecimalDisplay::FormatValue(double value, bool padded) const
{
    double magnitude = std::fabs(value);
    if (m_spec.decimals == 0 && value != 0.0)
        magnitude = std::fabs(value > 0.0 ? value - 0.5 : value + 0.5);
    const QString printed =
        QString::asprintf("%*.*f", m_spec.integerDigits, std::max(0, m_spec.decimals), magnitude);
    const qsizetype point = printed.indexOf(QLatin1Char('.'));
    QString whole = point >= 0 ? printed.left(point + 1) : printed;
    QString fraction = point >= 0 ? printed.mid(point + 1) : QString();
    const qsizetype wholeWidth = std::max(0, m_spec.integerDigits + 1);
    if (padded && whole.size() > wholeWidth)
        whole = whole.right(wholeWidth);
    if (m_spec.zeroPad && whole.size() < wholeWidth)
        whole.prepend(QString(wholeWidth - whole.size(), QLatin1Char('0')));
    if (!m_spec.keepTrailingZeros)
        while (fraction.endsWith(QLatin1Char('0')))
            fraction.chop(1);
    const QString joined = whole + fraction;
    qsizetype blanks = 0;
    while (blanks < joined.size() && joined[blanks] == QLatin1Char(' '))
        ++blanks;
    return joined.mid(blanks);
}

QString CDecimalDisplay::AddSign(const QString& text, double value) const
{
    if (AtofC(text) == 0.0)
        return text;
    if (value < 0.0)
        return QLatin1Char('-') + text;
    if (m_spec.showPlus && value > 0.0)
        return QLatin1Char('+') + text;
    return text;
}

QString CDecimalDisplay::ShownText(double value) const
{
    QString text = AddSign(FormatValue(value, false), value);
    if (!m_spec.units.isEmpty())
        text += QLatin1Char(' ') + m_spec.units;
    return text;
}

// --- Painting -----------------------------------------------------------------------------------

void CDecimalDisplay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Update(Subject, kHintPaint, reinterpret_cast<std::intptr_t>(&painter));
    if (m_spec.edge == kSunkenEdge || m_spec.edge == kRaisedEdge)
        DrawEdge(painter, rect(), m_spec.edge == kSunkenEdge);
}

void CDecimalDisplay::Paint(QPainter& painter)
{
    painter.fillRect(rect(), ControlColour(m_spec.backColour));
    if (m_spec.backBitmap) {
        if (m_spec.bitmapSized)
            DrawBitmap(painter, m_spec.backBitmap, rect());
        else
            BlitBitmap(painter, m_spec.backBitmap, 0, 0);
    }
    const QRect focused = FieldRect(m_focusField);
    if (m_spec.focusFrame && !focused.isEmpty())
        DrawEdge(painter, focused, false);
    painter.save();
    PaintText(painter);
    painter.restore();
}

int CDecimalDisplay::TextLeft(const QString& text) const
{
    const QFontMetrics metrics(ControlFont(m_spec.font));
    return m_numberRect.left() + (m_numberRect.width() - metrics.horizontalAdvance(text)) / 2;
}

QRect CDecimalDisplay::CharacterRect(const QString& text, int index) const
{
    if (index < 0 || index >= text.size())
        return {};
    const QFontMetrics metrics(ControlFont(m_spec.font));
    const int left = TextLeft(text);
    const int from = left + metrics.horizontalAdvance(text.left(index));
    const int to = left + metrics.horizontalAdvance(text.left(index + 1));
    const int top = m_numberRect.top() + (m_numberRect.height() - metrics.height()) / 2;
    return QRect(from, top, to - from, metrics.height());
}

QRect CDecimalDisplay::DigitRect(int digit) const
{
    const QString text = ShownText(Value());
    return CharacterRect(text, digit + SignWidth(text));
}

void CDecimalDisplay::PaintText(QPainter& painter)
{
    const QString text = HasSubject() ? ShownText(Value()) : QStringLiteral("-");
    const QFontMetrics metrics(ControlFont(m_spec.font));
    const QPoint origin(TextLeft(text),
                        m_numberRect.top() + (m_numberRect.height() - metrics.height()) / 2 + metrics.ascent());
    painter.setFont(ControlFont(m_spec.font));
    painter.setClipRect(m_numberRect);
    painter.setPen(ControlColour(m_spec.textColour));
    painter.drawText(origin, text);
    if (!HasSubject() || m_spinDigitRect.isEmpty())
        return;
    // The pressed digit: the same text again, seen only through the digit's rectangle.
    painter.setClipRect(m_spinDigitRect & m_numberRect);
    painter.fillRect(m_spinDigitRect, ControlColour(m_spec.backColour));
    painter.setPen(ControlColour(m_spec.highlightColour));
    painter.drawText(origin, text);
}

void CDecimalDisplay::Update(CObservable*, int hint, std::intptr_t extra)
{
    switch (hint) {
    case kHintAboutToChange:
        m_remembered = Value();
        break;
    case kHintChanged:
        if (m_created)
            RedrawValue(m_remembered, Value());
        break;
    case kHintAttached:
    case kHintDetached:
        update();
        break;
    case kHintPaint:
        Paint(*reinterpret_cast<QPainter*>(extra));
        break;
    case kHintPressed:
    case kHintReleased:
        // The read-out lights while its knob is pressed, and returns on the release.
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
    if ((oldValue < 0.0) != (newValue < 0.0))
        update(m_numberRect);
}

void CDecimalDisplay::RedrawChangedDigits(double oldValue, double newValue)
{
    const QString before = ShownText(oldValue);
    const QString after = ShownText(newValue);
    QRegion changed;
    if (before.size() != after.size()) {
        changed = m_numberRect;
    } else {
        for (int i = 0; i < after.size(); ++i)
            if (before[i] != after[i])
                changed += CharacterRect(after, i).adjusted(-2, 0, 2, 0) & rect();
    }
    if (!changed.isEmpty())
        repaint(changed);
}

// --- Fields and keys ----------------------------------------------------------------------------

QRect CDecimalDisplay::FieldRect(int field) const
{
    if (field == kNumberField)
        return m_numberRect;
    if (field == kArrowField && m_up)
        return m_arrowRect;
    return {};
}

int CDecimalDisplay::FieldAt(QPoint point) const
{
    for (int field : {kNumberField, kUnitsField, kArrowField})
        if (FieldRect(field).contains(point))
            return field;
    return kNoField;
}

void CDecimalDisplay::InvalidateField(int field)
{
    const QRect area = FieldRect(field);
    if (!area.isEmpty())
        update(area);
}

void CDecimalDisplay::SetFocusField(int field)
{
    InvalidateField(m_focusField);
    m_focusField = field;
    InvalidateField(m_focusField);
}

bool CDecimalDisplay::event(QEvent* event)
{
    // Tab walks the display's own fields rather than the dialog's controls.
    if (event->type() == QEvent::KeyPress && m_spec.interactive) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            SetFocusField((m_focusField + 1) % (m_up ? 3 : 2));
            return true;
        }
    }
    return QWidget::event(event);
}

void CDecimalDisplay::keyPressEvent(QKeyEvent* event)
{
    if (!m_spec.interactive) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // The edit closes on its own Enter; here it is closed already. The key ends here all the
        // same, so that it never reaches a dialog's default button.
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
        return;
    }
    event->accept();
}

void CDecimalDisplay::Step(bool up)
{
    CObservableNumber* number = AccessibleSubject();
    if (!number)
        return;
    const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
    const double step = (held & Qt::ControlModifier) ? m_spec.ctrlStep
                        : (held & Qt::ShiftModifier) ? m_spec.shiftStep
                                                     : m_spec.step;
    // No range check here: the value drops a step beyond its range, with no message.
    number->SetValue(number->GetValue() + (up ? step : -step));
}

void CDecimalDisplay::OnButtonCommand(int controlId)
{
    if (!m_spec.interactive)
        return;
    if (m_focusField != kArrowField)
        SetFocusField(kArrowField);
    Step(controlId == res::IDC_DISPLAY_UP);
}

void CDecimalDisplay::OnButtonRepeat(int controlId)
{
    OnButtonCommand(controlId);
}

void CDecimalDisplay::OnArrowLostFocus()
{
    SetFocusField(kNoField);
}

void CDecimalDisplay::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    SetFocusField(kNoField);
    // A window that goes to the back takes the mouse with it, and no release would end the spin.
    if (m_spinning)
        StopSpin();
}

void CDecimalDisplay::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (m_edit && (m_edit->lastKey == 13 || m_edit->lastKey == 27)) {
        m_edit->lastKey = -1;
        SetFocusField(m_edit->numeric ? kNumberField : kUnitsField);
    } else if (m_focusField == kNoField) {
        SetFocusField(kNumberField);
    }
}

// --- In-place edit ------------------------------------------------------------------------------

void CDecimalDisplay::OpenEdit()
{
    if (!HasSubject() || !m_edit)
        return;
    m_focusField = kNumberField;
    m_edit->setGeometry(m_numberRect);
    const double value = Value();
    QString text = FormatValue(value, false);
    if (value < 0.0)
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
        // The units stand in the number's rectangle, behind the number.
        update(m_numberRect);
    }
}

void CDecimalDisplay::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    if (m_spec.interactive && event->button() == Qt::LeftButton && m_numberRect.contains(event->position().toPoint()))
        OpenEdit();
}

// --- Digit spin ---------------------------------------------------------------------------------

bool CDecimalDisplay::FindDigit(QPoint point, int* digit, QRect* area) const
{
    const QString text = ShownText(Value());
    for (int i = 0; i < text.size(); ++i) {
        if (!IsDigit(text[i]))
            continue;
        const QRect character = CharacterRect(text, i);
        if (character.contains(point)) {
            *digit = i - SignWidth(text);
            *area = character;
            return true;
        }
    }
    return false;
}

void CDecimalDisplay::mousePressEvent(QMouseEvent* event)
{
    // Taken, so that Qt sends the moves and the release here until the button goes up.
    event->accept();
    if (!m_spec.interactive || event->button() != Qt::LeftButton)
        return;
    setFocus(Qt::MouseFocusReason);
    const QPoint point = event->position().toPoint();
    const int field = FieldAt(point);
    if (field != m_focusField)
        SetFocusField(field);
    int digit = -1;
    QRect area;
    if (field != kNumberField || !HasSubject() || !FindDigit(point, &digit, &area))
        return;
    if (area != m_spinDigitRect) {
        update(m_spinDigitRect);
        update(area);
    }
    m_spinDigit = digit;
    m_spinDigitRect = area;
    m_spinning = true;
}

void CDecimalDisplay::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_spinning)
        return;
    const int y = event->position().toPoint().y();
    if (y >= m_spinDigitRect.top() && y <= m_spinDigitRect.bottom()) {
        KillSpinTimer();
        return;
    }
    m_spinUp = y < m_spinDigitRect.top();
    const int d = m_spinUp ? m_spinDigitRect.top() - y : y - m_spinDigitRect.bottom();
    const int wanted = std::max(kSpinFastest, (kSpinSlowest / 10 - d / 10) * 10);
    // spinInterval is not reset when the mouse comes back into the digit, so a second excursion to
    // the same distance starts no timer; and at 500 from the start, nothing runs until the mouse is
    // 10 pixels out. Both are deliberate.
    if (std::abs(wanted - m_spinInterval) >= kSpinSignificantChange) {
        m_spinInterval = wanted;
        SetSpinTimer(wanted);
    }
}

void CDecimalDisplay::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    if (m_spinning) {
        m_spinning = false;
        KillSpinTimer();
    }
    update(m_spinDigitRect);
    m_spinDigitRect = QRect();
}

void CDecimalDisplay::SetSpinTimer(int interval)
{
    KillSpinTimer();
    m_spinTimer = startTimer(interval, Qt::PreciseTimer);
}

void CDecimalDisplay::KillSpinTimer()
{
    if (m_spinTimer)
        killTimer(m_spinTimer);
    m_spinTimer = 0;
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
    KillSpinTimer();
    m_spinning = false;
    update(m_spinDigitRect);
    m_spinDigitRect = QRect();
}

// One tick of the digit spin: the pressed digit is counted one up or down as on paper, carrying
// into the digits to its left, and the value moves by the difference between the two texts.
void CDecimalDisplay::SpinTick()
{
    CObservableNumber* number = AccessibleSubject();
    if (!number) {
        StopSpin();
        return;
    }
    const double value = number->GetValue();
    const QString full = FormatValue(value, false);
    const QString padded = FormatValue(value, true);
    if (m_spinDigit < 0 || m_spinDigit >= padded.size()) {
        StopSpin();
        return;
    }
    // The digit's place in the full text, which is longer than the padded one for a number wider
    // than the field.
    const int position = m_spinDigit - static_cast<int>(padded.size()) + static_cast<int>(full.size());
    const QString counted = m_spinUp ? CountUp(full, position) : CountDown(full, position);
    const double change = std::fabs(AtofC(counted) - AtofC(full));
    const double next = m_spinUp ? value + change : value - change;
    const bool followed = FollowSpunDigit(next, padded, position);
    number->SetValue(next);
    if (!followed) {
        StopSpin();
        return;
    }
    // Keep the rectangle over the digit it names in the text as it now stands.
    const QRect area = DigitRect(m_spinDigit);
    if (area != m_spinDigitRect && !area.isEmpty()) {
        update(m_spinDigitRect);
        update(area);
        m_spinDigitRect = area;
    }
}

bool CDecimalDisplay::FollowSpunDigit(double newValue, const QString& padded, int position)
{
    const QString after = FormatValue(newValue, false);
    if (after.size() > padded.size()) {
        ++m_spinDigit;
    } else if (after.size() < padded.size()) {
        if (m_spinDigit == 0)
            return false;
        --m_spinDigit;
    }
    return !(m_spinUp && m_spec.zeroPad && after.size() <= position);
}
