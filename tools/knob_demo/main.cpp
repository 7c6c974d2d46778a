// Four knobs of the four looks, with their read-outs and arrows, on a live EAX reverb: the controls
// as a user meets them. Turn them with the mouse, the arrows, the keys or by typing.
//
//   knob_demo                     shows the panel until it is closed
//   knob_demo --screenshot FILE   shows it, saves a picture of it to FILE, prints each knob's
//                                 caption, frame and shown value, and quits
//
// QT_SCALE_FACTOR=2 shows it at twice the size, drawn from the bitmaps made at twice the size.
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "tools/knob_demo/KnobDemoPanel.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>

#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    const char* screenshot = nullptr;
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "--screenshot") == 0)
            screenshot = argv[i + 1];

    InitControlResources();
    UI_EFX_Bridge bridge;
    EFX_Factory::SelectDevice("");
    if (!bridge.InitializeEngine(3, 0, 4) || bridge.CreateSlot() != 0 || !bridge.LoadSlotEffect(0, kEffectEAXReverb)) {
        std::fprintf(stderr, "knob_demo: no EFX device to put a reverb on\n");
        return 1;
    }

    // Made silent, then filled from the engine, as every panel is.
    bridge.SetCallbacksEnabled(0);
    KnobDemoPanel panel;
    panel.show();
    bridge.RefreshEAXReverb(0);
    bridge.SetCallbacksEnabled(1);

    if (!screenshot)
        return application.exec();

    int result = 0;
    QTimer::singleShot(300, [&] {
        if (!panel.grab().save(QString::fromLocal8Bit(screenshot)))
            result = 1;
        for (int r = 0; r < KnobDemoPanel::kKnobs; ++r) {
            const CObservableNumber* value = panel.Knob(r).AccessibleSubject();
            std::printf("%s: frame %d, value %.2f\n", KnobDemoPanel::Caption(r), panel.Knob(r).Position(),
                        value ? value->GetValue() : -1.0);
        }
        application.quit();
    });
    application.exec();
    return result;
}
