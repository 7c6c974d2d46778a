#include "controls/ControlGraphics.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>

namespace {

// The colour table of the controls, index 0 first, as Windows colour values.
constexpr std::array<std::uint32_t, kControlColourCount> kColourTable = {
    0x80,     0x8000,   0x8080,   0x800000, 0x800080, 0x808000, 0x808080, 0xFF,
    0xFF00,   0xFFFF,   0xFF0000, 0xFF00FF, 0xFFFF00, 0xC0C0C0, 0x0,      0xFFFFFF,
};

constexpr std::uint32_t kDottedGrey = 0xA0A0A0;

// DejaVu ships with the program's set-up; Liberation Sans and Mono are metric twins of Arial and
// Courier New where the machine has them, and fontconfig falls back to DejaVu where it has not.
constexpr std::array<ControlFontRow, kControlFontCount> kFontTable = {{
    {"Small Font", "DejaVu Sans Condensed", 8, 6, 0, 0x20, false},
    {"Small Font", "DejaVu Sans Condensed", 10, 0, 0, 0x20, false},
    {"Arial", "Liberation Sans", 12, 0, 0, 0, false},
    {"Arial", "Liberation Sans", 14, 0, 0, 0, false},
    {"Arial", "Liberation Sans", 14, 0, 700, 0, false},
    {"Courier New", "Liberation Mono", 14, 7, 0, 0x31, false},
    {"Courier", "Liberation Mono", 10, 8, 0, 0x31, false},
    {"Courier", "Liberation Mono", 16, 10, 0, 0x31, false},
    {"Courier", "Liberation Mono", 20, 12, 0, 0x31, false},
    {"Sansserif", "DejaVu Sans", 8, 6, 0, 0, false},
    {"Sansserif", "DejaVu Sans", 8, 6, 700, 0, false},
    {"Arial", "Liberation Sans", 16, 0, 1, 0, false},
    {"Arial", "Liberation Sans", 16, 0, 700, 0, false},
    {"Arial", "Liberation Sans", 32, 0, 700, 0, false},
    {"Arial", "Liberation Sans", 16, 0, 1, 0, true},
    {"Arial", "Liberation Sans", 18, 0, 1, 0, false},
    {"Arial", "Liberation Sans", 18, 0, 1, 0, true},
}};

struct Graphics {
    bool ready = false;
    std::array<QColor, kControlColourCount> colours;
    std::array<QPen, kControlColourCount> pens;
    std::array<QBrush, kControlColourCount> brushes;
    QPen dotted;
    std::array<QFont, kControlFontCount> fonts;
    QSize screen;
    ArrowBitmapIds arrows;
};

Graphics& Shared()
{
    static Graphics graphics;
    return graphics;
}

QFont MakeFont(const ControlFontRow& row)
{
    QFont font(QString::fromLatin1(row.substitute));
    // A logical height is the height of the character cell, leading included; Qt sizes the em.
    // These faces have a cell of about 1.16 em.
    font.setPixelSize(std::max(1, static_cast<int>(row.height / 1.16 + 0.5)));
    font.setWeight(row.weight >= 700 ? QFont::Bold : QFont::Normal);
    font.setUnderline(row.underline);
    if (row.pitchAndFamily & 0x01)
        font.setFixedPitch(true);
    font.setStyleHint((row.pitchAndFamily & 0x30) == 0x30 ? QFont::Monospace : QFont::SansSerif);
    return font;
}

int Clamp(int index, int count)
{
    return index >= 0 && index < count ? index : 0;
}

} // namespace

QColor WindowsColour(std::uint32_t value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

const ControlFontRow& ControlFontSpec(int index)
{
    return kFontTable[Clamp(index, kControlFontCount)];
}

void InitGraphics()
{
    Graphics& g = Shared();
    for (int i = 0; i < kControlColourCount; ++i) {
        g.colours[i] = WindowsColour(kColourTable[i]);
        g.pens[i] = QPen(g.colours[i], 1);
        g.brushes[i] = QBrush(g.colours[i]);
    }
    g.dotted = QPen(WindowsColour(kDottedGrey), 1, Qt::DotLine);
    for (int i = 0; i < kControlFontCount; ++i)
        g.fonts[i] = MakeFont(kFontTable[i]);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        g.screen = screen->size();
    g.ready = true;
}

// Controls may be made before the start sequence ran (a test, a tool): the tables fill on first use.
static Graphics& Ready()
{
    if (!Shared().ready)
        InitGraphics();
    return Shared();
}

const QColor& ControlColour(int index)
{
    return Ready().colours[Clamp(index, kControlColourCount)];
}

const QPen& ControlPen(int index)
{
    return Ready().pens[Clamp(index, kControlColourCount)];
}

const QBrush& ControlBrush(int index)
{
    return Ready().brushes[Clamp(index, kControlColourCount)];
}

const QPen& DottedPen()
{
    return Ready().dotted;
}

const QFont& ControlFont(int index)
{
    return Ready().fonts[Clamp(index, kControlFontCount)];
}

QSize ScreenSize()
{
    return Ready().screen;
}

QFont BoldTitleFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    font.setWeight(QFont::Bold);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

void SetArrowBitmaps(int upNormal, int upPressed, int downNormal, int downPressed)
{
    Shared().arrows = {upNormal, upPressed, downNormal, downPressed};
}

const ArrowBitmapIds& GetArrowBitmaps()
{
    return Shared().arrows;
}
