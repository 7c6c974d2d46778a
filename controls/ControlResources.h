#pragma once

// Makes the controls' shared resources, once at start before any dialog, in this order: pens,
// brushes, fonts and the screen size; the controls' registration with Qt; the arrow bitmaps of
// the read-outs; the four knob looks; the read-out record. They stay until exit.
void InitControlResources();
