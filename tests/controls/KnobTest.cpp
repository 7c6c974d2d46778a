// The knob and its pop-up fader on a live reverb: the sweep, the ends, the cursor, the gestures that
// must do nothing, the write-back, and the accessible value.
#include "tests/controls/LiveReverb.h"

#include "controls/CFader.h"
#include "controls/CPot.h"
#include "controls/ControlStyles.h"
#include "controls/FaderMapping.h"
#include "values/CConvertNumeric.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QCursor>
#include <QGuiApplication>
#include <QTest>

#include <memory>

using namespace controls_test;

namespace {

class KnobTest : public LiveReverbTest {
protected:
    void SetUp() override
    {
        LiveReverbTest::SetUp();
        window = std::make_unique<QWidget>();
        window->setGeometry(300, 300, 200, 120);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override
    {
        knob.reset();
        window.reset();
        LiveReverbTest::TearDown();
    }

    // A knob of look 1 on the decay value, its converter spanning low to high.
    CPot* MakeKnob(float low = kDecayLow, float high = kDecayHigh)
    {
        value = Decay(low, high);
        converter.Low = low;
        converter.High = high;
        knob = std::make_unique<CPot>();
        knob->SetConverter(&converter);
        knob->SetSpec(GetPotSpec(1));
        value->AddObserver(knob.get(), 1);
        knob->Create(window.get(), QPoint(80, 60), 1234);
        return knob.get();
    }

    // Press at the knob's middle, move by each of steps in x, release where the mouse is.
    void Drag(std::initializer_list<int> steps)
    {
        QPoint point(12, 12);
        SendMouse(knob.get(), QEvent::MouseButtonPress, point);
        for (int step : steps) {
            point.rx() += step;
            SendMouse(knob.get(), QEvent::MouseMove, point);
        }
        SendMouse(knob.get(), QEvent::MouseButtonRelease, point);
    }

    double ValueAtPosition(int position) const { return FaderValueOf(position, &converter, 128); }

    std::unique_ptr<QWidget> window;
    std::unique_ptr<CPot> knob;
    CEFXFloatValObs* value = nullptr;
    CConvertNumericToLinearRange converter;
};

TEST_F(KnobTest, HundredTwentySevenPixelsSweepTheWholeRangeAndTheFirstMoveBackFromPastTheEndCounts)
{
    MakeKnob();
    value->SetValue(kDecayLow);
    ASSERT_EQ(knob->Position(), 0);

    Drag({127});
    EXPECT_FLOAT_EQ(value->Value, kDecayHigh);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), kDecayHigh);
    EXPECT_EQ(knob->Position(), 30);

    // Sixty pixels past the top are not stored: one pixel back is one position down at once.
    Drag({60, -1});
    EXPECT_FLOAT_EQ(value->Value, static_cast<float>(ValueAtPosition(126)));
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), value->Value);

    Drag({-300, -1, 1});
    EXPECT_FLOAT_EQ(value->Value, static_cast<float>(ValueAtPosition(1)));
}

TEST_F(KnobTest, TheCursorHidesDuringTheDragAndStandsOnTheKnobsCentreAfterTheRelease)
{
    MakeKnob();
    ASSERT_EQ(knob->size(), QSize(24, 25)); // one frame of a 745-pixel strip of 31
    QCursor::setPos(window->mapToGlobal(QPoint(5, 5)));
    SendMouse(knob.get(), QEvent::MouseButtonPress, QPoint(3, 20));
    ASSERT_NE(knob->Popup(), nullptr);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
    // The pop-up's fader stands centred above the knob: 63 pixels left, 0.6 of the knob's height up.
    EXPECT_EQ(knob->Popup()->geometry(), QRect(knob->mapToGlobal(QPoint(-63, -15)), QSize(150, 16)));
    EXPECT_TRUE(knob->Popup()->isVisible());

    SendMouse(knob.get(), QEvent::MouseMove, QPoint(40, 20));
    SendMouse(knob.get(), QEvent::MouseButtonRelease, QPoint(40, 20));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(knob->Popup(), nullptr);
    QTest::qWait(20);
    EXPECT_EQ(QCursor::pos(), knob->mapToGlobal(QPoint(12, 12)));
}

// Gestures that must leave the value, and so the engine, as they were.
TEST_F(KnobTest, GesturesWithoutTravelLeaveTheValueAsItWas)
{
    struct Gesture { const char* name; QEvent::Type press; Qt::MouseButton button; };
    const Gesture gestures[] = {
        {"press and release without a move", QEvent::MouseButtonPress, Qt::LeftButton},
        {"right press", QEvent::MouseButtonPress, Qt::RightButton},
        {"double click", QEvent::MouseButtonDblClick, Qt::LeftButton},
        {"middle press", QEvent::MouseButtonPress, Qt::MiddleButton},
    };
    MakeKnob();
    value->SetValue(7.3); // between two fader positions: a move would snap it
    console.lines.clear();
    for (const Gesture& gesture : gestures) {
        SCOPED_TRACE(gesture.name);
        SendMouse(knob.get(), gesture.press, QPoint(12, 12), gesture.button);
        if (gesture.button != Qt::LeftButton) {
            // Nothing opens, so a move with that button held goes nowhere.
            EXPECT_EQ(knob->Popup(), nullptr);
            SendMouse(knob.get(), QEvent::MouseMove, QPoint(40, 12), gesture.button);
        }
        SendMouse(knob.get(), QEvent::MouseButtonRelease, QPoint(12, 12), gesture.button);
        EXPECT_FLOAT_EQ(value->Value, 7.3f);
        EXPECT_EQ(knob->Popup(), nullptr);
    }
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 7.3f);
    EXPECT_TRUE(console.lines.empty());
}

TEST_F(KnobTest, AKnobWiderThanTheEngineShowsWhatOpenALReportsAfterTheWriteBack)
{
    // The engine takes decay times up to 20 s; a knob that goes to 40 asks for more.
    MakeKnob(kDecayLow, 40.0f);
    value->SetValue(5.0);
    ASSERT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 5.0f);

    Drag({127});
    EXPECT_FLOAT_EQ(value->Value, Effect(AL_EAXREVERB_DECAY_TIME));
    EXPECT_LE(value->Value, kDecayHigh);
    EXPECT_EQ(knob->Position(), KnobFrameOf(value->Value, &converter, 31));
}

TEST_F(KnobTest, TheAccessibleValueReadsTheRangeAndSetsAsADragToThatValue)
{
    MakeKnob();
    value->SetValue(2.0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(knob.get());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Dial);
    QAccessibleValueInterface* access = accessible->valueInterface();
    ASSERT_NE(access, nullptr);
    EXPECT_FLOAT_EQ(access->currentValue().toFloat(), 2.0f);
    EXPECT_FLOAT_EQ(access->minimumValue().toFloat(), kDecayLow);
    EXPECT_FLOAT_EQ(access->maximumValue().toFloat(), kDecayHigh);
    EXPECT_NEAR(access->minimumStepSize().toDouble(), (kDecayHigh - kDecayLow) / 127.0, 1e-6);

    access->setCurrentValue(11.0);
    const float byAccess = value->Value;
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), byAccess);

    // The same value reached by the mouse: from the bottom, as many pixels as fader positions.
    value->SetValue(kDecayLow);
    Drag({FaderPositionOf(11.0, &converter, 128)});
    EXPECT_FLOAT_EQ(value->Value, byAccess);
    EXPECT_NE(byAccess, 11.0f); // 11 s lies between two positions: both roads snap to the lower one
}

// The stand-alone fader, on a value without a callback.
class FaderTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        value.Minimum = 0;
        value.Maximum = 127;
        value.RangeChecked = 1;
        converter.Low = 0;
        converter.High = 127;
        window.setGeometry(300, 300, 300, 300);
        window.show();
    }

    QWidget window;
    CEFXFloatValObs value;
    CConvertNumericToLinearRange converter;
};

TEST_F(FaderTest, OnlyAPressOnTheThumbDragsAndTheValueRisesUpAndRight)
{
    struct Case {
        bool vertical;
        QPoint travel; // of the mouse after the press
        float expected;
    };
    for (const Case& c : {Case{false, {10, 0}, 10.0f}, Case{false, {0, 10}, 0.0f}, Case{true, {0, -10}, 10.0f},
                          Case{true, {0, 10}, 0.0f}}) {
        SCOPED_TRACE(c.vertical ? "vertical" : "horizontal");
        value.Assign(0.0f);
        CFader probe;
        CFaderSpec spec;
        spec.vertical = c.vertical;
        probe.SetSpec(spec);
        probe.SetConverter(&converter);
        value.AddObserver(&probe, 1);
        probe.Create(&window, QPoint(20, 20), 78);
        if (c.vertical)
            probe.resize(probe.height(), probe.width());

        // Beside the thumb: no paging, no jump.
        const QPoint beside = probe.ThumbRect().center() + (c.vertical ? QPoint(0, -30) : QPoint(60, 0));
        SendMouse(&probe, QEvent::MouseButtonPress, beside);
        SendMouse(&probe, QEvent::MouseMove, beside + QPoint(20, -20));
        SendMouse(&probe, QEvent::MouseButtonRelease, beside + QPoint(20, -20));
        EXPECT_FLOAT_EQ(value.Value, 0.0f);

        const QPoint on = probe.ThumbRect().center();
        SendMouse(&probe, QEvent::MouseButtonPress, on);
        SendMouse(&probe, QEvent::MouseMove, on + c.travel);
        SendMouse(&probe, QEvent::MouseButtonRelease, on + c.travel);
        EXPECT_FLOAT_EQ(value.Value, c.expected);
        value.RemoveObserver(&probe, 0);
    }
}

TEST_F(FaderTest, APopupFaderAtTheTopSetsTheSameValueAgainAndOneBackCountsAtOnce)
{
    struct Counter : COrvexObservableCallback {
        int calls = 0;
        void OnValueChanged(CObservableNumber*, std::uint16_t, std::uint16_t, std::uint16_t, std::uint16_t,
                            std::uint16_t) override
        {
            ++calls;
        }
    } counter;
    value.Callback = &counter;
    value.Assign(127.0f);
    CPotSpec look;
    CPopupPotFaderFrame popup(&value, &look);
    popup.Fader().SetConverter(&converter);
    popup.CreatePopup(&window, QPoint(100, 100));
    EXPECT_EQ(popup.Fader().Position(), 127);

    popup.BeginDrag(QPoint(0, 0));
    popup.DragTo(QPoint(25, 0));
    EXPECT_EQ(counter.calls, 1);
    EXPECT_FLOAT_EQ(value.Value, 127.0f);
    popup.DragTo(QPoint(24, 0));
    EXPECT_FLOAT_EQ(value.Value, 126.0f);
    popup.EndDrag(QPoint(24, 0));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
