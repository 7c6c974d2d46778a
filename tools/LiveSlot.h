#pragma once

// What the tools that show a slot share: the engine started on the default device with slot 0
// made, and that slot's panel made silently in a frame of the main window's slot size, as the main
// window makes it. Header-only, for the tools that link the panels.

#include "engine/EFX_Factory.h"
#include "panels/FXS_Panel.h"
#include "values/UI_EFX_Bridge.h"

#include <QTest>
#include <QWidget>

#include <cstdio>

namespace tool_support {

// False, with a line naming the tool, when there is no EFX device to put slot 0 on.
inline bool StartEngineWithSlot(UI_EFX_Bridge& bridge, const char* tool)
{
    EFX_Factory::SelectDevice("");
    if (bridge.InitializeEngine(3, 0, 4) && bridge.CreateSlot() == 0)
        return true;
    std::fprintf(stderr, "%s: no EFX device\n", tool);
    return false;
}

// Shows frame at 628 x 568 and puts slot 0's panel in it; null if the frame never showed.
inline FXS_Panel* MakeSlotPanel(UI_EFX_Bridge& bridge, QWidget& frame)
{
    frame.setFixedSize(628, 568);
    frame.show();
    if (!QTest::qWaitForWindowExposed(&frame))
        return nullptr;
    bridge.SetCallbacksEnabled(0);
    auto* panel = new FXS_Panel(&frame);
    panel->SetSlot(0);
    panel->InitDialog();
    panel->move(2, 2);
    panel->show();
    bridge.SetSlotPanel(0, panel);
    bridge.SetCallbacksEnabled(1);
    return panel;
}

} // namespace tool_support
