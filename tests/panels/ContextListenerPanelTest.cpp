// The context and listener panel over a live context: the knobs filled by the write-back, the
// distance models, "Defaults", a refused gain, the speed of sound's floor and the context's label.
#include "tests/controls/LiveReverb.h"

#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "panels/ContextListener_Panel.h"
#include "resources/ResourceIds.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <memory>

namespace {

class ContextListenerPanelTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        bridge->SetCallbacksEnabled(0);
        panel = std::make_unique<ContextListener_Panel>(&window);
        panel->InitDialog();
        ASSERT_EQ(bridge->CreateContext(), 1);
        bridge->RefreshContext();
        bridge->SetCallbacksEnabled(1);
        window.resize(panel->size());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        console.lines.clear();
    }

    void TearDown() override
    {
        panel.reset();
        BridgeTest::TearDown();
    }

    QRadioButton* Radio(int model) { return FindControlAs<QRadioButton>(panel.get(), res::IDC_DISTANCE_MODEL_0 + model); }
    int CheckedRadio()
    {
        int checked = -1;
        for (int model = 0; model < ContextListener_Panel::kDistanceModels; ++model)
            if (Radio(model)->isChecked())
                checked = checked == -1 ? model : -2; // -2: more than one
        return checked;
    }
    QAccessibleValueInterface* Access(int id)
    {
        return QAccessible::queryAccessibleInterface(FindControl(panel.get(), id))->valueInterface();
    }
    double Shown(int id) { return Access(id)->currentValue().toDouble(); }

    QWidget window;
    std::unique_ptr<ContextListener_Panel> panel;
};

TEST_F(ContextListenerPanelTest, TheKnobsShowTheListenerAsOpenALHasIt)
{
    struct Case {
        int id;
        double engine;
    };
    for (const Case& c : {Case{1065, 0.0}, Case{1067, 0.0}, Case{1070, -1.0}, Case{1064, alGetFloat(AL_DOPPLER_FACTOR)},
                          Case{1314, alGetFloat(AL_SPEED_OF_SOUND)}, Case{1330, 1.0}})
        EXPECT_NEAR(Shown(c.id), c.engine, 1e-4) << c.id;
    EXPECT_EQ(CheckedRadio(), 2); // "Inverse Distance Clamped", OpenAL's own first model
    EXPECT_EQ(FindControl(panel.get(), 1065)->accessibleName(), "Listener Position X");
}

TEST_F(ContextListenerPanelTest, ADistanceModelClickReachesOpenALAndDefaultsBringTheFirstBack)
{
    QTest::mouseClick(Radio(5), Qt::LeftButton, {}, QPoint(8, Radio(5)->height() / 2));
    EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_EXPONENT_DISTANCE);
    EXPECT_EQ(CheckedRadio(), 5);

    Access(1065)->setCurrentValue(4.0);
    ASSERT_NEAR(Shown(1065), 4.0, 0.2);
    console.lines.clear();
    FindControlAs<QPushButton>(panel.get(), res::IDC_LISTENER_DEFAULTS)->click();
    EXPECT_TRUE(console.Has("Set Listener to its default values successful"));
    EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_INVERSE_DISTANCE_CLAMPED);
    EXPECT_EQ(CheckedRadio(), 2);
    EXPECT_NEAR(Shown(1065), 0.0, 1e-6);
}

TEST_F(ContextListenerPanelTest, ARefusedGainIsLoggedAndTheKnobReturnsAndTheSpeedOfSoundStaysAboveZero)
{
    Access(1330)->setCurrentValue(-0.5);
    EXPECT_TRUE(console.Has("Set Listener AL_GAIN failed")) << ::testing::PrintToString(console.lines);
    float gain = -1;
    alGetListenerf(AL_GAIN, &gain);
    EXPECT_FLOAT_EQ(gain, 1.0f);
    EXPECT_NEAR(Shown(1330), 1.0, 1e-6);

    Access(1314)->setCurrentValue(0.0);
    EXPECT_GT(alGetFloat(AL_SPEED_OF_SOUND), 0.0f);
    EXPECT_GE(Shown(1314), 0.001);
}

TEST_F(ContextListenerPanelTest, TheLabelSaysWhichContextButtonWasPressedLast)
{
    auto* label = FindControlAs<QLabel>(panel.get(), res::IDC_CONTEXT_STATE);
    EXPECT_EQ(label->text(), "(no context state change yet)");
    FindControlAs<QPushButton>(panel.get(), res::IDC_SUSPEND_CONTEXT)->click();
    EXPECT_EQ(label->text(), "OpenAL Context in suspended mode");
    FindControlAs<QPushButton>(panel.get(), res::IDC_PROCESS_CONTEXT)->click();
    EXPECT_EQ(label->text(), "OpenAL Context in processing mode");
    // A suspend that comes another way (the menu, Shift+S) reaches the bridge and leaves the label.
    bridge->SuspendContext();
    EXPECT_EQ(label->text(), "OpenAL Context in processing mode");
    bridge->ProcessContext();
}

} // namespace
