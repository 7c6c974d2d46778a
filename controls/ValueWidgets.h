#pragma once

#include "values/ValueControls.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPointer>




// A check box or radio button as the check box and radio row values see it: their set moves the
// check without a signal, so that a write-back never comes back as the user's click.
class ButtonCheck : public CheckBoxControl {
public:
    explicit ButtonCheck(QAbstractButton* button = nullptr) : m_button(button) {}
    void SetButton(QAbstractButton* button) { m_button = button; }
    void SetCheck(int state) override;

private:
    QPointer<QAbstractButton> m_button;
};

// A combo box as the combo box values see it: the selection moves without a signal.
class ComboSelection : public ComboBoxControl {
public:
    explicit ComboSelection(QComboBox* combo = nullptr) : m_combo(combo) {}
    void SetCombo(QComboBox* combo) { m_combo = combo; }
    void SetCurSel(int selection) override;

private:
    QPointer<QComboBox> m_combo;
};
