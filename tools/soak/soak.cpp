// A long session through the classes the windows use, on the default OpenAL device (run it on OpenAL
// Soft's null output): four slots with their panels; effect loads through each slot panel's "Load",
// cycling through all thirteen effect types; knob turns, combo choices and check box clicks over every
// property of the loaded effect, each through the value it is bound to and so through the bridge, the
// engine and the write-back; sources added from a WAV file in the context/source window, given a send
// routed into a slot, turned and deleted again; presets captured from a slot into the preset browser's
// document, applied back to the slot and deleted. Nothing is shown: the widgets live unshown on Qt's
// offscreen platform.
//
// A warm-up round fills what first use fills (caches, OpenAL's first source and filter blocks, the
// standard reverb library's tree); then ten rounds of the same work. Every round runs the same script
// and ends where the warm-up ended: the same effects in the slots, no sources, nothing added to the
// document. The resident memory is read after the warm-up and at the end; the program fails if it grew
// by 1 MB or more, or if the session did not do its work.
//
//   soak [scale]     scale 1 (the default): 100,000 turns, 1,000 loads, 500 sources, 1,000 presets
//                    after the warm-up; 0.1 does a tenth of each.

#include "controls/CPot.h"
#include "controls/CXTabCtrl.h"
#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "panels/EffectPanelTables.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/FXS_Panel.h"
#include "panels/Source3D_Panel.h"
#include "presets/CEFXBrowser.h"
#include "presets/CEFXPresetTree.h"
#include "presets/PresetLookups.h"
#include "resources/ResourceIds.h"
#include "shell/CEFXListSrcDlg.h"
#include "tools/LiveSlot.h"
#include "values/CObservableNumber.h"
#include "values/LogConsole.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QThread>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr int kSlots = 4;
constexpr int kRounds = 10;
// The whole session at scale 1, after the warm-up.
constexpr long kTurns = 100000;
constexpr long kLoads = 1000;
constexpr long kSources = 500;
constexpr long kPresets = 1000;
// Sources live in batches of this many before they are deleted again.
constexpr int kSourceBatch = 8;
// The growth that fails the run, in KB.
constexpr long kGrowthLimitKB = 1024;
// OpenAL Soft frees an effect state that a slot no longer uses only once its mixer thread has taken
// up the slot's next update, a few milliseconds later; a reverb's state is close to a megabyte. The end
// of a round waits this long, as a user pauses, so that every reading finds the mixer caught up.
constexpr unsigned long kMixerPauseMs = 200;

// The console keeps a count and nothing else: the main window's list keeps every line by design, and
// that growth is not what this run looks for.
struct CountingConsole : LogConsole {
    long lines = 0;
    void AddString(const char*) override { ++lines; }
    int GetCount() const override { return static_cast<int>(lines % 1000000); }
    void SetTopIndex(int) override {}
};

struct Memory {
    long residentKB;
    long heapKB;
};

// VmRSS of this process in KB, after giving the allocator's free pages back so that the figure is what
// is in use rather than what malloc happens to keep; -1 if it cannot be read. Beside it, the bytes in use
// in malloc's main arena, which shows a steady growth long before the page count does.
Memory ReadMemory()
{
    malloc_trim(0);
    Memory memory{-1, static_cast<long>(mallinfo2().uordblks / 1024)};
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmRSS:", 0) == 0)
            memory.residentKB = std::strtol(line.c_str() + 6, nullptr, 10);
    }
    return memory;
}

// What runs between two user actions: posted events, then the deferred deletes of the widgets that went.
void Settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A spread of fractions of a range over successive turns, ends included.
double Fraction(long turn)
{
    return static_cast<double>((turn * 37) % 101) / 100.0;
}

// Turns a knob as a drag of its fader to that fraction of its value's range does.
void TurnKnob(CPot& knob, double fraction)
{
    if (CObservableNumber* value = knob.AccessibleSubject())
        knob.AccessibleSetValue(value->GetMinimum() + fraction * (value->GetMaximum() - value->GetMinimum()));
}

// The controls of an effect panel, knobs first, then combo boxes, then the check box.
long ControlCount(const EffectPanelTable& table)
{
    return static_cast<long>(table.knobs.size() + table.combos.size()) + (table.hfLimitId ? 1 : 0);
}

struct Counts {
    long turns = 0;
    long loads = 0;
    long refusedLoads = 0;
    long sources = 0;
    long presets = 0;
    long presetsMissed = 0;
};

struct RoundSize {
    long turns;
    long loads;
    long sources;
    long presets;
};

class Session {
public:
    Session(UI_EFX_Bridge& bridge, QString wave)
        : m_bridge(bridge), m_wave(std::move(wave))
    {
    }

    bool Start();
    void RunRound(const RoundSize& size);
    const Counts& Done() const { return m_done; }
    bool EndedClean() const;
    const std::string& RefusedTypes() const { return m_refused; }
    // Of the effect types the library takes, the controls turned at least once, and all their controls.
    std::pair<long, long> Coverage() const;

private:
    void MakeSlotPanel(int slot);
    void Load(int slot, int type);
    void TurnControl(FXS_EffectPanel& panel, long turn);
    void TurnEffect(int slot, long turns);
    void AddSource();
    void DeleteAllSources();
    void CaptureAndApply(int slot);
    QTreeWidgetItem* ItemOf(const PresetNode* node) const;

    UI_EFX_Bridge& m_bridge;
    QString m_wave;
    QWidget m_frame;
    std::array<FXS_Panel*, kSlots> m_panels{};
    std::unique_ptr<CEFXListSrcDlg> m_sourceWindow;
    std::unique_ptr<CEFXBrowser> m_browser;
    std::array<bool, kEffectTypes> m_taken{};
    std::string m_refused;
    std::set<std::pair<int, long>> m_turned; // (effect type, control)
    long m_typeCursor = 0;
    long m_turnCursor = 0;
    Counts m_done;
};

bool Session::Start()
{
    for (int slot = 0; slot < kSlots; ++slot) {
        if (m_bridge.CreateSlot() != static_cast<std::uint32_t>(slot)) {
            std::fprintf(stderr, "soak: slot %d could not be made\n", slot);
            return false;
        }
        MakeSlotPanel(slot);
    }
    // Which types this OpenAL takes (OpenAL Soft 1.19 refuses the Vocal Morpher).
    for (int type = 1; type < kEffectTypes; ++type) {
        m_taken[type] = m_bridge.LoadSlotEffect(0, type) != 0;
        if (!m_taken[type])
            m_refused += std::string(m_refused.empty() ? "" : ", ") + EffectListText(type);
    }
    m_bridge.LoadSlotEffect(0, kEffectNone);
    m_panels[0]->Reload();

    m_sourceWindow = std::make_unique<CEFXListSrcDlg>(nullptr);
    m_sourceWindow->InitDialog();
    m_browser = std::make_unique<CEFXBrowser>(nullptr);
    m_browser->InitDialog();
    Settle();
    return true;
}

// As the main window makes a slot's panel: with callbacks off, so that its first values stay out of the engine.
void Session::MakeSlotPanel(int slot)
{
    m_bridge.SetCallbacksEnabled(0);
    auto* panel = new FXS_Panel(&m_frame);
    panel->SetSlot(slot);
    panel->InitDialog();
    m_panels[slot] = panel;
    m_bridge.SetSlotPanel(slot, panel);
    m_bridge.SetCallbacksEnabled(1);
}

// The effect chosen in the slot panel's list and "Load" pressed. A type the library refuses goes the way
// the button takes it, minus the message box that would wait for a user: the load, then the reload.
void Session::Load(int slot, int type)
{
    FXS_Panel& panel = *m_panels[slot];
    panel.EffectList->setCurrentIndex(type);
    if (m_taken[type]) {
        FindControlAs<QPushButton>(&panel, res::IDC_LOAD_EFFECT)->click();
    } else {
        m_bridge.LoadSlotEffect(slot, type);
        panel.Reload();
        ++m_done.refusedLoads;
    }
    ++m_done.loads;
}

// One user action on the effect panel, its controls taken in turn so that every property of the effect
// gets its share: a knob to a fraction of its range, a combo box entry, or a click of the check box.
void Session::TurnControl(FXS_EffectPanel& panel, long turn)
{
    const EffectPanelTable& table = panel.Table();
    const long knobs = panel.KnobCount();
    const long combos = static_cast<long>(table.combos.size());
    const long controls = ControlCount(table);
    const long which = turn % controls;
    if (which < knobs) {
        TurnKnob(panel.Knob(static_cast<int>(which)), Fraction(turn / controls + which));
    } else if (which < knobs + combos) {
        auto* combo = FindControlAs<QComboBox>(&panel, table.combos[static_cast<std::size_t>(which - knobs)].id);
        const int choice = static_cast<int>((turn / controls) % combo->count());
        combo->setCurrentIndex(choice);
        Q_EMIT combo->activated(choice);
    } else {
        FindControlAs<QCheckBox>(&panel, table.hfLimitId)->click();
    }
    m_turned.insert({table.type, which});
    ++m_done.turns;
}

void Session::TurnEffect(int slot, long turns)
{
    FXS_EffectPanel* panel = m_panels[slot]->EffectPanel;
    for (long i = 0; i < turns && panel; ++i)
        TurnControl(*panel, m_turnCursor++);
}

// "Add source..." with the file chosen; the new source gets send 0, routed into a slot, and a few turns.
// Its tab is captioned with the file's name, as the window does it: Qt's tab bar keeps a size for every
// caption it has measured, so a new caption for each source would grow the bar and not our code.
void Session::AddSource()
{
    if (m_sourceWindow->SourceCount() >= kSourceBatch)
        DeleteAllSources();
    const int index = m_sourceWindow->SourceCount();
    m_sourceWindow->AddSourceFile(m_wave, QFileInfo(m_wave).fileName());
    Source3D_Panel* panel = m_sourceWindow->SourcePanel(index);
    if (!panel)
        return;
    ++m_done.sources;
    FindControlAs<QPushButton>(panel, res::IDC_SEND_CREATE_0)->click();
    FindControlAs<QAbstractButton>(panel, Source3D_Panel::RouteId(0, 1 + index % kSlots))->click();
    for (int r = 0; r < Source3D_Panel::kKnobs; r += 5)
        TurnKnob(panel->Knob(r), Fraction(m_done.sources + r));
}

// The first source's tab, deleted until none is left: each delete renumbers the ones after it.
void Session::DeleteAllSources()
{
    while (m_sourceWindow->SourceCount() > 0) {
        m_sourceWindow->Tabs()->SelectTabForced(1);
        m_sourceWindow->DeleteSource();
        Settle();
    }
}

QTreeWidgetItem* Session::ItemOf(const PresetNode* node) const
{
    for (QTreeWidgetItemIterator it(m_browser->Tree()); *it; ++it) {
        if (CEFXBrowser::NodeOf(*it) == node)
            return *it;
    }
    return nullptr;
}

// "Save Slot n State" with nothing selected, a few turns that move the slot away from it, the new preset
// selected, "Load Selected Preset In Slot n", then "Delete selected": the document is as it was.
void Session::CaptureAndApply(int slot)
{
    int type = 0;
    if (!m_bridge.GetSlotEffect(slot, &type) || type == kEffectNone)
        return;
    m_browser->Tree()->clearSelection();
    FindControlAs<QPushButton>(m_browser.get(), res::IDC_SAVE_SLOT_0 + slot)->click();
    EffectGuid guid;
    EffectTypeToGuid(type, guid);
    const EffectNode* entry = m_browser->Document()->FindEffect(guid);
    QTreeWidgetItem* item = entry ? ItemOf(entry->lastChild) : nullptr;
    if (!item) {
        ++m_done.presetsMissed;
        return;
    }
    TurnEffect(slot, 3);
    m_browser->Tree()->clearSelection();
    item->setSelected(true);
    FindControlAs<QPushButton>(m_browser.get(), res::IDC_LOAD_IN_SLOT_0 + slot)->click();
    FindControlAs<QPushButton>(m_browser.get(), res::IDC_DELETE_SELECTED)->click();
    ++m_done.presets;
}

// The loads spread over the round, the turns after each load on the slot just loaded, the presets and
// the sources spread over the loads; the round ends with every source deleted and the mixer caught up.
void Session::RunRound(const RoundSize& size)
{
    // Every round loads the same types into the same slots, so that every round ends with the same panels.
    m_typeCursor = 0;
    long turnsDone = 0;
    long presetsDone = 0;
    long sourcesDone = 0;
    for (long i = 0; i < size.loads; ++i) {
        const int slot = static_cast<int>(i % kSlots);
        Load(slot, static_cast<int>(1 + m_typeCursor++ % (kEffectTypes - 1)));
        const long turnsDue = size.turns * (i + 1) / size.loads;
        TurnEffect(slot, turnsDue - turnsDone);
        turnsDone = turnsDue;
        for (; presetsDone < size.presets * (i + 1) / size.loads; ++presetsDone)
            CaptureAndApply(slot);
        for (; sourcesDone < size.sources * (i + 1) / size.loads; ++sourcesDone)
            AddSource();
        Settle();
    }
    DeleteAllSources();
    QThread::msleep(kMixerPauseMs);
    Settle();
}

bool Session::EndedClean() const
{
    const PresetNode* root = m_browser->Document()->Root();
    for (const PresetNode* entry = root->firstChild; entry; entry = entry->nextSibling) {
        if (entry->firstChild)
            return false;
    }
    return m_sourceWindow->SourceCount() == 0 && m_bridge.GetSourceCount() == 0;
}

std::pair<long, long> Session::Coverage() const
{
    long turned = 0;
    long all = 0;
    for (int type = 1; type < kEffectTypes; ++type) {
        if (!m_taken[type])
            continue;
        const long controls = ControlCount(*EffectPanelTableFor(type));
        all += controls;
        for (long c = 0; c < controls; ++c)
            turned += m_turned.count({type, c}) ? 1 : 0;
    }
    return {turned, all};
}

long Scaled(long total, double scale)
{
    return std::max(1L, std::lround(static_cast<double>(total) * scale / kRounds));
}

// Prints the figures and says whether the run passed.
bool Report(const Session& session, const Counts& warmUp, const RoundSize& size, const CountingConsole& console,
            const Memory& start, const Memory& end)
{
    const Counts& all = session.Done();
    const auto [turned, controls] = session.Coverage();
    std::printf("after the warm-up: %ld knob turns (%ld of the %ld controls of the effects this OpenAL takes "
                "turned), %ld effect loads (%ld refused by this OpenAL: %s), %ld sources created and deleted, "
                "%ld presets captured and applied; %ld console lines\n",
                all.turns - warmUp.turns, turned, controls, all.loads - warmUp.loads,
                all.refusedLoads - warmUp.refusedLoads, session.RefusedTypes().empty() ? "none" : session.RefusedTypes().c_str(),
                all.sources - warmUp.sources, all.presets - warmUp.presets, console.lines);
    const long growth = end.residentKB - start.residentKB;
    std::printf("RSS after warm-up: %ld KB\nRSS at end:        %ld KB\ngrowth:            %ld KB\n", start.residentKB,
                end.residentKB, growth);
    // Each round covers every control once it loads all thirteen types.
    const bool covered = size.loads < kEffectTypes - 1 || turned == controls;
    const bool worked = all.sources - warmUp.sources == kRounds * size.sources &&
                        all.presets - warmUp.presets == kRounds * size.presets && all.presetsMissed == 0 &&
                        all.turns - warmUp.turns >= kRounds * size.turns && console.lines > all.turns && covered &&
                        session.EndedClean();
    if (!worked)
        std::printf("FAIL: the session did not do all its work\n");
    else if (start.residentKB < 0 || end.residentKB < 0)
        std::printf("FAIL: VmRSS could not be read\n");
    else if (growth >= kGrowthLimitKB)
        std::printf("FAIL: memory grew by %ld KB (limit: under %ld KB)\n", growth, kGrowthLimitKB);
    return worked && start.residentKB >= 0 && end.residentKB >= 0 && growth < kGrowthLimitKB;
}

} // namespace

int main(int argc, char** argv)
{
    const double scale = argc > 1 ? std::atof(argv[1]) : 1.0;
    if (!(scale > 0)) {
        std::fprintf(stderr, "usage: soak [scale > 0]\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    InitControlResources();

    QTemporaryDir folder;
    const QString wave = folder.filePath(QStringLiteral("tone.wav"));
    if (!folder.isValid() || !tool_support::WriteQuietTone(wave)) {
        std::fprintf(stderr, "soak: cannot write the WAV file\n");
        return 1;
    }
    UI_EFX_Bridge bridge;
    if (!tool_support::StartEngine(bridge, "soak"))
        return 1;
    CountingConsole console;
    bridge.SetLogList(&console);
    Session session(bridge, wave);
    if (!session.Start())
        return 1;
    const RoundSize size{Scaled(kTurns, scale), Scaled(kLoads, scale), Scaled(kSources, scale),
                         Scaled(kPresets, scale)};
    session.RunRound(size);
    const Counts warmUp = session.Done();
    const Memory start = ReadMemory();
    std::printf("warm-up round: %ld turns, %ld loads, %ld sources, %ld presets; RSS %ld KB, heap in use %ld KB\n",
                warmUp.turns, warmUp.loads, warmUp.sources, warmUp.presets, start.residentKB, start.heapKB);
    for (int round = 1; round <= kRounds; ++round) {
        session.RunRound(size);
        const Memory now = ReadMemory();
        std::printf("  round %2d: RSS %ld KB, heap in use %ld KB\n", round, now.residentKB, now.heapKB);
        std::fflush(stdout);
    }
    const Memory end = ReadMemory();
    const bool passed = Report(session, warmUp, size, console, start, end);
    bridge.SetLogList(nullptr);
    return passed ? 0 : 1;
}
