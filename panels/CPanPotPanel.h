#pragma once

#include "controls/CDialog.h"

#include <cstdint>

class CConvertNumericToLinearRange;
class CEFXFloatValObs;
class CEFXLongValObs;
class CFloatDecimalDisplay;
class CLongDecimalDisplay;
class CPot;
struct PanelKnob;

// The base of every panel with knobs. The panel's template marks each knob's place with a static
// placeholder that carries the control's number; binding puts the real knob and its read-out there
// and connects both to a value. A panel lives as a child window: Enter and Esc never close it.
class CPanPotPanel : public CDialog {
public:
    CPanPotPanel(int templateId, QWidget* parent);

    int TemplateId() const { return m_templateId; }

    // Both run from OnInitDialog with the bridge's callbacks disabled, so that first, a placeholder
    // that the write-back replaces at once, never reaches the engine. The knob sits 5 pixels right
    // of the placeholder's corner, the read-out 3 pixels left and 26 below; the knob takes over the
    // placeholder's number and accessible name.
    void BindFloatKnob(CEFXFloatValObs* value, CPot* knob, CConvertNumericToLinearRange* converter,
                       CFloatDecimalDisplay* display, int controlId, float minimum, float maximum, float first,
                       float step, std::uint16_t category, std::uint16_t index, std::uint16_t param,
                       std::uint16_t extra, int style);
    void BindLongKnob(CEFXLongValObs* value, CPot* knob, CConvertNumericToLinearRange* converter,
                      CLongDecimalDisplay* display, int controlId, std::int32_t minimum, std::int32_t maximum,
                      std::int32_t first, std::int32_t step, std::uint16_t category, std::uint16_t index,
                      std::uint16_t param, std::uint16_t extra, int style);

    // Names a knob's placeholder for a screen reader and gives it the knob's tooltip (its property's
    // token, range and unit); binding hands both on to the knob and its read-out.
    void DescribeKnob(const PanelKnob& knob, const QString& name);

    // The knob's offset from its placeholder, and the read-out's.
    static constexpr QPoint kKnobOffset{5, 0};
    static constexpr QPoint kDisplayOffset{-3, 26};

protected:
    // Enter, or the invisible OK button some templates hold: the panel takes the focus and stays.
    virtual void OnOK();
    void accept() override { OnOK(); }
    // Esc would hide a child panel and leave a hole in its window: it does nothing there. A panel
    // shown as a window of its own closes as any window does.
    void reject() override;

private:
    // The placeholder's corner in the panel's coordinates, its accessible name and its tooltip; the
    // placeholder gives up its number to the knob and is hidden.
    QPoint TakePlaceholder(int controlId, QString* name, QString* toolTip);

    int m_templateId;
};
