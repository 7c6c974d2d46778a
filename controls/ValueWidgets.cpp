#include "controls/ValueWidgets.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSignalBlocker>

void ButtonCheck::SetCheck(int state)
{
    if (!m_button)
        return;
    const QSignalBlocker quiet(m_button);
    // A radio row may uncheck all of its buttons, which an auto-exclusive group would refuse.
    const bool exclusive = m_button->autoExclusive();
    m_button->setAutoExclusive(false);
    m_button->setChecked(state != 0);
    m_button->setAutoExclusive(exclusive);
}

void ComboSelection::SetCurSel(int selection)
{
    if (!m_combo)
        return;
    const QSignalBlocker quiet(m_combo);
    m_combo->setCurrentIndex(selection);
}
