#pragma once

#include "controls/CDialog.h"
#include "values/BridgeWindows.h"

#include <cstdint>
#include <memory>

class DScreen;
class Panner;
class WidgetPresenter;

// The round panner of a slot's EAX reverb: two rings, a red arc for the reflections pan and a blue
// one for the late reverberation pan. The left button turns the active ring's arc, the right button
// sets its width (the vector's length); both vectors go to the engine at each step, and the release
// reads them back. Holds the button that opens the response window. A child of its slot panel;
// made with (slot, parent), it enters itself in the bridge's table and leaves it when destroyed,
// taking the response window with it.
class FXPanner : public CDialog, public BridgePanner {
public:
    FXPanner(int slot, QWidget* parent);
    ~FXPanner() override;

    void SetVectors(const float reflectionsPan[3], const float latePan[3]) override;
    void Redraw();

    static constexpr int kReflectionsRing = 1;
    static constexpr int kLateRing = 2;
    // Rings and cross hairs green, reflections red, late reverberation blue, as 0xRRGGBB.
    static constexpr std::uint32_t kGreen = 0x14C814, kRed = 0xC81414, kBlue = 0x1414C8;

    DScreen* Screen = nullptr;
    Panner* LatePanner = nullptr;
    Panner* ReflectionsPanner = nullptr;
    std::int32_t CenterX = 0, CenterY = 0;
    std::int32_t OuterRadius = 0, InnerRadius = 0, HubRadius = 0, MaxRadius = 0;
    std::int32_t LastLeft = 0, LastTop = 0;
    float LatePan[3] = {0, 0, 0};
    float ReflectionsPan[3] = {0, 0, 0};
    std::int32_t ActiveRing = kReflectionsRing;
    std::int32_t MouseX = 0, MouseY = 0;
    std::int32_t Slot;

    // The presenter that shows the surface on the view, 1160.
    WidgetPresenter* Presenter() const { return m_presenter.get(); }

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool Setup();
    // A press or a move with buttons held, at a point relative to the view.
    void Steer(QPoint point, Qt::MouseButtons buttons);
    void Commit();
    void DrawBand(const Panner& panner, std::int32_t radius, std::uint32_t colour);
    void OnShowResponseWindow();

    std::unique_ptr<WidgetPresenter> m_presenter;
    QWidget* m_view = nullptr;
};
