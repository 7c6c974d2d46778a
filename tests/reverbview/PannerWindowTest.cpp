// The reverb panner over a live EAX reverb: rings drawn from the engine's vectors, presses that pick
// a ring and send both vectors, the read-back on release, and the closing that takes the response
// window with it.
#include "tests/controls/LiveReverb.h"

#include "controls/ControlId.h"
#include "engine/EFX_EffectSlot.h"
#include "positionview/WidgetPresenter.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/FXPanner.h"
#include "reverbview/Panner.h"

#include <QPushButton>
#include <QTest>

#include <cmath>

using namespace controls_test;

namespace {

class PannerWindowTest : public LiveReverbTest {
protected:
    void SetUp() override
    {
        LiveReverbTest::SetUp();
        parent.setGeometry(100, 100, 360, 220);
        parent.show();
        panner = new FXPanner(0, &parent);
        panner->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent));
        ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);
        console.lines.clear();
    }

    void TearDown() override
    {
        delete panner;
        LiveReverbTest::TearDown();
    }

    QWidget* View() { return FindControl(panner, res::IDC_PANNER_VIEW); }

    // The picture's colour at a point of the view given with y up from its centre, as the panner draws.
    QColor At(int dx, int up)
    {
        const QImage& frame = panner->Presenter()->Frame();
        return frame.pixelColor(panner->CenterX + dx, frame.height() - 1 - (panner->CenterY + up));
    }

    // A press of a button at a point of the view (y down, window coordinates) and the release there.
    void Press(Qt::MouseButton button, QPoint inView, bool release = true)
    {
        const QPoint point = View()->mapTo(panner, inView);
        QTest::mousePress(panner, button, {}, point);
        if (release)
            QTest::mouseRelease(panner, button, {}, point);
    }

    std::array<float, 3> Pan(bool late)
    {
        std::array<float, 3> v{};
        if (late)
            Slot()->GetEAXReverbLateReverbPan(v.data());
        else
            Slot()->GetEAXReverbReflectionsPan(v.data());
        return v;
    }

    EFX_EffectSlot* Slot() { return bridge->GetFactory()->GetEffectSlot(0); }

    QWidget parent;
    FXPanner* panner = nullptr;
};

bool IsColour(const QColor& c, std::uint32_t rgb)
{
    return c.rgb() == (0xFF000000u | rgb);
}

TEST_F(PannerWindowTest, ZeroVectorsFromTheEngineDrawTwoFullRings)
{
    EXPECT_EQ(panner->ReflectionsPanner->ArcWidth, 360);
    EXPECT_EQ(panner->LatePanner->Angle, 0);
    // Round both bands, every 30 degrees, the middle of the band is in its colour.
    // (Off the cross hairs, which cut the bands at every right angle.)
    for (int degrees = 15; degrees < 360; degrees += 30) {
        const double a = degrees * 3.1415926535 / 180;
        const int inner = panner->InnerRadius + 7;
        const int outer = panner->OuterRadius + 7;
        EXPECT_TRUE(IsColour(At(int(std::sin(a) * inner), int(std::cos(a) * inner)), FXPanner::kRed)) << degrees;
        EXPECT_TRUE(IsColour(At(int(std::sin(a) * outer), int(std::cos(a) * outer)), FXPanner::kBlue)) << degrees;
    }
}

TEST_F(PannerWindowTest, PressesOnTheRingsSendBothVectorsReflectionsFirstAndTheReleaseReadsThemBack)
{
    const int cx = panner->CenterX;
    const int cy = panner->CenterY;
    const int d = panner->InnerRadius + 4; // on the reflections ring's zone, above the centre
    Press(Qt::RightButton, QPoint(cx, cy - d), false);
    const float m = float(d - panner->HubRadius) / float(panner->MaxRadius - panner->HubRadius);
    ASSERT_EQ(console.lines.size(), 2u);
    EXPECT_NE(console.lines[0].find("REFLECTIONS_PAN"), std::string::npos) << console.lines[0];
    EXPECT_NE(console.lines[1].find("LATE_REVERB_PAN"), std::string::npos) << console.lines[1];
    auto reflections = Pan(false);
    EXPECT_FLOAT_EQ(reflections[0], 0.0f);
    EXPECT_FLOAT_EQ(reflections[2], m);
    EXPECT_EQ(panner->ReflectionsPanner->Angle, 0);
    // The release reads the vector back: straight up comes back a degree to the right.
    QTest::mouseRelease(panner, Qt::RightButton, {}, View()->mapTo(panner, QPoint(cx, cy - d)));
    EXPECT_EQ(panner->ReflectionsPanner->Angle, 1);
    EXPECT_NEAR(panner->ReflectionsPanner->Magnitude, m, 1e-6);

    // A left press right of the centre turns it to the right: (m, 0, ~0).
    Press(Qt::LeftButton, QPoint(cx + d, cy));
    reflections = Pan(false);
    EXPECT_NEAR(reflections[0], m, 1e-6);
    EXPECT_NEAR(reflections[2], 0.0f, 1e-6);
    EXPECT_EQ(panner->ActiveRing, FXPanner::kReflectionsRing);
}

TEST_F(PannerWindowTest, AnUpwardVectorFromTheEngineStandsADegreeRightOfVertical)
{
    const float up[3] = {0, 0, 1};
    const float left[3] = {-0.5f, 0, 0}; // the late line, drawn later, must not cover the red one
    ASSERT_EQ(Slot()->SetEAXReverbReflectionsPan(up), 1);
    ASSERT_EQ(Slot()->SetEAXReverbLateReverbPan(left), 1);
    ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);
    EXPECT_EQ(panner->ReflectionsPanner->Angle, 1);
    EXPECT_EQ(panner->LatePanner->Angle, 270);
    // The red line goes up (a degree is less than a pixel at this radius), showing between the
    // dashes of the cross hair; nothing red lies to the right of the centre.
    int redUp = 0;
    int redRight = 0;
    for (int r = panner->HubRadius + 1; r < panner->InnerRadius; ++r) {
        redUp += IsColour(At(0, r), FXPanner::kRed);
        redRight += IsColour(At(r, 0), FXPanner::kRed);
    }
    EXPECT_GT(redUp, 5);
    EXPECT_EQ(redRight, 0);
}

TEST_F(PannerWindowTest, PressesExactlyOnTheRadiiPickNoRingAndTheActiveRingGoesOnFromTheHub)
{
    const int cx = panner->CenterX;
    const int cy = panner->CenterY;
    Press(Qt::LeftButton, QPoint(cx, cy - panner->OuterRadius - 5)); // the late zone
    ASSERT_EQ(panner->ActiveRing, FXPanner::kLateRing);
    for (int radius : {panner->InnerRadius, panner->OuterRadius, panner->OuterRadius + 15}) {
        Press(Qt::LeftButton, QPoint(cx - radius, cy));
        EXPECT_EQ(panner->ActiveRing, FXPanner::kLateRing) << radius;
    }
    // A left drag on the hub turns the late arc.
    Press(Qt::LeftButton, QPoint(cx + 2, cy + 2), false);
    EXPECT_EQ(panner->LatePanner->Angle, 135);
    QTest::mouseRelease(panner, Qt::LeftButton, {}, View()->mapTo(panner, QPoint(cx + 2, cy + 2)));
    // A right press in the hub gives it no length: a full ring.
    Press(Qt::RightButton, QPoint(cx + 1, cy));
    EXPECT_EQ(panner->LatePanner->ArcWidth, 360);
    EXPECT_FLOAT_EQ(Pan(true)[2], 0.0f);
}

TEST_F(PannerWindowTest, ClosingThePannerTakesTheResponseWindowAndBothBridgeEntries)
{
    FindControlAs<QPushButton>(panner, res::IDC_SHOW_RESPONSE_WINDOW)->click();
    auto* window = dynamic_cast<C3DReverbResponseDlg*>(bridge->GetResponseWindow());
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->parentWidget(), &parent);
    EXPECT_EQ(window->windowTitle(), "Reverberation Response Graph for slot 0");
    // Its close box hides it; the button brings the same window back.
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(bridge->GetResponseWindow(), window);
    FindControlAs<QPushButton>(panner, res::IDC_SHOW_RESPONSE_WINDOW)->click();
    EXPECT_EQ(bridge->GetResponseWindow(), window);
    EXPECT_TRUE(window->isVisible());

    QPointer<C3DReverbResponseDlg> watch(window);
    delete panner;
    panner = nullptr;
    EXPECT_TRUE(watch.isNull());
    EXPECT_EQ(bridge->GetResponseWindow(), nullptr);
    EXPECT_EQ(bridge->RefreshEAXReverb(0), 1); // reaches neither window, and nothing breaks
}

TEST_F(PannerWindowTest, APannerOverASlotWithoutAnEAXReverbLogsTheEnginesRefusals)
{
    ASSERT_EQ(bridge->LoadSlotEffect(0, kEffectChorus), 1);
    console.lines.clear();
    Press(Qt::LeftButton, QPoint(panner->CenterX + 30, panner->CenterY));
    ASSERT_EQ(console.lines.size(), 2u);
    EXPECT_NE(console.lines[0].find("Error"), std::string::npos) << console.lines[0];
}

} // namespace
