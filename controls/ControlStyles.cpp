#include "controls/ControlStyles.h"

#include <array>

namespace {

// Strips of the looks 0 to 3: grey, blue, red-brown, green.
constexpr std::array<int, kKnobStyleCount> kStripBitmaps = {136, 137, 139, 138};

std::array<CPotSpec, kKnobStyleCount>& PotSpecs()
{
    static std::array<CPotSpec, kKnobStyleCount> specs = [] {
        std::array<CPotSpec, kKnobStyleCount> filled{};
        for (int i = 0; i < kKnobStyleCount; ++i)
            filled[i].stripBitmap = kStripBitmaps[i];
        return filled;
    }();
    return specs;
}

CDecimalDisplaySpec& ReadoutSpec()
{
    static CDecimalDisplaySpec spec;
    return spec;
}

} // namespace

void InitPotSpecs()
{
    for (int i = 0; i < kKnobStyleCount; ++i) {
        CPotSpec spec;
        spec.frames = 31;
        spec.popupHorizontal = 1;
        spec.faderTrackBitmap = 134;
        spec.faderThumbBitmap = 129;
        spec.faderThumbX = 0;
        spec.faderThumbY = 0;
        spec.popupSide = 1;
        spec.useBlit = 0;
        spec.useBlitReserved = 0;
        spec.keyIndex = 253;
        spec.stripBitmap = kStripBitmaps[i];
        PotSpecs()[i] = spec;
    }
}

const CPotSpec* GetPotSpec(int style)
{
    return &PotSpecs()[style >= 0 && style < kKnobStyleCount ? style : 0];
}

void InitDecimalDisplaySpec()
{
    CDecimalDisplaySpec spec;
    spec.size = QSize(47, 15);
    spec.font = 1;
    spec.backColour = spec.altBackColour = 14;
    spec.textColour = spec.altTextColour = 8;
    spec.highlightColour = 9;
    spec.interactive = 1;
    spec.hasArrows = 1;
    spec.decimals = 4;
    spec.integerDigits = 5;
    spec.zeroPad = 0;
    spec.keepTrailingZeros = 1;
    spec.reserved = 0;
    spec.step = 0.0; // each panel gives its own step with SetStep
    spec.shiftStep = 0.0;
    spec.ctrlStep = 0.0;
    spec.edge = 0;
    spec.focusFrame = 0;
    spec.bitmapSized = 1;
    spec.showPlus = 0;
    ReadoutSpec() = spec;
}

const CDecimalDisplaySpec* GetReadoutSpec()
{
    static const bool filled = (InitDecimalDisplaySpec(), true);
    (void)filled;
    return &ReadoutSpec();
}
