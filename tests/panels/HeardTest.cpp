// What the slot panel does to the sound, recorded by OpenAL Soft's wave writer: a burst sent into the
// slot rings on one second later by how long the EAX reverb's decay time, turned on its knob, says,
// and not at all from an empty slot. Runs in a process of its own under a configuration that names
// the wave writer (see CMakeLists.txt).
#include "tests/engine/WaveRecording.h"

#include "controls/ControlId.h"
#include "controls/CPot.h"
#include "engine/EFX_Factory.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/FXS_Panel.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

using namespace wave_recording;

namespace {

constexpr int kDecayTimeKnob = 1023;
constexpr std::uint16_t kFirstSendRouting = 3; // the routing param of send 0

class ConfWavePanels : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* folder = std::getenv("SONOPTIC_PROFILE_DIR");
        if (!folder)
            GTEST_SKIP() << "runs under its own OpenAL Soft configuration, with the wave writer";
        setenv("ALSOFT_DRIVERS", "wave", 1);
        m_folder = folder;
        m_burst = m_folder + "/burst.wav";
        std::vector<float> burst = WhiteNoise(0.05);
        WriteMonoFile(m_burst, burst);
    }

    // The level, one second after the burst, of a burst sent into a slot holding the effect type,
    // with the EAX reverb's decay time turned to decay on its knob.
    double LevelAfterOneSecond(int type, double decay)
    {
        {
            EFX_Factory::SelectDevice("");
            UI_EFX_Bridge bridge;
            EXPECT_EQ(bridge.InitializeEngine(3, 0, 4), 1);
            EXPECT_EQ(bridge.CreateSlot(), 0u);
            QWidget window;
            window.resize(640, 580);
            window.show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
            bridge.SetCallbacksEnabled(0);
            auto panel = std::make_unique<FXS_Panel>(&window);
            panel->SetSlot(0);
            panel->InitDialog();
            panel->show();
            bridge.SetSlotPanel(0, panel.get());
            bridge.SetCallbacksEnabled(1);
            panel->EffectList->setCurrentIndex(type);
            FindControlAs<QPushButton>(panel.get(), 1002)->click();
            if (type == 1) {
                auto* knob = FindControl(panel->EffectPanel, kDecayTimeKnob);
                QAccessible::queryAccessibleInterface(knob)->valueInterface()->setCurrentValue(decay);
            }

            EXPECT_EQ(bridge.CreateContext(), 1);
            if (bridge.GetAutoPlay())
                bridge.ToggleAutoPlay();
            EXPECT_EQ(bridge.CreateSource(m_burst.c_str()), 1);
            EXPECT_EQ(bridge.CreateSourceSend(0, 0), 1);
            CSonopticExcluValObs* routing = BridgeTables().SendRoutingValues[0][0];
            routing->Bind(0, nullptr, 2, 0, kFirstSendRouting);
            routing->OnUserSelected(0);
            bridge.PlaySource(0, 0);
            Wait(1600);
            panel.reset();
        }
        const Recording recording(m_folder + "/out.wav");
        EXPECT_TRUE(recording.HasSound());
        return recording.Rms(1.0, 1.2);
    }

    std::string m_folder;
    std::string m_burst;
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

} // namespace
