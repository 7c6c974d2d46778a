#include "reverbview/C3DReverbResponseDlg.h"

#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"
#include "reverbview/ResponseRender.h"
#include "reverbview/MeasuredDecayView.h"
#include "reverbview/ResponseView.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "values/UI_EFX_Bridge.h"

#include <QCheckBox>
#include <QLabel>
#include <QMouseEvent>

namespace {

// The eight boxes: the state each one writes and the switch of the drawing it sets.
struct CheckRow {
    int id;
    const char* caption;
    const char* row; // the row label beside it, which also completes its accessible name
    std::int32_t C3DReverbResponseDlg::*state;
    void (*setter)(int);
};

constexpr CheckRow kChecks[] = {
    {res::IDC_REAR_RENDER, "Render", "Rear Panel", &C3DReverbResponseDlg::RearRenderState, &SetRenderRearPanel},
    {res::IDC_REAR_WIRE, "Wire Frame", "Rear Panel", &C3DReverbResponseDlg::RearWireState, &SetWireRearPanel},
    {res::IDC_EARLY_RENDER, "Render", "Early Refl.", &C3DReverbResponseDlg::EarlyRenderState, &SetRenderEarly},
    {res::IDC_EARLY_WIRE, "Wire Frame", "Early Refl.", &C3DReverbResponseDlg::EarlyWireState, &SetWireEarly},
    {res::IDC_LATE_RENDER, "Render", "Late Reverb.", &C3DReverbResponseDlg::LateRenderState, &SetRenderLate},
    {res::IDC_LATE_WIRE, "Wire Frame", "Late Reverb.", &C3DReverbResponseDlg::LateWireState, &SetWireLate},
    {res::IDC_HF_PLANE, "Render HF Ref. Plane", "", &C3DReverbResponseDlg::HFPlaneState, &SetRenderHFPlane},
    {res::IDC_LF_PLANE, "Render LF Ref. Plane", "", &C3DReverbResponseDlg::LFPlaneState, &SetRenderLFPlane},
};

// The six boxes set from their states when the window is made, in this order; the plane boxes stay
// unchecked whatever the drawing's switches say.
constexpr int kCheckedAtStart[] = {res::IDC_EARLY_RENDER, res::IDC_LATE_RENDER, res::IDC_REAR_RENDER,
                                   res::IDC_REAR_WIRE, res::IDC_LATE_WIRE, res::IDC_EARLY_WIRE};

constexpr QSize kSize(860, 500);
constexpr QRect kMeasuredView(584, 28, 266, 380);
constexpr QRect kView(10, 28, 560, 380);

const ControlTemplate kTemplate[] = {
    {0, ControlKind::Static, "Early Reflections (magnified) and Late Reverberation:", QRect(10, 8, 400, 16)},
    {res::IDC_RESPONSE_VIEW, ControlKind::Static, "", kView},
    {0, ControlKind::Static, "Rear Panel", QRect(10, 420, 90, 18)},
    {0, ControlKind::Static, "Early Refl.", QRect(10, 442, 90, 18)},
    {0, ControlKind::Static, "Late Reverb.", QRect(10, 464, 90, 18)},
    {res::IDC_REAR_RENDER, ControlKind::CheckBox, "Render", QRect(100, 418, 80, 20)},
    {res::IDC_REAR_WIRE, ControlKind::CheckBox, "Wire Frame", QRect(180, 418, 100, 20)},
    {res::IDC_EARLY_RENDER, ControlKind::CheckBox, "Render", QRect(100, 440, 80, 20)},
    {res::IDC_EARLY_WIRE, ControlKind::CheckBox, "Wire Frame", QRect(180, 440, 100, 20)},
    {res::IDC_LATE_RENDER, ControlKind::CheckBox, "Render", QRect(100, 462, 80, 20)},
    {res::IDC_LATE_WIRE, ControlKind::CheckBox, "Wire Frame", QRect(180, 462, 100, 20)},
    {res::IDC_HF_PLANE, ControlKind::CheckBox, "Render HF Ref. Plane", QRect(320, 418, 200, 20)},
    {res::IDC_LF_PLANE, ControlKind::CheckBox, "Render LF Ref. Plane", QRect(320, 440, 200, 20)},
    {0, ControlKind::Static, "(mouse left click + drag to rotate the view)", QRect(320, 466, 260, 16)},
    {0, ControlKind::Static, "Measured on a rendered impulse:", QRect(584, 8, 266, 16)},
};

} // namespace

C3DReverbResponseDlg::C3DReverbResponseDlg(QWidget* parent)
    : CDialog(parent ? parent->window() : nullptr),
      RotationX(GetViewRotationX()),
      RotationY(GetViewRotationY())
{
    BuildDialog(this, "", kSize, kTemplate);
    // The template's static marks the graph's place; the OpenGL view takes it, and its number.
    QWidget* placeholder = FindControl(this, res::IDC_RESPONSE_VIEW);
    GLView = new ResponseView(&Params, this);
    GLView->setGeometry(placeholder->geometry());
    GLView->setAccessibleName(QStringLiteral("Reverberation response graph"));
    delete placeholder;
    SetControlId(GLView, res::IDC_RESPONSE_VIEW);
    Measured = new MeasuredDecayView(this);
    Measured->setGeometry(kMeasuredView);
    Measured->MeasuredLabel->setGeometry(584, 418, 266, 18);
    Measured->SetLabel->setGeometry(584, 440, 266, 18);
    // Moves over the window redraw the graph, with a button held or not.
    setMouseTracking(true);

    for (int row = 0; row < static_cast<int>(std::size(kChecks)); ++row) {
        auto* box = FindControlAs<QCheckBox>(this, kChecks[row].id);
        if (*kChecks[row].row)
            box->setAccessibleName(QStringLiteral("%1 %2").arg(kChecks[row].row, kChecks[row].caption));
        connect(box, &QCheckBox::clicked, this, [this, row] { OnCheck(row); });
    }
    for (int id : kCheckedAtStart)
        for (const CheckRow& row : kChecks)
            if (row.id == id)
                FindControlAs<QCheckBox>(this, id)->setChecked(this->*row.state != 0);

    move(WindowRect.topLeft());
    show();
}

C3DReverbResponseDlg::~C3DReverbResponseDlg()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (bridge && bridge->GetResponseWindow() == this)
        bridge->SetResponseWindow(nullptr);
}

void C3DReverbResponseDlg::PushRenderStates()
{
    SetRenderRearPanel(RearRenderState);
    SetRenderEarly(EarlyRenderState);
    SetRenderLate(LateRenderState);
}

void C3DReverbResponseDlg::ShowParameters(int slot, const ReverbResponseParams& params)
{
    Slot = slot;
    PushRenderStates();
    Params = params;
    setWindowTitle(QString::asprintf("Reverberation Response Graph for slot %d", slot));
    GLView->update();
    // The slot's reverb as the engine holds it now, measured off this thread.
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    EFX_Factory* factory = bridge ? bridge->GetFactory() : nullptr;
    int type = 0;
    if (EFX_EffectSlot* live = factory ? factory->GetEffectSlot(static_cast<std::uint32_t>(slot)) : nullptr;
        live && live->GetEffect(&type)) {
        SlotSnapshot snapshot;
        CaptureEffectValues(live->EffectObject(), type, snapshot);
        Measured->Measure(snapshot, params.DecayTime);
    }
}

void C3DReverbResponseDlg::Refresh()
{
    PushRenderStates();
    GLView->update();
}

void C3DReverbResponseDlg::OnCheck(int row)
{
    const CheckRow& check = kChecks[row];
    this->*check.state = FindControlAs<QCheckBox>(this, check.id)->isChecked() ? 1 : 0;
    check.setter(this->*check.state);
    Refresh();
}

void C3DReverbResponseDlg::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        Dragging = 1;
        LastPoint = event->position().toPoint();
    }
    Refresh();
    CDialog::mousePressEvent(event);
}

void C3DReverbResponseDlg::mouseMoveEvent(QMouseEvent* event)
{
    if (Dragging) {
        // Five pixels a degree: down raises the angle about x, right the one about y. No limit.
        const QPoint point = event->position().toPoint();
        RotationX -= static_cast<float>(LastPoint.y() - point.y()) / 5.0f;
        RotationY -= static_cast<float>(LastPoint.x() - point.x()) / 5.0f;
        LastPoint = point;
        SetViewRotationX(RotationX);
        SetViewRotationY(RotationY);
    }
    Refresh();
    CDialog::mouseMoveEvent(event);
}

void C3DReverbResponseDlg::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Dragging = 0;
    Refresh();
    CDialog::mouseReleaseEvent(event);
}

void C3DReverbResponseDlg::moveEvent(QMoveEvent* event)
{
    CDialog::moveEvent(event);
    WindowRect = frameGeometry();
}
