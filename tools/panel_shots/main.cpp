// Saves a picture of the slot panel as the main window's slot frame shows it (628 x 568), once for
// each effect type: "slot-<n>.png" in the folder given; and the listener's tab, "listener.png". Where the library refuses an effect, its
// panel is made directly beside an empty slot, so that every panel can be looked at.
#include "controls/ControlResources.h"
#include "engine/EFX_Factory.h"
#include "panels/ContextListener_Panel.h"
#include "panels/EffectPanels.h"
#include "panels/FXS_Panel.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    InitControlResources();
    EFX_Factory::SelectDevice("");
    UI_EFX_Bridge bridge;
    if (!bridge.InitializeEngine(3, 0, 4) || bridge.CreateSlot() != 0) {
        std::fprintf(stderr, "panel_shots: no EFX device\n");
        return 1;
    }
    QWidget frame;
    frame.setFixedSize(628, 568);
    frame.show();
    if (!QTest::qWaitForWindowExposed(&frame))
        return 1;
    bridge.SetCallbacksEnabled(0);
    auto* panel = new FXS_Panel(&frame);
    panel->SetSlot(0);
    panel->InitDialog();
    panel->move(2, 2);
    panel->show();
    bridge.SetSlotPanel(0, panel);
    bridge.SetCallbacksEnabled(1);

    int saved = 0;
    for (int type = 1; type < kEffectTypes; ++type) {
        panel->EffectList->setCurrentIndex(type);
        if (bridge.LoadSlotEffect(0, type)) {
            panel->Reload();
        } else {
            // A panel of its own beside the empty slot, showing its placeholders.
            bridge.LoadSlotEffect(0, 0);
            panel->Reload();
            bridge.SetCallbacksEnabled(0);
            auto* direct = MakeEffectPanel(type, panel, 0);
            direct->InitDialog();
            direct->move(194, 0);
            direct->show();
            bridge.SetCallbacksEnabled(1);
            QTest::qWait(50);
            saved += frame.grab().save(QStringLiteral("%1/slot-%2.png").arg(folder).arg(type));
            delete direct;
            continue;
        }
        QTest::qWait(50);
        saved += frame.grab().save(QStringLiteral("%1/slot-%2.png").arg(folder).arg(type));
    }
    delete panel;

    // The listener's tab, filled from the context.
    bridge.SetCallbacksEnabled(0);
    QWidget tab;
    auto* listener = new ContextListener_Panel(&tab);
    listener->InitDialog();
    bridge.CreateContext();
    bridge.RefreshContext();
    bridge.SetCallbacksEnabled(1);
    tab.resize(listener->size());
    tab.show();
    if (QTest::qWaitForWindowExposed(&tab))
        saved += tab.grab().save(QStringLiteral("%1/listener.png").arg(folder));
    delete listener;
    std::printf("%d pictures saved\n", saved);
    return saved == kEffectTypes ? 0 : 1;
}
