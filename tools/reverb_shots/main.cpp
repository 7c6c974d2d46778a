// Saves three pictures into the folder given: the response window over a reverb with long delays and
// strong reflections (red slab, blue wedge, grey corner and the eight boxes), the same with both
// reference planes and the late wire frame, and the panner with two arcs of different direction and
// width.
#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/MeasuredDecayView.h"
#include "reverbview/FXPanner.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QCheckBox>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    InitControlResources();
    EFX_Factory::SelectDevice("");
    UI_EFX_Bridge bridge;
    if (!bridge.InitializeEngine(3, 0, 4) || bridge.CreateSlot() != 0 || !bridge.LoadSlotEffect(0, kEffectEAXReverb)) {
        std::fprintf(stderr, "reverb_shots: no EFX device\n");
        return 1;
    }
    EFX_EffectSlot* slot = bridge.GetFactory()->GetEffectSlot(0);
    slot->SetEAXReverbReflectionsDelay(0.3f);
    slot->SetEAXReverbLateReverbDelay(0.1f);
    slot->SetEAXReverbReflectionsGain(3.16f);
    const float reflections[3] = {0.55f, 0.0f, 0.35f};
    const float late[3] = {-0.2f, 0.0f, -0.15f};
    slot->SetEAXReverbReflectionsPan(reflections);
    slot->SetEAXReverbLateReverbPan(late);

    QWidget parent;
    parent.setWindowTitle("Slot 0");
    parent.resize(200, 330);
    auto* panner = new FXPanner(0, &parent);
    parent.show();
    qobject_cast<QAbstractButton*>(FindControl(panner, res::IDC_SHOW_RESPONSE_WINDOW))->click();
    auto* window = dynamic_cast<C3DReverbResponseDlg*>(bridge.GetResponseWindow());
    if (!QTest::qWaitForWindowExposed(window))
        return 1;
    QTest::qWait(200);
    // The measured decay beside the graph comes from a render of its own: it is waited for.
    for (int wait = 0; wait < 500 && window->Measured->Busy(); ++wait)
        QTest::qWait(20);
    QTest::qWait(50);
    bool saved = window->grab().save(folder + "/response-window.png");
    saved &= parent.grab().save(folder + "/reverb-panner.png");

    for (int id : {res::IDC_HF_PLANE, res::IDC_LF_PLANE, res::IDC_LATE_WIRE})
        qobject_cast<QCheckBox*>(FindControl(window, id))->click();
    QTest::qWait(200);
    saved &= window->grab().save(folder + "/response-window-planes.png");
    delete panner;
    std::printf("%s\n", saved ? "saved" : "not saved");
    return saved ? 0 : 1;
}
