#pragma once

// Makes the controls' shared resources, once at start before any dialog, in this order: pens,
// brushes, fonts and the screen size; the controls' registration with Qt; the arrow bitmaps of
// the read-outs; the four knob looks; the read-out record. They stay until exit.
void InitControlResources();

// Before the QApplication is made. The controls repaint a knob and its read-out at mouse rate, a few
// hundred pixels each time; on X11, Qt's shared-memory transfer makes every such flush wait for the
// server, which costs more than sending the pixels. Small repaints go as plain images instead.
void ChoosePlatformOptions();
