#pragma once

#include "controls/ReadoutLook.h"
#include "controls/KnobLook.h"

// The shared look records, filled once at start: four knob looks, which differ only in their strip
// (136, 137, 139, 138), and the one record of every read-out under a knob. Controls point to them;
// they live for the whole run.
constexpr int kKnobStyleCount = 4;

void InitPotSpecs();
// Any number other than 0 to 3 takes look 0.
const CPotSpec* GetPotSpec(int style);

void InitDecimalDisplaySpec();
const CDecimalDisplaySpec* GetReadoutSpec();
