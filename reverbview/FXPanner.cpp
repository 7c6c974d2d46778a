#include "reverbview/FXPanner.h"

#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "positionview/DScreen.h"
#include "positionview/WidgetPresenter.h"
#include "resources/ResourceIds.h"
#include "reverbview/C3DReverbResponseDlg.h"
#include "reverbview/Panner.h"
#include "values/UI_EFX_Bridge.h"

#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize kSize(184, 318);

// A narrow column, to stand under the slot's own controls beside the effect's panel.
const ControlTemplate kTemplate[] = {
    {0, ControlKind::GroupBox, "Reverb Graphics", QRect(0, 0, 184, 318)},
    {0, ControlKind::Static, "Reverb Panner:", QRect(10, 20, 164, 16)},
    {res::IDC_PANNER_VIEW, ControlKind::EtchedFrame, "", QRect(12, 38, 160, 160)},
    {0, ControlKind::Static, "(left mouse button to change orientation,", QRect(10, 204, 166, 32)},
    {0, ControlKind::Static, "right mouse button for envelopment)", QRect(10, 238, 166, 32)},
    {res::IDC_SHOW_RESPONSE_WINDOW, ControlKind::Button, "Show Reverb Response Window", QRect(4, 282, 176, 28)},
};

// The width of the band of each ring: radii 3 to 11 beyond it.
constexpr int kBandFrom = 3;
constexpr int kBandTo = 11;
// The late ring's selection zone and the cross hairs' overhang beyond the outer ring.
constexpr int kLateZone = 15;
constexpr int kCrossOverhang = 25;
// Below this length a vector shows as a closed ring in any direction.
constexpr double kRingMagnitude = 0.001;
constexpr double kPi = 3.1415926535;

} // namespace

FXPanner::FXPanner(int slot, QWidget* parent)
    : CDialog(parent), Slot(slot)
{
    // Inside its slot panel the panner is a plain child, not a window of its own.
    if (parent)
        setWindowFlags(Qt::Widget);
    BuildDialog(this, "", kSize, kTemplate);
    UI_EFX_Bridge::GetInstance()->SetPanner(slot, this);
    auto* button = FindControlAs<QPushButton>(this, res::IDC_SHOW_RESPONSE_WINDOW);
    // The column is narrow: the caption takes a smaller size rather than being cut.
    QFont font = button->font();
    while (QFontMetrics(font).horizontalAdvance(button->text()) > button->width() - 12 && font.pointSizeF() > 6.0)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    button->setFont(font);
    connect(button, &QPushButton::clicked, this, &FXPanner::OnShowResponseWindow);
    Setup();
}

FXPanner::~FXPanner()
{
    delete Screen;
    Screen = nullptr;
    m_presenter.reset();
    delete LatePanner;
    LatePanner = nullptr;
    delete ReflectionsPanner;
    ReflectionsPanner = nullptr;
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (!bridge)
        return;
    // The response window goes with any panner that closes.
    if (auto* window = dynamic_cast<C3DReverbResponseDlg*>(bridge->GetResponseWindow())) {
        bridge->SetResponseWindow(nullptr);
        delete window;
    }
    bridge->SetPanner(Slot, nullptr);
}

bool FXPanner::Setup()
{
    m_view = FindControl(this, res::IDC_PANNER_VIEW);
    if (!m_view)
        return false;
    m_view->setAccessibleName(QStringLiteral("Reverb panner"));
    // The view shows the picture and nothing else: presses on it reach the panner.
    m_view->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_presenter = std::make_unique<WidgetPresenter>(m_view);
    Screen = new DScreen;
    if (Screen->Init(m_presenter.get()))
        Screen->FloodFill(0);

    const int width = m_view->width();
    const int height = m_view->height();
    CenterX = width / 2;
    CenterY = height / 2;
    const double r = std::min(width, height) / 2.0;
    OuterRadius = static_cast<std::int32_t>(r * 0.8);
    InnerRadius = static_cast<std::int32_t>(r * 0.6);
    HubRadius = std::min(width / 20, height / 20);
    MaxRadius = static_cast<std::int32_t>(r);

    ReflectionsPanner = new Panner(CenterX, CenterY, HubRadius, MaxRadius);
    LatePanner = new Panner(CenterX, CenterY, HubRadius, MaxRadius);
    ReflectionsPanner->SetMagnitudeFromPoint(CenterX - MaxRadius / 4, CenterY - MaxRadius / 4);
    LatePanner->SetMagnitudeFromPoint(CenterX - MaxRadius / 4, CenterY - MaxRadius / 4);
    return true;
}

void FXPanner::SetVectors(const float reflectionsPan[3], const float latePan[3])
{
    if (!ReflectionsPanner)
        return;
    ReflectionsPanner->SetVector(reflectionsPan);
    LatePanner->SetVector(latePan);
    Redraw();
}

void FXPanner::DrawBand(const Panner& panner, std::int32_t radius, std::uint32_t colour)
{
    std::int32_t start = 0;
    std::int32_t end = 0;
    panner.GetArcEnds(start, end);
    for (int r = kBandFrom; r <= kBandTo; ++r) {
        if (panner.Magnitude < kRingMagnitude)
            Screen->DrawCircle(CenterX, CenterY, radius + r, colour, 3);
        else
            Screen->DrawArc(CenterX, CenterY, radius + r, start, end, colour, 3);
    }
    const double a = panner.Angle * kPi / 180.0;
    Screen->DrawLine(CenterX, CenterY, CenterX + static_cast<std::int32_t>(std::sin(a) * radius),
                     CenterY + static_cast<std::int32_t>(std::cos(a) * radius), colour, 0);
}

void FXPanner::Redraw()
{
    if (!Screen || !ReflectionsPanner)
        return;
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    if (corner.x() != LastLeft || corner.y() != LastTop) {
        Screen->UpdateRect();
        LastLeft = corner.x();
        LastTop = corner.y();
    }
    Screen->FloodFill(0);
    Screen->Lock();
    for (int radius : {InnerRadius, OuterRadius, OuterRadius + kLateZone})
        Screen->DrawCircle(CenterX, CenterY, radius, kGreen, 0);
    DrawBand(*ReflectionsPanner, InnerRadius, kRed);
    DrawBand(*LatePanner, OuterRadius, kBlue);
    const int reach = OuterRadius + kCrossOverhang;
    Screen->DrawLine(CenterX, CenterY - reach, CenterX, CenterY + reach, kGreen, 1);
    Screen->DrawLine(CenterX - reach, CenterY, CenterX + reach, CenterY, kGreen, 1);
    Screen->DrawCircle(CenterX, CenterY, HubRadius, kGreen, 0);
    Screen->Unlock();
    Screen->Blit();
}

void FXPanner::showEvent(QShowEvent* event)
{
    CDialog::showEvent(event);
    Redraw();
}

void FXPanner::Commit()
{
    ReflectionsPanner->GetVector(ReflectionsPan);
    LatePanner->GetVector(LatePan);
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    bridge->SetReflectionsPan(Slot, ReflectionsPan[0], ReflectionsPan[1], ReflectionsPan[2]);
    bridge->SetLateReverbPan(Slot, LatePan[0], LatePan[1], LatePan[2]);
}

void FXPanner::Steer(QPoint point, Qt::MouseButtons buttons)
{
    if (!ReflectionsPanner || !(buttons & (Qt::LeftButton | Qt::RightButton)))
        return;
    MouseX = point.x();
    MouseY = point.y();
    Panner* panner = ActiveRing == kLateRing ? LatePanner : ReflectionsPanner;
    if (buttons & Qt::LeftButton)
        panner->SetAngleFromPoint(MouseX, MouseY);
    if (buttons & Qt::RightButton)
        panner->SetMagnitudeFromPoint(MouseX, MouseY);
    Commit();
    Redraw();
}

void FXPanner::mousePressEvent(QMouseEvent* event)
{
    if (!m_view || !ReflectionsPanner)
        return;
    const QPoint point = m_view->mapFrom(this, event->position().toPoint());
    // The comparisons are strict: a press exactly on a ring's radius selects nothing.
    const std::int32_t d = ReflectionsPanner->Distance(point.x(), point.y());
    if (d > InnerRadius && d < OuterRadius)
        ActiveRing = kReflectionsRing;
    else if (d > OuterRadius && d < OuterRadius + kLateZone)
        ActiveRing = kLateRing;
    Steer(point, event->buttons());
}

void FXPanner::mouseMoveEvent(QMouseEvent* event)
{
    // The panner takes no capture: a drag that leaves it is no longer followed, although Qt keeps
    // sending the moves.
    if (!m_view || !rect().contains(event->position().toPoint()))
        return;
    Steer(m_view->mapFrom(this, event->position().toPoint()), event->buttons());
}

void FXPanner::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
        UI_EFX_Bridge::GetInstance()->RefreshEAXReverb(Slot);
}

void FXPanner::OnShowResponseWindow()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (!bridge->GetResponseWindow())
        bridge->SetResponseWindow(new C3DReverbResponseDlg(this));
    bridge->RefreshEAXReverb(Slot);
    if (auto* window = dynamic_cast<C3DReverbResponseDlg*>(bridge->GetResponseWindow()))
        window->show();
}
