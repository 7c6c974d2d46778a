#pragma once

#include <cstdint>
#include <span>

// The vocabulary of the effect panels: for each of the thirteen effects, its knobs, combo boxes and
// check box with the numbers by which code and the bridge find them, the ranges the user may turn
// through, the display steps and decimals, the knob looks and the placeholder first values. The
// engine's own limits and defaults live with the engine; these are what the user interface allows.

// One knob. group is the box it stands in ("" for none), heading a label over a run of knobs in it
// ("Pan"), label the caption beside the knob.
struct PanelKnob {
    std::uint16_t param;
    int id;
    const char* group;
    const char* heading;
    const char* label;
    float minimum, maximum, step;
    int decimals;
    int style;
    float first;
    bool isLong;
    int captionId = 0; // the number of the caption over the knob, where code needs to find it
    const char* token = ""; // the property's OpenAL token, "AL_ECHO_DELAY", for the knob's tooltip
};

// One combo box; the position of an entry is the property's value.
struct PanelCombo {
    std::uint16_t param;
    int id;
    const char* label;
    std::span<const char* const> entries;
};

struct EffectPanelTable {
    int type;                // the effect type, the position in the slot panel's list
    const char* className;
    int templateId;
    std::uint16_t category;  // of the value identifiers
    const char* title;       // of the panel's group box
    int titleId;             // 0 where the title has no number of its own
    bool boldTitle;
    int defaultsId;
    std::span<const PanelKnob> knobs;
    std::span<const PanelCombo> combos;
    int hfLimitId;           // "Limit HF decay", 0 for none
    int responseButtonId;    // "Show Reverb Response Window", 0 for none
    bool reverbValues;       // knobs bind the bridge's reverb values, not rows of the panel's own
};

constexpr int kEffectTypes = 14; // 0, the empty slot, and the thirteen effects

// The table of an effect type, 1 to 13; null for 0 and anything else.
const EffectPanelTable* EffectPanelTableFor(int type);
// The text of each position of the slot panel's effect list, "Empty (no effect)" first.
const char* EffectListText(int type);
