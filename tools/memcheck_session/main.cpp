// The whole program, started as main() starts it, through a short session that a user could have: the
// configuration dialog (shown when no sends are asked for on the command line) and the device dialog
// answered with their default buttons; two slots created; every effect type loaded into a slot with
// "Load" and its controls turned (a knob dragged with the mouse, the others set as a drag sets them);
// the reverb's response window opened, then taken away with its panel by the next load; an EAX reverb
// in the other slot with its panner, its response window and "Defaults"; two sources added from a WAV
// file through the file dialog, the listener's and a source's panels turned, a send created and
// routed, a source deleted; the position window; the preset browser capturing a slot into a preset and
// applying it back, and applying a preset of the standard reverb library; then the main window closed
// through its close box. Message boxes on the way are read and closed with OK.
//
// Made to run under Valgrind (scripts/memcheck.sh): each step follows the last through the event loop
// and every answer waits for its window to show, so a slow run only takes longer. Returns 0 when every
// step ran and found what it acts on, 1 otherwise.

#include "controls/CPot.h"
#include "controls/CXTabCtrl.h"
#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "panels/ContextListener_Panel.h"
#include "panels/EffectPanelTables.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/FXS_Panel.h"
#include "panels/Source3D_Panel.h"
#include "presets/CEFXBrowser.h"
#include "presets/CEFXPresetTree.h"
#include "presets/PresetLookups.h"
#include "resources/ResourceIds.h"
#include "shell/CEFXListSrcDlg.h"
#include "shell/CInitializationPanel.h"
#include "shell/CRouterPanel.h"
#include "shell/CSonopticApp.h"
#include "shell/CSonopticDlg.h"
#include "shell/CommandLine.h"
#include "tools/BenchSupport.h"
#include "tools/LiveSlot.h"
#include "values/CObservableNumber.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWindow>

#include <cstdio>
#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace {

// The pause between two steps, in which the windows paint what the step changed.
constexpr int kStepGapMs = 50;
// How often the script looks for a modal window to answer.
constexpr int kPollMs = 50;

int g_failures = 0;

void Check(bool ok, const char* what)
{
    if (!ok) {
        ++g_failures;
        std::fprintf(stderr, "memcheck_session: %s\n", what);
    }
}

// A knob set as a drag of its fader to that fraction of its value's range sets it.
void SetKnob(CPot& knob, double fraction)
{
    if (CObservableNumber* value = knob.AccessibleSubject())
        knob.AccessibleSetValue(value->GetMinimum() + fraction * (value->GetMaximum() - value->GetMinimum()));
}

// A knob dragged with the mouse: pressed, moved up in steps (the pop-up fader follows), released.
void DragKnob(CPot& knob)
{
    const QPoint centre = knob.rect().center();
    bench_support::SendMouse(&knob, QEvent::MouseButtonPress, centre);
    for (int dy = 4; dy <= 20; dy += 4)
        bench_support::SendMouse(&knob, QEvent::MouseMove, centre + QPoint(dy, -dy));
    bench_support::SendMouse(&knob, QEvent::MouseButtonRelease, centre + QPoint(20, -20));
}

void Click(QWidget* parent, int id, const char* what)
{
    auto* button = FindControlAs<QAbstractButton>(parent, id);
    Check(button != nullptr, what);
    if (button)
        QTest::mouseClick(button, Qt::LeftButton);
}

void ClickTab(CXTabCtrl* tabs, int tab)
{
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
    Check(tabs->currentIndex() == tab, "a click on a tab did not select it");
}

QTreeWidgetItem* ItemOf(QTreeWidget* tree, const std::function<bool(QTreeWidgetItem*)>& match)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if (match(*it))
            return *it;
    }
    return nullptr;
}

// The modal windows that the session meets, answered as a user answers them.
class ModalAnswers : public QObject {
public:
    ModalAnswers(QString wave, std::function<void(CSonopticDlg&)> onMainDialog)
        : m_wave(std::move(wave)), m_onMainDialog(std::move(onMainDialog))
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalAnswers::Poll);
        m_timer.start(kPollMs);
    }
    int MessageBoxes() const { return m_boxes; }

private:
    void Poll()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == m_last || !modal->windowHandle() || !modal->windowHandle()->isExposed())
            return;
        m_last = modal;
        // The answer runs outside this handler, so that a window it opens in turn is answered too.
        QPointer<QWidget> target(modal);
        QTimer::singleShot(0, this, [this, target] {
            if (target)
                Answer(target);
        });
    }

    void Answer(QWidget* modal)
    {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            ++m_boxes;
            std::fprintf(stderr, "memcheck_session: message box \"%s\"\n", qPrintable(box->text()));
            box->button(QMessageBox::Ok)->click();
        } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
            PickWave(*files);
        } else if (dynamic_cast<CInitializationPanel*>(modal)) {
            Click(modal, res::IDOK, "the configuration dialog has no Proceed");
        } else if (dynamic_cast<CRouterPanel*>(modal)) {
            Click(modal, res::IDOK, "the device dialog has no OK");
        } else if (auto* dialog = dynamic_cast<CSonopticDlg*>(modal)) {
            m_onMainDialog(*dialog);
        }
    }

    // As a user picks a file: the path typed into the name field, then Open.
    void PickWave(QFileDialog& files)
    {
        auto* name = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* buttons = files.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QPushButton* open = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
        Check(name && open, "the file dialog has no name field or no Open button");
        if (!name || !open) {
            files.reject();
            return;
        }
        name->setText(m_wave);
        open->click();
    }

    QString m_wave;
    std::function<void(CSonopticDlg&)> m_onMainDialog;
    QTimer m_timer;
    QPointer<QWidget> m_last;
    int m_boxes = 0;
};

// The steps on the main window, one after the other with the event loop running between them.
class Session {
public:
    explicit Session(CSonopticDlg& dialog) : m_dialog(dialog) {}

    void Start();
    bool Finished() const { return m_finished; }

private:
    using Step = std::pair<const char*, std::function<void()>>;
    void RunNext();
    FXS_Panel* SlotPanel(int slot) const;
    void LoadEffect(int slot, int type);
    void TurnEffectControls(int slot);
    void TurnListenerAndSource();
    void CaptureAndApplyPreset();
    void ApplyLibraryPreset();

    CSonopticDlg& m_dialog;
    std::deque<Step> m_steps;
    bool m_finished = false;
};

void Session::Start()
{
    m_steps.push_back({"create slots 0 and 1", [this] {
                           Click(&m_dialog, res::IDC_CREATE_SLOT, "no Create Slot");
                           Click(&m_dialog, res::IDC_CREATE_SLOT, "no Create Slot");
                       }});
    for (int type = 1; type < kEffectTypes; ++type)
        m_steps.push_back({EffectListText(type), [this, type] {
                               LoadEffect(1, type);
                               TurnEffectControls(1);
                           }});
    m_steps.push_back({"slot 1's reverb and its response window", [this] {
                           LoadEffect(1, kEffectReverb);
                           if (FXS_Panel* panel = SlotPanel(1); panel && panel->EffectPanel)
                               Click(panel->EffectPanel, panel->EffectPanel->Table().responseButtonId,
                                     "the reverb panel has no response window button");
                       }});
    // The response window belongs to the reverb's panel: loading another effect takes both away.
    m_steps.push_back({"slot 1's echo in place of the reverb, a knob turned", [this] {
                           LoadEffect(1, kEffectEcho);
                           TurnEffectControls(1);
                       }});
    m_steps.push_back({"slot 0: EAX reverb, panner, response window, Defaults", [this] {
                           Click(&m_dialog, res::IDC_SLOT_BUTTON_0, "no slot 0 button");
                           LoadEffect(0, kEffectEAXReverb);
                           TurnEffectControls(0);
                           FXS_Panel* panel = SlotPanel(0);
                           if (!panel || !panel->EffectPanel)
                               return;
                           Click(panel, res::IDC_SHOW_RESPONSE_WINDOW, "the panner has no response window button");
                           Click(panel->EffectPanel, panel->EffectPanel->Table().defaultsId, "no Defaults");
                       }});
    m_steps.push_back({"copy slot 0 as code", [this] { m_dialog.MenuAction(res::ID_COPY_SLOT_CODE)->trigger(); }});
    m_steps.push_back({"add a source from the main menu", [this] { m_dialog.MenuAction(res::ID_ADD_SOURCE)->trigger(); }});
    m_steps.push_back({"add a source from the context/source window's menu", [this] {
                           m_dialog.ContextWindow()->MenuAction(res::ID_CS_ADD_SOURCE)->trigger();
                           Check(m_dialog.ContextWindow()->SourceCount() == 2, "the two sources were not added");
                       }});
    m_steps.push_back({"listener and source panels", [this] { TurnListenerAndSource(); }});
    m_steps.push_back({"delete the first source", [this] {
                           CEFXListSrcDlg* window = m_dialog.ContextWindow();
                           ClickTab(window->Tabs(), 1);
                           window->MenuAction(res::ID_CS_DELETE_SOURCE)->trigger();
                           Check(window->SourceCount() == 1, "the source was not deleted");
                       }});
    m_steps.push_back({"position window", [this] { m_dialog.MenuAction(res::ID_SHOW_POSITION_WINDOW)->trigger(); }});
    m_steps.push_back({"preset browser: capture slot 0 and apply it back", [this] { CaptureAndApplyPreset(); }});
    m_steps.push_back({"preset browser: a library reverb into slot 0", [this] { ApplyLibraryPreset(); }});
    m_steps.push_back({"close the main window", [this] {
                           m_finished = true;
                           m_dialog.close();
                       }});
    QTimer::singleShot(kStepGapMs, [this] { RunNext(); });
}

void Session::RunNext()
{
    if (m_steps.empty())
        return;
    Step step = std::move(m_steps.front());
    m_steps.pop_front();
    std::fprintf(stderr, "memcheck_session: %s\n", step.first);
    step.second();
    QTimer::singleShot(kStepGapMs, [this] { RunNext(); });
}

FXS_Panel* Session::SlotPanel(int slot) const
{
    for (FXS_Panel* panel : m_dialog.findChildren<FXS_Panel*>()) {
        if (panel->Slot == slot)
            return panel;
    }
    return nullptr;
}

// The effect chosen in the slot panel's list and "Load" pressed; a refused type brings a message box.
void Session::LoadEffect(int slot, int type)
{
    FXS_Panel* panel = SlotPanel(slot);
    Check(panel != nullptr, "a slot has no panel");
    if (!panel)
        return;
    panel->EffectList->setCurrentIndex(type);
    Click(panel, res::IDC_LOAD_EFFECT, "no Load button");
}

// The first knob dragged with the mouse, every other knob set, every combo box's last entry chosen,
// the check box clicked.
void Session::TurnEffectControls(int slot)
{
    FXS_Panel* panel = SlotPanel(slot);
    FXS_EffectPanel* effect = panel ? panel->EffectPanel : nullptr;
    if (!effect)
        return;
    if (effect->KnobCount() > 0)
        DragKnob(effect->Knob(0));
    for (int r = 1; r < effect->KnobCount(); ++r)
        SetKnob(effect->Knob(r), 0.25 + 0.5 * (r % 2));
    for (const PanelCombo& row : effect->Table().combos) {
        auto* combo = FindControlAs<QComboBox>(effect, row.id);
        combo->setCurrentIndex(combo->count() - 1);
        Q_EMIT combo->activated(combo->count() - 1);
    }
    if (effect->Table().hfLimitId)
        Click(effect, effect->Table().hfLimitId, "no HF limit box");
}

// The listener's tab with a knob dragged and one set; the remaining source's tab with knobs turned, a
// send created and routed into slot 0, stopped and played again.
void Session::TurnListenerAndSource()
{
    CEFXListSrcDlg* window = m_dialog.ContextWindow();
    ClickTab(window->Tabs(), 0);
    DragKnob(window->ContextPanel()->Knob(0));
    SetKnob(window->ContextPanel()->Knob(3), 0.75);
    ClickTab(window->Tabs(), 2);
    Source3D_Panel* source = window->SourcePanel(1);
    Check(source != nullptr, "the second source has no panel");
    if (!source)
        return;
    DragKnob(source->Knob(0));
    SetKnob(source->Knob(7), 0.3);
    Click(source, res::IDC_SEND_CREATE_0, "no Create of send 0");
    Click(source, Source3D_Panel::RouteId(0, 1), "no route of send 0 into slot 0");
    Click(source, res::IDC_SOURCE_STOP, "no Stop");
    Click(source, res::IDC_SOURCE_PLAY, "no Play");
}

// "Save Slot 0 State", slot 0 moved away from it, the new preset selected and applied back to slot 0.
void Session::CaptureAndApplyPreset()
{
    m_dialog.MenuAction(res::ID_SHOW_BROWSER)->trigger();
    CEFXBrowser* browser = m_dialog.Browser();
    Click(browser, res::IDC_SAVE_SLOT_0, "no Save Slot 0 State");
    EffectGuid guid;
    EffectTypeToGuid(kEffectEAXReverb, guid);
    const EffectNode* entry = browser->Document()->FindEffect(guid);
    const PresetNode* preset = entry ? entry->lastChild : nullptr;
    QTreeWidgetItem* item =
        ItemOf(browser->Tree(), [preset](QTreeWidgetItem* it) { return preset && CEFXBrowser::NodeOf(it) == preset; });
    Check(item != nullptr, "the captured preset is not in the tree");
    if (!item)
        return;
    if (FXS_Panel* panel = SlotPanel(0); panel && panel->EffectPanel)
        SetKnob(panel->EffectPanel->Knob(2), 0.9);
    browser->Tree()->setCurrentItem(item);
    Click(browser, res::IDC_LOAD_IN_SLOT_0, "no Load Selected Preset In Slot 0");
}

// The first preset of the standard reverb library, selected and loaded into slot 0.
void Session::ApplyLibraryPreset()
{
    CEFXBrowser* browser = m_dialog.Browser();
    QTreeWidgetItem* item = ItemOf(browser->Tree(), [browser](QTreeWidgetItem* it) {
        return CEFXBrowser::IsLibraryItem(it) && browser->LibraryReverbOf(it) != nullptr;
    });
    Check(item != nullptr, "the standard reverb library has no preset in the tree");
    if (!item)
        return;
    browser->Tree()->setCurrentItem(item);
    Click(browser, res::IDC_LOAD_IN_SLOT_0, "no Load Selected Preset In Slot 0");
}

} // namespace

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    QApplication::setApplicationName("Sonoptic");
    QTemporaryDir folder;
    const QString wave = folder.filePath(QStringLiteral("tone.wav"));
    if (!folder.isValid() || !tool_support::WriteQuietTone(wave)) {
        std::fprintf(stderr, "memcheck_session: cannot write the WAV file\n");
        return 1;
    }
    std::unique_ptr<Session> session;
    ModalAnswers answers(wave, [&session](CSonopticDlg& dialog) {
        if (session)
            return;
        session = std::make_unique<Session>(dialog);
        session->Start();
    });
    // The program as main() runs it, without its options: the device dialog, then the main window.
    {
        CSonopticApp sonoptic(JoinArguments(1, argv));
        sonoptic.InitInstance();
    }
    Check(session && session->Finished(), "the session did not reach its end");
    std::fprintf(stderr, "memcheck_session: %s, %d message box(es) answered\n",
                 g_failures ? "FAILED" : "every step ran", answers.MessageBoxes());
    return g_failures ? 1 : 0;
}
