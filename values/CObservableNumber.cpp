#include "values/CObservableNumber.h"

namespace {

// Group members are 16-bit quantities: a move never takes one below 0 or above 65535.
double GroupTarget(double current, double delta)
{
    if (delta < 0 && -delta > current)
        return 0;
    if (delta > 0 && delta > 65535 - current)
        return 65535;
    return current + delta;
}

} // namespace

void CObservableGroup::Follow(CObservableNumber* sender, double oldValue, double newValue)
{
    const double delta = newValue - oldValue;
    for (const Member& member : Members) {
        if (member.number == sender || member.mode != 1)
            continue;
        member.number->GroupActive = 0;
        member.number->SetValue(GroupTarget(member.number->GetValue(), delta));
        member.number->GroupActive = 1;
    }
}

void CObservableNumber::GroupStep(double oldValue, double newValue)
{
    if (Group && GroupActive == 1)
        Group->Follow(this, oldValue, newValue);
}
