#include "panels/FXS_EffectPanel.h"

#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "panels/EffectPanelLayout.h"
#include "panels/EffectPanelTables.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "values/BridgeTables.h"
#include "values/CConvertNumeric.h"
#include "values/UI_EFX_Bridge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>

#include <array>

namespace {

// "Defaults" of each effect type, by its position in the slot panel's list.
using DefaultsRoutine = void (UI_EFX_Bridge::*)(int);
constexpr std::array<DefaultsRoutine, kEffectTypes> kDefaults = {
    nullptr,
    &UI_EFX_Bridge::SetEAXReverbDefaults,
    &UI_EFX_Bridge::SetReverbDefaults,
    &UI_EFX_Bridge::SetAGCDefaults,
    &UI_EFX_Bridge::SetAutowahDefaults,
    &UI_EFX_Bridge::SetChorusDefaults,
    &UI_EFX_Bridge::SetDistortionDefaults,
    &UI_EFX_Bridge::SetEchoDefaults,
    &UI_EFX_Bridge::SetEqualizerDefaults,
    &UI_EFX_Bridge::SetFlangerDefaults,
    &UI_EFX_Bridge::SetVocalMorpherDefaults,
    &UI_EFX_Bridge::SetPitchShifterDefaults,
    &UI_EFX_Bridge::SetRingModulatorDefaults,
    &UI_EFX_Bridge::SetFrequencyShifterDefaults,
};

constexpr std::uint16_t kNoExtra = 65535;

// What a screen reader calls a knob: its box, its heading and its caption ("Reflections Pan X").
QString KnobName(const PanelKnob& knob)
{
    QStringList parts;
    for (const char* part : {knob.group, knob.heading, knob.label})
        if (*part)
            parts << QString::fromLatin1(part);
    return parts.join(QLatin1Char(' '));
}

} // namespace

FXS_EffectPanel::FXS_EffectPanel(const EffectPanelTable& table, QWidget* parent, int slot)
    : CPanPotPanel(table.templateId, parent), NumberedSlot(slot), m_table(table)
{
    if (parent)
        setWindowFlags(Qt::Widget);
    MakeValueRows();
    for (const PanelKnob& knob : table.knobs) {
        m_knobs.push_back(std::make_unique<CPot>());
        m_converters.push_back(std::make_unique<CConvertNumericToLinearRange>());
        if (knob.isLong)
            m_displays.push_back(std::make_unique<CLongDecimalDisplay>());
        else
            m_displays.push_back(std::make_unique<CFloatDecimalDisplay>(knob.decimals));
    }
    const EffectPanelLayout layout = LayoutEffectPanel(table, kMaxWidth, fontMetrics());
    BuildControls(this, layout.controls.data(), static_cast<int>(layout.controls.size()));
    setFixedSize(layout.size);
    for (const PanelKnob& knob : table.knobs)
        DescribeKnob(knob, KnobName(knob));
}

FXS_EffectPanel::~FXS_EffectPanel()
{
    // The knobs' windows go first, then the knobs, converters and displays, then the value rows.
    m_knobs.clear();
    m_converters.clear();
    m_displays.clear();
    ReleaseValueRows();
}

void FXS_EffectPanel::MakeValueRows()
{
    BridgeValueTables& tables = BridgeTables();
    const int s = SlotNumber;
    if (s < 0 || s >= bridge_limits::kSlots)
        return;
    if (!m_table.reverbValues) {
        for (const PanelKnob& knob : m_table.knobs) {
            if (knob.isLong)
                tables.EffectLongValues[s][knob.param] = new CEFXLongValObs();
            else
                tables.EffectValues[s][knob.param] = new CEFXFloatValObs();
        }
    }
    for (const PanelCombo& combo : m_table.combos)
        tables.EffectChoices[s][combo.param] = new CSonopticCBoxDiscreteValObs();
    if (m_table.hfLimitId)
        tables.ReverbHFLimitFlags[s] = new CSonopticBoolValObs();
}

void FXS_EffectPanel::ReleaseValueRows()
{
    BridgeValueTables& tables = BridgeTables();
    const int s = SlotNumber;
    if (s < 0 || s >= bridge_limits::kSlots)
        return;
    auto release = [](auto*& value) {
        delete value;
        value = nullptr;
    };
    if (!m_table.reverbValues) {
        for (const PanelKnob& knob : m_table.knobs) {
            if (knob.isLong)
                release(tables.EffectLongValues[s][knob.param]);
            else
                release(tables.EffectValues[s][knob.param]);
        }
    }
    for (const PanelCombo& combo : m_table.combos)
        release(tables.EffectChoices[s][combo.param]);
    if (m_table.hfLimitId)
        release(tables.ReverbHFLimitFlags[s]);
}

void FXS_EffectPanel::OnInitDialog()
{
    if (QWidget* title = m_table.titleId ? FindControl(this, m_table.titleId) : childAt(QPoint(1, 1))) {
        if (m_table.boldTitle)
            title->setFont(BoldTitleFont());
    }
    // Combo boxes are filled and bound before the knobs.
    BindCombos();
    BindKnobs();
    BridgeValueTables& tables = BridgeTables();
    const int s = SlotNumber;
    if (m_table.hfLimitId && s >= 0 && s < bridge_limits::kSlots) {
        auto* box = FindControlAs<QCheckBox>(this, m_table.hfLimitId);
        m_hfLimitControl.SetButton(box);
        tables.ReverbHFLimitFlags[s]->Bind(&m_hfLimitControl, m_table.category, static_cast<std::uint16_t>(s), 0);
        connect(box, &QCheckBox::clicked, this,
                [s](bool checked) { BridgeTables().ReverbHFLimitFlags[s]->OnUserToggled(checked ? 1 : 0); });
    }
    connect(FindControlAs<QPushButton>(this, m_table.defaultsId), &QPushButton::clicked, this,
            &FXS_EffectPanel::OnDefaults);
    if (m_table.responseButtonId)
        connect(FindControlAs<QPushButton>(this, m_table.responseButtonId), &QPushButton::clicked, this,
                &FXS_EffectPanel::OnShowResponseWindow);
}

void FXS_EffectPanel::BindCombos()
{
    const int s = SlotNumber;
    if (s < 0 || s >= bridge_limits::kSlots)
        return;
    for (const PanelCombo& row : m_table.combos) {
        auto* combo = FindControlAs<QComboBox>(this, row.id);
        combo->setAccessibleName(QString::fromLatin1(*row.label ? row.label : m_table.title));
        for (const char* entry : row.entries)
            combo->addItem(QString::fromLatin1(entry));
        m_comboControls.push_back(std::make_unique<ComboSelection>(combo));
        CSonopticCBoxDiscreteValObs* value = BridgeTables().EffectChoices[s][row.param];
        value->Bind(m_comboControls.back().get(), m_table.category, static_cast<std::uint16_t>(s), row.param);
        connect(combo, &QComboBox::activated, this, [value](int selection) { value->OnUserSelected(selection); });
    }
}

void FXS_EffectPanel::BindKnobs()
{
    const int s = SlotNumber;
    if (s < 0 || s >= bridge_limits::kSlots)
        return;
    BridgeValueTables& tables = BridgeTables();
    const auto index = static_cast<std::uint16_t>(s);
    for (std::size_t r = 0; r < m_table.knobs.size(); ++r) {
        const PanelKnob& knob = m_table.knobs[r];
        if (knob.isLong) {
            BindLongKnob(tables.EffectLongValues[s][knob.param], m_knobs[r].get(), m_converters[r].get(),
                         static_cast<CLongDecimalDisplay*>(m_displays[r].get()), knob.id,
                         static_cast<std::int32_t>(knob.minimum), static_cast<std::int32_t>(knob.maximum),
                         static_cast<std::int32_t>(knob.first), static_cast<std::int32_t>(knob.step),
                         m_table.category, index, knob.param, kNoExtra, knob.style);
        } else {
            CEFXFloatValObs* value =
                m_table.reverbValues ? tables.ReverbValues[s][knob.param] : tables.EffectValues[s][knob.param];
            BindFloatKnob(value, m_knobs[r].get(), m_converters[r].get(),
                          static_cast<CFloatDecimalDisplay*>(m_displays[r].get()), knob.id, knob.minimum,
                          knob.maximum, knob.first, knob.step, m_table.category, index, knob.param, kNoExtra,
                          knob.style);
        }
    }
}

void FXS_EffectPanel::OnDefaults()
{
    if (DefaultsRoutine routine = kDefaults[m_table.type])
        (UI_EFX_Bridge::GetInstance()->*routine)(SlotNumber);
}

void FXS_EffectPanel::OnShowResponseWindow()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (!bridge->GetResponseWindow())
        bridge->SetResponseWindow(new C3DReverbResponseDlg(this));
    bridge->RefreshReverb(SlotNumber);
    if (auto* window = dynamic_cast<C3DReverbResponseDlg*>(bridge->GetResponseWindow()))
        window->show();
}
