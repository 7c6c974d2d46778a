#pragma once

#include "values/CObject.h"

#include <cstdint>

class CheckBoxControl;
class ComboBoxControl;

// The two-state, discrete and exclusive values. They hold no number of their own (the radio row
// keeps its selection) and pass the user's choice to the bridge with the new state in extra. They
// find the bridge through UI_EFX_Bridge::GetInstance at the moment of the event; without one the
// event goes nowhere.

// What the three families share: the identifier they carry to the bridge, and the telling itself.
class CSonopticEventValObs : public CObject {
public:
    void SetIndex(std::uint16_t index) { Index = index; }

    std::uint16_t Category = 0;
    std::uint16_t Index = 0;
    std::uint16_t Param = 0;

protected:
    void SetIdentifier(std::uint16_t category, std::uint16_t index, std::uint16_t param);
    // Hands the user's choice to the bridge under this value's identifier, the state in extra.
    void Tell(std::uint16_t kind, int state) const;
};

// A check box: kind 2.
class CSonopticBoolValObs : public CSonopticEventValObs {
public:
    void Bind(CheckBoxControl* control, std::uint16_t category, std::uint16_t index, std::uint16_t param);
    void OnUserToggled(int state);
    // Sets the box without an event; nothing while unbound.
    void SetCheck(int state);

    CheckBoxControl* Control = nullptr;
};

// A combo box: kind 3.
class CSonopticCBoxDiscreteValObs : public CSonopticEventValObs {
public:
    void Bind(ComboBoxControl* control, std::uint16_t category, std::uint16_t index, std::uint16_t param);
    void OnUserSelected(int selection);
    // Selects without an event; nothing while unbound.
    void SetSelection(int selection);

    ComboBoxControl* Control = nullptr;
};

// A row of radio buttons: kind 1, with the selected index kept. -1 is the "disabled" choice of a
// send, and reaches the bridge as 65535.
class CSonopticExcluValObs : public CSonopticEventValObs {
public:
    // The buttons array belongs to the panel.
    void Bind(std::int32_t count, CheckBoxControl** buttons, std::uint16_t category, std::uint16_t index,
              std::uint16_t param);
    void OnUserSelected(std::int32_t value);
    // Stores the value; only a value that names a button also moves the checks.
    void SetSelected(std::int32_t value);

    std::int32_t Selected = 0;
    CheckBoxControl** Buttons = nullptr;
    std::int32_t Count = 0;
};
