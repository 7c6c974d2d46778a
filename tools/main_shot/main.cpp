// Saves "main-window.png" in the folder given: the main window as a user sees it after creating two
// slots and loading an EAX reverb into the first, its panel (with the reverb panner) shown and the
// console holding the engine's messages.
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "panels/FXS_Panel.h"
#include "shell/CSonopticDlg.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    QApplication::setApplicationName("Sonoptic");
    InitControlResources();
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    UI_EFX_Bridge bridge;
    EFX_Factory::SelectDevice("");
    if (!bridge.InitializeEngine(3, 0, 4)) {
        std::fprintf(stderr, "main_shot: no EFX device\n");
        return 1;
    }
    CSonopticDlg dialog(&bridge);
    dialog.InitDialog();
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog))
        return 1;
    dialog.OnCreateSlot();
    dialog.OnCreateSlot();
    // Each slot's effect chosen in its list and loaded with its button, as a user does.
    for (QWidget* widget : dialog.findChildren<QWidget*>())
        if (auto* panel = dynamic_cast<FXS_Panel*>(widget)) {
            panel->EffectList->setCurrentIndex(panel->Slot == 0 ? kEffectEAXReverb : kEffectEcho);
            panel->OnLoad();
        }
    dialog.ShowSlot(0);
    QTest::qWait(100);
    const bool saved = dialog.grab().save(folder + "/main-window.png");
    std::printf("%s\n", saved ? "saved" : "not saved");
    return saved ? 0 : 1;
}
