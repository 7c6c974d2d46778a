#pragma once

#include "engine/ImpulseResponse.h"

#include <QWidget>

#include <atomic>
#include <optional>
#include <thread>

class QLabel;

// The measured side of the response window: a unit impulse rendered through a copy of the slot's
// reverb on a loopback device, its energy decay curve in dB against time, and the decay time read
// from it (T30) beside the one set on the knob. Each measurement runs on a thread of its own, so a
// knob never waits for it; a newer request replaces one not yet started, and the view shows the
// latest finished one.
class MeasuredDecayView : public QWidget {
public:
    explicit MeasuredDecayView(QWidget* parent);
    ~MeasuredDecayView() override;

    // Starts measuring `slot` (or queues it behind the measurement under way).
    void Measure(const SlotSnapshot& slot, float decaySet);

    // What the two lines under the curve say; also their accessible values.
    QLabel* MeasuredLabel = nullptr;
    QLabel* SetLabel = nullptr;
    const MeasuredDecay& Last() const { return m_last; }
    bool Busy() const { return m_worker.joinable(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Start(const SlotSnapshot& slot, float decaySet);
    void Finished(MeasuredDecay measured, float decaySet);

    std::thread m_worker;
    std::atomic<bool> m_cancel{false};
    std::optional<std::pair<SlotSnapshot, float>> m_pending;
    MeasuredDecay m_last;
    float m_lastSet = 0;
};
