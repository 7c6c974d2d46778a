#pragma once

// A started bridge over OpenAL Soft's null output with an EAX reverb loaded in slot 0 (the bridge
// fixture's Effect reads it with OpenAL's own calls); plus the mouse gestures of the controls' suites.

#include "tests/values/BridgeTestSupport.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace controls_test {

// The bridge's value of the EAX reverb's decay time, and its engine range.
constexpr int kDecayParam = 2;
constexpr float kDecayLow = 0.1f;
constexpr float kDecayHigh = 20.0f;

class LiveReverbTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateSlot(), 0u);
        ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectEAXReverb), 1);
    }

    // The bridge's decay value, bound as a panel binds it.
    CEFXFloatValObs* Decay(float low = kDecayLow, float high = kDecayHigh)
    {
        CEFXFloatValObs* decay = BridgeTables().ReverbValues[0][kDecayParam];
        bridge_test::Bind(decay, low, high, 5, 0, kDecayParam);
        return decay;
    }
};

// A mouse event sent straight to a widget, in its own coordinates.
inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, QPointF(point), QPointF(widget->mapToGlobal(point)),
                      type == QEvent::MouseMove ? Qt::NoButton : button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace controls_test
