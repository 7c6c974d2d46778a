// Times one step of a knob drag on a live EAX reverb: the mouse move into the knob, the pop-up
// fader's set through the bridge into OpenAL, the write-back of all the reverb's values, and the
// knob and its read-out painted and flushed to the window system. Against it, in the same process and
// in alternating rounds, the bare OpenAL calls that set the same property and attach the effect
// again. Prints the median of the rounds, per step, in microseconds.

#include "controls/CFader.h"
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "tools/BenchSupport.h"
#include "tools/knob_demo/KnobDemoPanel.h"
#include "values/UI_EFX_Bridge.h"

#include <AL/al.h>
#include <AL/efx.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <cstdlib>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

constexpr int kRounds = 21;
constexpr int kSteps = 127; // one sweep of the pop-up fader
constexpr int kDecayRow = 2;

using Clock = std::chrono::steady_clock;

struct Bare {
    LPALEFFECTF effectf;
    LPALAUXILIARYEFFECTSLOTI slotI;
    ALuint effect;
    ALuint slot;
};

} // namespace

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    InitControlResources();
    EFX_Factory::SelectDevice("");
    UI_EFX_Bridge bridge;
    if (!bridge.InitializeEngine(3, 0, 4) || bridge.CreateSlot() != 0 || bridge.CreateSlot() != 1 ||
        !bridge.LoadSlotEffect(0, kEffectEAXReverb)) {
        std::fprintf(stderr, "bench_knob: no EFX device\n");
        return 1;
    }
    bridge.SetCallbacksEnabled(0);
    KnobDemoPanel panel;
    panel.show();
    if (!QTest::qWaitForWindowExposed(&panel)) {
        std::fprintf(stderr, "bench_knob: the panel was never shown\n");
        return 1;
    }
    bridge.RefreshEAXReverb(0);
    bridge.SetCallbacksEnabled(1);
    CPot& knob = panel.Knob(kDecayRow);
    CFloatDecimalDisplay& display = panel.Display(kDecayRow);

    bench_support::PaintCounter counter;
    knob.installEventFilter(&counter);
    display.installEventFilter(&counter);

    // The bare calls work on an effect of their own in slot 1.
    Bare bare{};
    bare.effectf = reinterpret_cast<LPALEFFECTF>(alGetProcAddress("alEffectf"));
    bare.slotI = reinterpret_cast<LPALAUXILIARYEFFECTSLOTI>(alGetProcAddress("alAuxiliaryEffectSloti"));
    reinterpret_cast<LPALGENEFFECTS>(alGetProcAddress("alGenEffects"))(1, &bare.effect);
    reinterpret_cast<LPALEFFECTI>(alGetProcAddress("alEffecti"))(bare.effect, AL_EFFECT_TYPE, AL_EFFECT_EAXREVERB);
    bare.slot = EFX_Factory::GetEffectSlotId(1);

    // One sweep of the knob, up in even rounds and down in odd ones, from a press held all along.
    const QPoint centre(knob.width() / 2, knob.height() / 2);
    int x = centre.x();
    auto sweep = [&](int direction) {
        const auto start = Clock::now();
        for (int step = 0; step < kSteps; ++step) {
            x += direction;
            bench_support::SendMouse(&knob, QEvent::MouseMove, QPoint(x, centre.y()));
            // Paint the knob and its read-out and flush each to the window system.
            knob.repaint();
            display.repaint();
        }
        return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / kSteps;
    };
    auto bareSweep = [&](int direction) {
        const auto start = Clock::now();
        for (int step = 0; step < kSteps; ++step) {
            const float value = 0.1f + 0.15f * static_cast<float>(direction > 0 ? step : kSteps - step);
            alGetError();
            bare.effectf(bare.effect, AL_EAXREVERB_DECAY_TIME, value);
            alGetError();
            bare.slotI(bare.slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(bare.effect));
            alGetError();
        }
        return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / kSteps;
    };

    bench_support::SendMouse(&knob, QEvent::MouseButtonPress, centre);
    bench_support::SendMouse(&knob, QEvent::MouseMove, QPoint(x - 200, centre.y())); // from the bottom of the range
    x -= 200;
    sweep(1); // warm-up
    sweep(-1);
    std::vector<double> knobSteps;
    std::vector<double> bareSteps;
    for (int round = 0; round < kRounds; ++round) {
        const int direction = round % 2 ? -1 : 1;
        knobSteps.push_back(sweep(direction));
        bareSteps.push_back(bareSweep(direction));
    }
    bench_support::SendMouse(&knob, QEvent::MouseButtonRelease, QPoint(x, centre.y()));

    const double ours = bench_support::Median(knobSteps);
    const double plain = bench_support::Median(bareSteps);
    std::printf("one step of a knob drag on a live EAX reverb, median of %d rounds of %d steps\n", kRounds, kSteps);
    std::printf("  mouse move, set, write-back, knob and read-out painted: %7.2f us\n", ours);
    std::printf("  bare alEffectf and slot attach:                       %7.2f us\n", plain);
    std::printf("  the rest (bridge, write-back, painting):              %7.2f us\n", ours - plain);
    std::printf("  paints of the knob and its read-out per step:         %7.2f\n",
                double(counter.paints) / ((kRounds + 2) * kSteps));
    std::printf("  target: under 50 us a step: %s\n", ours < 50.0 ? "met" : "NOT met");
    return 0;
}
