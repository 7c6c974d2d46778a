#include "tools/knob_demo/KnobDemoPanel.h"

#include "controls/DialogTemplate.h"
#include "values/BridgeTables.h"

namespace {

struct KnobRow {
    int param; // of the bridge's reverb values
    int id;
    const char* caption;
    float minimum, maximum, step, first;
    int style;
};

// Density, diffusion, decay time and its HF ratio, one look each.
constexpr KnobRow kRows[KnobDemoPanel::kKnobs] = {
    {0, 1017, "Density", 0.0f, 1.0f, 0.05f, 0.77f, 0},
    {1, 1021, "Diffusion", 0.0f, 1.0f, 0.01f, 0.77f, 1},
    {2, 1023, "Decay Time", 0.1f, 20.0f, 0.01f, 7.77f, 2},
    {3, 1026, "HF Ratio", 0.1f, 2.0f, 0.01f, 0.77f, 3},
};

constexpr int kColumn = 78;

// A group box round the four columns, a caption over each, and the placeholders the knobs replace.
const ControlTemplate kTemplate[] = {
    {0, ControlKind::GroupBox, "EAX Reverb, slot 0", QRect(8, 6, 4 * kColumn + 8, 100)},
    {0, ControlKind::Static, "Density", QRect(16, 26, kColumn - 6, 14)},
    {0, ControlKind::Static, "Diffusion", QRect(16 + kColumn, 26, kColumn - 6, 14)},
    {0, ControlKind::Static, "Decay Time", QRect(16 + 2 * kColumn, 26, kColumn - 6, 14)},
    {0, ControlKind::Static, "HF Ratio", QRect(16 + 3 * kColumn, 26, kColumn - 6, 14)},
    {1017, ControlKind::Static, "Density", QRect(30, 46, 34, 25)},
    {1021, ControlKind::Static, "Diffusion", QRect(30 + kColumn, 46, 34, 25)},
    {1023, ControlKind::Static, "Decay Time", QRect(30 + 2 * kColumn, 46, 34, 25)},
    {1026, ControlKind::Static, "HF Ratio", QRect(30 + 3 * kColumn, 46, 34, 25)},
};

} // namespace

KnobDemoPanel::KnobDemoPanel(QWidget* parent)
    : CPanPotPanel(0, parent)
{
    for (auto& display : m_display)
        display = new CFloatDecimalDisplay(2);
    BuildDialog(this, "Sonoptic knobs", QSize(4 * kColumn + 24, 114), kTemplate);
}

KnobDemoPanel::~KnobDemoPanel()
{
    for (auto* display : m_display)
        delete display;
}

const char* KnobDemoPanel::Caption(int row)
{
    return kRows[row].caption;
}

void KnobDemoPanel::OnInitDialog()
{
    for (int r = 0; r < kKnobs; ++r) {
        const KnobRow& row = kRows[r];
        BindFloatKnob(BridgeTables().ReverbValues[0][row.param], &m_knob[r], &m_converter[r], m_display[r], row.id,
                      row.minimum, row.maximum, row.first, row.step, 5, 0, static_cast<std::uint16_t>(row.param),
                      65535, row.style);
    }
}
