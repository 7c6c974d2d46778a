#pragma once

#include "controls/ValueWidgets.h"
#include "panels/CPanPotPanel.h"
#include "values/BridgeWindows.h"
#include "values/CConvertNumeric.h"

#include <cstdint>
#include <memory>

class CFloatDecimalDisplay;
class CPot;
class FXPanner;
class FXS_EffectPanel;
class QComboBox;

// The panel of one auxiliary effect slot: its volume and "Send Auto", the list of effect types with
// "Load", the panel of the effect now in the slot to the right of its box, and, while the slot holds
// an EAX reverb, the reverb panner under its box. The bridge asks it to Reload after anything that
// may have changed the slot's effect.
class FXS_Panel : public CPanPotPanel, public BridgeSlotPanel {
public:
    explicit FXS_Panel(QWidget* parent);
    ~FXS_Panel() override;

    // Stores n below 4, else -1. Before the panel is shown.
    void SetSlot(int n);
    void OnSendAuto();
    void OnLoad();
    // Brings the child panel and the panner into line with the slot's effect and writes the values
    // back. Result: the effect type, or 0.
    int Reload() override;

    QComboBox* EffectList = nullptr;
    FXS_EffectPanel* EffectPanel = nullptr;
    FXPanner* ReverbPanner = nullptr;
    std::int32_t Slot = -1;
    std::int32_t LoadedType = 0;
    std::unique_ptr<CPot> VolumeKnob;
    CConvertNumericToLinearRange VolumeConverter;
    std::unique_ptr<CFloatDecimalDisplay> VolumeDisplay;

    // Where the panner stands in the panel.
    static constexpr QPoint kPannerPlace{0, 245};

protected:
    void OnInitDialog() override;

private:
    void ShowPanner();
    void RemovePanner();
    void PlaceChild();
    void RemoveChild();

    ButtonCheck m_sendAuto;
};
