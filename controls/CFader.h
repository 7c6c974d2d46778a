#pragma once

#include "controls/AccessibleValue.h"
#include "controls/FaderLook.h"
#include "values/CObservable.h"

#include <QWidget>

class CConvertNumeric;
class CObservableNumber;

// A slider drawn from a track and a thumb bitmap, bound to an observable number. Its own gesture
// is a press on the thumb and a drag counted relative to where it began, one position a pixel,
// under a hidden cursor; a press beside the thumb does nothing (no paging, no jump).
class CFader : public QWidget, public CObserver, public AccessibleValueControl {
public:
    CFader();
    ~CFader() override;

    // Before creation only; flags that are neither 0 nor 1 become 0.
    void SetSpec(const CFaderSpec& spec);
    const CFaderSpec& GetSpec() const { return m_spec; }
    void SetConverter(const CConvertNumeric* converter) { m_converter = converter; }
    void SetDisabled(bool disabled) { m_disabled = disabled; }
    // Reads the bitmaps' sizes, takes the position from the bound value and shows a child window
    // as large as the track at topLeft.
    bool Create(QWidget* parent, QPoint topLeft, int id);
    bool IsCreated() const { return m_created; }

    int Position() const { return m_position; }
    int PositionCount() const { return m_spec.PositionCount(); }
    // Where the thumb stands; the drawing is one pixel to the left of it.
    QRect ThumbRect() const;
    // Moves the position by delta, held to the range. If it changed, the thumb moves and the value
    // is set, with this fader out of the subject's observers for the time of the call.
    bool ApplyDelta(int delta);

    void Update(CObservable* subject, int hint, std::intptr_t extra) override;
    double GangLimit(CObserver* sender, double delta, int mode) override;

    CObservableNumber* AccessibleSubject() const override;
    double AccessibleStep() const override;
    void AccessibleSetValue(double value) override;
    QAccessible::Role AccessibleRole() const override { return QAccessible::Slider; }

protected:
    // The coordinate along the fader's axis that counts for a drag.
    int AxisCoordinate(QPoint point) const { return m_spec.vertical ? point.y() : point.x(); }
    // Mouse travel since the anchor, positive up and right.
    int DeltaFrom(QPoint point) const
    {
        return m_spec.vertical ? m_anchor - point.y() : point.x() - m_anchor;
    }
    int PositionForValue() const;
    double ValueForPosition() const;
    void SetSubjectValue(double value);
    void MoveThumb(int position);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    CFaderSpec m_spec;
    bool m_disabled = false;
    const CConvertNumeric* m_converter = nullptr;
    bool m_dragging = false;
    int m_position = 0;
    int m_anchor = 0;
    QSize m_thumb;
    bool m_created = false;
};

// The fader inside a knob's pop-up: the knob keeps the mouse, and forwards its press, moves and
// release here in its own client coordinates.
class CPotFader : public CFader {
public:
    // Hides the cursor and anchors the drag at point.
    void BeginDrag(QPoint point);
    // Moves by the travel since the last message, and sets the value on every message, even when
    // the position did not change. The anchor follows each message, so travel past an end is not
    // stored: the first move back counts at once.
    void DragTo(QPoint point);
    // Shows the cursor again.
    void EndDrag(QPoint point);
    bool IsDragging() const { return m_cursorHidden; }

private:
    bool m_cursorHidden = false;
};

struct CPotSpec;

// The small window that a pressed knob opens beside itself, holding a fader of 128 positions for
// the time of the drag. It takes no input and no activation.
class CPopupPotFaderFrame : public QWidget {
public:
    CPopupPotFaderFrame(CObservableNumber* subject, const CPotSpec* potSpec);
    ~CPopupPotFaderFrame() override;

    // A frameless pop-up of parent, 150 x 16 (16 x 150 if vertical), shown at topLeft in screen
    // coordinates without taking activation. The fader is attached to the subject unheard.
    bool CreatePopup(QWidget* parent, QPoint topLeft);
    void BeginDrag(QPoint point) { m_fader.BeginDrag(point); }
    void DragTo(QPoint point) { m_fader.DragTo(point); }
    void EndDrag(QPoint point) { m_fader.EndDrag(point); }
    CPotFader& Fader() { return m_fader; }

    static QSize PopupSize(const CPotSpec& spec);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CPotFader m_fader;
    CFaderSpec m_faderSpec;
    CObservableNumber* m_subject;
    const CPotSpec* m_potSpec;
};
