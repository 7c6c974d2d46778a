#pragma once

#include "controls/AccessibleValue.h"
#include "controls/ReadoutLook.h"
#include "controls/CDigitalDisplay.h"
#include "controls/CTalmeButton.h"
#include "values/CObservable.h"

#include <QRect>
#include <QWidget>

class CArrowButton;
class CEditCtl;
class CObservableNumber;

// The numeric read-out under every knob, and a second full way of changing its value: a pair of
// auto-repeat arrows, the Up and Down keys, typing in place, and the digit spin, in which a pressed
// digit runs up or down the faster the further the mouse goes from it. It works on the value of the
// subject it watches; the range is the value's, so a step or a typed number beyond it is dropped by
// the value, and the display keeps what it showed.
//
// Three fields take the focus in turn with Tab: 0 the number, 1 the units (which has no rectangle),
// 2 the arrows. The display owns its arrows and its edit as child widgets.
class CDecimalDisplay : public QWidget,
                        public CObserver,
                        public CDigitalDisplay,
                        public AccessibleValueControl,
                        public TalmeButtonOwner {
public:
    CDecimalDisplay();
    ~CDecimalDisplay() override;

    // Copies the record, before Create; the record itself is not kept.
    void SetSpec(const CDecimalDisplaySpec* spec);
    const CDecimalDisplaySpec& Spec() const { return m_spec; }
    // The step of the arrows and of the Up and Down keys, in the value's units.
    void SetStep(double step) { m_spec.step = step; }
    // Set by a panel that binds a float value to the display.
    void SetFloatValue(bool isFloat) { m_showsFloat = isFloat; }
    bool ShowsFloat() const { return m_showsFloat; }
    // Lays out the number, the arrows (when the record asks for them and all four arrow bitmaps are
    // registered) and the edit, and shows the display as a child of parent at topLeft. styleBits is a
    // window style of the platform the display was drawn for; nothing here reads it.
    bool Create(QWidget* parent, QPoint topLeft, int id, int styleBits);

    // The base form's text of a value's magnitude, printed as "%<integerDigits>.<decimals>f"; padded
    // keeps only the last integerDigits + 1 characters of the integer part, point included.
    QString FormatValue(double value, bool padded) const;
    // "-" before a negative value, "+" before a positive one with showPlus; a text that reads as
    // zero gets no sign.
    QString AddSign(const QString& text, double value) const;
    // What the base form shows for a value: sign, number and, after a blank, the units.
    QString ShownText(double value) const;

    void Update(CObservable* subject, int hint, std::intptr_t extra) override;

    CObservableNumber* AccessibleSubject() const override;
    double AccessibleStep() const override { return m_spec.step; }
    // As a typed commit: the value is set on the subject, which drops it if it is out of range.
    void AccessibleSetValue(double value) override;
    QAccessible::Role AccessibleRole() const override { return QAccessible::SpinBox; }

    // The field that has the focus, -1 while the display has none.
    int FocusField() const { return m_focusField; }
    // The digit spin: the digit, counted without a sign, its rectangle (empty when none is pressed),
    // the running flag, the timer's interval in milliseconds and the direction.
    int SpinDigit() const { return m_spinDigit; }
    QRect SpinDigitRect() const { return m_spinDigitRect; }
    bool Spinning() const { return m_spinning; }
    int SpinInterval() const { return m_spinInterval; }
    bool SpinningUp() const { return m_spinUp; }
    // Where digit (counted without a sign) of the base form's text stands now, in the number's
    // rectangle; empty if there is no such character.
    QRect DigitRect(int digit) const;
    QRect NumberRect() const { return m_numberRect; }
    QRect ArrowRect() const { return m_arrowRect; }
    // Null before Create, and the arrows also where the display has none.
    CEditCtl* Edit() const { return m_edit; }
    CArrowButton* UpArrow() const { return m_up; }
    CArrowButton* DownArrow() const { return m_down; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    // The text of the value; the base form centres ShownText in the number's rectangle.
    virtual void PaintText(QPainter& painter);
    // After a change of the value; the base form redraws the characters that changed.
    virtual void RedrawValue(double oldValue, double newValue);
    // The value of the subject, 0 without one.
    double Value() const;
    bool HasSubject() const { return AccessibleSubject() != nullptr; }
    // The window less the arrow strip.
    QRect TextArea() const;

private:
    friend class CArrowButton;
    friend class CEditCtl;

    void OnButtonCommand(int controlId) override;
    void OnButtonRepeat(int controlId) override;
    void OnArrowLostFocus();
    void OnEditCommit(CEditCtl& edit);

    void Paint(QPainter& painter);
    QRect FieldRect(int field) const;
    int FieldAt(QPoint point) const;
    void SetFocusField(int field);
    void InvalidateField(int field);
    void RedrawChangedDigits(double oldValue, double newValue);
    int TextLeft(const QString& text) const;
    QRect CharacterRect(const QString& text, int index) const;
    bool FindDigit(QPoint point, int* digit, QRect* rect) const;
    // One step up or down: ctrlStep with Ctrl held, else shiftStep with Shift, else step.
    void Step(bool up);
    void OpenEdit();
    void SetSpinTimer(int interval);
    void KillSpinTimer();
    void SpinTick();
    // Moves the pressed digit along with a text that grew or shrank, so that the same place value
    // stays under the mouse; false where the gesture has to end.
    bool FollowSpunDigit(double newValue, const QString& padded, int position);
    void StopSpin();

    CDecimalDisplaySpec m_spec;
    bool m_showsFloat = false;
    bool m_created = false;
    int m_focusField = -1;
    double m_remembered = 0.0;
    QRect m_numberRect, m_arrowRect;
    CEditCtl* m_edit = nullptr;
    CArrowButton* m_up = nullptr;
    CArrowButton* m_down = nullptr;
    int m_spinDigit = -1;
    QRect m_spinDigitRect;
    bool m_spinning = false;
    int m_spinInterval = 500;
    int m_spinTimer = 0;
    bool m_spinUp = false;
};
