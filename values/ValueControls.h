#pragma once

// What the check box, combo box and radio row values need of their windows. The panels implement
// these over their widgets. A programmatic set must not come back as a user event: the value sets
// the state, the bridge hears of it only from the user's own click or choice.

// A check box or a radio button: BM_SETCHECK.
class CheckBoxControl {
public:
    virtual ~CheckBoxControl() = default;
    virtual void SetCheck(int state) = 0;
};

// A combo box: CB_SETCURSEL.
class ComboBoxControl {
public:
    virtual ~ComboBoxControl() = default;
    virtual void SetCurSel(int selection) = 0;
};
