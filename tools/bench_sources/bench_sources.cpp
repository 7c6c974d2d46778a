// Adds 128 sources to the context/source window, the file given rather than picked, each with its
// panel, its tab and its write-back, shown on screen; then deletes source 0 until one is left, each
// delete renumbering the panels after it. Each command is timed with the events it posted delivered,
// as the event loop does between two clicks. Prints the median time of an add and of a delete.

#include "controls/CXTabCtrl.h"
#include "controls/ControlResources.h"
#include "shell/CEFXListSrcDlg.h"
#include "tools/BenchSupport.h"
#include "tools/LiveSlot.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using bench_support::Clock;
using bench_support::MillisecondsSince;

// What follows a command before the user sees its result: the events it posted (layouts, polish,
// deferred deletes) delivered, then the window painted.
void Settle(QWidget& window)
{
    QCoreApplication::sendPostedEvents();
    window.repaint();
}

} // namespace

int main(int argc, char** argv)
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    InitControlResources();
    UI_EFX_Bridge bridge;
    if (!tool_support::StartEngine(bridge, "bench_sources"))
        return 1;
    if (bridge.GetAutoPlay())
        bridge.ToggleAutoPlay();
    CEFXListSrcDlg window(nullptr);
    window.InitDialog();
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return 1;
    const QString tone = QDir::temp().filePath(QStringLiteral("sonoptic-bench-tone.wav"));
    if (!tool_support::WriteQuietTone(tone))
        return 1;

    std::vector<double> adds;
    for (int i = 0; i < CEFXListSrcDlg::kMaxSources; ++i) {
        const auto start = Clock::now();
        window.AddSourceFile(tone, QStringLiteral("tone %1.wav").arg(i));
        Settle(window);
        adds.push_back(MillisecondsSince(start));
    }
    std::vector<double> deletes;
    while (window.SourceCount() > 1) {
        window.Tabs()->SelectTabForced(1);
        const auto start = Clock::now();
        window.DeleteSource();
        Settle(window);
        deletes.push_back(MillisecondsSince(start));
    }
    std::printf("context/source window, 128 sources added, then source 0 deleted until one is left\n");
    std::printf("  add (panel, tab, write-back, shown):   median %6.2f ms, slowest %6.2f ms (aim: under 30)\n",
                bench_support::Median(adds), *std::max_element(adds.begin(), adds.end()));
    std::printf("  delete (with the later panels renumbered): median %6.2f ms, slowest %6.2f ms (aim: under 30)\n",
                bench_support::Median(deletes), *std::max_element(deletes.begin(), deletes.end()));
    QFile::remove(tone);
    return 0;
}
