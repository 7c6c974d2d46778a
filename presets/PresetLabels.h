#pragma once

// Labels between a node's UTF-16 name and the 8-bit text that the tree view shows and edits. The two
// directions are not inverse to each other: narrowing keeps the low byte of each unit, widening
// extends the sign of each byte, so a byte of 0x80 or more comes back as 0xFF80 or more.

#include "presets/PresetNode.h"

#include <string>

// The low byte of each of the 127 units, up to the first zero byte: U+0141 shows as "A".
std::string NarrowLabel(const char16_t (&name)[kNameUnits]);

// Each character widened with sign extension, up to 127 characters and closed with a zero.
void WidenLabel(const char* text, char16_t (&name)[kNameUnits]);
