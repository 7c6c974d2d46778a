// What the slot and source panels do to the sound, recorded by OpenAL Soft's wave writer: a burst
// sent into the slot rings on one second later by how long the EAX reverb's decay time, turned on its
// knob, says, and not at all from an empty slot; a burst heard only through a send into an Echo slot
// is silent until the echo's delay, and not heard at all when the send's route is "disabled". Runs in
// a process of its own under a configuration that names the wave writer (see CMakeLists.txt).
#include "tests/engine/WaveRecording.h"
#include "tests/values/BridgeTestSupport.h"

#include "controls/ControlId.h"
#include "controls/CPot.h"
#include "engine/EFX_Factory.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/FXS_Panel.h"
#include "panels/Source3D_Panel.h"
#include "resources/ResourceIds.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

using namespace wave_recording;

namespace {

constexpr int kDecayTimeKnob = 1023;
constexpr int kEchoType = 7;
constexpr int kEchoDelayKnob = 1107;
constexpr int kDirectGainKnob = 1020;

void Turn(QWidget* knob, double value)
{
    QAccessible::queryAccessibleInterface(knob)->valueInterface()->setCurrentValue(value);
}
constexpr std::uint16_t kFirstSendRouting = 3; // the routing param of send 0

class ConfWavePanels : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* folder = WaveWriterFolder();
        if (!folder)
            GTEST_SKIP() << "runs under its own OpenAL Soft configuration, with the wave writer";
        m_folder = folder;
        m_burst = m_folder + "/burst.wav";
        std::vector<float> burst = WhiteNoise(0.05);
        WriteMonoFile(m_burst, burst);
        m_marker = m_folder + "/marker.wav";
        WriteMonoFile(m_marker, Sine(0.05, 1000.0, 0.1f));
    }

    // A bridge over the wave writer with slot 0 holding the effect type chosen on its panel; the
    // recording is closed when the rig goes.
    struct Rig {
        explicit Rig(int type)
        {
            EFX_Factory::SelectDevice("");
            EXPECT_EQ(bridge.InitializeEngine(3, 0, 4), 1);
            EXPECT_EQ(bridge.CreateSlot(), 0u);
            window.resize(640, 580);
            window.show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
            bridge.SetCallbacksEnabled(0);
            slot = std::make_unique<FXS_Panel>(&window);
            slot->SetSlot(0);
            slot->InitDialog();
            slot->show();
            bridge.SetSlotPanel(0, slot.get());
            bridge.SetCallbacksEnabled(1);
            slot->EffectList->setCurrentIndex(type);
            FindControlAs<QPushButton>(slot.get(), 1002)->click();
            EXPECT_EQ(bridge.CreateContext(), 1);
            if (bridge.GetAutoPlay())
                bridge.ToggleAutoPlay();
        }
        ~Rig() { slot.reset(); }

        UI_EFX_Bridge bridge;
        QWidget window;
        std::unique_ptr<FXS_Panel> slot;
    };

    // The level, one second after the burst, of a burst sent into a slot holding the effect type,
    // with the EAX reverb's decay time turned to decay on its knob.
    double LevelAfterOneSecond(int type, double decay)
    {
        {
            Rig rig(type);
            if (type == 1)
                Turn(FindControl(rig.slot->EffectPanel, kDecayTimeKnob), decay);
            EXPECT_EQ(rig.bridge.CreateSource(m_burst.c_str()), 1);
            EXPECT_EQ(rig.bridge.CreateSourceSend(0, 0), 1);
            CSonopticExcluValObs* routing = BridgeTables().SendRoutingValues[0][0];
            routing->Bind(0, nullptr, 2, 0, kFirstSendRouting);
            routing->OnUserSelected(0);
            rig.bridge.PlaySource(0, 0);
            Wait(1600);
        }
        const Recording recording(m_folder + "/out.wav");
        EXPECT_TRUE(recording.HasSound());
        return recording.Rms(1.0, 1.2);
    }

    // A burst whose "Direct: Gain" is turned to 0 on its source panel, with send 0 created there and
    // its route radio clicked, into slot 0 holding an Echo of the given delay. A second source plays
    // a soft 1 kHz tone as long as the burst straight, started in the same instant, to mark where the
    // burst began: what is heard then is that pure tone, unless the burst's direct path is still open.
    Recording ThroughEchoSend(int route, double delay)
    {
        {
            Rig rig(kEchoType);
            Turn(FindControl(rig.slot->EffectPanel, kEchoDelayKnob), delay);
            EXPECT_EQ(rig.bridge.CreateSource(m_burst.c_str()), 1);
            EXPECT_EQ(rig.bridge.CreateSource(m_marker.c_str()), 1);
            Source3D_Panel panel(&rig.window, 0);
            panel.InitDialog();
            rig.bridge.RefreshSource(0);
            Turn(FindControl(&panel, kDirectGainKnob), 0.0);
            FindControlAs<QPushButton>(&panel, res::IDC_SEND_CREATE_0)->click();
            FindControlAs<QRadioButton>(&panel, Source3D_Panel::RouteId(0, route))->click();
            const ALuint both[2] = {bridge_test::SourcePeek::Source(rig.bridge.GetSource(0)),
                                    bridge_test::SourcePeek::Source(rig.bridge.GetSource(1))};
            alSourcePlayv(2, both);
            Wait(900);
        }
        return Recording(m_folder + "/out.wav");
    }
    std::string m_folder;
    std::string m_burst;
    std::string m_marker;
};

TEST_F(ConfWavePanels, ALongerDecayRingsOnAndAnEmptySlotAddsNothing)
{
    const double longDecay = LevelAfterOneSecond(1, 5.0);
    const double shortDecay = LevelAfterOneSecond(1, 0.5);
    const double empty = LevelAfterOneSecond(0, 0.0);
    ASSERT_GT(longDecay, 0.0);
    // 5 s of decay lose 12 dB in a second, half a second 120 dB: at least 40 dB apart.
    EXPECT_GT(20.0 * std::log10(longDecay / std::max(shortDecay, 1e-9)), 40.0);
    EXPECT_LT(empty, 1e-4);
}

TEST_F(ConfWavePanels, ASendIntoAnEchoSlotIsSilentUntilTheDelayAndDisabledIsNotHeard)
{
    constexpr double kDelay = 0.15;
    constexpr int kSlot0 = 1;
    constexpr int kDisabled = 0;
    const Recording routed = ThroughEchoSend(kSlot0, kDelay);
    ASSERT_TRUE(routed.HasSound());
    // While the burst plays only the marking tone is heard: the louder noise would add zero crossings.
    EXPECT_NEAR(routed.ToneFrequency(0.005, 0.045), 1000.0, 100.0);
    // The mark lasts 50 ms; from there to the delay nothing comes through the muted direct path.
    EXPECT_LT(routed.Rms(0.07, kDelay - 0.01), 1e-4);
    EXPECT_GT(routed.Rms(kDelay, kDelay + 0.05), 0.01);
    const double firstEcho = routed.Rms(kDelay, kDelay + 0.05);
    EXPECT_GT(routed.Rms(kDelay + 0.1, kDelay + 0.5), firstEcho * 0.01); // the later echoes ring on

    const Recording disabled = ThroughEchoSend(kDisabled, kDelay);
    ASSERT_TRUE(disabled.HasSound());
    EXPECT_LT(disabled.Rms(0.07, 0.8), 1e-4);
}

} // namespace
