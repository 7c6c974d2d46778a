#pragma once

#include <QAbstractButton>

// What receives a button's commands. A decimal display treats the two alike.
class TalmeButtonOwner {
public:
    virtual ~TalmeButtonOwner() = default;
    // The press of an auto-repeat button, at once; the click of any other button.
    virtual void OnButtonCommand(int controlId) = 0;
    // Each repeat of a held auto-repeat button, every 250 ms.
    virtual void OnButtonRepeat(int controlId) = 0;
};

// The owner-drawn push button of the controls: a bitmap for each of its states (normal, pressed,
// disabled), or in text mode a caption on a fill; a press that can repeat; an optional toggle.
// Its disabled flag is its own, not Qt's: a disabled button still takes the press, keeps the mouse
// until the release, and sends nothing, where a widget disabled in Qt would let the press fall
// through to its parent.
class CTalmeButton : public QAbstractButton {
public:
    // Bitmap ids of the three states; 0 where a state has none.
    CTalmeButton(int normalBitmap, int pressedBitmap, int disabledBitmap);
    ~CTalmeButton() override;

    // Sizes the button to its normal bitmap, in text mode to its caption, and shows it as a child of
    // parent at topLeft. The owner, unless one was set, is the parent if that is a TalmeButtonOwner.
    // style is a window style of the platform the button was drawn for; nothing here reads it.
    bool Create(QWidget* parent, int id, QPoint topLeft, int style = 0);
    // From now on the bitmaps are stretched to size; the top left corner stays.
    void SetDrawSize(QSize size);
    void SetAutoRepeat(bool flag) { m_autoRepeat = flag; }
    // Sets the pressed look and the latched state of a toggle.
    void SetPressed(bool flag);
    void SetDisabled(bool flag);
    void SetToggle(bool flag) { m_isToggle = flag; }
    void SetTextMode(const QString& caption);
    // Not owned.
    void SetOwner(TalmeButtonOwner* owner) { m_owner = owner; }

    bool IsPressed() const { return m_pressed; }
    bool IsToggled() const { return m_toggled; }
    bool IsDisabled() const { return m_disabled; }
    int ControlId() const { return m_controlId; }
    QSize DrawSize() const { return m_drawSize; }
    bool Repeating() const { return m_repeatTimer != 0; }

    // The repeat's period, the same from the first repeat on, with no acceleration.
    static constexpr int kRepeatMilliseconds = 250;

protected:
    // Draws the state, tested in the order disabled, pressed, normal.
    virtual void DrawItem(QPainter& painter);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QSize sizeHint() const override;

private:
    // Shows the button held or not; a toggle keeps showing its latched state.
    void SetHeld(bool held);
    void Command();
    void StartRepeat();
    void StopRepeat();

    int m_controlId = 0;
    bool m_pressed = false;
    bool m_disabled = false;
    bool m_autoRepeat = false;
    bool m_toggled = false;
    bool m_isToggle = false;
    bool m_textMode = false;
    // The press was taken: Qt sends this button the mouse until the release.
    bool m_captured = false;
    int m_captionFont = 12;
    int m_captionColours[3] = {15, 14, 6}; // normal, pressed, disabled
    int m_fillColours[3] = {6, 6, 13};
    bool m_captionEdge = true;
    int m_bitmaps[3]; // normal, pressed, disabled
    QSize m_drawSize;
    int m_repeatTimer = 0;
    TalmeButtonOwner* m_owner = nullptr;
};
