#include "reverbview/MeasuredDecayView.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int kFrequency = 44100;
constexpr double kFloorDb = -80.0;
// Long enough for the set decay to fall 60 dB and a little more, and no longer than a knob's range.
double RenderSeconds(float decaySet)
{
    return std::clamp(1.3 * decaySet + 0.4, 0.5, 26.0);
}

} // namespace

MeasuredDecayView::MeasuredDecayView(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Measured energy decay"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    MeasuredLabel = new QLabel(QStringLiteral("T30 measured: -"), parent);
    MeasuredLabel->setAccessibleName(QStringLiteral("T30 measured"));
    SetLabel = new QLabel(QStringLiteral("Decay time set: -"), parent);
    SetLabel->setAccessibleName(QStringLiteral("Decay time set"));
}

MeasuredDecayView::~MeasuredDecayView()
{
    m_cancel = true;
    if (m_worker.joinable())
        m_worker.join();
}

void MeasuredDecayView::Measure(const SlotSnapshot& slot, float decaySet)
{
    SetLabel->setText(QStringLiteral("Decay time set: %1 s").arg(decaySet, 0, 'f', 2));
    if (m_worker.joinable()) {
        m_pending.emplace(slot, decaySet);
        return;
    }
    Start(slot, decaySet);
}

void MeasuredDecayView::Start(const SlotSnapshot& slot, float decaySet)
{
    MeasuredLabel->setText(QStringLiteral("T30 measured: measuring..."));
    m_cancel = false;
    m_worker = std::thread([this, slot, decaySet] {
        MeasuredDecay measured = MeasureImpulseDecay(slot, kFrequency, RenderSeconds(decaySet), &m_cancel);
        // Back on the user interface thread; dropped if the view has gone meanwhile.
        QMetaObject::invokeMethod(
            this, [this, measured = std::move(measured), decaySet]() mutable { Finished(std::move(measured), decaySet); },
            Qt::QueuedConnection);
    });
}

void MeasuredDecayView::Finished(MeasuredDecay measured, float decaySet)
{
    m_worker.join();
    if (m_pending) {
        // A newer setting came while this one rendered: it is the one to show.
        auto [slot, set] = *m_pending;
        m_pending.reset();
        Start(slot, set);
        return;
    }
    m_last = std::move(measured);
    m_lastSet = decaySet;
    MeasuredLabel->setText(m_last.ok && m_last.t30 > 0 ? QStringLiteral("T30 measured: %1 s").arg(m_last.t30, 0, 'f', 2)
                                                        : QStringLiteral("T30 measured: -"));
    // A screen reader hears what the curve shows in numbers.
    setAccessibleDescription(MeasuredLabel->text() + QStringLiteral(", ") + SetLabel->text());
    update();
}

void MeasuredDecayView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const QRectF plot = QRectF(rect()).adjusted(34, 8, -8, -22);
    const double seconds = m_last.curveMs.empty() ? 1.0 : m_last.curveMs.size() / 1000.0;
    auto at = [&](double t, double db) {
        return QPointF(plot.left() + plot.width() * t / seconds,
                       plot.top() + plot.height() * std::clamp(db, kFloorDb, 0.0) / kFloorDb);
    };
    // A grid every 10 dB, and every second (every tenth of one for short responses).
    painter.setPen(QColor(70, 70, 70));
    painter.setFont(QFont(font().family(), 7));
    for (double db = 0; db >= kFloorDb; db -= 10) {
        painter.drawLine(at(0, db), at(seconds, db));
        painter.drawText(QRectF(0, at(0, db).y() - 6, 30, 12), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(static_cast<int>(db)));
    }
    const double tick = seconds > 2 ? 1.0 : 0.1;
    for (double t = 0; t <= seconds + 1e-9; t += tick) {
        painter.drawLine(at(t, 0), at(t, kFloorDb));
        painter.drawText(QRectF(at(t, kFloorDb).x() - 20, plot.bottom() + 4, 40, 14), Qt::AlignCenter,
                         QString::number(t, 'g', 3));
    }
    if (m_last.curveMs.empty())
        return;
    QPainterPath curve;
    for (std::size_t i = 0; i < m_last.curveMs.size(); ++i) {
        const QPointF point = at(i / 1000.0, m_last.curveMs[i]);
        if (i == 0)
            curve.moveTo(point);
        else
            curve.lineTo(point);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(80, 160, 255), 1.5));
    painter.drawPath(curve);
    // The decay that the knob sets, as a line of -60 dB over the decay time, for comparison.
    if (m_lastSet > 0) {
        painter.setPen(QPen(QColor(255, 190, 60), 1, Qt::DashLine));
        painter.drawLine(at(0, 0), at(m_lastSet * (-kFloorDb / 60.0), kFloorDb));
    }
}
