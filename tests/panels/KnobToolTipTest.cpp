// Knob tooltips: the text made from a token, a range and a unit, and the tooltips that every knob and
// read-out of the thirteen effect panels, the source panel and the listener panel carry.
#include "tests/values/BridgeTestSupport.h"

#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "panels/ContextListener_Panel.h"
#include "panels/EffectPanelTables.h"
#include "panels/FXS_EffectPanel.h"
#include "panels/KnobToolTip.h"
#include "panels/Source3D_Panel.h"

#include <memory>
#include <string>

namespace {

struct ToolTipCase {
    const char* token;
    float minimum, maximum;
    PropertyUnit unit;
    const char* text;
};
constexpr ToolTipCase kToolTipCases[] = {
    {"AL_ECHO_DELAY", 0, 0.207f, PropertyUnit::Seconds, "AL_ECHO_DELAY\n0 to 0.207 s"},
    {"AL_EAXREVERB_HFREFERENCE", 1000, 20000, PropertyUnit::Hertz, "AL_EAXREVERB_HFREFERENCE\n1000 to 20000 Hz"},
    {"AL_AUTOWAH_PEAK_GAIN", 3e-05f, 31621, PropertyUnit::Gain, "AL_AUTOWAH_PEAK_GAIN\n0.00003 to 31621 (linear gain)"},
    {"AL_POSITION", -50, 50, PropertyUnit::Metres, "AL_POSITION\n-50 to 50 m"},
    {"AL_CHORUS_PHASE", -180, 180, PropertyUnit::Degrees, "AL_CHORUS_PHASE\n-180 to 180 degrees"},
    {"AL_SPEED_OF_SOUND", 0.001f, 10000, PropertyUnit::MetresPerSecond, "AL_SPEED_OF_SOUND\n0.001 to 10000 m/s"},
    {"AL_PITCH_SHIFTER_FINE_TUNE", -50, 50, PropertyUnit::Cents, "AL_PITCH_SHIFTER_FINE_TUNE\n-50 to 50 cents"},
    {"AL_ECHO_SPREAD", -1, 1, PropertyUnit::None, "AL_ECHO_SPREAD\n-1 to 1"},
};

TEST(KnobToolTipText, SaysTheTokenThenTheRangeAndItsUnit)
{
    for (const ToolTipCase& c : kToolTipCases)
        EXPECT_EQ(KnobToolTipText(c.token, c.minimum, c.maximum, c.unit), c.text);
}

class KnobToolTipTest : public bridge_test::BridgeTest {
protected:
    // A knob and its read-out carry one tooltip that opens with an AL_ token, one the table of units
    // lists and, unless the library lacks the effect, one OpenAL knows.
    static void ExpectToolTips(CPot& knob, CDecimalDisplay& display, bool libraryKnows = true)
    {
        const std::string text = knob.toolTip().toStdString();
        SCOPED_TRACE(text);
        EXPECT_EQ(display.toolTip(), knob.toolTip());
        const std::string token = text.substr(0, text.find('\n'));
        EXPECT_EQ(token.rfind("AL_", 0), 0u);
        EXPECT_TRUE(!libraryKnows || alGetEnumValue(token.c_str()) != 0);
        PropertyUnit unit;
        EXPECT_TRUE(UnitOfProperty(token, &unit));
    }

    QWidget window;
};

TEST_F(KnobToolTipTest, EveryKnobOfTheEffectSourceAndListenerPanelsTellsItsProperty)
{
    ASSERT_EQ(bridge->CreateContext(), 1);
    bridge->SetCallbacksEnabled(0);
    for (int type = 1; type < kEffectTypes; ++type) {
        SCOPED_TRACE(EffectListText(type));
        FXS_EffectPanel panel(*EffectPanelTableFor(type), &window, 0);
        panel.InitDialog();
        ASSERT_EQ(panel.KnobCount(), static_cast<int>(panel.Table().knobs.size()));
        for (int r = 0; r < panel.KnobCount(); ++r) {
            const PanelKnob& row = panel.Table().knobs[r];
            // The effect panels' tables are open: the text is the row's, with the row's token.
            EXPECT_EQ(panel.Knob(r).toolTip().toStdString(), KnobToolTip(row)) << row.label;
            EXPECT_TRUE(panel.Knob(r).toolTip().startsWith(QString(row.token) + "\n")) << row.label;
            ExpectToolTips(panel.Knob(r), panel.Display(r),
                           type != 10 || engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER));
        }
        if (type == 7) {
            EXPECT_EQ(panel.Knob(0).toolTip(), "AL_ECHO_DELAY\n0 to 0.207 s");
        }
    }

    ASSERT_EQ(bridge->CreateSource(WaveFile().c_str()), 1);
    Source3D_Panel source(&window, 0);
    source.InitDialog();
    ContextListener_Panel listener(&window);
    listener.InitDialog();
    bridge->SetCallbacksEnabled(1);
    for (int r = 0; r < Source3D_Panel::kKnobs; ++r)
        ExpectToolTips(*source.Knobs[r], *source.Displays[r]);
    for (int r = 0; r < ContextListener_Panel::kKnobs; ++r)
        ExpectToolTips(listener.Knob(r), listener.Display(r));
    EXPECT_EQ(source.Knob(20).toolTip(), "AL_CONE_OUTER_GAINHF\n0 to 1 (linear gain)");
    EXPECT_EQ(source.Knob(31).toolTip(), "AL_CONE_OUTER_ANGLE\n0 to 360 degrees");
    EXPECT_EQ(listener.Knob(10).toolTip(), "AL_SPEED_OF_SOUND\n0.001 to 10000 m/s");
}

} // namespace
