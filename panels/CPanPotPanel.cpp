#include "panels/CPanPotPanel.h"

#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "controls/ControlStyles.h"
#include "panels/EffectPanelTables.h"
#include "panels/KnobToolTip.h"
#include "values/CConvertNumeric.h"
#include "values/CEFXValObs.h"
#include "values/UI_EFX_Bridge.h"

#include <QLabel>

namespace {

// Steps 3 to 7 and 9 of a binding, the same for float and long values.
template <typename Value, typename Display, typename Number>
void BindKnob(Value* value, CPot* knob, CConvertNumericToLinearRange* converter, Display* display, Number minimum,
              Number maximum, double step, std::uint16_t kind, std::uint16_t category, std::uint16_t index,
              std::uint16_t param, std::uint16_t extra, int style)
{
    converter->Low = minimum;
    converter->High = maximum;
    knob->SetConverter(converter);
    knob->SetSpec(GetPotSpec(style));
    display->SetSpec(GetReadoutSpec());
    display->SetStep(step);
    value->Minimum = minimum;
    value->Maximum = maximum;
    value->RangeChecked = 1;
    value->Callback = UI_EFX_Bridge::GetInstance();
    value->SetIdentifiers(kind, category, index, param, extra);
}

template <typename Value, typename Display>
void AttachAndCreate(Value* value, CPot* knob, Display* display, QWidget* panel, QPoint corner, int controlId,
                     const QString& name, const QString& toolTip)
{
    value->AddObserver(knob, 1);
    value->AddObserver(display, 1);
    knob->Create(panel, corner + CPanPotPanel::kKnobOffset, controlId);
    display->Create(panel, corner + CPanPotPanel::kDisplayOffset, 0, 0);
    if (!name.isEmpty()) {
        knob->setAccessibleName(name);
        display->setAccessibleName(name);
    }
    knob->setToolTip(toolTip);
    display->setToolTip(toolTip);
}

} // namespace

CPanPotPanel::CPanPotPanel(int templateId, QWidget* parent)
    : CDialog(parent), m_templateId(templateId)
{
}

void CPanPotPanel::OnOK()
{
    setFocus();
}

void CPanPotPanel::reject()
{
    if (isWindow())
        CDialog::reject();
}

void CPanPotPanel::DescribeKnob(const PanelKnob& knob, const QString& name)
{
    QWidget* placeholder = FindControl(this, knob.id);
    placeholder->setAccessibleName(name);
    placeholder->setToolTip(QString::fromStdString(KnobToolTip(knob)));
}

QPoint CPanPotPanel::TakePlaceholder(int controlId, QString* name, QString* toolTip)
{
    // A table that names a control its template lacks is a fault of the program, found at once.
    QWidget* placeholder = FindControl(this, controlId);
    Q_ASSERT_X(placeholder, "CPanPotPanel", "a knob's placeholder is missing from the template");
    if (!placeholder)
        return {};
    *name = placeholder->accessibleName();
    if (name->isEmpty())
        if (auto* label = qobject_cast<QLabel*>(placeholder))
            *name = label->text();
    *toolTip = placeholder->toolTip();
    SetControlId(placeholder, 0);
    placeholder->hide();
    return placeholder->mapTo(this, QPoint(0, 0));
}

void CPanPotPanel::BindFloatKnob(CEFXFloatValObs* value, CPot* knob, CConvertNumericToLinearRange* converter,
                                 CFloatDecimalDisplay* display, int controlId, float minimum, float maximum,
                                 float first, float step, std::uint16_t category, std::uint16_t index,
                                 std::uint16_t param, std::uint16_t extra, int style)
{
    QString name;
    QString toolTip;
    const QPoint corner = TakePlaceholder(controlId, &name, &toolTip);
    BindKnob(value, knob, converter, display, minimum, maximum, step, 0, category, index, param, extra, style);
    display->SetFloatValue(true);
    value->SetFloat(first);
    AttachAndCreate(value, knob, display, this, corner, controlId, name, toolTip);
}

void CPanPotPanel::BindLongKnob(CEFXLongValObs* value, CPot* knob, CConvertNumericToLinearRange* converter,
                                CLongDecimalDisplay* display, int controlId, std::int32_t minimum,
                                std::int32_t maximum, std::int32_t first, std::int32_t step,
                                std::uint16_t category, std::uint16_t index, std::uint16_t param,
                                std::uint16_t extra, int style)
{
    QString name;
    QString toolTip;
    const QPoint corner = TakePlaceholder(controlId, &name, &toolTip);
    BindKnob(value, knob, converter, display, minimum, maximum, step, 1, category, index, param, extra, style);
    value->SetLong(first);
    AttachAndCreate(value, knob, display, this, corner, controlId, name, toolTip);
}
