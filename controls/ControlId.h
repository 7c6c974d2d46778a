#pragma once

#include <QWidget>

// Every control keeps the number it has in its dialog template, so that code and tests find it by
// that number rather than by its caption.
void SetControlId(QWidget* control, int id);
int GetControlId(const QWidget* control);

// The child of parent with the given number, or null.
QWidget* FindControl(const QWidget* parent, int id);

template <typename Control>
Control* FindControlAs(const QWidget* parent, int id)
{
    return qobject_cast<Control*>(FindControl(parent, id));
}
