#pragma once

#include "controls/AccessibleValue.h"
#include "controls/CDecimalDisplaySpec.h"
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
// digit runs up or down the faster the further the mouse goes from it. The range is the value's:
// a step or a typed number beyond it is dropped by the value, and the display keeps what it showed.
class CDecimalDisplay : public QWidget,
                        public CObserver,
                        public CDigitalDisplay,
                        public AccessibleValueControl,
                        public TalmeButtonOwner {
public:
    CDecimalDisplay();
    ~CDecimalDisplay() override;

    // Copies the record; before creation.
    void SetSpec(const CDecimalDisplaySpec* spec);
    const CDecimalDisplaySpec& Spec() const { return m_spec; }
    void SetStep(double step) { m_spec.step = step; }
    // Set by a panel that binds a float value to it.
    void SetFloatValue(bool isFloat) { m_showsFloat = isFloat; }
    bool ShowsFloat() const { return m_showsFloat; }
    // Lays out the number, the arrows and the edit, and shows a child of parent at topLeft.
    bool Create(QWidget* parent, QPoint topLeft, int id, int styleBits);

    // The base form's text of a value: the printf form "%<integerDigits>.<decimals>f" of its
    // magnitude, padded keeping only integerDigits + 1 characters before and including the point.
    QString FormatValue(double value, bool padded) const;
    // "-" before a negative value, "+" before a positive one with showPlus, none for a zero text.
    QString AddSign(const QString& text, double value) const;
    // The text the display draws for its value; the base form's, with sign and units.
    virtual QString DisplayText() const;

    void Update(CObservable* subject, int hint, std::intptr_t extra) override;
    double GangLimit(CObserver* sender, double delta, int mode) override { (void)sender, (void)mode; return delta; }

    // One step up or down, by the keyboard's modifiers: Ctrl takes ctrlStep, Shift shiftStep.
    void Step(bool up);

    CObservableNumber* AccessibleSubject() const override;
    double AccessibleStep() const override { return m_spec.step; }
    void AccessibleSetValue(double value) override;
    QAccessible::Role AccessibleRole() const override { return QAccessible::SpinBox; }

    void OnButtonCommand(int controlId) override;
    void OnButtonRepeat(int controlId) override;
    void OnArrowLostFocus();
    void OnEditCommit(CEditCtl& edit);
    void OpenEdit();

    // State, for those who look in.
    int FocusField() const { return m_focusField; }
    int SpinDigit() const { return m_spinDigit; }
    QRect SpinDigitRect() const { return m_spinDigitRect; }
    bool Spinning() const { return m_spinning; }
    int SpinInterval() const { return m_spinInterval; }
    bool SpinningUp() const { return m_spinUp; }
    QRect NumberRect() const { return m_numberRect; }
    QRect ArrowRect() const { return m_arrowRect; }
    CEditCtl* Edit() const { return m_edit; }
    CArrowButton* UpArrow() const { return m_up; }
    CArrowButton* DownArrow() const { return m_down; }
    // Runs one tick of the digit spin, as its timer does.
    void SpinTick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool event(QEvent* event) override;

    // The derived forms draw their own text; the base form draws DisplayText centred.
    virtual void PaintText(QPainter& painter);
    // After a change of the value: the base form redraws the digits that changed.
    virtual void RedrawValue(double oldValue, double newValue);
    double Value() const;
    bool HasSubject() const { return AccessibleSubject() != nullptr; }
    int TextColour() const { return m_pressedLook ? m_spec.highlightColour : m_spec.textColour; }

private:
    QRect FieldRect(int field) const;
    int FieldAt(QPoint point) const;
    void InvalidateField(int field);
    void RedrawChangedDigits(double oldValue, double newValue);
    // The rectangle of character index within the base form's text, centred in the number's box.
    QRect CharacterRect(const QString& text, int index) const;
    bool FindDigit(QPoint point, int& digit, QRect& rect) const;
    void StopSpin();
    void SetSpinTimer(int interval);

    CDecimalDisplaySpec m_spec;
    bool m_showsFloat = false;
    bool m_created = false;
    int m_focusField = -1;
    double m_remembered = 0.0;
    bool m_pressedLook = false;
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
