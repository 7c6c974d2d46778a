#pragma once

#include <QAbstractButton>

#include <cstdint>

// What receives a button's commands: the press of an auto-repeat button at once, its repeats every
// 250 ms, and the click of any other button. A decimal display treats the first two alike.
class TalmeButtonOwner {
public:
    virtual ~TalmeButtonOwner() = default;
    virtual void OnButtonCommand(int controlId) = 0;
    virtual void OnButtonRepeat(int controlId) = 0;
};

// The owner-drawn push button of the controls: a bitmap for each of its states (normal, pressed,
// disabled), or in text mode a caption on a fill; a press that can repeat; an optional toggle. A
// disabled button keeps the mouse until the release and sends nothing.
class CTalmeButton : public QAbstractButton {
public:
    CTalmeButton(int normalBitmap, int pressedBitmap, int disabledBitmap);
    ~CTalmeButton() override;

    // Sizes the button to its normal bitmap (in text mode to its caption) and shows it at topLeft.
    // The owner is the parent if the parent is a TalmeButtonOwner.
    bool Create(QWidget* parent, int id, QPoint topLeft);
    // From now on the bitmaps are stretched to size; the top left corner stays.
    void SetDrawSize(QSize size);
    void SetAutoRepeat(bool flag) { m_autoRepeat = flag; }
    void SetPressed(bool flag);
    void SetDisabled(bool flag);
    void SetToggle(bool flag) { m_isToggle = flag; }
    void SetTextMode(const QString& caption);
    void SetOwner(TalmeButtonOwner* owner) { m_owner = owner; }

    bool IsPressed() const { return m_pressed; }
    bool IsToggled() const { return m_toggled; }
    bool IsDisabled() const { return m_disabled; }
    int ControlId() const { return m_controlId; }
    bool Repeating() const { return m_repeatTimer != 0; }

    // The repeat's period, constant from the first repeat on.
    static constexpr int kRepeatMilliseconds = 250;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QSize sizeHint() const override;

private:
    void StopRepeat();

    int m_controlId = 0;
    bool m_pressed = false;
    bool m_disabled = false;
    bool m_autoRepeat = false;
    bool m_toggled = false;
    bool m_isToggle = false;
    bool m_textMode = false;
    bool m_captured = false;
    int m_captionFont = 12;
    int m_captionColours[3] = {15, 14, 6}; // normal, pressed, disabled
    int m_fillColours[3] = {6, 6, 13};
    bool m_captionEdge = true;
    int m_normalBitmap, m_pressedBitmap, m_disabledBitmap;
    QSize m_drawSize;
    int m_repeatTimer = 0;
    TalmeButtonOwner* m_owner = nullptr;
};
