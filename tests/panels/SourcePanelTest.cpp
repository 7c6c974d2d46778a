// The source panel over a live source: the knobs filled from the engine, "Set to front", "Play", the
// sends' creation and routing by what the device grants, and the kept quirk of send 3's "Delete".
#include "tests/controls/LiveReverb.h"

#include "controls/ControlId.h"
#include "panels/Source3D_Panel.h"
#include "resources/ResourceIds.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <memory>

using bridge_test::SourcePeek;

namespace {

class SourcePanelTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateContext(), 1);
        ASSERT_EQ(bridge->CreateSlot(), 0u);
        ASSERT_EQ(bridge->CreateSlot(), 1u);
        if (bridge->GetAutoPlay())
            bridge->ToggleAutoPlay();
        const std::string path = WaveFile();
        ASSERT_EQ(bridge->CreateSource(path.c_str()), 1);
        bridge->SetCallbacksEnabled(0);
        panel = std::make_unique<Source3D_Panel>(&window, 0);
        panel->InitDialog();
        bridge->SetSourceToFront(0);
        bridge->RefreshSource(0);
        bridge->SetCallbacksEnabled(1);
        window.resize(panel->size());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void TearDown() override
    {
        panel.reset();
        BridgeTest::TearDown();
    }

    double Shown(int id)
    {
        return QAccessible::queryAccessibleInterface(FindControl(panel.get(), id))->valueInterface()->currentValue().toDouble();
    }
    bool Enabled(int id) { return FindControl(panel.get(), id)->isEnabled(); }
    QRadioButton* Route(int send, int route)
    {
        return FindControlAs<QRadioButton>(panel.get(), Source3D_Panel::RouteId(send, route));
    }
    void Click(int id) { FindControlAs<QPushButton>(panel.get(), id)->click(); }

    QWidget window;
    std::unique_ptr<Source3D_Panel> panel;
};

TEST_F(SourcePanelTest, ANewSourceStandsInFrontAndItsKnobsShowTheEngine)
{
    EXPECT_NEAR(Shown(1075), 0.0, 1e-6);
    EXPECT_NEAR(Shown(1077), -1.0, 1e-6);
    EXPECT_NEAR(Shown(1202), 1.0, 1e-6);  // pitch
    EXPECT_NEAR(Shown(1062), 360.0, 1e-6); // outer cone angle
    EXPECT_TRUE(FindControlAs<QCheckBox>(panel.get(), res::IDC_SOURCE_LOOP)->isChecked());
    EXPECT_EQ(FindControl(panel.get(), 1075)->accessibleName(), "Position X");

    // A knob turned moves the source; "Set to front" brings it back.
    QAccessible::queryAccessibleInterface(FindControl(panel.get(), 1075))->valueInterface()->setCurrentValue(10.0);
    float position[3] = {};
    alGetSourcefv(SourcePeek::Source(bridge->GetSource(0)), AL_POSITION, position);
    EXPECT_NEAR(position[0], Shown(1075), 1e-4);
    EXPECT_GT(position[0], 9.0f);
    Click(res::IDC_SOURCE_TO_FRONT);
    EXPECT_NEAR(Shown(1075), 0.0, 1e-6);
    EXPECT_NEAR(Shown(1077), -1.0, 1e-6);
}

TEST_F(SourcePanelTest, PlayStartsTheSourceWithTheLoopBoxsStateAndStopStopsIt)
{
    const ALuint source = SourcePeek::Source(bridge->GetSource(0));
    for (bool loop : {true, false}) {
        FindControlAs<QCheckBox>(panel.get(), res::IDC_SOURCE_LOOP)->setChecked(loop);
        Click(res::IDC_SOURCE_PLAY);
        ALint state = 0;
        ALint looping = -1;
        alGetSourcei(source, AL_SOURCE_STATE, &state);
        alGetSourcei(source, AL_LOOPING, &looping);
        EXPECT_EQ(state, AL_PLAYING);
        EXPECT_EQ(looping, loop ? AL_TRUE : AL_FALSE);
        Click(res::IDC_SOURCE_STOP);
        alGetSourcei(source, AL_SOURCE_STATE, &state);
        EXPECT_EQ(state, AL_STOPPED);
    }
}

TEST_F(SourcePanelTest, ASendIsCreatedRoutedToSlotZeroRoutedElsewhereAndDeleted)
{
    // Nothing of a send but "Create" is active before it exists.
    EXPECT_TRUE(Enabled(res::IDC_SEND_CREATE_0));
    EXPECT_FALSE(Enabled(res::IDC_SEND_DELETE_0));
    EXPECT_FALSE(Route(0, 0)->isEnabled());
    EXPECT_FALSE(Enabled(res::IDC_SEND_GAIN_LABEL_0));

    Click(res::IDC_SEND_CREATE_0);
    EXPECT_FALSE(Enabled(res::IDC_SEND_CREATE_0));
    EXPECT_TRUE(Enabled(res::IDC_SEND_DELETE_0));
    EXPECT_TRUE(Enabled(res::IDC_SEND_GAIN_LABEL_0));
    EXPECT_TRUE(Route(0, 1)->isChecked());
    EXPECT_EQ(SourcePeek::SendSlot(bridge->GetSource(0), 0), 0);
    // The device's slots (four under the null output) set which routes can be taken.
    for (int route = 0; route < Source3D_Panel::kRoutes; ++route)
        EXPECT_TRUE(Route(0, route)->isEnabled()) << route;

    QTest::mouseClick(Route(0, 2), Qt::LeftButton, {}, QPoint(6, Route(0, 2)->height() / 2));
    EXPECT_EQ(SourcePeek::SendSlot(bridge->GetSource(0), 0), 1);
    EXPECT_TRUE(Route(0, 2)->isChecked());
    EXPECT_FALSE(Route(0, 1)->isChecked());
    QTest::mouseClick(Route(0, 0), Qt::LeftButton, {}, QPoint(6, Route(0, 0)->height() / 2));
    EXPECT_EQ(SourcePeek::SendSlot(bridge->GetSource(0), 0), -1);

    Click(res::IDC_SEND_DELETE_0);
    EXPECT_TRUE(Enabled(res::IDC_SEND_CREATE_0));
    EXPECT_FALSE(Enabled(res::IDC_SEND_DELETE_0));
    for (int route = 0; route < Source3D_Panel::kRoutes; ++route) {
        EXPECT_FALSE(Route(0, route)->isEnabled());
        EXPECT_FALSE(Route(0, route)->isChecked());
    }
}

TEST_F(SourcePanelTest, SendThreesDeleteTakesTheEnginesSendOneAndSetsItsOwnControls)
{
    Click(res::IDC_SEND_CREATE_0 + 1);
    Click(res::IDC_SEND_CREATE_0 + 3);
    ASSERT_EQ(SourcePeek::SendSlot(bridge->GetSource(0), 3), 0);
    Click(res::IDC_SEND_DELETE_0 + 3);
    // The engine's send 3 still feeds its slot; send 1's controls stay as they were.
    EXPECT_EQ(SourcePeek::SendSlot(bridge->GetSource(0), 3), 0);
    EXPECT_TRUE(Enabled(res::IDC_SEND_DELETE_0 + 1));
    EXPECT_TRUE(Enabled(res::IDC_SEND_CREATE_0 + 3));
    EXPECT_FALSE(Enabled(res::IDC_SEND_DELETE_0 + 3));
}

} // namespace
