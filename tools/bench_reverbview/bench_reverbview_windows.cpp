// How long the response window and the panner take on screen, over a live EAX reverb, with Mesa's
// OpenGL where there is no graphics card:
//   (a) one graph frame at the window's size, the model and the drawing up to glFinish;
//   (b) a mouse move over the window, up to the frame presented;
//   (c) one step of a panner drag: the move, the two vector sets in the engine, the frame drawn and
//       shown on the view.
// Each is the median of several rounds. Run under a display, with OpenAL Soft's null output:
//   ALSOFT_DRIVERS=null xvfb-run -a build/tools/bench_reverbview/bench_reverbview_windows

#include "controls/ControlId.h"
#include "controls/ControlResources.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/FXPanner.h"
#include "reverbview/ResponseRender.h"
#include "reverbview/ResponseView.h"
#include "tools/BenchSupport.h"
#include "values/UI_EFX_Bridge.h"

#include <GL/gl.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTest>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using bench_support::Clock;
using bench_support::MillisecondsSince;
constexpr int kRounds = 31;

void Move(QWidget* widget, QPoint point, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, QPointF(point), QPointF(widget->mapToGlobal(point)), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    InitControlResources();
    EFX_Factory::SelectDevice("");
    UI_EFX_Bridge bridge;
    if (!bridge.InitializeEngine(3, 0, 4) || bridge.CreateSlot() != 0 || !bridge.LoadSlotEffect(0, kEffectEAXReverb)) {
        std::fprintf(stderr, "bench_reverbview_windows: no EFX device\n");
        return 1;
    }
    QWidget parent;
    parent.resize(400, 260);
    auto* panner = new FXPanner(0, &parent);
    parent.show();
    auto* window = new C3DReverbResponseDlg(&parent);
    bridge.SetResponseWindow(window);
    if (!QTest::qWaitForWindowExposed(window) || !QTest::qWaitForWindowExposed(&parent)) {
        std::fprintf(stderr, "bench_reverbview_windows: the windows were never shown\n");
        return 1;
    }
    bridge.RefreshEAXReverb(0);
    ResponseView* view = window->GLView;

    // (a) The model and the drawing, in the view's own context, finished by the GL.
    std::vector<double> frames;
    ReverbResponseParams params = window->Params;
    view->makeCurrent();
    const qreal ratio = view->devicePixelRatioF();
    for (int round = 0; round < kRounds; ++round) {
        params.DecayTime = 1.0f + 0.3f * static_cast<float>(round);
        const auto start = Clock::now();
        RenderResponse(0, 0, int(view->width() * ratio), int(view->height() * ratio), params);
        glFinish();
        frames.push_back(MillisecondsSince(start));
    }
    view->doneCurrent();

    // (b) A plain move over the window to the frame Qt has presented.
    std::vector<double> moves;
    for (int round = 0; round < kRounds; ++round) {
        QEventLoop loop;
        QObject::connect(view, &QOpenGLWidget::frameSwapped, &loop, &QEventLoop::quit);
        const auto start = Clock::now();
        Move(window, QPoint(100 + round, 200), Qt::NoButton);
        loop.exec();
        moves.push_back(MillisecondsSince(start));
    }

    // (c) A left drag round the panner: each step sends both vectors and shows a new frame.
    std::vector<double> steps;
    const QPoint centre = FindControl(panner, res::IDC_PANNER_VIEW)->mapTo(panner, QPoint(panner->CenterX, panner->CenterY));
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(centre + QPoint(60, 0)), QPointF(), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(panner, &press);
    for (int round = 0; round < kRounds * 10; ++round) {
        const double a = round * 0.05;
        const QPoint point = centre + QPoint(int(60 * std::sin(a)), int(-60 * std::cos(a)));
        const auto start = Clock::now();
        Move(panner, point, Qt::LeftButton);
        steps.push_back(MillisecondsSince(start));
    }

    std::printf("response window %dx%d, panner view %dx%d, median of %d rounds\n", view->width(), view->height(),
                2 * panner->CenterX, 2 * panner->CenterY, kRounds);
    std::printf("  (a) graph frame, model and drawing to glFinish: %8.3f ms (aim: under 2)\n", bench_support::Median(frames));
    std::printf("  (b) mouse move to the frame presented:          %8.3f ms (aim: under 10)\n", bench_support::Median(moves));
    std::printf("  (c) panner drag step, two sets and the frame:   %8.3f ms (aim: under 0.5)\n", bench_support::Median(steps));
    delete panner; // takes the response window with it
    return 0;
}
