#pragma once

#include "controls/CDialog.h"
#include "values/BridgeWindows.h"
#include "values/ReverbResponseParams.h"

#include <QPoint>
#include <QRect>

#include <cstdint>

class MeasuredDecayView;
class QCheckBox;
class ResponseView;

// The window of the response graph: the OpenGL view, eight check boxes that steer it, and rotation by
// dragging. It keeps a copy of the last record it was given, so that it repaints and turns with no
// trip to the engine. One exists at a time, for the slot refreshed last; the bridge feeds it on each
// refresh of a reverb slot. Its close box hides it. Made with the caller's top-level window as
// parent, so that it outlives a panel that made it; the reverb panner deletes it.
class C3DReverbResponseDlg : public CDialog, public BridgeResponseWindow {
public:
    explicit C3DReverbResponseDlg(QWidget* parent);
    ~C3DReverbResponseDlg() override;

    void ShowParameters(int slot, const ReverbResponseParams& params) override;
    // Pushes the render switches and redraws the stored record.
    void Refresh();

    std::int32_t EarlyRenderState = 1, LateRenderState = 1, RearRenderState = 1;
    std::int32_t HFPlaneState = 0, LFPlaneState = 0;
    std::int32_t EarlyWireState = 0, LateWireState = 0, RearWireState = 0;
    std::int32_t Slot = 0;
    // Where the window stands; a new window opens at 10, 10.
    QRect WindowRect{10, 10, 0, 0};
    std::int32_t Dragging = 0;
    QPoint LastPoint;
    float RotationX, RotationY;
    ReverbResponseParams Params;

    ResponseView* GLView = nullptr;
    // Beside the model: the decay measured on a rendered impulse, recomputed with each new record.
    MeasuredDecayView* Measured = nullptr;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void OnCheck(int row);
    void PushRenderStates();
};
