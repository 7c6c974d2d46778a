#pragma once

#include "controls/CTalmeButton.h"

class CDecimalDisplay;

// The two arrows of a decimal display. Besides the press, they hand the display what it needs of
// the keyboard: Tab gives the focus back to it, Up and Down go to it as keys, other keys are dropped;
// and their loss of focus is the display's too.
class CArrowButton : public CTalmeButton {
public:
    CArrowButton(int normalBitmap, int pressedBitmap, CDecimalDisplay* owner);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    CDecimalDisplay* m_display;
};

class CUpArrowButton : public CArrowButton {
public:
    explicit CUpArrowButton(CDecimalDisplay* owner);
};

class CDownArrowButton : public CArrowButton {
public:
    explicit CDownArrowButton(CDecimalDisplay* owner);
};
