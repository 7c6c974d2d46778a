#pragma once

#include "controls/ValueWidgets.h"
#include "panels/CPanPotPanel.h"
#include "panels/NumberedSlot.h"

#include <memory>
#include <vector>

class CConvertNumericToLinearRange;
class CDecimalDisplay;
class CPot;
struct EffectPanelTable;

// The panel of one effect in a slot: every knob, combo box and check box of the effect's table,
// bound to its values. All thirteen effects are this one program over their own tables. The panel's
// own value rows (all but the reverbs' knob values, which the bridge keeps) are made in the
// constructor and deleted in the destructor, so an effect's values live exactly as long as its panel.
class FXS_EffectPanel : public CPanPotPanel, public NumberedSlot {
public:
    FXS_EffectPanel(const EffectPanelTable& table, QWidget* parent, int slot);
    ~FXS_EffectPanel() override;

    const EffectPanelTable& Table() const { return m_table; }
    // "Defaults": the bridge sets the effect's default values and writes them back.
    void OnDefaults();

    CPot& Knob(int row) { return *m_knobs[row]; }
    CDecimalDisplay& Display(int row) { return *m_displays[row]; }
    int KnobCount() const { return static_cast<int>(m_knobs.size()); }

    // The widest an effect panel may be beside its slot's controls.
    static constexpr int kMaxWidth = 430;

protected:
    void OnInitDialog() override;

private:
    void MakeValueRows();
    void ReleaseValueRows();
    void BindCombos();
    void BindKnobs();
    void OnShowResponseWindow();

    const EffectPanelTable& m_table;
    std::vector<std::unique_ptr<CPot>> m_knobs;
    std::vector<std::unique_ptr<CConvertNumericToLinearRange>> m_converters;
    std::vector<std::unique_ptr<CDecimalDisplay>> m_displays;
    std::vector<std::unique_ptr<ComboSelection>> m_comboControls;
    ButtonCheck m_hfLimitControl;
};
