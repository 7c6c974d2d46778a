#include "panels/ContextListener_Panel.h"

#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "panels/EffectPanelLayout.h"
#include "panels/EffectPanelTables.h"
#include "resources/ResourceIds.h"
#include "values/BridgeTables.h"
#include "values/CConvertNumeric.h"
#include "values/UI_EFX_Bridge.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr std::uint16_t kListener = 65535;

// The listener's values: param, id, box, heading, caption, range, step, decimals, look, first value,
// and the token of the property.
constexpr PanelKnob kKnobTable[ContextListener_Panel::kKnobs] = {
    {0, 1064, "OpenAL Context", "", "Doppler Factor", 0, 10, 0.1f, 2, 3, 7.77f, false, 0, "AL_DOPPLER_FACTOR"},
    {1, 1065, "Listener", "Position", "X", -10, 10, 0.1f, 2, 0, 0.77f, false, 0, "AL_POSITION"},
    {2, 1066, "Listener", "Position", "Y", -10, 10, 0.1f, 2, 0, 0.77f, false, 0, "AL_POSITION"},
    {3, 1067, "Listener", "Position", "Z", -10, 10, 0.1f, 2, 0, 0.77f, false, 0, "AL_POSITION"},
    {4, 1068, "Listener", "Orientation", "X", -1, 1, 0.1f, 2, 0, 0.77f, false, 0, "AL_ORIENTATION"},
    {5, 1069, "Listener", "Orientation", "Y", -1, 1, 0.1f, 2, 0, 0.77f, false, 0, "AL_ORIENTATION"},
    {6, 1070, "Listener", "Orientation", "Z", -1, 1, 0.1f, 2, 0, 1.77f, false, 0, "AL_ORIENTATION"},
    {10, 1072, "Listener", "Velocity", "X", -10, 10, 0.1f, 2, 3, 0.77f, false, 0, "AL_VELOCITY"},
    {11, 1073, "Listener", "Velocity", "Y", -10, 10, 0.1f, 2, 3, 0.77f, false, 0, "AL_VELOCITY"},
    {12, 1074, "Listener", "Velocity", "Z", -10, 10, 0.1f, 2, 3, 0.77f, false, 0, "AL_VELOCITY"},
    {13, 1314, "OpenAL Context", "", "Speed of Sound", 0.001f, 10000, 1, 2, 3, 0.77f, false, 0, "AL_SPEED_OF_SOUND"},
    // The lower limit of -1 lets the user ask for what OpenAL refuses; the write-back returns the knob.
    {14, 1330, "Listener", "", "Gain", -1, 5, 0.1f, 2, 1, 0.77f, false, 0, "AL_GAIN"},
};

constexpr const char* kDistanceModelCaptions[ContextListener_Panel::kDistanceModels] = {
    "None", "Inverse Distance", "Inverse Distance Clamped", "Linear Distance", "Linear Distance Clamped",
    "Exponential Distance", "Exponential Distance Clamped",
};

constexpr int kWidth = 600;

// The boxes the knobs stand in get their numbers once they are built.
struct BoxNumber {
    const char* title;
    int id;
};
constexpr BoxNumber kBoxNumbers[] = {{"Listener", res::IDC_LISTENER_BOX}, {"OpenAL Context", res::IDC_CONTEXT_BOX}};

// A screen reader's name for a knob: "Listener Position X", "Doppler Factor".
QString KnobName(const PanelKnob& knob)
{
    QStringList parts;
    for (const char* part : {knob.group, knob.heading, knob.label})
        if (*part && QLatin1String(part) != QLatin1String("OpenAL Context"))
            parts << QString::fromLatin1(part);
    return parts.join(QLatin1Char(' '));
}

} // namespace

ContextListener_Panel::ContextListener_Panel(QWidget* parent)
    : CPanPotPanel(res::IDD_CONTEXT_LISTENER, parent)
{
    if (parent)
        setWindowFlags(Qt::Widget);
    for (int r = 0; r < kKnobs; ++r) {
        Knobs[r] = std::make_unique<CPot>();
        Converters[r] = std::make_unique<CConvertNumericToLinearRange>();
        Displays[r] = std::make_unique<CFloatDecimalDisplay>(2);
    }
    EffectPanelLayout layout = LayoutKnobGroups(kKnobTable, QPoint(8, 8), kWidth - 16, fontMetrics());
    std::vector<ControlTemplate>& controls = layout.controls;
    int y = layout.size.height() + 4;
    // The context's state and buttons, beside the distance models' box.
    controls.push_back({res::IDC_CONTEXT_STATE, ControlKind::Static, "(no context state change yet)", QRect(16, y, 260, 18)});
    controls.push_back({res::IDC_SUSPEND_CONTEXT, ControlKind::Button, "Suspend Context", QRect(16, y + 22, 130, 26)});
    controls.push_back({res::IDC_PROCESS_CONTEXT, ControlKind::Button, "Process Context", QRect(152, y + 22, 130, 26)});
    controls.push_back({res::IDC_LISTENER_DEFAULTS, ControlKind::Button, "Defaults", QRect(16, y + 60, 90, 26)});
    controls.push_back({res::IDC_DISTANCE_MODEL_BOX, ControlKind::GroupBox, "OpenAL Distance Model", QRect(300, y, 290, 178)});
    for (int i = 0; i < kDistanceModels; ++i)
        controls.push_back({res::IDC_DISTANCE_MODEL_0 + i, ControlKind::RadioButton, kDistanceModelCaptions[i],
                            QRect(312, y + 20 + 22 * i, 270, 20)});
    BuildDialog(this, "", QSize(kWidth, y + 186), controls.data(), static_cast<int>(controls.size()));
    for (const PanelKnob& knob : kKnobTable)
        DescribeKnob(knob, KnobName(knob));
    for (QGroupBox* box : findChildren<QGroupBox*>())
        for (const BoxNumber& number : kBoxNumbers)
            if (box->title() == QLatin1String(number.title))
                SetControlId(box, number.id);
}

ContextListener_Panel::~ContextListener_Panel()
{
    for (int r = 0; r < kKnobs; ++r)
        Knobs[r].reset();
    // The distance model's value outlives the panel: it must not keep the panel's buttons.
    BridgeTables().DistanceModelValue.Bind(0, nullptr, 1, kListener, 0);
}

void ContextListener_Panel::OnInitDialog()
{
    BridgeValueTables& tables = BridgeTables();
    for (int r = 0; r < kKnobs; ++r) {
        const PanelKnob& knob = kKnobTable[r];
        BindFloatKnob(tables.ListenerValues[knob.param], Knobs[r].get(), Converters[r].get(), Displays[r].get(),
                      knob.id, knob.minimum, knob.maximum, knob.first, knob.step, 1, kListener, knob.param, kListener,
                      knob.style);
    }
    for (int i = 0; i < kDistanceModels; ++i) {
        auto* radio = FindControlAs<QRadioButton>(this, res::IDC_DISTANCE_MODEL_0 + i);
        m_radios[i].SetButton(radio);
        DistanceModelButtons[i] = &m_radios[i];
        connect(radio, &QRadioButton::clicked, this, [i] { BridgeTables().DistanceModelValue.OnUserSelected(i); });
    }
    tables.DistanceModelValue.Bind(kDistanceModels, DistanceModelButtons.data(), 1, kListener, 0);
    connect(FindControlAs<QPushButton>(this, res::IDC_SUSPEND_CONTEXT), &QPushButton::clicked, this,
            &ContextListener_Panel::OnSuspendContext);
    connect(FindControlAs<QPushButton>(this, res::IDC_PROCESS_CONTEXT), &QPushButton::clicked, this,
            &ContextListener_Panel::OnProcessContext);
    connect(FindControlAs<QPushButton>(this, res::IDC_LISTENER_DEFAULTS), &QPushButton::clicked, this,
            &ContextListener_Panel::OnDefaults);
}

void ContextListener_Panel::SetContextState(int state)
{
    ContextProcessing = state;
    ShowContextState();
}

void ContextListener_Panel::ShowContextState()
{
    FindControlAs<QLabel>(this, res::IDC_CONTEXT_STATE)
        ->setText(ContextProcessing ? QStringLiteral("OpenAL Context in processing mode")
                                    : QStringLiteral("OpenAL Context in suspended mode"));
}

void ContextListener_Panel::OnSuspendContext()
{
    ContextProcessing = 0;
    UI_EFX_Bridge::GetInstance()->SuspendContext();
    ShowContextState();
}

void ContextListener_Panel::OnProcessContext()
{
    ContextProcessing = 1;
    UI_EFX_Bridge::GetInstance()->ProcessContext();
    ShowContextState();
}

void ContextListener_Panel::OnDefaults()
{
    UI_EFX_Bridge::GetInstance()->SetListenerDefaults();
}
