#pragma once

#include "controls/ValueWidgets.h"
#include "panels/CPanPotPanel.h"

#include <array>
#include <cstdint>
#include <memory>

class CConvertNumericToLinearRange;
class CFloatDecimalDisplay;
class CPot;

// The first tab of the context/source window: the listener's position, orientation, velocity and
// gain, the Doppler factor and the speed of sound on knobs, the seven distance models, and the
// buttons that suspend and process the OpenAL context with a label that says which was pressed last.
// Made once with callbacks off; the context's write-back then fills it.
class ContextListener_Panel : public CPanPotPanel {
public:
    static constexpr int kKnobs = 12;
    static constexpr int kDistanceModels = 7;

    explicit ContextListener_Panel(QWidget* parent);
    ~ContextListener_Panel() override;

    // Stores the state and shows it in the label.
    void SetContextState(int state);
    void OnSuspendContext();
    void OnProcessContext();
    void OnDefaults();

    CPot& Knob(int row) { return *Knobs[row]; }
    CFloatDecimalDisplay& Display(int row) { return *Displays[row]; }

    std::array<std::unique_ptr<CPot>, kKnobs> Knobs;
    std::array<std::unique_ptr<CConvertNumericToLinearRange>, kKnobs> Converters;
    std::array<std::unique_ptr<CFloatDecimalDisplay>, kKnobs> Displays;
    std::int32_t ContextProcessing = 1;

protected:
    void OnInitDialog() override;

private:
    void ShowContextState();

    std::array<ButtonCheck, kDistanceModels> m_radios;
    std::array<CheckBoxControl*, kDistanceModels> DistanceModelButtons{};
};
