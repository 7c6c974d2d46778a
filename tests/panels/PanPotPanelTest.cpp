// The panel base: knobs bound silently and placed on their placeholders, the write-back that fills
// them, Enter and Esc that must not close a panel, and the demo that shows the four looks.
#include "tests/controls/LiveReverb.h"

#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "tools/knob_demo/KnobDemoPanel.h"

#include <QAccessible>
#include <QImage>
#include <QProcess>
#include <QTest>

#include <cmath>
#include <memory>

using namespace controls_test;

namespace {

// What the demo panel binds, in its order: the placeholder, the reverb's param, its minimum and
// maximum, its first.
struct DemoRow {
    int id;
    int param;
    ALenum token;
    float minimum, maximum, first;
};
constexpr DemoRow kDemoRows[KnobDemoPanel::kKnobs] = {
    {1017, 0, AL_EAXREVERB_DENSITY, 0.0f, 1.0f, 0.77f},
    {1021, 1, AL_EAXREVERB_DIFFUSION, 0.0f, 1.0f, 0.77f},
    {1023, 2, AL_EAXREVERB_DECAY_TIME, 0.1f, 20.0f, 7.77f},
    {1026, 3, AL_EAXREVERB_DECAY_HFRATIO, 0.1f, 2.0f, 0.77f},
};

class PanPotPanelTest : public LiveReverbTest {
protected:
    void TearDown() override
    {
        panel.reset();
        LiveReverbTest::TearDown();
    }

    KnobDemoPanel* MakeDemoPanel()
    {
        bridge->SetCallbacksEnabled(0);
        panel = std::make_unique<KnobDemoPanel>();
        panel->show();
        bridge->SetCallbacksEnabled(1);
        return panel.get();
    }

    float EngineDefault(ALenum token)
    {
        return token == AL_EAXREVERB_DECAY_TIME ? 1.49f : token == AL_EAXREVERB_DECAY_HFRATIO ? 0.83f : 1.0f;
    }

    std::unique_ptr<KnobDemoPanel> panel;
};

// The knobs are bound with callbacks disabled: they stand on their placeholders, taking the number
// and name, and show the placeholder values until the write-back, with no engine call between.
TEST_F(PanPotPanelTest, KnobsBoundSilentlyStandOnThePlaceholdersFillOnTheWriteBackAndTheirValuesOutliveThePanel)
{
    console.lines.clear();
    MakeDemoPanel();
    for (int r = 0; r < KnobDemoPanel::kKnobs; ++r) {
        SCOPED_TRACE(r);
        const DemoRow& row = kDemoRows[r];
        CEFXFloatValObs* value = BridgeTables().ReverbValues[0][row.param];
        EXPECT_FLOAT_EQ(value->Value, row.first);
        EXPECT_FLOAT_EQ(Effect(row.token), EngineDefault(row.token));
        EXPECT_EQ(value->Minimum, row.minimum);
        EXPECT_EQ(value->Maximum, row.maximum);
        EXPECT_EQ(value->RangeChecked, 1);
        EXPECT_EQ(value->Callback, bridge.get());
        EXPECT_EQ(value->Category, 5);
        EXPECT_EQ(value->Param, row.param);

        EXPECT_EQ(FindControl(panel.get(), row.id), &panel->Knob(r));
        EXPECT_EQ(panel->Knob(r).accessibleName(), KnobDemoPanel::Caption(r));
        EXPECT_EQ(panel->Display(r).accessibleName(), KnobDemoPanel::Caption(r));
        const QPoint corner = panel->Knob(r).pos() - CPanPotPanel::kKnobOffset;
        EXPECT_EQ(panel->Display(r).pos(), corner + CPanPotPanel::kDisplayOffset);
        EXPECT_EQ(panel->Display(r).size(), QSize(47, 15));
    }
    EXPECT_TRUE(console.lines.empty());

    ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);
    for (int r = 0; r < KnobDemoPanel::kKnobs; ++r) {
        SCOPED_TRACE(r);
        const DemoRow& row = kDemoRows[r];
        const float engine = Effect(row.token);
        EXPECT_FLOAT_EQ(BridgeTables().ReverbValues[0][row.param]->Value, engine);
        const int frame = static_cast<int>(30 * (engine - row.minimum) / (row.maximum - row.minimum));
        EXPECT_EQ(panel->Knob(r).Position(), frame);
    }

    // Once the panel goes, the bridge's own values live on with their range and still reach the engine.
    panel.reset();
    CEFXFloatValObs* decay = BridgeTables().ReverbValues[0][2];
    EXPECT_TRUE(decay->GetObservers().empty());
    EXPECT_EQ(decay->Maximum, 20.0f);
    decay->SetValue(3.0);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 3.0f);
}

TEST_F(PanPotPanelTest, EnterAndEscapeLeaveThePanelOpen)
{
    MakeDemoPanel();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
    panel->activateWindow();
    for (int key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(panel.get(), static_cast<Qt::Key>(key));
        EXPECT_TRUE(panel->isVisible());
        EXPECT_EQ(panel->result(), 0);
    }
    // Inside a window, Esc leaves no hole either.
    QWidget host;
    panel->setParent(&host, Qt::Widget);
    host.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QTest::keyClick(panel.get(), Qt::Key_Escape);
    EXPECT_TRUE(panel->isVisible());
    panel.reset();
}

// One placeholder, bound with a first value below a minimum that is not 0.
class OneKnobPanel : public CPanPotPanel {
public:
    OneKnobPanel()
        : CPanPotPanel(0, nullptr)
    {
        static const ControlTemplate kTemplate[] = {{1100, ControlKind::Static, "Rolloff", QRect(20, 10, 34, 25)}};
        BuildDialog(this, "one knob", QSize(80, 70), kTemplate);
    }
    ~OneKnobPanel() override { delete display; }
    void OnInitDialog() override
    {
        BindFloatKnob(&value, &knob, &converter, display, 1100, 0.5f, 10.0f, 0.25f, 0.5f, 2, 0, 3, 65535, 7);
    }
    CEFXFloatValObs value;
    CPot knob;
    CConvertNumericToLinearRange converter;
    CFloatDecimalDisplay* display = new CFloatDecimalDisplay();
};

TEST_F(PanPotPanelTest, AFirstValueBelowTheMinimumLeavesZeroAndTheLowestFrameAndAnUnknownLookIsTheFirst)
{
    bridge->SetCallbacksEnabled(0);
    OneKnobPanel one;
    one.show();
    bridge->SetCallbacksEnabled(1);
    EXPECT_EQ(one.value.Value, 0.0f);
    EXPECT_EQ(one.knob.Position(), 0);
    EXPECT_EQ(one.knob.GetSpec()->stripBitmap, 136);
    EXPECT_EQ(one.value.Kind, 0);
    EXPECT_EQ(one.value.Extra, 65535);
}

// The demo program, run as a user runs it: its picture holds four knobs of four distinct colours
// and the read-outs show what the engine holds.
TEST(KnobDemo, ShowsFourKnobsOfFourLooksWithTheEnginesValues)
{
    const QString picture = QStringLiteral(SONOPTIC_TEST_TMP "/knob_demo.png");
    QFile::remove(picture);
    QProcess demo;
    demo.start(QStringLiteral(SONOPTIC_KNOB_DEMO), {QStringLiteral("--screenshot"), picture});
    ASSERT_TRUE(demo.waitForFinished(60000));
    ASSERT_EQ(demo.exitCode(), 0) << demo.readAllStandardError().toStdString();
    const QString out = QString::fromUtf8(demo.readAllStandardOutput());
    EXPECT_TRUE(out.contains("Density: frame 30, value 1.00")) << out.toStdString();
    EXPECT_TRUE(out.contains("Decay Time: frame 2, value 1.49")) << out.toStdString();
    EXPECT_TRUE(out.contains("HF Ratio: frame 11, value 0.83")) << out.toStdString();

    QImage image(picture);
    ASSERT_FALSE(image.isNull());
    // The mean colour of each knob: four looks, four clearly different colours.
    std::vector<QColor> means;
    for (int r = 0; r < KnobDemoPanel::kKnobs; ++r) {
        const QRect knob(30 + 78 * r + 5, 46, 24, 25);
        double red = 0, green = 0, blue = 0;
        for (int y = knob.top(); y <= knob.bottom(); ++y)
            for (int x = knob.left(); x <= knob.right(); ++x) {
                const QColor c = image.pixelColor(x, y);
                red += c.red();
                green += c.green();
                blue += c.blue();
            }
        const double n = knob.width() * knob.height();
        means.emplace_back(int(red / n), int(green / n), int(blue / n));
    }
    for (int a = 0; a < 4; ++a)
        for (int b = a + 1; b < 4; ++b) {
            const int distance = std::abs(means[a].red() - means[b].red()) +
                                 std::abs(means[a].green() - means[b].green()) +
                                 std::abs(means[a].blue() - means[b].blue());
            EXPECT_GT(distance, 30) << "looks " << a << " and " << b;
        }
}

} // namespace
