// Times the preset browser on a document of 10,000 presets: (a) loading the file into the browser,
// which opens and reads it, fills the tree control, opens every item and paints; (b) capturing an
// Echo slot into it, with the refresh of the whole control and its paint. Prints medians over
// several rounds. With --shots DIR, saves instead "browser.png": a small document of groups and
// presets under three effects, saved under a name, all open.

#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "presets/CEFXBrowser.h"
#include "presets/CEFXPresetTree.h"
#include "tools/BenchSupport.h"
#include "tools/LargePresetDocument.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTreeWidget>

#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

namespace {

constexpr int kPresets = 10000;
constexpr int kRounds = 9;

using bench_support::Clock;
using bench_support::MillisecondsSince;

bool StartEngine(UI_EFX_Bridge& bridge)
{
    EFX_Factory::SelectDevice("");
    if (!bridge.InitializeEngine(3, 0, 4)) {
        std::fprintf(stderr, "bench_browser: no EFX device\n");
        return false;
    }
    return true;
}

bool WriteDocument(CEFXPresetTree& document, const QString& path)
{
    std::FILE* file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (!file)
        return false;
    document.WriteFile(file);
    return std::fclose(file) == 0;
}

int CountItems(QTreeWidgetItem* item)
{
    int count = 1;
    for (int i = 0; i < item->childCount(); ++i)
        count += CountItems(item->child(i));
    return count;
}

QTreeWidgetItem* FindItem(QTreeWidget* tree, const char* label, int n = 0)
{
    const auto found = tree->findItems(QString::fromLatin1(label), Qt::MatchExactly | Qt::MatchRecursive);
    return n < found.size() ? found[n] : nullptr;
}

// Three slots (Echo, Chorus, EAX reverb) captured into groups and beside each other, some renamed.
int SaveShot(UI_EFX_Bridge& bridge, const QString& folder)
{
    const int types[] = {kEffectEcho, kEffectChorus, kEffectEAXReverb};
    for (int slot = 0; slot < 3; ++slot) {
        bridge.CreateSlot();
        bridge.LoadSlotEffect(slot, types[slot]);
    }
    CEFXBrowser browser;
    browser.InitDialog();
    browser.show();
    if (!QTest::qWaitForWindowExposed(&browser))
        return 1;
    QTreeWidget* tree = browser.Tree();
    auto select = [&](const char* label, int n = 0) { tree->setCurrentItem(FindItem(tree, label, n)); };
    auto rename = [&](const char* label, const char16_t* name) {
        if (QTreeWidgetItem* item = FindItem(tree, label))
            CEFXPresetTree::SetNodeName(CEFXBrowser::NodeOf(item), name);
        browser.RefreshTree();
    };
    select("Echo");
    browser.OnCreateGroup();
    rename("my_Preset_Group (edit me)", u"Slapback");
    for (int i = 0; i < 2; ++i) {
        select("Slapback");
        browser.SaveSlotState(0);
    }
    rename("my_Echo_Preset (edit me)", u"Short room slap");
    rename("my_Echo_Preset (edit me)", u"Canyon");
    browser.SaveSlotState(0);
    rename("my_Echo_Preset (edit me)", u"Dub delay");
    for (int i = 0; i < 2; ++i)
        browser.SaveSlotState(1);
    rename("my_Chorus_Preset (edit me)", u"Gentle doubling");
    rename("my_Chorus_Preset (edit me)", u"Wide ensemble");
    select("EAX Reverb");
    browser.OnCreateGroup();
    rename("my_Preset_Group (edit me)", u"Rooms");
    select("Rooms");
    browser.OnCreateGroup();
    rename("my_Preset_Group (edit me)", u"Small");
    select("Small");
    browser.SaveSlotState(2);
    rename("my_EAX_Reverb_Preset (edit me)", u"Vocal booth");
    select("Rooms");
    browser.SaveSlotState(2);
    rename("my_EAX_Reverb_Preset (edit me)", u"Concert hall");

    const QString path = QDir(folder).filePath(QStringLiteral("my effects.efx"));
    browser.SaveToPath(path);
    browser.LoadFromFile(path);
    QFile::remove(path);
    select("Canyon");
    QTest::qWait(50);
    int saved = browser.grab().save(QDir(folder).filePath(QStringLiteral("browser.png")));

    // The library opened on its first group, "Concert Hall" loaded into the EAX reverb of slot 2.
    QTreeWidgetItem* library = tree->topLevelItem(1);
    library->setExpanded(true);
    library->child(0)->setExpanded(true);
    library->child(0)->child(0)->setExpanded(true);
    for (int i = 0; i < tree->topLevelItem(0)->childCount(); ++i)
        tree->topLevelItem(0)->child(i)->setExpanded(false);
    select("Concert Hall");
    browser.LoadPresetInSlot(2);
    float decay = 0;
    bridge.GetFactory()->GetEffectSlot(2)->GetEAXReverbDecayTime(&decay);
    std::printf("slot 2 decay time after loading Concert Hall: %.2f s\n", decay);
    tree->scrollToItem(tree->currentItem());
    QTest::qWait(50);
    saved += browser.grab().save(QDir(folder).filePath(QStringLiteral("browser-library.png")));
    std::printf("%d pictures saved\n", saved);
    return saved == 2 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    InitControlResources();
    UI_EFX_Bridge bridge;
    if (!StartEngine(bridge))
        return 1;
    if (argc > 2 && std::strcmp(argv[1], "--shots") == 0)
        return SaveShot(bridge, QString::fromLocal8Bit(argv[2]));

    bridge.CreateSlot();
    bridge.LoadSlotEffect(0, kEffectEcho);
    CEFXPresetTree document;
    tool_support::BuildLargeDocument(document, kPresets);
    const QString path = QDir::temp().filePath(QStringLiteral("sonoptic-bench-browser.efx"));
    if (!WriteDocument(document, path)) {
        std::fprintf(stderr, "bench_browser: cannot write %s\n", qPrintable(path));
        return 1;
    }

    CEFXBrowser browser;
    browser.InitDialog();
    browser.show();
    if (!QTest::qWaitForWindowExposed(&browser))
        return 1;
    QTreeWidget* tree = browser.Tree();
    bench_support::PaintCounter counter;
    tree->viewport()->installEventFilter(&counter);

    // Each round is timed until the control has painted what it now holds.
    auto timeRounds = [&](const std::function<void()>& action) {
        std::vector<double> times;
        for (int round = 0; round < kRounds; ++round) {
            const auto start = Clock::now();
            action();
            tree->viewport()->repaint();
            times.push_back(MillisecondsSince(start));
        }
        return bench_support::Median(times);
    };
    const int paintsBefore = counter.paints;
    const double load = timeRounds([&] { browser.LoadFromFile(path); });
    const int items = CountItems(tree->topLevelItem(0));
    const double capture = timeRounds([&] { browser.SaveSlotState(0); });
    const int itemsAfter = CountItems(tree->topLevelItem(0));
    QFile::remove(path);

    if (counter.paints - paintsBefore < 2 * kRounds || itemsAfter != items + kRounds) {
        std::fprintf(stderr, "bench_browser: %d paints, %d items then %d\n", counter.paints - paintsBefore, items,
                     itemsAfter);
        return 1;
    }
    std::printf("document of %d presets, %d items in the tree\n", kPresets, items);
    std::printf("load into the browser: %.1f ms   (aim < 200)\n", load);
    std::printf("capture with refresh:  %.1f ms   (aim < 50)\n", capture);
    std::printf("medians of %d rounds\n", kRounds);
    return 0;
}
