#include "controls/ControlId.h"

namespace {
constexpr const char* kControlIdProperty = "controlId";
}

void SetControlId(QWidget* control, int id)
{
    control->setProperty(kControlIdProperty, id);
}

int GetControlId(const QWidget* control)
{
    const QVariant id = control->property(kControlIdProperty);
    return id.isValid() ? id.toInt() : -1;
}

QWidget* FindControl(const QWidget* parent, int id)
{
    const QList<QWidget*> children = parent->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (GetControlId(child) == id)
            return child;
    }
    return nullptr;
}
