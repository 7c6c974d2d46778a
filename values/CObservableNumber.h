#pragma once

#include "values/CObservable.h"

#include <cstdint>
#include <vector>

class CObservableNumber;
class CObservableFloat;
class CObservableLong;

// Numbers that move together: when one changes, each other member in mode 1 moves by the same
// delta, held within 0 to 65535. Nothing in the program makes a group; the step exists so that a
// value may be given one.
class CObservableGroup {
public:
    struct Member {
        CObservableNumber* number;
        int mode;
    };
    std::vector<Member> Members;

    void Follow(CObservableNumber* sender, double oldValue, double newValue);
};

// A number with observers: the range flags, the group link and the double interface that the
// controls use, so that one knob class serves float and long values alike.
class CObservableNumber : public CObservable {
public:
    virtual double GetMinimum() const = 0;
    virtual double GetMaximum() const = 0;
    virtual double GetValue() const = 0;
    virtual void SetValue(double value) = 0;
    // The number as the type it holds, or null: what a checked cast would give, at the price of a
    // call, on the bridge's path of every knob turn.
    virtual CObservableFloat* AsFloat() { return nullptr; }
    virtual CObservableLong* AsLong() { return nullptr; }

    // 1: an assignment outside Minimum and Maximum is dropped. 0 until a panel binds the value.
    std::int32_t RangeChecked = 0;
    CObservableGroup* Group = nullptr;
    // 0 while the group itself writes to this value.
    std::int32_t GroupActive = 1;
    // 1: an assignment of the current value does nothing.
    std::int32_t IgnoreEqual = 1;

protected:
    void GroupStep(double oldValue, double newValue);
};

// Value, minimum and maximum of one type, and the plain store. Maximum means nothing until the
// value is bound, since the range is not checked before that.
template <typename T>
class CObservableScalar : public CObservableNumber {
public:
    double GetMinimum() const override { return static_cast<double>(Minimum); }
    double GetMaximum() const override { return static_cast<double>(Maximum); }
    double GetValue() const override { return static_cast<double>(Value); }

    // Stores without callback, in this order: an equal value stops; a value outside a checked
    // range is dropped unheard, never clamped; hint 0; the group; the store; hint 1.
    void Assign(T value)
    {
        if (value == Value && IgnoreEqual)
            return;
        if (RangeChecked && (value < Minimum || value > Maximum))
            return;
        NotifyObservers(kHintAboutToChange, 0);
        GroupStep(static_cast<double>(Value), static_cast<double>(value));
        Value = value;
        NotifyObservers(kHintChanged, 0);
    }

    T Value = 0;
    T Minimum = 0;
    T Maximum = 0;
};

class CObservableFloat : public CObservableScalar<float> {
public:
    CObservableFloat* AsFloat() override { return this; }
};
// Long values are signed 32-bit, as the engine's integer properties are.
class CObservableLong : public CObservableScalar<std::int32_t> {
public:
    CObservableLong* AsLong() override { return this; }
};
