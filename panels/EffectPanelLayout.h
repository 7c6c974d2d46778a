#pragma once

#include "controls/DialogTemplate.h"

#include <QSize>

#include <span>

#include <vector>

class QFontMetrics;
struct EffectPanelTable;
struct PanelKnob;

// Where the controls of an effect panel go, worked out from its table: the knobs in their group
// boxes, a heading over a run of knobs that shares one ("Pan"), a caption over each knob and the
// placeholder the knob and its read-out replace; the combo boxes under their labels; last the
// "Limit HF decay" box and the buttons. Groups fill rows no wider than maxWidth, each going into the
// first row with room for it, so that the panel stays compact and every caption reads in full.
struct EffectPanelLayout {
    std::vector<ControlTemplate> controls;
    QSize size;
};

EffectPanelLayout LayoutEffectPanel(const EffectPanelTable& table, int maxWidth, const QFontMetrics& captions);

// The knobs alone, in their boxes, filling rows of the given width from the top left corner. The
// result's size reaches to the lowest and rightmost control.
EffectPanelLayout LayoutKnobGroups(std::span<const PanelKnob> knobs, QPoint topLeft, int width,
                                   const QFontMetrics& captions);

// The knob's cell below its caption: the placeholder, where the knob stands, and the read-out
// under it.
inline constexpr QSize kPlaceholderSize{34, 25};
inline constexpr int kKnobCellHeight = 2 + 26 + 15 + 3;
