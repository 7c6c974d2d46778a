// Times the position window with 128 named sources and the listener: (a) one frame of the view,
// painted and flushed to the window system; (b) one step of a source drag: the mouse move, the
// bridge's MoveSource, its write-back and the one frame it asks for. Prints medians per frame and per
// step over several rounds. With --shots DIR, saves instead the window with five named sources round
// the listener, in the top plane ("position-top.png") and the side plane ("position-side.png").

#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_3DSource.h"
#include "positionview/CEFXSrcPosDlg.h"
#include "resources/ResourceIds.h"
#include "shell/CEFXListSrcDlg.h"
#include "tools/BenchSupport.h"
#include "tools/LiveSlot.h"
#include "values/UI_EFX_Bridge.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMouseEvent>
#include <QTest>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

constexpr int kRounds = 15;
constexpr int kFramesARound = 40;
constexpr int kStepsARound = 40;

using bench_support::Clock;
using bench_support::MillisecondsSince;

// Sources on a ring of the given radius round the listener, at three heights, each named.
void AddSources(CEFXListSrcDlg& sources, const QString& tone, int count, float radius)
{
    for (int i = 0; i < count; ++i) {
        const QString name = QStringLiteral("tone %1.wav").arg(i);
        sources.AddSourceFile(tone, name);
        const double angle = 2.0 * 3.14159265358979 * i / count;
        UI_EFX_Bridge::GetInstance()->MoveSource(i, static_cast<float>(radius * std::cos(angle)), 0.5f * static_cast<float>(i % 3),
                                                 static_cast<float>(radius * std::sin(angle)));
    }
}

int SaveShots(CEFXSrcPosDlg& window, CEFXListSrcDlg& sources, const QString& tone, const QString& folder)
{
    const struct {
        const char* name;
        float position[3];
    } scene[] = {
        {"rain.wav", {6, 1.5f, -1}},       {"thunder.wav", {2, -3, 6}}, {"engine hum.wav", {-6, -1, 7}},
        {"footsteps.wav", {-5, -6, -4}}, {"voice.wav", {1, 4, -6}},
    };
    for (const auto& source : scene) {
        sources.AddSourceFile(tone, QString::fromLatin1(source.name));
        const int index = sources.SourceCount() - 1;
        UI_EFX_Bridge::GetInstance()->MoveSource(index, source.position[0], source.position[1], source.position[2]);
    }
    UI_EFX_Bridge::GetInstance()->MoveListener(0.5f, 0, 1);
    int saved = 0;
    const struct {
        int radio;
        const char* file;
    } shots[] = {{res::IDC_PLANE_TOP, "position-top.png"}, {res::IDC_PLANE_SIDE, "position-side.png"}};
    for (const auto& shot : shots) {
        FindControlAs<QAbstractButton>(&window, shot.radio)->click();
        QTest::qWait(50);
        saved += window.grab().save(QDir(folder).filePath(QString::fromLatin1(shot.file)));
    }
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
    if (!tool_support::StartEngine(bridge, "bench_position"))
        return 1;
    if (bridge.GetAutoPlay())
        bridge.ToggleAutoPlay();
    CEFXListSrcDlg sources(nullptr);
    sources.InitDialog();
    CEFXSrcPosDlg window;
    window.InitDialog();
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return 1;
    const QString tone = QDir::temp().filePath(QStringLiteral("sonoptic-bench-position.wav"));
    if (!tool_support::WriteQuietTone(tone))
        return 1;
    if (argc > 2 && std::strcmp(argv[1], "--shots") == 0) {
        const int result = SaveShots(window, sources, tone, QString::fromLocal8Bit(argv[2]));
        QFile::remove(tone);
        return result;
    }

    AddSources(sources, tone, CEFXListSrcDlg::kMaxSources, 8.0f);
    QFile::remove(tone);
    bench_support::PaintCounter counter;
    window.View->installEventFilter(&counter);
    QCoreApplication::sendPostedEvents();

    // (a) Frames, each painted and flushed at once.
    std::vector<double> frames;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        for (int frame = 0; frame < kFramesARound; ++frame)
            window.View->repaint();
        frames.push_back(MillisecondsSince(start) / kFramesARound);
    }

    // Beside it, the same paint into an image of the view's size: what sending the picture to the
    // display adds is the difference.
    QImage image(window.View->size(), QImage::Format_RGB32);
    std::vector<double> paints;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        for (int frame = 0; frame < kFramesARound; ++frame)
            window.View->render(&image);
        paints.push_back(MillisecondsSince(start) / kFramesARound);
    }

    // (b) Drag steps of source 0, back and forth, each followed by the frame its write-back asked for.
    const QPoint view = window.View->geometry().topLeft();
    float position[3] = {};
    bridge.GetSource(0)->GetPosition(position);
    const ViewPixel at = window.WorldToScreen(position, window.ViewRect);
    QPoint pointer = view + QPoint(at.x, at.y);
    bench_support::SendMouse(&window, QEvent::MouseButtonPress, pointer);
    const int paintsBefore = counter.paints;
    std::vector<double> steps;
    for (int round = 0; round < kRounds; ++round) {
        const int direction = round % 2 ? -1 : 1;
        const auto start = Clock::now();
        for (int step = 0; step < kStepsARound; ++step) {
            pointer += QPoint(direction, direction);
            bench_support::SendMouse(&window, QEvent::MouseMove, pointer);
            QCoreApplication::sendPostedEvents();
        }
        steps.push_back(MillisecondsSince(start) / kStepsARound);
    }
    bench_support::SendMouse(&window, QEvent::MouseButtonRelease, pointer);
    const int dragPaints = counter.paints - paintsBefore;

    std::printf("position window, 128 named sources and the listener, medians of %d rounds\n", kRounds);
    std::printf("  (a) one frame, painted and flushed:                     %6.3f ms (aim: under 2)\n", bench_support::Median(frames));
    std::printf("      the same paint into an image, not shown:             %6.3f ms\n", bench_support::Median(paints));
    std::printf("  (b) one drag step (move, MoveSource, write-back, frame): %6.3f ms (aim: under 3)\n", bench_support::Median(steps));
    std::printf("      %d frames for %d steps\n", dragPaints, kRounds * kStepsARound);
    return 0;
}
