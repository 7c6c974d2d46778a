#include "controls/AccessibleValue.h"

#include "values/CObservableNumber.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QWidget>

namespace {

class AccessibleValueWidget : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    AccessibleValueWidget(QWidget* widget, AccessibleValueControl* control)
        : QAccessibleWidget(widget, control->AccessibleRole()), m_control(control)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Value) {
            const CObservableNumber* subject = m_control->AccessibleSubject();
            return subject ? QString::number(subject->GetValue()) : QString();
        }
        return QAccessibleWidget::text(t);
    }

    QVariant currentValue() const override { return Read(&CObservableNumber::GetValue); }
    QVariant maximumValue() const override { return Read(&CObservableNumber::GetMaximum); }
    QVariant minimumValue() const override { return Read(&CObservableNumber::GetMinimum); }
    QVariant minimumStepSize() const override { return m_control->AccessibleStep(); }

    void setCurrentValue(const QVariant& value) override
    {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (ok && m_control->AccessibleSubject())
            m_control->AccessibleSetValue(number);
    }

private:
    QVariant Read(double (CObservableNumber::*getter)() const) const
    {
        const CObservableNumber* subject = m_control->AccessibleSubject();
        return subject ? QVariant((subject->*getter)()) : QVariant();
    }

    AccessibleValueControl* m_control;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    auto* control = dynamic_cast<AccessibleValueControl*>(object);
    if (widget && control)
        return new AccessibleValueWidget(widget, control);
    return nullptr;
}

} // namespace

void InstallAccessibleValueFactory()
{
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    QAccessible::installFactory(&MakeInterface);
}

void RegisterControlClasses()
{
    InstallAccessibleValueFactory();
}
