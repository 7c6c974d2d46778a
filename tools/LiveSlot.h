#pragma once

// What the tools that show a slot or a source share: the engine started on the default device with
// slot 0 made, that slot's panel made silently in a frame of the main window's slot size, as the main
// window makes it, and a small WAV file to play. Header-only, for the tools that link the panels.

#include "engine/EFX_Factory.h"
#include "panels/FXS_Panel.h"
#include "values/UI_EFX_Bridge.h"

#include <QByteArray>
#include <QFile>
#include <QTest>
#include <QWidget>

#include <cstdio>

namespace tool_support {

// The engine on the default device; false, with a line naming the tool, when there is no EFX device.
inline bool StartEngine(UI_EFX_Bridge& bridge, const char* tool)
{
    EFX_Factory::SelectDevice("");
    if (bridge.InitializeEngine(3, 0, 4))
        return true;
    std::fprintf(stderr, "%s: no EFX device\n", tool);
    return false;
}

// The same with slot 0 made; false, with that line, when there is no device to put it on.
inline bool StartEngineWithSlot(UI_EFX_Bridge& bridge, const char* tool)
{
    if (!StartEngine(bridge, tool))
        return false;
    if (bridge.CreateSlot() == 0)
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

// Writes a mono 16-bit WAV file of silence at 22050 Hz, a quarter second long, for a source to
// play. False if the file cannot be written.
inline bool WriteQuietTone(const QString& path)
{
    const quint32 data = 22050 / 4 * 2;
    QByteArray wav("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x22\x56\0\0\x44\xAC\0\0\x02\0\x10\0data", 40);
    wav.append(reinterpret_cast<const char*>(&data), 4);
    wav.append(QByteArray(static_cast<int>(data), '\0'));
    const quint32 riff = static_cast<quint32>(wav.size() - 8);
    wav.replace(4, 4, QByteArray(reinterpret_cast<const char*>(&riff), 4));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(wav) == wav.size();
}

} // namespace tool_support
