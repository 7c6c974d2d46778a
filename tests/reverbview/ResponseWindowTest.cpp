// The response graph in its window over a live slot: what the pixels show, which faces are drawn,
// the rotation by the mouse, the check boxes, and the bridge's feeding of the window.
#include "tests/controls/LiveReverb.h"

#include "controls/ControlId.h"
#include "engine/EFX_EffectSlot.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/MeasuredDecayView.h"
#include "reverbview/ResponseRender.h"
#include "reverbview/ResponseView.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <memory>
#include <vector>

using namespace controls_test;

namespace {

class ResponseWindowTest : public LiveReverbTest {
protected:
    void SetUp() override
    {
        LiveReverbTest::SetUp();
        // The drawing's switches and angles outlive a window: each case starts from the program's start.
        SetViewRotationX(38.0f);
        SetViewRotationY(-12.0f);
        for (auto setter : {&SetRenderRearPanel, &SetRenderEarly, &SetRenderLate})
            setter(1);
        for (auto setter : {&SetRenderHFPlane, &SetRenderLFPlane, &SetWireRearPanel, &SetWireEarly, &SetWireLate})
            setter(0);
        parent.setGeometry(50, 50, 300, 200);
        window = new C3DReverbResponseDlg(&parent);
        bridge->SetResponseWindow(window);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    }

    void TearDown() override
    {
        SetResponseFaceRecorder({});
        delete window;
        LiveReverbTest::TearDown();
    }

    EFX_EffectSlot* Slot() { return bridge->GetFactory()->GetEffectSlot(0); }

    // The colour at the point of the scene, through the matrices of the last drawing.
    QColor PixelAt(const ResponsePoint& point)
    {
        const QImage image = window->GLView->grabFramebuffer();
        window->GLView->makeCurrent();
        GLdouble model[16], projection[16];
        GLint viewport[4];
        glGetDoublev(GL_MODELVIEW_MATRIX, model);
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        glGetIntegerv(GL_VIEWPORT, viewport);
        GLdouble x = 0, y = 0, z = 0;
        gluProject(point.x, point.y, point.z, model, projection, viewport, &x, &y, &z);
        window->GLView->doneCurrent();
        return image.pixelColor(static_cast<int>(x), image.height() - 1 - static_cast<int>(y));
    }

    static ResponsePoint Mid(std::initializer_list<ResponsePoint> points)
    {
        ResponsePoint sum;
        for (const ResponsePoint& p : points) {
            sum.x += p.x / points.size();
            sum.y += p.y / points.size();
            sum.z += p.z / points.size();
        }
        return sum;
    }

    // Every face of one drawing.
    std::vector<ResponseFace> Faces()
    {
        std::vector<ResponseFace> faces;
        window->Refresh();
        SetResponseFaceRecorder([&faces](const ResponseFace& face) { faces.push_back(face); });
        window->GLView->grabFramebuffer();
        SetResponseFaceRecorder({});
        return faces;
    }

    void Click(int id) { FindControlAs<QCheckBox>(window, id)->click(); }

    QWidget parent;
    C3DReverbResponseDlg* window = nullptr;
};

bool Red(const QColor& c) { return c.red() > 2 * c.green() && c.red() > 2 * c.blue(); }
bool Blue(const QColor& c) { return c.blue() > 2 * c.red() && c.blue() > c.green(); }
bool Grey(const QColor& c) { return c.red() > 40 && std::abs(c.red() - c.green()) < 12 && std::abs(c.red() - c.blue()) < 12; }
bool OnRightWall(const ResponseFace& face)
{
    for (int i = 0; i < face.corners; ++i)
        if (face.points[i].x != ResponseTimeExtent)
            return false;
    return true;
}

TEST_F(ResponseWindowTest, TheSlabIsRedTheWedgeBlueTheWallGreyAndTheSkyBlack)
{
    // Long delays and strong reflections pull the slab out from under the wedge.
    ASSERT_EQ(Slot()->SetEAXReverbReflectionsDelay(0.3f), 1);
    ASSERT_EQ(Slot()->SetEAXReverbLateReverbDelay(0.1f), 1);
    ASSERT_EQ(Slot()->SetEAXReverbReflectionsGain(3.16f), 1);
    ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);
    EXPECT_FLOAT_EQ(window->Params.ReflectionsDelay, 0.3f);
    window->GLView->grabFramebuffer(); // the scene is built as the graph is drawn

    const ResponseScene& s = GetResponseScene();
    const int m = s.Rows / 2;
    const ResponsePoint slabTop = Mid({s.EarlyStartTop[m], s.EarlyEndTop[m], s.EarlyStartTop[m + 1], s.EarlyEndTop[m + 1]});
    // Along the decay surface, past the slab: 0.6 of the way from the wedge's top to its foot.
    const ResponsePoint& foot = s.LateFloorPoint[m].x <= ResponseTimeExtent ? s.LateFloorPoint[m] : s.LateWallPoint[m];
    const ResponsePoint& top = s.LateStartTop[m];
    const ResponsePoint decay{top.x + 0.6f * (foot.x - top.x), top.y + 0.6f * (foot.y - top.y), top.z};
    EXPECT_TRUE(Red(PixelAt(slabTop))) << PixelAt(slabTop).name().toStdString();
    EXPECT_TRUE(Blue(PixelAt(decay))) << PixelAt(decay).name().toStdString();
    EXPECT_TRUE(Grey(PixelAt({1.8f, 0.9f, 0.0f}))) << PixelAt({1.8f, 0.9f, 0.0f}).name().toStdString();
    const QImage image = window->GLView->grabFramebuffer();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(image.width() - 2, 1), QColor(Qt::black));

    Click(res::IDC_EARLY_RENDER);
    EXPECT_EQ(window->EarlyRenderState, 0);
    EXPECT_TRUE(Grey(PixelAt(slabTop))) << PixelAt(slabTop).name().toStdString();
}

TEST_F(ResponseWindowTest, ALongLowDecayLeavesThroughTheWallInOneStripWithAPentagon)
{
    ASSERT_EQ(Slot()->SetEAXReverbDecayTime(20.0f), 1);
    ASSERT_EQ(Slot()->SetEAXReverbDecayHfratio(0.1f), 1);
    ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);

    struct Variant {
        const char* name;
        int render, wire;
        bool wallFaces;
    };
    for (const Variant& v : {Variant{"solid rear panel", 1, 0, false}, Variant{"no rear panel", 0, 0, true},
                             Variant{"wire rear panel", 1, 1, true}}) {
        SCOPED_TRACE(v.name);
        window->RearRenderState = v.render;
        SetWireRearPanel(v.wire);
        const std::vector<ResponseFace> faces = Faces();
        const ResponseScene& s = GetResponseScene();
        int pentagons = 0;
        int wallTriangles = 0;
        for (const ResponseFace& face : faces) {
            if (face.object != ResponseObject::Late)
                continue;
            wallTriangles += face.corners == 3 && OnRightWall(face);
            if (face.corners != 5)
                continue;
            ++pentagons;
            // The cut lies between the two rows of its strip, where the foot crosses x = 2.
            const ResponsePoint& cut = face.points[3];
            EXPECT_EQ(cut.x, ResponseTimeExtent);
            int strip = -1;
            for (int i = 0; i + 1 < s.Rows; ++i)
                if (face.points[0].z == s.LateStartTop[i].z)
                    strip = i;
            ASSERT_GE(strip, 0);
            const float f0 = s.LateFloorPoint[strip].x;
            const float f1 = s.LateFloorPoint[strip + 1].x;
            EXPECT_TRUE((f0 - 2.0f) * (f1 - 2.0f) < 0) << f0 << " " << f1;
            EXPECT_GT(cut.z, std::min(s.LateStartTop[strip].z, s.LateStartTop[strip + 1].z));
            EXPECT_LT(cut.z, std::max(s.LateStartTop[strip].z, s.LateStartTop[strip + 1].z));
        }
        EXPECT_EQ(pentagons, 1);
        EXPECT_EQ(wallTriangles, v.wallFaces ? 1 : 0);
    }
}

TEST_F(ResponseWindowTest, TheDefaultReverbHasNoRightWallFaceAndASolidPanelDropsTheEndFaces)
{
    ASSERT_EQ(bridge->RefreshEAXReverb(0), 1);
    auto count = [](const std::vector<ResponseFace>& faces, auto&& test) {
        return std::count_if(faces.begin(), faces.end(), test);
    };
    auto backFace = [](const ResponseFace& f) { return f.normal[2] == -1.0 && f.object == ResponseObject::Early; };
    const float rowZero = GetResponseScene().LateStartTop[0].z;
    auto lateRowZero = [rowZero](const ResponseFace& f) {
        return f.object == ResponseObject::Late && f.corners == 3 && f.points[0].z == rowZero &&
               f.points[1].z == rowZero && f.points[2].z == rowZero;
    };
    const auto solid = Faces();
    EXPECT_EQ(count(solid, OnRightWall), 1); // the rear panel's own wall, and no face of the wedge
    EXPECT_EQ(count(solid, backFace), 0);
    EXPECT_EQ(count(solid, lateRowZero), 0);

    window->RearRenderState = 0;
    const auto open = Faces();
    EXPECT_EQ(count(open, OnRightWall), 0);
    EXPECT_EQ(count(open, backFace), 1);
    EXPECT_EQ(count(open, lateRowZero), 1);
}

TEST_F(ResponseWindowTest, DraggingTurnsFivePixelsADegreeAndANewWindowKeepsTheAnglesAndTheWireFrame)
{
    const QPoint start(200, 200);
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, start + QPoint(25, 50));
    QTest::mouseRelease(window, Qt::LeftButton, {}, start + QPoint(25, 50));
    EXPECT_FLOAT_EQ(GetViewRotationX(), 48.0f);
    EXPECT_FLOAT_EQ(GetViewRotationY(), -7.0f);

    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, start + QPoint(0, -3));
    QTest::mouseRelease(window, Qt::LeftButton, {}, start + QPoint(0, -3));
    EXPECT_FLOAT_EQ(GetViewRotationX(), 47.4f);

    // A move with no button held turns nothing and draws the graph again.
    QTest::qWait(50);
    int faces = 0;
    SetResponseFaceRecorder([&faces](const ResponseFace&) { ++faces; });
    QTest::mouseMove(window, start + QPoint(40, 40));
    // The paint comes with the event loop, later on a busy machine: it is waited for, not timed.
    QTRY_VERIFY_WITH_TIMEOUT(faces > 0, 5000);
    SetResponseFaceRecorder({});
    EXPECT_FLOAT_EQ(GetViewRotationX(), 47.4f);

    // The angles and a wire frame outlive the window; the new window's box shows the wire frame off.
    Click(res::IDC_LATE_WIRE);
    EXPECT_EQ(window->LateWireState, 1);
    delete window;
    window = new C3DReverbResponseDlg(&parent);
    EXPECT_FLOAT_EQ(window->RotationX, 47.4f);
    EXPECT_FLOAT_EQ(window->RotationY, -7.0f);
    EXPECT_FALSE(FindControlAs<QCheckBox>(window, res::IDC_LATE_WIRE)->isChecked());
    EXPECT_TRUE(FindControlAs<QCheckBox>(window, res::IDC_LATE_RENDER)->isChecked());
    EXPECT_FALSE(FindControlAs<QCheckBox>(window, res::IDC_HF_PLANE)->isChecked());
    // With the planes off, the wedge is the last solid drawn: its polygons are still lines.
    window->GLView->grabFramebuffer();
    window->GLView->makeCurrent();
    GLint modes[2] = {0, 0};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    window->GLView->doneCurrent();
    EXPECT_EQ(modes[0], GL_LINE);
}

TEST_F(ResponseWindowTest, TheBridgeFeedsTheWindowForReverbSlotsOnly)
{
    ASSERT_EQ(bridge->CreateSlot(), 1u);
    ASSERT_EQ(bridge->LoadSlotEffect(1, kEffectEAXReverb), 1);
    ASSERT_EQ(bridge->CreateSlot(), 2u);
    ASSERT_EQ(bridge->LoadSlotEffect(2, kEffectEcho), 1);

    // The decay time turned through the bridge's own value changes the picture.
    CEFXFloatValObs* decay = BridgeTables().ReverbValues[1][kDecayParam];
    bridge_test::Bind(decay, kDecayLow, kDecayHigh, 5, 1, kDecayParam);
    decay->SetValue(1.0);
    const QImage before = window->GLView->grabFramebuffer();
    decay->SetValue(12.0);
    EXPECT_EQ(window->windowTitle(), "Reverberation Response Graph for slot 1");
    EXPECT_FLOAT_EQ(window->Params.DecayTime, 12.0f);
    EXPECT_NE(window->GLView->grabFramebuffer(), before);

    EXPECT_EQ(bridge->RefreshEAXReverb(2), 0);
    EXPECT_EQ(window->windowTitle(), "Reverberation Response Graph for slot 1");
    EXPECT_FLOAT_EQ(window->Params.DecayTime, 12.0f);

    // A standard reverb puts its reference planes at 5000 and 250 Hz.
    ASSERT_EQ(bridge->LoadSlotEffect(2, kEffectReverb), 1);
    ASSERT_EQ(bridge->RefreshReverb(2), 1);
    EXPECT_EQ(window->windowTitle(), "Reverberation Response Graph for slot 2");
    window->GLView->grabFramebuffer();
    EXPECT_FLOAT_EQ(GetResponseScene().HFRefPlane[0].z, FrequencyToAxis(5000.0f));
    EXPECT_FLOAT_EQ(GetResponseScene().LFRefPlane[0].z, FrequencyToAxis(250.0f));
}

// The number that a "T30 measured: 1.23 s" label shows; 0 while it shows none.
double MeasuredSeconds(const C3DReverbResponseDlg& window)
{
    const QString text = window.Measured->MeasuredLabel->text();
    bool ok = false;
    const double value = text.section(' ', 2, 2).toDouble(&ok);
    return ok ? value : 0;
}

TEST_F(ResponseWindowTest, TheMeasuredDecayFollowsTheKnobOffTheWindowsThreadAndShowsTheLatestSetting)
{
    // Each turn of the decay knob hands the window the engine's reverb; it returns before measuring it.
    CEFXFloatValObs* decay = Decay();
    decay->SetValue(2.0);
    EXPECT_EQ(window->Measured->MeasuredLabel->text(), "T30 measured: measuring...");
    EXPECT_EQ(window->Measured->SetLabel->text(), "Decay time set: 2.00 s");
    QTRY_VERIFY_WITH_TIMEOUT(!window->Measured->Busy() && MeasuredSeconds(*window) > 0, 20000);
    EXPECT_NEAR(MeasuredSeconds(*window), 2.0, 0.3);
    EXPECT_FALSE(window->Measured->Last().curveMs.empty());

    // Two settings in a row: the view ends on the second.
    decay->SetValue(0.5);
    decay->SetValue(5.0);
    QTRY_VERIFY_WITH_TIMEOUT(!window->Measured->Busy() && MeasuredSeconds(*window) > 3, 30000);
    EXPECT_NEAR(MeasuredSeconds(*window), 5.0, 0.75);
    EXPECT_EQ(window->Measured->SetLabel->text(), "Decay time set: 5.00 s");
}

} // namespace
