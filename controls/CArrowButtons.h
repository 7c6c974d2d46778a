#pragma once

#include "controls/CTalmeButton.h"

class CDecimalDisplay;

// The two arrows of a decimal display: auto-repeat buttons whose press and repeats go to the display.
// They hand the display what it needs of the keyboard: Tab gives the focus back to it, Up and Down go
// to it as keys, other keys are dropped; and their loss of the focus is the display's too.
class CArrowButton : public CTalmeButton {
public:
    // The display is not owned; it is the arrow's parent once the arrow is created.
    CArrowButton(int normalBitmap, int pressedBitmap, CDecimalDisplay* owner);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    CDecimalDisplay* m_display;
};

// Bitmaps of the registered arrow set: released and pressed up (132 and 131).
class CUpArrowButton : public CArrowButton {
public:
    explicit CUpArrowButton(CDecimalDisplay* owner);
};

// Released and pressed down (130 and 135).
class CDownArrowButton : public CArrowButton {
public:
    explicit CDownArrowButton(CDecimalDisplay* owner);
};
