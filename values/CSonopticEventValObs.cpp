#include "values/CSonopticEventValObs.h"

#include "values/UI_EFX_Bridge.h"
#include "values/ValueControls.h"

namespace {

// The kinds under which these families reach the dispatcher.
constexpr std::uint16_t kKindRadio = 1;
constexpr std::uint16_t kKindCheck = 2;
constexpr std::uint16_t kKindCombo = 3;

} // namespace

void CSonopticEventValObs::SetIdentifier(std::uint16_t category, std::uint16_t index, std::uint16_t param)
{
    Category = category;
    Index = index;
    Param = param;
}

void CSonopticEventValObs::Tell(std::uint16_t kind, int state) const
{
    if (UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance())
        bridge->OnValueChanged(nullptr, kind, Category, Index, Param, static_cast<std::uint16_t>(state));
}

void CSonopticBoolValObs::Bind(CheckBoxControl* control, std::uint16_t category, std::uint16_t index,
                               std::uint16_t param)
{
    Control = control;
    SetIdentifier(category, index, param);
}

void CSonopticBoolValObs::OnUserToggled(int state)
{
    Tell(kKindCheck, state);
}

void CSonopticBoolValObs::SetCheck(int state)
{
    if (Control)
        Control->SetCheck(state);
}

void CSonopticCBoxDiscreteValObs::Bind(ComboBoxControl* control, std::uint16_t category, std::uint16_t index,
                                       std::uint16_t param)
{
    Control = control;
    SetIdentifier(category, index, param);
}

void CSonopticCBoxDiscreteValObs::OnUserSelected(int selection)
{
    Tell(kKindCombo, selection);
}

void CSonopticCBoxDiscreteValObs::SetSelection(int selection)
{
    if (Control)
        Control->SetCurSel(selection);
}

void CSonopticExcluValObs::Bind(std::int32_t count, CheckBoxControl** buttons, std::uint16_t category,
                                std::uint16_t index, std::uint16_t param)
{
    Count = count;
    Buttons = buttons;
    SetIdentifier(category, index, param);
}

void CSonopticExcluValObs::OnUserSelected(std::int32_t value)
{
    Selected = value;
    Tell(kKindRadio, value);
}

void CSonopticExcluValObs::SetSelected(std::int32_t value)
{
    Selected = value;
    if (value < 0 || value >= Count)
        return;
    for (std::int32_t i = 0; i < Count; ++i)
        Buttons[i]->SetCheck(0);
    Buttons[value]->SetCheck(1);
}
