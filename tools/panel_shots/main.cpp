// Saves a picture of the slot panel as the main window's slot frame shows it (628 x 568), once for
// each effect type: "slot-<n>.png" in the folder given; then the context/source window on a source's
// tab with two sends routed, "source.png", and on the listener's tab, "listener.png". Where the library refuses an effect, its
// panel is made directly beside an empty slot, so that every panel can be looked at.
#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "controls/CXTabCtrl.h"
#include "engine/EFX_Factory.h"
#include "panels/EffectPanels.h"
#include "panels/FXS_Panel.h"
#include "panels/Source3D_Panel.h"
#include "tools/LiveSlot.h"
#include "shell/CEFXListSrcDlg.h"
#include "values/UI_EFX_Bridge.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    InitControlResources();
    UI_EFX_Bridge bridge;
    if (!tool_support::StartEngineWithSlot(bridge, "panel_shots"))
        return 1;
    QWidget frame;
    FXS_Panel* panel = tool_support::MakeSlotPanel(bridge, frame);
    if (!panel)
        return 1;

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

    // The context/source window as a user sees it, tab strip and menu included: a source's tab with its
    // sends 0 and 1 created and routed to slots 0 and 1, then the listener's tab.
    const QString tone = folder + "/tone.wav";
    tool_support::WriteQuietTone(tone);
    bridge.CreateSlot();
    if (bridge.GetAutoPlay())
        bridge.ToggleAutoPlay();
    CEFXListSrcDlg window(nullptr);
    window.InitDialog();
    window.show();
    window.AddSourceFile(tone, QStringLiteral("tone.wav"));
    if (Source3D_Panel* source = window.SourcePanel(0)) {
        source->OnCreateSend(0);
        source->OnCreateSend(1);
        qobject_cast<QAbstractButton*>(FindControl(source, Source3D_Panel::RouteId(1, 2)))->click();
    }
    if (QTest::qWaitForWindowExposed(&window)) {
        QTest::qWait(50);
        saved += window.grab().save(QStringLiteral("%1/source.png").arg(folder));
        window.Tabs()->SelectTab(0);
        QTest::qWait(50);
        saved += window.grab().save(QStringLiteral("%1/listener.png").arg(folder));
    }
    QFile::remove(tone);
    std::printf("%d pictures saved\n", saved);
    return saved == kEffectTypes + 1 ? 0 : 1;
}
