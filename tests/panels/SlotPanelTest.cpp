// The slot panel and the thirteen effect panels over a live slot: what a loaded panel shows, a knob
// and a combo box reaching their property, "Defaults", the rules of reloading, the shared reverb
// values and the library's refusal of an effect.
#include "tests/controls/LiveReverb.h"

#include "controls/CDecimalDisplay.h"
#include "controls/CEditCtl.h"
#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "engine/EFX_EffectSlot.h"
#include "panels/EffectPanels.h"
#include "panels/FXS_Panel.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/FXPanner.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QCheckBox>
#include <QMessageBox>
#include <QTimer>
#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

using namespace controls_test;

namespace {

// The EFX token of each knob and combo box, by effect type and control id, to read the engine with.
struct Token {
    int type;
    int id;
    ALenum token;
    bool integer = false; // the tokens of different effects share numbers: the kind must be told
};
constexpr Token kTokens[] = {
    {1, 1023, AL_EAXREVERB_DECAY_TIME},       {2, 1355, AL_REVERB_DECAY_TIME},
    {4, 1092, AL_AUTOWAH_RESONANCE},          {5, 1100, AL_CHORUS_RATE},
    {5, 1099, AL_CHORUS_PHASE, true},               {5, 1092, AL_CHORUS_WAVEFORM},
    {6, 1101, AL_DISTORTION_EDGE},            {7, 1110, AL_ECHO_FEEDBACK},
    {8, 1114, AL_EQUALIZER_LOW_GAIN},         {9, 1118, AL_FLANGER_RATE},
    {9, 1093, AL_FLANGER_WAVEFORM},           {10, 1096, AL_VOCAL_MORPHER_PHONEMEA},
    {10, 1122, AL_VOCAL_MORPHER_RATE},        {11, 1127, AL_PITCH_SHIFTER_COARSE_TUNE, true},
    {12, 1125, AL_RING_MODULATOR_FREQUENCY},  {12, 1097, AL_RING_MODULATOR_WAVEFORM},
    {13, 1106, AL_FREQUENCY_SHIFTER_FREQUENCY}, {3, 1089, AL_COMPRESSOR_ONOFF},
};

const char* const kDefaultsNames[] = {"",        "Reverb",     "Reverb",  "AGCCompressor", "Autowah",
                                      "Chorus",  "Distortion", "Echo",    "Equalizer", "Flanger",
                                      "VocalMorpher", "PitchShifter", "RingModulator", "FrequencyShifter"};

// Only the vocal morpher may be missing from the library.
bool Takes(int type)
{
    return type != 10 || engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER);
}

class SlotPanelTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        ASSERT_EQ(bridge->CreateSlot(), 0u);
        getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
        window.resize(640, 580);
        bridge->SetCallbacksEnabled(0);
        panel = new FXS_Panel(&window);
        panel->SetSlot(0);
        panel->InitDialog();
        panel->show();
        bridge->SetSlotPanel(0, panel);
        bridge->SetCallbacksEnabled(1);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void TearDown() override
    {
        delete panel;
        BridgeTest::TearDown();
    }

    // Chooses the effect in the list and presses "Load", as a user does.
    void Load(int type)
    {
        panel->EffectList->setCurrentIndex(type);
        FindControlAs<QPushButton>(panel, res::IDC_LOAD_EFFECT)->click();
    }

    // The integer property of the slot's effect, as Effect reads a float one.
    int EffectInt(ALenum token)
    {
        int value = -12345;
        getEffecti(spy.lastEffect, token, &value);
        return value;
    }

    // The number value a knob shows.
    static double Shown(CPot& knob) { return knob.AccessibleSubject()->GetValue(); }

    QWidget window;
    FXS_Panel* panel = nullptr;
    LPALGETEFFECTI getEffecti = nullptr;
};

TEST_F(SlotPanelTest, ANewSlotShowsItsVolumeSendAutoAndAnEmptyListAndTheEngineKeepsItsGain)
{
    EXPECT_FLOAT_EQ(BridgeTables().SlotGainValues[0]->Value, 0.77f); // until the first write-back
    panel->Reload();
    EXPECT_FLOAT_EQ(BridgeTables().SlotGainValues[0]->Value, 1.0f);
    EXPECT_EQ(panel->VolumeKnob->Position(), 30);
    EXPECT_TRUE(FindControlAs<QCheckBox>(panel, res::IDC_SEND_AUTO)->isChecked());
    EXPECT_EQ(panel->EffectList->currentText(), "Empty (no effect)");
    EXPECT_EQ(panel->EffectList->count(), 14);
    EXPECT_EQ(panel->EffectList->itemText(13), "Frequency Shifter");
    EXPECT_EQ(panel->EffectPanel, nullptr);
    auto getSlotf = reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTF>(alGetProcAddress("alGetAuxiliaryEffectSlotf"));
    auto getSloti = reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTI>(alGetProcAddress("alGetAuxiliaryEffectSloti"));
    float gain = -1;
    getSlotf(EFX_Factory::GetEffectSlotId(0), AL_EFFECTSLOT_GAIN, &gain);
    EXPECT_FLOAT_EQ(gain, 1.0f);

    QTest::mouseClick(FindControlAs<QCheckBox>(panel, res::IDC_SEND_AUTO), Qt::LeftButton);
    int sendAuto = -1;
    getSloti(EFX_Factory::GetEffectSlotId(0), AL_EFFECTSLOT_AUXILIARY_SEND_AUTO, &sendAuto);
    EXPECT_EQ(sendAuto, 0);
}

// Every effect the library takes: loaded, its panel shows the engine's values, one knob or box of
// it reaches its property with exactly one console line, and "Defaults" brings the library's back.
TEST_F(SlotPanelTest, EveryEffectPanelShowsTheEnginesValuesAndItsControlsReachTheEngine)
{
    for (int type = 1; type < kEffectTypes; ++type) {
        SCOPED_TRACE(EffectListText(type));
        if (!Takes(type))
            continue;
        Load(type);
        ASSERT_NE(panel->EffectPanel, nullptr);
        FXS_EffectPanel& effect = *panel->EffectPanel;
        EXPECT_EQ(effect.Table().type, type);
        // It fits beside the slot's box within the main window's slot frame, 628 x 568.
        EXPECT_LE(effect.geometry().right(), 628 - 2) << effect.geometry().right();
        EXPECT_LE(effect.geometry().bottom(), 568 - 2) << effect.geometry().bottom();
        for (int r = 0; r < effect.KnobCount(); ++r) {
            const double shown = Shown(effect.Knob(r));
            for (double placeholder : {0.77, 7.77, 777.0, 77.77, 777.7, 7777.0, 77.0, 0.077, 0.8977})
                EXPECT_GT(std::abs(shown - placeholder), 1e-4) << effect.Table().knobs[r].label;
        }
        std::vector<std::pair<CPot*, double>> turned;
        std::vector<std::pair<QComboBox*, int>> chosen;
        for (const Token& t : kTokens) {
            if (t.type != type)
                continue;
            console.lines.clear();
            QWidget* control = FindControl(&effect, t.id);
            ASSERT_NE(control, nullptr) << t.id;
            if (auto* combo = qobject_cast<QComboBox*>(control)) {
                chosen.emplace_back(combo, combo->currentIndex());
                const int choice = combo->count() - 1;
                combo->setCurrentIndex(choice);
                Q_EMIT combo->activated(choice);
                EXPECT_EQ(EffectInt(t.token), choice);
            } else {
                auto* knob = dynamic_cast<CPot*>(control);
                ASSERT_NE(knob, nullptr);
                turned.emplace_back(knob, Shown(*knob));
                QAccessibleValueInterface* access = QAccessible::queryAccessibleInterface(knob)->valueInterface();
                access->setCurrentValue(access->maximumValue());
                const double engine = t.integer ? EffectInt(t.token) : Effect(t.token);
                EXPECT_NEAR(engine, access->maximumValue().toDouble(), 1e-3);
                EXPECT_NEAR(Shown(*knob), engine, 1e-3);
            }
            // One line for the set; the write-back's query of the effect type adds the slot's empty log.
            const auto said = std::count_if(console.lines.begin(), console.lines.end(),
                                            [](const std::string& line) { return !line.empty(); });
            EXPECT_EQ(said, 1) << ::testing::PrintToString(console.lines);
        }
        console.lines.clear();
        FindControlAs<QPushButton>(&effect, effect.Table().defaultsId)->click();
        ASSERT_FALSE(console.lines.empty());
        EXPECT_EQ(console.lines.back(),
                  std::string("Set ") + kDefaultsNames[type] + " to its default values successful");
        // The knobs and boxes are back where the library's values put them on loading.
        for (auto [knob, initial] : turned)
            EXPECT_NEAR(Shown(*knob), initial, 1e-4);
        for (auto [combo, initial] : chosen)
            EXPECT_EQ(combo->currentIndex(), initial);
    }
}

TEST_F(SlotPanelTest, ANumberBeyondTheRangeTypedInAReadOutChangesNothing)
{
    struct Case {
        int type;
        int id;
        const char* typed;
        ALenum token;
        bool integer;
    };
    for (const Case& c : {Case{1, 1023, "25", AL_EAXREVERB_DECAY_TIME, false}, Case{5, 1099, "200", AL_CHORUS_PHASE, true}}) {
        SCOPED_TRACE(c.typed);
        Load(c.type);
        FXS_EffectPanel& effect = *panel->EffectPanel;
        int row = 0;
        while (effect.Table().knobs[row].id != c.id)
            ++row;
        CDecimalDisplay& display = effect.Display(row);
        const double before = Shown(effect.Knob(row));
        const int frame = effect.Knob(row).Position();
        const double engine = c.integer ? EffectInt(c.token) : Effect(c.token);
        QTest::keyClick(&display, Qt::Key_Space);
        ASSERT_TRUE(display.Edit()->isVisible());
        display.Edit()->selectAll();
        QTest::keyClicks(display.Edit(), c.typed);
        QTest::keyClick(display.Edit(), Qt::Key_Return);
        EXPECT_FALSE(display.Edit()->isVisible());
        EXPECT_DOUBLE_EQ(Shown(effect.Knob(row)), before);
        EXPECT_EQ(effect.Knob(row).Position(), frame);
        EXPECT_DOUBLE_EQ(c.integer ? EffectInt(c.token) : Effect(c.token), engine);
    }
}

TEST_F(SlotPanelTest, APhonemeChosenInItsBoxArrivesAsItsPosition)
{
    if (!Takes(10))
        GTEST_SKIP() << "this OpenAL Soft has no vocal morpher";
    Load(10);
    auto* phonemeA = FindControlAs<QComboBox>(panel->EffectPanel, 1096);
    const int uw = phonemeA->findText("UW");
    phonemeA->setCurrentIndex(uw);
    Q_EMIT phonemeA->activated(uw);
    EXPECT_EQ(EffectInt(AL_VOCAL_MORPHER_PHONEMEA), 14);
}

TEST_F(SlotPanelTest, ReloadingKeepsOrReplacesThePanelAndThePannerByTheRules)
{
    Load(1);
    QPointer<FXS_EffectPanel> eax(panel->EffectPanel);
    ASSERT_NE(panel->ReverbPanner, nullptr);
    EXPECT_EQ(panel->ReverbPanner->pos(), FXS_Panel::kPannerPlace);
    EXPECT_EQ(eax->pos().x(), FindControl(panel, res::IDC_SLOT_BOX)->width() + 10);

    // The same effect again: the same panel, showing the library's values again.
    BridgeTables().ReverbValues[0][2]->SetValue(9.0);
    Load(1);
    EXPECT_EQ(panel->EffectPanel, eax.data());
    EXPECT_FLOAT_EQ(BridgeTables().ReverbValues[0][2]->Value, 1.49f);

    // A reverb after the EAX reverb keeps the panner until the next reload.
    Load(2);
    EXPECT_TRUE(eax.isNull());
    EXPECT_NE(panel->ReverbPanner, nullptr);
    panel->Reload();
    EXPECT_EQ(panel->ReverbPanner, nullptr);

    // Any other effect takes the panner, and the response window with it.
    Load(1);
    FindControlAs<QPushButton>(panel->ReverbPanner, res::IDC_SHOW_RESPONSE_WINDOW)->click();
    QPointer<C3DReverbResponseDlg> response(dynamic_cast<C3DReverbResponseDlg*>(bridge->GetResponseWindow()));
    ASSERT_FALSE(response.isNull());
    Load(7);
    EXPECT_EQ(panel->ReverbPanner, nullptr);
    EXPECT_TRUE(response.isNull());
    EXPECT_EQ(bridge->GetResponseWindow(), nullptr);

    // Empty removes the child; the slot's own controls stay. The list is never moved by code.
    Load(0);
    EXPECT_EQ(panel->EffectPanel, nullptr);
    EXPECT_TRUE(panel->VolumeKnob->isVisible());
    EXPECT_EQ(panel->EffectList->currentIndex(), 0);
    panel->SetSlot(4);
    EXPECT_EQ(panel->Slot, -1);
}

TEST_F(SlotPanelTest, TheTwoReverbsShareTheirValuesRebindingTwelveAndLeavingFourteenUnwatched)
{
    Load(1);
    Load(2);
    panel->Reload();
    for (int p = 0; p < bridge_limits::kReverbValues; ++p) {
        const auto& observers = BridgeTables().ReverbValues[0][p]->GetObservers();
        EXPECT_EQ(observers.size(), p < 12 ? 2u : 0u) << p;
    }
    EXPECT_EQ(BridgeTables().ReverbValues[0][4]->Category, 6);
    EXPECT_FLOAT_EQ(BridgeTables().ReverbValues[0][4]->Maximum, 0.3f);
    // The reverb's "Reflections: Delay" now sets the reverb's own property.
    BridgeTables().ReverbValues[0][4]->SetValue(0.25);
    EXPECT_FLOAT_EQ(Effect(AL_REVERB_REFLECTIONS_DELAY), 0.25f);
    for (int swap = 0; swap < 50; ++swap)
        Load(1 + swap % 2);
}

TEST_F(SlotPanelTest, AnEffectTheLibraryRefusesSaysSoAndLeavesThePreviousPanel)
{
    if (Takes(10))
        GTEST_SKIP() << "this OpenAL Soft has the vocal morpher";
    Load(7);
    QPointer<FXS_EffectPanel> echo(panel->EffectPanel);
    std::string message;
    QTimer::singleShot(50, [&message] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            message = box->text().toStdString();
            box->accept();
        }
    });
    Load(10);
    EXPECT_EQ(message, "Error loading effect, see console");
    EXPECT_EQ(panel->EffectPanel, echo.data());
}

} // namespace
