#pragma once

#include "panels/EffectPanelTables.h"
#include "panels/FXS_EffectPanel.h"

// The thirteen effect panels by name: each is the one effect panel over its own table.
template <int Type>
class FXS_EffectPanelOf : public FXS_EffectPanel {
public:
    FXS_EffectPanelOf(QWidget* parent, int slot) : FXS_EffectPanel(*EffectPanelTableFor(Type), parent, slot) {}
};

using FXS_EAXReverb_Panel = FXS_EffectPanelOf<1>;
using FXS_Reverb_Panel = FXS_EffectPanelOf<2>;
using FXS_AGC_Panel = FXS_EffectPanelOf<3>;
using FXS_Autowah_Panel = FXS_EffectPanelOf<4>;
using FXS_Chorus_Panel = FXS_EffectPanelOf<5>;
using FXS_Distortion_Panel = FXS_EffectPanelOf<6>;
using FXS_Echo_Panel = FXS_EffectPanelOf<7>;
using FXS_Equalizer_Panel = FXS_EffectPanelOf<8>;
using FXS_Flanger_Panel = FXS_EffectPanelOf<9>;
using FXS_VocalMorpher_Panel = FXS_EffectPanelOf<10>;
using FXS_PitchShifter_Panel = FXS_EffectPanelOf<11>;
using FXS_RingModulator_Panel = FXS_EffectPanelOf<12>;
using FXS_FrequencyShifter_Panel = FXS_EffectPanelOf<13>;

// The panel of an effect type 1 to 13, a child of parent for slot; null for any other type.
inline FXS_EffectPanel* MakeEffectPanel(int type, QWidget* parent, int slot)
{
    const EffectPanelTable* table = EffectPanelTableFor(type);
    return table ? new FXS_EffectPanel(*table, parent, slot) : nullptr;
}
