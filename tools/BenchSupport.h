#pragma once

// What the benchmarks share: their clock, the median of their rounds, a counter that proves the paints were in the
// figure, and a mouse event sent straight to a widget. Header-only.

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QObject>
#include <QPoint>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <vector>

namespace bench_support {

using Clock = std::chrono::steady_clock;

inline double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Counts the paints of the widgets it watches.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

// A press, move or release of the left button at point, in widget's coordinates; a move holds the button.
inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint point)
{
    QMouseEvent event(type, QPointF(point), QPointF(widget->mapToGlobal(point)),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace bench_support
