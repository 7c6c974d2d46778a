#pragma once

#include "controls/AccessibleValue.h"
#include "controls/KnobLook.h"
#include "values/CObservable.h"

#include <QWidget>

#include <memory>

class CConvertNumeric;
class CObservableNumber;
class CPopupPotFaderFrame;

// The rotary control of every panel: one frame of a bitmap strip for the value it watches. Its only
// gesture is the press, which opens a fader of 128 positions just above the knob; the mouse moves
// that fader under a hidden cursor until the release, which puts the cursor back on the knob's
// centre. The knob itself only follows the value. No wheel, no keys, no right button.
class CPot : public QWidget, public CObserver, public AccessibleValueControl {
public:
    CPot();
    ~CPot() override;

    // Before creation only; a drawing-mode flag that is neither 0 nor 1 becomes 0. The look is not
    // owned and must live as long as the knob.
    void SetSpec(const CPotSpec* spec);
    const CPotSpec* GetSpec() const { return m_spec; }
    // Not owned.
    void SetConverter(const CConvertNumeric* converter) { m_converter = converter; }
    void SetDisabled(bool disabled) { m_disabled = disabled; }
    void SetCentreOnDoubleClick(bool centre) { m_centreOnDoubleClick = centre; }
    // Takes the frame size from the strip, the frame from the bound value, and shows a child of
    // parent at topLeft.
    bool Create(QWidget* parent, QPoint topLeft, int id);
    bool IsCreated() const { return m_created; }

    int Position() const { return m_position; }
    QSize FrameSize() const { return {m_frameWidth, m_frameHeight}; }
    // The pop-up while a drag runs, else null.
    CPopupPotFaderFrame* Popup() const { return m_popup.get(); }
    // Where the pop-up of this knob opens, in screen coordinates.
    QPoint PopupTopLeft() const;

    void Update(CObservable* subject, int hint, std::intptr_t extra) override;
    void GangMove(CObserver* sender, double delta, int mode) override;

    CObservableNumber* AccessibleSubject() const override;
    double AccessibleStep() const override;
    // As a drag to that value: the nearest fader position at or below it, set with the pressed and
    // released hints around it.
    void AccessibleSetValue(double value) override;
    QAccessible::Role AccessibleRole() const override { return QAccessible::Dial; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int Frames() const;
    int FrameForValue() const;
    void EndPopup(QPoint point);

    int m_position = 15;
    int m_frameWidth = 10;
    int m_frameHeight = 10;
    int m_sourceX = 0;
    int m_sourceY = 0;
    bool m_centreOnDoubleClick = false;
    const CPotSpec* m_spec;
    CPotSpec m_ownSpec; // a copy of a look whose drawing-mode flag had to be corrected
    bool m_disabled = false;
    const CConvertNumeric* m_converter = nullptr;
    std::unique_ptr<CPopupPotFaderFrame> m_popup;
    bool m_created = false;
};
