// Times two things a user does in a slot panel, each to the moment its picture is on screen:
//   (a) "Load", alternating the EAX reverb and the chorus in one slot: the old effect panel goes,
//       the new one and (for the reverb) the panner are made and bound, the engine's values are
//       written back, and the slot panel is painted and flushed to the window system;
//   (b) "Defaults" of the EAX reverb: the engine's defaults, the write-back of its 26 values, and
//       every knob and read-out that changed repainted and flushed.
// Prints the median of several rounds of each, in milliseconds.

#include "controls/CDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_Factory.h"
#include "panels/EffectPanelTables.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/FXS_Panel.h"
#include "tools/BenchSupport.h"
#include "tools/LiveSlot.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using bench_support::Clock;
using bench_support::MillisecondsSince;
constexpr int kRounds = 21;

} // namespace

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    InitControlResources();
    UI_EFX_Bridge bridge;
    if (!tool_support::StartEngineWithSlot(bridge, "bench_panels"))
        return 1;
    QWidget frame;
    FXS_Panel* panel = tool_support::MakeSlotPanel(bridge, frame);
    if (!panel)
        return 1;
    auto* load = FindControlAs<QPushButton>(panel, 1002);

    // (a) Load, alternating the two effects; the frame is painted and flushed before the clock stops.
    std::vector<double> loads;
    for (int round = 0; round < 2 * kRounds + 2; ++round) {
        panel->EffectList->setCurrentIndex(round % 2 ? 5 : 1);
        const auto start = Clock::now();
        load->click();
        frame.repaint();
        if (round >= 2)
            loads.push_back(MillisecondsSince(start));
    }

    // (b) Defaults of the EAX reverb after its values were moved away from them.
    panel->EffectList->setCurrentIndex(1);
    load->click();
    auto* defaults = FindControlAs<QPushButton>(panel->EffectPanel, panel->EffectPanel->Table().defaultsId);
    bench_support::PaintCounter counter;
    for (int r = 0; r < panel->EffectPanel->KnobCount(); ++r) {
        panel->EffectPanel->Knob(r).installEventFilter(&counter);
        panel->EffectPanel->Display(r).installEventFilter(&counter);
    }
    std::vector<double> resets;
    for (int round = 0; round < kRounds; ++round) {
        // Every one of the 26 values moved away from its default, a little over a third up its range.
        for (CEFXFloatValObs* value : BridgeTables().ReverbValues[0])
            value->SetValue(value->Minimum + 0.37 * (value->Maximum - value->Minimum));
        QApplication::processEvents();
        const auto start = Clock::now();
        defaults->click();
        // What the write-back marked is painted in one pass and flushed, as the event loop does next.
        QApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
        resets.push_back(MillisecondsSince(start));
    }

    std::printf("slot panel at work, median of %d rounds\n", kRounds);
    std::printf("  (a) Load, EAX reverb and chorus in turn, to the frame on screen: %7.2f ms (aim: under 30)\n",
                bench_support::Median(loads));
    std::printf("  (b) EAX reverb Defaults, 26 knobs and read-outs repainted:     %7.2f ms (aim: under 3)\n",
                bench_support::Median(resets));
    std::printf("      knobs and read-outs painted per Defaults: %.1f\n", double(counter.paints) / kRounds);
    delete panel;
    return 0;
}
