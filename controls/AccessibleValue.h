#pragma once

#include <QAccessible>

class CObservableNumber;
class QWidget;

// What a knob, a fader or a display offers to screen readers and test tools: the bound value with
// its range and step, and a set that takes the same road as the control's own gesture. The
// accessible name is the widget's accessibleName(), which the panels set to the caption beside the
// control or the property it sets.
class AccessibleValueControl {
public:
    virtual ~AccessibleValueControl() = default;
    // The bound value; null while the control has none.
    virtual CObservableNumber* AccessibleSubject() const = 0;
    // The change of one step of the control's own input, in the value's units.
    virtual double AccessibleStep() const = 0;
    // Sets the value as the control's own gesture would.
    virtual void AccessibleSetValue(double value) = 0;
    virtual QAccessible::Role AccessibleRole() const = 0;
};

// Makes Qt's accessibility serve every widget that is an AccessibleValueControl. Calling it again
// does nothing.
void InstallAccessibleValueFactory();

// What the custom controls register once at start, before any dialog. Qt needs no window classes;
// what it needs is the factory above.
void RegisterControlClasses();
