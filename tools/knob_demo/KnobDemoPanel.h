#pragma once

#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "panels/CPanPotPanel.h"
#include "values/CConvertNumeric.h"

#include <array>

// Four knobs of the four looks on the EAX reverb of slot 0, each with its read-out and arrows, bound
// to the bridge's reverb values as an effect panel binds them.
class KnobDemoPanel : public CPanPotPanel {
public:
    static constexpr int kKnobs = 4;

    explicit KnobDemoPanel(QWidget* parent = nullptr);
    ~KnobDemoPanel() override;

    CPot& Knob(int row) { return m_knob[row]; }
    CFloatDecimalDisplay& Display(int row) { return *m_display[row]; }
    static const char* Caption(int row);

protected:
    void OnInitDialog() override;

private:
    std::array<CPot, kKnobs> m_knob;
    std::array<CConvertNumericToLinearRange, kKnobs> m_converter;
    std::array<CFloatDecimalDisplay*, kKnobs> m_display{};
};
