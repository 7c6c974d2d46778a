// The position window over a live engine: what each plane draws where (read from the pixels of the
// view), that it follows every change of a source or the listener by itself, the drags of a source,
// the listener and its orientation with their hit order, the zoom's position limits, and a window
// opened before there is any context.
#include "tests/values/BridgeTestSupport.h"

#include "controls/CXTabCtrl.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "panels/Source3D_Panel.h"
#include "positionview/CEFXSrcPosDlg.h"
#include "resources/ResourceIds.h"
#include "shell/CEFXListSrcDlg.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSlider>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

using bridge_test::SourcePeek;

namespace {

const QColor kYellow = WindowsColour(51184);
const QColor kRed = WindowsColour(240);
const QColor kGreen = WindowsColour(61440);
const QColor kGrey = WindowsColour(10459295);
const QColor kNameColour = WindowsColour(0xF0C000);
const QColor kBlack(0, 0, 0);
constexpr ViewPixel kCentre{180, 180};

// How many pixels of the area show the colour, as it is or blended onto black by the text's edges:
// each channel the same fraction of the colour's, the fraction at least a half.
int CountOf(const QImage& image, QRect area, const QColor& colour)
{
    int count = 0;
    area &= image.rect();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            const double share = static_cast<double>(std::max({pixel.red(), pixel.green(), pixel.blue()})) /
                                 std::max({colour.red(), colour.green(), colour.blue()});
            if (share < 0.5)
                continue;
            const bool alike = std::abs(pixel.red() - share * colour.red()) < 16 &&
                               std::abs(pixel.green() - share * colour.green()) < 16 &&
                               std::abs(pixel.blue() - share * colour.blue()) < 16;
            count += alike ? 1 : 0;
        }
    }
    return count;
}

class PositionWindowTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        window = std::make_unique<CEFXSrcPosDlg>();
        window->InitDialog();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override
    {
        window.reset();
        sources.reset();
        BridgeTest::TearDown();
    }

    // The context/source window: it makes the context; its tabs hold the source panels.
    void OpenContext()
    {
        sources = std::make_unique<CEFXListSrcDlg>(nullptr);
        sources->InitDialog();
    }

    int AddSource(const char* name, float x, float y, float z)
    {
        const std::string path = scratch.File("tone.wav");
        engine_test::WriteFile(path, engine_test::SmallMonoWave(256));
        sources->AddSourceFile(QString::fromLocal8Bit(path.c_str()), QString::fromLatin1(name));
        const int index = sources->SourceCount() - 1;
        bridge->MoveSource(index, x, y, z);
        return index;
    }

    void ChoosePlane(int id) { FindControlAs<QAbstractButton>(window.get(), id)->click(); }

    // The view as painted now, and as the screen shows it (which changes only if the window painted).
    QImage Frame() { return window->View->grab().toImage(); }
    QImage OnScreen()
    {
        QTest::qWait(30);
        const QPoint at = window->View->mapToGlobal(QPoint(0, 0));
        return window->screen()->grabWindow(0, at.x(), at.y(), window->View->width(), window->View->height()).toImage();
    }
    static ViewPixel Offset(ViewPixel p, int dx, int dy) { return {p.x + dx, p.y + dy}; }
    static bool IsDot(const QImage& image, ViewPixel p, const QColor& colour)
    {
        return image.pixelColor(p.x, p.y) == colour && image.pixelColor(p.x + 2, p.y - 2) == colour;
    }

    QPoint InDialog(ViewPixel p) const { return window->View->geometry().topLeft() + QPoint(p.x, p.y); }
    void Press(ViewPixel p) { QTest::mousePress(window.get(), Qt::LeftButton, {}, InDialog(p)); }
    void MoveTo(ViewPixel p)
    {
        QMouseEvent move(QEvent::MouseMove, InDialog(p), window->mapToGlobal(InDialog(p)), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(window.get(), &move);
    }
    void Release(ViewPixel p) { QTest::mouseRelease(window.get(), Qt::LeftButton, {}, InDialog(p)); }
    void Drag(ViewPixel from, ViewPixel to)
    {
        Press(from);
        MoveTo(to);
        Release(to);
    }

    void Position(int source, float position[3])
    {
        alGetSource3f(SourcePeek::Source(bridge->GetSource(source)), AL_POSITION, &position[0], &position[1], &position[2]);
    }
    double Shown(QWidget* control)
    {
        return QAccessible::queryAccessibleInterface(control)->valueInterface()->currentValue().toDouble();
    }
    void Turn(QWidget* control, double value)
    {
        QAccessible::queryAccessibleInterface(control)->valueInterface()->setCurrentValue(value);
    }
    QWidget* SourceKnob(int source, int id) { return FindControl(sources->SourcePanel(source), id); }

    std::unique_ptr<CEFXListSrcDlg> sources;
    std::unique_ptr<CEFXSrcPosDlg> window;
};

constexpr int kPositionX = 1075;

TEST_F(PositionWindowTest, EachPlaneDrawsTheAxisTheSourcesTheirNamesTheListenerAndItsRing)
{
    // Texts are drawn on black boxes of their own, as they cover what lies under them: the listener
    // stands aside, at (-5, -5, -5), so that its label leaves the axis mark and the sources be.
    struct PlaneCase {
        int radio;
        ViewPixel named;    // the source at (2, 1, 1)
        ViewPixel unnamed;  // the source at (-3, 3, -3)
        ViewPixel listener;
        ViewPixel ring;     // the handle of the default "at" (0, 0, -1)
    };
    const PlaneCase planes[] = {
        {res::IDC_PLANE_TOP, {220, 200}, {120, 120}, {80, 80}, {80, 55}},
        {res::IDC_PLANE_SIDE, {160, 160}, {240, 120}, {280, 280}, {305, 280}},
        {res::IDC_PLANE_REAR, {220, 160}, {120, 120}, {80, 280}, {80, 280}}, // the ring on the listener
    };
    OpenContext();
    bridge->MoveListener(-5, -5, -5);
    for (const PlaneCase& plane : planes) {
        SCOPED_TRACE(plane.radio);
        ChoosePlane(plane.radio);
        const QImage frame = Frame();
        const AxisMark& mark = AxisMarkOf(window->Plane);
        EXPECT_GT(CountOf(frame, QRect(kCentre.x + mark.firstAt.x, kCentre.y + mark.firstAt.y, 20, 16), kGrey), 3);
        EXPECT_GT(CountOf(frame, QRect(kCentre.x + mark.secondAt.x, kCentre.y + mark.secondAt.y, 20, 16), kGrey), 3);
        EXPECT_EQ(frame.pixelColor(kCentre.x + mark.lineX / 2, kCentre.y), kGrey);
        EXPECT_EQ(frame.pixelColor(kCentre.x, kCentre.y + mark.lineY / 2), kGrey);
        EXPECT_GT(CountOf(frame, QRect(plane.listener.x + 5, plane.listener.y + 10, 50, 16), kRed), 10); // "listener"
        if (plane.ring.x != plane.listener.x || plane.ring.y != plane.listener.y) {
            EXPECT_TRUE(IsDot(frame, plane.listener, kRed));
        }
        // The ring: hollow on black, green at its edge.
        EXPECT_EQ(frame.pixelColor(plane.ring.x, plane.ring.y), kBlack);
        EXPECT_EQ(frame.pixelColor(plane.ring.x - 4, plane.ring.y), kGreen);
    }

    AddSource("alpha", 2, 1, 1);
    AddSource("", -3, 3, -3);
    for (const PlaneCase& plane : planes) {
        SCOPED_TRACE(plane.radio);
        ChoosePlane(plane.radio);
        const QImage frame = Frame();
        EXPECT_TRUE(IsDot(frame, plane.named, kYellow));
        EXPECT_EQ(frame.pixelColor(plane.named.x + 6, plane.named.y), kBlack);
        EXPECT_GT(CountOf(frame, QRect(plane.named.x - 5, plane.named.y - 24, 40, 18), kNameColour), 3);
        EXPECT_TRUE(IsDot(frame, plane.unnamed, kYellow));
        EXPECT_EQ(CountOf(frame, QRect(plane.unnamed.x - 10, plane.unnamed.y - 30, 50, 24), kNameColour), 0);
    }
    EXPECT_EQ(window->Plane, PlaneRear);
    EXPECT_FALSE(FindControlAs<QAbstractButton>(window.get(), res::IDC_PLANE_TOP)->isChecked());
}

TEST_F(PositionWindowTest, EveryChangeOfASourceShowsOnScreenWithoutAsking)
{
    OpenContext();
    bridge->MoveListener(-5, -5, -5);
    AddSource("one", 0, 0, 0);
    const int two = AddSource("two", 0, 0, 0);
    bridge->SetSourceToFront(two);
    // "Set to front" and the write-back of a new source: two stands at (0, 0, -1).
    EXPECT_TRUE(IsDot(OnScreen(), Offset(kCentre, 0, -20), kYellow));

    // A position set by OpenAL's own call shows at the next paint.
    alSource3f(SourcePeek::Source(bridge->GetSource(0)), AL_POSITION, 1, 0, 0);
    window->View->repaint();
    EXPECT_TRUE(IsDot(OnScreen(), Offset(kCentre, 20, 0), kYellow));

    // A knob turned on the source panel, with no call of the test's own to the window.
    Turn(SourceKnob(two, kPositionX), 3.0);
    float turned[3] = {};
    Position(two, turned);
    ASSERT_GT(turned[0], 2.0f);
    const ViewPixel twoAt = WorldToScreen(PlaneTop, 20.0f, turned, {0, 0, 360, 360});
    EXPECT_TRUE(IsDot(OnScreen(), twoAt, kYellow));

    // A third source, then the first deleted: its dot goes, the others' names move with their numbers.
    AddSource("three", -4, 0, 4);
    sources->Tabs()->SelectTabForced(1);
    sources->DeleteSource();
    const QImage after = OnScreen();
    EXPECT_EQ(after.pixelColor(kCentre.x + 22, kCentre.y - 2), kBlack); // the first dot, off the axis line
    EXPECT_TRUE(IsDot(after, twoAt, kYellow));
    EXPECT_TRUE(IsDot(after, {kCentre.x - 80, kCentre.y + 80}, kYellow));
    EXPECT_STREQ(bridge->GetSourceName(0), "two");
    EXPECT_GT(CountOf(after, QRect(twoAt.x - 5, twoAt.y - 24, 40, 18), kNameColour), 3);
}

TEST_F(PositionWindowTest, DraggingASourceWritesTheTwoAxesOfThePlaneAndNothingClampsIt)
{
    OpenContext();
    bridge->MoveListener(-5, -5, -5);
    const int source = AddSource("dragged", 0, 0.1234567f, 0);
    float before[3] = {};
    Position(source, before);
    Drag(kCentre, Offset(kCentre, 40, 20));
    float after[3] = {};
    Position(source, after);
    EXPECT_FLOAT_EQ(after[0], 2.0f);
    EXPECT_FLOAT_EQ(after[2], 1.0f);
    EXPECT_EQ(std::memcmp(&after[1], &before[1], sizeof(float)), 0);
    EXPECT_NEAR(Shown(SourceKnob(source, kPositionX)), 2.0, 1e-6);

    // At 100 pixels a unit the position limits are -2 and 2. Past the view's edge, over the window's
    // controls, the drag goes on beyond them: the source goes there, and the knob keeps its value.
    window->ZoomSlider->setValue(100);
    bridge->MoveSource(source, 1.5f, after[1], 0.5f);
    Drag(Offset(kCentre, 150, 50), Offset(kCentre, 205, 50));
    Position(source, after);
    EXPECT_FLOAT_EQ(after[0], 2.05f);
    EXPECT_NEAR(Shown(SourceKnob(source, kPositionX)), 1.5, 1e-6);
    window->ZoomSlider->setValue(20);
    EXPECT_TRUE(IsDot(Frame(), Offset(kCentre, 41, 10), kYellow));

    // A move outside the window does nothing; back over it, the drag goes on.
    Press(Offset(kCentre, 41, 10));
    MoveTo({-40, 20});
    Position(source, after);
    EXPECT_FLOAT_EQ(after[0], 2.05f);
    MoveTo(Offset(kCentre, -20, 20));
    Release(Offset(kCentre, -20, 20));
    Position(source, after);
    EXPECT_FLOAT_EQ(after[0], -1.0f);
}

TEST_F(PositionWindowTest, PressesHitWithinFourPixelsAndTheListenerComesFirst)
{
    OpenContext();
    AddSource("far", 5, 0, 5);
    // Four pixels off hits, five misses.
    Press({kCentre.x + 100 + 4, kCentre.y + 100 - 4});
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragSource);
    Press({kCentre.x + 100 + 5, kCentre.y + 100});
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragNone);

    // On the listener's pixel a source loses; in the rear plane the ring lies there too, and loses.
    AddSource("on the listener", 0, 0, 0);
    Press(kCentre);
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragListener);
    Press(Offset(kCentre, 0, -25));
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragOrientation);
    ChoosePlane(res::IDC_PLANE_REAR);
    Press(kCentre);
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragListener);
    Release(kCentre);

    // At one pixel a unit, all within one unit are one dot: the lowest number wins.
    ChoosePlane(res::IDC_PLANE_TOP);
    window->ZoomSlider->setValue(1);
    bridge->MoveListener(50, 0, 50);
    AddSource("third", 0.5f, 0, 0.5f);
    Press(kCentre);
    EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragSource);
    EXPECT_EQ(window->DragSourceIndex, 1);
    Release(kCentre);
}

TEST_F(PositionWindowTest, DraggingTheRingTurnsAtInThePlaneAndOnTheListenerSendsNotANumber)
{
    OpenContext();
    Drag(Offset(kCentre, 0, -25), Offset(kCentre, 30, 0));
    float orientation[6] = {};
    alGetListenerfv(AL_ORIENTATION, orientation);
    EXPECT_NEAR(orientation[0], 1.0f, 1e-6);
    EXPECT_NEAR(orientation[1], 0.0f, 1e-6);
    EXPECT_NEAR(orientation[2], 0.0f, 1e-6);
    EXPECT_EQ(std::vector<float>(orientation + 3, orientation + 6), (std::vector<float>{0, 1, 0})); // "up" as it was
    EXPECT_NEAR(BridgeTables().ListenerValues[4]->Value, 1.0f, 1e-6);
    const QImage turned = Frame();
    EXPECT_EQ(turned.pixelColor(kCentre.x + 25, kCentre.y), kBlack); // the ring now right of the listener
    EXPECT_EQ(turned.pixelColor(kCentre.x + 25 - 4, kCentre.y), kGreen);

    // Onto the listener's own pixel: not a number goes out unguarded; the knobs show what OpenAL keeps.
    Drag(Offset(kCentre, 25, 0), kCentre);
    alGetListenerfv(AL_ORIENTATION, orientation);
    for (int axis = 0; axis < 3; ++axis) {
        const float shown = BridgeTables().ListenerValues[4 + axis]->Value;
        EXPECT_TRUE(shown == orientation[axis] || (std::isnan(shown) && std::isnan(orientation[axis]))) << axis;
    }
    Frame(); // and it still draws
}

TEST_F(PositionWindowTest, TheZoomSetsTheScaleTheEditAndThePositionLimits)
{
    OpenContext();
    const int source = AddSource("zoomed", 0, 0, 0);
    struct ZoomCase {
        int position;
        const char* edit;
        float limit;
    };
    for (const ZoomCase& zoom : {ZoomCase{100, "100", 2}, ZoomCase{1, "1", 200}, ZoomCase{20, "20", 10}}) {
        SCOPED_TRACE(zoom.position);
        window->ZoomSlider->triggerAction(QAbstractSlider::SliderToMinimum);
        window->ZoomSlider->setValue(zoom.position);
        EXPECT_EQ(window->Scale, static_cast<float>(zoom.position));
        EXPECT_EQ(window->ScaleEdit->text(), zoom.edit);
        for (CEFXFloatValObs* value : {BridgeTables().SourceValues[source][4], BridgeTables().ListenerValues[1]}) {
            EXPECT_FLOAT_EQ(value->Minimum, -zoom.limit);
            EXPECT_FLOAT_EQ(value->Maximum, zoom.limit);
        }
    }
    // At 100 pixels a unit, a Position X of 10 is out of range: knob and engine stay.
    window->ZoomSlider->setValue(100);
    Turn(SourceKnob(source, kPositionX), 10.0);
    float position[3] = {};
    Position(source, position);
    EXPECT_EQ(position[0], 0.0f);
    EXPECT_NEAR(Shown(SourceKnob(source, kPositionX)), 0.0, 1e-6);
}

TEST_F(PositionWindowTest, BeforeAnyContextOnlyTheAxisShowsAndPressesDoNothing)
{
    const QImage frame = Frame();
    EXPECT_GT(CountOf(frame, frame.rect(), kGrey), 20);
    for (const QColor& colour : {kRed, kGreen, kYellow})
        EXPECT_EQ(CountOf(frame, frame.rect(), colour), 0);
    for (ViewPixel at : {kCentre, Offset(kCentre, 0, -25)}) {
        Press(at);
        EXPECT_EQ(window->DragMode, CEFXSrcPosDlg::DragNone);
        Release(at);
    }
}

} // namespace
