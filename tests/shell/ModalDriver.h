#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <QWidget>

#include <deque>
#include <functional>

// Answers the modal windows of a start-up run one after the other: each step gets the next modal
// window that appears (a message box or a dialog) and acts on it as a user would.
class ModalDriver {
public:
    using Step = std::function<void(QWidget* modal)>;

    explicit ModalDriver(std::deque<Step> steps)
        : m_steps(std::move(steps))
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Poll(); });
        m_timer.start(20);
    }

    bool Finished() const { return m_steps.empty(); }
    int Seen() const { return m_seen; }

private:
    void Poll()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == m_last || m_steps.empty())
            return;
        // A user acts on a window once it is on screen.
        if (!modal->windowHandle() || !modal->windowHandle()->isExposed())
            return;
        m_last = modal;
        ++m_seen;
        Step step = std::move(m_steps.front());
        m_steps.pop_front();
        // The step runs outside this timer's handler, so that a window the step opens in turn can be
        // answered: a timer does not fire again while its own handler runs.
        QPointer<QWidget> target(modal);
        QTimer::singleShot(0, [step = std::move(step), target] {
            if (target)
                step(target);
        });
    }

    std::deque<Step> m_steps;
    QTimer m_timer;
    // Guarded: a later dialog may be built at the address of one that has gone.
    QPointer<QWidget> m_last;
    int m_seen = 0;
};
