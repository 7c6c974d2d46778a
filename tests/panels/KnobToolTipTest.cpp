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
    // Each knob and its read-out carry their row's tooltip; the token is one the table of units lists
    // and, unless the library lacks the effect, one OpenAL knows.
    void ExpectToolTips(CPot& knob, CDecimalDisplay& display, const PanelKnob& row, bool libraryKnows)
    {
        SCOPED_TRACE(row.label);
        const QString text = knob.toolTip();
        EXPECT_EQ(text.toStdString(), KnobToolTip(row));
        EXPECT_EQ(display.toolTip(), text);
        EXPECT_TRUE(text.startsWith(QStringLiteral("AL_"))) << text.toStdString();
        EXPECT_TRUE(!libraryKnows || alGetEnumValue(row.token) != 0) << row.token;
        PropertyUnit unit;
        EXPECT_TRUE(UnitOfProperty(row.token, &unit)) << row.token;
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
        for (int r = 0; r < panel.KnobCount(); ++r)
            ExpectToolTips(panel.Knob(r), panel.Display(r), panel.Table().knobs[r],
                           type != 10 || engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER));
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
    // The source and listener tables are private to their panels: the token is read off the text.
    auto expectToolTips = [](CPot& knob, CDecimalDisplay& display) {
        const std::string text = knob.toolTip().toStdString();
        SCOPED_TRACE(text);
        EXPECT_EQ(display.toolTip(), knob.toolTip());
        const std::string token = text.substr(0, text.find('\n'));
        EXPECT_EQ(token.rfind("AL_", 0), 0u);
        EXPECT_NE(alGetEnumValue(token.c_str()), 0);
        PropertyUnit unit;
        EXPECT_TRUE(UnitOfProperty(token, &unit));
    };
    for (int r = 0; r < Source3D_Panel::kKnobs; ++r)
        expectToolTips(*source.Knobs[r], *source.Displays[r]);
    for (int r = 0; r < ContextListener_Panel::kKnobs; ++r)
        expectToolTips(listener.Knob(r), listener.Display(r));
    EXPECT_EQ(source.Knob(20).toolTip(), "AL_CONE_OUTER_GAINHF\n0 to 1 (linear gain)");
    EXPECT_EQ(source.Knob(31).toolTip(), "AL_CONE_OUTER_ANGLE\n0 to 360 degrees");
    EXPECT_EQ(listener.Knob(10).toolTip(), "AL_SPEED_OF_SOUND\n0.001 to 10000 m/s");
}

} // namespace
