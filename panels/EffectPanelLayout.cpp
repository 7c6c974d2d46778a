#include "panels/EffectPanelLayout.h"

#include "panels/EffectPanelTables.h"

#include <QFontMetrics>
#include <QStringList>

#include <algorithm>
#include <cstring>

namespace {

constexpr int kMargin = 8;
constexpr int kTitleHeight = 16; // the title line of a group box
constexpr int kBoxBottom = 2;
constexpr int kHeadingHeight = 12;
constexpr int kGap = 6;
constexpr int kMinimumCell = 54;
constexpr int kCaptionLine = 14;
constexpr QSize kCombo{150, 24};
constexpr int kComboLabelHeight = 16;
constexpr int kButtonHeight = 26;

struct Group {
    const char* name;
    std::vector<const PanelKnob*> knobs;
    std::vector<int> cellWidths;
    bool hasHeading = false;
    bool twoLines = false; // some caption of the group takes two lines
    QRect place; // relative to the row while rows are filled, then absolute

    bool Boxed() const { return *name != '\0'; }
    int Width() const
    {
        int width = 0;
        for (int w : cellWidths)
            width += w;
        return width + (Boxed() ? 2 * kGap : 0);
    }
    int CaptionHeight() const { return twoLines ? 2 * kCaptionLine : kCaptionLine; }
    int Height() const
    {
        return (Boxed() ? kTitleHeight + kBoxBottom : 0) + (hasHeading ? kHeadingHeight : 0) + CaptionHeight() +
               kKnobCellHeight;
    }
};

// Captions wider than this go on two lines, split where the wider line is narrowest.
constexpr int kOneLineWidth = 76;

// The cell's width for its caption, and whether the caption needs two lines.
int CellWidth(const char* label, const QFontMetrics& metrics, bool* twoLines)
{
    const QString text = QString::fromLatin1(label);
    const int whole = metrics.horizontalAdvance(text) + 8;
    const QStringList words = text.split(QLatin1Char(' '));
    *twoLines = false;
    if (whole <= kOneLineWidth || words.size() < 2)
        return std::max(kMinimumCell, whole);
    int best = whole;
    for (int k = 1; k < words.size(); ++k) {
        const int first = metrics.horizontalAdvance(words.mid(0, k).join(QLatin1Char(' ')));
        const int second = metrics.horizontalAdvance(words.mid(k).join(QLatin1Char(' ')));
        best = std::min(best, std::max(first, second) + 8);
    }
    *twoLines = true;
    return std::max(kMinimumCell, best);
}

std::vector<Group> GroupKnobs(std::span<const PanelKnob> knobs, const QFontMetrics& metrics)
{
    std::vector<Group> groups;
    for (const PanelKnob& knob : knobs) {
        auto found = std::find_if(groups.begin(), groups.end(),
                                  [&](const Group& g) { return std::strcmp(g.name, knob.group) == 0; });
        if (found == groups.end()) {
            groups.push_back({knob.group, {}, {}, false, false, {}});
            found = groups.end() - 1;
        }
        found->knobs.push_back(&knob);
        bool twoLines = false;
        found->cellWidths.push_back(CellWidth(knob.label, metrics, &twoLines));
        found->twoLines |= twoLines;
        found->hasHeading |= *knob.heading != '\0';
    }
    return groups;
}

// Knobs without a box of their own wrap: the run is cut into pieces no wider than the panel.
std::vector<Group> WrapUnboxed(std::vector<Group> groups, int width)
{
    std::vector<Group> wrapped;
    for (Group& group : groups) {
        if (group.Boxed()) {
            wrapped.push_back(std::move(group));
            continue;
        }
        Group piece{group.name, {}, {}, false, group.twoLines, {}};
        for (std::size_t i = 0; i < group.knobs.size(); ++i) {
            if (!piece.knobs.empty() && piece.Width() + group.cellWidths[i] > width) {
                wrapped.push_back(piece);
                piece.knobs.clear();
                piece.cellWidths.clear();
            }
            piece.knobs.push_back(group.knobs[i]);
            piece.cellWidths.push_back(group.cellWidths[i]);
            piece.hasHeading |= *group.knobs[i]->heading != '\0';
        }
        if (!piece.knobs.empty())
            wrapped.push_back(piece);
    }
    return wrapped;
}

// Each group goes into the first row with room for it; returns the rows' heights.
std::vector<int> FillRows(std::vector<Group>& groups, int width)
{
    std::vector<int> used;
    std::vector<int> heights;
    for (Group& group : groups) {
        std::size_t row = 0;
        while (row < used.size() && used[row] + kGap + group.Width() > width)
            ++row;
        if (row == used.size()) {
            used.push_back(-kGap);
            heights.push_back(0);
        }
        group.place = QRect(used[row] + kGap, static_cast<int>(row), group.Width(), group.Height());
        used[row] += kGap + group.Width();
        heights[row] = std::max(heights[row], group.Height());
    }
    return heights;
}

void PlaceGroup(const Group& group, std::vector<ControlTemplate>& out)
{
    const QRect& box = group.place;
    if (group.Boxed())
        out.push_back({0, ControlKind::GroupBox, group.name, box});
    int x = box.left() + (group.Boxed() ? kGap : 0);
    const int top = box.top() + (group.Boxed() ? kTitleHeight : 0);
    const int cellTop = top + (group.hasHeading ? kHeadingHeight : 0);
    for (std::size_t i = 0; i < group.knobs.size(); ++i) {
        const PanelKnob& knob = *group.knobs[i];
        const int w = group.cellWidths[i];
        // A heading spans the run of knobs that share it.
        if (*knob.heading && (i == 0 || std::strcmp(group.knobs[i - 1]->heading, knob.heading) != 0)) {
            int span = 0;
            for (std::size_t j = i; j < group.knobs.size() && std::strcmp(group.knobs[j]->heading, knob.heading) == 0; ++j)
                span += group.cellWidths[j];
            out.push_back({0, ControlKind::Caption, knob.heading, QRect(x, top, span, kHeadingHeight)});
        }
        out.push_back({knob.captionId, ControlKind::Caption, knob.label, QRect(x, cellTop, w, group.CaptionHeight())});
        const QPoint corner(x + (w - kPlaceholderSize.width()) / 2, cellTop + group.CaptionHeight() + 2);
        // The placeholder carries the knob's caption as its name, which the knob and read-out take over.
        out.push_back({knob.id, ControlKind::Static, "", QRect(corner, kPlaceholderSize)});
        x += w;
    }
}

} // namespace

EffectPanelLayout LayoutKnobGroups(std::span<const PanelKnob> knobs, QPoint topLeft, int width,
                                   const QFontMetrics& captions)
{
    EffectPanelLayout layout;
    std::vector<Group> groups = WrapUnboxed(GroupKnobs(knobs, captions), width);
    const std::vector<int> heights = FillRows(groups, width);
    int y = topLeft.y();
    std::vector<int> rowTop;
    for (int h : heights) {
        rowTop.push_back(y);
        y += h + kGap;
    }
    int right = topLeft.x();
    for (Group& group : groups) {
        group.place.moveTo(topLeft.x() + group.place.left(), rowTop[group.place.top()]);
        right = std::max(right, group.place.right());
        PlaceGroup(group, layout.controls);
    }
    layout.size = QSize(right, y);
    return layout;
}

EffectPanelLayout LayoutEffectPanel(const EffectPanelTable& table, int maxWidth, const QFontMetrics& captions)
{
    EffectPanelLayout layout = LayoutKnobGroups(table.knobs, QPoint(kMargin, kTitleHeight + 2),
                                                maxWidth - 2 * kMargin, captions);
    std::vector<ControlTemplate>& out = layout.controls;
    const int inner = maxWidth - 2 * kMargin;
    int y = layout.size.height();
    int right = layout.size.width();

    // The combo boxes, side by side under their labels.
    int x = kMargin + kGap;
    if (!table.combos.empty()) {
        for (const PanelCombo& combo : table.combos) {
            if (x + kCombo.width() > kMargin + inner) {
                x = kMargin + kGap;
                y += kComboLabelHeight + kCombo.height() + kGap;
            }
            out.push_back({0, ControlKind::Static, combo.label, QRect(x, y, kCombo.width(), kComboLabelHeight)});
            out.push_back({combo.id, ControlKind::ComboBox, "", QRect(QPoint(x, y + kComboLabelHeight), kCombo)});
            right = std::max(right, x + kCombo.width());
            x += kCombo.width() + 2 * kGap;
        }
        y += kComboLabelHeight + kCombo.height() + kGap;
    }

    // The last lines: the response window's button, then the check box with "Defaults" on the right.
    y += 2;
    right = std::max(right, kMargin + 230);
    if (table.responseButtonId) {
        out.push_back({table.responseButtonId, ControlKind::Button, "Show Reverb Response Window",
                       QRect(kMargin + kGap, y, 220, kButtonHeight)});
        y += kButtonHeight + kGap;
    }
    if (table.hfLimitId)
        out.push_back({table.hfLimitId, ControlKind::CheckBox, "Limit HF decay", QRect(kMargin + kGap, y, 130, kButtonHeight)});
    const int defaultsWidth = 80;
    out.push_back({table.defaultsId, ControlKind::Button, "Defaults",
                   QRect(right - defaultsWidth, y, defaultsWidth, kButtonHeight)});
    y += kButtonHeight + kGap;

    // The panel's own box round all of it, behind everything.
    const QSize size(right + kMargin, y + 2);
    out.insert(out.begin(), {table.titleId, ControlKind::GroupBox, table.title, QRect(QPoint(0, 0), size - QSize(1, 1))});
    layout.size = size;
    return layout;
}
